#include "audio/wave_board.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "capture/caption_cells.h"

namespace cuewright {
namespace {

constexpr Ms kLeadMs = 1000;  ///< what is shown before a caption that comes into view
/// A position that changes by more than this between two ticks was jumped to, not played to.
constexpr Ms kJumpMs = 500;
constexpr double kUsAMs = 1000;
/// A block narrower than this has no room for words.
constexpr int kLeastForWords = 26;
constexpr int kWordMargin = 3;
constexpr std::size_t kMsDigits = 4;  // ".000"

}  // namespace

WaveBoard::WaveBoard(Workbench bench, AudioBar& bar, WaveDetails& details, Player& player, PlayerSample& sample)
    : bench_(bench),
      bar_(bar),
      details_(details),
      player_(player),
      sample_(sample),
      captions_(bench.list, bench.grid),
      voices_(details.Peaks(), details.Table()) {
  Wire();
}

void WaveBoard::Wire() {
  CaptionList& list = bench_.list;
  list.Spliced.Connect([this](const Splice& splice) {
    // What a hand held may be another caption now.
    drag_.reset();
    if (splice.removed != splice.added) broughtRow_ = 0;
    Show();
  });
  list.SelectionChanged.Connect([this](Row) { OnSelection(); });
  list.RowShown.Connect([this](Row, bool) { OnSelection(); });
  bench_.grid.Changed.Connect([this] { Show(); });
  bench_.grid.RowsTouched.Connect([this](Row, Row) { Show(); });
  bench_.window.tmrTime.Tick.Connect([this] {
    FollowPosition();
    // The columns of the spectrogram that were too many for the last picture.
    if (built_ && details_.Fine().Unfinished()) Show();
  });
  bench_.window.sldWavScale.Scrolled.Connect([this] { Show(); });
  connections_.push_back(player_.ControlsChange.ConnectScoped([this] { Show(); }));
  connections_.push_back(bar_.WaveChanged.ConnectScoped([this] { Show(); }));
}

void WaveBoard::LoadOptions() {
  scale_.SetMsAPixel(bench_.options.waveZoom / kUsAMs, 0);
  Show();
}

void WaveBoard::SetRules(const EdgeRules& rules) {
  rules_ = rules;
  shots.SetRules(rules);
}

void WaveBoard::Show() {
  built_ = false;
  if (Shown()) Changed();
}

void WaveBoard::SetSize(int width, int height) {
  if (width == scale_.Width() && height == height_) return;
  scale_.SetWidth(width);
  height_ = height;
  Show();
}

void WaveBoard::Build() {
  if (built_) return;
  built_ = true;
  captions_.Build(scale_, Held());
  const Ms film = Ms::Nearest(std::clamp(player_.Duration() * 1000, 0.0, 1e9));
  const Ms length = std::max({film, details_.Peaks().Length(), captions_.LastEnd()});
  if (length == scale_.Length()) return;
  const double left = scale_.Left();
  scale_.SetLength(length);
  if (scale_.Left() != left) captions_.Build(scale_, Held());
}

const std::vector<BoardBlock>& WaveBoard::Blocks() {
  Build();
  return captions_.Blocks();
}

BoardBands WaveBoard::Bands() const {
  return BoardBands::For(height_, captions_.HasLower(), static_cast<BoardLook>(bench_.options.waveLook));
}

void WaveBoard::Paint(const PixelCanvas& canvas) {
  Build();
  const WaveView& view = bar_.View();
  const BoardBands bands = Bands();
  if (bands.spectrum.Height() > 0) details_.Fine().Prepare(scale_);
  BoardScene scene{scale_,
                   details_.Peaks(),
                   details_.Table(),
                   details_.Fine(),
                   captions_,
                   bands,
                   BoardColors::Of(view.color, view.backColor)};
  scene.loudest = view.scale;
  scene.bothHalves = view.fullHeight;
  scene.stretch = stretch_;
  scene.shots = shots.Shots();
  scene.held = ChosenEdges();
  if (snapped_) scene.snap = snapped_->ms;
  painter_.Paint(canvas, scene);
}

std::vector<Ms> WaveBoard::ChosenEdges() const {
  const CaptionTimes times = {bench_.list.GetCaptionStart(bench_.list.Selected()),
                              bench_.list.GetCaptionEnd(bench_.list.Selected())};
  if (chosen_ == BoardPart::Start) return {times.start};
  if (chosen_ == BoardPart::End) return {times.end};
  return chosen_ == BoardPart::Body ? std::vector{times.start, times.end} : std::vector<Ms>();
}

std::vector<BoardWord> WaveBoard::Words() {
  Build();
  std::vector<BoardWord> words;
  const BoardBands bands = Bands();
  const Ms step = RulerStep(scale_.MsAPixel());
  const Ms first = Ms(static_cast<std::int32_t>(scale_.Left())) / step * step;
  for (Ms ms = first; ms.Count() < scale_.Right(); ms += step) {
    Text clock = TimeCell(ms, {});
    if (step >= kLeadMs) clock.resize(clock.size() - kMsDigits);
    const int x = static_cast<int>(scale_.XOf(ms));
    words.push_back({BoardWord::Kind::Time, x + kWordMargin,
                     static_cast<int>(step.Count() / scale_.MsAPixel()) - kWordMargin, bands.ruler, std::move(clock)});
  }
  for (const BoardBlock& block : captions_.Blocks()) {
    const int left = std::max(block.left, 0);
    const int width = std::min(block.right, scale_.Width()) - left;
    if (width < kLeastForWords) continue;
    const int top = bands.captions.top + (block.lower ? BoardBands::kLane : 0);
    words.push_back({BoardWord::Kind::Caption,
                     left + kWordMargin,
                     width - 2 * kWordMargin,
                     {top, top + BoardBands::kLane},
                     bench_.grid.ShownText(block.row)});
  }
  if (snapped_) {
    const Message kind = snapped_->kind == SnapKind::Shot    ? Message::SnapsToShot
                         : snapped_->kind == SnapKind::Voice ? Message::SnapsToVoice
                                                             : Message::SnapsToCaption;
    words.push_back({BoardWord::Kind::Snap, static_cast<int>(scale_.XOf(snapped_->ms)) + 2 * kWordMargin, 0,
                     bands.sound, bench_.strings[kind] + u" " + TimeCell(snapped_->ms, {})});
  }
  return words;
}

std::optional<int> WaveBoard::PositionX() const {
  const Ms ms = sample_.PlayerPosMs();
  if (!bench_.document.HasVideo() || !scale_.Shows(ms)) return {};
  return static_cast<int>(scale_.XOf(ms));
}

void WaveBoard::FollowPosition() {
  const Ms ms = sample_.PlayerPosMs();
  if (!Shown() || ms == shownMs_ || !bench_.document.HasVideo()) return;
  const Ms before = std::exchange(shownMs_, ms);
  // A hand keeps the page that it works on, and what the user looks up stays while the film stands.
  const bool playing = player_.PlayState() == kPlayerPlaying;
  if (playing && hand_ == Hand::None) {
    const double left = scale_.Left();
    if (bench_.options.waveCentred) {
      ScrollTo(ms.Count() - scale_.MsAPixel() * scale_.Width() / 2);
    } else if (!scale_.Shows(ms) && (scale_.Shows(before) || Abs(ms - before) > kJumpMs)) {
      ScrollTo(ms);
    }
    if (scale_.Left() != left) return;
  }
  PositionChanged();
}

void WaveBoard::OnSelection() {
  const Row row = bench_.list.Selected();
  // A row that is only shown anew leaves the picture to who has scrolled it.
  if (std::exchange(broughtRow_, row) == row) return Show();
  chosen_ = BoardPart::Nothing;
  // While the film plays the picture goes with it.
  if (!selecting_ && hand_ == Hand::None && player_.PlayState() != kPlayerPlaying) BringIntoView(row);
  Show();
}

void WaveBoard::BringIntoView(Row row) {
  if (!bench_.list.InRange(row) || !bench_.list.IsCaptionTimed(row)) return;
  const CaptionTimes times = bench_.list.TimesAt(row);
  const bool whole = scale_.Shows(times.start) && scale_.Shows(times.end);
  if (whole) return;
  ScrollTo(times.start - kLeadMs);
}

void WaveBoard::ShowCaption() {
  const Row row = bench_.list.Selected();
  if (!bench_.list.IsCaptionTimed(row)) return;
  ScrollTo(bench_.list.TimesAt(row).start - kLeadMs);
}

void WaveBoard::ScrollTo(double ms) {
  // How far it goes is known by what there is now.
  Build();
  scale_.ShowFrom(ms);
  Show();
}

void WaveBoard::KeepScale() {
  bench_.options.waveZoom = static_cast<std::int32_t>(std::lround(scale_.MsAPixel() * kUsAMs));
  Show();
}

void WaveBoard::Zoom(double factor) {
  Build();
  const std::optional<int> position = PositionX();
  scale_.SetMsAPixel(scale_.MsAPixel() / factor, position.value_or(scale_.Width() / 2));
  KeepScale();
}

void WaveBoard::SetLook(BoardLook look) {
  bench_.options.waveLook = static_cast<std::uint8_t>(look);
  Show();
}

void WaveBoard::SetCentred(bool centred) {
  bench_.options.waveCentred = centred;
  Show();
}

void WaveBoard::SetHeight(int height) {
  constexpr std::int32_t kMost = 4000;
  bench_.options.waveHeight = std::clamp(height, AudioBar::kHeight, kMost);
  HeightChosen();
}

void WaveBoard::ClearStretch() {
  stretch_.reset();
  Show();
}

}  // namespace cuewright
