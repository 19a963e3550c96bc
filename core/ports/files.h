#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "text/text.h"

namespace cuewright {

/// Where a file's bytes go piece by piece while it is saved. Failures are kept until `Files::Replace` ends.
class ByteSink {
 public:
  virtual ~ByteSink() = default;
  virtual void Write(std::string_view bytes) = 0;
};

/// A file that is open for reading in pieces.
class FileReader {
 public:
  virtual ~FileReader() = default;

  /// Size in bytes when the file was opened.
  virtual std::uint64_t Size() const = 0;

  /// Reads up to `count` bytes from the 0-based `offset` on; fewer only at the end of the file. Returns how many;
  /// run-time error when reading fails.
  virtual std::size_t ReadAt(std::uint64_t offset, char* to, std::size_t count) = 0;
};

/// The file system. Paths are program text, made of the system's bytes by `FromUtf8`, separator "/".
/// Failures are `RuntimeError`s: 53 not found, 75 path or file access (a directory, a device, no
/// permission, read-only), 76 path not found, 61 disk full, 7 too large, 57 any other failure of reading or writing.
class Files {
 public:
  virtual ~Files() = default;

  /// True when the path exists, whatever it is. Any error reads as false.
  virtual bool Exists(TextView path) const = 0;

  /// True for a regular file, also behind a link.
  virtual bool IsRegular(TextView path) const = 0;

  /// True when both paths lead to one file that exists.
  virtual bool SameFile(TextView a, TextView b) const { return a == b && Exists(a); }

  /// Size of a regular file in bytes; run-time error when there is none.
  virtual std::uint64_t Size(TextView path) const = 0;

  /// All bytes of a regular file of at most `limit` bytes; a larger one is run-time error 7.
  virtual std::string Read(TextView path, std::uint64_t limit) const = 0;

  /// Opens a regular file to read it in pieces; run-time error when that fails.
  virtual std::unique_ptr<FileReader> OpenToRead(TextView path) const = 0;

  /// Saves a file: `write` fills a new file beside the target, which is flushed to the disk and renamed over
  /// it when all went well. A link's target is replaced, not the link; permissions, and the owner where
  /// allowed, are kept. On any failure the old file stays whole, nothing is left behind, and the run-time error is
  /// thrown.
  virtual void Replace(TextView path, const std::function<void(ByteSink&)>& write) = 0;

  /// Writes a new file for this user alone (mode 0600) in place of what stands at the path; a link there is removed,
  /// not followed. Run-time error when that fails.
  virtual void WritePrivate(TextView path, std::string_view bytes) = 0;

  /// The names of what stands in a folder, in no order; none when it can't be read.
  virtual std::vector<Text> Names(TextView folder) const = 0;

  /// Removes a file; false when it is still there.
  virtual bool Remove(TextView path) = 0;

  /// Makes a symbolic link to a path. False when something stands in its place already and leads elsewhere;
  /// run-time error when it can't be made.
  virtual bool MakeLink(TextView link, TextView target) = 0;

  /// Makes the folder and those above it, for this user alone (mode 0700); run-time error when that fails.
  virtual void MakePrivateFolder(TextView path) = 0;
};

}  // namespace cuewright
