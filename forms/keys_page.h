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
  std::array<Label, 10> lblHotkey{Label{window_, "lblHotkey(0)"}, Label{window_, "lblHotkey(1)"},
                                  Label{window_, "lblHotkey(2)"}, Label{window_, "lblHotkey(3)"},
                                  Label{window_, "lblHotkey(4)"}, Label{window_, "lblHotkey(5)"},
                                  Label{window_, "lblHotkey(6)"}, Label{window_, "lblHotkey(7)"},
                                  Label{window_, "lblHotkey(8)"}, Label{window_, "lblHotkey(9)"}};
  std::array<TextBox, 10> txtHotkey{TextBox{window_, "txtHotkey(0)"}, TextBox{window_, "txtHotkey(1)"},
                                    TextBox{window_, "txtHotkey(2)"}, TextBox{window_, "txtHotkey(3)"},
                                    TextBox{window_, "txtHotkey(4)"}, TextBox{window_, "txtHotkey(5)"},
                                    TextBox{window_, "txtHotkey(6)"}, TextBox{window_, "txtHotkey(7)"},
                                    TextBox{window_, "txtHotkey(8)"}, TextBox{window_, "txtHotkey(9)"}};
  std::array<TextBox, 2> txtPosition{TextBox{window_, "txtPosition(0)"}, TextBox{window_, "txtPosition(1)"}};
  std::array<Label, 2> lblSeconds{Label{window_, "lblSeconds(0)"}, Label{window_, "lblSeconds(1)"}};

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
