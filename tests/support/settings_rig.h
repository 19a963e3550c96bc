#pragma once

#include <gtest/gtest.h>

#include "forms/settings_dialog.h"
#include "tests/support/program_fixture.h"

namespace cuewright::testing {

inline constexpr std::size_t kSpanish = 1;

inline constexpr std::size_t kArabic = 14;

inline constexpr std::size_t kRussian = 23;

/// A system whose user works with code page 1252.
struct WesternLocale final : Locale {
  Text GetLocaleText(std::int32_t locale, std::int32_t item) const override {
    if (item == kAnsiCodePage) return locale == 1049 ? u"1251" : u"1252";
    if (item == kEnglishLanguageName) return locale == 1049 ? u"Russian" : language;
    return u"native";
  }
  Text language = u"English";
};

struct SettingsRig : ProgramFixture {
  SettingsRig() { StartIn("ENGLISH"); }

  void StartIn(const std::string& language) {
    folder.Write("settings.ini", "[Brakemoor Works\\Cuewright]\nLanguage=" + language + "\n");
    Reopen();
  }
  void Reopen() {
    userLocale = &locale;
    Restart({});
    Options().nearMs = AppOptions().nearMs;
    Dialog().Open();
  }
  SettingsDialog& Dialog() { return program->dialogs.settings; }
  AppOptions& Options() { return program->options; }
  std::string Details() { return ToUtf8(Dialog().details.lblDetails.GetText()); }
  Text Stored(TextView key) { return program->store.GetSetting(u"Cuewright", key, u"?"); }
  template <class C>
  void Hover(C& control) {
    control.Hover();
  }
  static void Type(TextBox& box, const Text& text) {
    box.SetText(text);
    box.NoteEdited();
  }
  KeyEvent Press(TextBox& box, char16_t character) {
    KeyEvent key;
    key.character = character;
    key.code = character == 0 ? kKeyBackspace : character;
    box.TypeKey(key);
    return key;
  }
  static void Move(Slider& slider, int value) { slider.Move(value); }
  static void Choose(OptionButton& option) { option.Click(); }

  WesternLocale locale;
};

}  // namespace cuewright::testing
