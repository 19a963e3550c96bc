#pragma once

#include <QColor>
#include <cstdint>

namespace cuewright {

/// The toolkit's colour of 0x00BBGGRR, and back.
inline QColor ColorOf(std::int32_t bgr) { return QColor(bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF); }
inline std::int32_t BgrOf(const QColor& color) { return color.red() | (color.green() << 8) | (color.blue() << 16); }

}  // namespace cuewright
