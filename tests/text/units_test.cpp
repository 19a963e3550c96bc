#include "text/units.h"

#include <gtest/gtest.h>

#include <cstddef>

#include "text/byte_numbers.h"
#include "text/digits.h"
#include "text/text.h"

namespace cuewright {
namespace {

TEST(Units, BytesAreNumbersFromZeroTo255) {
  EXPECT_EQ(ByteOf('\x7F'), 127);
  EXPECT_EQ(ByteOf('\x80'), 128);
  EXPECT_EQ(ByteOf('\xFF'), 255);
}

TEST(Units, OnlyTheLowestBitsOfANumberAreTaken) {
  EXPECT_EQ(LowByte(0x1F4), '\xF4');
  EXPECT_EQ(LowByte(-1), '\xFF');
  EXPECT_EQ(LowUnit(0x12345), char16_t{0x2345});
}

TEST(Units, PairsStandForTheCharactersBeyondTheFirst64K) {
  for (const char32_t character : {U'\U00010000', U'\U0001F600', U'\U0010FFFF'}) {
    const char16_t lead = LeadOf(character);
    const char16_t trail = TrailOf(character);
    EXPECT_TRUE(IsLead(lead) && !IsTrail(lead));
    EXPECT_TRUE(IsTrail(trail) && !IsLead(trail));
    EXPECT_EQ(CharacterOfPair(lead, trail), character);
  }
  EXPECT_EQ(FromUtf8("\xF0\x9F\x98\x80"), (Text{LeadOf(U'\U0001F600'), TrailOf(U'\U0001F600')}));
  EXPECT_FALSE(IsLead(u'\uD7FF') || IsTrail(u'\uE000'));
}

TEST(Units, OnlyLettersOfAsciiChangeTheirCase) {
  EXPECT_EQ(LowerAscii('A'), 'a');
  EXPECT_EQ(LowerAscii(u'Z'), u'z');
  EXPECT_EQ(UpperAscii(u'z'), u'Z');
  for (const char16_t other : {u'@', u'[', u'`', u'{', u'0', u'\u00C4', u'\u00E4'}) {
    EXPECT_EQ(LowerAscii(other), other);
    EXPECT_EQ(UpperAscii(other), other);
  }
}

TEST(Digits, HaveTheValueThatTheyWriteInEitherCase) {
  int value = 0;
  for (const char16_t digit : TextView(u"0123456789abcdef")) EXPECT_EQ(HexDigit(digit), value++);
  EXPECT_EQ(HexDigit(u'A'), 10);
  EXPECT_EQ(HexDigit(u'F'), 15);
  for (const char16_t other : {u'/', u':', u'g', u'G', u'@', u'`', u'\u0661'}) EXPECT_EQ(HexDigit(other), -1);
  EXPECT_EQ(DigitOf<char>(7), '7');
  EXPECT_EQ(DigitOf<char16_t>(0), u'0');
}

TEST(ByteNumbers, HaveTheirLowestByteFirst) {
  std::string bytes = "x";
  PutBytes(bytes, 0x1234567890ABCDEFU, 3);
  EXPECT_EQ(bytes, "x\xEF\xCD\xAB");
  EXPECT_EQ(NumberOf(std::string_view(bytes).substr(1)), 0xABCDEFU);
  EXPECT_EQ(NumberOf(""), 0U);
  bytes.clear();
  PutBytes(bytes, 0xFEDCBA9876543210U, 8);
  EXPECT_EQ(NumberOf(bytes), 0xFEDCBA9876543210U);
}

TEST(Decimal, WritesWholeNumbersOfAnyWidth) {
  EXPECT_EQ(Decimal(0), u"0");
  EXPECT_EQ(Decimal(-42LL), u"-42");
  EXPECT_EQ(Decimal(std::size_t{18446744073709551615U}), u"18446744073709551615");
}

}  // namespace
}  // namespace cuewright
