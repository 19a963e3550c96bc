#include "formats/caption_writers.h"

#include <algorithm>
#include <utility>

#include "core/numbers.h"
#include "core/style_markers.h"
#include "formats/fast/scan.h"
#include "formats/rate_line.h"
#include "formats/text_pieces.h"
#include "text/text_search.h"
#include "text/utf8.h"

namespace cuewright {
namespace {

constexpr std::size_t kBlock = 1 << 16;

/// A literal stretch of the record, and the field behind it.
enum class Field { None, Start, End, Count, Beside, Caption };
struct RecordPart {
  Text literal;
  Field field = Field::None;
  Text placeholder;
  std::string literalBytes;
};

/// The record cut at its placeholders, in their order.
std::vector<RecordPart> CutParts(TextView record, bool counted, bool beside) {
  struct Mark {
    TextView text;
    Field field;
  };
  std::vector<Mark> marks = {{u"qxmStart", Field::Start}, {u"qxmEnd", Field::End}, {u"qxmCaption", Field::Caption}};
  if (counted) marks.push_back({u"qxmSubCount", Field::Count});
  if (beside) marks.push_back({kBesideField, Field::Beside});
  std::vector<RecordPart> parts;
  std::size_t literal = 0;
  for (std::size_t at = record.find(u"qxm"); at != TextView::npos; at = record.find(u"qxm", at)) {
    std::size_t length = 1;
    for (const Mark& mark : marks) {
      if (!record.substr(at).starts_with(mark.text)) continue;
      length = mark.text.size();
      parts.push_back({Text(record.substr(literal, at - literal)), mark.field, Text(mark.text), {}});
      literal = at + length;
      break;
    }
    at += length;
  }
  parts.push_back({Text(record.substr(literal)), Field::None, {}, {}});
  return parts;
}

/// Turns captions into lines by the record.
class RecordWriter {
 public:
  RecordWriter(const WriteJob& job, bool plainMarkers, LineSink& sink)
      : job_(job),
        sink_(sink),
        timecodes_(job.definition, job.identifier == kKaraokeLrc, job.times),
        parts_(
            CutParts(RecordOf(job), !plainMarkers && !job.definition.subCountPicture.empty(), job.beside != nullptr)),
        plainMarkers_(plainMarkers),
        firstNumber_(job.identifier == kUleadWorkshop ? 0 : 1),
        semicolons_(job.identifier == kCsve) {
    const FormatDefinition& definition = job.definition;
    milliseconds_ = definition.timecodeTemplate == u"ms";
    frames_ = definition.timecodeTemplate == u"ff";
    keepsLines_ = definition.lineBreak == u"[enter]";
    lineBreak_ = definition.lineBreak == u"none" ? Text(u" ") : definition.lineBreak;
    breakBytes_ = sink.Encoded(plainMarkers || keepsLines_ ? kLineEnd : TextView(lineBreak_));
    for (RecordPart& part : parts_) part.literalBytes = sink.Encoded(part.literal);
  }

  /// Puts the caption's record, without a line end.
  void Put(Row row) {
    for (const RecordPart& part : parts_) {
      sink_.PutBytes(part.literalBytes);
      if (part.field == Field::None) continue;
      // A field that fails leaves its placeholder in the line.
      if (!job_.errors([&] { PutField(part.field, row); })) sink_.Put(part.placeholder);
    }
  }

 private:
  static TextView RecordOf(const WriteJob& job) {
    TextView record = job.definition.recordText;
    // The CR that ends the record is cut; an empty record has none to cut.
    job.errors([&] { record = Beginning(record, record.size() - 1); });
    return record;
  }

  void PutField(Field field, Row row) {
    const Caption& caption = job_.captions.At(row);
    switch (field) {
      case Field::Start:
        return PutTime(caption.start);
      case Field::End:
        return PutTime(caption.end);
      case Field::Count:
        if (sink_.KeepsAscii()) {
          const std::size_t digits = job_.definition.subCountPicture.size();
          return sink_.Advance(PutNumberBytes((row - 1 + firstNumber_).Number(), digits, sink_.Room(kLongestNumber)));
        }
        field_.clear();
        AppendNumber((row - 1 + firstNumber_).Number(), job_.definition.subCountPicture.size(), field_);
        return sink_.Put(field_);
      case Field::Beside:
        return sink_.Put(job_.beside->FieldOf(row));
      case Field::Caption:
        return PutText(caption.text);
      case Field::None:
        return;
    }
  }

  void PutTime(Ms ms) {
    const bool clock = plainMarkers_ || !(milliseconds_ || frames_);
    if (sink_.KeepsAscii() && (!clock || timecodes_.IsAscii())) {
      const std::span<char> to = sink_.Room(clock ? timecodes_.Longest() : kLongestNumber);
      return sink_.Advance(clock ? timecodes_.PutBytes(ms, to)
                                 : PutNumberBytes(milliseconds_ ? ms.Count() : MsToFrames(ms, job_.times), 1, to));
    }
    field_.clear();
    if (plainMarkers_ || !(milliseconds_ || frames_)) {
      timecodes_.Append(ms, field_);
    } else {
      AppendNumber(milliseconds_ ? ms.Count() : MsToFrames(ms, job_.times), 1, field_);
    }
    sink_.Put(field_);
  }

  void PutText(TextView stored) {
    const Text& separator = job_.captions.Options().lineSeparator;
    if (job_.textsAreWritten && !semicolons_) return PutLines(stored, separator);
    if (sink_.IsUtf8() && !plainMarkers_ && !semicolons_ && PutUtf8(stored, separator)) return;
    if (!semicolons_ && HeldOf(stored, u'<', u'\r', plainMarkers_ ? u'\0' : u'<') == 0) {
      PutLines(stored, separator);
      return;
    }
    text_ = ReplaceAll(stored, separator, kLineEnd);
    if (plainMarkers_) {
      text_ = WithoutStyleMarkers(std::move(text_));
      Exchange(text_, TextView(u"\0", 1), {});
    } else {
      if (semicolons_) Exchange(text_, u";", u",");
      const bool everyLine =
          job_.times.exact && StylesLineByLine(job_.identifier) && text_.find(kLineEnd) != Text::npos;
      text_ = WithTagsOfRecord(std::move(text_), job_.definition, everyLine ? TagsCover::EveryLine : TagsCover::Record);
      if (!keepsLines_) Exchange(text_, kLineEnd, lineBreak_);
    }
    sink_.Put(text_);
  }

  /// Puts a text without markers and line ends, with the format's line breaks for its separators; false, with nothing
  /// put, for any other text.
  bool PutUtf8(TextView text, TextView separator) {
    if (separator.empty() || separator.front() >= 0x80) return false;
    const Stops stops{u'<', u'\r', separator.front()};
    const std::size_t before = sink_.Size();
    std::size_t at = 0;
    for (;;) {
      const TextView rest = text.substr(at);
      const EncodedPart part = EncodeUtf8Until(rest, stops, sink_.Room(EncodedRoom(rest.size())));
      sink_.Advance(part.bytes);
      at += part.units;
      if (at == text.size()) return true;
      if (text[at] == u'<' || text[at] == u'\r') break;
      if (text.substr(at).starts_with(separator)) {
        sink_.PutBytes(breakBytes_);
        at += separator.size();
      } else {
        sink_.Put(text.substr(at++, 1));
      }
    }
    sink_.Cut(before);
    return false;
  }

  /// Puts the pieces between the separators, with the format's line break between them.
  void PutLines(TextView text, TextView separator) {
    std::size_t at = 0;
    if (!separator.empty()) {
      for (std::size_t hit = FindCharacter(text, separator.front()); hit != TextView::npos;
           hit = FindCharacter(text, separator.front(), hit)) {
        if (!text.substr(hit).starts_with(separator)) {
          ++hit;
          continue;
        }
        sink_.Put(text.substr(at, hit - at));
        sink_.PutBytes(breakBytes_);
        at = hit = hit + separator.size();
      }
    }
    sink_.Put(text.substr(at));
  }

  const WriteJob& job_;
  LineSink& sink_;
  TimecodeWriter timecodes_;
  std::vector<RecordPart> parts_;
  bool plainMarkers_;
  int firstNumber_;
  bool semicolons_;
  bool milliseconds_ = false;
  bool frames_ = false;
  bool keepsLines_ = false;
  Text lineBreak_;
  std::string breakBytes_;
  Text field_;
  Text text_;
};

/// Bytes that stay in memory.
struct MemorySink final : ByteSink {
  void Write(std::string_view more) override { bytes += more; }
  std::string bytes;
};

}  // namespace

LineSink::LineSink(ByteSink& sink, const Codec& codec)
    : sink_(sink), codec_(codec), utf8_(codec.IsUtf8()), lineEnd_(codec.Encoded(kLineEnd)) {}

void LineSink::Grow(std::size_t count) {
  const std::size_t capacity = std::max(size_ + count, 2 * kBlock);
  auto held = std::make_unique_for_overwrite<char[]>(capacity);
  std::copy_n(held_.get(), size_, held.get());
  held_ = std::move(held);
  capacity_ = capacity;
}

void LineSink::Put(TextView text) {
  if (utf8_) {
    size_ += EncodeUtf8(text, Room(EncodedRoom(text.size())));
    return;
  }
  scratch_.clear();
  codec_.Encode(text, scratch_);
  PutBytes(scratch_);
}

void LineSink::EndLine() {
  PutBytes(lineEnd_);
  if (size_ < kBlock) return;
  // Whole blocks, so that no page of the file is written in two pieces.
  sink_.Write({held_.get(), kBlock});
  size_ -= kBlock;
  std::copy_n(held_.get() + kBlock, size_, held_.get());
}

void LineSink::Flush() {
  if (size_ != 0) sink_.Write({held_.get(), size_});
  size_ = 0;
}

bool StylesLineByLine(TextView identifier) { return identifier == kMicroDvd; }

Text WithTagsOfRecord(Text text, const FormatDefinition& definition, TagsCover cover) {
  if (text.find(u'<') == Text::npos) return text;
  if (definition.tagFlags == 0) return WithoutStyleMarkers(std::move(text));
  for (const TextView marker : kStyleMarkers) {
    if (FindLoose(text, marker) == TextView::npos) continue;
    const TextView letter = marker.substr(1, 1);
    Text open = ReplaceAll(definition.tagOpen, u"b", letter);
    // A small letter styles one line of MicroDVD, a capital one all of them.
    if (cover == TagsCover::EveryLine) open = ReplaceFirst(open, u"y", u"Y");
    text = ReplaceAll(text, marker, open);
    text += ReplaceAll(definition.tagClose, u"b", letter);
  }
  return text;
}

void WritePlainText(const WriteJob& job, LineSink& sink) {
  for (Row row = 1; row < job.captions.Rows(); ++row) sink.WriteLine(job.captions.At(row).text);
}

void WriteTmPlayer(const WriteJob& job, LineSink& sink) {
  const TimecodeWriter timecodes(job.definition, job.identifier == kKaraokeLrc, {{}, job.times.exact});
  const auto row = [&](Ms ms, TextView number) {
    Text text;
    job.errors([&] { timecodes.Append(ms, text); });
    return text.append(u",").append(number).append(u"=");
  };
  for (Row at = 1; at <= job.lastRow && job.captions.InRange(at); ++at) {
    const Ms start = job.captions.GetCaptionStart(at);
    const Ms end = job.captions.GetCaptionEnd(at);
    const Text text = WithoutStyleMarkers(job.captions.GetCaptionText(at, true));
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
  if (!classic) {
    RecordWriter writer(job, true, sink);
    for (Row row = 1; row <= job.lastRow && job.captions.InRange(row); ++row) {
      writer.Put(row);
      sink.EndLine();
    }
    return;
  }
  MemorySink memory;
  const std::shared_ptr<const Codec> utf8 = MakeCodec(kCodePageUtf8);
  LineSink lines(memory, *utf8);
  RecordWriter writer(job, true, lines);
  for (Row row = 1; row <= job.lastRow && job.captions.InRange(row); ++row) {
    writer.Put(row);
    lines.Flush();
    // In the classic manner the UTF-8 bytes of the line are taken for text of the system's code page and encoded once
    // more.
    sink.WriteLine(encodings.SystemCodec()->Decoded(memory.bytes));
    memory.bytes.clear();
  }
}

void WriteTemplate(const WriteJob& job, LineSink& sink) {
  RecordWriter writer(job, false, sink);
  if (job.times.exact && job.times.rate && job.identifier == kMicroDvd) {
    if (const Text line = LineOfRate(job.times.rate); !line.empty()) sink.WriteLine(line);
  }
  if (!IsBlank(job.definition.headerText)) sink.WriteLine(job.definition.headerText);
  for (Row row = 1; row <= job.lastRow && job.captions.InRange(row); ++row) {
    if (IsBlank(job.captions.At(row).text)) continue;
    writer.Put(row);
    sink.EndLine();
  }
  if (!IsBlank(job.definition.footerText)) sink.WriteLine(job.definition.footerText);
}

}  // namespace cuewright
