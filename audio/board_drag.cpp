#include "audio/board_drag.h"

#include <algorithm>

namespace cuewright {
namespace {

/// A caption that starts at 0 counts as one without times.
constexpr Ms kFirstStart = 1;

}  // namespace

BoardDrag::BoardDrag(const CaptionList& list, const BoardHit& hit, Ms ms, const RowSet& with) : hit_(hit), from_(ms) {
  const auto take = [&](Row row) { before_.push_back({row, list.TimesAt(row)}); };
  if (hit.part == BoardPart::Body && with.Has(hit.row)) {
    for (const Row row : with.Rows()) {
      if (list.InRange(row) && list.IsCaptionTimed(row)) take(row);
    }
  } else if (list.InRange(hit.row)) {
    take(hit.row);
    if (hit.part == BoardPart::Border && list.InRange(hit.next)) take(hit.next);
  }
  moved_ = before_;
}

Ms BoardDrag::Cut(Ms by) const {
  Ms least = -Ms::Latest();
  Ms most = Ms::Latest();
  const CaptionTimes& own = before_.front().times;
  switch (hit_.part) {
    case BoardPart::Start:
      least = kFirstStart - own.start;
      most = own.end - least_ - own.start;
      break;
    case BoardPart::End:
      least = own.start + least_ - own.end;
      break;
    case BoardPart::Border:
      least = own.start + least_ - own.end;
      most = before_.back().times.end - least_ - before_.back().times.start;
      break;
    default:
      for (const MovedCaption& caption : before_) least = std::max(least, kFirstStart - caption.times.start);
      break;
  }
  // A caption that is shorter than that already isn't made longer by taking hold of it.
  return std::clamp(by, std::min<Ms>(least, 0), std::max<Ms>(most, 0));
}

std::vector<BoardDrag::Edge> BoardDrag::EdgesAt(Ms ms) const {
  if (before_.empty()) return {};
  const Ms by = ms - from_;
  const auto own = std::ranges::find(before_, hit_.row, &MovedCaption::row);
  if (own == before_.end()) return {};
  const Edge start{CaptionEdge::Start, own->times.start + by};
  const Edge end{CaptionEdge::End, own->times.end + by};
  if (hit_.part == BoardPart::Start) return {start};
  if (hit_.part == BoardPart::End) return {end};
  if (hit_.part == BoardPart::Border) return {{CaptionEdge::Start, before_.back().times.start + by}, end};
  return {start, end};
}

void BoardDrag::MoveTo(Ms ms, Ms by) {
  if (before_.empty()) return;
  const Ms moved = Cut(ms - from_ + by);
  const bool starts = hit_.part == BoardPart::Start || hit_.part == BoardPart::Body;
  const bool ends = hit_.part == BoardPart::End || hit_.part == BoardPart::Body;
  for (std::size_t i = 0; i < before_.size(); ++i) {
    // At a border the end of the one moves and the start of the other.
    const bool border = hit_.part == BoardPart::Border;
    CaptionTimes& times = moved_[i].times = before_[i].times;
    if (starts || (border && i == 1)) times.start += moved;
    if (ends || (border && i == 0)) times.end += moved;
  }
}

const CaptionTimes* BoardDrag::TimesOf(Row row) const {
  // Of a border there are two, in whatever order; of many selected captions each stands by its row.
  const auto found = hit_.part == BoardPart::Border ? std::ranges::find(moved_, row, &MovedCaption::row)
                                                    : std::ranges::lower_bound(moved_, row, {}, &MovedCaption::row);
  return found != moved_.end() && found->row == row ? &found->times : nullptr;
}

void BoardDrag::Store(CaptionList& list) const {
  if (moved_ == before_) return;
  const EditScope scope(list, EditKind::Drag);
  // Rows that follow each other are one change of the list.
  for (std::size_t first = 0; first < moved_.size();) {
    std::vector<CaptionTimes> times;
    std::size_t next = first;
    do {
      times.push_back(moved_[next].times);
      ++next;
    } while (next < moved_.size() && moved_[next].row == moved_[next - 1].row + 1);
    list.Retime(moved_[first].row, times);
    first = next;
  }
  list.SetModified();
}

}  // namespace cuewright
