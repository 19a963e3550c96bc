// The floor of the comparison: reads a wave file in pieces and takes the lowest and highest sample of all, without a
// look at its header.
//
// wave_floor FILE

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <vector>

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const int fd = ::open(argv[1], O_RDONLY);
  if (fd < 0) return 1;
  std::vector<std::int16_t> piece(1 << 16);
  std::int16_t lowest = 0;
  std::int16_t highest = 0;
  for (;;) {
    const ssize_t count = ::read(fd, piece.data(), piece.size() * sizeof(std::int16_t));
    if (count <= 0) break;
    const auto samples = static_cast<std::size_t>(count) / sizeof(std::int16_t);
    for (std::size_t i = 0; i < samples; ++i) {
      lowest = std::min(lowest, piece[i]);
      highest = std::max(highest, piece[i]);
    }
  }
  ::close(fd);
  std::printf("%d %d\n", lowest, highest);
  return 0;
}
