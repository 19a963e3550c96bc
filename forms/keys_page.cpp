#include "forms/keys_page.h"

#include <algorithm>

#include "core/counting.h"
#include "core/numbers.h"
#include "text/units.h"

namespace cuewright {
namespace {

constexpr std::array<Message, 10> kHotkeyNames = {Message::Play,
                                                  Message::Pause,
                                                  Message::Stop,
                                                  Message::Start,
                                                  Message::Next,
                                                  Message::End,
                                                  Message::ReturnToPreviousSubtitle,
                                                  Message::JumpToNextSubtitle,
                                                  Message::Rewind,
                                                  Message::ForwardKey};
constexpr std::array<Message, 2> kPositionNames = {Message::Rewind, Message::ForwardKey};

bool IsUpperLetter(char16_t c) { return c >= u'A' && c <= u'Z'; }

void SelectAll(TextBox& box) { box.Select(0, CountOf(box.GetText())); }

}  // namespace

KeysPage::KeysPage(const Place& place, Messages& messages)
    : SettingsPage(place, {Message::KeyboardShortcuts, Message::KeyboardShortcutsHint, Message::KeyboardShortcutsHint}),
      messages_(messages) {
  Shows(chkKeys, Message::EnableShortcuts, Message::EnableShortcutsHint);
  Shows(fraKeys, Message::AvailableShortcuts);
  Shows(lblPlayback, Message::Playback);
  Shows(lblCaptioning, Message::Captioning);
  for (Label& label : lblSeconds) Shows(label, Message::SecondsOfRewind);
  chkKeys.Clicked.Connect([this] { EnableControls(); });
  for (std::size_t k = 0; k < txtHotkey.size(); ++k) {
    TextBox& box = txtHotkey[k];
    Shows(lblHotkey[k], kHotkeyNames[k]);
    Speaks(box, kHotkeyNames[k]);
    box.KeyPress.Connect([this, &box, k](KeyEvent& key) { TakeKey(box, k, key); });
    box.Edited.Connect([this, &box, k] { TakeLetter(box, k); });
    box.GotFocus.Connect([&box] { SelectAll(box); });
    box.MouseUp.Connect([&box](const MouseEvent&) { SelectAll(box); });
  }
  for (std::size_t i = 0; i < txtPosition.size(); ++i) {
    txtPosition[i].KeyPress.Connect([](KeyEvent& key) {
      if (key.character < u'0' || key.character > u'9') key.handled = true;
    });
    txtPosition[i].Edited.Connect([this, i] { positionOpen_[i] = true; });
    txtPosition[i].LostFocus.Connect([this, i] { TakePosition(i); });
  }
}

void KeysPage::ShowLetters(HotkeyLetters letters) {
  letters_ = std::move(letters);
  for (std::size_t k = 0; k < txtHotkey.size(); ++k) txtHotkey[k].SetText(letters_[k]);
}

void KeysPage::Fill() {
  SettingsPage::Fill();
  for (TextBox& box : txtPosition) box.SetText(OptionOf(box.Name()).field.stored(options_));
  EnableControls();
}

void KeysPage::ApplyLanguage() {
  SettingsPage::ApplyLanguage();
  for (std::size_t i = 0; i < txtPosition.size(); ++i) {
    txtPosition[i].SetSpokenName(WithoutAccessKey(strings_[kPositionNames[i]]) + u", " +
                                 WithoutAccessKey(strings_[Message::SecondsOfRewind]));
  }
}

void KeysPage::EnableControls() {
  const bool on = chkKeys.Value();
  for (Control* control : std::initializer_list<Control*>{&fraKeys, &lblPlayback, &lblCaptioning}) {
    control->SetEnabled(on);
  }
  for (Label& label : lblHotkey) label.SetEnabled(on);
  for (TextBox& box : txtHotkey) box.SetEnabled(on);
  for (TextBox& box : txtPosition) box.SetEnabled(on);
  for (Label& label : lblSeconds) label.SetEnabled(on);
}

void KeysPage::TakeKey(TextBox& box, std::size_t index, KeyEvent& key) {
  key.handled = true;
  const char16_t letter = UpperAscii(key.character);
  if (!IsUpperLetter(letter)) {
    messages_.Show({strings_[Message::KeyFromAToZ], BoxIcon::Information});
    return;
  }
  box.SetText(Text(1, letter));
  TakeLetter(box, index);
}

void KeysPage::TakeLetter(TextBox& box, std::size_t index) {
  const Text text = ToUpper(box.GetText());
  // Only pasting or dropping gives anything but one letter: the letter in force comes back.
  if (text.size() == 1 && IsUpperLetter(text[0])) {
    letters_[index] = text;
    OptionOf(box.Name()).field.take(options_, Decimal(text[0]));
  }
  box.SetText(letters_[index]);
  SelectAll(box);
}

void KeysPage::TakeOpenFields() {
  for (std::size_t i = 0; i < txtPosition.size(); ++i) {
    if (positionOpen_[i]) TakePosition(i);
  }
}

void KeysPage::TakePosition(std::size_t index) {
  positionOpen_[index] = false;
  TextBox& box = txtPosition[index];
  const Option& option = OptionOf(box.Name());
  box.SetText(Decimal(std::clamp(LeadingInt(box.GetText()), option.range.least, option.range.most)));
  option.field.take(options_, box.GetText());
}

}  // namespace cuewright
