#include <algorithm>

#include "formats/line_parsers.h"
#include "formats/text_run.h"

namespace cuewright {
namespace {

constexpr std::size_t kTimeLength = 12;
constexpr std::string_view kArrowBytes = " --> ";
constexpr TextView kArrow = u" --> ";

class SubRipParser final : public LineParser {
 public:
  explicit SubRipParser(const ParseContext& context)
      : context_(context), reader_(context.definition), text_(context.captions) {}

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
    text_.Begin();
    while (captions.ImportedCount() % kYieldEvery != 0) {
      const std::string_view rest = file.Rest();
      if (rest.empty() || text_.Full() || captions.Full()) break;
      if (captions.TimesSet()) {
        ParseTextLine(file, rest);
      } else if (const std::size_t length = SettledLength(rest, file.LineEnd()); length != 0) {
        file.SkipLine(length);
      } else {
        ParseAnyLine(file);
      }
    }
    text_.End();
  }

 private:
  /// What `Parse` does, for lines with something special about them.
  void ParseAnyLine(TextFile& file) {
    if (!line_.Next(file, nullptr)) return;
    if (line_.Empty()) {
      if (context_.captions.TimesSet()) text_.Flush();
    } else if (!ReadTimes(line_.View()) && context_.captions.TimesSet()) {
      text_.AddLine(line_.View());
    }
  }

  /// Length of a line that is a counter or a plain timing line, which is then taken; 0 for any other.
  std::size_t SettledLength(std::string_view rest, char lineEnd) {
    std::size_t digits = 0;
    while (digits < rest.size() && rest[digits] >= '0' && rest[digits] <= '9') ++digits;
    if (digits > kLongestLine) return 0;  // it is told that such a line was cut
    if (digits == rest.size() || rest[digits] == lineEnd) return digits;
    constexpr std::size_t kLength = 2 * kTimeLength + kArrowBytes.size();
    if (rest.size() <= kLength || rest[kLength] != lineEnd) return 0;
    return ParseTimes(rest.substr(0, kLength)) ? kLength : 0;
  }

  /// A line while a caption is open, most of the time its text or the empty line behind it.
  void ParseTextLine(TextFile& file, std::string_view rest) {
    if (rest.front() == file.LineEnd()) {
      file.SkipLine(0);
      return text_.Flush();
    }
    const LineScan scan = text_.Look(rest, file.LineEnd(), {text_.TagMark()});
    if (rest.front() == ' ' || rest[scan.length - 1] == ' ' || scan.length > kLongestLine) return ParseAnyLine(file);
    const TextView line = text_.Decode(file, rest, scan);
    if (line.substr(std::min(line.size(), kTimeLength), kArrow.size()) == kArrow) return ParseAnyLine(file);
    text_.Take(scan.angled || scan.markedA);
    file.SkipLine(scan.length);
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
  TextRun text_;
};

}  // namespace

std::unique_ptr<LineParser> MakeSubRipParser(const ParseContext& context) {
  return std::make_unique<SubRipParser>(context);
}

}  // namespace cuewright
