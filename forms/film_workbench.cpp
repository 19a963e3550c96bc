#include "forms/film_workbench.h"

#include <utility>

#include "core/frame_rate.h"
#include "text/labels.h"
#include "tools/typed_time.h"

namespace cuewright {

FilmWorkbench::FilmWorkbench(Workbench bench, Player& player, const FilmShots& shots, Messages& messages)
    : bench_(bench), player_(player), shots_(shots), messages_(messages) {
  MainWindow& w = bench_.window;
  w.mnuGoToPosition.Clicked.Connect([this] { GoToPosition(); });
  w.mnuHardware.Clicked.Connect([this] {
    bench_.options.hardwareDecoding = !bench_.options.hardwareDecoding;
    ShowHardware();
  });
  for (std::size_t i = 0; i < w.mnuSoundTrack.size(); ++i) {
    w.mnuSoundTrack[i].Clicked.Connect([this, i] {
      if (i < tracks_.size()) player_.SetAudioTrack(tracks_[i].stream);
    });
  }
  w.mnuFilm.AboutToShow.Connect([this] { ShowTracks(); });
  w.mnuSoundTracks.AboutToShow.Connect([this] { ShowTracks(); });
  w.tmrTime.Tick.Connect([this] { FollowTrack(); });
}

void FilmWorkbench::ShowItems() {
  MainWindow& w = bench_.window;
  const bool workbench = bench_.options.manner.FilmIsAWorkbench();
  for (MenuItem* item : {&w.mnuGoToPosition, &w.mnuHardware}) item->SetVisible(workbench);
  w.mnuGoToPosition.SetEnabled(bench_.document.HasVideo());
  ShowHardware();
  ShowTracks();
}

void FilmWorkbench::ShowHardware() {
  const bool on = bench_.options.hardwareDecoding && bench_.options.manner.FilmIsAWorkbench();
  bench_.window.mnuHardware.SetChecked(on);
  player_.SetHardwareDecoding(on);
}

void FilmWorkbench::ShowTracks() {
  MainWindow& w = bench_.window;
  tracks_ = bench_.document.HasVideo() ? player_.SoundTracks() : std::vector<SoundTrack>();
  for (std::size_t i = 0; i < w.mnuSoundTrack.size(); ++i) {
    MenuItem& item = w.mnuSoundTrack[i];
    item.SetVisible(i < tracks_.size());
    if (i >= tracks_.size()) continue;
    Text name = Fill(bench_.strings[Message::SoundTrackName], Decimal(i + 1));
    if (!tracks_[i].words.empty()) name += u": " + ReplaceAll(tracks_[i].words, u"&", u"&&");
    item.SetText(std::move(name));
    item.SetChecked(tracks_[i].stream == player_.AudioTrack());
  }
  w.mnuSoundTracks.SetVisible(bench_.options.manner.FilmIsAWorkbench() && tracks_.size() > 1);
}

void FilmWorkbench::FollowTrack() {
  const bool same = bench_.document.VideoPath == film_ && track_ >= 0;
  const int heard = bench_.document.HasVideo() ? player_.AudioTrack() : -1;
  const int before = std::exchange(track_, heard);
  film_ = bench_.document.VideoPath;
  if (!same || heard < 0 || heard == before) return;
  ShowTracks();
  if (bench_.options.manner.FilmIsAWorkbench()) TrackChanged();
}

std::optional<Ms> FilmWorkbench::TypedPosition(TextView typed) const {
  typed = TrimBlanks(typed);
  if (typed.starts_with(u'#')) {
    const auto frame = TypedNumber(TrimBlanks(typed.substr(1)));
    if (!frame) return {};
    if (const auto begins = shots_.PictureBegins(*frame)) return begins;
    const FrameRate rate = player_.FramesPerSecond();
    return rate.IsUsual() ? std::optional(rate.MsOfFrames(*frame)) : std::nullopt;
  }
  if (typed.ends_with(u"ms")) return TypedNumber(TrimBlanks(typed.substr(0, typed.size() - 2)));
  return TypedTime(typed);
}

void FilmWorkbench::GoToPosition() {
  if (!bench_.document.HasVideo() || !player_.Enabled()) return;
  const LangStrings& strings = bench_.strings;
  const Text title = WithoutDots(strings[Message::GoToPositionItem]);
  const Text typed = messages_.Ask({strings[Message::GoToPositionQuestion], title, {}});
  if (typed.empty()) return;
  const auto ms = TypedPosition(typed);
  if (!ms) {
    messages_.Show({Fill(strings[Message::PositionNotUnderstood], typed), BoxIcon::Warning, BoxButtons::Ok, title});
    return;
  }
  player_.SetCurrentPosition(ms->Seconds());
}

}  // namespace cuewright
