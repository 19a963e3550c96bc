#pragma once

#include <utility>

#include "formats/source/markup.h"

namespace cuewright {

/// Collects the runs of a caption.
class RunBuilder {
 public:
  explicit RunBuilder(StyledText& result) : result_(result) {}

  RunStyle style;

  void Append(TextView text) {
    if (text.empty()) return;
    if (result_.runs.empty() || !(result_.runs.back().style == style)) result_.runs.push_back({{}, style});
    result_.runs.back().text += text;
  }
  void Found(Loss kind) { result_.others.Add(kind); }
  StyledText& Result() { return result_; }

 private:
  StyledText& result_;
};

/// Carries out the overrides of SubStation in one pair of braces, given without them.
class OverrideReader {
 public:
  OverrideReader(RunBuilder& runs, RunStyle base) : runs_(runs), base_(std::move(base)) {}

  void ReadBlock(TextView tags);
  /// What follows is no text but the points of a drawing.
  bool Drawing() const { return drawing_; }

 private:
  void ReadTag(TextView tag);
  bool ReadStyle(TextView tag);
  bool ReadPlace(TextView tag);

  RunBuilder& runs_;
  RunStyle base_;
  bool drawing_ = false;
};

/// Tags in angle brackets, and in SubRip the overrides that it has borrowed.
void ReadTags(TextView text, MarkKind kind, TextView separator, RunBuilder& runs);
/// Text with overrides in braces.
void ReadOverrides(TextView text, RunBuilder& runs);
/// "{y:i}" and the like in front of lines.
void ReadMicroDvd(TextView text, TextView separator, RunBuilder& runs);
/// "/", "\" and "_" in front of lines.
void ReadMpl2(TextView text, TextView separator, RunBuilder& runs);

}  // namespace cuewright
