#include <array>
#include <cstring>
#include <utility>

#include "core/numbers.h"
#include "formats/line_parsers.h"
#include "formats/text_run.h"
#include "text/text_search.h"
#include "text/utf8.h"

namespace cuewright {
namespace {

/// Tags that are text, and what they are hidden as while the others go.
struct KeptTag {
  TextView tag;
  TextView hidden;
};
constexpr std::array<KeptTag, 4> kKeptTags = {
    {{u"<br>", u"#br#"}, {u"<b>", u"#b#"}, {u"<i>", u"#i#"}, {u"<u>", u"#u#"}}};

/// What a line with a time begins with.
constexpr std::string_view kSyncBytes = "<SYNC START=";

/// Longest line of nested brackets that is worked on copy by copy, since that takes time by its square, and how many
/// characters of such work a file may ask for.
constexpr std::size_t kLongestNested = 4096;
constexpr std::size_t kMostNestedWork = std::size_t{32} << 20;

/// Removes each stretch from a "<" to the next ">". Gives up with false at a "<" inside a stretch.
bool RemoveFlatStretches(TextView text, bool nestedToo, Text& result) {
  result.clear();
  std::size_t at = 0;
  for (;;) {
    const std::size_t open = text.find(u'<', at);
    const std::size_t close = open == TextView::npos ? open : text.find(u'>', open);
    if (close == TextView::npos) break;
    if (!nestedToo && text.substr(open + 1, close - open - 1).find(u'<') != TextView::npos) return false;
    result.append(text, at, open - at);
    at = close + 1;
  }
  result.append(text, at);
  return true;
}

/// The same for any text: every further copy of a stretch goes with it, which may bring brackets together. `work` is
/// what the file may still ask for.
Text RemoveStretches(TextView text, std::size_t& work) {
  Text result;
  if (RemoveFlatStretches(text, text.size() > kLongestNested, result)) return result;
  for (result = text; work >= result.size(); work -= result.size()) {
    const std::size_t open = result.find(u'<');
    const std::size_t close = open == Text::npos ? open : result.find(u'>', open);
    if (close == Text::npos) return result;
    result = ReplaceAll(result, Text(result, open, close - open + 1), {});
  }
  Text flat;
  RemoveFlatStretches(result, true, flat);
  return flat;
}

/// Length of the kept tag that begins at the place; 0 when none does.
std::size_t KeptLength(TextView text, std::size_t at) {
  for (const KeptTag& kept : kKeptTags) {
    if (text.substr(at).starts_with(kept.tag)) return kept.tag.size();
  }
  return 0;
}

/// The ">" that closes the stretch opened at `open`, npos when there is none. `plain` becomes false when another
/// stretch opens inside.
std::size_t ClosingPlace(TextView text, std::size_t open, bool& plain) {
  for (std::size_t at = open + 1; at < text.size(); ++at) {
    if (text[at] == u'>') return at;
    if (text[at] != u'<') continue;
    const std::size_t kept = KeptLength(text, at);
    if (kept == 0) plain = false;
    at += kept == 0 ? 0 : kept - 1;
  }
  return TextView::npos;
}

/// Strips a line in which no stretch lies in another and no "#" can be taken for a hidden tag. False for any other.
bool StripPlainLine(TextView text, Text& result) {
  if (FindCharacter(text, u'#') != TextView::npos) return false;
  result.clear();
  std::size_t at = 0;
  for (std::size_t open = FindCharacter(text, u'<'); open != TextView::npos; open = FindCharacter(text, u'<', open)) {
    const std::size_t kept = KeptLength(text, open);
    open += kept;
    if (kept != 0) continue;
    bool plain = true;
    const std::size_t close = ClosingPlace(text, open, plain);
    if (!plain) return false;
    if (close == TextView::npos) break;
    result.append(text, at, open - at);
    at = open = close + 1;
  }
  result.append(text, at);
  return true;
}

Text StripAnyLine(TextView line, std::size_t& work) {
  Text text(line);
  for (const KeptTag& kept : kKeptTags) text = ReplaceAll(text, kept.tag, kept.hidden);
  text = RemoveStretches(text, work);
  for (const KeptTag& kept : kKeptTags) text = ReplaceAll(text, kept.hidden, kept.tag);
  return text;
}

class SamiParser final : public LineParser {
 public:
  explicit SamiParser(const ParseContext& context)
      : captions_(context.captions), errors_(context.errors), run_(context.captions) {}

  void Parse(ImportLine& line) override {
    if (!bodySeen_) {
      bodySeen_ = line.Empty() ? false : line.View() == u"<BODY>";
      return;
    }
    if (line.Empty()) return;
    const TextView text = line.View();
    if (!captions_.captionText.empty() && captions_.TimesSet()) captions_.FlushImportedCaption();
    const bool sync = HoldsPair(text, u'C', u'c', u' ') && sync_.In(text);
    const unsigned held = HeldOf(text, u'&', u'<', u'#');
    const bool space = (held & 1u) != 0 && space_.In(text);
    if (!sync && !space && captions_.captionText.empty()) TakeText(text, (held & 6u) != 0);
    if (sync) errors_([&] { ReadTime(text); });
    if (space) captions_.Reset();
  }

  void ParseRun(TextFile& file) override {
    if (!bodySeen_ || !file.AsciiIsPlain() || captions_.captionText.size() > kLongestOpenText) return;
    mereBreak_ = ToUtf8(captions_.MereBreak());
    if (!captions_.StoresStraight(u'\0')) return;
    run_.Begin();
    while (captions_.ImportedCount() % kYieldEvery != 0 && !captions_.Full() && TakeBytes(file)) {
    }
    run_.End();
  }

 private:
  /// What `Parse` does with the file's next line, as long as it is a plain one; false, with nothing done, for any
  /// other.
  bool TakeBytes(TextFile& file) {
    const std::string_view rest = file.Rest();
    std::size_t from = rest.find_first_not_of(' ');
    if (from == std::string_view::npos) return false;
    const std::string_view line = rest.substr(from);
    std::size_t length = 0;
    if (line.front() == file.LineEnd()) {
      // Nothing is to be done.
    } else if (line.front() == '<') {
      length = TakeTagLine(line, file.LineEnd());
    } else {
      length = TakeTextLine(file, line);
    }
    if (length == 0 && line.front() != file.LineEnd()) return false;
    file.SkipLine(from + length);
    return true;
  }

  /// A line of tags and no text; its length, 0 for any other.
  std::size_t TakeTagLine(std::string_view line, char lineEnd) {
    constexpr std::size_t kLongestCount = 9;
    if (line.size() < kSyncBytes.size() || std::memcmp(line.data(), kSyncBytes.data(), kSyncBytes.size()) != 0) {
      return TakeKnownLine(line, lineEnd);
    }
    std::size_t at = kSyncBytes.size();
    std::int32_t time = 0;
    for (; at < line.size() && line[at] >= '0' && line[at] <= '9'; ++at) time = time * 10 + (line[at] - '0');
    if (at == kSyncBytes.size() || at > kSyncBytes.size() + kLongestCount) return 0;
    if (at + 1 >= line.size() || line[at] != '>' || line[at + 1] != lineEnd) return 0;
    FlushTimed();
    TakeTime(time);
    return at + 1;
  }

  /// The lines of paragraphs, which are the same all through a file.
  std::size_t TakeKnownLine(std::string_view line, char lineEnd) {
    for (KnownLine& known : known_) {
      const std::size_t length = known.bytes.size();
      if (length == 0 || length >= line.size() || line[length] != lineEnd || !line.starts_with(known.bytes)) continue;
      FlushTimed();
      if (known.space) Reset();
      return length;
    }
    return Learn(line, lineEnd);
  }

  /// Keeps a line that turns out to be tags alone; 0, so that it is parsed as any line this time.
  std::size_t Learn(std::string_view line, char lineEnd) {
    constexpr std::size_t kLongestKnown = 256;
    const std::size_t length = line.substr(0, kLongestKnown).find(lineEnd);
    if (length == std::string_view::npos || !IsAscii(line.substr(0, length)) || line[length - 1] == ' ') return 0;
    const Text text = FromUtf8(line.substr(0, length));
    Text left;
    const bool space = space_.In(text);
    if (sync_.In(text) || (!space && (!StripPlainLine(text, left) || !left.empty()))) return 0;
    known_[nextKnown_] = {std::string(line.substr(0, length)), space};
    nextKnown_ = (nextKnown_ + 1) % known_.size();
    return 0;
  }

  /// A line of text whose tags, if any, are line breaks; its length, 0 for any other.
  std::size_t TakeTextLine(TextFile& file, std::string_view line) {
    if (captions_.TimesSet() || !run_.Empty()) return 0;
    // "SYNC START" has a "C" before its blank.
    const LineScan scan = run_.Look(line, file.LineEnd(), {'&', '#', 'c'});
    if (scan.markedA || scan.markedB || scan.length > kLongestLine || line[scan.length - 1] == ' ') return 0;
    if (scan.angled) return TakeBroken(file, line.substr(0, scan.length)) ? scan.length : 0;
    run_.Decode(file, line, scan);
    run_.Take(false);
    return scan.length;
  }

  /// The pieces of a text between its line breaks; false when there is any other tag.
  bool TakeBroken(const TextFile& file, std::string_view text) {
    if (mereBreak_.empty()) return false;
    std::size_t at = 0;
    for (std::size_t hit = text.find('<'); hit != std::string_view::npos; hit = text.find('<', at)) {
      if (!text.substr(hit).starts_with(mereBreak_)) {
        run_.Clear();
        return false;
      }
      run_.Append(file, text.substr(at, hit - at));
      run_.AddSeparator();
      at = hit + mereBreak_.size();
    }
    run_.Append(file, text.substr(at));
    return true;
  }

  void FlushTimed() {
    if (!run_.Empty() && captions_.TimesSet()) run_.Flush();
  }

  void Reset() {
    captions_.Reset();
    run_.Clear();
  }

  void TakeTime(std::int32_t time) {
    if (!captions_.StartSet()) {
      captions_.captionStart = time;
    } else if (!captions_.EndSet()) {
      captions_.captionEnd = time;
    }
  }

  void TakeText(TextView text, bool marked) {
    if (!marked) {
      captions_.captionText = text;
    } else if (!StripPlainLine(text, captions_.captionText)) {
      captions_.captionText = StripAnyLine(text, nestedWork_);
    }
  }

  void ReadTime(TextView text) {
    const std::size_t equals = text.find(u'=');
    const TextView number = equals == TextView::npos ? text : text.substr(equals + 1);
    if (!captions_.TimesSet()) TakeTime(RoundToInt32(LeadingNumber(number)));
  }

  CaptionCollector& captions_;
  CarryOn& errors_;
  Needle sync_{u"SYNC START"};
  Needle space_{u"&nbsp;"};
  bool bodySeen_ = false;

  /// A line of tags alone, and whether it is a blank screen.
  struct KnownLine {
    std::string bytes;
    bool space = false;
  };
  std::array<KnownLine, 2> known_;
  std::size_t nextKnown_ = 0;
  std::string mereBreak_;
  std::size_t nestedWork_ = kMostNestedWork;
  TextRun run_;
};

}  // namespace

std::unique_ptr<LineParser> MakeSamiParser(const ParseContext& context) {
  return std::make_unique<SamiParser>(context);
}

}  // namespace cuewright
