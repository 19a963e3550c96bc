#pragma once

#include <cstdint>

#include "core/signal.h"
#include "core/text.h"

namespace cuewright {

/// The literal path of a document that has no file yet.
inline constexpr TextView kNewDocument = u"NEW";

/// The paths and flags of what is open.
struct DocumentState {
  Text SubtitlePath;  ///< empty: no document; "NEW": one without a file
  Text VideoPath;     ///< empty: no video
  Text WavePath;      ///< empty: no audio in the Audio bar
  bool DocModified = false;
  bool ImportCancelled = false;

  bool HasDocument() const { return !SubtitlePath.empty(); }
  /// The document has a file.
  bool HasFile() const { return HasDocument() && SubtitlePath != kNewDocument; }
  bool HasVideo() const { return !VideoPath.empty(); }
};

}  // namespace cuewright
