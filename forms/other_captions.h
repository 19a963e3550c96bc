#pragma once

#include <vector>

#include "core/app_options.h"
#include "core/caption_list.h"
#include "core/frame_rate.h"
#include "core/ports/settings_reader.h"
#include "formats/catalogue.h"
#include "formats/file_access.h"
#include "formats/file_progress.h"

namespace cuewright {

/// Reads a subtitle file beside the document, which stays as it is.
class OtherCaptions {
 public:
  OtherCaptions(const FormatCatalogue& catalogue, const SettingsReader& settings, const FormatTalk& talk,
                const FileAccess& access, const AppOptions& options);

  /// The times of the file's captions, row 1 first; untimed rows have none. Empty when it gave no caption, which was
  /// told unless the user broke it off. `film` is the rate that is offered where the file counts frames.
  std::vector<CaptionTimes> Read(const Text& path, const FrameRate& film) const;

 private:
  const FormatCatalogue& catalogue_;
  const SettingsReader& settings_;
  FormatTalk talk_;  ///< nobody follows: that would be told as the document's
  FileAccess access_;
  const AppOptions& options_;
};

}  // namespace cuewright
