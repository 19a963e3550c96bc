#include "forms/spell_check.h"

#include <gtest/gtest.h>

#include <set>

#include "forms/access_keys.h"
#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

const Text kFailed =
    u"Spell check failed. Either you don't have Microsoft Office Word installed or your version is not compatible with "
    u"this feature.\r\n\r\n(Error# 429 - ";

struct Spelling : testing::ProgramFixture {
  Spelling() {
    dictionaries.dictionaries[u"en_GB"] = {u"the", u"one", u"two", u"and", u"first", u"second"};
    dictionaries.suggestions[u"teh"] = {u"the", u"ten", u"tea"};
    Wire();
  }
  void Wire() {
    program->spelling.dialog.Opened.Connect([this] {
      ++dialogs_;
      if (script) script();
    });
  }
  SpellDialog& Dialog() { return program->spelling.dialog; }
  /// A document of these captions, and the check of it.
  void Check(const std::vector<Text>& captions) {
    Write(captions);
    Window().mnuSpell.Click();
  }
  void Write(const std::vector<Text>& captions) {
    Window().mnuNew.Click();
    std::vector<Caption> rows;
    for (const Text& text : captions) rows.push_back({0, 0, text});
    List().Replace(1, 1, std::move(rows));
    program->history.Begin(DocumentBaseline::File);
    program->document.DocModified = false;
  }
  std::vector<Text> Captions() {
    std::vector<Text> captions;
    for (Row row = 1; row < List().Rows(); ++row) captions.push_back(List().GetCaptionText(row));
    return captions;
  }
  void ExpectEnd(const Text& text) {
    ASSERT_FALSE(boxes.shown.empty());
    EXPECT_EQ(boxes.shown.back().text, text);
    EXPECT_EQ(boxes.shown.back().title, u"Spell check");
    EXPECT_EQ(boxes.shown.back().icon, BoxIcon::Information);
  }
  /// The words that the dialog stops at, each ignored.
  std::vector<Text> IgnoreThrough() {
    std::vector<Text> words;
    while (Dialog().IsOpen()) {
      words.push_back(Dialog().lblWord.GetText());
      Dialog().cmdIgnore.Click();
    }
    return words;
  }
  void Type(const Text& text) {
    Dialog().txtReplace.SetText(text);
    Dialog().txtReplace.NoteEdited();
  }

  int dialogs_ = 0;
  std::function<void()> script;
};

TEST_F(Spelling, IsThereForADocument) {
  EXPECT_FALSE(Window().mnuSpell.Enabled());
  Window().mnuNew.Click();
  EXPECT_TRUE(Window().mnuSpell.Enabled());
  program->session.CloseDocuments();
  EXPECT_FALSE(Window().mnuSpell.Enabled());
}

TEST_F(Spelling, WithoutAnyDictionaryItEndsInItsMessageAndTouchesNoRow) {
  dictionaries.dictionaries.clear();
  Check({u"teh one", u"first|second"});
  ASSERT_EQ(boxes.shown.size(), 1u);
  EXPECT_EQ(boxes.shown[0].text, kFailed + u"No dictionary is there.)");
  EXPECT_EQ(boxes.shown[0].icon, BoxIcon::Error);
  EXPECT_EQ(boxes.shown[0].title, u"Spell check");
  EXPECT_EQ(Captions(), (std::vector<Text>{u"teh one", u"first|second"}));
  EXPECT_EQ(dialogs_, 0);
  EXPECT_EQ(program->history.UndoSteps(), 0u);
}

TEST_F(Spelling, ADictionaryThatCantBeReadEndsItInTheSameMessage) {
  dictionaries.dictionaries[u"en_GB"] = {u"broken"};
  Check({u"teh"});
  ASSERT_EQ(boxes.shown.size(), 1u);
  EXPECT_EQ(boxes.shown[0].text, kFailed + u"It can't be read.)");
  EXPECT_FALSE(desktop.busy);
}

TEST_F(Spelling, WithNoRowsChangedOnlyItsEndIsTold) {
  Check({u"the one|and two", u"<i>first <b>second", u""});
  ExpectEnd(u"Spell check completed. ");
  EXPECT_EQ(dialogs_, 0) << "no word is misspelt";
  EXPECT_EQ(program->history.UndoSteps(), 0u);
  EXPECT_FALSE(program->document.DocModified);
}

TEST_F(Spelling, IgnoredWordsChangeNothing) {
  std::vector<Text> words;
  script = [&] { words = IgnoreThrough(); };
  Check({u"teh one|tow", u"<i>wun"});
  EXPECT_EQ(words, (std::vector<Text>{u"teh", u"tow", u"wun"}));
  ExpectEnd(u"Spell check completed. ");
  EXPECT_EQ(Captions(), (std::vector<Text>{u"teh one|tow", u"<i>wun"}));
}

TEST_F(Spelling, ChangedRowsAreStoredAndCounted) {
  script = [&] {
    EXPECT_EQ(Dialog().txtReplace.GetText(), u"the") << "the first suggestion";
    Dialog().cmdReplaceAll.Click();
    Type(u"two");
    Dialog().cmdReplace.Click();
  };
  Check({u"teh one", u"the one|and tow", u"the one", u"<i>teh"});
  EXPECT_EQ(Captions(), (std::vector<Text>{u"the one", u"the one|and two", u"the one", u"<i>the"}));
  ExpectEnd(u"Spell check completed. Total line(s) modified: 3.");
  EXPECT_TRUE(program->document.DocModified);
  EXPECT_EQ(Window().txtSub.GetText(), u"the one");
}

TEST_F(Spelling, ACaptionOfTwoLinesComesBackWithTheSeparatorInForce) {
  program->options.lineSeparator = u"[br]";
  script = [&] { Dialog().cmdReplace.Click(); };
  Check({u"one[br]teh[br]two"});
  EXPECT_EQ(Captions(), std::vector<Text>{u"one[br]the[br]two"});
}

TEST_F(Spelling, TheWholeCheckIsOneStepOfUndo) {
  script = [&] { Dialog().cmdReplaceAll.Click(); };
  std::vector<Text> captions(1200, u"teh one");
  Check(captions);
  EXPECT_EQ(Captions(), std::vector<Text>(1200, u"the one"));
  EXPECT_EQ(program->history.UndoSteps(), 1u);
  EXPECT_EQ(program->history.UndoKind(), EditKind::Spelling);
  EXPECT_EQ(Window().mnuUndo.GetText(), u"Undo: Spell check");
  Window().mnuUndo.Click();
  EXPECT_EQ(Captions(), captions);
  EXPECT_FALSE(program->document.DocModified);
  Window().mnuRedo.Click();
  EXPECT_EQ(Captions(), std::vector<Text>(1200, u"the one"));
  EXPECT_TRUE(program->document.DocModified);
}

TEST_F(Spelling, TwoChecksAreTwoSteps) {
  script = [&] { Dialog().cmdReplace.Click(), Dialog().Close(); };
  Check({u"teh teh"});
  Window().mnuSpell.Click();
  EXPECT_EQ(Captions(), std::vector<Text>{u"the the"});
  EXPECT_EQ(program->history.UndoSteps(), 2u);
}

struct SpellingBlocks : Spelling {
  /// The label's texts while so many captions are checked, each with a misspelt word of its own.
  std::vector<Text> Labels(int captions) {
    std::vector<Text> labels;
    events.onYield = [&] {
      const Text& label = Window().lblTextFile.GetText();
      if (label.starts_with(u"Please wait.") && (labels.empty() || labels.back() != label)) labels.push_back(label);
    };
    script = [&] {
      lines.push_back(Dialog().lblLine.GetText());
      IgnoreThrough();
    };
    dialogs_ = 0;
    lines.clear();
    Check(std::vector<Text>(static_cast<std::size_t>(captions), u"teh"));
    events.onYield = nullptr;
    return labels;
  }
  std::vector<Text> lines;
};

TEST_F(SpellingBlocks, UpTo550RowsWithTheHeaderAreOneBlock) {
  EXPECT_EQ(Labels(549), std::vector<Text>{u"Please wait.... (549/549)"});
  EXPECT_EQ(dialogs_, 1);
}

TEST_F(SpellingBlocks, AboveThatBlocksOf500FollowEachOther) {
  EXPECT_EQ(Labels(550), (std::vector<Text>{u"Please wait.... (500/550)", u"Please wait.... (550/550)"}));
  EXPECT_EQ(dialogs_, 2);
  EXPECT_EQ(lines, (std::vector<Text>{u"Line 1", u"Line 501"}));
  EXPECT_EQ(Labels(1000).size(), 2u);
  EXPECT_EQ(Labels(1001), (std::vector<Text>{u"Please wait.... (500/1001)", u"Please wait.... (1000/1001)",
                                             u"Please wait.... (1001/1001)"}));
}

TEST_F(SpellingBlocks, TheLongestListComesToItsEnd) {
  dictionaries.dictionaries[u"en_GB"].insert(u"teh");
  Check(std::vector<Text>(kMaxRow.Index() + 1, u"teh"));
  ExpectEnd(u"Spell check completed. ");
}

TEST_F(SpellingBlocks, WhatHoldsForAllHoldsForTheBlocksThatFollow) {
  script = [&] {
    Dialog().cmdIgnoreAll.Click();
    if (!Dialog().IsOpen()) return;
    Type(u"two");
    Dialog().cmdReplaceAll.Click();
  };
  std::vector<Text> captions(600, u"teh");
  captions[100] = u"tow";
  captions[550] = u"tow";
  Check(captions);
  EXPECT_EQ(dialogs_, 1);
  EXPECT_EQ(List().GetCaptionText(101), u"two");
  EXPECT_EQ(List().GetCaptionText(551), u"two");
  ExpectEnd(u"Spell check completed. Total line(s) modified: 2.");
}

TEST_F(SpellingBlocks, StoppingKeepsWhatWasChangedAndAsksNoMore) {
  script = [&] {
    Dialog().cmdReplace.Click();
    Dialog().cmdCancel.Click();
  };
  Check(std::vector<Text>(1200, u"teh"));
  EXPECT_EQ(dialogs_, 1);
  EXPECT_EQ(List().GetCaptionText(1), u"the");
  EXPECT_EQ(List().GetCaptionText(2), u"teh");
  ExpectEnd(u"Spell check completed. Total line(s) modified: 1.");
  script = nullptr;
  Window().mnuSpell.Click();
  EXPECT_EQ(dialogs_, 2) << "the next check asks again";
}

TEST_F(Spelling, TheWordIsShownInItsCaption) {
  script = [&] {
    SpellDialog& d = Dialog();
    EXPECT_EQ(d.Title(), u"Spell check");
    EXPECT_EQ(d.lblLine.GetText(), u"Line 2");
    EXPECT_EQ(d.txtCaption.GetText(), u"one\r\nand teh two");
    EXPECT_EQ(d.txtCaption.GetText().substr(static_cast<std::size_t>(d.txtCaption.SelStart()),
                                            static_cast<std::size_t>(d.txtCaption.SelLength())),
              u"teh");
    EXPECT_EQ(d.lblWord.GetText(), u"teh");
    EXPECT_EQ(d.lstSuggestions.Items(), (std::vector<Text>{u"the", u"ten", u"tea"}));
    EXPECT_EQ(d.lstSuggestions.Index(), 0);
    EXPECT_EQ(d.txtReplace.SelLength(), 3);
  };
  Check({u"the", u"one|<i>and teh two"});
  EXPECT_EQ(dialogs_, 1);
}

TEST_F(Spelling, OnlyAnotherWordCanTakeItsPlace) {
  script = [&] {
    SpellDialog& d = Dialog();
    EXPECT_EQ(d.txtReplace.GetText(), u"xyzzy") << "without suggestions the word itself";
    EXPECT_FALSE(d.cmdReplace.Enabled());
    for (const TextView refused : {u"%%%", u"a%#%", u"#%#", u"xyzzy"}) {
      Type(Text(refused));
      EXPECT_FALSE(d.cmdReplace.Enabled()) << ToUtf8(refused);
      EXPECT_FALSE(d.cmdReplaceAll.Enabled()) << ToUtf8(refused);
    }
    Type(u"one");
    EXPECT_TRUE(d.cmdReplace.Enabled());
    EXPECT_TRUE(d.cmdReplaceAll.Enabled());
  };
  Check({u"xyzzy"});
  EXPECT_EQ(Captions(), std::vector<Text>{u"xyzzy"});
}

TEST_F(Spelling, SuggestionsAreChosenFromTheListAndFromTheField) {
  script = [&] {
    SpellDialog& d = Dialog();
    d.lstSuggestions.Choose(2);
    EXPECT_EQ(d.txtReplace.GetText(), u"tea");
    const auto press = [&d](int code) {
      KeyEvent key;
      key.code = code;
      d.txtReplace.PressKey(key);
      return key.handled;
    };
    EXPECT_TRUE(press(kKeyUp));
    EXPECT_EQ(d.txtReplace.GetText(), u"ten");
    EXPECT_TRUE(press(kKeyUp));
    EXPECT_TRUE(press(kKeyUp));
    EXPECT_EQ(d.txtReplace.GetText(), u"the");
    EXPECT_TRUE(press(kKeyDown));
    EXPECT_EQ(d.lstSuggestions.Index(), 1);
    EXPECT_FALSE(press(kKeyLeft));
    d.cmdReplace.Click();
  };
  Check({u"teh"});
  EXPECT_EQ(Captions(), std::vector<Text>{u"ten"});
}

TEST_F(Spelling, StepsAreTakenBackInTheDialog) {
  script = [&] {
    SpellDialog& d = Dialog();
    EXPECT_FALSE(d.cmdUndo.Enabled());
    EXPECT_EQ(WithoutAccessKey(d.cmdCancel.GetText()), u"Cancel");
    d.cmdReplace.Click();
    EXPECT_EQ(d.lblWord.GetText(), u"tow");
    EXPECT_EQ(WithoutAccessKey(d.cmdCancel.GetText()), u"Close") << "what was changed stays";
    EXPECT_TRUE(d.cmdUndo.Enabled());
    d.cmdUndo.Click();
    EXPECT_EQ(d.lblWord.GetText(), u"teh");
    EXPECT_EQ(WithoutAccessKey(d.cmdCancel.GetText()), u"Cancel");
    EXPECT_FALSE(d.cmdUndo.Enabled());
    d.cmdIgnore.Click();
    d.cmdCancel.Click();
    EXPECT_FALSE(d.IsOpen());
  };
  Check({u"teh tow"});
  EXPECT_EQ(Captions(), std::vector<Text>{u"teh tow"});
}

TEST_F(Spelling, AnAddedWordIsKnownFromThenOn) {
  script = [&] { Dialog().cmdAdd.Click(); };
  Check({u"teh teh", u"Teh"});
  EXPECT_EQ(folder.Read("words/en_GB.txt"), "teh\n");
  EXPECT_EQ(dialogs_, 1);
  Restart({});
  Wire();
  Check({u"teh"});
  EXPECT_EQ(dialogs_, 1) << "also after a start";
}

TEST_F(Spelling, AddingIsTakenBack) {
  script = [&] {
    Dialog().cmdAdd.Click();
    EXPECT_EQ(Dialog().lblWord.GetText(), u"tow");
    Dialog().cmdUndo.Click();
    EXPECT_EQ(Dialog().lblWord.GetText(), u"teh");
  };
  Check({u"teh tow"});
  EXPECT_EQ(folder.Read("words/en_GB.txt"), "");
}

TEST_F(Spelling, AWordThatCantBeStoredIsToldAndTheWordStays) {
  folder.Write("words", "no folder");
  script = [&] {
    Dialog().cmdAdd.Click();
    EXPECT_EQ(Dialog().lblWord.GetText(), u"teh");
    EXPECT_FALSE(Dialog().cmdUndo.Enabled());
  };
  Check({u"teh"});
  EXPECT_EQ(boxes.shown.size(), 2u);
  EXPECT_EQ(boxes.shown[0].icon, BoxIcon::Warning);
}

struct SpellingLanguages : Spelling {
  SpellingLanguages() {
    dictionaries.dictionaries[u"de_DE"] = {u"eins", u"teh"};
    dictionaries.dictionaries[u"en_AU"] = {u"one"};
    dictionaries.dictionaries[u"es_ES"] = {u"uno"};
    dictionaries.dictionaries[u"xx"] = {u"broken"};
  }
  /// The dictionary with which a check begins.
  Text First() {
    dictionaries.opened.clear();
    Window().mnuSpell.Click();
    return dictionaries.opened.empty() ? Text() : dictionaries.opened.front();
  }
};

TEST_F(SpellingLanguages, TheCheckBeginsWithTheLanguageOfTheInterface) {
  Write({u"xyzzy"});
  EXPECT_EQ(First(), u"en_GB");
  program->ChangeLanguage(1);
  EXPECT_EQ(First(), u"es_ES");
  program->ChangeLanguage(21);
  EXPECT_EQ(First(), u"de_DE");
}

TEST_F(SpellingLanguages, AnotherCountryOfTheLanguageServesAsWell) {
  dictionaries.dictionaries.erase(u"en_GB");
  Write({u"xyzzy"});
  EXPECT_EQ(First(), u"en_AU");
  program->ChangeLanguage(5);
  EXPECT_EQ(First(), u"en_AU") << "for French nothing serves";
  dictionaries.dictionaries.erase(u"en_AU");
  EXPECT_EQ(First(), u"de_DE") << "and no English either";
}

TEST_F(SpellingLanguages, TheChosenLanguageIsRemembered) {
  script = [&] {
    SpellDialog& d = Dialog();
    EXPECT_EQ(d.cboLanguage.Items(), (std::vector<Text>{u"de_DE", u"en_AU", u"en_GB", u"es_ES", u"xx"}));
    EXPECT_EQ(d.cboLanguage.Index(), 2);
    EXPECT_EQ(d.lblWord.GetText(), u"teh");
    d.cboLanguage.Choose(0);
    EXPECT_EQ(d.lblWord.GetText(), u"one") << "from the present word on";
  };
  Check({u"teh one"});
  EXPECT_EQ(program->store.GetSetting(u"Cuewright", u"SpellLanguage", u"?"), u"de_DE");
  script = nullptr;
  EXPECT_EQ(First(), u"de_DE");
}

TEST_F(SpellingLanguages, ALanguageThatKnowsEveryWordLeavesTheDialogOpen) {
  script = [&] {
    SpellDialog& d = Dialog();
    d.cboLanguage.Choose(0);
    EXPECT_TRUE(d.IsOpen());
    EXPECT_EQ(d.lblLine.GetText(), u"Spell check completed.");
    EXPECT_FALSE(d.cmdIgnore.Enabled());
    EXPECT_FALSE(d.cmdReplace.Enabled());
    d.cboLanguage.Choose(2);
    EXPECT_EQ(d.lblWord.GetText(), u"") << "the place in the text stays";
    d.cmdCancel.Click();
  };
  Check({u"teh eins"});
  ExpectEnd(u"Spell check completed. ");
}

TEST_F(SpellingLanguages, ALanguageThatCantBeReadIsToldAndTheOldOneStays) {
  script = [&] {
    Dialog().cboLanguage.Choose(4);
    EXPECT_EQ(Dialog().cboLanguage.Index(), 2);
    EXPECT_EQ(Dialog().lblWord.GetText(), u"teh");
    EXPECT_EQ(boxes.shown.size(), 1u);
  };
  Check({u"teh"});
  EXPECT_EQ(boxes.shown[0].text, u"It can't be read.");
  EXPECT_EQ(program->store.GetSetting(u"Cuewright", u"SpellLanguage", u"?"), u"?");
}

TEST_F(Spelling, ButtonsHaveAccessKeysOfTheirOwnInEveryLanguage) {
  for (std::size_t language = 0; language < kLanguageCount; ++language) {
    program->ChangeLanguage(language);
    script = [&] {
      std::set<Text> keys;
      for (const Button* button : {&Dialog().cmdReplace, &Dialog().cmdReplaceAll, &Dialog().cmdIgnore,
                                   &Dialog().cmdIgnoreAll, &Dialog().cmdAdd, &Dialog().cmdUndo, &Dialog().cmdCancel}) {
        const Text& text = button->GetText();
        const std::size_t mark = text.find(u'&');
        ASSERT_NE(mark, Text::npos) << ToUtf8(text);
        EXPECT_TRUE(keys.insert(ToLower(text.substr(mark + 1, 1))).second) << ToUtf8(text);
      }
    };
    Check({u"xyzzy"});
  }
}

TEST(AccessKeysOfAWindow, AreGivenOnceEach) {
  AccessKeys keys;
  EXPECT_EQ(keys.Give(u"&Cancel"), u"&Cancel");
  EXPECT_EQ(keys.Give(u"Close"), u"C&lose");
  EXPECT_EQ(keys.Give(u"&Clear"), u"Cl&ear") << "its own is taken";
  EXPECT_EQ(keys.Give(u"キャンセル(&C)"), u"キャンセル(&A)");
  EXPECT_EQ(keys.Give(u"置換"), u"置換(&B)");
  EXPECT_EQ(keys.Give(u"Ёж"), u"&Ёж");
}

TEST_F(Spelling, TheNewerRouteGoesThroughTheSameDialog) {
  Write({u"one"});
  script = [&] { Dialog().cmdReplaceAll.Click(); };
  Window().mnuSpell.Click();
  // The check has ended; its dictionaries are looked for anew by the next one.
  program->spelling.Begin();
  EXPECT_EQ(program->spelling.word.CheckSpelling(u"teh one\r\ntwo teh"), u"the one\r\ntwo the");
  EXPECT_EQ(dialogs_, 1);
  script = [&] { Dialog().Close(); };
  program->spelling.Begin();
  EXPECT_EQ(program->spelling.word.CheckSpelling(u"teh"), u"teh");
  ASSERT_GE(boxes.shown.size(), 2u);
  EXPECT_EQ(boxes.shown[boxes.shown.size() - 2].text, u"Cancelled");
  EXPECT_EQ(boxes.shown.back().text, u"The spelling check is complete.");
}

}  // namespace
}  // namespace cuewright
