#pragma once

#include <QTimer>
#include <QWidget>
#include <vector>

#include "core/ports/player.h"

class QLabel;
class QSlider;

namespace cuewright {

class VideoButton;

/// The controls under the picture, as the player's `UiMode` asks: "full", "mini" or "none". They are reached with
/// Tab and work by key and pointer, but a click leaves the keyboard where it is, and no letter is theirs.
class VideoTransport final : public QWidget {
 public:
  VideoTransport(Player& player, QWidget* parent);

 protected:
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void BuildButtons();
  void BuildSliders();
  void ShowMode();
  void ShowState();
  void ShowTime();
  void ShowVolume();

  Player& player_;
  VideoButton* play_ = nullptr;
  VideoButton* pause_ = nullptr;
  VideoButton* stop_ = nullptr;
  VideoButton* mute_ = nullptr;
  QSlider* seek_ = nullptr;
  QSlider* volume_ = nullptr;
  QLabel* time_ = nullptr;
  bool showing_ = false;  // a slider is being moved by us, not by the user
  QTimer refresh_;
  std::vector<Connection> connections_;
};

}  // namespace cuewright
