#include "external/word_spelling.h"

#include <gtest/gtest.h>

#include "external/own_word.h"
#include "tests/support/fakes.h"
#include "tests/support/printers.h"

namespace cuewright {
namespace {

/// A word processor that writes down what it is told, and fails where the test wants it to.
struct FakeWord final : WordAutomation {
  void Note(const Text& call) {
    calls.push_back(call);
    if (call == failing) throw RuntimeError{failure, u"it failed"};
  }

  struct Basic final : WordBasic {
    explicit Basic(FakeWord& made) : word(made) {}
    ~Basic() override { word.calls.emplace_back(u"release"); }
    void AppMinimize() override { word.Note(u"AppMinimize"); }
    void FileNewDefault() override { word.Note(u"FileNewDefault"); }
    void EditSelectAll() override { word.Note(u"EditSelectAll"); }
    void EditCut() override { word.Note(u"EditCut"); }
    void Insert(TextView given) override { word.Note(u"Insert " + Text(given)); }
    void StartOfDocument() override { word.Note(u"StartOfDocument"); }
    void ToolsSpelling() override { word.Note(u"ToolsSpelling"); }
    Text Selection() override {
      word.Note(u"Selection");
      return word.text;
    }
    void FileCloseAll(int save) override { word.Note(u"FileCloseAll " + Decimal(save)); }
    void AppClose() override { word.Note(u"AppClose"); }
    FakeWord& word;
  };

  struct Document final : WordDocument {
    explicit Document(FakeWord& made) : word(made) {}
    void SetContent(TextView given) override { word.Note(u"Content=" + Text(given)); }
    Text Content() override {
      word.Note(u"Content");
      return word.text;
    }
    void CheckSpelling() override { word.Note(u"CheckSpelling"); }
    void Close(bool save) override { word.Note(save ? u"Close true" : u"Close false"); }
    void QuitApplication(bool save) override { word.Note(save ? u"Quit true" : u"Quit false"); }
    FakeWord& word;
  };

  struct Application final : WordApplication {
    explicit Application(FakeWord& made) : word(made) {}
    void SetVisible(bool visible) override { word.Note(visible ? u"Visible true" : u"Visible false"); }
    Text Version() override {
      word.Note(u"version");
      return word.version;
    }
    std::unique_ptr<WordDocument> Add() override {
      word.Note(u"Add");
      return std::make_unique<Document>(word);
    }
    std::unique_ptr<WordDocument> Add(int type, bool visible) override {
      word.Note(u"Add , , " + Decimal(type) + (visible ? u", true" : u", false"));
      return std::make_unique<Document>(word);
    }
    int SpellingErrors() override {
      word.Note(u"SpellingErrors");
      return word.errors;
    }
    FakeWord& word;
  };

  std::unique_ptr<WordBasic> CreateWordBasic() override {
    Note(u"Word.Basic");
    return std::make_unique<Basic>(*this);
  }
  std::unique_ptr<WordApplication> CreateWordApplication() override {
    Note(u"Word.Application");
    return std::make_unique<Application>(*this);
  }
  void SetBusyTimeout(int ms) override { Note(u"timeout " + Decimal(ms)); }

  std::vector<Text> calls;
  Text text;
  Text version = u"8.0";
  int errors = 0;
  Text failing;
  int failure = kErrorCannotCreateObject;
};

struct WordRoutes : ::testing::Test {
  WordRoutes() {
    strings.Set(Message::SpellCheck, u"Spell check");
    strings.Set(Message::SpellCheckFailed, u"Spell check failed.");
  }
  FakeWord word;
  LangStrings strings;
  testing::FakeMessages boxes;
  WordSpelling spelling{word, strings, boxes};
};

TEST_F(WordRoutes, TheOlderRouteMakesItsCallsInTheirOrder) {
  word.text = u"checked\r";
  EXPECT_EQ(spelling.MsSpellCheck(u"text"), u"checked");
  EXPECT_EQ(word.calls,
            (std::vector<Text>{u"Word.Basic", u"AppMinimize", u"FileNewDefault", u"EditSelectAll", u"EditCut",
                               u"Insert text", u"StartOfDocument", u"ToolsSpelling", u"EditSelectAll", u"Selection",
                               u"FileCloseAll 2", u"AppClose", u"release"}));
  EXPECT_FALSE(spelling.SpellFailed());
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(WordRoutes, OnlyALastLineEndOfTheSelectionIsCutOff) {
  const std::pair<Text, Text> rows[] = {{u"ab\r\r", u"ab\r"}, {u"ab", u"ab"}, {u"a\r", u"text"},
                                        {u"a", u"text"},      {u"", u"text"}, {u"\r", u"text"}};
  for (const auto& [back, wanted] : rows) {
    word.text = back;
    EXPECT_EQ(spelling.MsSpellCheck(u"text"), wanted) << ToUtf8(back);
  }
}

TEST_F(WordRoutes, AFailureIsToldAndNotTheEndOfTheCalls) {
  word.failing = u"ToolsSpelling";
  word.failure = 102;
  word.text = u"back\r";
  EXPECT_EQ(spelling.MsSpellCheck(u"text"), u"back");
  EXPECT_TRUE(spelling.SpellFailed());
  EXPECT_EQ(word.calls.size(), 13u);
  ASSERT_EQ(boxes.shown.size(), 1u);
  EXPECT_EQ(boxes.shown[0].text, u"Spell check failed.\r\n\r\n(Error# 102 - it failed)");
  EXPECT_EQ(boxes.shown[0].title, u"Spell check");
  EXPECT_EQ(boxes.shown[0].icon, BoxIcon::Error);
}

TEST_F(WordRoutes, WithoutAWordProcessorTheTextStaysAndTheFailureIsTold) {
  word.failing = u"Word.Basic";
  EXPECT_EQ(spelling.MsSpellCheck(u"text"), u"text");
  EXPECT_TRUE(spelling.SpellFailed());
  EXPECT_EQ(word.calls, std::vector<Text>{u"Word.Basic"});
  EXPECT_EQ(boxes.shown[0].text, u"Spell check failed.\r\n\r\n(Error# 429 - it failed)");
}

TEST_F(WordRoutes, OneErrorCountsAsNoFailure) {
  word.failing = u"ToolsSpelling";
  word.failure = 1277;
  spelling.MsSpellCheck(u"text");
  EXPECT_FALSE(spelling.SpellFailed());
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(WordRoutes, AFailureIsForgottenByTheNextCheck) {
  word.failing = u"AppMinimize";
  spelling.MsSpellCheck(u"text");
  word.failing.clear();
  spelling.MsSpellCheck(u"text");
  EXPECT_FALSE(spelling.SpellFailed());
}

TEST_F(WordRoutes, TheNewerRouteMakesItsCallsInTheirOrder) {
  word.text = u"a\rb\r";
  EXPECT_EQ(spelling.CheckSpelling(u"text"), u"a\r\nb");
  EXPECT_EQ(word.calls, (std::vector<Text>{u"timeout 999999", u"Word.Application", u"Visible false", u"version", u"Add",
                                           u"Content=text", u"CheckSpelling", u"SpellingErrors", u"Content",
                                           u"Close false", u"Quit true"}));
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(WordRoutes, ThreeVersionsAreAskedForADocumentInAnotherWay) {
  for (const TextView version : {u"9.0", u"10.0", u"11.0"}) {
    word.version = version;
    word.calls.clear();
    spelling.CheckSpelling(u"text");
    EXPECT_EQ(word.calls[4], u"Add , , 1, true") << ToUtf8(version);
  }
  for (const TextView version : {u"12.0", u"9", u""}) {
    word.version = version;
    word.calls.clear();
    spelling.CheckSpelling(u"text");
    EXPECT_EQ(word.calls[4], u"Add") << ToUtf8(version);
  }
}

TEST_F(WordRoutes, TheNewerRouteLeavesAnEmptyTextAlone) {
  EXPECT_EQ(spelling.CheckSpelling(u""), u"");
  EXPECT_TRUE(word.calls.empty());
}

TEST_F(WordRoutes, WhatIsStillMisspeltIsACancelledCheck) {
  word.errors = 1;
  word.text = u"other\r";
  spelling.CheckSpelling(u"text");
  ASSERT_EQ(boxes.shown.size(), 1u);
  EXPECT_EQ(boxes.shown[0].text, u"Cancelled");
}

TEST_F(WordRoutes, ATextThatComesBackAsItWasIsToldAsComplete) {
  word.text = u"text\r";
  EXPECT_EQ(spelling.CheckSpelling(u"text"), u"text");
  ASSERT_EQ(boxes.shown.size(), 1u);
  EXPECT_EQ(boxes.shown[0].text, u"The spelling check is complete.");
  EXPECT_EQ(boxes.shown[0].title, u"Spelling Complete");
  EXPECT_EQ(boxes.shown[0].icon, BoxIcon::Information);
}

/// A check that puts a word in place of another.
struct FakeChecker final : TextChecker {
  void Prepare() override {
    if (missing) throw RuntimeError{53, u"no dictionary"};
  }
  Text Check(const Text& document) override {
    seen = document;
    return ReplaceAll(document, u"teh", u"the");
  }
  int CountErrors(const Text& document) override { return document.find(u"teh") == Text::npos ? 0 : 1; }
  bool missing = false;
  Text seen;
};

struct OwnWordTest : WordRoutes {
  FakeChecker checker;
  OwnWord own{checker};
  WordSpelling ownSpelling{own, strings, boxes};
};

TEST_F(OwnWordTest, TheOlderRouteWorks) {
  EXPECT_EQ(ownSpelling.MsSpellCheck(u"teh one\r\ntwo\r\n"), u"the one\rtwo\r");
  EXPECT_EQ(checker.seen, u"teh one\rtwo\r");
  EXPECT_FALSE(ownSpelling.SpellFailed());
}

TEST_F(OwnWordTest, TheNewerRouteWorks) {
  EXPECT_EQ(ownSpelling.CheckSpelling(u"teh one\r\ntwo"), u"the one\r\ntwo");
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_EQ(ownSpelling.CheckSpelling(u"fine"), u"fine");
  EXPECT_EQ(boxes.shown.back().title, u"Spelling Complete");
}

TEST_F(OwnWordTest, WithoutADictionaryItCantBeCreated) {
  checker.missing = true;
  EXPECT_EQ(ownSpelling.MsSpellCheck(u"teh"), u"teh");
  EXPECT_TRUE(ownSpelling.SpellFailed());
  EXPECT_EQ(boxes.shown[0].text, u"Spell check failed.\r\n\r\n(Error# 429 - no dictionary)");
  EXPECT_EQ(ownSpelling.CheckSpelling(u"teh"), u"teh");
}

}  // namespace
}  // namespace cuewright
