#include "forms/audio_dialog.h"

#include "core/numbers.h"
#include "text/labels.h"

namespace cuewright {
namespace {

constexpr TextView kModeKey = u"AUDIOMODE";

}  // namespace

AudioDialog::AudioDialog(const LangStrings& strings, SettingsStore& store)
    : Dialog("frmAudio"), strings_(strings), store_(store) {
  chkAudio.Clicked.Connect([this] { ShowMode(); });
  chkPlayer.Clicked.Connect([this] { ShowMode(); });
  cmdOK.Clicked.Connect([this] { Accept(); });
  cmdCancel.Clicked.Connect([this] { Close(); });
}

void AudioDialog::Open(bool rightToLeft) {
  chosen_ = kAudioToNowhere;
  SetTitle(WithoutDots(strings_[Message::OpenAudio]));
  SetRightToLeft(rightToLeft);
  lblTop.SetText(strings_[Message::SelectWhereToLoad]);
  chkAudio.SetText(strings_[Message::AudioBar]);
  chkPlayer.SetText(strings_[Message::Player]);
  cmdOK.SetText(strings_[Message::Ok]);
  cmdCancel.SetText(strings_[Message::Cancel]);
  for (Control* control : std::initializer_list<Control*>{&lblTop, &chkAudio, &chkPlayer, &lblFormats}) {
    control->SetRightToLeft(rightToLeft);
  }
  // The state without a choice. Checking one of the boxes below shows the formats and enables OK.
  ShowFormats(u"N/A");
  cmdOK.SetEnabled(false);
  chkAudio.SetValue(false);
  chkPlayer.SetValue(false);
  const double mode = LeadingNumber(store_.GetSetting(kMainSection, kModeKey, u"1"));
  if (mode == kAudioToBar || mode == kAudioToBar + kAudioToPlayer) chkAudio.SetValue(true);
  if (mode == kAudioToPlayer || mode == kAudioToBar + kAudioToPlayer) chkPlayer.SetValue(true);
  if (Mode() != kAudioToNowhere) ShowMode();
  NoteOpened();
}

std::uint8_t AudioDialog::Mode() const {
  const int mode = (chkAudio.Value() ? kAudioToBar : 0) + (chkPlayer.Value() ? kAudioToPlayer : 0);
  return Checked8(mode);
}

void AudioDialog::ShowMode() {
  const std::uint8_t mode = Mode();
  ShowFormats(mode == kAudioToNowhere  ? u"N/A"
              : mode == kAudioToPlayer ? u"WAV, MP3, SND, AU, AIF, WMA"
                                       : u"WAV (PCM)");
  cmdOK.SetEnabled(mode != kAudioToNowhere);
}

void AudioDialog::ShowFormats(TextView list) {
  lblFormats.SetText(strings_[Message::AudioFormatsSupported] + Text(kLineEnd) + Text(list));
}

void AudioDialog::Accept() {
  chosen_ = Mode();
  store_.SaveSetting(kMainSection, kModeKey, Decimal(chosen_));
  Close();
}

}  // namespace cuewright
