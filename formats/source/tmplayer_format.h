#pragma once

#include <string>
#include <string_view>

#include "core/ms.h"
#include "formats/source/source_format.h"

namespace cuewright {

/// TMPlayer in all its dialects: "hh:mm:ss" and behind it a colon, an equals sign, or the number of a row of text and
/// an equals sign. A caption lasts until the next time, which may have no text. Hours have one digit or two.
class TmPlayerFormat final : public SourceFormat {
 public:
  enum class Dialect { Colon, Equals, Rows };

  TmPlayerFormat(const SourceSettings& settings, Dialect dialect) : settings_(settings), dialect_(dialect) {}

  void Read(const SourceText& text, TextView separator, SourceSink& sink) override;
  std::string TimeField(Ms ms, std::string_view old) const override;
  Text TextField(TextView text, TextView separator, TextView lineEnd) const override;
  Text Record(const NewRecord& record, TextView separator) const override;
  bool WritesEnds() const override { return writesEnds_; }

 private:
  Text Line(Ms ms, std::string_view form, int row) const;

  SourceSettings settings_;
  Dialect dialect_;
  int rows_ = 2;            ///< how many rows of text each caption has in the file
  bool writesEnds_ = true;  ///< false: the file has no ends of captions and gets none
};

}  // namespace cuewright
