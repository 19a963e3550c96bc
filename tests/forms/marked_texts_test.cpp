#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

using testing::ProgramFixture;

/// A document whose captions have marks inside.
struct MarkedTexts : ProgramFixture {
  void Open(const std::string& name, const std::string& content) {
    program->documentFiles.OpenSubtitleFile(folder.Write(name, content));
    ASSERT_GT(List().Rows(), 1);
  }
  void OpenSubRip(const std::string& text) {
    Open("a.srt", "1\n00:00:01,100 --> 00:00:01,900\n" + text + "\n\n2\n00:00:02,100 --> 00:00:02,900\nplain\n");
  }
  void Type(TextView text) {
    Window().txtSub.SetText(text);
    Window().txtSub.NoteEdited();
  }
  Text Pane() { return Window().txtSub.GetText(); }
  Text Stored(Row row = 1) { return List().GetCaptionText(row); }
};

TEST_F(MarkedTexts, ThePaneAndTheListShowThemWithoutMarks) {
  OpenSubRip("{\\an8}One <i>two</i>\nthree");
  EXPECT_EQ(Pane(), u"One two\r\nthree");
  EXPECT_EQ(program->grid.ShownText(1), u"One two|three");
  EXPECT_EQ(Stored(), u"{\\an8}One <i>two</i>|three");
}

TEST_F(MarkedTexts, AnEditInThePaneKeepsEveryMarkAtItsPlace) {
  OpenSubRip("{\\an8}One <i>two</i>\nthree");
  Type(u"One two!\r\nthree");
  EXPECT_EQ(Stored(), u"{\\an8}One <i>two!</i>|three");
  Type(u"Just one two!\r\nthree");
  EXPECT_EQ(Stored(), u"{\\an8}Just one <i>two!</i>|three");
  Type(u"Just one !\r\nthree");
  EXPECT_EQ(Stored(), u"{\\an8}Just one <i>!</i>|three");
  Type(u"Just one!\r\nthree");
  EXPECT_EQ(Stored(), u"{\\an8}Just one<i>!</i>|three");
  Type(u"Just one");
  EXPECT_EQ(Stored(), u"{\\an8}Just one");
  Window().mnuUndo.Click();
  EXPECT_EQ(Stored(), u"{\\an8}One <i>two</i>|three");
}

TEST_F(MarkedTexts, ALineThatWasOnlyBegunIsNotStored) {
  OpenSubRip("One <i>two</i>");
  Type(u"One two\r\n");
  EXPECT_EQ(Stored(), u"One <i>two</i>");
  Type(u"One two\r\nx");
  EXPECT_EQ(Stored(), u"One <i>two|x</i>");
}

TEST_F(MarkedTexts, MarksThatAreTypedAreMarks) {
  OpenSubRip("One two");
  Type(u"One <i");
  Type(u"One <i>two");
  Type(u"One <i>two</i>");
  EXPECT_EQ(Pane(), u"One <i>two</i>");
  EXPECT_EQ(Stored(), u"One <i>two</i>");
  List().SetRow(2, false);
  List().SetRow(1, false);
  EXPECT_EQ(Pane(), u"One two");
}

TEST_F(MarkedTexts, TheSwitchShowsThemAndHidesThemAgain) {
  OpenSubRip("{\\an8}One <i>two</i>");
  EXPECT_TRUE(Window().mnuRawMarks.Visible());
  EXPECT_FALSE(Window().mnuRawMarks.Checked());
  EXPECT_FALSE(Window().mnuRawMarks.Shortcut().empty());
  int painted = 0;
  const auto connection = program->grid.Changed.ConnectScoped([&] { ++painted; });
  Window().mnuRawMarks.Click();
  EXPECT_GT(painted, 0);
  EXPECT_TRUE(Window().mnuRawMarks.Checked());
  EXPECT_EQ(Pane(), u"{\\an8}One <i>two</i>");
  EXPECT_EQ(program->grid.ShownText(1), u"{\\an8}One <i>two</i>");
  Type(u"{\\an8}One two");
  EXPECT_EQ(Stored(), u"{\\an8}One two");
  Window().mnuRawMarks.Click();
  EXPECT_EQ(Pane(), u"One two");
  Window().mnuRawMarks.Click();
  program->shell.SaveAtUnload(false, false, 800, 600);
  Restart({});
  EXPECT_TRUE(program->options.rawMarks);
  EXPECT_TRUE(Window().mnuRawMarks.Checked());
}

TEST_F(MarkedTexts, OfTheClassicMannerAreShownAsTheyStand) {
  program->options.manner.SetClassic(true);
  program->commands.ShowMarks();
  EXPECT_FALSE(Window().mnuRawMarks.Visible());
  OpenSubRip("{\\an8}One");
  EXPECT_EQ(Pane(), u"{\\an8}One");
  EXPECT_EQ(program->grid.ShownText(1), u"{\\an8}One");
  List().SetCaptionText(1, u"a <i>b");
  EXPECT_TRUE(List().IsCaptionItalic(1));
  EXPECT_EQ(List().GetSeenText(1), u"a <i>b");
  List().ToggleMarker(1, u"<i>");
  EXPECT_EQ(Stored(), u"a b");
}

TEST_F(MarkedTexts, AreNotReadOutAsMarks) {
  OpenSubRip("One <font color=\"red\">two</font>\nthree");
  EXPECT_TRUE(program->grid.SpokenCaption(1).find(u"One two three") != Text::npos);
  EXPECT_EQ(program->grid.SpokenCaption(1).find(u"font"), Text::npos);
}

TEST_F(MarkedTexts, OnlyAWholeCaptionIsCheckedAsItalic) {
  OpenSubRip("One <i>two</i>");
  EXPECT_FALSE(Window().mnuItalic.Checked());
  EXPECT_FALSE(List().IsCaptionFormatted(1));
  OpenSubRip("<i>One two</i>");
  EXPECT_TRUE(Window().mnuItalic.Checked());
  EXPECT_TRUE(List().IsCaptionFormatted(1));
  EXPECT_EQ(Pane(), u"One two");
}

TEST_F(MarkedTexts, AStyleForTheWholeCaptionTakesThePlaceOfThoseOfItsParts) {
  OpenSubRip("{\\an8}One <i>two</i> <b>three</b>");
  Window().mnuItalic.Click();
  EXPECT_EQ(Stored(), u"<i>{\\an8}One two <b>three</b>");
  EXPECT_TRUE(Window().mnuItalic.Checked());
  EXPECT_EQ(Pane(), u"One two three");
  Window().mnuItalic.Click();
  EXPECT_EQ(Stored(), u"{\\an8}One two <b>three</b>");
  EXPECT_FALSE(Window().mnuItalic.Checked());
  Window().mnuBold.Click();
  EXPECT_EQ(Stored(), u"<b>{\\an8}One two three");
  program->documentFiles.Save();
  EXPECT_NE(folder.Read("a.srt").find("<b>{\\an8}One two three</b>\n"), std::string::npos) << folder.Read("a.srt");
}

TEST_F(MarkedTexts, OfSubStationAreKnownByTheirFile) {
  Open("a.ass",
       "[Script Info]\nTitle: Dusk\n\n[V4+ Styles]\nFormat: Name, Fontname, Fontsize\nStyle: Sign,Arial,48\n\n"
       "[Events]\nFormat: Layer, Start, End, Style, Name, Text\n"
       "Dialogue: 0,0:00:01.00,0:00:02.00,Sign,,{\\an8}One {\\i1}two{\\i0} <b> x\n"
       "Dialogue: 0,0:00:03.00,0:00:04.00,Sign,,plain\n");
  EXPECT_EQ(Pane(), u"One two <b> x");
  Window().mnuItalic.Click();
  EXPECT_EQ(Stored(), u"<i>{\\an8}One two <b> x");
}

TEST_F(MarkedTexts, OfMicroDvdAreKnownByTheirFile) {
  Open("a.sub", "{1}{1}25\n{25}{50}{y:i}One|/two\n{60}{90}{c:$0000ff}three\n");
  EXPECT_EQ(Pane(), u"One\r\ntwo");
  EXPECT_EQ(program->grid.ShownText(2), u"three");
  Open("b.srt", "1\n00:00:01,100 --> 00:00:01,900\n/One {y:i}\n");
  EXPECT_EQ(Pane(), u"/One {y:i}");
}

TEST_F(MarkedTexts, OfWebVttKeepTheNamesOfCharacters) {
  Open("a.vtt", "WEBVTT\n\n00:01.000 --> 00:02.000\n<v Ann>Tom &amp; <c.yellow>&lt;i&gt;</c>\n");
  EXPECT_EQ(Pane(), u"Tom & <i>");
  Type(u"Tim & <i>");
  program->documentFiles.Save();
  EXPECT_EQ(folder.Read("a.vtt"), "WEBVTT\n\n00:01.000 --> 00:02.000\n<v Ann>Tim &amp; <c.yellow>&lt;i&gt;</c>\n");
}

TEST_F(MarkedTexts, AreFoundAndReplacedByWhatIsSeen) {
  OpenSubRip("One <i>two</i> <font color=\"red\">three</font>");
  Window().mnuReplace.Click();
  auto& window = program->tools.replaceWindow;
  window.txtFind.SetText(u"font");
  window.txtFind.NoteEdited();
  window.txtReplace.SetText(u"x");
  window.cmdReplaceAll.Click();
  EXPECT_EQ(Stored(), u"One <i>two</i> <font color=\"red\">three</font>");
  window.txtFind.SetText(u"one two");
  window.txtReplace.SetText(u"Two one");
  window.cmdReplaceAll.Click();
  EXPECT_EQ(List().GetSeenText(1), u"Two one three");
  EXPECT_EQ(Stored(), u"Two <i>one</i> <font color=\"red\">three</font>");
  EXPECT_EQ(Pane(), u"Two one three");
}

TEST_F(MarkedTexts, TheTextBoxOfACaptionShowsAndKeepsThemAsThePaneDoes) {
  OpenSubRip("{\\an8}One <i>two</i>");
  boxes.lines.push_back(u"One too");
  Window().mnuEditSelected.Click();
  EXPECT_EQ(boxes.asked.back().initial, u"One two");
  EXPECT_EQ(Stored(), u"{\\an8}One <i>too</i>");
  EXPECT_EQ(Pane(), u"One too");
}

TEST_F(MarkedTexts, AreNoWordsForTheSpellCheckAndStayWhereAWordIsCorrected) {
  dictionaries.dictionaries[u"en_GB"] = {u"One", u"the", u"plain"};
  dictionaries.suggestions[u"teh"] = {u"the"};
  OpenSubRip("{\\fnArial}One <font color=\"red\">teh</font>\n<i>teh</i>");
  std::vector<Text> words;
  program->spelling.dialog.Opened.Connect([&] {
    words.push_back(program->spelling.dialog.lblWord.GetText());
    program->spelling.dialog.cmdReplaceAll.Click();
  });
  Window().mnuSpell.Click();
  EXPECT_EQ(words, std::vector<Text>{u"teh"});
  EXPECT_EQ(Stored(), u"{\\fnArial}One <font color=\"red\">the</font>|<i>the</i>");
  EXPECT_EQ(Pane(), u"One the\r\nthe");
}

TEST_F(MarkedTexts, AreNotCutByTheRuleThatSplitsAndCountForNothing) {
  OpenSubRip("One <font color=\"#ff0000\">two three</font>\nfour <i>five</i>\nsix");
  program->options.autoJoin = program->options.avoidCollision = program->options.removeCredits = 0;
  program->options.limitDuration = 0;
  Window().mnuRules.Click();
  EXPECT_EQ(Stored(), u"One <font color=\"#ff0000\">two three</font>|four <i>five</i> six");

  program->options.autoSplit = 0;
  program->options.limitDuration = 1;
  List().Replace(1, 1, {{1000, 1100, u"{\\an8}<font color=\"#ff0000\">ab</font><i>cd</i>"}});
  Window().mnuRules.Click();
  EXPECT_EQ(List().GetCaptionEnd(1), 1000 + 4 * 250);
  List().Replace(1, 1, {{1000, 1000, u"{\\an8}<font color=\"#ff0000\">ab</font><i>cd</i>"}});
  Window().mnuRules.Click();
  EXPECT_EQ(List().GetCaptionEnd(1), 1000 + 4 * 250);
}

TEST_F(MarkedTexts, AMarkThatNamesAPageIsNoCredit) {
  OpenSubRip("<font face=\"www\">One</font>");
  program->options.removeCredits = 1;
  Window().mnuRules.Click();
  EXPECT_EQ(List().Rows(), 3);
}

}  // namespace
}  // namespace cuewright
