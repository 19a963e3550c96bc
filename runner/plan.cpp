#include "runner/plan.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "core/counting.h"
#include "core/media_errors.h"
#include "core/numbers.h"

namespace cuewright {
namespace {

constexpr std::size_t kMostErrors = 20;
constexpr std::size_t kLongestLine = 4096;
constexpr std::int64_t kMicrosecondsInMs = 1000;
constexpr std::string_view kTimeKey = "out_time_us=";
// Lines indented further are metadata of the film, and may contain any text.
constexpr std::string_view kDurationStart = "[info]   Duration: ";
constexpr std::array<TextView, 4> kScaleFlags = {u"neighbor", u"bilinear", u"bicubic",
                                                 u"bilinear+accurate_rnd+full_chroma_int+full_chroma_inp"};

/// A script's times are hundredths of a second, rounded to the nearest, so that a caption may begin up to 5 ms behind
/// the picture that it was set to; and FFmpeg cuts a picture's time to whole milliseconds, which may come out as one
/// less. So pictures are taken for this much later while text is drawn on them, in microseconds. Neighbours are told
/// apart up to 85 pictures a second.
constexpr int kLaterForTimes = 5500;

/// Fills late starts and gaps with silence, so that formats without time stamps stay in time with the film.
constexpr TextView kFilledSound = u"aresample=async=1:first_pts=0";

using Words = std::vector<Text>;

void Add(Words& words, std::initializer_list<TextView> more) {
  for (const TextView word : more) words.emplace_back(word);
}

/// "file:" keeps a name from being taken for an option or an address; a path that isn't absolute would lead elsewhere
/// from another working folder.
Text FileWord(const Text& path) { return u"file:" + path; }

Words Input(const Text& film) {
  Words words;
  // References inside a film may only lead to files.
  Add(words, {u"-nostdin", u"-hide_banner", u"-v", u"level+info", u"-protocol_whitelist", u"file", u"-i"});
  words.push_back(FileWord(film));
  return words;
}

Text Seconds(std::int64_t ms) { return Decimal(ms / 1000) + u"." + Padded(ms % 1000, 3); }

Text FilterChain(const RunJob& job) {
  Text chain;
  for (std::size_t i = 0; i < job.filters.size(); ++i) {
    const PictureFilter& filter = job.filters[i];
    if (!chain.empty()) chain += u',';
    if (filter.kind == PictureFilter::Kind::Subtitler) {
      const Text later = Decimal(kLaterForTimes);
      chain += u"settb=1/1000000,setpts=PTS+" + later;
      chain += u",subtitles=f=" + FromUtf8(SubtitleName(i)) + u",setpts=PTS-" + later;
    } else {
      chain += u"scale=w=" + Decimal(filter.width) + u":h=" + Decimal(filter.height) + u":flags=" +
               Text(ItemAt(kScaleFlags, filter.mode));
    }
  }
  return chain;
}

void AddRange(Words& words, const RunJob& job, const JobWay& way) {
  if (job.rangeStart > 0) {
    words.emplace_back(u"-ss");
    words.push_back(Seconds(job.rangeStart));
  }
  if (job.rangeEnd > 0 && way.duration) {
    words.emplace_back(u"-t");
    words.push_back(Seconds(LengthOf(job, *way.duration)));
  }
}

void AddFilm(Words& words, const RunJob& job, const JobWay& way) {
  Add(words, {u"-map", u"0:v:0"});
  if (job.sound) Add(words, {u"-map", u"0:a:0?"});
  if (const Text chain = FilterChain(job); !chain.empty()) Add(words, {u"-vf", chain});
  Add(words, {u"-c:v", way.plainEncoder ? TextView(u"mpeg4") : TextView(u"libxvid"), u"-tag:v", u"xvid", u"-q:v"});
  words.push_back(Decimal(way.quantizer));
  if (job.sound) {
    Add(words, {u"-c:a", job.soundDecoded || way.soundDecoded ? TextView(u"pcm_s16le") : TextView(u"copy")});
    if (job.soundDecoded || way.soundDecoded) Add(words, {u"-af", kFilledSound});
    if (job.soundDecoded && job.sampleRate > 0) Add(words, {u"-ar", Decimal(job.sampleRate)});
  }
  Add(words, {u"-f", u"avi"});
}

void AddWave(Words& words, const RunJob& job, const JobWay& way) {
  const bool decoded = job.soundDecoded || way.soundDecoded;
  Add(words, {u"-map", u"0:a:0", u"-c:a", decoded ? TextView(u"pcm_s16le") : TextView(u"copy")});
  // Readers of waves, the Audio bar among them, know one or two channels.
  if (decoded) Add(words, {u"-af", Text(kFilledSound) + u",aformat=channel_layouts=mono|stereo"});
  if (job.soundDecoded && job.sampleRate > 0) Add(words, {u"-ar", Decimal(job.sampleRate)});
  // Nothing but the sound: the header of a wave is the plain one then, which every reader knows.
  Add(words, {u"-map_metadata", u"-1", u"-fflags", u"+bitexact", u"-flags:a", u"+bitexact", u"-f",
              way.otherContainer ? TextView(u"matroska") : TextView(u"wav")});
}

/// For some containers FFmpeg takes the start of the first selected stream as the start of the film: the picture and
/// the sound are therefore selected here as well, and written nowhere.
void AddWholeFilm(Words& words) {
  Add(words, {u"-map", u"0:v?", u"-map", u"0:a", u"-c", u"copy", u"-frames:v", u"1", u"-frames:a", u"1", u"-f", u"null",
              u"-"});
}

}  // namespace

std::string SubtitleName(std::size_t at) { return "subtitle" + std::to_string(at) + ".ssa"; }

std::int64_t LengthOf(const RunJob& job, std::int64_t duration) {
  return std::max<std::int64_t>(duration - job.rangeStart - job.rangeEnd, 0);
}

std::vector<Text> FfmpegArguments(const RunJob& job, const JobWay& way, const Text& part) {
  Words words = Input(job.source);
  Add(words, {u"-nostats", u"-stats_period", u"0.2", u"-progress", u"pipe:1", u"-y"});
  if (job.kind == RunJob::Kind::Avi) {
    AddFilm(words, job, way);
  } else {
    AddWave(words, job, way);
  }
  AddRange(words, job, way);
  words.push_back(FileWord(part));
  if (job.kind != RunJob::Kind::Avi) AddWholeFilm(words);
  return words;
}

std::vector<Text> SoundTimesArguments(const Text& film) {
  Words words = Input(film);
  Add(words, {u"-map", u"0:a:0", u"-c", u"copy", u"-f", u"framecrc", u"pipe:1"});
  AddWholeFilm(words);
  return words;
}

std::vector<Text> ProbeArguments(const Text& film) { return Input(film); }

bool FfmpegLog::Says(std::string_view text) const {
  return std::any_of(errors_.begin(), errors_.end(),
                     [&](const std::string& line) { return line.find(text) != std::string::npos; });
}

void FfmpegLog::TakeOutput(std::string_view bytes) {
  output_ += bytes;
  for (std::size_t end = 0; (end = output_.find('\n')) != std::string::npos; output_.erase(0, end + 1)) {
    const std::string_view line(output_.data(), end);
    if (!line.starts_with(kTimeKey)) continue;
    std::int64_t time = 0;
    const auto [last, error] = std::from_chars(line.data() + kTimeKey.size(), line.data() + line.size(), time);
    if (error == std::errc()) done_ = std::max(done_, time / kMicrosecondsInMs);
  }
  if (output_.size() > kLongestLine) output_.clear();
}

void FfmpegLog::TakeErrors(std::string_view bytes) {
  log_ += bytes;
  for (std::size_t end = 0; (end = log_.find('\n')) != std::string::npos; log_.erase(0, end + 1)) {
    TakeLogLine(std::string_view(log_.data(), end));
  }
  if (log_.size() > kLongestLine) log_.clear();
}

void FfmpegLog::TakeLogLine(std::string_view line) {
  int hours = 0;
  int minutes = 0;
  int seconds = 0;
  int hundredths = 0;
  if (!duration_ && line.starts_with(kDurationStart) &&
      std::sscanf(std::string(line.substr(kDurationStart.size())).c_str(), "%5d:%2d:%2d.%2d", &hours, &minutes,
                  &seconds, &hundredths) == 4) {
    duration_ = ((std::int64_t{hours} * 60 + minutes) * 60 + seconds) * 1000 + hundredths * 10;
  }
  for (const std::string_view mark : {"[error] ", "[fatal] "}) {
    const std::size_t found = line.find(mark);
    if (found == std::string_view::npos) continue;
    errors_.emplace_back(line.substr(found + mark.size()));
    cutOff_ = cutOff_ || TellsOfCutOff(errors_.back());
    if (errors_.size() > kMostErrors) errors_.erase(errors_.begin());
    return;
  }
}

}  // namespace cuewright
