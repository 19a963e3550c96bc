#include "text/letter_case.h"

#include <gtest/gtest.h>

#include "tests/support/printers.h"

namespace cuewright {
namespace {

TEST(LetterCase, WritesSentencesWithOneCapitalEach) {
  struct Case {
    Text given, wanted;
  };
  const Case cases[] = {
      {u"WHO IS THERE? NOBODY.", u"Who is there? Nobody."},
      {u"ONE SENTENCE\nON TWO LINES", u"One sentence\non two lines"},
      {u"- WHO?\n- ME", u"- Who?\n- Me"},
      {u"WELL\n\u2013 YES", u"Well\n\u2013 Yes"},
      {u"... AND \u00c9T\u00c9", u"... And \u00e9t\u00e9"},
      {u"\u041f\u0420\u0418\u0412\u0415\u0422", u"\u041f\u0440\u0438\u0432\u0435\u0442"},
      {u"", u""},
  };
  for (const Case& one : cases) EXPECT_EQ(InCase(one.given, LetterCase::Sentence), one.wanted);
}

TEST(LetterCase, KeepsTheLength) {
  const Text text = u"Stra\u00dfe, \u0130stanbul \U0001d510 e\u0301";
  for (const LetterCase wanted : {LetterCase::Upper, LetterCase::Lower, LetterCase::Sentence}) {
    EXPECT_EQ(InCase(text, wanted).size(), text.size());
  }
  EXPECT_EQ(InCase(u"Abc d", LetterCase::Upper), u"ABC D");
  EXPECT_EQ(InCase(u"Abc D", LetterCase::Lower), u"abc d");
}

}  // namespace
}  // namespace cuewright
