#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/ms.h"
#include "formats/source/source_format.h"

namespace cuewright {

/// The classes of captions that a SAMI file's body has, in the order in which they come; a file of several languages
/// has a class for each.
std::vector<Text> SamiClasses(std::string_view bytes);

/// SAMI read as HTML: tags in letters of any case, spread over lines in any way; the text on the line of the time or
/// below it; an end by a blank screen or by the next caption. Of several classes one is read, and captions of the
/// others stay in the file as they are; where captions of two classes have one time in common, a change of that time
/// moves both.
class SamiFormat final : public SourceFormat {
 public:
  explicit SamiFormat(const SourceSettings& settings) : settings_(settings) {}

  void Read(const SourceText& text, TextView separator, SourceSink& sink) override;
  std::string TimeField(Ms ms, std::string_view old) const override;
  Text TextField(TextView text, TextView separator, TextView lineEnd) const override;
  Text Record(const NewRecord& record, TextView separator) const override;
  std::optional<Text> EndBehind(Ms end, TextView lineEnd) const override;

 private:
  /// A time and what is shown from it on.
  Text Sync(Ms ms, TextView text, TextView lineEnd) const;

  SourceSettings settings_;
  std::string class_;  ///< the class that was read; empty: the file has none
};

}  // namespace cuewright
