#include <algorithm>

#include "formats/line_parsers.h"
#include "formats/utf8.h"

namespace cuewright {
namespace {

constexpr std::size_t kTimeLength = 12;
constexpr std::string_view kArrowBytes = " --> ";
constexpr TextView kArrow = u" --> ";
/// Room for a line of text, in units; a longer one is decoded apart.
constexpr std::size_t kUsualLine = 512;

class SubRipParser final : public LineParser {
 public:
  explicit SubRipParser(const ParseContext& context) : context_(context), reader_(context.definition) {}

  void Parse(ImportLine& line) override {
    CaptionCollector& captions = context_.captions;
    if (line.Empty()) {
      if (captions.TimesSet()) captions.FlushImportedCaption();
      return;
    }
    if (!ReadTimes(line.View()) && captions.TimesSet()) captions.AddLine(line.View());
  }

  void ParseRun(TextFile& file) override {
    CaptionCollector& captions = context_.captions;
    if (captions.ImportedCount() % kYieldEvery == 0) return;
    TakeText();
    while (captions.ImportedCount() % kYieldEvery != 0) {
      const std::string_view rest = file.Rest();
      if (rest.empty() || text_.Size() > CaptionCollector::kMostText) break;
      if (captions.TimesSet()) {
        ParseTextLine(file, rest);
      } else if (const std::size_t length = SettledLength(rest, file.LineEnd()); length != 0) {
        file.SkipLine(length);
      } else {
        ParseAnyLine(file);
      }
    }
    GiveText();
  }

 private:
  // During a run the text lies in a buffer of the parser's own, into which lines are decoded directly.
  void TakeText() {
    Text& text = context_.captions.captionText;
    std::copy(text.begin(), text.end(), text_.Room(text.size()));
    text_.SetSize(text.size());
    angled_ = !text.empty();
    text.clear();
  }
  void GiveText() { context_.captions.captionText = text_.View(); }

  /// What `Parse` does, for lines with something special about them.
  void ParseAnyLine(TextFile& file) {
    if (!line_.Next(file, nullptr)) return;
    if (line_.Empty()) {
      if (context_.captions.TimesSet()) Flush();
    } else if (!ReadTimes(line_.View()) && context_.captions.TimesSet()) {
      AddLine(line_.View());
    }
  }

  void AddLine(TextView line) {
    const Text& separator = context_.captions.Separator();
    std::size_t size = text_.Size();
    char16_t* const room = text_.Room(size + separator.size() + line.size(), size);
    if (size != 0) size += separator.copy(room + size, separator.size());
    size += line.copy(room + size, line.size());
    text_.SetSize(size);
    angled_ = true;
  }

  /// Length of a line that is a counter or a plain timing line, which is then taken; 0 for any other.
  std::size_t SettledLength(std::string_view rest, char lineEnd) {
    std::size_t digits = 0;
    while (digits < rest.size() && rest[digits] >= '0' && rest[digits] <= '9') ++digits;
    if (digits == rest.size() || rest[digits] == lineEnd) return digits;
    constexpr std::size_t kLength = 2 * kTimeLength + kArrowBytes.size();
    if (rest.size() <= kLength || rest[kLength] != lineEnd) return 0;
    return ParseTimes(rest.substr(0, kLength)) ? kLength : 0;
  }

  /// A line while a caption is open, most of the time its text or the empty line behind it.
  void ParseTextLine(TextFile& file, std::string_view rest) {
    if (rest.front() == file.LineEnd()) {
      file.SkipLine(0);
      return Flush();
    }
    const Text& separator = context_.captions.Separator();
    const std::size_t old = text_.Size();
    std::size_t place = old;
    char16_t* const room = text_.Room(old + separator.size() + kUsualLine, old);
    if (old != 0) place += separator.copy(room + old, separator.size());
    const LineScan scan = WidenLine(rest, file.LineEnd(), room + place, text_.Capacity() - 16 - place);
    const std::string_view bytes = rest.substr(0, scan.length);
    if (bytes.front() == ' ' || bytes.back() == ' ' || scan.length > kLongestLine) return ParseAnyLine(file);
    std::size_t units = scan.ascii;
    char16_t* line = room + place;
    if (scan.ascii != scan.length) {
      line = text_.Room(place + scan.length, place + scan.ascii) + place;
      units += file.DecodeTo(bytes.substr(scan.ascii), line + scan.ascii);
    }
    if (TextView(line, units).substr(std::min(units, kTimeLength), kArrow.size()) == kArrow) return ParseAnyLine(file);
    text_.SetSize(place + units);
    angled_ = angled_ || scan.angled;
    file.SkipLine(scan.length);
  }

  void Flush() {
    if (angled_) {
      GiveText();
      context_.captions.FlushImportedCaption();
    } else {
      context_.captions.FlushPlain(text_.View());
    }
    text_.SetSize(0);
    angled_ = false;
  }

  /// A timing line without anything behind the times.
  bool ParseTimes(std::string_view bytes) {
    if (context_.fps != 0 || bytes.substr(kTimeLength, kArrowBytes.size()) != kArrowBytes) return false;
    std::int32_t start = 0;
    std::int32_t end = 0;
    if (!reader_.ParseClock(bytes.substr(0, kTimeLength), start)) return false;
    if (!reader_.ParseClock(bytes.substr(bytes.size() - kTimeLength), end)) return false;
    context_.captions.captionStart = start;
    context_.captions.captionEnd = end;
    return true;
  }

  /// Takes the times of a line with the arrow behind its first 12 characters; false for any other.
  bool ReadTimes(TextView text) {
    if (text.substr(std::min(text.size(), kTimeLength), kArrow.size()) != kArrow) return false;
    CaptionCollector& captions = context_.captions;
    context_.errors([&] { captions.captionStart = reader_.Parse(text.substr(0, kTimeLength), context_.fps); });
    context_.errors([&] { captions.captionEnd = reader_.Parse(text.substr(text.size() - kTimeLength), context_.fps); });
    return true;
  }

  ParseContext context_;
  TimecodeReader reader_;
  ImportLine line_;  // of the parser's own reading
  LineBuffer text_;
  bool angled_ = false;  // it may hold a "<"
};

}  // namespace

std::unique_ptr<LineParser> MakeSubRipParser(const ParseContext& context) {
  return std::make_unique<SubRipParser>(context);
}

}  // namespace cuewright
