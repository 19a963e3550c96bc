#pragma once

#include <memory>
#include <optional>

#include "core/caption_list.h"
#include "formats/beside_fields.h"
#include "formats/definition.h"
#include "formats/source/losses.h"
#include "formats/source/markup.h"
#include "formats/source/source_map.h"
#include "text/text.h"

namespace cuewright {

/// Captions whose texts are in the marks of the format that they are written in.
class CarriedTexts {
 public:
  /// True when a text of the rows 1 to `lastRow` has a character with which marks begin or end.
  static bool HasMarks(const CaptionList& list, Row lastRow);

  /// The rows 1 to `lastRow` of a list whose texts are those of the file `source`, null for none; `lost` counts what
  /// the format `to`, an identifier of the catalogue with this definition, can't hold.
  CarriedTexts(const CaptionList& list, Row lastRow, const SourceMap* source, TextView to,
               const FormatDefinition& definition, Losses& lost);

  const CaptionList& List() const { return list_; }
  /// True when the texts are as the format's own rules write them; else the list's markers still stand in them.
  bool AreWritten() const { return rules_ != nullptr; }
  /// What the captions keep beside their texts; null when that is nothing.
  const BesideFields* AllBeside() const { return beside_ ? &*beside_ : nullptr; }

 private:
  /// The text in the marks of the format, and what belongs beside it there.
  void Carry(MarkedText& marked, Losses& lost) const;
  void Convert(MarkedText& marked, Losses& lost) const;
  const Text& Separator() const { return list_.Options().lineSeparator; }

  MarkKind from_;
  MarkKind kind_;
  TextView to_;
  const FormatDefinition& definition_;
  std::unique_ptr<SourceFormat> rules_;
  bool modified_ = false;
  CaptionList list_;
  std::optional<BesideFields> beside_;
};

/// The text of a caption with what the file that it comes from keeps beside it; `source` may be null.
MarkedText MarkedTextOf(const Caption& caption, const SourceMap* source);

}  // namespace cuewright
