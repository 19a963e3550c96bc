#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "core/styled_text.h"
#include "text/text.h"

namespace cuewright {

/// Where a unit of the text that is seen stands in the stored text.
struct TextPlace {
  std::size_t begin = 0;
  std::size_t end = 0;
};

/// A caption as a viewer sees it.
struct SeenCaption {
  std::vector<StyledRun> runs;  ///< with line separators in their texts
  int place = kUsualPlace;
};

/// What the marks in the texts of a list mean. Texts are stored with the marks of the format that they come from; the
/// list and its windows ask here what is seen of them.
class CaptionMarks {
 public:
  virtual ~CaptionMarks() = default;

  /// What a viewer sees.
  virtual SeenCaption Read(TextView stored, TextView separator) const = 0;
  /// The same of a caption, with what its file says beside its text; `origin` is the caption's.
  virtual SeenCaption ReadOf(std::uint32_t /*origin*/, TextView stored, TextView separator) const {
    return Read(stored, separator);
  }
  /// The same text, but for names of speakers that only a viewer is told; `places` gets one for each of its units.
  virtual Text ReadPlaces(TextView stored, TextView separator, std::vector<TextPlace>& places) const = 0;
  /// The text without the marks that give or take the style of a list's marker to parts of it.
  virtual Text WithoutStyle(TextView stored, TextView marker, TextView separator) const = 0;
};

/// Texts that have no marks but the list's own.
class ListMarks final : public CaptionMarks {
 public:
  SeenCaption Read(TextView stored, TextView separator) const override;
  Text ReadPlaces(TextView stored, TextView separator, std::vector<TextPlace>& places) const override;
  Text WithoutStyle(TextView stored, TextView marker, TextView separator) const override;
};

}  // namespace cuewright
