#include "forms/player_binding.h"

#include "core/runtime_error.h"

namespace cuewright {

PlayerBinding::PlayerBinding(MainWindow& window, SubWindow& sub, DocumentState& document, const LangStrings& strings,
                             Files& files, Messages& messages, Player& player, Preview& preview, TimingCapture& capture,
                             Recall& recall)
    : window_(window),
      sub_(sub),
      document_(document),
      strings_(strings),
      files_(files),
      messages_(messages),
      player_(player),
      preview_(preview),
      capture_(capture),
      recall_(recall) {
  connections_.push_back(player_.PlayStateChange.ConnectScoped([this](int state) { OnState(state); }));
  connections_.push_back(player_.PositionChange.ConnectScoped([this](double, double) { OnSeek(); }));
  connections_.push_back(player_.MediaError.ConnectScoped([this](const Text&) {
    messages_.Show({strings_[Message::ErrorLoadingFilm], BoxIcon::Warning});
  }));
}

void PlayerBinding::LoadVideoFile(TextView path) {
  if (document_.FileInWork) return;
  if (!files_.Exists(path)) {
    messages_.Show({Fill(strings_[Message::FileNotFound], path), BoxIcon::Error});
    return;
  }
  const Text video(path);  // the caller's text may be one that changes below
  CarryOn step;
  // A wave that was opened before any film may be this one's.
  if (document_.HasVideo() && document_.VideoPath != video) step([&] { closeWave(); });
  document_.VideoPath = video;
  step([&] { player_.SetUrl(video); });
  step([&] { resetControls(); });
  step([&] { recall_.Keep(u"VFileName", window_.mnuVFileName, video); });
  step([&] { closeReport(); });
  step([&] { sub_.Load(); });
  step([&] { preview_.DrawPreviewStyle(); });
  step([&] { preview_.PlacePreview(); });
  if (step.Last()) messages_.Show({strings_[Message::ErrorLoadingFilm], BoxIcon::Warning});
}

void PlayerBinding::Empty() {
  CarryOn step;
  step([&] { player_.SetUrl({}); });
  step([&] { player_.Close(); });
  player_.SetEnabled(false);
  window_.picPLogo.SetVisible(true);
  sub_.Unload();
}

void PlayerBinding::OnState(int state) {
  const bool document = document_.HasDocument();
  if (state != kPlayerPlaying && state != kPlayerPaused) capture_.OnFilmGone();
  switch (state) {
    case kPlayerStopped:
      window_.tmrLimit.SetEnabled(false);
      preview_.ClearPreviewCaption();
      capture_.ClearPosition();
      if (document) {
        window_.cmdApply.SetEnabled(false);
        window_.txtSub.SetEnabled(true);
      }
      break;
    case kPlayerPaused:
      window_.cmdApply.SetEnabled(false);
      break;
    case kPlayerPlaying:
      if (document && !window_.optPreview.Value()) window_.cmdApply.SetEnabled(true);
      break;
    default:
      if (document) {
        window_.cmdApply.SetEnabled(false);
        window_.txtSub.SetEnabled(true);
      }
  }
}

void PlayerBinding::OnSeek() {
  capture_.SamplePosition();
  if (window_.optPreview.Value()) preview_.GetPreviewCap();
}

}  // namespace cuewright
