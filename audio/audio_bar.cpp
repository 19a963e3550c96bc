#include "audio/audio_bar.h"

#include <algorithm>

#include "core/paths.h"
#include "core/runtime_error.h"
#include "text/labels.h"

namespace cuewright {
namespace {

constexpr int kLeastScale = 2000;
constexpr int kMostScale = 48000;
constexpr std::int32_t kPositionColor = 0xFFFFC0;
constexpr int kArrowHalf = 2;
constexpr std::int32_t kMsAColumn = 10;
constexpr std::int32_t kSteps = 32;  // of the meter
constexpr std::int64_t kKilobyte = 1024;

}  // namespace

AudioBar::AudioBar(AudioBarParts parts) : p_(parts) {
  marks_.positionColor = kPositionColor;
  MainWindow& w = p_.window;
  w.sldWavScale.SetRange(-kMostScale, -kLeastScale);
  w.sldWavScale.Scrolled.Connect([this] { OnSlider(); });
  w.mnuAudioBar.Clicked.Connect([this] { ToggleBar(); });
  w.mnuFullWave.Clicked.Connect([this] { ToggleFullHeight(); });
  w.tmrWave.Tick.Connect([this] { Follow(); });
  w.Hovered.Connect([this] { OnPointerElsewhere(); });
  w.picBottom.Hovered.Connect([this] { OnPointerElsewhere(); });
  p_.list.RowShown.Connect([this](Row, bool) {
    if (Loaded()) PlaceCurrentMarks();
  });
  connections_.push_back(p_.player.PlayStateChange.ConnectScoped([this](int state) { OnState(state); }));
  connections_.push_back(p_.player.PositionChange.ConnectScoped([this](double, double) {
    if (Loaded()) Follow();
  }));
}

void AudioBar::SetView(AudioBarView* view) {
  shown_ = view;
  if (view != nullptr) Repaint();
}

void AudioBar::LoadOptions() {
  MainWindow& w = p_.window;
  view_.scale = p_.options.waveScale;
  view_.fullHeight = p_.options.fullWave;
  w.sldWavScale.SetValue(-view_.scale);
  w.mnuAudioBar.SetChecked(p_.options.audioBarOn);
  w.mnuFullWave.SetChecked(p_.options.fullWave);
  ShowManner();
  SetWaveColor(p_.options.waveColor);
}

void AudioBar::ShowManner() {
  MainWindow& w = p_.window;
  const bool on = p_.options.audioBarOn;
  const bool workbench = p_.options.manner.WaveIsAWorkbench();
  w.picLevel.SetVisible(on);
  w.sldWavScale.SetVisible(on);
  w.picWave.SetVisible(on && !workbench);
  w.picBoard.SetVisible(on && workbench);
  w.imgWaveSize.SetVisible(on && workbench);
}

bool AudioBar::Rolling() const {
  const int state = p_.player.PlayState();
  return state == kPlayerPlaying || state == kPlayerPaused;
}

void AudioBar::SetMarks(const WaveMarks& marks) {
  if (marks == marks_) return;
  marks_ = marks;
  MarksChanged();
}

void AudioBar::ShowBar() {
  if (!p_.options.audioBarOn) ToggleBar();
}

void AudioBar::LoadWaveFile(TextView path, bool recall) {
  path_ = path;
  recall_ = recall;
  abort_ = false;
  const std::uint32_t number = current_ = ++loads_;
  WaveLoadResult result = WaveLoadResult::Failed;
  CarryOn steps;
  steps([&] {
    const std::unique_ptr<FileReader> file = p_.files.OpenToRead(path_);
    result = WaveReader(peaks_).Load(*file, *this);
  });
  if (number == loads_) EndLoad(result);
}

void AudioBar::EndLoad(WaveLoadResult result) {
  MainWindow& w = p_.window;
  CarryOn last;
  const bool painted = last([&] {
    if (result == WaveLoadResult::Loaded && peaks_.UpperBound() / 2 < view_.columns) DrawWave(0);
  });
  if (result == WaveLoadResult::Failed || !painted) {
    p_.messages.Show({p_.strings[Message::WaveLoadFailed], BoxIcon::Error, BoxButtons::Ok,
                      WithoutDots(p_.strings[Message::AudioBar])});
  }
  if (result == WaveLoadResult::Loaded && recall_) {
    w.mnuAFileName.SetText(ShortenPath(path_));
    w.mnuAFileName.SetVisible(true);
  }
  w.mnuOpenWav.SetEnabled(true);
  w.lblWave.SetVisible(false);
  if (result == WaveLoadResult::Loaded) Opened(path_);
}

void AudioBar::OnHeader() { ResetWaveBar(true); }

void AudioBar::OnBegin() {
  MainWindow& w = p_.window;
  p_.document.WavePath = path_;
  w.lblWave.SetText(p_.strings[Message::ReadingAudio] + u" ");
  w.lblWave.SetVisible(true);
  w.mnuOpenWav.SetEnabled(false);
  w.mnuClose.SetEnabled(true);
  w.sldWavScale.SetEnabled(true);
  w.tmrWave.SetEnabled(true);
  ShowBar();
  if (Rolling()) {
    w.imgWavPos.SetVisible(true);
    WaveMarks marks = marks_;
    marks.positionShown = true;
    SetMarks(marks);
  }
  p_.events.Yield();
}

bool AudioBar::OnProgress(std::int64_t position, std::int64_t size) {
  p_.window.lblWave.SetText(p_.strings[Message::ReadingAudio] + u" " + Decimal(position / kKilobyte) + u" / " +
                            Decimal(size / kKilobyte) + u" KB");
  const std::uint32_t number = current_;
  p_.events.Yield();
  // Another load may have begun meanwhile, and ended as well.
  return abort_ || number != loads_;
}

void AudioBar::Forget() {
  if (!Loaded()) return;
  abort_ = true;
  ResetWaveBar(true);
  Forgotten();
}

void AudioBar::ResetWaveBar(bool full) {
  if (full) {
    p_.window.sldWavScale.SetEnabled(false);
    p_.window.tmrWave.SetEnabled(false);
    HidePosition();
    p_.document.WavePath.clear();
    view_.scrollPos = 0;
    peaks_.Forget();
    WaveMarks marks = marks_;
    marks.captionShown = false;
    SetMarks(marks);
  }
  if (shown_ == nullptr) return;
  WaveSurface& wave = shown_->Wave();
  view_.height = wave.InnerHeight();
  view_.columns = shown_->ScreenWidth();
  ClearLevel();
  wave.Clear(view_.backColor);
  view_.DrawGrid(wave);
  WaveChanged();
  if (yielding_) return;
  yielding_ = true;
  p_.events.YieldToPainting();
  yielding_ = false;
}

void AudioBar::DrawWave(std::int32_t first) {
  if (first == 0) view_.scrollPos = 0;
  const std::uint32_t paint = ++paints_;
  ResetWaveBar(false);
  // The events of the repaint may have turned the page: the newer picture stays.
  if (shown_ == nullptr || paint != paints_) return;
  view_.DrawColumns(shown_->Wave(), peaks_, first);
  WaveChanged();
}

void AudioBar::Repaint() {
  CarryOn step;
  step([&] {
    if (Loaded()) {
      DrawWave(view_.scrollPos);
    } else {
      ResetWaveBar(false);
    }
  });
}

void AudioBar::SetWaveColor(std::int32_t color) {
  view_.SetColor(color);
  p_.options.waveColor = color;
  Repaint();
}

void AudioBar::OnSlider() {
  view_.scale = p_.options.waveScale = -p_.window.sldWavScale.Value();
  if (Loaded()) Repaint();
}

void AudioBar::ToggleFullHeight() {
  view_.fullHeight = p_.options.fullWave = !p_.options.fullWave;
  p_.window.mnuFullWave.SetChecked(view_.fullHeight);
  if (Loaded()) Repaint();
}

void AudioBar::ToggleBar() {
  MainWindow& w = p_.window;
  const bool on = p_.options.audioBarOn = !p_.options.audioBarOn;
  w.mnuAudioBar.SetChecked(on);
  ShowManner();
  if (!on) {
    w.imgWavPos.SetVisible(false);
  } else {
    Repaint();
    if (Loaded() && Rolling()) w.imgWavPos.SetVisible(true);
  }
  w.tmrWave.SetEnabled(on && Loaded());
  LayoutChanged();
  p_.preview.PlacePreview();
}

void AudioBar::PlaceCurrentMarks() {
  if (!Loaded() || !p_.document.HasDocument() || HoldsDrag()) return;
  const Row row = p_.list.CurrentRow();
  PlaceCaptionMarks(p_.list.GetCaptionStart(row), p_.list.GetCaptionEnd(row));
}

void AudioBar::PlaceCaptionMarks(Ms startTime, Ms endTime) {
  const int x1 = startTime.Count() / kMsAColumn - view_.scrollPos;
  const int x2 = endTime.Count() / kMsAColumn - view_.scrollPos;
  WaveMarks marks = marks_;
  marks.captionShown = endTime > startTime && x2 >= 1 && x1 < WaveWidth();
  if (marks.captionShown) {
    marks.arrowLeft = x1;
    marks.start = x1;
    marks.end = x2;
    marks.spanLeft = x1 + 1;
    marks.spanWidth = x2 - x1;
  }
  SetMarks(marks);
}

void AudioBar::HidePosition() {
  p_.window.imgWavPos.SetVisible(false);
  WaveMarks marks = marks_;
  marks.positionShown = false;
  SetMarks(marks);
}

void AudioBar::OnState(int state) {
  if (!Loaded() || state == kPlayerPaused) return;
  if (state == kPlayerPlaying) {
    if (!p_.options.audioBarOn) return;
    p_.window.imgWavPos.SetVisible(true);
    WaveMarks marks = marks_;
    marks.positionShown = true;
    SetMarks(marks);
    return;
  }
  HidePosition();
  if (HoldsDrag()) return;
  CarryOn step;
  step([&] { DrawWave(0); });
}

void AudioBar::Follow() {
  CarryOn step;
  step([&] { FollowSteps(); });
}

void AudioBar::FollowSteps() {
  cursorEntry_ = p_.sample.PlayerPosMs().Count() / kMsAColumn * 2;
  const int state = p_.player.PlayState();
  if (state != kPlayerPlaying || cursorEntry_ > peaks_.PeakCount()) {
    if (state == kPlayerStopped && view_.scrollPos > 0 && !HoldsDrag()) DrawWave(0);
    if (state != kPlayerPaused) {
      if (level_ > 0) ClearLevel();
      return;
    }
  }
  if (cursorEntry_ > peaks_.UpperBound()) return;
  const std::int32_t column = cursorEntry_ / 2;
  if (!HoldsDrag() && (column < view_.scrollPos || column > view_.scrollPos + WaveWidth())) TurnPage(column);
  WaveMarks marks = marks_;
  marks.position = column - view_.scrollPos;
  marks.arrowLeft = (shown_ == nullptr ? 0 : shown_->WaveLeft()) + marks.position - kArrowHalf;
  SetMarks(marks);
  if (p_.options.audioBarOn) ShowLevel();
}

void AudioBar::TurnPage(std::int32_t column) {
  view_.scrollPos = column;
  DrawWave(column);
  PlaceCurrentMarks();
}

void AudioBar::ShowLevel() {
  constexpr std::int32_t kYellowFrom = 25;
  constexpr std::int32_t kRedFrom = 29;
  constexpr int kLowest = 66;
  const std::int32_t step = view_.scale / kSteps;
  if (step == 0) throw RuntimeError{11, u"Division by zero"};
  level_ = peaks_.At(cursorEntry_) / step;
  if (shown_ == nullptr) return;
  for (std::int32_t i = 0; i <= kSteps; ++i) {
    const bool lit = i < level_;
    const std::int32_t color = i < kYellowFrom ? (lit ? 0xFFFF00 : 0x808000)
                               : i < kRedFrom  ? (lit ? 0x00FFFF : 0x008080)
                                               : (lit ? 0x0000FF : 0x000080);
    shown_->Level().DrawLine(2, kLowest - 2 * i, 15, kLowest - 2 * i, color);
  }
  LevelChanged();
}

void AudioBar::ClearLevel() {
  level_ = 0;
  if (shown_ == nullptr) return;
  shown_->Level().Clear(view_.backColor);
  LevelChanged();
}

}  // namespace cuewright
