#pragma once

#include <QApplication>
#include <QFont>

namespace cuewright {

/// The desktop's letters, a point larger: for texts that one reads all day.
inline QFont LargerFont() {
  QFont font = QApplication::font();
  font.setPointSizeF(font.pointSizeF() + 1);
  return font;
}

}  // namespace cuewright
