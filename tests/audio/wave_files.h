#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace cuewright::testing {

/// The bytes of a wave file, its parts free to be told wrong.
struct WaveSpec {
  int samplesPerSecond = 22050;
  int channels = 1;
  int bits = 16;
  std::int64_t bytesPerSecond = -1;  ///< -1: what the rest gives
  std::uint32_t formatSize = 16;
  std::string formatMore;    ///< behind the format's 16 bytes
  std::string chunksBefore;  ///< between the format and the data
  std::string data;
  std::int64_t dataSize = -1;  ///< -1: the data's own
  std::string chunksBehind;

  std::string Bytes() const;
};

/// A number of `size` bytes, the lowest first.
std::string LittleEndian(std::uint64_t value, int size);

/// A chunk with its header and without a pad byte.
std::string Chunk(std::string_view name, std::string_view content);

/// Samples of 16 bits from a list.
template <class Range>
std::string Samples16(const Range& samples) {
  std::string bytes;
  for (const int sample : samples) bytes += LittleEndian(static_cast<std::uint16_t>(sample), 2);
  return bytes;
}

}  // namespace cuewright::testing
