#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

#include "capture/workbench.h"
#include "core/signal.h"
#include "forms/notices.h"
#include "voice/align.h"
#include "voice/fit.h"

namespace cuewright {

/// A caption that was held by hand, and what the fit made of it.
struct FitMark {
  std::uint64_t number = 0;  ///< of the hold; a caption that is held again is another one
  CaptionTimes held;         ///< as the hand gave them
  CaptionTimes fitted;       ///< as the fit gave them; those held while it waits
  bool byHand = false;       ///< held in this document, not read from a file
  bool waits = true;         ///< for the fit
  bool fromSound = false;    ///< it is a line of a text that got its times by the sound
  bool byConstant = false;   ///< it moved by the person's constant alone, without any sound
  bool startMoved = false;   ///< to the voice
  bool endMoved = false;     ///< to the voice
  double startConfidence = 0;
  double endConfidence = 0;

  double Confidence() const { return std::min(startConfidence, endConfidence); }
};

/// A caption that is to have other times.
struct FitMove {
  Row row = 0;
  CaptionTimes before;  ///< what it had when the fit began; one that has others now stays
  FitMark mark;
};

/// Which captions were held by hand and which the fit has moved. A mark goes with its caption; it shows as long as the
/// caption has the times that the fit gave it, so undo takes it away and redo brings it back. One command takes a move
/// back, one goes to the next doubtful one.
class FitMarks final : public RowMoves {
 public:
  FitMarks(Workbench bench, Notices& notices);

  Kind KindOf(Row row) const override;
  Text Words(Row row) const override;

  /// A caption was held by hand.
  void Hold(Row row);
  /// The row of a hold; 0 when its caption is gone or was held again.
  Row RowOf(std::uint64_t number) const;
  const FitMark* Find(Row row) const;
  const std::map<Row, FitMark>& All() const { return marks_; }
  /// Gives captions, in order of their rows, their fitted times as one step and marks them. They keep as far from their
  /// neighbours as they were, or `leastGap` ms. Gives how many moved.
  int Move(const std::vector<FitMove>& moves, Ms leastGap);
  /// Gives all captions the times of their lines as one step and marks them.
  void TakeLines(const std::vector<AlignedLine>& lines);
  /// The caption's times as the hand gave them, whatever the fit made of them.
  CaptionTimes HeldTimes(Row row) const;
  /// The caption's times are those that the fit gave it.
  bool InForce(Row row, const FitMark& mark) const;
  /// A caption's hold is of no use any more.
  void Forget(Row row) { marks_.erase(row); }
  /// A document comes or goes.
  void Clear();
  /// The menu shows the commands where the manner in force has them.
  void ShowItems();

  /// The list shows a doubtful caption, which is to be heard.
  Signal<FitMarks, Row> DoubtfulShown;

 private:
  CaptionTimes BesideNeighbours(Row row, const CaptionTimes& wanted, Ms leastGap) const;
  void Follow(const Splice& splice);
  void TakeBack();
  void NextDoubtful();
  bool IsDoubtful(Row row) const { return KindOf(row) == Kind::Doubtful; }
  void Tell(Message message);

  Workbench bench_;
  Notices& notices_;
  std::map<Row, FitMark> marks_;
  std::uint64_t holds_ = 0;
};

/// "+120" or "-45": how far a time moved.
Text SignedMs(Ms ms);

}  // namespace cuewright
