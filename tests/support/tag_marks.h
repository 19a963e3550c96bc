#pragma once

#include <vector>

#include "core/caption_marks.h"
#include "core/seen_text.h"

namespace cuewright::testing {

/// Marks of a format in which whatever looks like a tag is one; "<b>", "<i>" and "<u>" are styles up to their closing
/// tag.
class TagMarks final : public CaptionMarks {
 public:
  SeenCaption Read(TextView stored, TextView /*separator*/) const override {
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

}  // namespace cuewright::testing
