#include "formats/caption_writers.h"

#include <array>
#include <utility>

#include "core/numbers.h"
#include "formats/text_search.h"

namespace cuewright {
namespace {

constexpr std::size_t kBlock = 1 << 15;
constexpr std::array<TextView, 3> kMarkers = {u"<b>", u"<i>", u"<u>"};

void RemoveMarkers(Text& text) {
  if (text.find(u'<') == Text::npos) return;
  for (const TextView marker : kMarkers) text = ReplaceAll(text, marker, {});
}

/// A literal stretch of the record, and the field behind it.
enum class Field { None, Start, End, Count, Caption };
struct RecordPart {
  Text literal;
  Field field = Field::None;
  Text placeholder;
};

/// The record cut at its placeholders, in their order.
std::vector<RecordPart> CutParts(TextView record, bool counted) {
  struct Mark {
    TextView text;
    Field field;
  };
  std::vector<Mark> marks = {{u"qxmStart", Field::Start}, {u"qxmEnd", Field::End}, {u"qxmCaption", Field::Caption}};
  if (counted) marks.push_back({u"qxmSubCount", Field::Count});
  std::vector<RecordPart> parts;
  std::size_t literal = 0;
  for (std::size_t at = record.find(u"qxm"); at != TextView::npos; at = record.find(u"qxm", at)) {
    std::size_t length = 1;
    for (const Mark& mark : marks) {
      if (!record.substr(at).starts_with(mark.text)) continue;
      length = mark.text.size();
      parts.push_back({Text(record.substr(literal, at - literal)), mark.field, Text(mark.text)});
      literal = at + length;
      break;
    }
    at += length;
  }
  parts.push_back({Text(record.substr(literal)), Field::None, {}});
  return parts;
}

/// Turns captions into lines by the record.
class RecordWriter {
 public:
  RecordWriter(const WriteJob& job, bool plainMarkers)
      : job_(job),
        timecodes_(job.definition, job.identifier == kKaraokeLrc),
        parts_(CutParts(RecordOf(job), !plainMarkers && !job.definition.subCountPicture.empty())),
        plainMarkers_(plainMarkers),
        firstNumber_(job.identifier == kUleadWorkshop ? 0 : 1),
        semicolons_(job.identifier == kCsve) {
    const FormatDefinition& definition = job.definition;
    milliseconds_ = definition.timecodeTemplate == u"ms";
    frames_ = definition.timecodeTemplate == u"ff";
    keepsLines_ = definition.lineBreak == u"[enter]";
    lineBreak_ = definition.lineBreak == u"none" ? Text(u" ") : definition.lineBreak;
  }

  /// The caption's record; valid until the next call.
  TextView Line(Row row) {
    line_.clear();
    for (const RecordPart& part : parts_) {
      line_ += part.literal;
      if (part.field == Field::None) continue;
      // A field that fails leaves its placeholder in the line.
      if (!job_.errors([&] { AppendField(part.field, row); })) line_ += part.placeholder;
    }
    return line_;
  }

 private:
  static TextView RecordOf(const WriteJob& job) {
    TextView record = job.definition.recordText;
    // The CR that ends the record is cut; an empty record has none to cut.
    job.errors([&] { record = Left(record, static_cast<std::ptrdiff_t>(record.size()) - 1); });
    return record;
  }

  void AppendField(Field field, Row row) {
    const Caption& caption = job_.captions.At(row);
    switch (field) {
      case Field::Start:
        return AppendTime(caption.start);
      case Field::End:
        return AppendTime(caption.end);
      case Field::Count:
        AppendNumber(row - 1 + firstNumber_, job_.definition.subCountPicture.size(), line_);
        return;
      case Field::Caption:
        return AppendText(caption.text);
      case Field::None:
        return;
    }
  }

  void AppendTime(std::int32_t ms) {
    if (plainMarkers_ || !(milliseconds_ || frames_)) {
      timecodes_.Append(ms, job_.fps, line_);
    } else {
      AppendNumber(milliseconds_ ? ms : MsToFrames(ms, job_.fps), 1, line_);
    }
  }

  void AppendText(TextView stored) {
    const Text& separator = job_.captions.Options().LineSeparator;
    const bool asTheyStand = plainMarkers_ || keepsLines_;
    if (!semicolons_ && !HoldsEither(stored, u'<', u'\r')) {
      AppendReplaced(stored, separator, asTheyStand ? kLineEnd : TextView(lineBreak_));
      return;
    }
    text_ = ReplaceAll(stored, separator, kLineEnd);
    if (plainMarkers_) {
      RemoveMarkers(text_);
    } else {
      if (semicolons_) Exchange(text_, u";", u",");
      MarkersToTags();
      if (!keepsLines_) Exchange(text_, kLineEnd, lineBreak_);
    }
    line_ += text_;
  }

  void AppendReplaced(TextView text, TextView from, TextView to) {
    std::size_t at = 0;
    if (!from.empty()) {
      for (std::size_t hit = FindCharacter(text, from.front()); hit != TextView::npos;
           hit = FindCharacter(text, from.front(), hit)) {
        if (!text.substr(hit).starts_with(from)) {
          ++hit;
          continue;
        }
        line_.append(text, at, hit - at).append(to);
        at = hit = hit + from.size();
      }
    }
    line_.append(text, at);
  }

  void MarkersToTags() {
    if (text_.find(u'<') == Text::npos) return;
    const FormatDefinition& definition = job_.definition;
    if (definition.tagFlags == 0) return RemoveMarkers(text_);
    for (const TextView marker : kMarkers) {
      if (FindLoose(text_, marker) == TextView::npos) continue;
      const TextView letter = marker.substr(1, 1);
      text_ = ReplaceAll(text_, marker, ReplaceAll(definition.tagOpen, u"b", letter));
      text_ += ReplaceAll(definition.tagClose, u"b", letter);
    }
  }

  const WriteJob& job_;
  TimecodeWriter timecodes_;
  std::vector<RecordPart> parts_;
  bool plainMarkers_;
  int firstNumber_;
  bool semicolons_;
  bool milliseconds_ = false;
  bool frames_ = false;
  bool keepsLines_ = false;
  Text lineBreak_;
  Text line_;
  Text text_;
};

}  // namespace

void LineSink::WriteLine(TextView line) {
  codec_.Encode(line, held_);
  held_ += lineEnd_;
  if (held_.size() >= kBlock) Flush();
}

void LineSink::Flush() {
  sink_.Write(held_);
  held_.clear();
}

void WritePlainText(const WriteJob& job, LineSink& sink) {
  for (Row row = 1; row < job.captions.Rows(); ++row) sink.WriteLine(job.captions.At(row).text);
}

void WriteTmPlayer(const WriteJob& job, LineSink& sink) {
  const TimecodeWriter timecodes(job.definition, job.identifier == kKaraokeLrc);
  const auto row = [&](std::int32_t ms, TextView number) {
    Text text;
    job.errors([&] { timecodes.Append(ms, 0, text); });
    return text.append(u",").append(number).append(u"=");
  };
  for (Row at = 1; at <= job.lastRow && job.captions.InRange(at); ++at) {
    const std::int32_t start = job.captions.GetCaptionStart(at);
    const std::int32_t end = job.captions.GetCaptionEnd(at);
    Text text = job.captions.GetCaptionText(at, true);
    RemoveMarkers(text);
    Text line = row(start, u"1") + text;
    const Text second = Text(kLineEnd) + row(start, u"2");
    if (text.find(kLineEnd) != Text::npos) {
      line = ReplaceAll(line, kLineEnd, second);
    } else {
      line += second;
    }
    line += kLineEnd;
    line += row(end, u"1");
    line += kLineEnd;
    line += row(end, u"2");
    sink.WriteLine(line);
  }
}

void WriteEncore(const WriteJob& job, const Encodings& encodings, bool classic, LineSink& sink) {
  RecordWriter writer(job, true);
  for (Row row = 1; row <= job.lastRow && job.captions.InRange(row); ++row) {
    const TextView line = writer.Line(row);
    Text bare;
    if (line.find(u'\0') != TextView::npos) bare = ReplaceAll(line, TextView(u"\0", 1), {});
    const TextView shown = bare.empty() ? line : TextView(bare);
    sink.WriteLine(classic ? encodings.EncodeUtf8Line(shown) : Text(shown));
  }
}

void WriteTemplate(const WriteJob& job, LineSink& sink) {
  RecordWriter writer(job, false);
  if (!IsBlank(job.definition.headerText)) sink.WriteLine(job.definition.headerText);
  for (Row row = 1; row <= job.lastRow && job.captions.InRange(row); ++row) {
    if (!IsBlank(job.captions.At(row).text)) sink.WriteLine(writer.Line(row));
  }
  if (!IsBlank(job.definition.footerText)) sink.WriteLine(job.definition.footerText);
}

}  // namespace cuewright
