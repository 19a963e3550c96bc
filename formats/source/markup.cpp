#include "formats/source/markup.h"

#include <utility>

#include "core/style_markers.h"
#include "formats/source/markup_reader.h"
#include "formats/source/markup_writer.h"
#include "formats/source/whole_styles.h"

namespace cuewright {
namespace {

/// Characters of which every mark of the kind contains one.
TextView MarkCharacters(MarkKind kind) {
  switch (kind) {
    case MarkKind::Plain:
      return u"<";
    case MarkKind::SubRip:
      return u"<{";
    case MarkKind::WebVtt:
    case MarkKind::Sami:
    case MarkKind::Ttml:
      return u"<&";
    case MarkKind::SubStation:
      return u"<{\\";
    case MarkKind::MicroDvd:
      return u"<{/";
    case MarkKind::Mpl2:
      return u"</\\_";
  }
  return {};
}

bool HasMarks(TextView text, MarkKind kind) { return text.find_first_of(MarkCharacters(kind)) != TextView::npos; }

/// True for a text in which the kind would see marks that nobody meant.
bool LooksMarked(TextView text, MarkKind kind) {
  return (kind == MarkKind::WebVtt || kind == MarkKind::Sami || kind == MarkKind::Ttml) &&
         text.find_first_of(u"<&") != TextView::npos;
}

RunStyle InBoth(const RunStyle& a, const RunStyle& b) {
  return {a.bold && b.bold, a.italic && b.italic, a.underline && b.underline, a.strike && b.strike,
          a.colour == b.colour ? a.colour : std::nullopt};
}

/// A separator gets the style of the parts at both sides where they have the same, so that "<i>a</i>|<i>b</i>" is one
/// part.
void JoinAcrossSeparators(std::vector<StyledRun>& runs, TextView separator) {
  std::vector<StyledRun> joined;
  for (std::size_t i = 0; i < runs.size(); ++i) {
    const bool between = i > 0 && i + 1 < runs.size() && runs[i].text == separator;
    if (between) runs[i].style = InBoth(joined.back().style, runs[i + 1].style);
    if (!joined.empty() && joined.back().style == runs[i].style) {
      joined.back().text += runs[i].text;
    } else {
      joined.push_back(std::move(runs[i]));
    }
  }
  runs = std::move(joined);
}

/// Removes the styles that all parts have from the parts, and returns them.
WholeStyles TakeCommonStyles(std::vector<StyledRun>& runs) {
  if (runs.empty()) return {};
  WholeStyles common{true, true, true};
  for (const StyledRun& run : runs) {
    common.bold = common.bold && run.style.bold;
    common.italic = common.italic && run.style.italic;
    common.underline = common.underline && run.style.underline;
  }
  for (StyledRun& run : runs) {
    run.style.bold = run.style.bold && !common.bold;
    run.style.italic = run.style.italic && !common.italic;
    run.style.underline = run.style.underline && !common.underline;
  }
  return common;
}

bool PlaceIsInTheText(MarkKind kind) { return kind == MarkKind::SubRip || kind == MarkKind::SubStation; }
bool PlaceIsBeside(MarkKind kind) { return kind == MarkKind::WebVtt || kind == MarkKind::Ttml; }
bool SpeakerIsBeside(MarkKind kind) { return kind == MarkKind::SubStation || kind == MarkKind::Ttml; }

}  // namespace

MarkKind MarkKindOf(TextView identifier) {
  struct Row {
    TextView identifier;
    MarkKind kind;
  };
  constexpr Row kRows[] = {{u"SUBRIP", MarkKind::SubRip},
                           {u"WEBVTT", MarkKind::WebVtt},
                           {u"WEBVTT_RSS", MarkKind::WebVtt},
                           {u"ADVANCEDSSA", MarkKind::SubStation},
                           {u"SUBSTATIONALPHA", MarkKind::SubStation},
                           {u"SAMI", MarkKind::Sami},
                           {u"MICRODVD", MarkKind::MicroDvd},
                           {u"TTML", MarkKind::Ttml},
                           {u"MPL2", MarkKind::Mpl2},
                           // Their codes are read as the tags that people know.
                           {u"EBUSTL", MarkKind::SubRip},
                           {u"SCC", MarkKind::SubRip}};
  for (const Row& row : kRows) {
    if (row.identifier == identifier) return row.kind;
  }
  return MarkKind::Plain;
}

Text StyledText::Visible() const {
  Text visible;
  for (const StyledRun& run : runs) visible += run.text;
  return visible;
}

namespace {

/// Reads the marks of a text into what is known of it; `places` may be null.
StyledText ReadRuns(TextView text, MarkKind kind, TextView separator, std::vector<TextPlace>* places,
                    const Beside& beside) {
  StyledText result;
  result.speaker = beside.speaker;
  result.place = beside.place;
  RunBuilder runs(result, text, places);
  const WholeMarkers whole = FindWholeMarkers(text);
  const TextView inner = whole.Inner(text);
  runs.style = beside.style;
  runs.style.bold = runs.style.bold || whole.bold;
  runs.style.italic = runs.style.italic || whole.italic;
  runs.style.underline = runs.style.underline || whole.underline;
  switch (kind) {
    case MarkKind::Plain:
      runs.Append(inner);
      break;
    case MarkKind::SubStation:
      ReadOverrides(inner, runs);
      break;
    case MarkKind::MicroDvd:
      ReadMicroDvd(inner, separator, runs);
      break;
    case MarkKind::Mpl2:
      ReadMpl2(inner, separator, runs);
      break;
    default:
      ReadTags(inner, kind, separator, beside.named.get(), runs);
      break;
  }
  return result;
}

}  // namespace

StyledText ReadMarks(const MarkedText& text, MarkKind kind, TextView separator) {
  StyledText result = ReadRuns(text.text, kind, separator, nullptr, text.beside);
  JoinAcrossSeparators(result.runs, separator);
  return result;
}

MarkedText WriteMarks(const StyledText& text, MarkKind kind, TextView separator, LossSet& lost) {
  MarkedText result;
  std::vector<StyledRun> runs = text.runs;
  const WholeStyles whole = TakeCommonStyles(runs);
  result.text = WriteRuns(runs, kind, separator, lost);
  if (!text.speaker.empty()) {
    if (kind == MarkKind::WebVtt) {
      result.text = u"<v " + text.speaker + u">" + result.text;
    } else if (SpeakerIsBeside(kind)) {
      result.beside.speaker = text.speaker;
    } else {
      lost.Add(Loss::Speaker);
    }
  }
  if (text.place != kUsualPlace) {
    if (PlaceIsInTheText(kind)) {
      result.text = u"{\\an" + Decimal(text.place) + u"}" + result.text;
    } else if (PlaceIsBeside(kind)) {
      result.beside.place = text.place;
    } else {
      lost.Add(Loss::Position);
    }
  }
  if (kind == MarkKind::Plain) {
    if (whole.bold) lost.Add(Loss::Bold);
    if (whole.italic) lost.Add(Loss::Italic);
    if (whole.underline) lost.Add(Loss::Underline);
  } else {
    result.text = Markers(whole) + result.text;
  }
  return result;
}

MarkedText ConvertMarks(const MarkedText& text, MarkKind from, MarkKind to, TextView separator, Losses& losses) {
  const bool plain = !HasMarks(text.text, from) && !LooksMarked(text.text, to);
  // A style that is kept beside the text doesn't go along, so it has to be written into the text.
  if ((from == to && !text.beside.HasStyle()) || (plain && !text.beside.Any())) return text;
  const StyledText styled = ReadMarks(text, from, separator);
  LossSet lost = styled.others;
  MarkedText converted = WriteMarks(styled, to, separator, lost);
  losses.AddCaption(lost);
  return converted;
}

Text ConvertWithin(const MarkedText& text, MarkKind from, MarkKind to, TextView separator, Losses& losses) {
  MarkedText converted = ConvertMarks(text, from, to, separator, losses);
  LossSet beside;
  if (!converted.beside.speaker.empty()) beside.Add(Loss::Speaker);
  if (converted.beside.place != kUsualPlace) beside.Add(Loss::Position);
  losses.AddCaption(beside);
  return std::move(converted.text);
}

Text VisibleText(TextView text, MarkKind kind, TextView separator, std::vector<TextPlace>& places) {
  places.clear();
  return ReadRuns(text, kind, separator, &places, {}).Visible();
}

Text VisibleText(TextView text, MarkKind kind, TextView separator) {
  if (!HasMarks(text, kind)) return Text(text);
  return ReadMarks(MarkedText{Text(text)}, kind, separator).Visible();
}

}  // namespace cuewright
