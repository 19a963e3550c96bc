#include "forms/audio_commands.h"

#include "core/runtime_error.h"
#include "external/common_dialogs.h"

namespace cuewright {
namespace {

constexpr TextView kLastAudioKey = u"AFileName";
constexpr TextView kPlayerFilter =
    u"Supported audio formats (wav,mp3,snd,au,aif,wma)|*.wav;*.snd;*.au;*.aif;*.wma;*.mp3";
constexpr TextView kWaveFilter = u"PCM wave files (wav)|*.wav";

}  // namespace

AudioCommands::AudioCommands(MainWindow& window, DocumentState& document, const LangStrings& strings,
                             const Languages& languages, SettingsStore& store, Recall& recall, AudioBar& bar,
                             Ports ports)
    : dialog(strings, store),
      window_(window),
      document_(document),
      strings_(strings),
      languages_(languages),
      recall_(recall),
      bar_(bar),
      ports_(ports) {
  window_.mnuOpenWav.Clicked.Connect([this] { OpenByDialogs(); });
  window_.mnuAFileName.Clicked.Connect([this] { OpenLast(); });
  window_.mnuAudioBarColor.Clicked.Connect([this] { ChooseColor(); });
}

std::uint8_t AudioCommands::AskMode() {
  dialog.Open(languages_.IsRightToLeft());
  if (runDialog) runDialog();
  return dialog.AudioLoadMode();
}

void AudioCommands::OpenByDialogs() {
  closeTools();
  const std::uint8_t mode = AskMode();
  if (mode == kAudioToNowhere) return;
  const Text path =
      ShowOpenDialog(ports_.fileDialogs, mode == kAudioToPlayer ? kPlayerFilter : kWaveFilter,
                     ReplaceAll(strings_[Message::OpenAudio], u"...", {}), recall_.LastFolder(FileKind::Sound));
  if (!IsBlank(path)) OpenAudioFile(path, mode);
}

void AudioCommands::OpenLast() {
  const std::uint8_t mode = AskMode();
  if (mode != kAudioToNowhere) OpenAudioFile(recall_.Path(kLastAudioKey), mode);
}

void AudioCommands::OpenAudioFile(TextView given, std::uint8_t mode) {
  if (document_.FileInWork) return;
  const Text path(given);
  if (!ports_.files.Exists(path)) {
    ports_.messages.Show({Fill(strings_[Message::FileNotFound], path), BoxIcon::Error});
    return;
  }
  recall_.Keep(kLastAudioKey, window_.mnuAFileName, path);
  if ((mode & kAudioToPlayer) != 0) {
    CarryOn step;
    document_.VideoPath = path;
    step([&] { ports_.player.SetUrl(path); });
    step([&] { resetControls(); });
    if (step.Last()) ports_.messages.Show({strings_[Message::ErrorLoadingFilm], BoxIcon::Warning});
  }
  if ((mode & kAudioToBar) != 0) bar_.LoadWaveFile(path);
  bar_.PlaceCurrentMarks();
}

void AudioCommands::ChooseColor() {
  const std::int32_t color = ShowColorDialog(ports_.pickers, bar_.View().color);
  if (color != kNoColor && color != bar_.View().color) bar_.SetWaveColor(color);
}

}  // namespace cuewright
