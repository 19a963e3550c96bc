#include <array>

#include "formats/line_parsers.h"
#include "formats/utf8.h"

namespace cuewright {
namespace {

constexpr std::size_t kTimeLength = 12;
constexpr std::string_view kArrowBytes = " --> ";
constexpr TextView kArrow = u" --> ";

class SubRipParser final : public LineParser {
 public:
  explicit SubRipParser(const ParseContext& context) : context_(context), reader_(context.definition) {}

  void Parse(ImportLine& line) override {
    CaptionCollector& captions = context_.captions;
    if (line.Empty()) {
      if (captions.TimesSet()) captions.FlushImportedCaption();
      return;
    }
    if (line.HasBytes() && ParseBytes(line.Bytes())) return;
    const TextView text = line.View();
    if (text.size() >= kTimeLength + kArrow.size() && text.substr(kTimeLength, kArrow.size()) == kArrow) {
      ReadTimes(text.substr(0, kTimeLength), text.substr(text.size() - kTimeLength));
    } else if (captions.TimesSet()) {
      captions.AddLine(text);
    }
  }

 private:
  /// True when the bytes alone settled the line.
  bool ParseBytes(std::string_view bytes) {
    if (!IsAscii(bytes.substr(0, kTimeLength + kArrowBytes.size()))) return false;
    if (bytes.size() < kTimeLength || bytes.substr(kTimeLength, kArrowBytes.size()) != kArrowBytes) {
      return !context_.captions.TimesSet();  // a counter, or text that nobody waits for
    }
    if (!IsAscii(bytes)) return false;
    std::array<char16_t, 2 * kTimeLength + 32> room;
    WidenAscii(bytes.substr(0, kTimeLength), room.data());
    WidenAscii(bytes.substr(bytes.size() - kTimeLength), room.data() + kTimeLength);
    ReadTimes({room.data(), kTimeLength}, {room.data() + kTimeLength, kTimeLength});
    return true;
  }

  void ReadTimes(TextView start, TextView end) {
    CaptionCollector& captions = context_.captions;
    context_.errors([&] { captions.captionStart = reader_.Parse(start, context_.fps); });
    context_.errors([&] { captions.captionEnd = reader_.Parse(end, context_.fps); });
  }

  ParseContext context_;
  TimecodeReader reader_;
};

}  // namespace

std::unique_ptr<LineParser> MakeSubRipParser(const ParseContext& context) {
  return std::make_unique<SubRipParser>(context);
}

}  // namespace cuewright
