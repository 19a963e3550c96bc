#include <array>

#include "formats/fast/line_runs.h"
#include "formats/fast/text_run.h"

namespace cuewright {
namespace {

constexpr std::string_view kBeginning = "Dialogue: ";

/// Length of a line break at the beginning of the bytes, "\n" in either case; 0 when there is none.
std::size_t BreakLength(std::string_view bytes) { return bytes.size() > 1 && (bytes[1] | 0x20) == 'n' ? 2 : 0; }

/// The events of SubStation files without tags.
class DialogueRun final : public LineRun {
 public:
  explicit DialogueRun(const ParseContext& context)
      : captions_(context.captions), reader_(context.definition, {{}, context.times.exact}), run_(captions_, u'\\') {}

  void ReadOn(TextFile& file) override {
    if (!file.AsciiIsPlain() || !captions_.StoresStraight(u'\\')) return;
    run_.ReadOn(file, [&] { return TakeLine(file); });
  }

 private:
  bool TakeLine(TextFile& file) {
    const std::string_view rest = file.Rest();
    std::array<std::size_t, 9> commas{};
    if (!rest.starts_with(kBeginning) || !FindMarks(rest, ',', file.LineEnd(), commas)) return false;
    Ms start = 0;
    Ms end = 0;
    if (!reader_.ParseClock(rest.substr(commas[0] + 1, commas[1] - commas[0] - 1), start)) return false;
    if (!reader_.ParseClock(rest.substr(commas[1] + 1, commas[2] - commas[1] - 1), end)) return false;
    const std::size_t before = commas.back() + 1;
    const std::string_view text = rest.substr(before);
    const LineScan& scan = run_.Look(text, {run_.TagMark(), '\\'});
    if (scan.length > kLongestLine || (scan.length != 0 && text[scan.length - 1] == ' ')) return false;
    if (scan.angled || scan.markedA) return false;
    if (!scan.markedB) {
      run_.Decode();
      run_.Take();
    } else if (!run_.TakeBroken(text.substr(0, scan.length), '\\', BreakLength)) {
      return false;
    }
    captions_.captionStart = start;
    captions_.captionEnd = end;
    run_.Flush();
    file.SkipLine(before + scan.length);
    return true;
  }

  CaptionCollector& captions_;
  TimecodeReader reader_;
  TextRun run_;
};

}  // namespace

std::unique_ptr<LineRun> MakeDialogueRun(const ParseContext& context) { return std::make_unique<DialogueRun>(context); }

}  // namespace cuewright
