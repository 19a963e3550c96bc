#include "formats/encoding_rules.h"

#include <gtest/gtest.h>

#include <string>

namespace cuewright {
namespace {

TEST(DeclaredEncoding, IsFoundInTheDeclarationAlone) {
  const std::pair<std::string, std::string> rows[] = {
      {"<?xml version=\"1.0\" encoding=\"utf-8\"?><tt/>", "utf-8"},
      {"<?xml version='1.0'\n encoding = 'ISO-8859-1' standalone='yes'?>", "ISO-8859-1"},
      {"<?xml version=\"1.0\"?><tt encoding=\"x\"/>", ""},
      {"<tt encoding=\"x\"?>", ""},
      {"<?xml-stylesheet encoding=\"x\"?>", ""},
      {"<?xml version=\"1.0\" encoding=\"utf-8", ""},
      {"<?xml version=\"1.0\" encoding=utf-8?>", ""},
      {"<?xml encoding", ""},
      {"", ""},
      {"<?xml" + std::string(1000, ' ') + "encoding=\"utf-8\"?>", ""},
  };
  for (const auto& [text, name] : rows) EXPECT_EQ(DeclaredEncoding(text).In(text), name) << text;
}

TEST(DeclaredCodePage, IsThatOfAnEncodingOfBytes) {
  const auto of = [](const std::string& name) {
    return DeclaredCodePage("<?xml version=\"1.0\" encoding=\"" + name + "\"?>");
  };
  EXPECT_EQ(of("windows-1251"), 1251);
  EXPECT_EQ(of("Shift_JIS"), 932);
  EXPECT_FALSE(of("UTF-8"));
  EXPECT_FALSE(of("utf-16"));
  EXPECT_FALSE(of("klingon"));
  EXPECT_FALSE(DeclaredCodePage("1\r\n00:00:01,000"));
}

TEST(WithEncodingDeclared, ChangesTheNameAloneAndOnlyForAnotherEncoding) {
  EXPECT_EQ(WithEncodingDeclared(u"<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n<tt>", 1252),
            u"<?xml version=\"1.0\" encoding=\"windows-1252\"?>\r\n<tt>");
  EXPECT_EQ(WithEncodingDeclared(u"<?xml encoding='utf8'?>", kCodePageUtf8), u"<?xml encoding='utf8'?>");
  EXPECT_EQ(WithEncodingDeclared(u"<?xml encoding=\"UTF-16\"?>", kCodePageUtf16Be), u"<?xml encoding=\"UTF-16\"?>");
  EXPECT_EQ(WithEncodingDeclared(u"WEBVTT", 1252), u"WEBVTT");
}

}  // namespace
}  // namespace cuewright
