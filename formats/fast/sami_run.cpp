#include <array>
#include <string>

#include "formats/fast/digits.h"
#include "formats/fast/line_runs.h"
#include "formats/fast/text_run.h"
#include "formats/sami_tags.h"
#include "text/text_search.h"
#include "text/utf8.h"

namespace cuewright {
namespace {

constexpr std::string_view kSync = "<SYNC START=";
constexpr std::size_t kLongestKnownLine = 256;

/// The body of SAMI files where tags and text stand on lines of their own.
class SamiRun final : public LineRun {
 public:
  SamiRun(const ParseContext& context, const SamiParser& parser)
      : captions_(context.captions), parser_(parser), run_(context.captions) {}

  void ReadOn(TextFile& file) override {
    if (!parser_.InBody() || !file.AsciiIsPlain() || !captions_.StoresStraight(u'\0')) return;
    mereBreak_ = ToUtf8(captions_.MereBreak());
    run_.ReadOn(file, [&] { return TakeLine(file); });
  }

 private:
  bool TakeLine(TextFile& file) {
    const std::string_view rest = file.Rest();
    const std::size_t from = rest.find_first_not_of(' ');
    if (from == std::string_view::npos) return false;
    const std::string_view line = rest.substr(from);
    std::size_t length = 0;
    if (line.front() != file.LineEnd()) {
      length = line.front() == '<' ? TakeTagLine(line, file.LineEnd()) : TakeTextLine(line);
      if (length == 0) return false;
    }
    file.SkipLine(from + length);
    return true;
  }

  /// The length of a line of tags without text; 0 for any other line.
  std::size_t TakeTagLine(std::string_view line, char lineEnd) {
    if (!line.starts_with(kSync)) return TakeKnownLine(line, lineEnd);
    const std::string_view time = line.substr(kSync.size());
    std::int32_t ms = 0;
    const std::size_t digits = ReadCount(time, ms);
    if (digits == 0 || digits > kLongestCount || digits + 1 >= time.size()) return 0;
    if (time[digits] != '>' || time[digits + 1] != lineEnd) return 0;
    FlushTimed();
    captions_.TakeNextTime(ms);
    return kSync.size() + digits + 1;
  }

  /// Lines that open paragraphs; a file has the same few all through.
  std::size_t TakeKnownLine(std::string_view line, char lineEnd) {
    for (const KnownLine& known : known_) {
      const std::size_t length = known.bytes.size();
      if (length == 0 || length >= line.size() || line[length] != lineEnd || !line.starts_with(known.bytes)) continue;
      FlushTimed();
      if (known.space) {
        captions_.Reset();
        run_.Clear();
      }
      return length;
    }
    Learn(line.substr(0, kLongestKnownLine), lineEnd);
    return 0;
  }

  /// Keeps a line that turns out to be tags alone.
  void Learn(std::string_view line, char lineEnd) {
    const LineExtent extent = FindLineEnd(line, lineEnd);
    if (extent.length == line.size() || !extent.ascii || line[extent.length - 1] == ' ') return;
    line = line.substr(0, extent.length);
    const Text text = FromUtf8(line);
    Text left;
    const bool space = space_.In(text);
    if (sync_.In(text) || (!space && (!StripFlatTags(text, left) || !left.empty()))) return;
    known_[nextKnown_] = {std::string(line), space};
    nextKnown_ = (nextKnown_ + 1) % known_.size();
  }

  /// A line of text whose tags, if any, are line breaks; its length, 0 for any other.
  std::size_t TakeTextLine(std::string_view line) {
    if (captions_.TimesSet() || !run_.Empty()) return 0;
    // The last of the marks, "c" in front of a blank, stands in "SYNC START".
    const LineScan& scan = run_.Look(line, {'&', '#', 'c'});
    if (scan.markedA || scan.markedB || scan.length > kLongestLine || line[scan.length - 1] == ' ') return 0;
    if (!scan.angled) {
      run_.Decode();
      run_.Take();
      return scan.length;
    }
    const auto breakLength = [&](std::string_view bytes) {
      return bytes.starts_with(mereBreak_) ? mereBreak_.size() : 0;
    };
    return run_.TakeBroken(line.substr(0, scan.length), '<', breakLength) ? scan.length : 0;
  }

  void FlushTimed() {
    if (!run_.Empty() && captions_.TimesSet()) run_.Flush();
  }

  /// A line of tags alone, and whether it is a blank screen.
  struct KnownLine {
    std::string bytes;
    bool space = false;
  };

  CaptionCollector& captions_;
  const SamiParser& parser_;
  Needle sync_{Text(kSamiSync)};
  Needle space_{Text(kSamiSpace)};
  std::array<KnownLine, 2> known_;
  std::size_t nextKnown_ = 0;
  std::string mereBreak_;
  TextRun run_;
};

}  // namespace

std::unique_ptr<LineRun> MakeSamiRun(const ParseContext& context, const SamiParser& parser) {
  return std::make_unique<SamiRun>(context, parser);
}

}  // namespace cuewright
