#pragma once

#include <array>

#include "core/ports/messages.h"
#include "forms/settings_page.h"

namespace cuewright {

/// The page of the keyboard shortcuts and of how far rewind and forward go.
class KeysPage final : public SettingsPage {
 public:
  KeysPage(const Place& place, Messages& messages);

  CheckBox chkKeys{window_, "chkKeys"};
  Frame fraKeys{window_, "fraKeys"};
  Label lblPlayback{window_, "lblPlayback"};
  Label lblCaptioning{window_, "lblCaptioning"};
  ControlArray<Label, 10> lblHotkey{window_, "lblHotkey"};
  ControlArray<TextBox, 10> txtHotkey{window_, "txtHotkey"};
  ControlArray<TextBox, 2> txtPosition{window_, "txtPosition"};
  ControlArray<Label, 2> lblSeconds{window_, "lblSeconds"};

  /// The letters as they are shown. They are kept beside the key codes, and can differ from them in what was stored.
  const HotkeyLetters& Letters() const { return letters_; }
  void ShowLetters(HotkeyLetters letters);

  void Fill() override;
  void ApplyLanguage() override;
  void TakeOpenFields() override;
  void DropOpenFields() override { positionOpen_ = {}; }

 private:
  void EnableControls();
  void TakeKey(TextBox& box, std::size_t index, KeyEvent& key);
  void TakeLetter(TextBox& box, std::size_t index);
  void TakePosition(std::size_t index);

  Messages& messages_;
  HotkeyLetters letters_;
  std::array<bool, 2> positionOpen_{};  // the field was typed into and still has the focus
};

}  // namespace cuewright
