#include "forms/times_from_sound.h"

#include <algorithm>

#include "text/labels.h"
#include "voice/spoken_captions.h"

namespace cuewright {

TimesFromSound::TimesFromSound(Workbench bench, FilmVoice& voice, FitMarks& marks, Notices& notices, Messages& messages)
    : bench_(bench),
      voice_(voice),
      marks_(marks),
      notices_(notices),
      messages_(messages),
      search_(bench, bench.window.tmrTimesFromSound, voice) {
  bench_.window.mnuTimesFromSound.Clicked.Connect([this] { Click(); });
  bench_.window.tmrTimesFromSound.Tick.Connect([this] {
    if (search_.Running()) ShowProgress();
  });
  search_.Stopped.Connect([this] { ShowItem(); });
  search_.Unreadable.Connect([this] { Tell(Message::FilmSoundFailed, search_.Film()); });
  search_.Done.Connect([this](const Found& found) { Finish(found); });
}

void TimesFromSound::ShowItem() {
  MenuItem& item = bench_.window.mnuTimesFromSound;
  item.SetVisible(voice_.Possible() && bench_.options.manner.FitsToTheVoice());
  item.SetText(bench_.strings[search_.Running() ? Message::StopTimesFromSound : Message::TimesFromSound]);
}

void TimesFromSound::Click() {
  if (!search_.Running()) return Start();
  search_.Stop();
  Tell(Message::TimesFromSoundStopped);
}

void TimesFromSound::Start() {
  if (!bench_.document.HasVideo()) return Tell(Message::NoVideoFileLoaded);
  if (bench_.options.fitLanguage.empty()) return Tell(Message::LanguageWanted);
  if (voice_.Reading()) return;
  language_ = bench_.options.fitLanguage;
  texts_.clear();
  for (Row row = 1; bench_.list.InRange(row); ++row) {
    texts_.push_back(ReplaceAll(bench_.list.GetSeenText(row, true), u"\r\n", u" "));
  }
  shown_.reset();
  done_ = 0;
  const auto align = [this](const std::shared_ptr<const SoundTable>& sound) { return Run(*sound); };
  if (!search_.Begin(align)) return Tell(Message::FilmSoundFailed, search_.Film());
  ShowItem();
  ShowProgress();
}

TimesFromSound::Found TimesFromSound::Run(const SoundTable& sound) const {
  const SpokenCaptions spoken = SpeakCaptions(*processes_, language_, texts_);
  if (!spoken.problem.empty()) return {{}, spoken.problem};
  const auto goOn = [this](std::size_t line) {
    done_ = line;
    return !search_.GivenUp();
  };
  return {AlignLines(spoken.words, sound, goOn), {}};
}

void TimesFromSound::ShowProgress() {
  const std::size_t hundredths = texts_.empty() ? 0 : done_ * 100 / texts_.size();
  if (hundredths == shown_) return;
  shown_ = hundredths;
  notices_.Tell(Message::FindingTimes, Decimal(hundredths));
}

void TimesFromSound::Finish(const Found& found) {
  ShowItem();
  if (!found.problem.empty()) return Tell(Message::NoTimesFound, FromUtf8(found.problem));
  Take(found.lines);
}

void TimesFromSound::Take(const std::vector<AlignedLine>& lines) {
  // Results for a text that has changed meanwhile are dropped.
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
