#pragma once

#include <vector>

#include "batch/command_line.h"
#include "core/ports/settings_reader.h"

namespace cuewright {

/// The settings of a run: the values of `--set` in front of a stored file, which may be missing.
class RunSettings final : public SettingsReader {
 public:
  /// `stored` may be null; a later value of the same key counts.
  RunSettings(const std::vector<SettingValue>& values, const SettingsReader* stored)
      : values_(values), stored_(stored) {}

  Text GetSetting(TextView section, TextView key, TextView fallback) const override {
    for (auto value = values_.rbegin(); value != values_.rend(); ++value) {
      if (EqualLoose(value->section, section) && EqualLoose(value->key, key)) return value->value;
    }
    return stored_ == nullptr ? Text(fallback) : stored_->GetSetting(section, key, fallback);
  }

 private:
  const std::vector<SettingValue>& values_;
  const SettingsReader* stored_;
};

}  // namespace cuewright
