#pragma once

#include "text/text.h"

namespace cuewright {

/// Read side of the settings store. Sections are "Cuewright" and, of a format, "Cuewright\SAMI" and its like.
class SettingsReader {
 public:
  virtual ~SettingsReader() = default;

  /// The stored text; `fallback` when the key is absent.
  virtual Text GetSetting(TextView section, TextView key, TextView fallback) const = 0;
};

}  // namespace cuewright
