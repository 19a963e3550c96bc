#include <array>
#include <utility>

#include "formats/source/character_names.h"
#include "formats/source/markup_colours.h"
#include "formats/source/markup_writer.h"

namespace cuewright {
namespace {

using Lines = std::vector<std::vector<StyledRun>>;

/// What the marks of a kind can tell of a part of a caption.
struct Means {
  bool styles = false;  ///< bold, italic and underline, of parts
  bool strike = false;
  bool colour = false;
};

Means MeansOf(MarkKind kind) {
  switch (kind) {
    case MarkKind::SubRip:
    case MarkKind::SubStation:
    case MarkKind::Sami:
    case MarkKind::Ttml:
      return {true, true, true};
    case MarkKind::WebVtt:
      return {true, false, true};
    default:
      return {};
  }
}

struct Mark {
  Loss kind;
  char16_t letter;
  bool RunStyle::*flag;
};
constexpr std::array<Mark, 4> kMarks = {{{Loss::Bold, u'b', &RunStyle::bold},
                                         {Loss::Italic, u'i', &RunStyle::italic},
                                         {Loss::Underline, u'u', &RunStyle::underline},
                                         {Loss::Strike, u's', &RunStyle::strike}}};

Text InBrackets(TextView inner) { return u"<" + Text(inner) + u">"; }

/// The tags that open and close one property of a style.
struct TagPair {
  Text open;
  Text close;

  bool operator==(const TagPair&) const = default;
};

class TagWriter {
 public:
  TagWriter(MarkKind kind, LossSet& lost) : kind_(kind), lost_(lost) {}

  Text Write(const std::vector<StyledRun>& runs) {
    for (const StyledRun& run : runs) {
      TurnTo(PairsOf(run.style));
      out_ += kind_ == MarkKind::SubRip ? run.text : EscapeMarks(run.text);
    }
    TurnTo({});
    return std::move(out_);
  }

 private:
  /// Characters that would be taken for a mark are written by name.
  static Text EscapeMarks(TextView text) {
    if (text.find_first_of(u"&<") == TextView::npos) return Text(text);
    Text named = EncodeAllNames(text);
    DecodeNames(named);
    return named;
  }

  TagPair SpanOf(TextView attribute, TextView value) {
    return {u"<span tts:" + Text(attribute) + u"=\"" + Text(value) + u"\">", u"</span>"};
  }

  TagPair StylePair(const Mark& mark) {
    if (kind_ == MarkKind::Ttml) {
      switch (mark.letter) {
        case u'b':
          return SpanOf(u"fontWeight", u"bold");
        case u'i':
          return SpanOf(u"fontStyle", u"italic");
        case u'u':
          return SpanOf(u"textDecoration", u"underline");
        default:
          return SpanOf(u"textDecoration", u"lineThrough");
      }
    }
    const Text name(1, mark.letter);
    return {InBrackets(name), InBrackets(u"/" + name)};
  }

  std::vector<TagPair> PairsOf(const RunStyle& style) {
    std::vector<TagPair> pairs;
    if (style.colour) {
      const Text digits = u"#" + ColourDigits(*style.colour);
      if (kind_ == MarkKind::WebVtt) {
        const TextView name = CueColourClass(*style.colour);
        if (name.empty()) {
          lost_.Add(Loss::Colour);
        } else {
          pairs.push_back({InBrackets(u"c." + Text(name)), u"</c>"});
        }
      } else if (kind_ == MarkKind::Ttml) {
        pairs.push_back(SpanOf(u"color", digits));
      } else {
        pairs.push_back({u"<font color=\"" + digits + u"\">", u"</font>"});
      }
    }
    for (const Mark& mark : kMarks) {
      if (!(style.*mark.flag)) continue;
      if (mark.kind == Loss::Strike && !MeansOf(kind_).strike) {
        lost_.Add(Loss::Strike);
      } else {
        pairs.push_back(StylePair(mark));
      }
    }
    return pairs;
  }

  void TurnTo(const std::vector<TagPair>& wanted) {
    std::size_t same = 0;
    while (same < open_.size() && same < wanted.size() && open_[same] == wanted[same]) ++same;
    for (std::size_t i = open_.size(); i > same; --i) out_ += open_[i - 1].close;
    open_.resize(same);
    for (; same < wanted.size(); ++same) {
      out_ += wanted[same].open;
      open_.push_back(wanted[same]);
    }
  }

  MarkKind kind_;
  LossSet& lost_;
  Text out_;
  std::vector<TagPair> open_;
};

Text WriteOverrides(const std::vector<StyledRun>& runs) {
  Text out;
  RunStyle now;
  for (const StyledRun& run : runs) {
    Text block;
    for (const Mark& mark : kMarks) {
      if (now.*mark.flag == run.style.*mark.flag) continue;
      block += {u'\\', mark.letter, run.style.*mark.flag ? u'1' : u'0'};
    }
    if (now.colour != run.style.colour) {
      block += u"\\c";
      if (run.style.colour) block += u"&H" + ToUpper(ColourDigits(Exchanged(*run.style.colour))) + u"&";
    }
    if (!block.empty()) out += u"{" + block + u"}";
    out += run.text;
    now = run.style;
  }
  return out;
}

Lines LinesOf(const std::vector<StyledRun>& runs, TextView separator) {
  Lines lines(1);
  for (const StyledRun& run : runs) {
    bool first = true;
    for (Text& piece : Split(run.text, separator)) {
      if (!first) lines.emplace_back();
      first = false;
      if (!piece.empty()) lines.back().push_back({std::move(piece), run.style});
    }
  }
  return lines;
}

/// A line may be of one style in MicroDVD and MPL2.
class LineWriter {
 public:
  LineWriter(MarkKind kind, LossSet& lost) : kind_(kind), lost_(lost) {}

  Text Write(const Lines& lines, TextView separator) {
    Text out;
    for (std::size_t i = 0; i < lines.size(); ++i) {
      if (i > 0) out += separator;
      out += Front(lines[i]);
      for (const StyledRun& run : lines[i]) out += run.text;
    }
    return out;
  }

 private:
  Text Front(const std::vector<StyledRun>& line) {
    Text letters;
    for (const Mark& mark : kMarks) {
      std::size_t with = 0;
      for (const StyledRun& run : line) with += run.style.*mark.flag ? 1 : 0;
      if (with == 0) continue;
      const bool written = with == line.size() && (kind_ == MarkKind::MicroDvd || mark.kind != Loss::Strike);
      if (!written) {
        lost_.Add(mark.kind);
      } else if (kind_ == MarkKind::MicroDvd) {
        letters += (letters.empty() ? u"" : u",") + Text(1, mark.letter);
      } else {
        letters += mark.letter == u'b' ? u'\\' : mark.letter == u'i' ? u'/' : u'_';
      }
    }
    Text front = letters.empty() || kind_ == MarkKind::Mpl2 ? letters : u"{y:" + letters + u"}";
    return front + Colour(line);
  }

  Text Colour(const std::vector<StyledRun>& line) {
    bool any = false;
    bool same = true;
    for (const StyledRun& run : line) {
      any = any || run.style.colour;
      same = same && run.style.colour == line.front().style.colour;
    }
    if (!any) return {};
    if (!same || kind_ != MarkKind::MicroDvd) {
      lost_.Add(Loss::Colour);
      return {};
    }
    return u"{c:$" + ColourDigits(Exchanged(*line.front().style.colour)) + u"}";
  }

  MarkKind kind_;
  LossSet& lost_;
};

Text WritePlain(const std::vector<StyledRun>& runs, LossSet& lost) {
  Text out;
  for (const StyledRun& run : runs) {
    for (const Mark& mark : kMarks) {
      if (run.style.*mark.flag) lost.Add(mark.kind);
    }
    if (run.style.colour) lost.Add(Loss::Colour);
    out += run.text;
  }
  return out;
}

}  // namespace

Text WriteRuns(const std::vector<StyledRun>& runs, MarkKind kind, TextView separator, LossSet& lost) {
  switch (kind) {
    case MarkKind::Plain:
      return WritePlain(runs, lost);
    case MarkKind::SubStation:
      return WriteOverrides(runs);
    case MarkKind::MicroDvd:
    case MarkKind::Mpl2:
      return LineWriter(kind, lost).Write(LinesOf(runs, separator), separator);
    default:
      return TagWriter(kind, lost).Write(runs);
  }
}

}  // namespace cuewright
