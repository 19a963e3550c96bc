#pragma once

#include <cstdint>
#include <optional>

#include "core/app_options.h"
#include "core/ports/video_filter.h"
#include "external/registry_access.h"

namespace cuewright {

/// The filter VSFilter, by its settings in the registry. While the program runs it draws no subtitles of its own.
class VsFilter final : public VideoFilter {
 public:
  VsFilter(clsRegistryAccess& registry, const AppOptions& options) : registry_(registry), options_(options) {}

  /// The filter's settings exist. Nothing below happens without them.
  bool HasVSFilter() const;
  /// Remembers how the filter is set, and sets it as the options have it: its subtitles hidden, or the filter not
  /// loaded at all.
  void ApplyVSFilterMode();
  /// Sets the filter as it was remembered last.
  void RestoreVSFilter();

  bool Installed() const override { return HasVSFilter(); }

 private:
  struct Mode {
    std::int32_t hide = 0;
    std::int32_t loadLevel = 0;
  };

  clsRegistryAccess& registry_;
  const AppOptions& options_;
  std::optional<Mode> remembered_;
};

}  // namespace cuewright
