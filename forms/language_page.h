#pragma once

#include "core/ports/desktop.h"
#include "core/ports/messages.h"
#include "forms/settings_page.h"
#include "settings/languages.h"

namespace cuewright {

/// The page of the language, of the code page that its texts need, and of the manner.
class LanguagePage final : public SettingsPage {
 public:
  LanguagePage(const Place& place, Languages& languages, Desktop& desktop, Messages& messages);

  Label lblLanguage{window_, "lblLanguage"};
  ComboBox cboLanguage{window_, "cboLanguage"};
  Picture picFlag{window_, "picFlag"};
  Label lblTranslator{window_, "lblTranslator"};
  Label lblComplete{window_, "lblComplete"};
  Frame fraCharset{window_, "fraCharset"};
  TextBox txtCharset{window_, "txtCharset"};
  Label lblCharset{window_, "lblCharset"};
  Button cmdRegionalSettings{window_, "cmdRegionalSettings"};
  Frame fraNotice{window_, "fraNotice"};
  Label lblWarning{window_, "lblWarning"};
  Label lblCurrLang{window_, "lblCurrLang"};
  Label lblReqLang{window_, "lblReqLang"};
  CheckBox chkClassic{window_, "chkClassic"};

  /// The user chose a row of the language table.
  Signal<LanguagePage, std::size_t> LanguageChosen;
  /// Lists the languages that there are.
  void ListLanguages();
  /// Reads the strings of the language in force, which `ApplyLanguage` of all pages needs.
  void LoadStrings();
  /// What the link to complete the translation tells.
  Text CompletionHint() const { return languages_.CompletionHint(percent_); }

  void ApplyLanguage() override;

 private:
  void CompleteTranslation();

  Languages& languages_;
  Desktop& desktop_;
  Messages& messages_;
  int percent_ = 100;  // of the texts that the translation has
};

}  // namespace cuewright
