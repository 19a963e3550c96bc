#include "formats/source/sami_format.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "formats/source/character_names.h"
#include "formats/source/clock_field.h"
#include "formats/source/open_ended.h"
#include "formats/source/sami_scanner.h"
#include "formats/source/whole_styles.h"
#include "text/utf8.h"

namespace cuewright {
namespace {

constexpr std::string_view kDefaultClass = "SUBTTL";

bool IsBlankUnit(char16_t c) { return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n'; }

/// How long the tag of a line end is that begins the text, "<br>" or "<BR />"; 0: there is none.
std::size_t BreakSize(TextView text) {
  if (text.size() < 4 || (text[1] | 0x20) != u'b' || (text[2] | 0x20) != u'r') return 0;
  const std::size_t end = text.find_first_not_of(u" /", 3);
  return end == TextView::npos || text[end] != u'>' ? 0 : end + 1;
}

/// Line ends of the file are blanks, "<br>" is a line end, and blanks beside either mean nothing.
Text WithLines(TextView raw, TextView separator) {
  Text result;
  result.reserve(raw.size());
  for (std::size_t at = 0; at < raw.size();) {
    const std::size_t stop = std::min(raw.find_first_of(u"<\r\n", at), raw.size());
    result += raw.substr(at, stop - at);
    at = stop;
    if (at == raw.size()) break;
    const std::size_t size = raw[at] == u'<' ? BreakSize(raw.substr(at)) : 1;
    if (size == 0) {
      result += raw[at++];
      continue;
    }
    while (!result.empty() && IsBlankUnit(result.back())) result.pop_back();
    result += raw[at] == u'<' ? separator : u" ";
    at += size;
    while (at < raw.size() && IsBlankUnit(raw[at])) ++at;
  }
  return result;
}

Text CaptionOf(Text raw, TextView separator) {
  if (raw.find_first_of(u"<\r\n") != Text::npos) raw = WithLines(raw, separator);
  DecodeNames(raw);
  TagsToMarkers(raw, separator);
  return raw;
}

/// True when the head has the styles of one class alone, so that there is nothing to choose.
bool NamesOneClass(std::string_view bytes) {
  constexpr std::size_t kLongestHead = 1 << 14;
  const std::string_view head = bytes.substr(0, std::min(bytes.find("<SYNC"), kLongestHead));
  std::size_t count = 0;
  for (std::size_t at = head.find('{'); at != std::string_view::npos; at = head.find('{', at + 1)) {
    const std::size_t name = head.find_last_of(".#}>-;", at);
    count += name != std::string_view::npos && head[name] == '.' ? 1 : 0;
  }
  return count == 1;
}

/// True for a text of which nothing is seen: none, or hard blanks alone, whose names many files write without a
/// semicolon or in capitals.
bool IsClear(TextView text) {
  constexpr TextView kName = u"&nbsp";
  for (;;) {
    text.remove_prefix(std::min(text.find_first_not_of(u" \t\u00A0"), text.size()));
    if (text.empty()) return true;
    if (!EqualLoose(text.substr(0, kName.size()), kName)) return false;
    text.remove_prefix(kName.size());
    if (text.starts_with(u';')) text.remove_prefix(1);
  }
}

}  // namespace

std::vector<Text> SamiClasses(std::string_view bytes) {
  constexpr std::size_t kMost = 64;
  std::vector<std::string_view> classes;
  if (NamesOneClass(bytes)) return {};
  SamiScanner scanner(bytes);
  SamiSync sync;
  while (scanner.Next(sync)) {
    for (const SamiParagraph& paragraph : sync.paragraphs) {
      const std::string_view name = paragraph.className;
      const auto same = [&](std::string_view other) { return SameLetters(other, name); };
      if (!name.empty() && classes.size() < kMost && std::ranges::none_of(classes, same)) classes.push_back(name);
    }
  }
  std::vector<Text> names;
  names.reserve(classes.size());
  for (const std::string_view name : classes) names.push_back(FromUtf8(name));
  return names;
}

void SamiFormat::Read(const SourceText& text, TextView separator, SourceSink& sink) {
  class_ = ToUtf8(settings_.captionClass);
  OpenEnded captions(settings_, sink, Lasts::UntilTheNext);
  SamiScanner scanner(text.bytes);
  SamiSync sync;
  while (scanner.Next(sync)) {
    if (sync.start.Empty()) {
      sink.NotUnderstood(sync.whole.at);
      continue;
    }
    if (class_.empty() && !sync.paragraphs.empty()) class_ = sync.paragraphs.front().className;
    const auto own = std::find_if(sync.paragraphs.begin(), sync.paragraphs.end(), [&](const SamiParagraph& paragraph) {
      return paragraph.className.empty() || SameLetters(paragraph.className, class_);
    });
    if (own == sync.paragraphs.end()) continue;
    const Text caption = CaptionOf(text.Decoded(own->text), separator);
    if (IsClear(caption)) {
      (void)captions.End(sync.ms, sync.start, sync.whole.End());
    } else {
      captions.Begin(sync.ms, caption, {sync.whole, {}, sync.start, {}, own->text});
    }
  }
  captions.Flush();
}

std::string SamiFormat::TimeField(Ms ms, std::string_view) const { return std::to_string(std::max<Ms>(ms, 0).Count()); }

Text SamiFormat::TextField(TextView text, TextView separator, TextView) const {
  return ReplaceAll(EncodeNames(MarkersToTags(text)), separator, u"<br>");
}

Text SamiFormat::Sync(Ms ms, TextView text, TextView lineEnd) const {
  const Text name = FromUtf8(class_.empty() ? kDefaultClass : std::string_view(class_));
  return u"<SYNC Start=" + FromUtf8(TimeField(ms, {})) + u"><P Class=" + name + u">" + Text(text) + Text(lineEnd);
}

std::optional<Text> SamiFormat::EndBehind(Ms end, TextView lineEnd) const { return Sync(end, u"&nbsp;", lineEnd); }

Text SamiFormat::Record(const NewRecord& record, TextView separator) const {
  return Sync(record.caption.start, TextField(record.caption.text, separator, record.lineEnd), record.lineEnd) +
         Sync(record.caption.end, u"&nbsp;", record.lineEnd);
}

}  // namespace cuewright
