#include "forms/language_page.h"

#include "tests/support/settings_rig.h"

namespace cuewright {
namespace {

using testing::kArabic;
using testing::kRussian;
using testing::kSpanish;

using SettingsLanguage = testing::SettingsRig;

TEST_F(SettingsLanguage, TheListHoldsTheDisplayNamesAndTheOneInForce) {
  EXPECT_EQ(Dialog().language.cboLanguage.Items().size(), 25u);
  EXPECT_EQ(Dialog().language.cboLanguage.GetText(), u"English");
  EXPECT_EQ(Dialog().language.lblTranslator.GetText(), u"Translation by: Tessaly");
  EXPECT_EQ(Dialog().language.txtCharset.GetText(), u"0 - WESTERN_EUROPEAN_LATIN");
}

TEST_F(SettingsLanguage, AChangeRelabelsTheDialogAndTheMainWindowAtOnce) {
  program->messageCatalogue.AddBlock("0\t&Archivo\n193\tAjustes\n189\tTiempos\n190\tDetalles\n",
                                     static_cast<int>(kSpanish));
  Dialog().language.cboLanguage.Choose(kSpanish);
  EXPECT_EQ(Options().language, u"SPANISH");
  EXPECT_EQ(Dialog().Title(), u"Ajustes");
  EXPECT_EQ(Dialog().lblMenu[0].GetText(), u"Tiempos");
  EXPECT_EQ(Dialog().lblTop.GetText(), u"Tiempos");
  EXPECT_EQ(Window().mnuFile.GetText(), u"&Archivo");
  EXPECT_EQ(Dialog().language.cboLanguage.Index(), static_cast<int>(kSpanish));
  EXPECT_EQ(Stored(u"Language"), u"ENGLISH");
}

TEST_F(SettingsLanguage, DetailsOnShowChangeWithIt) {
  program->messageCatalogue.AddBlock("191\tElija un idioma.\n", static_cast<int>(kSpanish));
  Dialog().ShowSettingsPage(4);
  Dialog().language.cboLanguage.Choose(kSpanish);
  EXPECT_FALSE(Dialog().details.lblDetails.Visible());
  Dialog().language.cboLanguage.Choose(0);
  Hover(Dialog().cmdReset);
  Dialog().language.cboLanguage.Choose(kSpanish);
  EXPECT_EQ(Details(), "Elija un idioma.");
}

TEST_F(SettingsLanguage, TheChosenValuesOutliveAChange) {
  Dialog().rules.cmbApply.Choose(2);
  Dialog().player.cmbUImode.Choose(0);
  Dialog().language.cboLanguage.Choose(kSpanish);
  EXPECT_EQ(Dialog().rules.cmbApply.Index(), 2);
  EXPECT_EQ(Dialog().player.cmbUImode.Index(), 0);
  EXPECT_EQ(Options().applyWhen, 2);
}

TEST_F(SettingsLanguage, ArabicMirrorsTheDialog) {
  Dialog().language.cboLanguage.Choose(kArabic);
  EXPECT_TRUE(Dialog().RightToLeft());
  EXPECT_TRUE(Window().RightToLeft());
  EXPECT_EQ(Dialog().FlagRow(), static_cast<int>(kArabic));
  Dialog().language.cboLanguage.Choose(0);
  EXPECT_FALSE(Dialog().RightToLeft());
}

TEST_F(SettingsLanguage, TheNoticeShowsForAnotherCodePageOnly) {
  EXPECT_FALSE(Dialog().language.fraNotice.Visible());
  Dialog().language.cboLanguage.Choose(kRussian);
  EXPECT_TRUE(Dialog().language.fraNotice.Visible());
  EXPECT_EQ(Dialog().language.lblWarning.GetText(), u"Warning");
  EXPECT_EQ(Dialog().language.lblCurrLang.GetText(), u"Current language for non-Unicode programs: English");
  EXPECT_EQ(Dialog().language.lblReqLang.GetText(), u"Required language: Russian (native)");
  Dialog().language.cboLanguage.Choose(kSpanish);
  EXPECT_FALSE(Dialog().language.fraNotice.Visible());
}

TEST_F(SettingsLanguage, TheCompletionLinkShowsOnlyWhereTextsLack) {
  EXPECT_FALSE(Dialog().language.lblComplete.Visible());
  Dialog().language.cboLanguage.Choose(kRussian);
  EXPECT_TRUE(Dialog().language.lblComplete.Visible());
  EXPECT_EQ(Dialog().language.lblComplete.GetText(), u"Complete this translation...");
  Hover(Dialog().language.lblComplete);
  EXPECT_TRUE(Details().starts_with("This translation is 0% complete.\r\n\r\nTo complete the RUSSIAN translation"));
}

TEST_F(SettingsLanguage, ALanguageWithOneMissingTextShowsNoCompletionLink) {
  const auto block = [&](std::size_t missing) {
    std::string data;
    for (std::size_t id = 0; id < kMessageCount; ++id) {
      if (id >= 72 && id < 72 + missing) continue;
      const std::string text = ToUtf8(ReplaceAll(program->strings[NumberedMessage(id)], u"\n", u"\\n"));
      data += std::to_string(id) + (text.empty() ? "" : "\t" + text) + "\n";
    }
    return data;
  };
  program->messageCatalogue.AddBlock(block(1), static_cast<int>(kRussian));
  program->messageCatalogue.AddBlock(block(4), 22);
  Dialog().language.cboLanguage.Choose(static_cast<int>(kRussian));
  EXPECT_FALSE(Dialog().language.lblComplete.Visible());
  Dialog().language.cboLanguage.Choose(22);
  EXPECT_TRUE(Dialog().language.lblComplete.Visible());
}

TEST_F(SettingsLanguage, TheCompletionLinkWritesAndOpensTheTranslationFile) {
  std::filesystem::create_directory(folder.Path() / "run");
  Dialog().language.cboLanguage.Choose(kRussian);
  bool off = false;
  const Connection watch = Dialog().language.lblComplete.Changed.ConnectScoped([&] {
    if (!Dialog().language.lblComplete.Enabled()) off = true;
  });
  Dialog().language.lblComplete.Click();
  EXPECT_TRUE(off);
  EXPECT_TRUE(Dialog().language.lblComplete.Enabled());
  EXPECT_FALSE(desktop.busy);
  EXPECT_EQ(desktop.opened, std::vector<Text>{folder / "run/qxm_100_russian.txt"});
  EXPECT_TRUE(LastBox().starts_with("The language file has been created, and will be opened now."));
  EXPECT_EQ(boxes.shown.back().icon, BoxIcon::Information);
  EXPECT_NE(folder.Read("run/qxm_100_russian.txt").find("23017, \"New subtitle\"\r\n"), std::string::npos);
}

TEST_F(SettingsLanguage, TheRegionalSettingsOpenOrTheUserIsTold) {
  Dialog().language.cmdRegionalSettings.Click();
  EXPECT_EQ(desktop.regionalSettings, 1);
  EXPECT_TRUE(boxes.shown.empty());
  desktop.hasRegionalSettings = false;
  Dialog().language.cmdRegionalSettings.Click();
  EXPECT_EQ(boxes.shown.size(), 1u);
}

TEST_F(SettingsLanguage, AFirstRunOpensTheDialogAtTheLanguageOnce) {
  std::filesystem::remove(folder.Path() / "settings.ini");
  locale.language = u"German";
  userLocale = &locale;
  Restart({});
  int runs = 0;
  program->dialogs.settings.Opened.Connect([&] { ++runs; });
  EXPECT_EQ(Options().language, u"GERMAN");
  EXPECT_EQ(Options().languageRow, 21);
  program->OpenOnFirstRun();
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(events.yields, 1);
  EXPECT_EQ(Dialog().Page(), 4u);
  EXPECT_FALSE(program->FirstRun());
  Dialog().Close();
  EXPECT_EQ(Stored(u"Language"), u"GERMAN");
  program->OpenOnFirstRun();
  EXPECT_EQ(runs, 1);
  Dialog().Open();
  EXPECT_EQ(Dialog().Page(), 0u);
}

TEST_F(SettingsLanguage, AStoreWithAnOldNameHoldsTheNewOneAfterTheDialogCloses) {
  Dialog().Close();
  StartIn("FARSI");
  EXPECT_EQ(Options().language, u"PERSIAN");
  EXPECT_EQ(Stored(u"Language"), u"FARSI");
  Dialog().Close();
  EXPECT_EQ(Stored(u"Language"), u"PERSIAN");
}

}  // namespace
}  // namespace cuewright
