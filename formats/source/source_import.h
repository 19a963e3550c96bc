#pragma once

#include <memory>
#include <vector>

#include "core/caption_list.h"
#include "core/runtime_error.h"
#include "formats/file_progress.h"
#include "formats/source/source_map.h"

namespace cuewright {

/// Captions from one pause for the window's events to the next, and the most that a load takes; both are looked at
/// together.
inline constexpr int kCaptionsBetweenPauses = 100;
inline constexpr int kMostCaptionsOfLoad = 32000;

/// Reads a file by the published rules of its format.
class SourceImport {
 public:
  /// `cancelled` is looked at behind each pause.
  SourceImport(const FormatTalk& talk, const bool& cancelled) : talk_(talk), cancelled_(cancelled) {}

  /// Reads the map's file. The captions have the numbers of their records, which the map takes over. What goes wrong on
  /// the way is noted.
  std::vector<Caption> Read(SourceMap& map, TextView separator, CarryOn& errors);

  /// The line at which the last load was broken off, counted from 1; 0: it was not.
  std::size_t TroubleLine() const { return troubleLine_; }
  void Clear() { troubleLine_ = 0; }

 private:
  FormatTalk talk_;
  const bool& cancelled_;
  std::size_t troubleLine_ = 0;
};

}  // namespace cuewright
