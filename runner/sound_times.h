#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace cuewright {

/// Reads FFmpeg's list of a film's packets ("framecrc") and tells whether its sound runs from the film's beginning on
/// without a gap. Containers without time stamps can only hold such sound as it is.
class SoundTimes {
 public:
  /// Pieces of any size, in their order.
  void Take(std::string_view bytes);

  /// False when the sound begins early or late, or has a gap, by more than a listener might notice.
  bool Even() const;

 private:
  struct Stream {
    bool sound = false;
    double unit = 0;  // seconds
    std::optional<double> end;
    long long packets = 0;
    std::map<long long, long long> lengths;  // of the packets in ms, and how many have each
  };

  void TakeLine(const std::string& line);
  void TakePacket(Stream& stream, std::int64_t pts, std::int64_t duration);
  Stream& At(std::size_t number);

  std::string rest_;
  std::vector<Stream> streams_;
  bool even_ = true;  // true as long as no single packet shows a late start or a gap
};

}  // namespace cuewright
