#include "forms/about_dialog.h"

#include <gtest/gtest.h>

#include "core/product.h"
#include "forms/web.h"
#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

constexpr std::size_t kSpanish = 1;
constexpr std::size_t kArabic = 14;

struct AboutBox : testing::ProgramFixture {
  AboutDialog& Dialog() { return program->helpDialogs.about; }
  void Open() { Window().mnuAbout.Click(); }
  /// A formats file that has no formats, which is told by a run-time error.
  void LoadFormats(const std::string& ini) {
    CarryOn step;
    step([&] { program->catalogue.Load(ini, "", program->encodings); });
  }
};

TEST_F(AboutBox, TheMenuOpensItOnce) {
  int shown = 0;
  program->helpDialogs.about.Opened.Connect([&] { ++shown; });
  Open();
  EXPECT_TRUE(Dialog().IsOpen());
  Open();
  EXPECT_EQ(shown, 1);
  Dialog().cmdOK.Click();
  EXPECT_FALSE(Dialog().IsOpen());
  Open();
  EXPECT_EQ(shown, 2);
}

TEST_F(AboutBox, TellsTheVersionsAndTheSystem) {
  Open();
  EXPECT_EQ(Dialog().Title(), u"About Tessaly Cuewright");
  EXPECT_EQ(Dialog().lblVersion.GetText(), u"Version " + VersionText());
  EXPECT_EQ(Dialog().lblFree.GetText(), u"This program is Freeware.");
  EXPECT_EQ(Dialog().lblTessaly.GetText(), u"Visit Tessaly for updates and support");
  EXPECT_EQ(Dialog().lblOsName.GetText(), u"Test System (version 6.1)");
}

TEST_F(AboutBox, TellsTheVersionOfTheFormatsFile) {
  LoadFormats("[SFD_FILEINFO]\nversion=3.7\n");
  Open();
  EXPECT_EQ(Dialog().lblFormat.GetText(), u"Formats file version: 3.7");
}

TEST_F(AboutBox, AFormatsFileWithoutAVersionCountsAsTheFirst) {
  LoadFormats("[OTHER]\nversion=3.7\n");
  Open();
  EXPECT_EQ(Dialog().lblFormat.GetText(), u"Formats file version: 1.0");
}

TEST_F(AboutBox, MemoryIsToldInWholeKilobytesAndAnewEverySecond) {
  system.memory = 5 * 1024 + 1023;
  Open();
  EXPECT_EQ(Dialog().lblMemo.GetText(), u"Physical memory available to Windows: 5 KB");
  EXPECT_EQ(Dialog().tmrMemo.Interval(), 1000);
  EXPECT_TRUE(Dialog().tmrMemo.Enabled());
  system.memory = std::uint64_t{8000000000} * 1024;
  EXPECT_EQ(Dialog().lblMemo.GetText(), u"Physical memory available to Windows: 5 KB");
  Dialog().tmrMemo.Pass();
  EXPECT_EQ(Dialog().lblMemo.GetText(), u"Physical memory available to Windows: 8000000000 KB");
  Dialog().Close();
  EXPECT_FALSE(Dialog().tmrMemo.Enabled());
}

TEST_F(AboutBox, ASystemWithoutANameIsLinux) {
  system.name.reset();
  EXPECT_EQ(GetOsName(system), u"Linux");
}

TEST_F(AboutBox, TheLinkOpensTheProductPageInTheLanguageInForce) {
  Open();
  Dialog().lblTessaly.Click();
  program->ChangeLanguage(kSpanish);
  Dialog().lblTessaly.Click();
  EXPECT_EQ(desktop.opened, (std::vector<Text>{Text(kWebSite) + u"/en/cuewright.php?lang=english",
                                               Text(kWebSite) + u"/es/cuewright.php?lang=spanish"}));
}

TEST_F(AboutBox, APressOnThePictureMovesTheWindow) {
  int moves = 0;
  Dialog().MoveRequested.Connect([&] { ++moves; });
  Open();
  Dialog().picTop.PressMouse({MouseButton::Right, 1, 1});
  EXPECT_EQ(moves, 0);
  Dialog().picTop.PressMouse({MouseButton::Left, 1, 1});
  EXPECT_EQ(moves, 1);
}

TEST_F(AboutBox, IsMirroredInALanguageThatIsReadFromTheRight) {
  program->ChangeLanguage(kArabic);
  Open();
  EXPECT_TRUE(Dialog().RightToLeft());
}

TEST(Web, PagesStandInThePartOfTheirLanguage) {
  const Text site(kWebSite);
  EXPECT_EQ(WebPage(u"guides.php", u"ENGLISH"), site + u"/en/guides.php");
  EXPECT_EQ(WebPage(u"guides.php", u"FRENCH"), site + u"/en/guides.php");
  EXPECT_EQ(WebPage(u"downloads.php?cid=14", u"SPANISH"), site + u"/es/downloads.php?cid=14");
  EXPECT_EQ(WebPage(ProductPage(u"PORTUGUESE_BR"), u"PORTUGUESE_BR"), site + u"/en/cuewright.php?lang=portuguese_br");
}

TEST(Web, OnePageStandsAboveTheLanguagesAndIsToldThem) {
  EXPECT_EQ(WebPage(u"go.php?id=9", u"ENGLISH"), Text(kWebSite) + u"/go.php?id=9");
  EXPECT_EQ(WebPage(u"go.php?id=9", u"SPANISH"), Text(kWebSite) + u"/go.php?es=1&id=9");
}

TEST(Web, AMailIsBegunAfterAWordAboutTheLanguage) {
  testing::FakeDesktop desktop;
  testing::FakeMessages boxes;
  MailAuthor(desktop, boxes, u"a & b?\r\nß");
  ASSERT_EQ(boxes.shown.size(), 1u);
  EXPECT_EQ(boxes.shown[0].title, u"Email the Author");
  EXPECT_EQ(boxes.shown[0].icon, BoxIcon::Information);
  EXPECT_EQ(boxes.shown[0].text,
            u"When contacting the author please do it in english or spanish only.\r\n\r\n"
            u"Al contactar al autor por favor hazlo en inglés o español únicamente.");
  EXPECT_EQ(desktop.opened,
            std::vector<Text>{u"mailto:" + Text(kMailAddress) + u"?subject=a%20%26%20b%3F%0D%0A%C3%9F"});
}

TEST(Web, ASuggestionIsAMailWithItsSubject) {
  EXPECT_EQ(MailLink(u"Tessaly Cuewright: feature suggestion"),
            u"mailto:" + Text(kMailAddress) + u"?subject=Tessaly%20Cuewright%3A%20feature%20suggestion");
}

TEST(Web, RegionalSettingsThatLackAreTold) {
  testing::FakeDesktop desktop;
  testing::FakeMessages boxes;
  LangStrings strings;
  strings.Set(Message::NoRegionalPanel, u"none");
  ShowRegionalSettings(desktop, boxes, strings);
  EXPECT_EQ(desktop.regionalSettings, 1);
  EXPECT_TRUE(boxes.shown.empty());
  desktop.hasRegionalSettings = false;
  ShowRegionalSettings(desktop, boxes, strings);
  ASSERT_EQ(boxes.shown.size(), 1u);
  EXPECT_EQ(boxes.shown[0].text, u"none");
}

}  // namespace
}  // namespace cuewright
