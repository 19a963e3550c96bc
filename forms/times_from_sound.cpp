#include "forms/times_from_sound.h"

#include <algorithm>
#include <chrono>

#include "core/runtime_error.h"
#include "text/labels.h"
#include "voice/spoken_captions.h"

namespace cuewright {

TimesFromSound::TimesFromSound(Workbench bench, FilmVoice& voice, FitMarks& marks, Notices& notices, Messages& messages)
    : bench_(bench), voice_(voice), marks_(marks), notices_(notices), messages_(messages) {
  bench_.window.mnuTimesFromSound.Clicked.Connect([this] { Click(); });
  bench_.window.tmrTimesFromSound.Tick.Connect([this] { Poll(); });
  bench_.list.EnabledChanged.Connect([this](bool on) {
    if (!on) Stop();
  });
}

TimesFromSound::~TimesFromSound() { giveUp_ = true; }

void TimesFromSound::ShowItem() {
  MenuItem& item = bench_.window.mnuTimesFromSound;
  const bool running = bench_.window.tmrTimesFromSound.Enabled();
  item.SetVisible(voice_.Possible() && bench_.options.manner.FitsToTheVoice());
  item.SetText(bench_.strings[running ? Message::StopTimesFromSound : Message::TimesFromSound]);
}

void TimesFromSound::Click() {
  if (!bench_.window.tmrTimesFromSound.Enabled()) return Start();
  Stop();
  Tell(Message::TimesFromSoundStopped);
}

void TimesFromSound::Start() {
  if (!bench_.document.HasVideo()) return Tell(Message::NoVideoFileLoaded);
  if (bench_.options.fitLanguage.empty()) return Tell(Message::LanguageWanted);
  if (voice_.Reading()) return;
  film_ = bench_.document.VideoPath;
  job_ = {};
  job_.language = bench_.options.fitLanguage;
  for (Row row = 1; bench_.list.InRange(row); ++row) {
    job_.texts.push_back(ReplaceAll(bench_.list.GetSeenText(row, true), u"\r\n", u" "));
  }
  job_.sound = voice_.Known();
  CarryOn steps;
  if (!job_.sound && !steps([&] { voice_.BeginReading(); })) return Tell(Message::FilmSoundFailed, film_);
  shown_ = -1;
  done_ = 0;
  bench_.window.tmrTimesFromSound.SetEnabled(true);
  ShowItem();
  ShowProgress();
  if (job_.sound) Search();
}

void TimesFromSound::Stop() {
  if (!bench_.window.tmrTimesFromSound.Enabled()) return;
  bench_.window.tmrTimesFromSound.SetEnabled(false);
  giveUp_ = true;
  if (search_.valid()) search_.wait();
  search_ = {};
  giveUp_ = false;
  voice_.StopReading();
  ShowItem();
}

void TimesFromSound::Poll() {
  // The film was replaced or closed, and with it what was to be found.
  if (bench_.document.VideoPath != film_) return Stop();
  ShowProgress();
  if (search_.valid()) {
    if (search_.wait_for(std::chrono::seconds(0)) == std::future_status::ready) Finish();
    return;
  }
  if (voice_.Poll()) return;
  job_.sound = voice_.Known();
  if (job_.sound) return Search();
  Stop();
  Tell(Message::FilmSoundFailed, film_);
}

void TimesFromSound::Search() {
  search_ = std::async(std::launch::async, [this] { return Run(); });
}

TimesFromSound::Found TimesFromSound::Run() const {
  const SpokenCaptions spoken = SpeakCaptions(*processes_, job_.language, job_.texts);
  if (!spoken.problem.empty()) return {{}, spoken.problem};
  const auto goOn = [this](std::size_t line) {
    done_ = line;
    return !giveUp_;
  };
  return {AlignLines(spoken.words, *job_.sound, goOn), {}};
}

void TimesFromSound::ShowProgress() {
  const int hundredths = job_.texts.empty() ? 0 : static_cast<int>(done_ * 100 / job_.texts.size());
  if (hundredths == shown_) return;
  shown_ = hundredths;
  notices_.Tell(Message::FindingTimes, Decimal(hundredths));
}

void TimesFromSound::Finish() {
  bench_.window.tmrTimesFromSound.SetEnabled(false);
  ShowItem();
  const Found found = search_.get();
  if (!found.problem.empty()) return Tell(Message::NoTimesFound, FromUtf8(found.problem));
  Take(found.lines);
}

void TimesFromSound::Take(const std::vector<AlignedLine>& lines) {
  // A text that was changed meanwhile is another one.
  if (std::ssize(lines) != bench_.list.Count()) return Tell(Message::TextChangedMeanwhile);
  const auto doubtful = std::ranges::count_if(lines, &AlignedLine::doubtful);
  marks_.TakeLines(lines);
  Tell(Message::TimesFound, Decimal(std::ssize(lines)), Decimal(doubtful));
}

void TimesFromSound::Tell(Message message, TextView first, TextView second) {
  if (notices_.Seen()) return notices_.Tell(message, first, second);
  messages_.Show({Fill(bench_.strings[message], first, second), BoxIcon::Information, BoxButtons::Ok,
                  WithoutDots(bench_.strings[Message::TimesFromSound])});
}

}  // namespace cuewright
