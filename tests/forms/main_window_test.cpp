#include "core/caption_time.h"
#include "forms/main_layout.h"
#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

using testing::ProgramFixture;

struct CommandsTest : ProgramFixture {
  void Open(int captions) { program->documentFiles.OpenSubtitleFile(SubRip("a.srt", captions)); }
};

using Commands = CommandsTest;
using TextPane = CommandsTest;
using Separator = CommandsTest;
using ListMouse = CommandsTest;
using PlayerStates = CommandsTest;
using Controls = CommandsTest;
using Unload = CommandsTest;
using Grid = CommandsTest;
using PreviewMode = CommandsTest;
using MissingPlayer = CommandsTest;

TEST_F(Commands, AddBelowInsertsBehindTheSelectedRow) {
  Open(3);
  List().SetRow(2, false);
  boxes.lines = {u" new one "};
  Window().mnuAddBelow.Click();
  EXPECT_EQ(boxes.asked.back().title, u"Insert New Caption");
  EXPECT_EQ(List().At(3), (Caption{0, 0, u" new one "}));
  EXPECT_EQ(List().Selected(), 3);
  EXPECT_EQ(List().GetCaptionText(4), u"line 3");
}

TEST_F(Commands, AnEmptyAnswerAddsNothing) {
  Open(3);
  Window().mnuAddBelow.Click();
  EXPECT_EQ(List().Rows(), 4);
}

TEST_F(Commands, AddAtTheBottomScrollsALongList) {
  Open(30);
  boxes.lines = {u"last"};
  Window().mnuAddBottom.Click();
  EXPECT_EQ(List().Selected(), 31);
  EXPECT_EQ(program->grid.TopRow(), 32 - 8);
}

TEST_F(Commands, EditSelectedStoresTheAnswerUntrimmed) {
  Open(2);
  Window().mnuEditSelected.Click();  // cancelled
  EXPECT_EQ(List().GetCaptionText(1), u"line 1");
  EXPECT_EQ(boxes.asked.back().initial, u"line 1");
  boxes.lines = {u" a|b| "};
  Window().rmnuEdit.Click();
  EXPECT_EQ(List().GetCaptionText(1), u" a|b| ");
  EXPECT_EQ(Window().txtSub.GetText(), u" a\r\nb\r\n ");
  EXPECT_FALSE(program->document.DocModified);
}

TEST_F(Commands, RemoveAndTheDeleteKeyRemoveTheSelectedRow) {
  Open(3);
  Window().mnuRemove.Click();
  EXPECT_EQ(List().GetCaptionText(1), u"line 2");
  KeyEvent key{kKeyDelete, 0, 1, false, false, false};
  program->commands.OnListKey(key);
  EXPECT_TRUE(key.handled);
  EXPECT_EQ(List().Rows(), 2);
}

TEST_F(Commands, GoToTakesNumbersAboveZeroAndCapsThem) {
  Open(5);
  struct Case {
    const char16_t* answer;
    Row row;
  };
  for (const Case& c :
       {Case{u"3", 3}, Case{u"99", 5}, Case{u"0", 5}, Case{u"-2", 5}, Case{u"2nd", 5}, Case{u"", 5}, Case{u"2.4", 2}}) {
    boxes.lines = {c.answer};
    Window().mnuGoTo.Click();
    EXPECT_EQ(List().Selected(), c.row) << ToUtf8(c.answer);
  }
}

TEST_F(Commands, CountUntimedCountsACaptionAtStartZero) {
  Open(3);
  List().Replace(2, 1, {Caption{0, 2000, u"a"}});
  Window().mnuCountUntimed.Click();
  EXPECT_EQ(LastBox(), "There is a total of 1 caption(s) without timing.");
  EXPECT_EQ(boxes.shown.back().title, u"Count non-timed captions");
}

TEST_F(Commands, NextUntimedMovesOrSaysThatThereIsNone) {
  Open(4);
  List().SetCaptionStart(3, 0, true);
  Window().mnuNextUntimed.Click();
  EXPECT_EQ(List().Selected(), 3);
  Window().mnuNextUntimed.Click();
  EXPECT_EQ(LastBox(), "No captions without timing found beyond the selection point.");
  List().SetRow(4, false);
  Window().mnuNextUntimed.Click();
  EXPECT_EQ(boxes.shown.size(), 2u);
}

TEST_F(Commands, NextUntimedBringsItsRowIntoView) {
  Open(100);
  program->grid.NoteMetrics(220, 20);  // ten rows and the heading
  List().SetCaptionStart(50, 0, true);
  List().SetRow(1, true);
  ASSERT_EQ(program->grid.TopRow(), 1);
  Window().mnuNextUntimed.Click();
  ASSERT_EQ(List().Selected(), 50);
  EXPECT_LE(program->grid.TopRow(), 50);
  EXPECT_GT(program->grid.TopRow() + 10, 50);
}

TEST_F(Commands, TogglingAStyleShowsItInThePaneAndTheMenu) {
  Open(2);
  Window().mnuItalic.Click();
  EXPECT_EQ(List().GetCaptionText(1), u"<i>line 1");
  EXPECT_EQ(Window().txtSub.GetText(), u"line 1");
  EXPECT_TRUE(Window().mnuItalic.Checked());
  EXPECT_FALSE(Window().mnuBold.Checked());
  EXPECT_FALSE(program->document.DocModified);
  Window().rmnuItalic.Click();
  EXPECT_FALSE(Window().mnuItalic.Checked());
}

TEST_F(TextPane, EveryKeyUpStoresTheText) {
  Open(2);
  Window().txtSub.SetText(u"first\r\nsecond");
  KeyEvent key{65, u'a', 1, false, false, false};
  Window().txtSub.ReleaseKey(key);
  EXPECT_EQ(List().GetCaptionText(1), u"first|second");
  EXPECT_TRUE(program->document.DocModified);
}

TEST_F(TextPane, ALineBreakJustTypedReachesTheListWithTheNextCharacter) {
  Open(2);
  Window().txtSub.SetText(u"first\r\n");
  KeyEvent key{kKeyEnter, 0, 1, false, false, false};
  Window().txtSub.ReleaseKey(key);
  EXPECT_EQ(List().GetCaptionText(1), u"line 1");
  Window().txtSub.SetText(u"first\r\nx");
  Window().txtSub.ReleaseKey(key);
  EXPECT_EQ(List().GetCaptionText(1), u"first|x");
}

TEST_F(TextPane, ADocumentOfOneCaptionIsNotMarked) {
  Open(1);
  Window().txtSub.SetText(u"other");
  KeyEvent key{65, u'a', 1, false, false, false};
  Window().txtSub.ReleaseKey(key);
  EXPECT_EQ(List().GetCaptionText(1), u"other");
  EXPECT_FALSE(program->document.DocModified);
}

TEST_F(TextPane, ItsFocusTurnsTheShortcutsOff) {
  Open(2);
  Play(folder.Write("film.mkv", "x"));
  Window().txtSub.TakeFocus();
  KeyEvent key{66, u'b', 56, false, false, false};
  program->capture.OnKeyDown(key);
  EXPECT_FALSE(key.handled);
  EXPECT_FALSE(program->capture.Capturing());
  Window().txtSub.LoseFocus();
  program->capture.OnKeyDown(key);
  EXPECT_TRUE(program->capture.Capturing());
}

TEST_F(Separator, ChangingItReplacesTheFirstOneOfEachCaption) {
  Open(3);
  List().Replace(1, 2, {Caption{1, 2, u"a|b|c"}, Caption{3, 4, u"plain"}});
  int splices = 0;
  List().Spliced.Connect([&](const Splice&) { ++splices; });
  Window().mnuSeparator[1].Click();
  EXPECT_EQ(List().GetCaptionText(1), u"a/nb|c");
  EXPECT_EQ(List().GetCaptionText(2), u"plain");
  EXPECT_EQ(splices, 1);
  EXPECT_EQ(program->options.lineSeparator, u"/n");
  EXPECT_EQ(program->store.GetSetting(kMainSection, u"LBREAK", u""), u"/n");
  EXPECT_TRUE(Window().mnuSeparator[1].Checked());
  EXPECT_FALSE(Window().mnuSeparator[0].Checked());
  EXPECT_TRUE(List().Enabled());
}

TEST_F(Separator, ACustomOneIsAskedForAndShownInTheMenu) {
  boxes.lines = {u"#"};
  Window().mnuSeparator[3].Click();
  EXPECT_EQ(program->options.lineSeparator, u"#");
  EXPECT_EQ(Window().mnuSeparator[3].GetText(), u"Custom: #");
  EXPECT_EQ(boxes.asked.back().initial, u"|");
  Window().mnuSeparator[3].Click();  // an empty answer keeps it
  EXPECT_EQ(program->options.lineSeparator, u"#");
  Restart({});
  EXPECT_TRUE(Window().mnuSeparator[3].Checked());
  EXPECT_EQ(Window().mnuSeparator[3].GetText(), u"Custom: #");
}

TEST_F(ListMouse, TheRightButtonBelowTheLastCaptionDoesNothing) {
  Open(3);
  EXPECT_FALSE(program->commands.OnListRightDown(20 * 4 + 5));
  EXPECT_EQ(List().Selected(), 1);
  EXPECT_TRUE(program->commands.OnListRightDown(20 * 3 + 5));
  EXPECT_EQ(List().Selected(), 3);
}

TEST_F(ListMouse, TheListsMenuCopiesTheStylesOfTheRow) {
  Open(3);
  List().ToggleMarker(2, u"<u>");
  program->commands.OnListRightDown(20 * 2 + 5);
  EXPECT_TRUE(Window().rmnuUnderline.Checked());
  EXPECT_FALSE(Window().rmnuBold.Checked());
}

TEST_F(ListMouse, AClickOnTheHeadingSelectsTheTopVisibleRow) {
  Open(40);
  program->grid.NoteTopRow(12);
  program->commands.OnListUp(5);
  EXPECT_EQ(List().Selected(), 12);
}

TEST_F(ListMouse, AReleaseOverAnotherRowSelectsIt) {
  Open(5);
  program->commands.OnListUp(20 * 3 + 1);
  EXPECT_EQ(List().Selected(), 3);
  program->commands.OnListUp(20 * 9);
  EXPECT_EQ(List().Selected(), 3);
}

TEST_F(ListMouse, EnterAndDoubleClickSeekWhilePlaying) {
  Open(3);
  Play(folder.Write("film.mkv", "x"));
  List().SetRow(2, false);
  KeyEvent key{kKeyEnter, 0, 1, false, false, false};
  program->commands.OnListKey(key);
  program->commands.OnListDoubleClick();
  ASSERT_EQ(player.seeks.size(), 2u);
  EXPECT_DOUBLE_EQ(player.seeks[0], 2.1);
  EXPECT_DOUBLE_EQ(player.seeks[1], 2.101);
}

TEST_F(PlayerStates, AStopDuringACaptureLeavesTheStartAndApplyDisabled) {
  Open(3);
  Play(folder.Write("film.mkv", "x"));
  program->capture.SelectMode(CaptionMode::Manual);
  player.position = 5;
  Window().tmrTime.Pass();
  Window().cmdApply.Click();
  player.Stop();
  EXPECT_EQ(Window().lblStringPos.GetText(), u"00:00.000");
  EXPECT_EQ(Window().lblTime.GetText(), u"0");
  EXPECT_FALSE(Window().cmdApply.Enabled());
  EXPECT_TRUE(program->capture.Capturing());
  EXPECT_TRUE(Window().txtSub.Enabled());
}

TEST_F(PlayerStates, AHoldEndsAtTheLastSampleWhenTheFilmStops) {
  Open(3);
  Play(folder.Write("film.mkv", "x"));
  player.position = 5;
  Window().tmrTime.Pass();
  Window().cmdApply.PressMouse({MouseButton::Left, 0, 0});
  player.position = 6.2;
  Window().tmrTime.Pass();
  player.Stop();
  EXPECT_EQ(List().At(1), (Caption{5000, 6200, u"line 1"}));
  EXPECT_FALSE(program->capture.Capturing());
  EXPECT_FALSE(Window().cmdApply.Enabled());
  EXPECT_EQ(Window().lblTime.GetText(), u"0");
}

TEST_F(PlayerStates, ApplyFollowsThePlayer) {
  Open(2);
  Play(folder.Write("film.mkv", "x"));
  EXPECT_TRUE(Window().cmdApply.Enabled());
  player.Pause();
  EXPECT_FALSE(Window().cmdApply.Enabled());
  player.Play();
  EXPECT_TRUE(Window().cmdApply.Enabled());
  player.Become(kPlayerTransitional);
  EXPECT_FALSE(Window().cmdApply.Enabled());
}

TEST_F(PlayerStates, ASeekIsFollowedAtOnce) {
  Open(3);
  Play(folder.Write("film.mkv", "x"));
  player.SetCurrentPosition(2.5);
  EXPECT_EQ(Window().lblTime.GetText(), u"2500");
  EXPECT_EQ(program->capture.PlayerPosMs(), 2500);
}

TEST_F(Controls, FollowTheOpenFiles) {
  EXPECT_FALSE(Window().mnuSave.Enabled());
  EXPECT_FALSE(Window().mnuClose.Enabled());
  EXPECT_FALSE(Window().txtSub.Enabled());
  EXPECT_EQ(Window().lblTextFile.GetText(), u"Welcome to Tessaly Cuewright.");
  EXPECT_EQ(program->grid.Notice(), u"No text or subtitle file loaded.");
  Open(2);
  EXPECT_TRUE(Window().mnuAdd.Enabled());
  EXPECT_FALSE(Window().optPress.Enabled());
  EXPECT_EQ(Window().lblVideoFile.GetText(), u"No video file loaded.");
  Play(folder.Write("film.mkv", "x"));
  EXPECT_TRUE(Window().optPress.Enabled());
  EXPECT_TRUE(Window().lblTime.Enabled());
  EXPECT_TRUE(player.enabled);
  EXPECT_FALSE(Window().picPLogo.Visible());
}

TEST_F(Controls, TheTitleIsTheProductAndItsVersion) {
  EXPECT_EQ(Window().Title(), u"Tessaly Cuewright 1.0.0");
  EXPECT_EQ(Window().mnuFile.GetText(), u"&File");
  EXPECT_EQ(Window().optPress.GetText(), u"Press and hold (recommended)");
}

TEST_F(Controls, TheTitleNamesTheDocumentAndWhetherItWasChanged) {
  program->documentFiles.OpenSubtitleFile(SubRip("a [*] b.srt", 3));
  EXPECT_EQ(Window().Title(), u"a [*] b.srt - Tessaly Cuewright 1.0.0");
  Window().mnuRemove.Click();
  EXPECT_EQ(Window().Title(), u"a [*] b.srt* - Tessaly Cuewright 1.0.0");
  Window().mnuUndo.Click();
  EXPECT_EQ(Window().Title(), u"a [*] b.srt - Tessaly Cuewright 1.0.0");
  Window().mnuRedo.Click();
  program->documentFiles.SaveDocument();
  EXPECT_EQ(Window().Title(), u"a [*] b.srt - Tessaly Cuewright 1.0.0");
  program->documentFiles.New();
  EXPECT_EQ(Window().Title(), u"Untitled - Tessaly Cuewright 1.0.0");
  program->session.CloseDocuments();
  EXPECT_EQ(Window().Title(), u"Tessaly Cuewright 1.0.0");
}

TEST_F(Controls, TheTitleInTheClassicMannerIsTheProductAlone) {
  program->options.manner.SetClassic(true);
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  EXPECT_EQ(Window().Title(), u"Tessaly Cuewright 1.0.0");
}

TEST_F(Unload, AnotherStateThanNormalAndMaximisedChangesNothing) {
  for (const TextView state : {u"1", u"3", u"-1", u"255"}) {
    program->store.SaveSettings(kMainSection,
                                {{u"WindowState", Text(state)}, {u"WindowWidth", u"901"}, {u"WindowHeight", u"702"}});
    const Shell::StartSize size = program->shell.LoadOptions(1280, 800);
    EXPECT_FALSE(size.maximised) << ToUtf8(state);
    EXPECT_EQ(size.width, 0) << ToUtf8(state);
    EXPECT_EQ(size.height, 0) << ToUtf8(state);
  }
}

TEST_F(Unload, StoresTheWindowUnlessItIsMinimised) {
  program->shell.SaveAtUnload(false, false, 900, 700);
  player.volume = 33;
  program->shell.SaveAtUnload(true, false, 100, 100);
  EXPECT_EQ(program->store.GetSetting(kMainSection, u"WindowWidth", u""), u"900");
  EXPECT_EQ(program->store.GetSetting(kMainSection, u"WindowState", u""), u"0");
  EXPECT_EQ(program->store.GetSetting(kMainSection, u"Volume", u""), u"33");
  Restart({});
  const Shell::StartSize size = program->shell.LoadOptions(800, 600);
  EXPECT_FALSE(size.maximised);
  EXPECT_EQ(size.width, 800);
  EXPECT_EQ(size.height, 600);
  EXPECT_EQ(player.volume, 33);
}

TEST_F(Grid, ACaptionIsReadOutWithItsTimes) {
  program->grid.SetFindings(nullptr);
  List().Replace(1, 1, {{100, 9437, u"<i>My name is|Ann<b>"}, {0, 0, u"100%4"}, {6500, 9400, u""}});
  EXPECT_EQ(program->grid.SpokenCaption(1), u"1, 0.1 to 9.4 seconds, My name is Ann");
  EXPECT_EQ(program->grid.SpokenCaption(2), u"2, without times, 100%4");
  EXPECT_EQ(program->grid.SpokenCaption(3), u"3, 6.5 to 9.4 seconds, ");
  EXPECT_EQ(program->grid.SpokenCaption(4), u"");
  EXPECT_EQ(program->grid.SpokenCaption(0), u"");
}

TEST_F(Grid, ScrollRowKeepsTheSelectedRowThreeAboveTheEdge) {
  Open(100);
  program->grid.NoteMetrics(220, 20);  // ten rows and the heading
  struct Case {
    Row selected, top;
    bool force;
    Row result;
  };
  for (const Case& c : {Case{5, 10, false, 5}, Case{12, 10, true, 10}, Case{18, 10, true, 11}, Case{18, 10, false, 10},
                        Case{20, 10, false, 13}, Case{3, 1, true, 1}}) {
    List().SetRow(c.selected, false);
    program->grid.SetTopRow(c.top);
    program->grid.ScrollRow(c.force);
    EXPECT_EQ(program->grid.TopRow(), c.result) << c.selected;
  }
}

TEST(MainLayout, ANarrowWindowSqueezesTheListAndNotThePlayer) {
  MainLayout layout;
  layout.SetListWidth(600);
  layout.SetInner(1200, 700);
  EXPECT_EQ(layout.ListWidth(), 600);
  EXPECT_EQ(layout.Player().width, 1200 - 600 - 24);
  layout.SetInner(700, 700);
  EXPECT_EQ(layout.Player().width, 182);
  EXPECT_EQ(layout.ListWidth(), 700 - 24 - 182);
  layout.SetInner(1200, 700);
  EXPECT_EQ(layout.ListWidth(), 600);
}

TEST(MainLayout, TheDividerStaysFromBothEdges) {
  MainLayout layout;
  layout.SetInner(1000, 700);
  layout.DragDivider(63);
  EXPECT_EQ(layout.ListWidth(), 330);
  layout.DragDivider(64);
  EXPECT_EQ(layout.ListWidth(), 56);
  layout.DragDivider(821);
  EXPECT_EQ(layout.ListWidth(), 56);
  layout.DragDivider(500);
  EXPECT_EQ(layout.ListWidth(), 492);
}

TEST(MainLayout, ListAndPlayerShareTheHeightBetweenTheBars) {
  MainLayout layout;
  layout.SetInner(1000, 700);
  layout.SetBars(MainLayout::Band::Full, 0, 150);
  EXPECT_EQ(layout.List().height, 700 - 56 - 150 - 16);
  layout.SetBars(MainLayout::Band::Off, 100, 150);
  EXPECT_EQ(layout.List().height, 700 - 8 - 150 - 100 - 20);
  EXPECT_EQ(layout.Player().height, layout.List().height);
  EXPECT_EQ(layout.Player().top, layout.List().top);
}

TEST(MainLayout, ColumnsTakePercentsInAWideList) {
  EXPECT_EQ(MainLayout::ColumnWidths(300, 800, 10), (std::array<int, 4>{34, 58, 58, 300 - 150 - 10 - 8}));
  EXPECT_EQ(MainLayout::ColumnWidths(1000, 800, 10), (std::array<int, 4>{80, 150, 150, 1000 - 380 - 18}));
}

TEST_F(PreviewMode, FollowsThePositionAndTheSelection) {
  Open(4);
  Play(folder.Write("film.mkv", "x"));
  program->capture.SelectMode(CaptionMode::Preview);
  const auto at = [&](double seconds) {
    player.position = seconds;
    Window().tmrTime.Pass();
    Window().tmrPreview.Pass();
    Window().tmrPreview.Pass();
  };
  at(1.5);
  EXPECT_EQ(program->sub.lblSub.GetText(), u"line 1");
  at(2.0);  // in the gap
  EXPECT_EQ(program->sub.lblSub.GetText(), u"");
  EXPECT_EQ(List().Selected(), 1);
  at(2.5);
  EXPECT_EQ(program->sub.lblSub.GetText(), u"line 2");
  EXPECT_EQ(List().Selected(), 2);
  program->options.followCaptions = false;
  at(3.5);
  EXPECT_EQ(program->sub.lblSub.GetText(), u"line 3");
  EXPECT_EQ(List().Selected(), 2);
}

TEST_F(PreviewMode, MarkersShapeTheTextAndDontShow) {
  Open(2);
  Play(folder.Write("film.mkv", "x"));
  List().SetCaptionText(1, u"a|b<i>");
  program->preview.ShowPreviewCaption(1);
  EXPECT_EQ(program->sub.lblSub.GetText(), u"a\r\nb");
  EXPECT_TRUE(program->sub.GetStyle().italic);
  List().SetCaptionText(1, u"a<b>");
  program->options.previewFontBold = false;
  program->preview.ShowPreviewCaption(1);
  EXPECT_EQ(program->sub.lblSub.GetText(), u"a");
  EXPECT_FALSE(program->sub.GetStyle().bold);
  EXPECT_FALSE(program->sub.GetStyle().italic);
}

TEST(PlaceOverlay, LeavesRoomForThePlayersControls) {
  EXPECT_EQ(PlaceOverlay(10, 20, 500, 400, 60, 100), (OverlayPlace{18, 20 + 276, 484}));
  EXPECT_EQ(PlaceOverlay(10, 20, 500, 400, 60, 0), (OverlayPlace{18, 20, 484}));
}

TEST_F(Controls, OpeningAFileClosesTheToolWindows) {
  std::vector<std::string> closed;
  for (const char* name : {"frmFind", "frmReport", "frmSettings"}) {
    program->openForms.Opened(name, [&closed, name] { closed.push_back(name); });
  }
  EXPECT_TRUE(program->openForms.IsFormLoaded("frmFind"));
  program->documentFiles.OpenText();
  EXPECT_EQ(closed, (std::vector<std::string>{"frmFind", "frmReport"}));
  EXPECT_FALSE(program->openForms.IsFormLoaded("frmFind"));
  EXPECT_TRUE(program->openForms.IsFormLoaded("frmSettings"));
}

TEST_F(MissingPlayer, TheScreenNamesTheFileInLowerCase) {
  Restart({}, u"LibMPV.so.2");
  EXPECT_TRUE(program->PlayerMissing());
  EXPECT_EQ(program->start.Title(), u"Warning");
  EXPECT_EQ(program->start.lblFile.GetText(), u"libmpv.so.2");
  EXPECT_EQ(program->start.lblMain.GetText(), u"Required file missing");
  EXPECT_EQ(program->start.cmdIgnore.GetText(), u"&Ignore");
  EXPECT_EQ(program->start.cmdExit.GetText(), u"&Settings");
  program->start.lblMediaplayer.Click();
  program->start.lblWebsite.Click();
  ASSERT_EQ(desktop.opened.size(), 2u);
  EXPECT_TRUE(desktop.opened[1].ends_with(u"/en/cuewright.php?lang=english")) << ToUtf8(desktop.opened[1]);
}

TEST_F(MissingPlayer, AFormatFileThatIsMissingEndsTheProgram) {
  StartEnvironment environment;
  environment.appFolder = folder / "";
  environment.makeTempFolder = [] { return Text(); };
  Program other(Ports{files, boxes, dialogs, events, desktop, player, pickers}, environment);
  EXPECT_FALSE(other.Start());
  ASSERT_EQ(boxes.shown.size(), 2u);
  EXPECT_NE(ToUtf8(boxes.shown[0].text).find("formats.ini]"), std::string::npos);
  EXPECT_NE(ToUtf8(boxes.shown[1].text).find("formats.dat]"), std::string::npos);
}

TEST_F(ProgramFixture, SettingsThatCantBeReadAreToldAtTheStart) {
  folder.Write("settings.ini", std::string(20 << 20, '\n'));
  Restart({});
  program->OnFirstActivation();
  EXPECT_NE(LastBox().find("settings.ini could not be read"), std::string::npos) << LastBox();
}

}  // namespace
}  // namespace cuewright
