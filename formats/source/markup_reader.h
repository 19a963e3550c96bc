#pragma once

#include <utility>

#include "formats/source/markup.h"

namespace cuewright {

/// Collects the runs of a caption and, when that is asked for, the places of their units in the text that is read.
class RunBuilder {
 public:
  /// What is appended later is a part of `source`, or stands for one. `places` may be null.
  RunBuilder(StyledText& result, TextView source, std::vector<TextPlace>* places)
      : result_(result), source_(source), places_(places) {}

  RunStyle style;

  /// Takes a part of the source.
  void Append(TextView text) {
    if (places_ != nullptr) {
      const std::size_t begin = PlaceOf(text);
      for (std::size_t at = 0; at < text.size(); ++at) places_->push_back({begin + at, begin + at + 1});
    }
    AddText(text);
  }
  /// Appends a text for which a part of the source stands, such as a character for its name.
  void AppendInstead(TextView text, TextView of) {
    if (places_ != nullptr) {
      const std::size_t begin = PlaceOf(of);
      const std::size_t end = begin + of.size();
      for (std::size_t at = 0; at < text.size(); ++at) places_->push_back({at == 0 ? begin : end, end});
    }
    AddText(text);
  }
  /// Appends a text that is shown and stands nowhere in the source.
  void AppendUnplaced(TextView text) {
    if (places_ == nullptr) AddText(text);
  }
  void Found(Loss kind) { result_.others.Add(kind); }
  StyledText& Result() { return result_; }

 private:
  std::size_t PlaceOf(TextView part) const { return part.data() - source_.data(); }
  void AddText(TextView text) {
    if (text.empty()) return;
    if (result_.runs.empty() || !(result_.runs.back().style == style)) result_.runs.push_back({{}, style});
    result_.runs.back().text += text;
  }

  StyledText& result_;
  TextView source_;
  std::vector<TextPlace>* places_;
};

/// Carries out the overrides of SubStation in one pair of braces, given without them.
class OverrideReader {
 public:
  OverrideReader(RunBuilder& runs, RunStyle base) : runs_(runs), base_(std::move(base)) {}

  void ReadBlock(TextView tags);
  /// True when what follows is no text but the points of a drawing.
  bool Drawing() const { return drawing_; }

 private:
  void ReadTag(TextView tag);
  bool ReadStyle(TextView tag);
  bool ReadPlace(TextView tag);

  RunBuilder& runs_;
  RunStyle base_;
  bool drawing_ = false;
};

/// Tags in angle brackets, and in SubRip the overrides that it has borrowed; `named` are the styles that they may name,
/// null for none.
void ReadTags(TextView text, MarkKind kind, TextView separator, const TtmlStyles* named, RunBuilder& runs);
/// Text with overrides in braces.
void ReadOverrides(TextView text, RunBuilder& runs);
/// "{y:i}" and the like in front of lines.
void ReadMicroDvd(TextView text, TextView separator, RunBuilder& runs);
/// "/", "\" and "_" in front of lines.
void ReadMpl2(TextView text, TextView separator, RunBuilder& runs);

}  // namespace cuewright
