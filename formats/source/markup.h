#pragma once

#include <vector>

#include "core/caption_marks.h"
#include "core/styled_text.h"
#include "formats/source/beside.h"
#include "formats/source/losses.h"
#include "text/text.h"

namespace cuewright {

/// Which format's marks stand in the text of a caption. With every kind the list's markers "<b>", "<i>" and "<u>"
/// without a closing mark stand for the whole caption.
enum class MarkKind { Plain, SubRip, WebVtt, SubStation, Sami, MicroDvd, Ttml, Mpl2 };

/// The marks that captions of a format bear.
MarkKind MarkKindOf(TextView identifier);

/// A caption as a viewer sees it.
struct StyledText {
  std::vector<StyledRun> runs;  ///< with line separators in their texts
  Text speaker;
  int place = kUsualPlace;
  LossSet others;  ///< marks that have no member here

  Text Visible() const;
};

/// A text and what some formats keep outside of the text.
struct MarkedText {
  Text text;
  Beside beside{};
};

/// What the marks of a text mean.
StyledText ReadMarks(const MarkedText& text, MarkKind kind, TextView separator);

/// A caption in the marks of a kind; `lost` gets what it can't hold. The speaker is beside the text in SubStation and
/// TTML, the place is in WebVTT and TTML; the caller takes them to where the format has them.
MarkedText WriteMarks(const StyledText& text, MarkKind kind, TextView separator, LossSet& lost);

/// A text with the marks of another kind, and what lies beside it.
MarkedText ConvertMarks(const MarkedText& text, MarkKind from, MarkKind to, TextView separator, Losses& losses);

/// The same for a record that has no room beside the text: what belongs there is lost.
Text ConvertWithin(const MarkedText& text, MarkKind from, MarkKind to, TextView separator, Losses& losses);

/// The text as `VisibleText` gives it, without the names of speakers that are told in the text; `places` gets the place
/// of each of its units in the text given.
Text VisibleText(TextView text, MarkKind kind, TextView separator, std::vector<TextPlace>& places);

/// The text as a viewer reads it, with its line separators.
Text VisibleText(TextView text, MarkKind kind, TextView separator);

}  // namespace cuewright
