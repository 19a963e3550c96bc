#include "forms/update_dialog.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

constexpr TextView kInit = u"Initializing AutoUpdate...";
constexpr TextView kConnecting = u"Connecting to server...";
constexpr TextView kGetting = u"Getting list of updates...";
constexpr TextView kProcessing = u"Processing updates list...";
constexpr TextView kDone = u"Done.";
constexpr TextView kFailed = u"AutoUpdate failed, please retry later.";
constexpr TextView kLatest = u"You are using the latest product version. No update needed.";
constexpr TextView kClick = u"Click OK to go to the download page now and close this window.";

/// Dates in one fixed form.
struct DateLocale final : Locale {
  Text LongDate(int year, int month, int day) const override {
    return u"day " + Decimal(day) + u" of month " + Decimal(month) + u" of " + Decimal(year);
  }
};

struct UpdateCheck : testing::ProgramFixture {
  UpdateCheck() {
    userLocale = &dates;
    program->store.SaveSetting(u"Cuewright", u"UpdateSite", u"https://site.example");
    Restart({});
    std::filesystem::create_directory(folder.Path() / "run");
  }

  UpdateDialog& Dialog() { return *dialog; }
  /// The check of a program of this version.
  void Check(const Version& version = {1, 2, 5}) {
    dialog = std::make_unique<UpdateDialog>(UpdateParts{
        program->options, program->strings, program->languages, program->folders, program->encodings, dates, web,
        Ports{files, boxes, dialogs, events, desktop, player, pickers}, program->store, u"the settings", version});
    dialog->Open();
    dialog->OnActivated();
  }
  void CheckList(const std::string& list, const Version& version = {1, 2, 5}) {
    web.body = list;
    Check(version);
  }
  std::vector<Text> Lines() const {
    std::vector<Text> lines = Split(dialog->txtStatus.GetText(), kLineEnd);
    EXPECT_TRUE(lines.back().empty());
    lines.pop_back();
    return lines;
  }
  bool HasTempFile() const { return std::filesystem::exists(folder.Path() / "run/qxmupd.tmp"); }
  void ExpectClose() {
    EXPECT_EQ(Dialog().cmdOK.GetText(), u"Close");
    EXPECT_FALSE(Dialog().lblWhatsNew.Visible());
  }

  DateLocale dates;
  std::unique_ptr<UpdateDialog> dialog;
};

TEST_F(UpdateCheck, ANewVersionIsOffered) {
  CheckList("[CUEWRITE]\nversion=1.2.6\ndate=x\nyear=2026\nmonth=11\nday=21\n");
  EXPECT_EQ(Lines(), (std::vector<Text>{Text(kInit), Text(kConnecting), Text(kGetting), Text(kProcessing), Text(kDone),
                                        u"*** New version 1.2.6 now available!",
                                        u"*** Released on day 21 of month 11 of 2026", Text(kClick)}));
  EXPECT_EQ(web.urls, std::vector<Text>{u"https://site.example/files/updates.php?idprod=qxm&version=125"});
  EXPECT_EQ(events.now, 3600) << "three waits of 1200 ms";
  EXPECT_EQ(Dialog().lblStatus.GetText(), u"New version 1.2.6 now available!");
  EXPECT_TRUE(Dialog().lblWhatsNew.Visible());
  EXPECT_EQ(Dialog().lblWhatsNew.GetText(), u"View what's new in version 1.2.6");
  EXPECT_EQ(Dialog().cmdOK.GetText(), u"&OK");
  EXPECT_TRUE(Dialog().cmdOK.Enabled());
  EXPECT_TRUE(HasTempFile());
}

TEST_F(UpdateCheck, ARemoteVersionOf126AboveALocal125IsAnUpdate) {
  CheckList("[CUEWRITE]\nversion=1.2.6\n", {1, 2, 5});
  EXPECT_TRUE(Dialog().lblWhatsNew.Visible());
}

TEST_F(UpdateCheck, AVersionOf255LettersIsShortenedBesideTheLog) {
  const std::string version = "1.2.6" + std::string(250, 'b');
  CheckList("[CUEWRITE]\nversion=" + version + "\n", {1, 2, 5});
  EXPECT_EQ(Dialog().lblStatus.GetText(), u"New version 1.2.6" + Text(18, u'b') + u"\u2026 now available!");
  EXPECT_EQ(Dialog().lblWhatsNew.GetText(), u"View what's new in version 1.2.6" + Text(18, u'b') + u"\u2026");
  EXPECT_NE(Dialog().txtStatus.GetText().find(FromUtf8(version)), Text::npos);
}

TEST_F(UpdateCheck, ARemoteVersion110IsBelow125AndNoUpdateIsOffered) {
  CheckList("[CUEWRITE]\nversion=1.10\n", {1, 2, 5});
  EXPECT_EQ(Lines().back(), kLatest);
  ExpectClose();
  EXPECT_TRUE(Dialog().cmdOK.Enabled());
}

TEST_F(UpdateCheck, TheNumbersAreComparedAsTexts) {
  CheckList("[CUEWRITE]\nversion=99\n", {1, 0, 0});
  EXPECT_TRUE(Dialog().lblWhatsNew.Visible()) << "99 ranks above 100";
}

TEST_F(UpdateCheck, ALocalVersionWhoseMinorPartIsTenHasTheNumberOfTwo) {
  CheckList("[CUEWRITE]\nversion=1.10.1\n", {1, 10, 0});
  EXPECT_EQ(Lines().back(), kLatest) << "1101 ranks below 200";
  CheckList("[CUEWRITE]\nversion=2.0.1\n", {1, 10, 0});
  EXPECT_TRUE(Dialog().lblWhatsNew.Visible());
}

TEST_F(UpdateCheck, TheSameVersionNeedsNoUpdate) {
  CheckList("[CUEWRITE]\nversion=1.2.5\n");
  EXPECT_EQ(Lines(), (std::vector<Text>{Text(kInit), Text(kConnecting), Text(kGetting), Text(kProcessing), Text(kDone),
                                        Text(kLatest)}));
  ExpectClose();
}

TEST_F(UpdateCheck, OfflineNoDownloadIsTried) {
  web.state = kConnectionOffline | 2;
  Check();
  EXPECT_EQ(Lines(), (std::vector<Text>{Text(kInit), u"No connection to Internet was found."}));
  EXPECT_TRUE(web.urls.empty());
  ExpectClose();
  EXPECT_TRUE(Dialog().cmdOK.Enabled());
}

TEST_F(UpdateCheck, OtherFlagsOfTheConnectionDontMatter) {
  web.state = 0;
  CheckList("[CUEWRITE]\nversion=1\n");
  EXPECT_EQ(web.urls.size(), 1u);
}

TEST_F(UpdateCheck, WithoutASiteNobodyIsAsked) {
  program->store.SaveSetting(u"Cuewright", u"UpdateSite", u"");
  Check();
  EXPECT_TRUE(web.urls.empty());
  ASSERT_EQ(Lines().size(), 2u);
  EXPECT_NE(Lines()[1].find(u"UpdateSite"), Text::npos);
  EXPECT_NE(Lines()[1].find(u"the settings"), Text::npos);
  ExpectClose();
  EXPECT_TRUE(Dialog().cmdOK.Enabled());
}

TEST(UpdateSite, ThisBuildNamesNone) { EXPECT_TRUE(UpdateSite().empty()); }

TEST_F(UpdateCheck, ADownloadThatFailsTellsWhy) {
  web.error = RuntimeError{57, u"no answer"};
  Check();
  EXPECT_EQ(Lines(), (std::vector<Text>{Text(kInit), Text(kConnecting), Text(kFailed),
                                        u"Error while checking for updates.", u"(Error #57: no answer)"}));
  ExpectClose();
  EXPECT_TRUE(Dialog().cmdOK.Enabled());
  EXPECT_FALSE(HasTempFile());
}

TEST_F(UpdateCheck, AReplyThatIsNoListIsABadList) {
  for (const std::string reply :
       {"<html>\n<body>Not found</body>\n</html>\n", "", "[CUEWRITE]\nversion=none\n", "version=9\n", "[CUEWRITE]\n"}) {
    CheckList(reply);
    EXPECT_EQ(Lines(), (std::vector<Text>{Text(kInit), Text(kConnecting), Text(kGetting), Text(kProcessing),
                                          Text(kDone), Text(kFailed)}))
        << reply;
    ExpectClose();
    EXPECT_TRUE(Dialog().cmdOK.Enabled());
  }
}

TEST_F(UpdateCheck, ATempFileThatCantBeDeletedEndsIt) {
  std::filesystem::create_directories(folder.Path() / "run/qxmupd.tmp/x");
  Check();
  EXPECT_EQ(Lines(), (std::vector<Text>{Text(kInit), u"Failed to check for updates.", u"Reason: Could not delete file:",
                                        folder / "run/qxmupd.tmp"}));
  EXPECT_TRUE(web.urls.empty());
  ExpectClose();
  EXPECT_FALSE(Dialog().cmdOK.Enabled()) << "only the frame closes it";
}

TEST_F(UpdateCheck, AnOldTempFileIsDeletedFirst) {
  folder.Write("run/qxmupd.tmp", "[CUEWRITE]\nversion=9\n");
  web.error = RuntimeError{57, u"x"};
  Check();
  EXPECT_FALSE(HasTempFile());
}

TEST_F(UpdateCheck, ALinkPlantedAtTheTempFilesPathIsNotFollowed) {
  folder.Write("victim", "mine");
  // Planted while the reply is on its way.
  web.onGet = [&] { std::filesystem::create_symlink(folder.Path() / "victim", folder.Path() / "run/qxmupd.tmp"); };
  CheckList("[CUEWRITE]\nversion=1.2.6\n");
  EXPECT_EQ(folder.Read("victim"), "mine");
  EXPECT_TRUE(Dialog().lblWhatsNew.Visible());
  Dialog().Close();
  EXPECT_EQ(folder.Read("victim"), "mine");
}

TEST_F(UpdateCheck, AnErrorOnTheWayIsToldAtTheEnd) {
  CheckList("[CUEWRITE]\nversion=1.2.6\nyear=99999\nmonth=1\nday=1\ndate=May\n");
  const std::vector<Text> lines = Lines();
  ASSERT_GE(lines.size(), 4u);
  EXPECT_EQ(lines[lines.size() - 4], u"*** Released on May");
  EXPECT_EQ(lines[lines.size() - 2], u"Error while processing updates.");
  EXPECT_EQ(lines.back(), u"(Error #6: Overflow)");
  EXPECT_TRUE(Dialog().cmdOK.Enabled());
}

TEST_F(UpdateCheck, ALocalVersionThatOverflowsIsToldAtTheEndAndAnyRemoteOneIsAbove) {
  CheckList("[CUEWRITE]\nversion=0.0.1\n", {400, 0, 0});
  EXPECT_TRUE(Dialog().lblWhatsNew.Visible());
  EXPECT_EQ(Lines().back(), u"(Error #6: Overflow)");
}

TEST_F(UpdateCheck, WithoutThePartsOfADateItsTextIsShown) {
  CheckList("[CUEWRITE]\nversion=2\ndate=in May\nyear=2026\n");
  EXPECT_EQ(Lines()[6], u"*** Released on in May");
  CheckList("[CUEWRITE]\nversion=2\n");
  EXPECT_EQ(Lines()[6], u"*** Released on ---");
}

TEST_F(UpdateCheck, WhatsNewShowsTheLog) {
  CheckList("[CUEWRITE]\nversion=1.2.6\n<log>\n - first\n\n - second\n</log>\nbehind\n");
  const std::size_t before = Lines().size();
  Dialog().lblWhatsNew.Click();
  const std::vector<Text> lines = Lines();
  EXPECT_EQ(std::vector<Text>(lines.begin() + static_cast<std::ptrdiff_t>(before), lines.end()),
            (std::vector<Text>{u"", u"Changes in version 1.2.6:", u" - first", u"", u" - second", u"", Text(kClick)}));
  EXPECT_FALSE(Dialog().lblWhatsNew.Enabled());
}

TEST_F(UpdateCheck, AListWithoutALogShowsOnlyTheClosingLines) {
  CheckList("[CUEWRITE]\nversion=1.2.6\n");
  const std::size_t before = Lines().size();
  Dialog().lblWhatsNew.Click();
  const std::vector<Text> lines = Lines();
  EXPECT_EQ(std::vector<Text>(lines.begin() + static_cast<std::ptrdiff_t>(before), lines.end()),
            (std::vector<Text>{u"", u"", Text(kClick)}));
}

TEST_F(UpdateCheck, WhatsNewDoesNothingWithoutTheFile) {
  CheckList("[CUEWRITE]\nversion=1.2.6\n");
  std::filesystem::remove(folder.Path() / "run/qxmupd.tmp");
  const std::vector<Text> before = Lines();
  Dialog().lblWhatsNew.Click();
  EXPECT_EQ(Lines(), before);
  EXPECT_TRUE(Dialog().lblWhatsNew.Enabled());
}

TEST_F(UpdateCheck, OkOpensTheProductPageOnlyForANewVersion) {
  CheckList("[CUEWRITE]\nversion=1.2.5\n");
  Dialog().cmdOK.Click();
  EXPECT_FALSE(Dialog().IsOpen());
  EXPECT_TRUE(desktop.opened.empty());
  CheckList("[CUEWRITE]\nversion=1.2.6\n");
  Dialog().cmdOK.Click();
  EXPECT_FALSE(Dialog().cmdOK.Enabled());
  EXPECT_FALSE(Dialog().IsOpen());
  EXPECT_EQ(desktop.opened, std::vector<Text>{Text(kWebSite) + u"/en/cuewright.php?lang=english"});
}

TEST_F(UpdateCheck, ClosingDeletesTheTempFile) {
  CheckList("[CUEWRITE]\nversion=1.2.6\n");
  ASSERT_TRUE(HasTempFile());
  Dialog().Close();
  EXPECT_FALSE(HasTempFile());
}

TEST_F(UpdateCheck, ASecondActivationStartsNoSecondCheck) {
  CheckList("[CUEWRITE]\nversion=1.2.6\n");
  Dialog().OnActivated();
  EXPECT_EQ(web.urls.size(), 1u);
}

TEST_F(UpdateCheck, TheOkButtonIsDisabledUntilTheEndAndThenTheDefault) {
  int defaults = 0;
  bool enabledOnTheWay = false;
  web.body = "[CUEWRITE]\nversion=1.2.6\n";
  web.onGet = [&] { enabledOnTheWay = dialog->cmdOK.Enabled(); };
  events.onWait = [&] {
    if (defaults == 0) dialog->DefaultRequested.Connect([&] { ++defaults; }), defaults = 10;
  };
  Check();
  EXPECT_FALSE(enabledOnTheWay);
  EXPECT_EQ(defaults, 11);
}

TEST_F(UpdateCheck, ClosingDuringAWaitEndsTheCheck) {
  events.onWait = [&] { dialog->Close(); };
  Check();
  EXPECT_TRUE(web.urls.empty());
  EXPECT_EQ(Lines().size(), 1u);
}

TEST_F(UpdateCheck, ClosingDuringTheDownloadGivesItUp) {
  web.onGet = [&] { dialog->Close(); };
  CheckList("[CUEWRITE]\nversion=1.2.6\n");
  EXPECT_EQ(web.aborts, 1);
  EXPECT_FALSE(HasTempFile());
  EXPECT_EQ(Lines().size(), 2u);
}

TEST_F(UpdateCheck, OpeningAgainWhileTheOldCheckWaitsLeavesOneCheck) {
  bool again = false;
  web.body = "[CUEWRITE]\nversion=1.2.6\n";
  events.onWait = [&] {
    if (std::exchange(again, true)) return;
    dialog->Close();
    dialog->Open();
    dialog->OnActivated();
  };
  Check();
  EXPECT_EQ(web.urls.size(), 1u);
  EXPECT_EQ(Lines().size(), 8u);
}

TEST_F(UpdateCheck, TheFocusGoesToTheLog) {
  Check();
  std::vector<std::string> focused;
  dialog->FocusRequested.Connect([&](Control& control) { focused.push_back(control.Name()); });
  dialog->Close();
  dialog->Open();
  dialog->OnActivated();
  EXPECT_EQ(focused, std::vector<std::string>{"txtStatus"});
  EXPECT_EQ(Dialog().txtStatus.SelStart(), static_cast<int>(Dialog().txtStatus.GetText().size()));
}

TEST_F(UpdateCheck, TheMenuOpensIt) {
  int shown = 0;
  program->helpDialogs.update.Opened.Connect([&] { ++shown; });
  Window().mnuUpdate.Click();
  EXPECT_TRUE(program->helpDialogs.update.IsOpen());
  EXPECT_EQ(shown, 1);
  EXPECT_EQ(program->helpDialogs.update.Title(), u"Check for updates");
}

TEST_F(UpdateCheck, TheProgramAsksTheSiteOfItsSettings) {
  web.body = "[CUEWRITE]\nversion=0\n";
  Window().mnuUpdate.Click();
  program->helpDialogs.update.OnActivated();
  EXPECT_EQ(web.urls, std::vector<Text>{u"https://site.example/files/updates.php?idprod=qxm&version=100"});
}

}  // namespace
}  // namespace cuewright
