#pragma once

#include "formats/line_parsers.h"
#include "formats/sami_tags.h"
#include "text/text_search.h"

namespace cuewright {

/// What a line with a time holds, and the text of a blank screen.
inline constexpr TextView kSamiSync = u"SYNC START";
inline constexpr TextView kSamiSpace = u"&nbsp;";

/// The body of SAMI files: a line with a time, which is the start of a caption or the end of the one before, and lines
/// with tags and text.
class SamiParser final : public LineParser {
 public:
  explicit SamiParser(const ParseContext& context) : captions_(context.captions), errors_(context.errors) {}

  void Parse(ImportLine& line) override;

  /// The line "<BODY>" has been read.
  bool InBody() const { return bodySeen_; }

 private:
  void ReadTime(TextView text);

  CaptionCollector& captions_;
  CarryOn& errors_;
  Needle sync_{Text(kSamiSync)};
  Needle space_{Text(kSamiSpace)};
  bool bodySeen_ = false;
  TagWork tagWork_;
};

}  // namespace cuewright
