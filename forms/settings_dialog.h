#pragma once

#include <array>
#include <functional>

#include "form/dialog.h"
#include "forms/keys_page.h"
#include "forms/language_page.h"
#include "forms/player_page.h"
#include "forms/ports.h"
#include "forms/preview_page.h"
#include "forms/rules_page.h"

namespace cuewright {

/// What the settings dialog works on.
struct SettingsParts {
  AppOptions& options;
  const LangStrings& strings;
  SettingsStore& store;
  Languages& languages;
  const DocumentState& document;
  Preview& preview;
  TimingCapture& capture;
  VideoFilter& filter;
  Ports ports;
};

/// The settings dialog, `frmSettings`: a menu of pages, and below them the area that explains what the pointer is over.
/// Its controls change the options as the user works; OK stores them. The language is stored whenever it closes.
class SettingsDialog final : public Dialog {
 public:
  static constexpr std::size_t kPages = 5;

  explicit SettingsDialog(const SettingsParts& parts);

  Picture picMenu{*this, "picMenu"};
  ControlArray<Label, kPages> lblMenu{*this, "lblMenu"};
  ControlArray<Picture, kPages> imgMenu{*this, "imgMenu"};
  Picture picTop{*this, "picTop"};
  Label lblTop{*this, "lblTop"};
  ControlArray<Picture, kPages> picOptions{*this, "picOptions"};
  DetailsArea details;
  Button cmdOK{*this, "cmdOK"};
  Button cmdReset{*this, "cmdReset"};

  RulesPage rules;
  KeysPage keys;
  PlayerPage player;
  PreviewPage preview;
  LanguagePage language;

  /// Fills the dialog: on a first run at the language, else at the first page.
  void Open();

  /// Shows one page; a number beyond the last is the last.
  void ShowSettingsPage(std::size_t index);
  std::size_t Page() const { return page_; }
  /// Sets every control from the options.
  void FillSettingsControls();
  /// Shows a text in the details area; an empty one hides the area.
  void ShowSettingsDetails(TextView text) { details.Show(text); }
  /// Loads the strings of the language in force and sets all captions.
  void ApplySettingsDialogLanguage();

  /// The user chose a row of the language table: it is to be taken, and all other windows to be labelled anew.
  Signal<SettingsDialog, std::size_t> LanguageChosen;
  Signal<SettingsDialog> PageChanged;
  Signal<SettingsDialog> LanguageApplied;
  /// All that the details area can tell, by which it is measured.
  std::vector<Text> DetailTexts() const;
  /// The flag is that of this row of the language table.
  std::int16_t FlagRow() const { return parts_.options.languageRow; }

 protected:
  void OnClose() override;

 private:
  SettingsPage::Place PagePlace(const SettingsParts& parts) { return {*this, details, parts.options, parts.strings}; }
  void WireMenu();
  void ShowTitle();
  void PointAtMenu(std::size_t entry);
  void LeaveMenu();
  void ChangeLanguage(std::size_t row);
  void TakeOpenFields();
  void Accept();
  void Reset();
  void ResetLanguage();

  SettingsParts parts_;
  const LangStrings& strings_;
  const std::array<SettingsPage*, kPages> pages_ = {&rules, &keys, &player, &preview, &language};
  std::size_t page_ = 0;
};

}  // namespace cuewright
