#include "formats/source/webvtt_format.h"

#include <algorithm>
#include <optional>

#include "formats/source/character_names.h"
#include "formats/source/clock_field.h"
#include "formats/source/cue_settings.h"
#include "formats/source/whole_styles.h"
#include "text/digits.h"
#include "text/utf8.h"

namespace cuewright {
namespace {

constexpr std::string_view kArrow = "-->";
constexpr std::string_view kSignature = "WEBVTT";

bool HasArrow(std::string_view line) { return line.find(kArrow) != std::string_view::npos; }

std::size_t SkipBlanks(std::string_view line, std::size_t at) {
  while (at < line.size() && (line[at] == ' ' || line[at] == '\t')) ++at;
  return at;
}

/// The line of a cue's times.
struct Timing {
  ClockField start;
  ClockField end;
  std::size_t startAt = 0;
  std::size_t endAt = 0;
};

/// The field ends in a fraction of three digits.
bool HasMs(std::string_view field) { return field.size() > 4 && field[field.size() - 4] == '.'; }

std::optional<Timing> TimingIn(std::string_view line) {
  Timing timing;
  timing.startAt = SkipBlanks(line, 0);
  if (timing.startAt == line.size() || !IsDigit(line[timing.startAt])) return {};
  const auto start = ReadClock(line.substr(timing.startAt));
  if (!start) return {};
  const std::size_t arrow = SkipBlanks(line, timing.startAt + start->size);
  if (line.substr(arrow, kArrow.size()) != kArrow) return {};
  timing.endAt = SkipBlanks(line, arrow + kArrow.size());
  const auto end = ReadClock(line.substr(timing.endAt));
  if (!end) return {};
  const std::size_t behind = timing.endAt + end->size;
  // Settings that touch a complete time are settings all the same.
  const bool touched = behind < line.size() && SkipBlanks(line, behind) == behind;
  if (touched && !HasMs(line.substr(timing.endAt, end->size))) return {};
  timing.start = *start;
  timing.end = *end;
  return timing;
}

bool BeginsBlock(std::string_view line, std::string_view name) {
  if (!line.starts_with(name)) return false;
  return line.size() == name.size() || line[name.size()] == ' ' || line[name.size()] == '\t';
}

/// Reads one file.
class WebVttReader {
 public:
  WebVttReader(const SourceText& text, TextView separator, SourceSink& sink)
      : text_(text), separator_(separator), sink_(sink), lines_(text.bytes) {}

  void Read() {
    SourceLine line;
    if (!lines_.Next(line)) return;
    if (line.text.starts_with(kSignature)) {
      SkipBlock();
    } else {
      lines_.GoTo(line.at);
    }
    while (goOn_ && lines_.Next(line)) {
      if (!line.text.empty()) ReadBlock(line);
    }
  }
  bool HasSettings() const { return hasSettings_; }

 private:
  /// A block ends in front of an empty line and of a line with an arrow, which begins another cue.
  void SkipBlock() {
    SourceLine line;
    while (lines_.Next(line)) {
      if (!line.text.empty() && !HasArrow(line.text)) continue;
      lines_.GoTo(line.at);
      return;
    }
  }

  void ReadBlock(const SourceLine& first) {
    if (const auto timing = TimingIn(first.text)) return ReadCue(first, first, *timing);
    SourceLine second;
    if (!HasArrow(first.text) && lines_.Next(second)) {
      if (const auto timing = TimingIn(second.text)) return ReadCue(first, second, *timing);
      lines_.GoTo(second.at);
    }
    const bool known =
        BeginsBlock(first.text, "NOTE") || BeginsBlock(first.text, "STYLE") || BeginsBlock(first.text, "REGION");
    if (!known) sink_.NotUnderstood(first.at);
    SkipBlock();
  }

  void ReadCue(const SourceLine& first, const SourceLine& times, const Timing& timing) {
    SourceRecord record;
    record.start = Stretch::Of(times.at + timing.startAt, timing.start.size);
    record.end = Stretch::Of(times.at + timing.endAt, timing.end.size);
    ++count_;
    // A name that counts the cues is a number; any other is a name and stays as it is.
    if (first.at != times.at && first.text == std::to_string(count_)) {
      record.number = Stretch::Of(first.at, first.text.size());
    }
    record.text = TextBehind(times);
    const std::size_t behindText = lines_.Place();
    record.whole = Stretch::Between(first.at, BehindBlankLines());
    // A text in front of a single blank line would leave none to end the cue.
    if (record.text.Empty() && BlankLines(behindText, record.whole.End()) < 2) record.text = {};
    Text cue = text_.Decoded(record.text);
    JoinLines(cue, separator_);
    DecodeNames(cue);
    TagsToMarkers(cue, separator_);
    hasSettings_ = hasSettings_ || SkipBlanks(times.text, timing.endAt + timing.end.size) < times.text.size();
    goOn_ = sink_.Add(timing.start.ms, timing.end.ms, std::move(cue), record);
  }

  Stretch TextBehind(const SourceLine& times) {
    const std::size_t begin = times.next;
    std::size_t end = begin;
    SourceLine line;
    while (lines_.Next(line)) {
      if (line.text.empty() || HasArrow(line.text)) {
        lines_.GoTo(line.at);
        break;
      }
      end = line.End();
    }
    return Stretch::Of(begin, end - begin);
  }

  std::size_t BlankLines(std::size_t from, std::size_t to) const {
    SourceLines lines(text_.bytes.substr(from, to - from));
    SourceLine line;
    std::size_t count = 0;
    while (count < 2 && lines.Next(line)) ++count;
    return count;
  }

  std::size_t BehindBlankLines() {
    SourceLine line;
    while (lines_.Next(line)) {
      if (line.text.empty()) continue;
      lines_.GoTo(line.at);
      break;
    }
    return lines_.Place();
  }

  const SourceText& text_;
  TextView separator_;
  SourceSink& sink_;
  SourceLines lines_;
  int count_ = 0;
  bool goOn_ = true;
  bool hasSettings_ = false;
};

}  // namespace

void WebVttFormat::Read(const SourceText& text, TextView separator, SourceSink& sink) {
  namesHardBlanks_ = text.bytes.find("&nbsp;") != std::string_view::npos;
  WebVttReader reader(text, separator, sink);
  reader.Read();
  hasSettings_ = reader.HasSettings();
}

Beside WebVttFormat::BesideOf(const SourceText& text, const SourceRecord& record) const {
  std::string_view settings = text.bytes.substr(record.end.End());
  settings = settings.substr(0, settings.find_first_of("\r\n"));
  return {{}, PlaceOfCue(settings)};
}

std::string WebVttFormat::TimeField(Ms ms, std::string_view old) const { return ClockLike(ms, old); }

Text WebVttFormat::TextField(TextView text, TextView separator, TextView lineEnd) const {
  Text encoded = EncodeNames(MarkersToTags(text), namesHardBlanks_);
  if (encoded.empty() || FindPlain(encoded, separator) == TextView::npos) return encoded;
  Text field;
  for (const Text& line : Split(encoded, separator)) {
    if (!field.empty()) field += lineEnd;
    // An empty line would end the cue.
    field += line.empty() ? u"&nbsp;" : line;
  }
  return field;
}

Text WebVttFormat::Record(const NewRecord& record, TextView separator) const {
  std::string_view form = "00:00:00.000";
  std::string_view settings;
  bool numbered = false;
  SourceLines lines(record.neighbour);
  SourceLine line;
  while (lines.Next(line)) {
    if (const auto timing = TimingIn(line.text)) {
      form = line.text.substr(timing->startAt, timing->start.size);
      // A cue without a text is a record of its own, and is written anew when it gets one.
      const std::string_view behind = line.text.substr(timing->endAt + timing->end.size);
      if (!lines.Next(line) || line.text.empty()) settings = behind;
      break;
    }
    numbered = !line.text.empty() && std::all_of(line.text.begin(), line.text.end(), IsDigit<char>);
  }
  const Caption& caption = record.caption;
  Text result;
  if (numbered) result.append(Decimal(record.number)).append(record.lineEnd);
  result += FromUtf8(ClockLike(caption.start, form) + " --> " + ClockLike(caption.end, form) + std::string(settings));
  result.append(record.lineEnd).append(TextField(caption.text, separator, record.lineEnd));
  return result.append(record.lineEnd).append(record.lineEnd);
}

}  // namespace cuewright
