#include "shots/measure_bytes.h"

#include <bit>
#include <cstdint>

#include "text/byte_numbers.h"

namespace cuewright {
namespace {

/// The number at its end is that of the way in which pictures are measured.
constexpr std::string_view kHead = "CWSHOTS4";
constexpr std::size_t kPictureBytes = 32;
// Bits of the last byte.
constexpr unsigned kPlain = 1;
constexpr unsigned kFaint = 2;

template <class Number>
void Put(Number number, std::string& to) {
  PutBytes(to, number, sizeof(Number));
}

template <class Number>
Number Take(std::string_view& from) {
  const auto number = NumberOf<Number>(from.substr(0, sizeof(Number)));
  from.remove_prefix(sizeof(Number));
  return number;
}

constexpr float PictureMeasure::*kFloats[] = {&PictureMeasure::step, &PictureMeasure::break_,
                                              &PictureMeasure::colourStep, &PictureMeasure::colourBreak,
                                              &PictureMeasure::mix};
constexpr std::uint8_t PictureMeasure::*kSpans[] = {&PictureMeasure::span, &PictureMeasure::fall,
                                                    &PictureMeasure::rise};

}  // namespace

std::string BytesOf(const std::vector<PictureMeasure>& measures) {
  std::string bytes(kHead);
  bytes.reserve(kHead.size() + 8 + measures.size() * kPictureBytes);
  Put<std::uint64_t>(measures.size(), bytes);
  for (const PictureMeasure& measure : measures) {
    Put<std::uint64_t>(measure.us, bytes);
    for (const auto member : kFloats) Put(std::bit_cast<std::uint32_t>(measure.*member), bytes);
    for (const auto member : kSpans) Put(measure.*member, bytes);
    Put<std::uint8_t>((measure.plain ? kPlain : 0) | (measure.faint ? kFaint : 0), bytes);
  }
  return bytes;
}

bool ReadMeasures(std::string_view bytes, std::vector<PictureMeasure>& measures) {
  measures.clear();
  if (!bytes.starts_with(kHead) || bytes.size() < kHead.size() + 8) return false;
  bytes.remove_prefix(kHead.size());
  const auto count = Take<std::uint64_t>(bytes);
  if (bytes.size() % kPictureBytes != 0 || bytes.size() / kPictureBytes != count) return false;
  measures.resize(count);
  for (PictureMeasure& measure : measures) {
    measure.us = Take<std::uint64_t>(bytes);
    for (const auto member : kFloats) measure.*member = std::bit_cast<float>(Take<std::uint32_t>(bytes));
    for (const auto member : kSpans) measure.*member = Take<std::uint8_t>(bytes);
    const auto sights = Take<std::uint8_t>(bytes);
    measure.plain = (sights & kPlain) != 0;
    measure.faint = (sights & kFaint) != 0;
  }
  return true;
}

}  // namespace cuewright
