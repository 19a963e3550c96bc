#pragma once

#include <QColor>
#include <cstdint>

namespace cuewright {

/// The toolkit's colour of 0x00BBGGRR, and back.
inline QColor ColourOf(std::int32_t bgr) { return QColor(bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF); }
inline std::int32_t BgrOf(const QColor& colour) { return colour.red() | (colour.green() << 8) | (colour.blue() << 16); }

}  // namespace cuewright
