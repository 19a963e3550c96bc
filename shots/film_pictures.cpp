#include "shots/film_pictures.h"

#include <charconv>
#include <cstring>
#include <deque>
#include <limits>
#include <memory>
#include <string_view>

#include "core/process_output.h"
#include "core/runtime_error.h"

namespace cuewright {
namespace {

constexpr TextView kDecoder = u"ffmpeg";
constexpr int kWaitMs = 100;
constexpr std::int64_t kUsASecond = 1000000;
constexpr std::size_t kLongestProblem = 300;
/// Pictures that take no longer to measure than a window may stand still.
constexpr std::size_t kMostAtOnce = 24;

/// "file:" keeps a name from being taken for an option or an address.
std::vector<Text> Arguments(TextView film) {
  return {u"-nostdin", u"-v", u"info", u"-nostats", u"-hide_banner",
          // Edges of blocks that no other picture is made from don't show in a thumbnail.
          u"-skip_loop_filter", u"noref", u"-i", u"file:" + Text(film), u"-map", u"0:v:0",
          // Each picture once, at the time that it has; the log tells that time.
          u"-vf", u"scale=64:36:flags=fast_bilinear,format=yuv420p,showinfo=checksum=0", u"-vsync", u"passthrough",
          // In units of the film, or pictures of a varying rate would fall together and the log fill with that.
          u"-enc_time_base", u"-1",
          // In blocks of some pictures, or each of them would wake this program.
          u"-flush_packets", u"0", u"-f", u"rawvideo", u"pipe:1",
          // The film begins where its first stream does, be that the sound.
          u"-map", u"0:a?", u"-map", u"0:v:0", u"-c", u"copy", u"-frames:a", u"1", u"-frames:v", u"1", u"-f", u"null",
          u"-"};
}

/// The number behind a word in a line of the log, blanks between them skipped; false when there is none.
bool NumberBehind(std::string_view line, std::string_view word, std::int64_t& number) {
  std::size_t at = line.find(word);
  if (at == std::string_view::npos) return false;
  at = line.find_first_not_of(' ', at + word.size());
  if (at == std::string_view::npos) return false;
  return std::from_chars(line.data() + at, line.data() + line.size(), number).ec == std::errc();
}

}  // namespace

/// Puts the pictures of the output and the times of the log together.
class FilmPictures::Joiner {
 public:
  /// `most`: pictures that are measured at once.
  Joiner(ShotMeasurer& measurer, std::size_t most) : measurer_(measurer), most_(most) {}

  void TakePictures(std::string_view bytes) { bytes_.append(bytes); }

  void TakeLog(std::string_view text) {
    log_.append(text);
    std::size_t from = 0;
    for (std::size_t end = log_.find('\n'); end != std::string::npos; end = log_.find('\n', from)) {
      TakeLine(std::string_view(log_).substr(from, end - from));
      from = end + 1;
    }
    log_.erase(0, from);
  }

  /// Measures what has come whole; false when there is more of it.
  bool Join() {
    std::size_t from = 0;
    for (std::size_t done = 0; done < most_ && HasPicture(from); ++done, from += Thumbnail::kBytes) {
      std::memcpy(thumbnail_.bytes.data(), bytes_.data() + from, Thumbnail::kBytes);
      lastUs_ = InUs(times_.front());
      measurer_.Add(thumbnail_, lastUs_);
      times_.pop_front();
      ++count_;
    }
    bytes_.erase(0, from);
    return !HasPicture(0);
  }

  std::size_t Count() const { return count_; }
  double Seconds() const { return static_cast<double>(lastUs_) / kUsASecond; }
  /// Why the film wasn't read whole by a program that ended like this; empty when it was.
  std::string Problem(int status) const {
    if (count_ == 0) return words_.empty() ? "the film has no pictures" : words_;
    if (status == 0 && bytes_.empty() && times_.empty()) return {};
    return "the film was read up to picture " + std::to_string(count_) + " only: " + words_;
  }

 private:
  void TakeLine(std::string_view line) {
    if (!line.starts_with("[Parsed_showinfo")) {
      if (line.find("rror") != std::string_view::npos || line.find("nvalid") != std::string_view::npos) {
        words_ = line.substr(0, kLongestProblem);
      }
      return;
    }
    std::int64_t pts = 0;
    constexpr std::string_view kBase = "time_base:";
    if (line.find("config in") != std::string_view::npos) {
      const std::size_t slash = line.find('/', line.find(kBase));
      if (!NumberBehind(line, kBase, base_)) base_ = 1;
      const bool told = slash != std::string_view::npos &&
                        std::from_chars(line.data() + slash + 1, line.data() + line.size(), unit_).ec == std::errc();
      if (!told) unit_ = kUsASecond;
    } else if (line.find(" pts:") != std::string_view::npos) {
      // A picture without a time has that of the one before.
      if (NumberBehind(line, " pts:", pts)) last_ = pts;
      times_.push_back(last_);
    }
  }

  bool HasPicture(std::size_t from) const { return !times_.empty() && bytes_.size() - from >= Thumbnail::kBytes; }

  std::int64_t InUs(std::int64_t pts) const {
    return static_cast<std::int64_t>(static_cast<long double>(pts) * base_ * kUsASecond / unit_ + 0.5L);
  }

  ShotMeasurer& measurer_;
  const std::size_t most_;
  std::string bytes_;
  std::string log_;
  std::string words_;  ///< the last line of the log that is no time: what the decoder complained of
  std::deque<std::int64_t> times_;
  std::int64_t base_ = 1;
  std::int64_t unit_ = kUsASecond;
  std::int64_t last_ = 0;
  std::int64_t lastUs_ = 0;
  std::size_t count_ = 0;
  Thumbnail thumbnail_;
};

FilmPictures::FilmPictures(Processes& processes, TextView film, ShotMeasurer& measurer, bool gently)
    : measurer_(measurer),
      joiner_(std::make_unique<Joiner>(measurer, gently ? kMostAtOnce : std::numeric_limits<std::size_t>::max())) {
  std::vector<Text> arguments = Arguments(film);
  if (gently) arguments.insert(arguments.begin(), {u"-n", u"15", Text(kDecoder)});
  child_ = processes.Start(gently ? u"nice" : Text(kDecoder), arguments, {.errors = true});
}

FilmPictures::~FilmPictures() = default;

std::optional<FilmReading> FilmPictures::Poll() {
  // Asked before its output is taken: a program that has ended by now has written all there is to take.
  const std::optional<int> status = child_->Ended();
  joiner_->TakePictures(child_->TakeOutput());
  joiner_->TakeLog(child_->TakeErrors());
  if (!joiner_->Join() || !status) return {};
  measurer_.Finish();
  return FilmReading{joiner_->Problem(*status), false};
}

void FilmPictures::Wait(int ms) { child_->WaitForOutput(ms); }
std::size_t FilmPictures::Count() const { return joiner_->Count(); }
double FilmPictures::Seconds() const { return joiner_->Seconds(); }

FilmReading MeasureFilm(Processes& processes, TextView film, ShotMeasurer& measurer,
                        const std::function<bool(std::size_t)>& goOn) {
  std::unique_ptr<FilmPictures> pictures;
  CarryOn errors;
  errors([&] { pictures = std::make_unique<FilmPictures>(processes, film, measurer, false); });
  if (!pictures) return {"ffmpeg can't be started; the package ffmpeg has it", false};
  for (;;) {
    pictures->Wait(kWaitMs);
    const std::optional<FilmReading> reading = pictures->Poll();
    if (reading) return *reading;
    if (!goOn(pictures->Count())) return {{}, true};
  }
}

FrameRate RateOfFilm(Processes& processes, TextView film) {
  const std::vector<Text> arguments = {
      u"-v",      u"error", u"-select_streams",   u"v:0", u"-show_entries", u"stream=avg_frame_rate", u"-of",
      u"csv=p=0", u"-i",    u"file:" + Text(film)};
  const std::string said = OutputOf(processes, u"ffprobe", arguments);
  const std::size_t slash = said.find('/');
  std::int64_t frames = 0;
  std::int64_t seconds = 1;
  const char* const end = said.data() + said.size();
  if (std::from_chars(said.data(), end, frames).ec != std::errc()) return {};
  if (slash != std::string::npos) std::from_chars(said.data() + slash + 1, end, seconds);
  return frames > 0 && seconds > 0 ? FrameRate(static_cast<double>(frames) / static_cast<double>(seconds))
                                   : FrameRate();
}

}  // namespace cuewright
