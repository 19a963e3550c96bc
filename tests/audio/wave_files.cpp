#include "tests/audio/wave_files.h"

namespace cuewright::testing {

std::string LittleEndian(std::uint64_t value, int size) {
  std::string bytes;
  for (int i = 0; i < size; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFF);
  return bytes;
}

std::string Chunk(std::string_view name, std::string_view content) {
  return std::string(name) + LittleEndian(content.size(), 4) + std::string(content);
}

std::string WaveSpec::Bytes() const {
  const int align = channels * bits / 8;
  const std::int64_t rate = bytesPerSecond >= 0 ? bytesPerSecond : std::int64_t{samplesPerSecond} * align;
  const std::uint64_t size = dataSize >= 0 ? static_cast<std::uint64_t>(dataSize) : data.size();
  std::string format = "fmt " + LittleEndian(formatSize, 4) + LittleEndian(1, 2);
  format += LittleEndian(static_cast<std::uint64_t>(channels), 2);
  format += LittleEndian(static_cast<std::uint64_t>(samplesPerSecond), 4);
  format += LittleEndian(static_cast<std::uint64_t>(rate), 4);
  format += LittleEndian(static_cast<std::uint64_t>(align), 2) + LittleEndian(static_cast<std::uint64_t>(bits), 2);
  const std::string body =
      "WAVE" + format + formatMore + chunksBefore + "data" + LittleEndian(size, 4) + data + chunksBehind;
  return "RIFF" + LittleEndian(body.size(), 4) + body;
}

}  // namespace cuewright::testing
