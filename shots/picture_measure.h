#pragma once

#include <cstdint>

namespace cuewright {

/// What is measured at a picture of a film. Shots are decided from these alone, so that another sensitivity needs no
/// second reading. Shapes are compared without regard to brightness and contrast: 0 is the same, about 1 is another
/// picture. Colours are compared by how far the levels of one have to be moved to get the other.
struct PictureMeasure {
  std::int64_t us = 0;    ///< presentation time in microseconds
  float step = 0;         ///< shape, against the picture before
  float break_ = 0;       ///< the least change of shape between the pictures just before and those from here on
  float colourStep = 0;   ///< colours, against the picture before
  float colourBreak = 0;  ///< the least change of colours between the same pictures
  float mix = 0;          ///< how evenly the pictures around this one go over from one to another, 0 to 1
  std::uint8_t span = 0;  ///< pictures from the one to the other, with this one in the middle
  std::uint8_t fall = 0;  ///< pictures that evenly became plain, up to this one
  std::uint8_t rise = 0;  ///< pictures that evenly come out of the plain, from this one on
  bool faint = false;     ///< next to nothing is to be seen of the pictures before, though it isn't plain
  bool plain = false;     ///< nothing is to be seen but one colour
};

}  // namespace cuewright
