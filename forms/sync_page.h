#pragma once

#include <cstdint>
#include <future>
#include <memory>
#include <vector>

#include "capture/workbench.h"
#include "core/signal.h"
#include "form/controls.h"
#include "forms/film_voice.h"
#include "tools/retime.h"
#include "voice/sync.h"

namespace cuewright {

/// The part of `frmRetime` that finds where in the open film's sound captions belong that were made for another cut or
/// rate. Each segment is listed with its offset and how sure that is. The user may set an offset or a border; what was
/// set by hand is held fixed when the places are looked for again.
class SyncPage {
 public:
  SyncPage(Form& window, Workbench bench, FilmVoice& voice);
  ~SyncPage();

  Frame fraSync;
  Button cmdSyncFind;
  ListBox lstSegments;
  Label lblOffset;
  TextBox txtOffset;
  Button cmdSetOffset;
  Button cmdFreeSegment;
  Button cmdBorder;
  Button cmdJoinSegment;
  Timer tmrSync;

  void ApplyLanguage();
  /// What there is to say while nothing is foreseen.
  const Text& Told() const { return told_; }
  /// What would become of the captions; empty while nothing was found.
  std::vector<RetimePiece> Pieces() const;
  CaptionTimes TimesOf(Row row, const CaptionTimes& own) const;
  /// The window closes.
  void Forget();

  Signal<SyncPage> Changed;

 private:
  struct Segment {
    SyncSegment found;
    bool fixed = false;  ///< set by hand
  };

  void Wire();
  void Find();
  void Poll();
  void Search();
  void Finish();
  void Tell(Message message);
  void Show(int chosen);
  void SetOffset();
  void PutBorder();
  void Join();
  int Chosen() const { return lstSegments.Index(); }
  TimeMap MapOf(const Segment& segment) const;
  /// Puts the segments that were set by hand over those that were found.
  std::vector<Segment> UnderFixed(const std::vector<SyncSegment>& found) const;

  Workbench bench_;
  FilmVoice& voice_;
  Text told_;
  TimeRatio ratio_;
  std::vector<Segment> segments_;
  std::vector<CaptionTimes> times_;  ///< of the captions when the search began
  std::future<SyncResult> search_;
};

}  // namespace cuewright
