#pragma once

#include <vector>

#include "core/caption_marks.h"
#include "core/seen_text.h"

namespace cuewright::testing {

/// Marks of a format in which whatever looks like a tag is one and has no meaning.
class TagMarks final : public CaptionMarks {
 public:
  SeenCaption Read(TextView stored, TextView separator) const override {
    std::vector<TextPlace> places;
    return {{{ReadPlaces(stored, separator, places), {}}}, kUsualPlace};
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
