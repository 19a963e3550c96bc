#pragma once

#include <QWidget>
#include <vector>

#include "core/form/sub_window.h"
#include "core/preview.h"

namespace cuewright {

/// The overlay `frmSub`: the caption in its style over the picture. It takes neither focus nor pointer.
class Overlay final : public QWidget {
 public:
  Overlay(SubWindow& form, QWidget* parent);

  /// Height for two lines of the style's font, in pixels.
  int WantedHeight() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QFont StyleFont() const;
  void ShowState();

  SubWindow& form_;
  std::vector<Connection> connections_;
};

}  // namespace cuewright
