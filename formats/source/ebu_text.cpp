#include "formats/source/ebu_text.h"

#include <algorithm>
#include <array>

#include "formats/source/markup_reader.h"
#include "text/iso6937.h"
#include "text/units.h"

namespace cuewright {
namespace {

constexpr unsigned char kItalicOn = 0x80;
constexpr unsigned char kItalicOff = 0x81;
constexpr unsigned char kUnderlineOn = 0x82;
constexpr unsigned char kUnderlineOff = 0x83;
constexpr unsigned char kNewLine = 0x8A;
constexpr unsigned char kDoubleHeight = 0x0D;
constexpr unsigned char kWhite = 7;

constexpr std::array<std::uint32_t, 8> kColours = {0x000000, 0xFF0000, 0x00FF00, 0xFFFF00,
                                                   0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};

/// A code of teletext that is no colour: heights, boxes, backgrounds.
bool IsOtherCode(char c) { return ByteOf(c) >= kColours.size() && ByteOf(c) < 0x20; }
bool IsLetter(char c) { return ByteOf(c) >= 0x20 && (ByteOf(c) < 0x7F || ByteOf(c) >= 0xA0); }

Text Letters(std::string_view bytes, const EbuTexts& texts) {
  return texts.codec ? texts.codec->Decoded(bytes) : FromIso6937(bytes);
}

/// Reads a field line by line.
class FieldReader {
 public:
  FieldReader(const EbuTexts& texts, TextView separator, StyledText& result)
      : texts_(texts), separator_(separator), runs_(result, {}, nullptr) {}

  void ReadLine(std::string_view line) {
    runs_.style.colour.reset();
    // A code takes a place on the screen, which is a blank between two words and nothing around the line.
    bool blank = false;
    bool begun = false;
    for (std::size_t at = 0; at < line.size();) {
      if (!IsLetter(line[at]) || line[at] == ' ') {
        blank = blank || line[at] == ' ' || ByteOf(line[at]) < 0x20;
        if (line[at] != ' ') Code(ByteOf(line[at]));
        ++at;
        continue;
      }
      std::size_t end = at;
      while (end < line.size() && IsLetter(line[end]) && line[end] != ' ') ++end;
      if (!begun && anyLine_) AppendBetween(separator_);
      if (begun && blank) AppendBetween(u" ");
      begun = anyLine_ = true;
      blank = false;
      last_ = runs_.style;
      runs_.Append(Letters(line.substr(at, end - at), texts_));
      at = end;
    }
  }

 private:
  /// A blank between two words has the style that both have, or none where they differ.
  void AppendBetween(TextView text) {
    const RunStyle style = runs_.style;
    if (!(style == last_)) runs_.style = {};
    runs_.Append(text);
    runs_.style = style;
  }

  void Code(unsigned char code) {
    if (code == kItalicOn || code == kItalicOff) runs_.style.italic = code == kItalicOn;
    if (code == kUnderlineOn || code == kUnderlineOff) runs_.style.underline = code == kUnderlineOn;
    if (code >= kColours.size()) return;
    runs_.style.colour.reset();
    if (code != kWhite) runs_.style.colour = kColours[code];
  }

  const EbuTexts& texts_;
  TextView separator_;
  RunBuilder runs_;
  RunStyle last_;  // the style of the word in front
  bool anyLine_ = false;
};

unsigned char NearestColour(std::uint32_t colour) {
  unsigned char code = 0;
  if ((colour >> 16 & 0xFF) >= 0x80) code |= 1;
  if ((colour >> 8 & 0xFF) >= 0x80) code |= 2;
  if ((colour & 0xFF) >= 0x80) code |= 4;
  return code;
}

/// The codes around each line of a field and between two lines.
struct LineForm {
  std::string front;
  std::string back;
  std::string between;
};

LineForm FormOf(std::string_view old, bool teletext) {
  LineForm form;
  const std::size_t end = std::min(old.find(LowByte(kNewLine)), old.size());
  const std::string_view line = old.substr(0, end);
  for (const char c : line) {
    if (!IsOtherCode(c)) break;
    form.front += c;
  }
  for (std::size_t at = line.size(); at > form.front.size() && IsOtherCode(line[at - 1]); --at) {
    form.back.insert(form.back.begin(), line[at - 1]);
  }
  std::size_t breaks = 0;
  while (end + breaks < old.size() && ByteOf(old[end + breaks]) == kNewLine) ++breaks;
  const bool high = form.front.find(LowByte(kDoubleHeight)) != std::string::npos;
  if (breaks == 0) breaks = teletext && high ? 2 : 1;
  form.between.assign(breaks, LowByte(kNewLine));
  return form;
}

/// Writes runs with their codes.
class FieldWriter {
 public:
  FieldWriter(LineForm form, const EbuTexts& texts) : form_(std::move(form)), texts_(texts), out_(form_.front) {}

  void Put(TextView text, const RunStyle& style) {
    if (text.empty()) return;
    Switch(style.italic, italic_, kItalicOn, kItalicOff);
    Switch(style.underline, underline_, kUnderlineOn, kUnderlineOff);
    if (texts_.teletext) Colour(style.colour ? NearestColour(*style.colour) : kWhite);
    held = (texts_.codec ? texts_.codec->Encode(text, out_) : AppendIso6937(text, out_)) && held;
  }

  void NewLine() {
    out_ += form_.back + form_.between + form_.front;
    colour_ = kWhite;
  }

  std::string Finish() {
    Switch(false, italic_, kItalicOn, kItalicOff);
    Switch(false, underline_, kUnderlineOn, kUnderlineOff);
    return std::move(out_) + form_.back;
  }

  bool held = true;

 private:
  void Switch(bool on, bool& state, unsigned char start, unsigned char stop) {
    if (on == state) return;
    out_ += LowByte(on ? start : stop);
    state = on;
  }
  void Colour(unsigned char colour) {
    if (colour == colour_) return;
    // The code stands in the place of a blank where there is one.
    if (out_.ends_with(' ')) out_.pop_back();
    out_ += LowByte(colour);
    colour_ = colour;
  }

  LineForm form_;
  const EbuTexts& texts_;
  std::string out_;
  bool italic_ = false;
  bool underline_ = false;
  unsigned char colour_ = kWhite;
};

}  // namespace

std::shared_ptr<const Codec> CodecOfEbuTable(int table) {
  // The Cyrillic part of ISO 8859 is the first of those that follow each other.
  constexpr int kCyrillic = 28595;
  constexpr int kTables = 4;
  return table >= 1 && table <= kTables ? MakeCodec(kCyrillic + table - 1) : nullptr;
}

StyledText ReadEbuText(std::string_view field, const EbuTexts& texts, TextView separator) {
  StyledText result;
  FieldReader reader(texts, separator, result);
  for (std::size_t at = 0; at <= field.size();) {
    const std::size_t end = std::min(field.find(LowByte(kNewLine), at), field.size());
    reader.ReadLine(field.substr(at, end - at));
    at = end + 1;
  }
  return result;
}

std::string WriteEbuText(const std::vector<StyledRun>& runs, std::string_view old, const EbuTexts& texts,
                         TextView separator, bool& held) {
  FieldWriter writer(FormOf(old, texts.teletext), texts);
  for (const StyledRun& run : runs) {
    const std::vector<Text> lines = Split(run.text, separator);
    for (std::size_t i = 0; i < lines.size(); ++i) {
      if (i > 0) writer.NewLine();
      writer.Put(lines[i], run.style);
    }
  }
  std::string field = writer.Finish();
  held = writer.held;
  return field;
}

}  // namespace cuewright
