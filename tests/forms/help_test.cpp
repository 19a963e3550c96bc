#include "forms/help.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

using testing::ProgramFixture;
using testing::TempFolder;

struct HelpBookTest : ::testing::Test {
  void Page(const std::string& file, const std::string& title, const std::string& body) {
    folder.Write(file, "<html><head><title>" + title + "</title></head><body>" + body + "</body></html>");
  }
  std::vector<Text> Titles(TextView words) const {
    std::vector<Text> titles;
    for (const std::size_t place : book.Find(words)) titles.push_back(book.Topics()[place].title);
    return titles;
  }

  TempFolder folder;
  PosixFiles files;
  HelpBook book;
};

TEST_F(HelpBookTest, ReadsTheTopicsInTheOrderAndDepthOfItsContents) {
  Page("b.html", "Second &amp; last", "text");
  Page("a.html", "First", "text");
  folder.Write("contents.txt", "a.html\n\tb.html\r\n\n");
  ASSERT_TRUE(book.Load(files, folder / ""));
  ASSERT_EQ(book.Topics().size(), 2u);
  EXPECT_EQ(book.Topics()[0].title, u"First");
  EXPECT_EQ(book.Topics()[1].title, u"Second & last");
  EXPECT_EQ(book.Topics()[1].depth, 1U);
  EXPECT_EQ(book.PlaceOf(u"b.html"), 1u);
  EXPECT_EQ(book.PlaceOf(u"c.html"), std::nullopt);
}

TEST_F(HelpBookTest, LeavesOutWhatCannotBeRead) {
  Page("a.html", "First", "text");
  folder.Write("untitled.html", "<p>text");
  folder.Write("contents.txt", "gone.html\nuntitled.html\na.html");
  ASSERT_TRUE(book.Load(files, folder / ""));
  ASSERT_EQ(book.Topics().size(), 1u);
  EXPECT_FALSE(book.Load(files, folder / "nowhere/"));
  EXPECT_TRUE(book.Topics().empty());
}

TEST_F(HelpBookTest, FindsAllWordsInAnyCaseAndWithoutAccents) {
  Page("a.html", "Uno",
       "Subt\xC3\xADtulo y pel\xC3\xAD"
       "cula");
  Page("b.html",
       "Pel\xC3\xAD"
       "cula",
       "subtitulo");
  Page("c.html", "Otro", "nada");
  folder.Write("contents.txt", "a.html\nb.html\nc.html");
  ASSERT_TRUE(book.Load(files, folder / ""));
  EXPECT_EQ(Titles(u"SUBTITULO"), (std::vector<Text>{u"Uno", u"Pel\u00EDcula"}));
  EXPECT_EQ(Titles(u"pel\u00EDcula"), (std::vector<Text>{u"Pel\u00EDcula", u"Uno"})) << "titles come first";
  EXPECT_EQ(Titles(u"nada pelicula"), std::vector<Text>{});
  EXPECT_EQ(Titles(u"  ").size(), 3u);
}

TEST_F(HelpBookTest, DoesNotFindTheMarksOfAPage) {
  Page("a.html", "One", "<table cellspacing=\"0\"><tr><td>a &lt; b</td></tr></table>");
  folder.Write("contents.txt", "a.html");
  ASSERT_TRUE(book.Load(files, folder / ""));
  EXPECT_EQ(Titles(u"table").size(), 0u);
  EXPECT_EQ(Titles(u"<").size(), 1u);
}

struct HelpWindowTest : ProgramFixture {
  HelpWindow& Help() { return program->help; }
  Text File() { return Help().PagePath().substr(Help().PagePath().rfind(u'/') + 1); }
  /// Selects the topic whose title ends so.
  void Choose(TextView title) {
    const auto& items = Help().lstTopics.Items();
    for (std::size_t i = 0; i < items.size(); ++i) {
      if (items[i].ends_with(title)) return Help().lstTopics.Choose(static_cast<int>(i));
    }
    ADD_FAILURE() << ToUtf8(title);
  }
  void Search(TextView words) {
    Help().txtSearch.SetText(words);
    Help().txtSearch.NoteEdited();
  }
};

TEST_F(HelpWindowTest, TheMenuOpensTheFirstPage) {
  Window().mnuHelpTopics.Click();
  EXPECT_TRUE(Help().Loaded());
  EXPECT_EQ(File(), u"start.html");
  EXPECT_TRUE(desktop.opened.empty());
  EXPECT_FALSE(Help().lblNotice.Visible());
  EXPECT_EQ(Help().Title(), u"Help Topics");
}

TEST_F(HelpWindowTest, ALanguageWithoutHelpGetsTheEnglishOneWithAWord) {
  program->options.language = u"GERMAN";
  Window().mnuHelpTopics.Click();
  EXPECT_EQ(LastBox(),
            "The Help system has not yet been translated to your language. Help file will be shown in English.");
  EXPECT_TRUE(Help().PagePath().ends_with(u"help/english/start.html"));
  EXPECT_TRUE(Help().lblNotice.Visible());
}

TEST_F(HelpWindowTest, EachWindowHasItsPage) {
  for (const char* window :
       {"frmAbout",  "frmAudio",  "frmAudioWizard", "frmCheck",     "frmDelay",  "frmEmbed",   "frmExport",
        "frmFind",   "frmFormat", "frmLines",       "frmProposals", "frmReopen", "frmReplace", "frmReport",
        "frmRetime", "frmHand",   "frmSaving",      "frmSpell",     "frmStart",  "frmSub",     "frmUpdate"}) {
    Help().OpenFor(window);
    EXPECT_NE(File(), u"start.html") << window;
    EXPECT_TRUE(files.Exists(Help().PagePath().substr(0, Help().PagePath().rfind(u'#')))) << window;
    Help().Close();
  }
  Help().OpenFor("frmUnknown");
  EXPECT_EQ(File(), u"start.html");
}

TEST_F(HelpWindowTest, ThePageOfReplaceIsAPartOfThatOfFind) {
  Help().OpenFor("frmReplace");
  EXPECT_EQ(File(), u"find.html#replace");
}

TEST_F(HelpWindowTest, GoesBackAndForwardOverThePagesVisited) {
  Help().OpenFor({});
  EXPECT_FALSE(Help().cmdBack.Enabled());
  Choose(u"Set delay");
  Help().Follow(u"find.html#replace");
  EXPECT_EQ(File(), u"find.html#replace");
  EXPECT_FALSE(Help().cmdForward.Enabled());
  Help().cmdBack.Click();
  EXPECT_EQ(File(), u"delay.html");
  EXPECT_TRUE(Help().lstTopics.Items()[static_cast<std::size_t>(Help().lstTopics.Index())].ends_with(u"Set delay"));
  Help().cmdBack.Click();
  EXPECT_EQ(File(), u"start.html");
  Help().cmdBack.Click();
  EXPECT_EQ(File(), u"start.html");
  Help().cmdForward.Click();
  EXPECT_EQ(File(), u"delay.html");
  Help().Follow(u"keys.html");
  EXPECT_FALSE(Help().cmdForward.Enabled()) << "what was forward is gone";
}

TEST_F(HelpWindowTest, FollowsLinksToPartsOfThePageAndToTheWeb) {
  Help().OpenFor("frmFind");
  Help().Follow(u"#replace");
  EXPECT_EQ(File(), u"find.html#replace");
  Help().Follow(u"https://cuewright.example/");
  EXPECT_EQ(desktop.opened, std::vector<Text>{u"https://cuewright.example/"});
  EXPECT_EQ(File(), u"find.html#replace");
}

TEST_F(HelpWindowTest, ALinkOutOfTheBookLeadsNowhere) {
  Help().OpenFor({});
  Help().Follow(u"../../formats.ini");
  Help().Follow(u"file:///etc/passwd");
  EXPECT_EQ(File(), u"start.html");
  EXPECT_TRUE(desktop.opened.empty());
}

TEST_F(HelpWindowTest, TheSearchListsTheTopicsThatHoldTheWords) {
  Help().OpenFor({});
  const std::size_t all = Help().lstTopics.Items().size();
  Search(u"delay");
  EXPECT_LT(Help().lstTopics.Items().size(), all);
  EXPECT_EQ(Help().lstTopics.Items()[0], u"Set delay");
  KeyEvent enter{kKeyEnter};
  Help().txtSearch.PressKey(enter);
  EXPECT_TRUE(enter.handled);
  EXPECT_EQ(File(), u"delay.html");
  Search({});
  EXPECT_EQ(Help().lstTopics.Items().size(), all);
}

TEST_F(HelpWindowTest, ASearchInVainSaysSo) {
  Help().OpenFor({});
  Search(u"xylophone");
  EXPECT_EQ(Help().lstTopics.Items(), std::vector<Text>{u"No topic has all of these words."});
  EXPECT_FALSE(Help().lstTopics.Enabled());
  Help().lstTopics.Choose(0);
  KeyEvent enter{kKeyEnter};
  Help().txtSearch.PressKey(enter);
  EXPECT_EQ(File(), u"start.html");
}

TEST_F(HelpWindowTest, AChangeOfLanguageKeepsThePage) {
  Help().OpenFor("frmDelay");
  program->ChangeLanguage(1);
  EXPECT_EQ(program->options.language, u"SPANISH");
  EXPECT_TRUE(Help().PagePath().ends_with(u"help/spanish/delay.html"));
}

TEST_F(HelpWindowTest, WithoutAnyHelpF1DoesNothing) {
  program->folders.AppFolder = folder / "";
  Help().OpenFor("frmDelay");
  EXPECT_FALSE(Help().Loaded());
}

TEST_F(HelpWindowTest, AHelpFileBesideTheProgramComesFirst) {
  program->folders.AppFolder = folder / "";
  const Text english = folder.Write("qxm_english.chm", "help");
  Window().mnuHelpTopics.Click();
  EXPECT_EQ(desktop.opened, std::vector<Text>{english});
  EXPECT_TRUE(boxes.shown.empty());
  desktop.opened.clear();
  const Text german = folder.Write("qxm_german.chm", "help");
  program->options.language = u"GERMAN";
  Window().mnuHelpTopics.Click();
  EXPECT_EQ(desktop.opened, std::vector<Text>{german});
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(HelpWindowTest, TheEnglishFileStandsInWithAWord) {
  program->folders.AppFolder = folder / "";
  const Text english = folder.Write("qxm_english.chm", "help");
  program->options.language = u"GERMAN";
  Window().mnuHelpTopics.Click();
  EXPECT_EQ(desktop.opened, std::vector<Text>{english});
  EXPECT_EQ(LastBox(),
            "The Help system has not yet been translated to your language. Help file will be shown in English.");
}

TEST_F(HelpWindowTest, WithoutAnyHelpTheMenuOpensTheWebSite) {
  program->folders.AppFolder = folder / "";
  program->options.language = u"SPANISH";
  Window().mnuHelpTopics.Click();
  EXPECT_EQ(desktop.opened, std::vector<Text>{u"https://cuewright.example/es/cuewright.php?lang=spanish#help"});
}

/// The pages themselves, in each of their languages.
struct HelpPages : ProgramFixture, ::testing::WithParamInterface<const char*> {
  HelpPages() {
    folderOf = FromUtf8(std::string(CUEWRIGHT_SOURCE_DIR "/resources/help/") + GetParam() + "/");
    EXPECT_TRUE(book.Load(files, folderOf));
  }
  Text Page(TextView file) { return FromUtf8(files.Read(folderOf + Text(file), 1 << 20)); }
  /// What stands behind each `mark` up to the next quote.
  static std::vector<Text> Quoted(TextView page, TextView mark) {
    std::vector<Text> found;
    for (std::size_t at = 0; (at = page.find(mark, at)) != TextView::npos;) {
      at += mark.size();
      found.emplace_back(page.substr(at, page.find(u'"', at) - at));
    }
    return found;
  }

  Text folderOf;
  HelpBook book;
};

TEST_P(HelpPages, EveryLinkAndPictureIsThere) {
  for (const HelpTopic& topic : book.Topics()) {
    const Text page = Page(topic.file);
    for (const Text& link : Quoted(page, u"href=\"")) {
      const Text file = link.substr(0, link.find(u'#'));
      EXPECT_TRUE(book.PlaceOf(file)) << ToUtf8(topic.file + u": " + link);
      if (file == link) continue;
      EXPECT_NE(Page(file).find(u"id=\"" + link.substr(file.size() + 1) + u"\""), Text::npos) << ToUtf8(link);
    }
    for (const Text& picture : Quoted(page, u"src=\"")) {
      EXPECT_TRUE(files.Exists(folderOf + picture)) << ToUtf8(topic.file + u": " + picture);
    }
    EXPECT_EQ(page.find(u'{'), Text::npos) << ToUtf8(topic.file);
  }
}

TEST_P(HelpPages, EveryPageIsInTheContentsAndAsInEnglish) {
  HelpBook english;
  ASSERT_TRUE(english.Load(files, FromUtf8(CUEWRIGHT_SOURCE_DIR "/resources/help/english/")));
  ASSERT_EQ(book.Topics().size(), english.Topics().size());
  std::set<Text> titles;
  for (std::size_t i = 0; i < book.Topics().size(); ++i) {
    EXPECT_EQ(book.Topics()[i].file, english.Topics()[i].file);
    EXPECT_EQ(book.Topics()[i].depth, english.Topics()[i].depth);
    titles.insert(book.Topics()[i].title);
    const auto links = Quoted(Page(book.Topics()[i].file), u"href=\"");
    const auto englishLinks =
        Quoted(FromUtf8(files.Read(FromUtf8(CUEWRIGHT_SOURCE_DIR "/resources/help/english/") + english.Topics()[i].file,
                                   1 << 20)),
               u"href=\"");
    EXPECT_EQ(links, englishLinks) << ToUtf8(book.Topics()[i].file);
  }
  EXPECT_EQ(titles.size(), book.Topics().size()) << "two pages bear one title";
}

TEST_P(HelpPages, EveryMenuItemIsTold) {
  const std::string name = GetParam();
  files.MakeLink(folder / "languages", FromUtf8(CUEWRIGHT_SOURCE_DIR "/resources/messages"));
  program->folders.AppFolder = folder / "";
  program->ChangeLanguage(name == "spanish" ? 1 : 0);
  const MainWindow& w = Window();
  for (const MenuItem* menu :
       {&w.mnuFile, &w.mnuEdit, &w.mnuFormat, &w.mnuView, &w.mnuTools, &w.mnuSettings, &w.mnuHelp}) {
    std::string file = menu->Name();  // "mnuFile" is told in menu_file.html
    file = "menu_" + ToUtf8(ToLower(FromUtf8(file.substr(3)))) + ".html";
    const Text page = Page(FromUtf8(file));
    for (const MenuItem* item : menu->Items()) {
      if (item->IsSeparator() || item == &w.mnuTFileName || item == &w.mnuVFileName || item == &w.mnuAFileName)
        continue;
      EXPECT_NE(page.find(WithoutAccessKey(item->GetText())), Text::npos) << item->Name() << " in " << file;
    }
  }
}

TEST_P(HelpPages, EveryFormatIsTold) {
  const Text page = Page(u"formats.html");
  ASSERT_GT(program->catalogue.Count(), 70);
  for (int i = 0; i < program->catalogue.Count(); ++i) {
    const Text identifier = program->catalogue.Identifier(i);
    const Text name = program->catalogue.ReadIni(identifier, u"name", {});
    EXPECT_NE(page.find(u"<a name=\"" + identifier + u"\"></a><b>" + name + u"</b>"), Text::npos) << ToUtf8(identifier);
    EXPECT_NE(page.find(program->catalogue.ReadIni(identifier, u"extension", {})), Text::npos) << ToUtf8(identifier);
  }
}

INSTANTIATE_TEST_SUITE_P(Languages, HelpPages, ::testing::Values("english", "spanish"));

}  // namespace
}  // namespace cuewright
