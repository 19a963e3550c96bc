#include "sound/film_samples.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <sstream>

#include "core/media_errors.h"
#include "core/process_output.h"
#include "core/runtime_error.h"
#include "sound/sample.h"
#include "text/labels.h"

namespace cuewright {
namespace {

constexpr int kWaitMs = 100;
constexpr std::size_t kLongestProblem = 300;
constexpr std::size_t kLongestLog = 1 << 16;

Text TrackOf(int track) { return track < 0 ? Text(u"0:a:0") : u"0:" + Decimal(track); }

std::vector<Text>& operator+=(std::vector<Text>& all, std::initializer_list<TextView> more) {
  all.insert(all.end(), more.begin(), more.end());
  return all;
}

/// What is done to a track. Each step costs by the packet, so that the one channel comes first and goes on in long
/// pieces, but not before gaps are filled, which needs the packets' times.
Text Graph(int track, bool centre) {
  const Text from = u"[" + TrackOf(track) + u"]";
  const Text timed = u"aresample=async=1:first_pts=0";
  // Half of FFmpeg's usual length of the filter, which takes half as long. It is flat to 0.2 dB up to 8 kHz; what is
  // beyond isn't measured.
  const Text sampled =
      u",asetnsamples=n=8192:p=0,aresample=filter_size=16,aformat=sample_fmts=s16:channel_layouts=mono:sample_rates=" +
      Decimal(kSamplesASecond) + u"[sound]";
  if (centre) return from + u"pan=mono|c0=FC," + timed + sampled;
  // As loud as if it were made of 16 bits at once: samples of floating point would be mixed louder, and clipped then.
  return from + timed + u":rematrix_maxval=1,aformat=channel_layouts=mono" + sampled;
}

/// The arguments with what makes a file of the samples.
std::vector<Text> Arguments(TextView film, int track, const TrackFacts& facts, std::initializer_list<TextView> file) {
  // "file:" keeps a name from being taken for an option or an address.
  std::vector<Text> all = {u"-nostdin", u"-v", u"error", u"-y", u"-i", u"file:" + Text(film)};
  all += {u"-filter_complex", Graph(track, facts.centre)};
  // Written in blocks of 32 KiB: a write for each of the decoder's packets would take longer than what is written.
  all += {u"-map", u"[sound]", u"-c:a", u"pcm_s16le", u"-flush_packets", u"0"};
  all += file;
  if (facts.ownStart) return all;
  // The picture and all sound are selected as well, and written nowhere: the earliest of them is the film's start.
  all += {u"-map", u"0:v?", u"-map", u"0:a", u"-c", u"copy", u"-frames:v", u"1", u"-frames:a", u"1"};
  all += {u"-f", u"null", u"-"};
  return all;
}

std::vector<Text> QuestionArguments(TextView film, int track) {
  const Text stream = track < 0 ? Text(u"a:0") : Decimal(track);
  return {u"-v",
          u"error",
          u"-select_streams",
          stream,
          u"-show_entries",
          u"stream=channel_layout:format=format_name",
          u"-of",
          u"default=nw=1:nk=1",
          u"-i",
          u"file:" + Text(film)};
}

/// What the answer to that question says.
TrackFacts FactsIn(const std::string& told) {
  // The names of the layouts with a centre in front; the ones that are left out put it behind or have none.
  constexpr std::array<std::string_view, 14> kWithCentre = {"3.0",       "3.1", "4.0",       "4.1",       "5.0",
                                                            "5.0(side)", "5.1", "6.0",       "5.1(side)", "6.1",
                                                            "7.0",       "7.1", "7.1(wide)", "6.1(back)"};
  // FFmpeg takes the start of other containers, whose times may jump, from those streams that are selected.
  constexpr std::array<std::string_view, 2> kWithStart = {"mov,mp4,m4a,3gp,3g2,mj2", "matroska,webm"};
  TrackFacts facts;
  std::istringstream lines(told);
  for (std::string line; std::getline(lines, line);) {
    facts.centre = facts.centre || std::ranges::find(kWithCentre, line) != kWithCentre.end();
    facts.ownStart = facts.ownStart || std::ranges::find(kWithStart, line) != kWithStart.end();
  }
  return facts;
}

std::string ProblemOf(int status, const std::string& log, bool any) {
  if (status == 0 && !TellsOfCutOff(log)) return any ? std::string() : "the film has no sound";
  if (log.find("matches no streams") != std::string::npos) return "the film has no such sound";
  const std::string words = log.substr(0, std::min(log.find('\n'), kLongestProblem));
  return words.empty() ? "the film's sound can't be read" : words;
}

}  // namespace

TrackQuestion::TrackQuestion(Processes& processes, TextView film, int track) {
  CarryOn errors;
  errors([&] { child_ = processes.Start(u"ffprobe", QuestionArguments(film, track)); });
}

std::optional<TrackFacts> TrackQuestion::Answer() {
  // Asked before its output is taken: a program that has ended by now has written all there is to take.
  const bool ended = !child_ || child_->Ended();
  if (child_) told_ += child_->TakeOutput();
  return ended ? std::optional(FactsIn(told_)) : std::nullopt;
}

TrackFacts FactsOf(Processes& processes, TextView film, int track) {
  return FactsIn(OutputOf(processes, u"ffprobe", QuestionArguments(film, track)));
}

std::vector<Text> SamplesArguments(TextView film, int track, const TrackFacts& facts) {
  return Arguments(film, track, facts, {u"-f", u"s16le", u"pipe:1"});
}

std::vector<Text> WaveArguments(TextView film, int track, const TrackFacts& facts, TextView wave) {
  const Text file = u"file:" + Text(wave);
  return Arguments(film, track, facts,
                   {u"-map_metadata", u"-1", u"-fflags", u"+bitexact", u"-flags:a", u"+bitexact", u"-f", u"wav", file});
}

bool CentreWasStill(TrackFacts& facts, const SoundTable& read) {
  const bool still = facts.centre && read.Silent();
  if (still) facts.centre = false;
  return still;
}

std::span<const std::int16_t> SampleBytes::Take(std::string_view bytes) {
  samples_.clear();
  std::string_view rest = bytes;
  if (!half_.empty() && !rest.empty()) {
    samples_.push_back(SampleOf(half_.front(), rest.front()));
    rest.remove_prefix(1);
    half_.clear();
  }
  const std::size_t had = samples_.size();
  samples_.resize(had + rest.size() / 2);
  for (std::size_t i = 0; i < rest.size() / 2; ++i) samples_[had + i] = SampleOf(rest[2 * i], rest[2 * i + 1]);
  rest.remove_prefix(rest.size() / 2 * 2);
  half_ += rest;
  return samples_;
}

SoundReading ReadSamples(Processes& processes, TextView film, int track, const TrackFacts& facts,
                         const std::function<void(std::span<const std::int16_t>)>& take,
                         const std::function<bool(double)>& goOn) {
  std::unique_ptr<ChildProcess> child;
  CarryOn errors;
  errors([&] { child = processes.Start(u"ffmpeg", SamplesArguments(film, track, facts), {.errors = true}); });
  if (!child) return {"ffmpeg can't be started; the package ffmpeg has it", false};
  SampleBytes samples;
  std::size_t count = 0;
  std::string log;
  std::optional<int> status;
  while (!status) {
    child->Wait(kWaitMs);
    // Asked before its output is taken: a program that has ended by now has written all there is to take.
    status = child->Ended();
    const std::span<const std::int16_t> taken = samples.Take(child->TakeOutput());
    const std::string more = child->TakeErrors();
    if (log.size() < kLongestLog) log += more;
    count += taken.size();
    take(taken);
    if (!goOn(static_cast<double>(count) / kSamplesASecond)) return {{}, true};
  }
  return {ProblemOf(*status, log, count > 0), false};
}

}  // namespace cuewright
