#include "tests/batch/batch_rig.h"

namespace cuewright::test {
namespace {

constexpr std::string_view kHead = "1\r\n00:00:12,400 --> 00:00:15,200\r\n";

class EncodingOption : public BatchTest {
 protected:
  void WriteText(const std::string& text) { Write("a.srt", std::string(kHead) + text + "\r\n\r\n"); }
  ProcessResult Convert(const std::string& encoding) {
    return Batch({"convert", "a.srt", "--out", "b.srt", "--encoding", encoding});
  }
};

TEST_F(EncodingOption, WritesTheTextInIt) {
  WriteText("Où\r\nŠ");
  EXPECT_EQ(Convert("windows-1252").status, 0);
  EXPECT_EQ(Read("b.srt"), std::string(kHead) + "O\xF9\r\n\x8A\r\n\r\n");
  EXPECT_EQ(Convert("UTF-8").status, 0);
  EXPECT_EQ(Read("b.srt"), Read("a.srt"));
  WriteText("Ж");
  EXPECT_EQ(Convert("koi8-r").status, 0);
  EXPECT_EQ(Read("b.srt"), std::string(kHead) + "\xF6\r\n\r\n");
}

TEST_F(EncodingOption, PutsAMarkInFrontOfUtf16) {
  WriteText("é");
  for (const auto& [name, mark, letter] :
       {std::tuple<std::string, std::string, std::string>{"UTF-16", "\xFF\xFE", std::string("\xE9\0", 2)},
        {"UTF-16LE", "\xFF\xFE", std::string("\xE9\0", 2)},
        {"UTF-16BE", "\xFE\xFF", std::string("\0\xE9", 2)}}) {
    EXPECT_EQ(Convert(name).status, 0);
    EXPECT_EQ(Read("b.srt").substr(0, 2), mark) << name;
    EXPECT_NE(Read("b.srt").find(letter), std::string::npos) << name;
    EXPECT_EQ(Batch({"dump", "b.srt"}).out, "1\t12400\t15200\té\n") << name;
  }
}

TEST_F(EncodingOption, TellsLettersThatItLacksAndWritesNothing) {
  WriteText("fine\r\nő and Ж and ő");
  const ProcessResult result = Convert("windows-1252");
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.error.find("a.srt:4: caption 1, line 2: windows-1252 lacks őЖ\n"), std::string::npos)
      << result.error;
  EXPECT_NE(result.error.find("a.srt: Not written"), std::string::npos) << result.error;
  EXPECT_FALSE(Exists("b.srt"));
  for (const std::vector<std::string>& command : {std::vector<std::string>{"retime", "--shift", "5"},
                                                  {"replace", "--find", "fine", "--with", "x"},
                                                  {"convert", "--to", "SAMI"}}) {
    std::vector<std::string> call = command;
    call.insert(call.end(), {"a.srt", "--out", "b.srt", "--encoding", "latin1"});
    const ProcessResult other = Batch(call);
    EXPECT_EQ(other.status, 1);
    EXPECT_NE(other.error.find("caption 1, line 2: latin1 lacks őЖ"), std::string::npos) << other.error;
    EXPECT_FALSE(Exists("b.srt"));
  }
}

TEST_F(EncodingOption, IsReadAsTold) {
  Write("a.srt", std::string(kHead) + "\xC6\r\n\r\n");
  const auto text = [&](const std::string& name) {
    return FieldsOf(LinesOf(Batch({"dump", "a.srt", "--read-as", name}).out).at(0)).at(3);
  };
  EXPECT_EQ(text("windows-1252"), "Æ");
  EXPECT_EQ(text("windows-1251"), "Ж");
  EXPECT_EQ(text("koi8-r"), "ф");
  EXPECT_EQ(Batch({"convert", "a.srt", "--read-as", "windows-1251", "--encoding", "UTF-8", "--out", "b.srt"}).status,
            0);
  EXPECT_EQ(Read("b.srt"), std::string(kHead) + "Ж\r\n\r\n");
  EXPECT_EQ(Batch({"convert", "a.srt", "--read-as", "windows-1251", "--out", "b.srt"}).status, 0);
  EXPECT_EQ(Read("b.srt"), Read("a.srt"));
}

TEST_F(EncodingOption, OfAnUnknownNameIsWrongUsage) {
  WriteText("x");
  const ProcessResult result = Convert("klingon");
  EXPECT_EQ(result.status, 2);
  EXPECT_NE(result.error.find("there is no encoding 'klingon'"), std::string::npos) << result.error;
  EXPECT_FALSE(Exists("b.srt"));
  EXPECT_EQ(Batch({"dump", "a.srt", "--read-as", "klingon"}).status, 2);
  EXPECT_EQ(Batch({"convert", "a.srt", "--out", "b.srt", "--encoding", "UTF-8", "--text", "classic"}).status, 2);
}

TEST_F(EncodingOption, IsUtf8ByTheRulesOfAFormatUnlessAnotherIsAskedFor) {
  Write("a.srt", std::string(kHead) + "caf\xE9\r\n\r\n");
  for (const char* format : {"WEBVTT", "YOUTUBESBV", "TTML"}) {
    EXPECT_EQ(Batch({"convert", "a.srt", "--to", format, "--out", "b"}).status, 0);
    EXPECT_NE(Read("b").find("caf\xC3\xA9"), std::string::npos) << format;
    EXPECT_EQ(Batch({"convert", "a.srt", "--to", format, "--out", "b", "--encoding", "windows-1252"}).status, 0);
    EXPECT_NE(Read("b").find("caf\xE9"), std::string::npos) << format;
    EXPECT_EQ(Batch({"convert", "b", "--out", "c", "--read-as", "windows-1252"}).status, 0);
    EXPECT_EQ(Read("c"), Read("b")) << format;
  }
  EXPECT_EQ(Batch({"convert", "a.srt", "--to", "SAMI", "--out", "b"}).status, 0);
  EXPECT_NE(Read("b").find("caf\xE9"), std::string::npos);
}

TEST_F(EncodingOption, IsDeclaredByXmlAndReadFromThere) {
  WriteText("Ж");
  EXPECT_EQ(Batch({"convert", "a.srt", "--to", "TTML", "--out", "b.ttml", "--encoding", "windows-1251"}).status, 0);
  EXPECT_TRUE(Read("b.ttml").starts_with("<?xml version=\"1.0\" encoding=\"windows-1251\"?>"));
  EXPECT_EQ(Batch({"dump", "b.ttml"}).out, "1\t12400\t15200\tЖ\n");
  EXPECT_EQ(Batch({"convert", "b.ttml", "--out", "same.ttml"}).status, 0);
  EXPECT_EQ(Read("same.ttml"), Read("b.ttml"));
  EXPECT_EQ(Batch({"convert", "b.ttml", "--out", "c.ttml", "--encoding", "UTF-16"}).status, 0);
  EXPECT_NE(Read("c.ttml").find(std::string("U\0T\0F\0-\0001\0006\0", 12)), std::string::npos);
  EXPECT_EQ(Batch({"dump", "c.ttml"}).out, "1\t12400\t15200\tЖ\n");
  EXPECT_EQ(Batch({"convert", "c.ttml", "--out", "d.ttml", "--encoding", "windows-1251"}).status, 0);
  EXPECT_EQ(Read("d.ttml"), Read("b.ttml"));
}

}  // namespace
}  // namespace cuewright::test
