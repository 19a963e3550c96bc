#include "text/iso6937.h"

#include <gtest/gtest.h>

#include "tests/support/printers.h"

namespace cuewright::testing {
namespace {

TEST(Iso6937, GivesEveryLetterBack) {
  const Text letters =
      u"ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÑÒÓÔÕÖØÙÚÛÜÝßàáâãäåæçèéêëìíîïðñòóôõöøùúûüýþÿĀāĂăĄąĆćČčĎďĐđĒēĖėĘęĚěĞğĦħĪīĮįİıĹĺĽľŁł"
      u"ŃńŇňŊŋŐőŒœŔŕŘřŚśŞşŠšŢţŤťŦŧŪūŮůŰűŲųŹźŻżŽž$#§£¥‘’“”«»♪™½¤";
  for (const char16_t letter : letters) {
    std::string bytes;
    EXPECT_TRUE(AppendIso6937(Text(1, letter), bytes)) << static_cast<int>(letter);
    EXPECT_EQ(FromIso6937(bytes), Text(1, letter));
  }
}

TEST(Iso6937, TellsWhatItLacks) {
  std::string bytes;
  EXPECT_FALSE(AppendIso6937(u"a東b", bytes));
  EXPECT_EQ(bytes, "a?b");
}

TEST(Iso6937, BytesThatMeanNothingAreKnownAsSuch) {
  EXPECT_EQ(FromIso6937("a\xD8z"), u"a\uFFFDz");
  EXPECT_EQ(FromIso6937("\xC2"), u"\uFFFD");
  EXPECT_EQ(FromIso6937("\xC2\xC8u"), u"\uFFFDü");
}

}  // namespace
}  // namespace cuewright::testing
