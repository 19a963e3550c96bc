#pragma once

namespace cuewright {

/// A filter of the system that draws subtitles into every film by itself, and has settings of its own. This class is a
/// system without one.
class VideoFilter {
 public:
  virtual ~VideoFilter() = default;

  /// Its settings exist.
  virtual bool Installed() const { return false; }
  /// It has a window for its settings, which `Configure` opens.
  virtual bool CanConfigure() const { return false; }
  virtual void Configure() {}
};

}  // namespace cuewright
