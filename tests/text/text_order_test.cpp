#include <gtest/gtest.h>

#include "text/text.h"

namespace cuewright {
namespace {

TEST(PathsInTexts, KeepTheirOrderWithinRightToLeftLetters) {
  EXPECT_EQ(Fill(u"پروندهٔ %1 پیدا نشد.", u"/home/a.srt"), u"پروندهٔ \u2066/home/a.srt\u2069 پیدا نشد.");
  EXPECT_EQ(InItsOrder(u"ملف الفيديو: ", u"/home/a.mkv"), u"\u2066/home/a.mkv\u2069");
}

TEST(NegativeNumbersInTexts, KeepTheirMinusBeforeThem) {
  EXPECT_EQ(InItsOrder(u"دقائق", u"-5"), u"\u2066-5\u2069");
  EXPECT_EQ(InItsOrder(u"دقائق", u"5"), u"5");
  EXPECT_EQ(InItsOrder(u"دقائق", u"-"), u"-");
  EXPECT_EQ(InItsOrder(u"minutes", u"-5"), u"-5");
  EXPECT_EQ(InItsOrderFromRight(u"-5"), u"\u2066-5\u2069");
}

TEST(PathsInTexts, StandAsTheyAreWithinOtherLetters) {
  EXPECT_EQ(Fill(u"The file %1 was not found.", u"/home/a.srt"), u"The file /home/a.srt was not found.");
  EXPECT_EQ(InItsOrder(u"動画: ", u"/home/a.mkv"), u"/home/a.mkv");
}

TEST(PathsInTexts, AreOnlyWhatBeginsAtTheRoot) {
  EXPECT_EQ(Fill(u"مجموع سطرها: %1", u"12"), u"مجموع سطرها: 12");
  EXPECT_EQ(Fill(u"قالب %1", u"SubRip"), u"قالب SubRip");
  EXPECT_EQ(Fill(u"قالب %1", u""), u"قالب ");
}

}  // namespace
}  // namespace cuewright
