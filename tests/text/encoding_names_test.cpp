#include "text/encoding_names.h"

#include <gtest/gtest.h>

#include "text/codec.h"

namespace cuewright {
namespace {

TEST(EncodingByName, KnowsTheNamesThatPeopleGive) {
  const std::pair<TextView, DocumentEncoding> rows[] = {
      {u"UTF-8", {65001, false}},       {u"utf8", {65001, false}},
      {u"UTF-16", {1200, true}},        {u"utf-16le", {1200, true}},
      {u"UTF16BE", {1201, true}},       {u"windows-1252", {1252, false}},
      {u"cp1251", {1251, false}},       {u" Windows-1250 ", {1250, false}},
      {u"latin1", {28591, false}},      {u"ISO-8859-2", {28592, false}},
      {u"iso_8859-15", {28605, false}}, {u"KOI8-R", {20866, false}},
      {u"Shift_JIS", {932, false}},     {u"SJIS", {932, false}},
      {u"EUC-JP", {51932, false}},      {u"GB18030", {54936, false}},
      {u"GBK", {936, false}},           {u"Big5", {950, false}},
      {u"EUC-KR", {51949, false}},      {u"windows-949", {949, false}},
      {u"cp866", {866, false}},         {u"Johab", {1361, false}},
      {u"TIS-620", {874, false}},
  };
  for (const auto& [name, encoding] : rows) {
    const std::optional<DocumentEncoding> found = EncodingByName(name);
    ASSERT_TRUE(found) << ToUtf8(name);
    EXPECT_EQ(found->codePage, encoding.codePage) << ToUtf8(name);
    EXPECT_EQ(found->mark, encoding.mark) << ToUtf8(name);
  }
}

TEST(EncodingByName, KnowsNothingElse) {
  for (const TextView name :
       {u"", u"klingon", u"UTF-7", u"ISO-2022-JP", u"ibm-37", u"a b", u"utf-8,swaplfnl", u"windows-1252\u00E9"}) {
    EXPECT_FALSE(EncodingByName(name)) << ToUtf8(name);
  }
}

TEST(EncodingByName, GivesCodecsThatGiveTextBack) {
  const std::pair<TextView, TextView> rows[] = {
      {u"ISO-8859-2", u"Zażółć gęślą jaźń"},
      {u"KOI8-R", u"Ёж, да?"},
      {u"ISO-8859-15", u"5 € à Š"},
      {u"GB18030", u"你好，\U0001F600 é"},
      {u"Shift_JIS", u"こんにちは"},
      {u"EUC-JP", u"日本語 テスト"},
      {u"EUC-KR", u"안녕하세요"},
      {u"Big5", u"繁體中文"},
      {u"cp866", u"Привет"},
  };
  for (const auto& [name, text] : rows) {
    const auto codec = MakeCodec(EncodingByName(name)->codePage);
    EXPECT_TRUE(codec->Holds(text)) << ToUtf8(name);
    EXPECT_EQ(codec->Decoded(codec->Encoded(text)), text) << ToUtf8(name);
  }
  EXPECT_EQ(MakeCodec(20866)->Encoded(u"\u0416"), "\xF6");
  EXPECT_FALSE(MakeCodec(28591)->Holds(u"€"));
}

}  // namespace
}  // namespace cuewright
