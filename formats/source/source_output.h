#pragma once

#include <string>
#include <string_view>

#include "core/ports/files.h"
#include "formats/source/source_map.h"
#include "text/codec.h"

namespace cuewright {

/// A file that grows from stretches of another and from new text. Stretches that follow each other are handed on as
/// one.
class SourceOutput {
 public:
  /// With `turned` the old file's stretches are decoded and written in the codec, as new text always is.
  SourceOutput(const SourceMap& map, const Codec& codec, bool turned, ByteSink& sink)
      : map_(map), codec_(codec), turned_(turned), sink_(sink) {}

  /// Puts the bytes of the old file from one place up to another.
  void PutOld(std::size_t from, std::size_t to);
  void Put(TextView text);
  /// Puts a text in the place of a stretch of the old file.
  void Replace(Stretch old, TextView text);

  /// The old file's byte at `place` would follow what was put last as it did there.
  bool GoesOnAt(std::size_t place) const { return place == reached_; }

  /// The last byte put that is no blank and ends no line; NUL: there is none.
  char LastSign() const { return lastSign_; }

  /// What is put next begins on a line of its own and, with `blankBefore`, behind a blank line.
  void BeginLine(bool blankBefore);

  /// Hands on what is held back.
  void Finish();

 private:
  void NoteTail(std::string_view put);
  void PassOld();
  void PassHeld();

  const SourceMap& map_;
  const Codec& codec_;
  bool turned_;
  ByteSink& sink_;
  std::string held_;
  char lastSign_ = '\0';
  std::string tail_;  // the last bytes put, as ASCII has them
  std::size_t oldBegin_ = 0;
  std::size_t oldEnd_ = 0;
  std::size_t reached_ = 0;  // place of the old file behind what was put last
};

}  // namespace cuewright
