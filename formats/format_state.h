#pragma once

#include <cstdint>
#include <memory>

#include "core/frame_rate.h"
#include "core/ports/player.h"
#include "text/encodings.h"

namespace cuewright {

class SourceMap;

/// What import, export and the windows share about the format in force.
struct FormatState {
  int CurrentFormatIndex = 0;               ///< format of the document and default of the next save; 0 is plain text
  int SettingsFormatIndex = 0;              ///< format that the settings window opens on; 0: `CurrentFormatIndex`
  FrameRate CurrentFps;                     ///< of frame formats; none for all others
  FrameRate FilmFps;                        ///< of the film that is open; none when it isn't known
  PictureSize FilmPicture;                  ///< of the film that is open; none when it isn't known
  std::int16_t ListCharset = 0;             ///< character set number that a built-in header names
  DocumentEncoding Encoding;                ///< of the document's file; UTF-8 for a document without one
  std::shared_ptr<const SourceMap> Source;  ///< the file that the document was read from; null: none that is kept
};

}  // namespace cuewright
