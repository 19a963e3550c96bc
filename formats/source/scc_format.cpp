#include "formats/source/scc_format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <optional>
#include <utility>

#include "core/frame_rate.h"
#include "formats/source/clock_field.h"
#include "formats/source/scc_decoder.h"
#include "formats/source/source_lines.h"
#include "text/digits.h"

namespace cuewright {
namespace {

constexpr std::string_view kSignature = "Scenarist_SCC";
constexpr std::size_t kTimeSize = 11;
constexpr std::int64_t kFramesPerSecond = 30;

/// The number of the frame that "hh:mm:ss:ff" names; with ";" in front of the frames two numbers of each minute but
/// every tenth are left out.
std::optional<std::int64_t> FrameOf(std::string_view time) {
  if (time.size() != kTimeSize) return {};
  std::array<std::int64_t, 4> parts{};
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const std::string_view part = time.substr(i * 3, 2);
    if (!IsDigit(part[0]) || !IsDigit(part[1])) return {};
    parts[i] = (part[0] - '0') * 10 + (part[1] - '0');
  }
  const bool dropped = time[8] == ';' || time[8] == '.' || time[8] == ',';
  if (time[2] != time[5] || (time[2] != ':' && time[2] != ';') || (time[8] != ':' && !dropped)) return {};
  if (parts[1] > 59 || parts[2] > 59 || parts[3] >= kFramesPerSecond) return {};
  const std::int64_t minutes = parts[0] * 60 + parts[1];
  const std::int64_t frames = (minutes * 60 + parts[2]) * kFramesPerSecond + parts[3];
  return dropped ? frames - 2 * (minutes - minutes / 10) : frames;
}

Ms MsOf(std::int64_t frame) {
  const std::int64_t ms = Nearest(frame * 1001, kFramesPerSecond);
  return Ms::Within(ms, 0, Ms::Latest());
}

/// Hands the captions of a file on, each with the line by which it is gone as its record.
class CaptionLines {
 public:
  CaptionLines(TextView separator, SourceSink& sink) : separator_(separator), decoder_(separator), sink_(sink) {}

  /// Takes a line; false when nothing more is wanted.
  bool Take(const SourceLine& line) {
    const std::string_view time = line.text.substr(0, kTimeSize);
    const std::optional<std::int64_t> frame = FrameOf(time);
    if (!frame) {
      const bool known =
          line.text.starts_with(kSignature) || line.text.find_first_not_of(" \t") == std::string_view::npos;
      if (!known) sink_.NotUnderstood(line.at);
      return true;
    }
    frame_ = std::max(frame_, *frame);
    std::string_view words = line.text.substr(kTimeSize);
    bool blamed = false;
    while (!words.empty()) {
      const std::size_t begin = std::min(words.find_first_not_of(" \t"), words.size());
      words.remove_prefix(begin);
      const std::string_view word = words.substr(0, words.find_first_of(" \t"));
      words.remove_prefix(word.size());
      if (word.empty()) continue;
      std::uint16_t value = 0;
      const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value, 16);
      const bool whole = word.size() == 4 && error == std::errc() && end == word.data() + word.size();
      if (!whole && !std::exchange(blamed, true)) sink_.NotUnderstood(line.at);
      if (whole && !HandOn(decoder_.Take(value, frame_), line)) return false;
      ++frame_;
    }
    return true;
  }

  void End(const SourceLine& last) {
    // A caption that no word takes off the screen gets a short duration.
    constexpr std::int64_t kLast = 4 * kFramesPerSecond;
    (void)HandOn(decoder_.End(frame_ + kLast), last);
  }

 private:
  bool HandOn(std::optional<CaptionDecoder::Shown> shown, const SourceLine& line) {
    if (!shown) return true;
    // The second caption of a line has no bytes of its own.
    const std::size_t at = std::max(line.at, behind_);
    behind_ = std::max(line.next, behind_);
    SourceRecord record;
    record.whole = Stretch::Between(at, behind_);
    LossSet lost;
    const Text text = WriteMarks(shown->text, MarkKind::SubRip, separator_, lost).text;
    return sink_.Add(MsOf(shown->start), MsOf(shown->end), text, record);
  }

  TextView separator_;
  CaptionDecoder decoder_;
  SourceSink& sink_;
  std::int64_t frame_ = 0;  // the frame at which the next word is sent
  std::size_t behind_ = 0;  // behind the last record
};

}  // namespace

void SccFormat::Read(const SourceText& text, TextView separator, SourceSink& sink) {
  CaptionLines captions(separator, sink);
  SourceLines lines(text.bytes);
  SourceLine line;
  while (lines.Next(line)) {
    if (!captions.Take(line)) return;
  }
  captions.End(line);
}

std::string SccFormat::TimeField(Ms, std::string_view old) const { return std::string(old); }

Text SccFormat::TextField(TextView text, TextView, TextView) const { return Text(text); }

Text SccFormat::Record(const NewRecord&, TextView) const { return {}; }

}  // namespace cuewright
