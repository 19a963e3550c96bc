// What hands and keys do to the wave.

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "audio/wave_board.h"
#include "capture/caption_cells.h"

namespace cuewright {
namespace {

constexpr int kSlack = 3;       ///< pixels that a hand may move in a click
constexpr int kSnapPixels = 9;  ///< how near an edge has to come to snap
constexpr Ms kLeastByRightButton = 90;
constexpr Ms kLeastStretch = 40;
constexpr double kPixelsATurn = 120;
constexpr double kZoomATurn = 1.3;
constexpr Ms kStepMs = 10;
constexpr Ms kLongStepMs = 100;
constexpr int kPixelsAStep = 10;
constexpr Ms kPointsWithinMs = 10000;

}  // namespace

Ms WaveBoard::MsAt(int x) const {
  const double ms = std::clamp(scale_.MsOf(x), 0.0, static_cast<double>(std::max<Ms>(scale_.Length(), 1).Count()));
  return Ms::Nearest(ms);
}

BoardHit WaveBoard::HitAt(int x, int y, BoardHeld held) {
  Build();
  if (Bands().ruler.Holds(y)) return {};
  return captions_.At(x, rules_.leastGap, held.control);
}

BoardPointer WaveBoard::PointerAt(int x, int y, BoardHeld held) {
  if (Bands().ruler.Holds(y)) return BoardPointer::Seek;
  switch (HitAt(x, y, held).part) {
    case BoardPart::Start:
    case BoardPart::End:
    case BoardPart::Border:
      return BoardPointer::Edge;
    case BoardPart::Body:
      return hand_ == Hand::Dragging ? BoardPointer::Move : BoardPointer::Usual;
    default:
      return BoardPointer::Usual;
  }
}

void WaveBoard::Press(MouseButton button, int x, int y, BoardHeld held) {
  if (hand_ != Hand::None) return;
  button_ = button;
  pressX_ = x;
  onRuler_ = Bands().ruler.Holds(y);
  pressHit_ = HitAt(x, y, held);
  if (button == MouseButton::Right) {
    // It takes the marks of the selected caption alone.
    pressHit_ = captions_.At(x, 0, true);
    if (pressHit_.row == bench_.list.Selected()) BeginDrag(pressHit_, true);
    return;
  }
  if (button != MouseButton::Left) return;
  hand_ = onRuler_ ? Hand::Seeking : Hand::Pressed;
  if (onRuler_) SeekTo(MsAt(x));
}

void WaveBoard::BeginDrag(const BoardHit& hit, bool byRightButton) {
  if (hit.part == BoardPart::Nothing) return;
  hand_ = Hand::Dragging;
  const RowSet& with = byRightButton ? RowSet(hit.row) : bench_.list.SelectedRows();
  drag_.emplace(bench_.list, hit, MsAt(pressX_), with);
  if (byRightButton) drag_->SetLeast(kLeastByRightButton);
}

void WaveBoard::Move(int x, int /*y*/, BoardHeld held) {
  switch (hand_) {
    case Hand::None:
      return;
    case Hand::Pressed:
      if (std::abs(x - pressX_) <= kSlack) return;
      if (pressHit_.part == BoardPart::Nothing) {
        hand_ = Hand::Stretching;
        return StretchTo(x, held);
      }
      BeginDrag(pressHit_, false);
      return DragTo(x, held);
    case Hand::Dragging:
      return DragTo(x, held);
    case Hand::Stretching:
      return StretchTo(x, held);
    case Hand::Seeking:
      return SeekTo(MsAt(x));
  }
}

void WaveBoard::DragTo(int x, BoardHeld held) {
  if (!drag_) return;
  const Ms ms = MsAt(x);
  snapped_.reset();
  Ms by = 0;
  const bool free = held.shift || button_ == MouseButton::Right || !bench_.options.waveSnaps;
  if (const auto snap = free ? std::nullopt : SnapOf(drag_->EdgesAt(ms))) {
    snapped_ = snap->point;
    by = snap->by;
  }
  drag_->MoveTo(ms, by);
  Show();
  SpokenChanged();
}

void WaveBoard::StretchTo(int x, BoardHeld held) {
  CaptionTimes times{MsAt(std::min(x, pressX_)), MsAt(std::max(x, pressX_))};
  snapped_.reset();
  if (!held.shift && bench_.options.waveSnaps) {
    // The side that the hand is on snaps.
    const CaptionEdge edge = x < pressX_ ? CaptionEdge::Start : CaptionEdge::End;
    Ms& side = edge == CaptionEdge::Start ? times.start : times.end;
    if (const auto snap = SnapOf({{edge, side}})) {
      snapped_ = snap->point;
      side += snap->by;
    }
  }
  stretch_ = times;
  Show();
}

void WaveBoard::Release(BoardHeld /*held*/) {
  const Hand hand = std::exchange(hand_, Hand::None);
  snapped_.reset();
  if (hand == Hand::Pressed) ClickAt(pressX_);
  if (hand == Hand::Dragging) EndDrag();
  if (hand == Hand::Stretching && stretch_ && stretch_->end - stretch_->start < kLeastStretch) stretch_.reset();
  button_ = MouseButton::None;
  Show();
}

void WaveBoard::EndDrag() {
  if (!drag_) return;
  const BoardDrag drag = *std::exchange(drag_, std::nullopt);
  drag.Store(bench_.list);
  SpokenChanged();
}

void WaveBoard::ClickAt(int x) {
  stretch_.reset();
  if (pressHit_.row != 0) {
    selecting_ = true;
    bench_.list.MoveSelection(pressHit_.row);
    selecting_ = false;
  }
  SeekTo(MsAt(x));
}

void WaveBoard::SeekTo(Ms ms) {
  if (!bench_.document.HasVideo()) return;
  sample_.SetPlayerPosMs(ms);
  player_.SetCurrentPosition(ms.Seconds());
  PositionChanged();
}

bool WaveBoard::Cancel() {
  const bool any = hand_ != Hand::None || stretch_ || chosen_ != BoardPart::Nothing;
  hand_ = Hand::None;
  drag_.reset();
  snapped_.reset();
  stretch_.reset();
  chosen_ = BoardPart::Nothing;
  Show();
  SpokenChanged();
  return any;
}

void WaveBoard::Wheel(double turns, int x, BoardHeld held) {
  if (held.control) return Pinch(std::pow(kZoomATurn, turns), x);
  ScrollTo(scale_.Left() - turns * kPixelsATurn * scale_.MsAPixel());
}

void WaveBoard::Pinch(double factor, int x) {
  Build();
  scale_.SetMsAPixel(scale_.MsAPixel() / factor, x);
  KeepScale();
}

Ms WaveBoard::ReachOf(SnapKind kind) const {
  const Ms near = Ms::Nearest(std::ceil(kSnapPixels * scale_.MsAPixel()));
  return kind == SnapKind::Shot ? std::max(near, rules_.shotZone) : near;
}

void WaveBoard::FindCaptionPoints(CaptionEdge edge, Ms from, Ms to, std::vector<SnapPoint>& found) const {
  for (const BoardBlock& block : captions_.Blocks()) {
    if (drag_ && drag_->Holds(block.row)) continue;
    // An end comes before the caption behind it, with the gap that the house wants.
    const Ms ms = edge == CaptionEdge::Start ? block.times.end + rules_.leastGap : block.times.start - rules_.leastGap;
    if (ms >= from && ms <= to) found.push_back({ms, SnapKind::Caption});
  }
}

std::optional<WaveBoard::Snap> WaveBoard::SnapOf(const std::vector<BoardDrag::Edge>& edges) const {
  std::optional<Snap> nearest;
  const Ms reach = ReachOf(SnapKind::Shot);
  for (const BoardDrag::Edge& edge : edges) {
    std::vector<SnapPoint> points;
    FindCaptionPoints(edge.edge, edge.ms - reach, edge.ms + reach, points);
    shots.Find(edge.edge, edge.ms - reach, edge.ms + reach, points);
    voices_.Find(edge.edge, edge.ms - reach, edge.ms + reach, points);
    for (const SnapPoint& point : points) {
      const Ms by = point.ms - edge.ms;
      if (Abs(by) > ReachOf(point.kind)) continue;
      if (!nearest || Abs(by) < Abs(nearest->by)) nearest = Snap{point, by};
    }
  }
  return nearest;
}

std::optional<Ms> WaveBoard::NextPoint(CaptionEdge edge, Ms ms, bool back) const {
  const Ms from = back ? ms - kPointsWithinMs : ms + 1;
  const Ms to = back ? ms - 1 : ms + kPointsWithinMs;
  std::vector<SnapPoint> points;
  shots.Find(edge, from, to, points);
  voices_.Find(edge, from, to, points);
  if (points.empty()) return {};
  const auto nearer = [](const SnapPoint& a, const SnapPoint& b) { return a.ms < b.ms; };
  return back ? std::ranges::max_element(points, nearer)->ms : std::ranges::min_element(points, nearer)->ms;
}

void WaveBoard::PressArrow(bool back, BoardHeld held) {
  if (chosen_ == BoardPart::Nothing) return StepPosition(back, held.shift);
  if (held.control) return StepToPoint(back);
  const Ms by = held.shift ? kLongStepMs : kStepMs;
  StepEdge(back ? -by : by);
}

bool WaveBoard::Press(BoardKey key, BoardHeld held) {
  const double page = scale_.MsAPixel() * scale_.Width() * 9 / 10;
  switch (key) {
    case BoardKey::Left:
    case BoardKey::Right:
      PressArrow(key == BoardKey::Left, held);
      return true;
    case BoardKey::Up:
    case BoardKey::Down:
      ChooseEdge(key == BoardKey::Down);
      return true;
    case BoardKey::PageUp:
    case BoardKey::PageDown:
      ScrollTo(scale_.Left() + (key == BoardKey::PageUp ? -page : page));
      return true;
    case BoardKey::Home:
    case BoardKey::End:
      Build();
      ScrollTo(key == BoardKey::Home ? 0 : scale_.Length());
      return true;
    case BoardKey::Enter:
      if (!stretch_) return false;
      CaptionWanted();
      return true;
    case BoardKey::Escape:
      return Cancel();
    case BoardKey::Nearer:
    case BoardKey::Farther:
      Zoom(key == BoardKey::Nearer ? kZoomATurn : 1 / kZoomATurn);
      return true;
  }
  return false;
}

void WaveBoard::ChooseEdge(bool on) {
  const Row row = bench_.list.Selected();
  if (!bench_.list.IsCaptionTimed(row)) return;
  constexpr BoardPart kParts[] = {BoardPart::Nothing, BoardPart::Start, BoardPart::Body, BoardPart::End};
  const auto at = static_cast<std::size_t>(std::ranges::find(kParts, chosen_) - std::begin(kParts));
  constexpr std::size_t kCount = std::size(kParts);
  chosen_ = kParts[(at + (on ? 1 : kCount - 1)) % kCount];
  Show();
  SpokenChanged();
}

void WaveBoard::StepEdge(Ms by) {
  const Row row = bench_.list.Selected();
  if (!bench_.list.IsCaptionTimed(row) || hand_ != Hand::None) return;
  BoardDrag drag(bench_.list, {chosen_, row, 0}, 0, RowSet(row));
  drag.MoveTo(by);
  const BoardPart chosen = chosen_;
  drag.Store(bench_.list);
  chosen_ = chosen;
  BringIntoView(row);
  Show();
  SpokenChanged();
}

std::optional<Ms> WaveBoard::Cursor() const {
  if (stretch_) return stretch_->start;
  const Row row = bench_.list.Selected();
  if (chosen_ == BoardPart::Nothing || !bench_.list.IsCaptionTimed(row)) return {};
  const CaptionTimes times = bench_.list.TimesAt(row);
  return chosen_ == BoardPart::End ? times.end : times.start;
}

void WaveBoard::StepToPoint(bool back) {
  const Row row = bench_.list.Selected();
  const CaptionTimes times = bench_.list.TimesAt(row);
  const CaptionEdge edge = chosen_ == BoardPart::End ? CaptionEdge::End : CaptionEdge::Start;
  const Ms ms = edge == CaptionEdge::End ? times.end : times.start;
  if (const auto point = NextPoint(edge, ms, back)) StepEdge(*point - ms);
}

void WaveBoard::StepPosition(bool back, bool stretches) {
  Build();
  const Ms by = Ms::Nearest(kPixelsAStep * scale_.MsAPixel());
  const Ms from = sample_.PlayerPosMs();
  const Ms to = std::clamp<Ms>(from + (back ? -by : by), 0, scale_.Length());
  if (stretches) {
    // The side of the stretch that the position stands at goes with it.
    if (!stretch_ || (stretch_->start != from && stretch_->end != from)) stretch_ = CaptionTimes{from, from};
    const Ms other = stretch_->start == from ? stretch_->end : stretch_->start;
    stretch_ = CaptionTimes{std::min(to, other), std::max(to, other)};
    SpokenChanged();
  }
  SeekTo(to);
  if (!scale_.Shows(to)) ScrollTo(to.Count() - scale_.MsAPixel() * scale_.Width() / 2);
  Show();
}

Text WaveBoard::Spoken() const {
  const LangStrings& strings = bench_.strings;
  const auto span = [&](Message words, const CaptionTimes& times) {
    return Fill(strings[words], TimeCell(times.start, {}), TimeCell(times.end, {}));
  };
  const Row row = drag_ ? drag_->Hit().row : bench_.list.Selected();
  if (!drag_ && stretch_) return span(Message::SpokenStretch, *stretch_);
  if (!bench_.list.IsCaptionTimed(row)) return {};
  const CaptionTimes times = drag_ ? drag_->Moved().front().times : bench_.list.TimesAt(row);
  const BoardPart part = drag_ ? drag_->Hit().part : chosen_;
  if (part == BoardPart::Start) return Fill(strings[Message::SpokenStartEdge], TimeCell(times.start, {}));
  if (part == BoardPart::End) return Fill(strings[Message::SpokenEndEdge], TimeCell(times.end, {}));
  return span(Message::SpokenCaptionSpan, times);
}

}  // namespace cuewright
