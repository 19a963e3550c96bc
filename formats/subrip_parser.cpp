#include <algorithm>

#include "formats/line_parsers.h"

namespace cuewright {
namespace {

constexpr std::size_t kTimeLength = 12;
constexpr TextView kArrow = u" --> ";

class SubRipParser final : public LineParser {
 public:
  explicit SubRipParser(const ParseContext& context) : context_(context), reader_(context.definition, context.times) {}

  void Parse(ImportLine& line) override {
    CaptionCollector& captions = context_.captions;
    if (line.Empty()) {
      if (captions.TimesSet()) captions.FlushImportedCaption();
      return;
    }
    if (!ReadTimes(line.View()) && captions.TimesSet()) captions.AddLine(line.View());
  }

 private:
  /// Takes the times of a line with the arrow behind its first 12 characters; false for any other.
  bool ReadTimes(TextView text) {
    if (text.substr(std::min(text.size(), kTimeLength), kArrow.size()) != kArrow) return false;
    CaptionCollector& captions = context_.captions;
    context_.errors([&] { captions.captionStart = reader_.Parse(text.substr(0, kTimeLength)); });
    context_.errors([&] { captions.captionEnd = reader_.Parse(text.substr(text.size() - kTimeLength)); });
    return true;
  }

  ParseContext context_;
  TimecodeReader reader_;
};

}  // namespace

std::unique_ptr<LineParser> MakeSubRipParser(const ParseContext& context) {
  return std::make_unique<SubRipParser>(context);
}

}  // namespace cuewright
