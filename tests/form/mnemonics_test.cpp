#include "form/mnemonics.h"

#include <gtest/gtest.h>

#include "tests/support/printers.h"

namespace cuewright {
namespace {

struct MnemonicsCase {
  std::vector<Text> captions;
  std::vector<Text> wanted;
};

TEST(Mnemonics, AreGivenToWhatHasNone) {
  const MnemonicsCase cases[] = {
      {{u"Sound", u"Save as...", u"Save"}, {u"S&ound", u"Save &as...", u"&Save"}},
      // Who has another letter gives way to one that has none.
      {{u"ab", u"aa"}, {u"a&b", u"&aa"}},
      {{u"abc", u"aab", u"aaa"}, {u"ab&c", u"aa&b", u"&aaa"}},
      // A mark of the text's own goes first, also when it stands further down.
      {{u"Find", u"&Format"}, {u"F&ind", u"&Format"}},
      {{u"aa", u"aa", u"aa"}, {u"&aa", u"aa(&B)", u"aa(&C)"}},
      {{u"\u3059\u3079\u3066...", u"UTF-8"}, {u"\u3059\u3079\u3066(&A)...", u"&UTF-8"}},
      {{u"\u041E\u0442\u043A\u0440\u044B\u0442\u044C", u"\u043E\u0434\u043D\u043E"},
       {u"\u041E&\u0442\u043A\u0440\u044B\u0442\u044C", u"&\u043E\u0434\u043D\u043E"}},
      // A letter of the caption's own goes before one that is appended.
      {{u"a && b.srt", u"", u"&&"}, {u"&a && b.srt", u"", u"&&(&B)"}},
  };
  for (const MnemonicsCase& c : cases) EXPECT_EQ(WithMnemonics(c.captions), c.wanted);
}

TEST(Mnemonics, AreNoneWhereLettersAndDigitsHaveRunOut) {
  const std::vector<Text> given = WithMnemonics(std::vector<Text>(40, u"\u3042"));
  EXPECT_EQ(given[35], u"\u3042(&9)");
  EXPECT_EQ(given[36], u"\u3042");
}

}  // namespace
}  // namespace cuewright
