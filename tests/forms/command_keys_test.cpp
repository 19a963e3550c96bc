#include "forms/command_keys.h"

#include <map>

#include "tests/support/program_fixture.h"
#include "text/utf8.h"

namespace cuewright {
namespace {

using testing::ProgramFixture;

struct Keys : ProgramFixture {
  CommandKeys& All() { return program->keys; }
  KeysDialog& Dialog() { return program->keysDialog; }
  void OpenDialog() { Window().mnuKeys.Click(); }
  /// Selects the row of a command in the dialog.
  void Select(const MenuItem& item) {
    const std::vector<MenuItem*> commands = All().Commands();
    for (std::size_t i = 0; i < commands.size(); ++i) {
      if (commands[i] == &item) Dialog().lstCommands.Choose(static_cast<int>(i));
    }
  }
  void Press(TextView key) {
    Dialog().txtKey.SetText(key);
    Dialog().txtKey.NoteEdited();
  }
};

TEST_F(Keys, NoTwoCommandsOfASetHaveTheSame) {
  for (const KeySet set : kKeySets) {
    All().Choose(set);
    const AppOptions& o = program->options;
    std::map<std::string, std::string> holders;
    for (const std::uint8_t letter : {o.playKey, o.pauseKey, o.stopKey, o.startKey, o.nextKey, o.endKey, o.previousKey,
                                      o.jumpKey, o.rewindKey, o.forwardKey}) {
      holders.emplace(std::string{static_cast<char>(letter)}, "captioning");
    }
    for (const MenuItem* item : All().Commands()) {
      for (const std::string& key : SingleKeys(item->Shortcut())) {
        const auto [holder, isNew] = holders.emplace(key, item->Name());
        EXPECT_TRUE(isNew) << key << " is that of " << holder->second << " and of " << item->Name() << " in set "
                           << PlaceOf(kKeySets, set);
      }
    }
    EXPECT_GE(holders.size(), 10u);
  }
}

TEST_F(Keys, AreStoredWhereTheyDifferFromTheSet) {
  All().Assign(Window().mnuGoTo, "Ctrl+G");
  Restart({});
  EXPECT_EQ(Window().mnuGoTo.Shortcut(), "Ctrl+G");
  All().Choose(KeySet::SubtitleEdit);
  EXPECT_EQ(Window().mnuPushFromHere.Shortcut(), "F9");
  All().Assign(Window().mnuGoTo, "F3");
  Restart({});
  EXPECT_EQ(All().Set(), KeySet::SubtitleEdit);
  EXPECT_EQ(Window().mnuPushFromHere.Shortcut(), "F9");
  EXPECT_EQ(Window().mnuGoTo.Shortcut(), "F3");
  All().Choose(KeySet::SubtitleEdit);
  EXPECT_EQ(Window().mnuGoTo.Shortcut(), "Ctrl+G");
}

TEST_F(Keys, FollowTheHabitsOfOtherPrograms) {
  All().Choose(KeySet::Aegisub);
  EXPECT_EQ(Window().mnuPlayBeforeStart.Shortcut(), "Q");
  EXPECT_EQ(Window().mnuSplitAtFilm.Shortcut(), "Ctrl+D");
  EXPECT_EQ(Window().mnuDuplicate.Shortcut(), "");
  EXPECT_EQ(Window().mnuMoveUp.Shortcut(), "Alt+Up") << "what the other program has as well stays";
  All().Choose(KeySet::SubtitleEdit);
  EXPECT_EQ(Window().mnuPlayBeforeStart.Shortcut(), "F6");
  EXPECT_EQ(Window().mnuJoinSelected.Shortcut(), "Ctrl+Shift+M");
  EXPECT_EQ(Window().mnuMoveUp.Shortcut(), "");
  All().Choose(KeySet::Own);
  EXPECT_EQ(Window().mnuDuplicate.Shortcut(), "Ctrl+D");
}

TEST_F(Keys, OfAnotherCommandAreTakenFromIt) {
  All().Assign(Window().mnuGoTo, "Ctrl+Y");
  EXPECT_EQ(Window().mnuRedo.Shortcut(), "Ctrl+Shift+Z");
  All().Assign(Window().mnuGoTo, "Ctrl+F");
  EXPECT_EQ(Window().mnuFind.Shortcut(), "");
  Restart({});
  EXPECT_EQ(Window().mnuRedo.Shortcut(), "Ctrl+Shift+Z");
  EXPECT_EQ(Window().mnuFind.Shortcut(), "");
  EXPECT_EQ(Window().mnuGoTo.Shortcut(), "Ctrl+F");
}

TEST_F(Keys, InTheClassicMannerAreTheClassicOnes) {
  All().Assign(Window().mnuFind, "F3");
  program->options.manner.SetClassic(true);
  All().Load();
  EXPECT_EQ(Window().mnuFind.Shortcut(), "Ctrl+F");
  EXPECT_EQ(Window().mnuPlayOrPause.Shortcut(), "");
}

TEST_F(Keys, TheDialogTellsWhoHasAKey) {
  OpenDialog();
  Select(Window().mnuGoTo);
  EXPECT_FALSE(Dialog().cmdAssign.Enabled());
  Press(u"Ctrl+F");
  EXPECT_EQ(ToUtf8(Dialog().lblConflict.GetText()), "Edit > Find has the key Ctrl+F now and would lose it.");
  Dialog().cmdAssign.Click();
  EXPECT_EQ(Window().mnuGoTo.Shortcut(), "Ctrl+F");
  EXPECT_EQ(Window().mnuFind.Shortcut(), "");
  Dialog().cmdRemove.Click();
  EXPECT_EQ(Window().mnuGoTo.Shortcut(), "");
}

TEST_F(Keys, LettersOfTheCaptioningStayTheirs) {
  program->options.hotkeysOn = 255;
  program->options.startKey = 'A';
  OpenDialog();
  Select(Window().mnuGoTo);
  Press(u"A");
  EXPECT_FALSE(Dialog().cmdAssign.Enabled());
  EXPECT_NE(Dialog().lblConflict.GetText(), u"");
  Press(u"Shift+A");
  EXPECT_TRUE(Dialog().cmdAssign.Enabled());
  EXPECT_EQ(ToUtf8(Dialog().lblConflict.GetText()), "Shift+A is typed in texts, so it works only outside of them.");
}

TEST_F(Keys, AnotherSetIsChosenInTheDialog) {
  OpenDialog();
  Dialog().cboSet.Choose(2);
  EXPECT_EQ(Window().mnuStartHere.Shortcut(), "Ctrl+3");
  Dialog().Close();
}

TEST_F(Keys, ThePaletteFindsACommandByItsWordsAndRunsIt) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  Palette& palette = program->palette;
  Window().mnuPalette.Click();
  ASSERT_TRUE(palette.IsOpen());
  EXPECT_GT(palette.lstCommands.Items().size(), 40u);
  palette.txtWords.SetText(u"caption NEXT film");
  palette.txtWords.NoteEdited();
  ASSERT_EQ(palette.lstCommands.Items().size(), 1u);
  EXPECT_EQ(ToUtf8(palette.lstCommands.Items()[0]), "Film > Next caption: Ctrl+Return");
  palette.cmdOK.Click();
  EXPECT_FALSE(palette.IsOpen());
  EXPECT_EQ(List().Selected(), 2);
}

TEST_F(Keys, ThePaletteSpeaksTheLanguageOfTheInterface) {
  program->messageCatalogue.AddBlock("1160\tPel&ícula\n1168\tUn fotograma atrás\n", 1);
  program->ChangeLanguage(1);
  Window().mnuPalette.Click();
  program->palette.txtWords.SetText(u"fotograma atrás");
  program->palette.txtWords.NoteEdited();
  ASSERT_EQ(program->palette.lstCommands.Items().size(), 1u);
  EXPECT_TRUE(program->palette.lstCommands.Items()[0].starts_with(u"Película"));
}

TEST_F(Keys, ThePaletteHasNothingToRunForOtherWords) {
  Window().mnuPalette.Click();
  program->palette.txtWords.SetText(u"no such words");
  program->palette.txtWords.NoteEdited();
  EXPECT_TRUE(program->palette.lstCommands.Items().empty());
  EXPECT_FALSE(program->palette.cmdOK.Enabled());
}

}  // namespace
}  // namespace cuewright
