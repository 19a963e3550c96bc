#include "forms/language_page.h"

#include "forms/web.h"

namespace cuewright {

LanguagePage::LanguagePage(const Place& place, Languages& languages, Desktop& desktop, Messages& messages)
    : SettingsPage(place, {Message::LanguageAndEncoding, Message::LanguagePageHint, Message::LanguagePageHint}),
      languages_(languages),
      desktop_(desktop),
      messages_(messages) {
  Shows(lblLanguage, Message::InterfaceLanguage);
  Shows(lblTranslator, Message::TranslationBy);
  Shows(fraCharset, Message::SubtitleCharset, Hint{Message::EncodingHint, Message::ReloadAfterCharset});
  Shows(lblCharset, Message::CharsetIsRegional);
  Shows(cmdRegionalSettings, Message::Configure);
  Shows(chkClassic, Message::ClassicManner, Message::ClassicMannerHint);
  Speaks(cboLanguage, Message::InterfaceLanguage);
  Speaks(txtCharset, Message::SubtitleCharset);
  cboLanguage.Chosen.Connect([this] { LanguageChosen(languages_.RowOfDisplayName(cboLanguage.GetText())); });
  lblComplete.Hovered.Connect([this] { details_.Show(CompletionHint()); });
  lblComplete.Clicked.Connect([this] { CompleteTranslation(); });
  cmdRegionalSettings.Clicked.Connect([this] { ShowRegionalSettings(desktop_, messages_, strings_); });
}

void LanguagePage::ListLanguages() {
  std::vector<Text> names;
  for (const LanguageRow& row : languages_.LanguageTable()) names.push_back(row.displayName);
  cboLanguage.SetItems(std::move(names));
}

void LanguagePage::LoadStrings() {
  percent_ = languages_.LoadLanguageStrings(false);
  lblComplete.SetVisible(percent_ != 100);
}

void LanguagePage::ApplyLanguage() {
  SettingsPage::ApplyLanguage();
  lblComplete.SetText(u"Complete this translation...");
  cmdRegionalSettings.SetSpokenName(WithoutAccessKey(strings_[Message::Configure]) + u" " +
                                    WithoutAccessKey(strings_[Message::SubtitleCharset]));
  const std::size_t row = options_.languageRow;
  cboLanguage.SetIndex(languages_.FindLanguageInList(row, cboLanguage.Items()));
  picFlag.SetSpokenName(languages_.LanguageTable()[row].displayName);
  txtCharset.SetText(languages_.CharsetText());
  const Languages::NoticeTexts notice = languages_.Notice();
  lblWarning.SetText(notice.lblWarning);
  lblCurrLang.SetText(notice.lblCurrLang);
  lblReqLang.SetText(notice.lblReqLang);
  fraNotice.SetVisible(languages_.NeedsNotice());
  fraNotice.SetSpokenName(notice.lblWarning);
}

void LanguagePage::CompleteTranslation() {
  if (!lblComplete.Enabled()) return;
  lblComplete.SetEnabled(false);
  desktop_.SetBusy(true);
  percent_ = languages_.LoadLanguageStrings(true);
  messages_.Show({languages_.TranslationFileMessage(), BoxIcon::Information});
  desktop_.ShellOpen(languages_.TranslationFilePath());
  lblComplete.SetEnabled(true);
  desktop_.SetBusy(false);
}

}  // namespace cuewright
