#include "forms/player_binding.h"

#include "core/runtime_error.h"
#include "external/common_dialogs.h"
#include "text/labels.h"

namespace cuewright {
namespace {

constexpr TextView kVideoFilter =
    u"All media types|*.mpeg;*.mpg;*.mpe;*.m1v;*.mp2v;*.mpeg2;*.mp4;*.wmv;*.wm;*.asf;*.avi;*.divx;*.xvid;*.mkv;*.ogm|"
    u"Movie file (mpeg, mpg, mpe, m1v, mp2v, mpeg2, mp4)|*.mpeg;*.mpg;*.mpe;*.m1v;*.mp2v;*.mpeg2;*.mp4|"
    u"Windows Media files (wmv, wm, asf)|*.wmv;*.wm;*.asf|"
    u"Video files (avi, divx, xvid)|*.avi;*.divx;*.xvid|"
    u"Other container formats (mkv, ogm)|*.mkv;*.ogm|"
    u"All files|*.*";

}  // namespace

PlayerBinding::PlayerBinding(Workbench bench, DocumentSession& session, Preview& preview, TimingCapture& capture,
                             Recall& recall, Ports ports)
    : bench_(bench), session_(session), preview_(preview), capture_(capture), recall_(recall), ports_(ports) {
  bench_.window.mnuOpenVideo.Clicked.Connect([this] { OpenVideo(); });
  bench_.window.mnuVFileName.Clicked.Connect([this] { LoadVideoFile(recall_.Path(u"VFileName")); });
  connections_.push_back(ports_.player.PlayStateChange.ConnectScoped([this](int state) { OnState(state); }));
  connections_.push_back(ports_.player.PositionChange.ConnectScoped([this](double, double) { OnSeek(); }));
  connections_.push_back(ports_.player.MediaError.ConnectScoped([this](const Text&) {
    ports_.messages.Show({bench_.strings[Message::ErrorLoadingFilm], BoxIcon::Warning});
  }));
}

void PlayerBinding::OpenVideo() {
  if (bench_.document.FileInWork) return;
  recall_.KeepVolume(ports_.player.Volume());
  session_.CloseTools();
  const Text path = ShowOpenDialog(ports_.fileDialogs, kVideoFilter, WithoutDots(bench_.strings[Message::OpenVideo]),
                                   recall_.LastFolder(FileKind::Film));
  if (!IsBlank(path)) LoadVideoFile(path);
}

void PlayerBinding::LoadVideoFile(TextView path) {
  if (bench_.document.FileInWork) return;
  if (!ports_.files.Exists(path)) {
    ports_.messages.Show({Fill(bench_.strings[Message::FileNotFound], path), BoxIcon::Error});
    return;
  }
  const Text video(path);  // the caller's text may be one that changes below
  CarryOn step;
  // Without a film before, the wave that is open may belong to this one, and stays.
  if (bench_.document.HasVideo() && bench_.document.VideoPath != video) step([&] { FilmChanges(); });
  bench_.document.VideoPath = video;
  step([&] { ports_.player.SetUrl(video); });
  step([&] { session_.ResetControls(); });
  step([&] { recall_.Keep(u"VFileName", bench_.window.mnuVFileName, video); });
  step([&] { session_.CloseReport(); });
  preview_.OpenOverlay(step);
  if (step.Last()) ports_.messages.Show({bench_.strings[Message::ErrorLoadingFilm], BoxIcon::Warning});
}

void PlayerBinding::OnState(int state) {
  const bool document = bench_.document.HasDocument();
  if (state != kPlayerPlaying && state != kPlayerPaused) capture_.OnFilmGone();
  switch (state) {
    case kPlayerStopped:
      bench_.window.tmrLimit.SetEnabled(false);
      preview_.ClearPreviewCaption();
      capture_.ClearPosition();
      if (document) {
        bench_.window.cmdApply.SetEnabled(false);
        bench_.window.txtSub.SetEnabled(true);
      }
      break;
    case kPlayerPaused:
      bench_.window.cmdApply.SetEnabled(false);
      break;
    case kPlayerPlaying:
      if (document && !bench_.window.optPreview.Value()) bench_.window.cmdApply.SetEnabled(true);
      break;
    default:
      if (document) {
        bench_.window.cmdApply.SetEnabled(false);
        bench_.window.txtSub.SetEnabled(true);
      }
  }
}

void PlayerBinding::OnSeek() {
  capture_.SamplePosition();
  if (bench_.window.optPreview.Value()) preview_.GetPreviewCap();
}

}  // namespace cuewright
