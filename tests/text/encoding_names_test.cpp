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

TEST(ListedEncodings, AreAllKnownAndDifferentWithUtf8First) {
  const std::vector<ListedEncoding> all = ListedEncodings();
  ASSERT_GT(all.size(), 50u);
  EXPECT_EQ(all[0].encoding, DocumentEncoding());
  for (std::size_t i = 0; i < all.size(); ++i) {
    EXPECT_LE(all[i == 0 ? 0 : i - 1].region, all[i].region);
    for (std::size_t j = 0; j < i; ++j) EXPECT_FALSE(all[i].encoding == all[j].encoding) << all[i].encoding.codePage;
    const auto codec = MakeCodec(all[i].encoding.codePage);
    EXPECT_EQ(codec->Decoded(codec->Encoded(u"Abc 12 -->")), u"Abc 12 -->") << all[i].encoding.codePage;
    if (all[i].region == EncodingRegion::Unicode || all[i].encoding.codePage == kCodePageJohab) continue;
    // Each is one that the library has, and a name gives it again.
    const auto named = EncodingByName(FromUtf8(ConverterOfCodePage(all[i].encoding.codePage)));
    ASSERT_TRUE(named) << all[i].encoding.codePage;
    EXPECT_EQ(named->codePage, all[i].encoding.codePage);
  }
}

TEST(ListedEncodings, HaveTheLettersOfTheirRegion) {
  const std::pair<EncodingRegion, TextView> rows[] = {
      {EncodingRegion::Cyrillic, u"Жя"}, {EncodingRegion::Greek, u"ΩΣ"},    {EncodingRegion::Hebrew, u"אש"},
      {EncodingRegion::Thai, u"กข"},     {EncodingRegion::Korean, u"안녕"}, {EncodingRegion::Japanese, u"こん"},
      {EncodingRegion::Turkish, u"ğİ"},  {EncodingRegion::Nordic, u"æø"},   {EncodingRegion::CentralEuropean, u"čž"},
  };
  for (const ListedEncoding& listed : ListedEncodings()) {
    for (const auto& [region, letters] : rows) {
      if (listed.region != region) continue;
      EXPECT_TRUE(MakeCodec(listed.encoding.codePage)->Holds(letters)) << listed.encoding.codePage;
    }
  }
}

TEST(DeclaredName, IsTheOneThatFilesBear) {
  const std::pair<int, std::string> rows[] = {{65001, "UTF-8"},       {1200, "UTF-16"},      {1201, "UTF-16"},
                                              {1252, "windows-1252"}, {28592, "ISO-8859-2"}, {932, "Shift_JIS"},
                                              {54936, "GB18030"},     {20866, "KOI8-R"},     {866, "IBM866"}};
  for (const auto& [codePage, name] : rows) {
    EXPECT_TRUE(EqualLoose(FromUtf8(DeclaredName(codePage)), FromUtf8(name))) << DeclaredName(codePage);
    EXPECT_EQ(EncodingByName(FromUtf8(DeclaredName(codePage)))->codePage, codePage == 1201 ? 1200 : codePage);
  }
}

}  // namespace
}  // namespace cuewright
