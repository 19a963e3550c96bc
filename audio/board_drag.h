#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "audio/snap_points.h"
#include "core/caption_list.h"

namespace cuewright {

/// What of the captions lies at a place of the wave.
enum class BoardPart : std::uint8_t { Nothing, Start, End, Border, Body };
struct BoardHit {
  BoardPart part = BoardPart::Nothing;
  Row row = 0;
  Row next = 0;  ///< of a border the caption behind it

  bool operator==(const BoardHit&) const = default;
};

/// A caption with times that it hasn't yet.
struct MovedCaption {
  Row row = 0;
  CaptionTimes times;

  bool operator==(const MovedCaption&) const = default;
};

/// Captions that a hand moves: what times they would get. The list stays as it is until they are stored.
class BoardDrag {
 public:
  /// Takes hold of what lies at a time. Of a whole caption the others in `with` go along.
  BoardDrag(const CaptionList& list, const BoardHit& hit, Ms ms, const RowSet& with);

  /// No caption is drawn shorter than this many ms.
  void SetLeast(Ms ms) { least_ = ms; }

  /// What the hand would snap to at a time: edges that move, and by how much the nearest place is away from each.
  struct Edge {
    CaptionEdge edge = CaptionEdge::Start;
    Ms ms = 0;
  };
  std::vector<Edge> EdgesAt(Ms ms) const;
  /// The hand is at a time; `by` is added where it snaps.
  void MoveTo(Ms ms, Ms by = 0);

  const std::vector<MovedCaption>& Moved() const { return moved_; }
  const BoardHit& Hit() const { return hit_; }
  /// The times that a caption would get; null for one that isn't held.
  const CaptionTimes* TimesOf(Row row) const;
  bool Holds(Row row) const { return TimesOf(row) != nullptr; }
  /// Gives the captions their times, as one step to take back. Nothing when none would change.
  void Store(CaptionList& list) const;

 private:
  Ms Cut(Ms by) const;

  BoardHit hit_;
  Ms from_ = 0;  ///< where the hand took hold
  Ms least_ = 40;
  std::vector<MovedCaption> before_;
  std::vector<MovedCaption> moved_;
};

}  // namespace cuewright
