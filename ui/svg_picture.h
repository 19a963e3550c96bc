#pragma once

#include <QSvgRenderer>
#include <QWidget>

namespace cuewright {

/// Makes the drawings that the program carries known; to be called once before any window.
void LoadIcons();

/// A drawing that fills its widget, sharp at every scale of the display.
class SvgPicture final : public QWidget {
 public:
  SvgPicture(const QString& file, QWidget* parent);

  /// Shows another drawing.
  void ShowFile(const QString& file);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QSvgRenderer drawing_;
};

}  // namespace cuewright
