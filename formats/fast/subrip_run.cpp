#include <algorithm>

#include "formats/fast/digits.h"
#include "formats/fast/line_runs.h"
#include "formats/fast/text_run.h"

namespace cuewright {
namespace {

constexpr std::size_t kTimeLength = 12;
constexpr std::string_view kArrowBytes = " --> ";
constexpr TextView kArrow = u" --> ";

/// The lines of SubRip: counters, times, texts and the empty lines between captions.
class SubRipRun final : public LineRun {
 public:
  explicit SubRipRun(const ParseContext& context)
      : captions_(context.captions),
        reader_(context.definition, context.times),
        framesCount_(context.times.rate),
        run_(captions_) {}

  void ReadOn(TextFile& file) override {
    run_.ReadOn(file, [&] {
      const std::string_view rest = file.Rest();
      if (rest.empty()) return false;
      return captions_.TimesSet() ? TakeTextLine(file, rest) : TakeHeadLine(file, rest);
    });
  }

 private:
  /// Takes a counter, an empty line, or times with nothing behind them.
  bool TakeHeadLine(TextFile& file, std::string_view rest) {
    const std::size_t digits = DigitsAtBeginning(rest);
    if (digits > kLongestLine) return false;
    std::size_t length = digits;
    if (digits != rest.size() && rest[digits] != file.LineEnd()) {
      length = 2 * kTimeLength + kArrowBytes.size();
      if (rest.size() <= length || rest[length] != file.LineEnd() || !ReadTimes(rest.substr(0, length))) return false;
    }
    file.SkipLine(length);
    return true;
  }

  /// Takes a line while a caption is open: a line of its text, or the empty line behind it.
  bool TakeTextLine(TextFile& file, std::string_view rest) {
    std::size_t length = 0;
    if (rest.front() == file.LineEnd()) {
      run_.Flush();
    } else {
      length = run_.Look(rest, {run_.TagMark()}).length;
      if (rest.front() == ' ' || rest[length - 1] == ' ' || length > kLongestLine) return false;
      const TextView line = run_.Decode();
      if (line.substr(std::min(line.size(), kTimeLength), kArrow.size()) == kArrow) return false;
      run_.Take();
    }
    file.SkipLine(length);
    return true;
  }

  bool ReadTimes(std::string_view line) {
    if (framesCount_ || line.substr(kTimeLength, kArrowBytes.size()) != kArrowBytes) return false;
    Ms start = 0;
    Ms end = 0;
    if (!reader_.ParseClock(line.substr(0, kTimeLength), start)) return false;
    if (!reader_.ParseClock(line.substr(line.size() - kTimeLength), end)) return false;
    captions_.captionStart = start;
    captions_.captionEnd = end;
    return true;
  }

  CaptionCollector& captions_;
  TimecodeReader reader_;
  bool framesCount_;
  TextRun run_;
};

}  // namespace

std::unique_ptr<LineRun> MakeSubRipRun(const ParseContext& context) { return std::make_unique<SubRipRun>(context); }

}  // namespace cuewright
