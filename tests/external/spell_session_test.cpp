#include "external/spell_session.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "external/spell_text.h"
#include "platform/posix_files.h"
#include "tests/support/printers.h"
#include "tests/support/spelling.h"
#include "tests/support/temp_folder.h"

namespace cuewright {
namespace {

struct Session : ::testing::Test {
  /// A session over captions, at its first misspelt word.
  SpellSession& Begin(const std::vector<Text>& captions) {
    return BeginText(ReplaceAll(SpellingText(captions), u"\r\n", u"\r"));
  }
  SpellSession& BeginText(const Text& text) {
    session = std::make_unique<SpellSession>(text, decisions);
    session->Use(lookup);
    session->Next();
    return *session;
  }
  /// The misspelt words from here on, each passed by.
  std::vector<Text> Rest() {
    std::vector<Text> words;
    while (!session->Word().empty()) {
      words.emplace_back(session->Word());
      session->Ignore();
      session->Next();
    }
    return words;
  }

  PosixFiles files;
  testing::TempFolder folder;
  testing::FakeDictionary dictionary{{u"the", u"one", u"two", u"don't", u"l'", u"homme", u"House", u"rock", u"roll"}};
  UserWords userWords{files, folder / "words/en.txt"};
  SpellLookup lookup{dictionary, userWords};
  SpellDecisions decisions;
  std::unique_ptr<SpellSession> session;
};

TEST_F(Session, StopsAtEachMisspeltWordInItsOrder) {
  Begin({u"teh one\r\ntow", u"the two", u"<i>wun don't"});
  EXPECT_EQ(Rest(), (std::vector<Text>{u"teh", u"tow", u"wun"}));
  EXPECT_FALSE(session->Changed());
}

TEST_F(Session, AccentsThatAreCharactersOfTheirOwnAreLookedUpWithTheirLetters) {
  dictionary.words.insert({u"caf\u00E9", u"\u1EC7"});
  Begin({u"cafe\u0301 the", u"<i>CAFE\u0301X"});
  EXPECT_EQ(Rest(), (std::vector<Text>{u"CAFE\u0301X"}));
  dictionary.suggestions[u"caf\u00E8"] = {u"caf\u00E9", u"l'"};
  EXPECT_EQ(lookup.Suggest(u"cafe\u0300"), (std::vector<Text>{u"caf\u00E9", u"l'"}));
}

TEST_F(Session, AnApostropheInFrontMayBelongToTheWord) {
  dictionary.words.insert({u"'tis", u"'em"});
  Begin({u"'tis the one", u"\u2019em two 'one' 'tow", u"tis"});
  EXPECT_EQ(Rest(), (std::vector<Text>{u"tow", u"tis"}));
}

TEST_F(Session, ATextWithoutMistakesHasNoWord) {
  EXPECT_EQ(Begin({u"the one", u""}).Word(), u"");
  EXPECT_FALSE(session->Next());
}

TEST_F(Session, MarksAreNeverLookedUp) {
  dictionary.asked.clear();
  Begin({u"one\r\n<i>two", u"one"});
  for (const Text& word : dictionary.asked) EXPECT_EQ(word.find_first_of(u"%#"), Text::npos) << ToUtf8(word);
}

TEST_F(Session, AWordIsLookedUpOnce) {
  Begin({u"one one", u"one two one", u"teh teh teh"});
  Rest();
  EXPECT_EQ(std::count(dictionary.asked.begin(), dictionary.asked.end(), u"one"), 1);
  EXPECT_EQ(std::count(dictionary.asked.begin(), dictionary.asked.end(), u"teh"), 1);
}

TEST_F(Session, ApostrophesJoinWordsAndMayBeCurved) {
  Begin({u"don\u2019t l\u2019homme rock'n'roll dont'n"});
  EXPECT_EQ(Rest(), (std::vector<Text>{u"dont'n"}));
}

TEST_F(Session, TheWordIsShownInItsCaptionWithoutMarks) {
  Begin({u"one", u"the one\r\n<i>and teh two", u"two"});
  session->Ignore();
  ASSERT_TRUE(session->Next());
  const SpellSession::Shown shown = session->Caption();
  EXPECT_EQ(shown.caption, 2);
  EXPECT_EQ(shown.text, u"the one\r\nand teh two");
  EXPECT_EQ(shown.text.substr(shown.word.start, shown.word.length), u"teh");
}

TEST_F(Session, TheWordIsMarkedInTheRightCaptionAndLine) {
  for (const std::vector<Text>& captions : {std::vector<Text>{u"xx"},
                                            {u"xx one"},
                                            {u"one", u"two xx"},
                                            {u"", u"", u"one\r\n\r\nxx\r\ntwo"},
                                            {u"<i>xx"},
                                            {u"the <i>xx\r\n<i>one"},
                                            {u"one", u"<i>", u"xx"}}) {
    Begin(captions);
    const SpellSession::Shown shown = session->Caption();
    EXPECT_EQ(shown.text.substr(shown.word.start, shown.word.length), u"xx");
    const Text wanted = ReplaceAll(captions[static_cast<std::size_t>(shown.caption - 1)], u"<i>", u"");
    EXPECT_EQ(shown.text, wanted);
  }
}

TEST_F(Session, AReplacementTakesTheWordsPlace) {
  Begin({u"teh one teh"});
  session->Replace(u"the");
  EXPECT_TRUE(session->Next());
  EXPECT_EQ(session->Word(), u"teh");
  session->Replace(u"");
  EXPECT_FALSE(session->Next());
  EXPECT_EQ(session->Document(), u"the one \r%%%\r");
  EXPECT_TRUE(session->Changed());
}

TEST_F(Session, AReplacementIsNotLookedUpAgain) {
  Begin({u"teh one"});
  session->Replace(u"xyzzy plugh");
  EXPECT_FALSE(session->Next());
}

TEST_F(Session, ReplaceAllReplacesWhatIsStillToComeAlsoInLaterTexts) {
  Begin({u"teh one", u"Teh teh tehs"});
  session->ReplaceAllOf(u"the");
  EXPECT_TRUE(session->Next());
  EXPECT_EQ(session->Word(), u"Teh");
  EXPECT_EQ(Rest(), (std::vector<Text>{u"Teh", u"tehs"}));
  EXPECT_EQ(session->Document(), u"the one\r%%%\rTeh the tehs\r%%%\r");
  Begin({u"teh"});
  EXPECT_EQ(session->Word(), u"");
  EXPECT_EQ(session->Document(), u"the\r%%%\r");
}

TEST_F(Session, ReplaceAllWithATextThatHoldsTheWordEnds) {
  Begin({u"teh teh"});
  session->ReplaceAllOf(u"teh teh");
  EXPECT_FALSE(session->Next());
  EXPECT_EQ(session->Document(), u"teh teh teh teh\r%%%\r");
}

TEST_F(Session, IgnoreAllHoldsForLaterTexts) {
  Begin({u"teh one teh tow"});
  session->IgnoreAll();
  EXPECT_TRUE(session->Next());
  EXPECT_EQ(session->Word(), u"tow");
  EXPECT_EQ(Begin({u"teh"}).Word(), u"");
}

TEST_F(Session, AnAddedWordIsKnownAlsoWithACapital) {
  Begin({u"kewl Kewl KEWL kEwl"});
  userWords.Add(u"kewl");
  lookup.Forget();
  session->NoteAdded();
  EXPECT_TRUE(session->Next());
  EXPECT_EQ(session->Word(), u"kEwl");
}

TEST_F(Session, EachStepIsTakenBack) {
  Begin({u"teh tow wun for"});
  const Text before = session->Document();
  session->Replace(u"the"), session->Next();
  session->Ignore(), session->Next();
  session->ReplaceAllOf(u"one"), session->Next();
  session->IgnoreAll();
  EXPECT_FALSE(session->Next());
  for (const TextView word : {u"for", u"wun", u"tow", u"teh"}) {
    ASSERT_TRUE(session->CanUndo());
    EXPECT_EQ(session->Undo(), u"");
    ASSERT_TRUE(session->Next());
    EXPECT_EQ(session->Word(), word);
  }
  EXPECT_FALSE(session->CanUndo());
  EXPECT_EQ(session->Undo(), u"");
  EXPECT_EQ(session->Document(), before);
  EXPECT_FALSE(session->Changed());
  EXPECT_TRUE(decisions.ignored.empty());
  EXPECT_TRUE(decisions.replaced.empty());
}

TEST_F(Session, AnAddedWordThatIsTakenBackIsNamed) {
  Begin({u"teh"});
  session->NoteAdded();
  EXPECT_EQ(session->Undo(), u"teh");
}

TEST_F(Session, NoReplacementMakesOrBreaksAMark) {
  Begin({u"teh", u"one %% teh", u"teh##", u"%teh%"});
  for (const TextView mark : {u"%%%", u"%#%", u"#%#", u"the %%% one", u"a\rb", u"a\nb", u"\r%%%\r", u"teh"}) {
    EXPECT_FALSE(session->MayReplace(mark)) << ToUtf8(Text(mark));
    const Text before = session->Document();
    session->Replace(mark);
    session->ReplaceAllOf(mark);
    EXPECT_EQ(session->Document(), before);
  }
  EXPECT_TRUE(session->MayReplace(u"50%"));
  session->Ignore(), session->Next();
  EXPECT_TRUE(session->MayReplace(u"the"));
  EXPECT_FALSE(session->MayReplace(u"%%%"));
  session->Ignore(), session->Next();
  EXPECT_FALSE(session->MayReplace(u"#%"));
  session->Ignore(), session->Next();
  EXPECT_FALSE(session->MayReplace(u"%")) << "%%% would stand there";
  EXPECT_FALSE(session->MayReplace(u"#")) << "and here %#%";
  EXPECT_TRUE(session->MayReplace(u""));
}

TEST_F(Session, MarksSurviveWhateverTheUserDoes) {
  const std::vector<Text> captions = {u"teh\r\ntow", u"<i>wun%", u"% for", u"%#\r\nfif", u"", u"siks%%"};
  const Text replacements[] = {u"", u"%", u"#", u"%%", u"%#", u"#%", u" ", u"a b", u"\t", u"%%%%", u"'"};
  for (const Text& replacement : replacements) {
    Begin(captions);
    while (!session->Word().empty()) {
      if (session->MayReplace(replacement)) {
        session->ReplaceAllOf(replacement);
      } else {
        session->Ignore();
      }
      session->Next();
    }
    const auto cut = CutSpellingText(session->Document(), captions, u"|");
    for (std::size_t i = 0; i < captions.size(); ++i) {
      if (!cut[i]) continue;
      const Text lines = ReplaceAll(captions[i], u"\r\n", u"|");
      EXPECT_EQ(Split(*cut[i], u"|").size(), Split(lines, u"|").size()) << ToUtf8(replacement) << " in caption " << i;
      EXPECT_EQ(cut[i]->starts_with(u"<i>"), lines.starts_with(u"<i>")) << ToUtf8(replacement);
    }
    EXPECT_EQ(CutSpellingText(session->Document(), captions, u"|").size(), captions.size());
    EXPECT_FALSE(cut[4].has_value()) << ToUtf8(replacement) << ": an empty caption stays empty";
  }
}

TEST_F(Session, AnotherDictionaryDecidesFromThePresentWordOn) {
  Begin({u"teh tow teh"});
  session->Ignore(), session->Next();
  testing::FakeDictionary other({u"tow"});
  SpellLookup otherLookup(other, userWords);
  session->Use(otherLookup);
  EXPECT_TRUE(session->Next());
  EXPECT_EQ(session->Document().substr(0, 7), u"teh tow");
  EXPECT_EQ(session->Word(), u"teh");
  EXPECT_EQ(Rest().size(), 1u);
}

TEST_F(Session, ErrorsAreCountedInTheWholeText) {
  Begin({u"teh one tow", u"teh"});
  EXPECT_EQ(session->Errors(), 3);
  session->IgnoreAll();
  EXPECT_EQ(session->Errors(), 1);
}

TEST_F(Session, SuggestionsAreNeverTheWordItself) {
  dictionary.suggestions[u"teh"] = {u"the", u"teh", u"", u"ten"};
  EXPECT_EQ(lookup.Suggest(u"teh"), (std::vector<Text>{u"the", u"ten"}));
}

TEST_F(Session, SuggestionsHaveTheApostrophesOfTheWord) {
  dictionary.suggestions[u"dnt'"] = {u"don't"};
  EXPECT_EQ(lookup.Suggest(u"dnt'"), std::vector<Text>{u"don't"});
  EXPECT_EQ(lookup.Suggest(u"dnt\u2019"), std::vector<Text>{u"don\u2019t"});
}

struct UserWordsFile : ::testing::Test {
  PosixFiles files;
  testing::TempFolder folder;
  Text path = folder / "words/en.txt";
};

TEST_F(UserWordsFile, WordsStayFromRunToRunInTheOrderOfTheAlphabet) {
  UserWords first(files, path);
  first.Add(u"zebra");
  first.Add(u"éclair");
  first.Add(u"apple");
  first.Add(u"apple");
  EXPECT_EQ(folder.Read("words/en.txt"), "apple\nzebra\néclair\n");
  UserWords second(files, path);
  EXPECT_TRUE(second.Has(u"éclair"));
  second.Remove(u"zebra");
  second.Remove(u"none");
  EXPECT_EQ(folder.Read("words/en.txt"), "apple\néclair\n");
}

TEST_F(UserWordsFile, WhatAnotherProgramAddedIsKept) {
  UserWords words(files, path);
  words.Add(u"one");
  folder.Write("words/en.txt", "one\r\n two \r\n\r\n");
  words.Add(u"three");
  EXPECT_EQ(folder.Read("words/en.txt"), "one\nthree\ntwo\n");
}

TEST_F(UserWordsFile, AWriteThatFailsLeavesTheWordsAsTheyWere) {
  folder.Write("words", "no folder");
  UserWords words(files, path);
  EXPECT_THROW(words.Add(u"one"), RuntimeError);
  EXPECT_FALSE(words.Has(u"one"));
}

TEST_F(UserWordsFile, CapitalsOfAWordInSmallLettersAreKnownAndNotTheOtherWayRound) {
  UserWords words(files, {});
  words.Add(u"kewl");
  words.Add(u"McCoy");
  for (const TextView known : {u"kewl", u"Kewl", u"KEWL", u"McCoy"}) EXPECT_TRUE(words.Has(known));
  for (const TextView unknown : {u"kEwl", u"mccoy", u"KEWl", u"Mccoy"}) EXPECT_FALSE(words.Has(unknown));
}

}  // namespace
}  // namespace cuewright
