#include "ui/spell_view.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>

#include "tests/ui/dialog_fixture.h"

namespace cuewright {
namespace {

struct SpellWindowView : testing::DialogFixture {
  SpellWindowView() {
    dictionaries.dictionaries[u"en_GB"] = {u"the", u"one", u"two"};
    dictionaries.dictionaries[u"de_DE"] = {u"eins"};
    dictionaries.suggestions[u"teh"] = {u"the", u"tea"};
    program->spelling.dialog.Opened.Connect([this] {
      Show(std::make_unique<SpellView>(Dialog(), nullptr));
      look();
      view.reset();
    });
  }
  SpellDialog& Dialog() { return program->spelling.dialog; }
  /// The check of these captions; `look` runs while its window is open.
  void Check(const std::vector<Text>& captions) {
    program->window.mnuNew.Click();
    std::vector<Caption> rows;
    for (const Text& text : captions) rows.push_back({0, 0, text});
    program->list.Replace(1, 1, std::move(rows));
    program->window.mnuSpell.Click();
  }
  QString Marked() {
    const auto selections = Find<QPlainTextEdit>("txtCaption")->extraSelections();
    return selections.isEmpty() ? QString() : selections[0].cursor.selectedText();
  }
  void Press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }

  std::function<void()> look = [] {};
};

TEST_F(SpellWindowView, EveryControlHasAWidgetAndEveryNamedWidgetAControl) {
  look = [&] {
    ExpectBound(Dialog());
    ExpectNamed();
    ExpectChoicesNamed();
  };
  Check({u"teh"});
}

TEST_F(SpellWindowView, TheWordIsMarkedInItsCaption) {
  look = [&] {
    EXPECT_EQ(Find<QPlainTextEdit>("txtCaption")->toPlainText(), "the one\nand teh");
    EXPECT_TRUE(Find<QPlainTextEdit>("txtCaption")->isReadOnly());
    EXPECT_EQ(Marked(), "and");
    Dialog().cmdIgnore.Click();
    EXPECT_EQ(Marked(), "teh");
    Dialog().cmdIgnore.Click();
    EXPECT_EQ(Find<QPlainTextEdit>("txtCaption")->toPlainText(), "xx");
    EXPECT_EQ(Marked(), "xx");
  };
  Check({u"the one|<i>and teh", u"xx"});
}

TEST_F(SpellWindowView, EnterReplacesWhereItCanAndElsePassesOn) {
  look = [&] {
    EXPECT_EQ(QApplication::focusWidget(), Find("txtReplace"));
    EXPECT_EQ(Find<QLineEdit>("txtReplace")->selectedText(), "the");
    Press(Qt::Key_Return);
    EXPECT_EQ(Find<QLabel>("lblWord")->text(), "xyzzy");
    EXPECT_FALSE(Find("cmdReplace")->isEnabled());
    Press(Qt::Key_Return);
    EXPECT_FALSE(Dialog().IsOpen());
  };
  Check({u"teh xyzzy"});
  EXPECT_EQ(program->list.GetCaptionText(1), u"the xyzzy");
}

TEST_F(SpellWindowView, TheKeyboardAloneDoesAll) {
  look = [&] {
    Press(Qt::Key_Down);
    EXPECT_EQ(Find<QLineEdit>("txtReplace")->text(), "tea");
    Press(Qt::Key_Up);
    EXPECT_EQ(Find<QLineEdit>("txtReplace")->text(), "the");
    const QStringList reached = TabRound();
    for (const char* name : {"txtCaption", "lstSuggestions", "cboLanguage", "cmdReplace", "cmdReplaceAll", "cmdIgnore",
                             "cmdIgnoreAll", "cmdAdd", "cmdCancel"}) {
      EXPECT_TRUE(reached.contains(name)) << name;
    }
    // A button shows for a moment that its access key was pressed.
    const auto becomes = [this](const char* word) {
      return QTest::qWaitFor([&] { return Find<QLabel>("lblWord")->text() == word; });
    };
    QTest::keyClick(view.get(), Qt::Key_I, Qt::AltModifier);
    EXPECT_TRUE(becomes("xyzzy"));
    QTest::keyClick(view.get(), Qt::Key_U, Qt::AltModifier);
    EXPECT_TRUE(becomes("teh"));
    Find("txtReplace")->setFocus();
    Find<QLineEdit>("txtReplace")->selectAll();
    QTest::keyClicks(Find("txtReplace"), "two");
    Press(Qt::Key_Return);
    QTest::keyClick(view.get(), Qt::Key_Escape);
    EXPECT_FALSE(Dialog().IsOpen());
  };
  Check({u"teh xyzzy"});
  EXPECT_EQ(program->list.GetCaptionText(1), u"two xyzzy");
}

TEST_F(SpellWindowView, ADoubleClickTakesASuggestion) {
  look = [&] {
    auto* list = Find<QListWidget>("lstSuggestions");
    const QRect second = list->visualItemRect(list->item(1));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, second.center());
    EXPECT_EQ(Find<QLineEdit>("txtReplace")->text(), "tea");
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, second.center());
    EXPECT_FALSE(Dialog().IsOpen());
  };
  Check({u"teh"});
  EXPECT_EQ(program->list.GetCaptionText(1), u"tea");
}

TEST_F(SpellWindowView, NoTextIsCutOffInAnyLanguage) {
  std::size_t language = 0;
  look = [&] {
    ExpectNothingCutOff("language " + std::to_string(language) + ": ");
    Dialog().cmdReplace.Click();
    ExpectNothingCutOff("language " + std::to_string(language) + ", with Close: ");
  };
  for (; language < kLanguageCount; ++language) {
    program->ChangeLanguage(language);
    Check({u"teh xyzzy"});
  }
}

TEST_F(SpellWindowView, AFurtherTextBecomesShorterWhileTheWordIsFarBehind) {
  look = [&] {
    EXPECT_EQ(Marked(), "xyzzy");
    Dialog().cmdIgnore.Click();
    EXPECT_EQ(Marked(), "zz");
  };
  Check({u"the one two the one two the one two xyzzy", u"zz"});
}

}  // namespace
}  // namespace cuewright
