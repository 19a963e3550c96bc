#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "formats/source/source_format.h"

namespace cuewright {

/// Collects captions of which many have a start alone, and hands them on with their ends: that of the file, else the
/// next start, but no later than their length asks for.
class OpenEnded {
 public:
  explicit OpenEnded(const SourceSettings& settings) : durations_(settings.durationPerCharacter) {}

  void Begin(std::int32_t start, Text text, const SourceRecord& record);
  /// The caption that began last ends here. `field` is the time in the file, `behind` where the record goes on to.
  /// False, and nothing happens, when there is none or its end is known.
  bool End(std::int32_t end, Stretch field, std::size_t behind);
  /// Captions of the file say when they end.
  bool AnyEnds() const { return anyEnds_; }
  void Flush(SourceSink& sink);

 private:
  struct Pending {
    std::int32_t start = 0;
    std::int32_t end = 0;
    Text text;
    SourceRecord record;
  };

  std::int32_t LatestEnd(const Pending& caption) const;

  std::array<std::int16_t, 3> durations_;
  std::vector<Pending> captions_;
  bool anyEnds_ = false;
};

}  // namespace cuewright
