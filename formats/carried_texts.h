#pragma once

#include "core/caption_list.h"
#include "formats/definition.h"
#include "formats/source/losses.h"
#include "formats/source/markup.h"
#include "text/text.h"

namespace cuewright {

/// Captions whose texts are in the marks of the format that they are written in.
class CarriedTexts {
 public:
  /// True when a text of the rows 1 to `lastRow` has a character of which marks are made.
  static bool HasMarks(const CaptionList& list, Row lastRow);

  /// The rows 1 to `lastRow` of a list whose texts have marks of the kind `from`; `lost` counts what the format `to`,
  /// an identifier of the catalogue with this definition, can't hold.
  CarriedTexts(const CaptionList& list, Row lastRow, MarkKind from, TextView to, const FormatDefinition& definition,
               Losses& lost);

  const CaptionList& List() const { return list_; }
  /// The texts are as the format's own rules write them; else the list's markers stand in them still.
  bool AreWritten() const { return written_; }

 private:
  bool modified_ = false;
  bool written_ = false;
  CaptionList list_;
};

}  // namespace cuewright
