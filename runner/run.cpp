#include "runner/run.h"

#include <algorithm>
#include <utility>

#include "core/counting.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "runner/subtitle_text.h"

namespace cuewright {
namespace {

constexpr std::uint64_t kLargestSubtitle = 64 << 20;

}  // namespace

ScriptRun::ScriptRun(RunParts parts, std::vector<RunJob> jobs) : p_(std::move(parts)), jobs_(std::move(jobs)) {
  way_.quantizer = p_.quantizer;
}

ScriptRun::~ScriptRun() = default;

ScriptRun::State ScriptRun::Step(int waitMs) {
  if (!failure_.empty()) return State::Failed;
  if (at_ == jobs_.size()) return State::Done;
  if (Cancelled()) {
    DropWork();
    return State::Cancelled;
  }
  CarryOn step;
  State state = State::Running;
  const bool went = step([&] {
    if (!std::exchange(started_, true)) StartJob();
    if (!failure_.empty()) {
      state = State::Failed;
      return;
    }
    child_->Wait(waitMs);
    TakeAll();
    const std::optional<int> status = child_->Ended();
    if (!status) return;
    TakeAll();
    // Ctrl+C on the terminal ends FFmpeg as well; that is a cancel and no failure.
    if (Cancelled()) return;
    state = EndFfmpeg(*status);
  });
  return went ? state : Fail(ToUtf8(step.Last()->description));
}

void ScriptRun::TakeAll() {
  const std::string output = child_->TakeOutput();
  if (stage_ == Stage::Sound) {
    times_.Take(output);
  } else {
    log_.TakeOutput(output);
  }
  log_.TakeErrors(child_->TakeErrors());
}

void ScriptRun::StartJob() {
  RunJob& job = jobs_[at_];
  way_ = {};
  way_.quantizer = p_.quantizer;
  // From here on paths are read in another folder.
  job.source = p_.outputs.Absolute(job.source);
  job.target = p_.outputs.Absolute(job.target);
  if (!p_.files.Exists(job.source)) {
    Fail("there is no film " + ToUtf8(job.source));
    return;
  }
  if (p_.outputs.SameFile(job.source, job.target)) {
    Fail("the film can't be written over itself: " + ToUtf8(job.source));
    return;
  }
  folder_ = p_.outputs.MakeWorkFolder();
  WriteSubtitles();
  if (!failure_.empty()) return;
  part_ = p_.outputs.Begin(job.target);
  if (job.rangeEnd > 0) {
    StartProbe();
  } else {
    StartNext();
  }
}

void ScriptRun::StartNext() {
  const RunJob& job = jobs_[at_];
  const bool copies = !job.soundDecoded && (job.sound || job.kind != RunJob::Kind::Avi);
  if (copies) {
    StartSoundProbe();
  } else {
    StartFfmpeg();
  }
}

void ScriptRun::WriteSubtitles() {
  const RunJob& job = jobs_[at_];
  if (job.kind != RunJob::Kind::Avi) return;
  for (std::size_t i = 0; i < job.filters.size(); ++i) {
    if (job.filters[i].kind != PictureFilter::Kind::Subtitler) continue;
    const Text path = p_.outputs.Absolute(job.filters[i].subtitle);
    const std::optional<std::string> script =
        WithPlainHead(SubtitleInUtf8(p_.files.Read(path, kLargestSubtitle), p_.systemCodePage));
    // FFmpeg goes by what a file begins with: anything else could be a list of other files to it.
    if (!script) {
      Fail("the subtitle file doesn't begin with \"[Script Info]\", as SubStation Alpha does: " + ToUtf8(path));
      return;
    }
    folder_->Write(SubtitleName(i), *script);
  }
}

void ScriptRun::StartProbe() {
  stage_ = Stage::Length;
  Start(ProbeArguments(jobs_[at_].source));
}

void ScriptRun::StartSoundProbe() {
  stage_ = Stage::Sound;
  times_ = {};
  Start(SoundTimesArguments(jobs_[at_].source));
}

void ScriptRun::StartFfmpeg() {
  stage_ = Stage::Work;
  Start(FfmpegArguments(jobs_[at_], way_, part_->Part()));
}

void ScriptRun::Start(const std::vector<Text>& arguments) {
  log_ = {};
  child_ = p_.processes.Start(Text(kFfmpeg), arguments, {.folder = folder_->Path(), .errors = true});
}

ScriptRun::State ScriptRun::EndFfmpeg(int status) {
  const RunJob& job = jobs_[at_];
  if (stage_ == Stage::Sound) {
    // When the sound can't be listed, the job itself will fail and report why.
    if (!times_.Even()) {
      way_.soundDecoded = true;
      notes_.emplace_back(
          "the film's sound begins early or late or has gaps; it is written uncompressed, so that it keeps its times");
    }
    StartFfmpeg();
    return State::Running;
  }
  if (stage_ == Stage::Length) {
    if (!log_.Duration())
      return Fail("the length of the film can't be told, so it can't be shortened: " + ReasonOf(status));
    if (LengthOf(job, *log_.Duration()) == 0) return Fail("the range leaves nothing of the film");
    way_.duration = log_.Duration();
    StartNext();
    return State::Running;
  }
  if (status == 0 && !log_.CutOff()) return FinishJob();
  if (TryAnotherWay()) {
    StartFfmpeg();
    return State::Running;
  }
  return Fail(ReasonOf(status));
}

bool ScriptRun::TryAnotherWay() {
  const bool avi = jobs_[at_].kind == RunJob::Kind::Avi;
  const bool noXvid = log_.Says("Unknown encoder 'libxvid'") || log_.Says("Could not create encoder reference");
  if (avi && noXvid && !std::exchange(way_.plainEncoder, true)) return true;
  if (!log_.Says("Could not write header")) return false;
  if (avi && jobs_[at_].sound && !jobs_[at_].soundDecoded && !std::exchange(way_.soundDecoded, true)) {
    notes_.emplace_back("AVI can't hold the film's sound as it is; it is written uncompressed");
    return true;
  }
  if (!avi && !jobs_[at_].soundDecoded && !std::exchange(way_.otherContainer, true)) {
    notes_.emplace_back(
        "a wave file can't hold the film's sound as it is; the file is a Matroska file whatever its name");
    return true;
  }
  return false;
}

ScriptRun::State ScriptRun::FinishJob() {
  child_.reset();
  part_->Keep();
  part_.reset();
  folder_.reset();
  // The log belongs to one job: the next one begins a new one.
  log_ = {};
  way_ = {};
  ++at_;
  started_ = false;
  return at_ == jobs_.size() ? State::Done : State::Running;
}

ScriptRun::State ScriptRun::Fail(std::string why) {
  failure_ = why.empty() ? "FFmpeg failed" : std::move(why);
  DropWork();
  return State::Failed;
}

void ScriptRun::DropWork() {
  child_.reset();
  part_.reset();
  folder_.reset();
}

std::string ScriptRun::ReasonOf(int status) const {
  std::string reason;
  for (const std::string& line : log_.Errors()) {
    if (line.find_first_not_of(" \r") == std::string::npos) continue;
    reason += (reason.empty() ? "" : "\n") + line;
  }
  if (!reason.empty()) return reason;
  return status < 0 ? "FFmpeg was ended from outside" : "FFmpeg ended with status " + std::to_string(status);
}

const Text& ScriptRun::Target() const { return jobs_[std::min(at_, jobs_.size() - 1)].target; }

int ScriptRun::FailedLine() const { return jobs_[std::min(at_, jobs_.size() - 1)].line; }

std::vector<std::string> ScriptRun::TakeNotes() { return std::exchange(notes_, {}); }

std::optional<double> ScriptRun::Fraction() const {
  const int whole = CountOf(jobs_);
  if (at_ == jobs_.size()) return 1.0;
  if (jobs_.empty() || stage_ != Stage::Work) return std::nullopt;
  const std::optional<std::int64_t> duration = way_.duration ? way_.duration : log_.Duration();
  if (!duration || LengthOf(jobs_[at_], *duration) == 0) return std::nullopt;
  const double part = ToReal(log_.Done()) / ToReal(LengthOf(jobs_[at_], *duration));
  return (ToReal(at_) + std::clamp(part, 0.0, 1.0)) / whole;
}

}  // namespace cuewright
