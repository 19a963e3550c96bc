#include "ui/video_transport.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QProxyStyle>
#include <QSlider>
#include <algorithm>
#include <cmath>
#include <limits>

#include "ui/qt_text.h"
#include "ui/video_icons.h"

namespace cuewright {
namespace {

constexpr int kRefreshMs = 100;
constexpr int kStepMs = 1000;
constexpr int kPageMs = 10'000;
constexpr int kVolumeWidth = 52;

/// A click on a slider's groove goes straight to that place.
class GoThereStyle final : public QProxyStyle {
 public:
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* returned) const override {
    if (hint == SH_Slider_AbsoluteSetButtons) return Qt::LeftButton;
    return QProxyStyle::styleHint(hint, option, widget, returned);
  }
};

QSlider* MakeSlider(const char* name, const QString& text, QWidget* parent) {
  auto* slider = new QSlider(Qt::Horizontal, parent);
  slider->setObjectName(name);
  slider->setAccessibleName(text);
  slider->setToolTip(text);
  slider->setFocusPolicy(Qt::TabFocus);
  slider->setAttribute(Qt::WA_InputMethodEnabled, false);
  auto* style = new GoThereStyle;
  style->setParent(slider);
  slider->setStyle(style);
  return slider;
}

int ToMs(double seconds) {
  const double ms = std::round(seconds * 1000);
  constexpr int kMost = std::numeric_limits<int>::max() / 2;
  return static_cast<int>(std::clamp<double>(ms, 0, kMost));
}

QString LengthText(double duration) {
  const int seconds = ToMs(duration) / 1000;
  const QLatin1Char zero('0');
  const QString rest = QString("%1:%2").arg(seconds / 60 % 60, 2, 10, zero).arg(seconds % 60, 2, 10, zero);
  return seconds >= 3600 ? QString("%1:%2").arg(seconds / 3600).arg(rest) : rest;
}

}  // namespace

VideoTransport::VideoTransport(Player& player, QWidget* parent) : QWidget(parent), player_(player) {
  setObjectName("wmpTransport");
  setAccessibleName("Film controls");
  setAutoFillBackground(true);
  // The controls follow the film's time from left to right in every language.
  setLayoutDirection(Qt::LeftToRight);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(4, 2, 8, 2);
  row->setSpacing(2);
  BuildButtons();
  BuildSliders();
  for (QWidget* widget : std::initializer_list<QWidget*>{play_, pause_, stop_}) row->addWidget(widget);
  row->addSpacing(4);
  row->addWidget(seek_, 1);
  row->addSpacing(4);
  row->addWidget(time_);
  row->addSpacing(4);
  row->addWidget(mute_);
  row->addWidget(volume_);
  row->addStretch(0);

  refresh_.setInterval(kRefreshMs);
  connect(&refresh_, &QTimer::timeout, this, [this] { ShowTime(); });
  connections_.push_back(player_.PlayStateChange.ConnectScoped([this](int) { ShowState(); }));
  connections_.push_back(player_.PositionChange.ConnectScoped([this](double, double) { ShowTime(); }));
  connections_.push_back(player_.ControlsChange.ConnectScoped([this] {
    ShowMode();
    ShowState();
    ShowVolume();
  }));
  ShowMode();
  ShowState();
  ShowVolume();
}

void VideoTransport::BuildButtons() {
  play_ = new VideoButton(VideoIcon::Play, "wmpPlay", "Play", this);
  pause_ = new VideoButton(VideoIcon::Pause, "wmpPause", "Pause", this);
  stop_ = new VideoButton(VideoIcon::Stop, "wmpStop", "Stop", this);
  mute_ = new VideoButton(VideoIcon::Sound, "wmpMute", "Mute", this);
  mute_->setCheckable(true);
  connect(play_, &QAbstractButton::clicked, this, [this] { player_.Play(); });
  connect(pause_, &QAbstractButton::clicked, this, [this] { player_.Pause(); });
  connect(stop_, &QAbstractButton::clicked, this, [this] { player_.Stop(); });
  connect(mute_, &QAbstractButton::clicked, this, [this](bool muted) { player_.SetMuted(muted); });
}

void VideoTransport::BuildSliders() {
  seek_ = MakeSlider("wmpSeek", "Position in the film", this);
  seek_->setSingleStep(kStepMs);
  seek_->setPageStep(kPageMs);
  seek_->setMinimumWidth(40);
  connect(seek_, &QSlider::valueChanged, this, [this](int ms) {
    if (!showing_) player_.SetCurrentPosition(ms / 1000.0);
  });
  connect(seek_, &QSlider::sliderReleased, this, [this] { ShowTime(); });
  time_ = new QLabel(this);
  time_->setObjectName("wmpTime");
  time_->setTextFormat(Qt::PlainText);
  volume_ = MakeSlider("wmpVolume", "Volume", this);
  volume_->setRange(0, 100);
  volume_->setPageStep(10);
  volume_->setFixedWidth(kVolumeWidth);
  connect(volume_, &QSlider::valueChanged, this, [this](int volume) {
    if (!showing_) player_.SetVolume(volume);
  });
}

void VideoTransport::ShowMode() {
  const Text mode = player_.UiMode();
  const bool full = mode != u"mini" && mode != u"none";
  for (QWidget* widget : std::initializer_list<QWidget*>{seek_, time_, mute_, volume_}) widget->setVisible(full);
  setVisible(mode != u"none");
}

void VideoTransport::ShowState() {
  const int state = player_.PlayState();
  const bool open = state != 0;
  for (QWidget* widget : std::initializer_list<QWidget*>{play_, pause_, stop_, seek_}) {
    widget->setEnabled(player_.Enabled() && open);
  }
  for (QWidget* widget : std::initializer_list<QWidget*>{mute_, volume_}) widget->setEnabled(player_.Enabled());
  play_->SetMarked(state == kPlayerPlaying);
  pause_->SetMarked(state == kPlayerPaused);
  if (state == kPlayerPlaying && isVisible()) {
    refresh_.start();
  } else {
    refresh_.stop();
  }
  ShowTime();
}

void VideoTransport::ShowTime() {
  const double position = player_.CurrentPosition();
  const double duration = player_.Duration();
  const QString text = ToQt(player_.CurrentPositionString()) + " / " + LengthText(duration);
  if (text != time_->text()) time_->setText(text);
  if (seek_->isSliderDown()) return;
  showing_ = true;
  seek_->setRange(0, ToMs(duration));
  seek_->setValue(ToMs(position));
  showing_ = false;
}

void VideoTransport::ShowVolume() {
  showing_ = true;
  volume_->setValue(player_.Volume());
  showing_ = false;
  mute_->setChecked(player_.Muted());
  mute_->SetIcon(player_.Muted() ? VideoIcon::Muted : VideoIcon::Sound);
}

void VideoTransport::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) update();
}

void VideoTransport::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  ShowState();
}

}  // namespace cuewright
