#pragma once

#include <QToolButton>

namespace cuewright {

/// A button that looks like a link. The keyboard reaches it; Enter presses it as the space bar does.
class LinkButton : public QToolButton {
 public:
  explicit LinkButton(QWidget* parent);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void ShowColor();
};

/// An entry of a column of which one is chosen. Its text begins where a line of text begins. Enter chooses it, or
/// goes to the window's default button when it is the chosen one.
class MenuEntry final : public QToolButton {
 public:
  explicit MenuEntry(QWidget* parent);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace cuewright
