#include "forms/audio_commands.h"

#include "core/runtime_error.h"
#include "external/common_dialogs.h"
#include "text/labels.h"

namespace cuewright {
namespace {

constexpr TextView kLastAudioKey = u"AFileName";
constexpr TextView kPlayerFilter =
    u"Supported audio formats (wav,mp3,snd,au,aif,wma)|*.wav;*.snd;*.au;*.aif;*.wma;*.mp3";
constexpr TextView kWaveFilter = u"PCM wave files (wav)|*.wav";

}  // namespace

AudioCommands::AudioCommands(Workbench bench, DocumentSession& session, SettingsStore& store, Recall& recall,
                             AudioBar& bar, Ports ports)
    : dialog(bench.strings, store), bench_(bench), session_(session), recall_(recall), bar_(bar), ports_(ports) {
  bench_.window.mnuOpenWav.Clicked.Connect([this] { OpenByDialogs(); });
  bench_.window.mnuAFileName.Clicked.Connect([this] { OpenLast(); });
  bench_.window.mnuAudioBarColor.Clicked.Connect([this] { ChooseColor(); });
}

std::uint8_t AudioCommands::AskMode() {
  dialog.Open(bench_.window.RightToLeft());
  return dialog.AudioLoadMode();
}

void AudioCommands::OpenByDialogs() {
  session_.CloseTools();
  const std::uint8_t mode = AskMode();
  if (mode == kAudioToNowhere) return;
  const Text path =
      ShowOpenDialog(ports_.fileDialogs, mode == kAudioToPlayer ? kPlayerFilter : kWaveFilter,
                     WithoutDots(bench_.strings[Message::OpenAudio]), recall_.LastFolder(FileKind::Sound));
  if (!IsBlank(path)) OpenAudioFile(path, mode);
}

void AudioCommands::OpenLast() {
  const std::uint8_t mode = AskMode();
  if (mode != kAudioToNowhere) OpenAudioFile(recall_.Path(kLastAudioKey), mode);
}

void AudioCommands::OpenAudioFile(TextView given, std::uint8_t mode) {
  if (bench_.document.FileInWork) return;
  const Text path(given);
  if (!ports_.files.Exists(path)) {
    ports_.messages.Show({Fill(bench_.strings[Message::FileNotFound], path), BoxIcon::Error});
    return;
  }
  recall_.Keep(kLastAudioKey, bench_.window.mnuAFileName, path);
  if ((mode & kAudioToPlayer) != 0) {
    CarryOn step;
    bench_.document.VideoPath = path;
    step([&] { ports_.player.SetUrl(path); });
    step([&] { session_.ResetControls(); });
    if (step.Last()) ports_.messages.Show({bench_.strings[Message::ErrorLoadingFilm], BoxIcon::Warning});
  }
  if ((mode & kAudioToBar) != 0) bar_.LoadWaveFile(path);
  bar_.PlaceCurrentMarks();
}

void AudioCommands::ChooseColor() {
  const std::int32_t color = ShowColorDialog(ports_.pickers, bar_.View().color);
  if (color != kNoColor && color != bar_.View().color) bar_.SetWaveColor(color);
}

}  // namespace cuewright
