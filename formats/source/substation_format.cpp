#include "formats/source/substation_format.h"

#include <array>
#include <charconv>
#include <optional>

#include "formats/source/clock_field.h"
#include "formats/source/substation_text.h"
#include "text/units.h"
#include "text/utf8.h"

namespace cuewright {
namespace {

constexpr std::string_view kDialogue = "Dialogue:";
constexpr std::string_view kColumnsV4 = "Marked, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text";
constexpr std::string_view kColumnsV4Plus = "Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text";
/// Where styles have their alignment unless a "Format:" line says otherwise.
constexpr std::size_t kAlignmentV4 = 12;
constexpr std::size_t kAlignmentV4Plus = 18;
constexpr int kHighestPlace = 9;

bool BeginsWith(std::string_view line, std::string_view name) {
  if (line.size() < name.size()) return false;
  for (std::size_t i = 0; i < name.size(); ++i) {
    if (LowerAscii(line[i]) != LowerAscii(name[i])) return false;
  }
  return true;
}

bool Same(std::string_view a, std::string_view b) { return a.size() == b.size() && BeginsWith(a, b); }

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

enum class Section { Other, Events, Data };

/// The section that a line in brackets begins. The letters of embedded files may look like one, so within them only a
/// name of the format counts.
std::optional<Section> SectionAt(std::string_view line, Section now) {
  const std::string_view name = Trimmed(line);
  if (!name.starts_with('[') || !name.ends_with(']')) return {};
  if (Same(name, "[Events]")) return Section::Events;
  if (Same(name, "[Fonts]") || Same(name, "[Graphics]")) return Section::Data;
  if (now != Section::Data) return Section::Other;
  for (const std::string_view known : {"[Script Info]", "[V4+ Styles]", "[V4 Styles]"}) {
    if (Same(name, known)) return Section::Other;
  }
  // Embedded files are written without small letters.
  if (name.find_first_of("abcdefghijklmnopqrstuvwxyz") != std::string_view::npos) return Section::Other;
  return {};
}

/// The fields of an event that are looked at, as places in its line.
struct Event {
  Stretch start;
  Stretch end;
  Stretch text;
  Stretch style;
  Stretch speaker;
  ClockField startTime;
  ClockField endTime;
};

/// The places of an event's fields in its line, behind `at`. Only the last field may hold commas.
template <class Take>
bool EachField(std::string_view line, std::size_t at, std::size_t count, Take take) {
  for (std::size_t i = 0; i < count; ++i) {
    const bool last = i + 1 == count;
    const std::size_t comma = last ? line.size() : line.find(',', at);
    if (comma == std::string_view::npos) return false;
    take(i, Stretch::Of(at, comma - at));
    at = comma + 1;
  }
  return true;
}

Stretch TrimmedStretch(std::string_view line, Stretch field) {
  const std::string_view inner = Trimmed(field.In(line));
  if (inner.empty()) return field;
  return Stretch::Of(inner.data() - line.data(), inner.size());
}

std::optional<Event> EventIn(std::string_view line, const EventColumns& columns) {
  Event event;
  const bool whole = EachField(line, kDialogue.size(), columns.names.size(), [&](std::size_t i, Stretch field) {
    if (i == columns.start) event.start = TrimmedStretch(line, field);
    if (i == columns.end) event.end = TrimmedStretch(line, field);
    if (i == columns.text) event.text = field;
    if (i == columns.style) event.style = TrimmedStretch(line, field);
    if (i == columns.speaker) event.speaker = TrimmedStretch(line, field);
  });
  if (!whole) return {};
  const auto start = ReadClock(event.start.In(line));
  const auto end = ReadClock(event.end.In(line));
  if (!start || !end || start->size != event.start.size || end->size != event.end.size) return {};
  event.startTime = *start;
  event.endTime = *end;
  return event;
}

/// The field of a list with commas; empty where it ends before.
std::string_view FieldAt(std::string_view list, std::size_t index) {
  for (; index > 0; --index) {
    const std::size_t comma = list.find(',');
    if (comma == std::string_view::npos) return {};
    list.remove_prefix(comma + 1);
  }
  return Trimmed(list.substr(0, list.find(',')));
}

int ReadAlignment(std::string_view digits) {
  int number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

/// Some programs put an asterisk in front of the name of a style.
std::string_view StyleName(std::string_view name) { return name.starts_with('*') ? name.substr(1) : name; }

/// Scripts of version 4 have "NTP" where nobody is named.
bool NamesNobody(std::string_view speaker) { return speaker.empty() || speaker == "NTP"; }

/// Lines of the events that are no captions and have a meaning of their own.
bool IsOtherEvent(std::string_view line) {
  for (const std::string_view name : {"Comment:", "Format:", "Picture:", "Sound:", "Movie:", "Command:", ";"}) {
    if (BeginsWith(line, name)) return true;
  }
  return false;
}

Stretch Moved(Stretch field, std::size_t by) { return Stretch::Of(field.at + by, field.size); }

std::string_view DefaultColumns(SubStationVersion version) {
  return version == SubStationVersion::V4 ? kColumnsV4 : kColumnsV4Plus;
}

/// The content of a field of a new event when no neighbour shows one.
std::string_view UsualField(std::string_view column) {
  if (Same(column, "Layer")) return "0";
  if (Same(column, "Marked")) return "Marked=0";
  if (Same(column, "Style")) return "Default";
  if (BeginsWith(column, "Margin")) return "0";
  return {};
}

/// True for a field that tells something of its own event alone, which a new event doesn't take over.
bool BelongsToOne(std::string_view column) {
  return Same(column, "Name") || Same(column, "Actor") || Same(column, "Effect");
}

}  // namespace

EventColumns::EventColumns(std::string_view list) {
  std::size_t at = 0;
  for (;;) {
    const std::size_t comma = list.find(',', at);
    const std::string_view name = Trimmed(list.substr(at, comma == std::string_view::npos ? comma : comma - at));
    const std::size_t place = names.size();
    if (Same(name, "Start")) start = place;
    if (Same(name, "End")) end = place;
    if (Same(name, "Text")) text = place;
    if (Same(name, "Style")) style = place;
    if (Same(name, "Name") || Same(name, "Actor")) speaker = place;
    names.emplace_back(name);
    if (comma == std::string_view::npos) return;
    at = comma + 1;
  }
}

SubStationFormat::SubStationFormat(SubStationVersion version)
    : version_(version),
      columns_(DefaultColumns(version)),
      alignmentColumn_(version == SubStationVersion::V4 ? kAlignmentV4 : kAlignmentV4Plus) {}

void SubStationFormat::ReadStyle(std::string_view line) {
  const std::string_view name = StyleName(Trimmed(line.substr(0, line.find(','))));
  hasStyles_ = true;
  hasDefaultStyle_ = hasDefaultStyle_ || Same(name, "Default");
  const int alignment = ReadAlignment(FieldAt(line, alignmentColumn_));
  const int place = version_ == SubStationVersion::V4 ? PlaceOfOldNumber(alignment) : alignment;
  if (place != kUsualPlace && place >= 1 && place <= kHighestPlace) placed_.emplace_back(name, place);
}

int SubStationFormat::PlaceOfStyle(std::string_view name) const {
  for (const auto& [style, place] : placed_) {
    if (style == StyleName(name)) return place;
  }
  return kUsualPlace;
}

Beside SubStationFormat::BesideOf(const SourceText& text, const SourceRecord& record) const {
  SourceLines lines(record.whole.In(text.bytes));
  SourceLine line;
  if (!lines.Next(line)) return {};
  const auto event = EventIn(line.text, columns_);
  if (!event) return {};
  const std::string_view speaker = event->speaker.In(line.text);
  const int place = PlaceOfStyle(event->style.In(line.text));
  return {NamesNobody(speaker) ? Text() : text.file.Decoded(speaker), place};
}

void SubStationFormat::Read(const SourceText& text, TextView separator, SourceSink& sink) {
  SourceLines lines(text.bytes);
  SourceLine line;
  Section section = Section::Other;
  while (lines.Next(line)) {
    if (const auto begun = SectionAt(line.text, section)) {
      section = *begun;
      continue;
    }
    if (section == Section::Data) continue;
    if (BeginsWith(line.text, kDialogue)) {
      const auto event = EventIn(line.text, columns_);
      if (!event) {
        sink.NotUnderstood(line.at);
        continue;
      }
      SourceRecord record{Stretch::Of(line.at, line.next - line.at),
                          {},
                          Moved(event->start, line.at),
                          Moved(event->end, line.at),
                          Moved(event->text, line.at)};
      tellsBeside_ = tellsBeside_ || !NamesNobody(event->speaker.In(line.text)) ||
                     (!placed_.empty() && PlaceOfStyle(event->style.In(line.text)) != kUsualPlace);
      Text caption = text.Decoded(record.text);
      DecodeEventText(caption, separator, closesWholeStyles_);
      if (!sink.Add(event->startTime.ms, event->endTime.ms, std::move(caption), record)) return;
    } else if (BeginsWith(line.text, "Format:")) {
      EventColumns columns(line.text.substr(7));
      for (std::size_t i = 0; i < columns.names.size(); ++i) {
        if (Same(columns.names[i], "Alignment")) alignmentColumn_ = i;
      }
      if (columns.Complete()) columns_ = std::move(columns);
    } else if (BeginsWith(line.text, "Style:")) {
      ReadStyle(line.text.substr(6));
    } else if (section == Section::Events && !Trimmed(line.text).empty() && !IsOtherEvent(line.text)) {
      sink.NotUnderstood(line.at);
    }
  }
}

std::string SubStationFormat::TimeField(Ms ms, std::string_view old) const { return ClockLike(ms, old); }

Text SubStationFormat::TextField(TextView text, TextView separator, TextView) const {
  return EncodeEventText(text, separator, closesWholeStyles_);
}

Text SubStationFormat::Record(const NewRecord& record, TextView separator) const {
  SourceLines lines(record.neighbour);
  SourceLine line;
  const bool hasNeighbour = lines.Next(line) && EventIn(line.text, columns_);
  std::vector<std::string_view> fields(columns_.names.size());
  if (hasNeighbour) {
    EachField(line.text, kDialogue.size(), fields.size(),
              [&](std::size_t i, Stretch field) { fields[i] = Trimmed(field.In(line.text)); });
  }
  Text result = u"Dialogue: ";
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const std::string& column = columns_.names[i];
    if (i > 0) result += u',';
    if (i == columns_.start || i == columns_.end) {
      const std::string_view form = hasNeighbour ? fields[i] : "0:00:00.00";
      result += FromUtf8(ClockLike(i == columns_.start ? record.caption.start : record.caption.end, form));
    } else if (i == columns_.text) {
      result += TextField(record.caption.text, separator, record.lineEnd);
    } else {
      const bool usual = !hasNeighbour || BelongsToOne(column) || ExamineUtf8(fields[i]) == Utf8Kind::Invalid ||
                         (Same(column, "Style") && (hasDefaultStyle_ || !hasStyles_));
      result += FromUtf8(usual ? UsualField(column) : fields[i]);
    }
  }
  return result.append(record.lineEnd);
}

}  // namespace cuewright
