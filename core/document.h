#pragma once

#include <cstdint>

#include "core/signal.h"
#include "text/text.h"

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
  /// A file is being read or written. Events come through meanwhile, and nothing that they bring may begin a load, a
  /// document or a capture.
  bool FileInWork = false;

  bool HasDocument() const { return !SubtitlePath.empty(); }
  /// The document has a file.
  bool HasFile() const { return HasDocument() && SubtitlePath != kNewDocument; }
  bool HasVideo() const { return !VideoPath.empty(); }
};

/// A file is in work for the life of this.
class FileWork {
 public:
  explicit FileWork(DocumentState& document) : document_(document) { document_.FileInWork = true; }
  FileWork(const FileWork&) = delete;
  FileWork& operator=(const FileWork&) = delete;
  ~FileWork() { document_.FileInWork = false; }

 private:
  DocumentState& document_;
};

}  // namespace cuewright
