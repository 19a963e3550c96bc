#pragma once

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "core/app_options.h"
#include "core/caption_list.h"
#include "core/caption_marks.h"
#include "core/seen_text.h"
#include "tests/support/printers.h"

namespace cuewright::testing {

/// Reads "<b>", "<i>" and "<u>" pairs, and what looks like a tag, as most formats do.
class TagMarks final : public CaptionMarks {
 public:
  SeenCaption Read(TextView stored, TextView separator) const override {
    SeenCaption seen;
    RunStyle style;
    for (std::size_t at = 0; at < stored.size();) {
      const TextView rest = stored.substr(at);
      const std::size_t tag = TagLength(rest);
      if (tag == 0) {
        if (seen.runs.empty() || seen.runs.back().style != style) seen.runs.push_back({{}, style});
        seen.runs.back().text += rest.front();
        ++at;
        continue;
      }
      const bool on = !rest.starts_with(u"</");
      const char16_t name = rest[on ? 1 : 2];
      if (name == u'b') style.bold = on;
      if (name == u'i') style.italic = on;
      if (name == u'u') style.underline = on;
      at += tag;
    }
    (void)separator;
    return seen;
  }
  Text ReadPlaces(TextView stored, TextView /*separator*/, std::vector<TextPlace>& places) const override {
    Text seen;
    places.clear();
    for (std::size_t at = 0; at < stored.size();) {
      if (const std::size_t tag = TagLength(stored.substr(at)); tag != 0) {
        at += tag;
        continue;
      }
      seen += stored[at];
      places.push_back({at, at + 1});
      ++at;
    }
    return seen;
  }
  Text WithoutStyle(TextView stored, TextView /*marker*/, TextView /*separator*/) const override {
    return Text(stored);
  }
};

/// A list of captions with tags in their texts.
struct ShapingRig : ::testing::Test {
  ShapingRig() { list.SetMarks(marks); }

  void Put(std::vector<Caption> captions) { list.Replace(1, list.Rows() - 1, std::move(captions)); }
  std::vector<Caption> All() const {
    std::vector<Caption> captions;
    for (Row row = 1; row < list.Rows(); ++row) captions.push_back(list.At(row));
    return captions;
  }

  AppOptions options;
  bool modified = false;
  TagMarks marks;
  CaptionList list{options, modified};
};

}  // namespace cuewright::testing
