#include <algorithm>

#include "tests/batch/batch_rig.h"

namespace cuewright::test {
namespace {

TEST_F(BatchTest, FormatsListsTheCatalogueInItsOrder) {
  const ProcessResult result = Batch({"formats"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.error, "");
  const std::vector<std::string> lines = LinesOf(result.out);
  ASSERT_GE(lines.size(), 76u);
  EXPECT_EQ(lines[0], "0\tPLAINTEXT\tPlain text\ttxt\tn/a\t0\t0");
  EXPECT_EQ(lines[1], "1\tSUBRIP\tSubRip\tsrt\thh:mm:ss,zzz\t7\t0");
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::vector<std::string> fields = FieldsOf(lines[i]);
    ASSERT_EQ(fields.size(), 7u) << lines[i];
    EXPECT_EQ(fields[0], std::to_string(i));
  }
}

TEST_F(BatchTest, FormatsTellsWhichHeadersTheProgramBuilds) {
  std::vector<std::string> built;
  for (const std::string& line : LinesOf(Batch({"formats"}).out)) {
    if (FieldsOf(line)[6] == "1") built.push_back(FieldsOf(line)[1]);
  }
  EXPECT_THAT(built, testing::UnorderedElementsAre("SUBSTATIONALPHA", "DVDSUBTITLE", "SAMI"));
}

TEST_F(BatchTest, FormatsInJsonIsAnObjectALine) {
  const std::vector<std::string> lines = LinesOf(Batch({"formats", "--json"}).out);
  ASSERT_GE(lines.size(), 76u);
  EXPECT_EQ(lines[1],
            R"({"index":1,"identifier":"SUBRIP","name":"SubRip","extensions":["srt"],"timecode":"hh:mm:ss,zzz",)"
            R"("tags":7,"header":false})");
}

TEST_F(BatchTest, DetectTellsTheFormatOfEachFile) {
  Write("a.srt", kSubRip);
  Write("b.sub", kMicroDvd);
  Write("c.txt", "Only some words.\r\nAnd more of them.\r\n");
  const ProcessResult result = Batch({"detect", "a.srt", "b.sub", "c.txt"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "a.srt\tSUBRIP\nb.sub\tMICRODVD\nc.txt\tPLAINTEXT\n");
  EXPECT_EQ(result.error, "");
}

TEST_F(BatchTest, DetectWritesAHyphenForAFileThatIsNotRecognised) {
  Write("a.srt", kSubRip);
  Write("words.srt", "Only some words.\r\n");
  const ProcessResult result = Batch({"detect", "words.srt", "a.srt"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out, "words.srt\t-\na.srt\tSUBRIP\n");
  EXPECT_EQ(result.error,
            "words.srt: Failed to determine subtitle format, selected file format might not be supported yet.\n");
}

TEST_F(BatchTest, DetectInJsonHoldsTheMessages) {
  Write("words.srt", "Only some words.\r\n");
  const ProcessResult result = Batch({"detect", "--json", "words.srt"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out,
            R"({"file":"words.srt","format":null,"messages":["Failed to determine subtitle format, selected file )"
            R"(format might not be supported yet."]})"
            "\n");
}

TEST_F(BatchTest, AMissingFileFailsAndTheOthersGoOn) {
  Write("a.srt", kSubRip);
  const ProcessResult result = Batch({"detect", "missing.srt", "a.srt"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out, "missing.srt\t-\na.srt\tSUBRIP\n");
  EXPECT_EQ(result.error, "missing.srt: The file missing.srt was not found.\n");
}

TEST_F(BatchTest, AFolderIsNoFile) {
  const ProcessResult result = Batch({"detect", "."});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out, ".\t-\n");
  EXPECT_EQ(result.error.substr(0, 3), ".: ");
}

TEST_F(BatchTest, AnEmptyFileHoldsNoCaption) {
  Write("empty.txt", "");
  const ProcessResult result = Batch({"dump", "empty.txt"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.error,
            "empty.txt: No text found in the selected file, or subtitle format not recognized. Please ensure the file "
            "is valid and if the format is supported.\n");
}

TEST_F(BatchTest, QuietSilencesTheMessagesAndKeepsResultAndStatus) {
  Write("words.srt", "Only some words.\r\n");
  const ProcessResult result = Batch({"detect", "--quiet", "words.srt"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out, "words.srt\t-\n");
  EXPECT_EQ(result.error, "");
}

TEST_F(BatchTest, DumpPrintsACaptionALine) {
  Write("a.srt", kSubRip);
  const ProcessResult result = Batch({"dump", "a.srt"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, kDumped);
  EXPECT_EQ(result.error, "");
}

TEST_F(BatchTest, DumpEscapesBackslashAndTab) {
  Write("a.srt", "1\r\n00:00:12,400 --> 00:00:15,200\r\nC:\\new\tone\r\n\r\n");
  EXPECT_EQ(Batch({"dump", "a.srt"}).out, "1\t12400\t15200\tC:\\\\new\\tone\n");
}

TEST_F(BatchTest, DumpEscapesTheLineEndsOfASeparator) {
  Write("a.srt", kSubRip);
  EXPECT_NE(Batch({"dump", "a.srt", "--separator", "\n"}).out.find("house\\nuntil"), std::string::npos);
  EXPECT_NE(Batch({"dump", "a.srt", "--separator", "\r"}).out.find("house\\runtil"), std::string::npos);
}

TEST_F(BatchTest, DumpInJsonHoldsTheSameCaptions) {
  Write("a.srt", "1\r\n00:00:12,400 --> 00:00:15,200\r\n\"Où\"\\ça\r\n\r\n");
  EXPECT_EQ(Batch({"dump", "--json", "a.srt"}).out,
            "{\"number\":1,\"start\":12400,\"end\":15200,\"text\":\"\\\"Où\\\"\\\\ça\"}\n");
}

TEST_F(BatchTest, SeparatorStandsBetweenTheLinesOfACaption) {
  Write("a.srt", kSubRip);
  EXPECT_NE(Batch({"dump", "a.srt", "--separator", " / "}).out.find("this house / until"), std::string::npos);
  EXPECT_NE(Batch({"dump", "a.srt", "--set", "Cuewright/LBREAK=[br]"}).out.find("house[br]until"), std::string::npos);
}

TEST_F(BatchTest, FpsAnswersTheFrameRateQuestionWithPointOrComma) {
  Write("a.sub", kMicroDvd);
  const auto firstTimes = [&](const std::string& fps) {
    const std::vector<std::string> fields = FieldsOf(LinesOf(Batch({"dump", "a.sub", "--fps", fps}).out).at(0));
    return fields.at(1) + " " + fields.at(2);
  };
  EXPECT_EQ(FieldsOf(LinesOf(Batch({"dump", "a.sub"}).out).at(0)).at(1), "12400");
  EXPECT_EQ(firstTimes("20"), "15500 19000");
  EXPECT_EQ(firstTimes("23.976"), "12930 15849");
  EXPECT_EQ(firstTimes("23,976"), "12930 15849");
  // In the classic manner reading rounds the rate to a whole number first.
  EXPECT_EQ(FieldsOf(LinesOf(Batch({"dump", "a.sub", "--fps", "23.976", "--classic"}).out).at(0)).at(1), "12916");
}

TEST_F(BatchTest, TextChoosesHowBytesAreRead) {
  const std::string latin = "1\r\n00:00:12,400 --> 00:00:15,200\r\nO\xF9\r\n\r\n";
  Write("utf8.srt", "1\r\n00:00:12,400 --> 00:00:15,200\r\nOù\r\n\r\n");
  Write("latin.srt", latin);
  const auto text = [&](const std::string& file, const std::string& how) {
    return FieldsOf(LinesOf(Batch({"dump", file, "--text", how}).out).at(0)).at(3);
  };
  EXPECT_EQ(text("utf8.srt", "auto"), "Où");
  EXPECT_EQ(text("utf8.srt", "classic:65001"), "Où");
  EXPECT_EQ(text("utf8.srt", "classic:1252"), "OÃ¹");
  EXPECT_EQ(text("latin.srt", "classic:1252"), "Où");
  EXPECT_EQ(text("latin.srt", "classic:1251"), "Oщ");
}

TEST_F(BatchTest, EightBitTextIsOfTheLocalesCodePage) {
  Write("a.srt", "1\r\n00:00:12,400 --> 00:00:15,200\r\n\xC4\xE0\r\n\r\n");
  for (const std::string how : {"auto", "classic"}) {
    EXPECT_NE(Batch({"dump", "a.srt", "--text", how}).out.find("Äà"), std::string::npos);
    EXPECT_NE(Batch({"dump", "a.srt", "--text", how}, {}, "ru_RU.UTF-8").out.find("Да"), std::string::npos);
  }
}

TEST_F(BatchTest, WithoutTextTheSettingDecides) {
  Write("utf8.srt", "1\r\n00:00:12,400 --> 00:00:15,200\r\nOù\r\n\r\n");
  const std::string automatic = Batch({"dump", "utf8.srt"}).out;
  EXPECT_NE(automatic.find("Où"), std::string::npos);
  EXPECT_EQ(Batch({"dump", "utf8.srt", "--set", "Cuewright/T_READAS=classic"}).out,
            Batch({"dump", "utf8.srt", "--text", "classic"}).out);
  EXPECT_EQ(Batch({"dump", "utf8.srt", "--set", "Cuewright/T_READAS=classic", "--text", "auto"}).out, automatic);
}

TEST_F(BatchTest, SettingsFileIsReadOnlyOnDemandAndSetWins) {
  Write("a.srt", kSubRip);
  Write("user.ini", "[Brakemoor Works\\Cuewright]\nLBREAK=//\n");
  EXPECT_EQ(Batch({"dump", "a.srt"}).out, kDumped);
  EXPECT_NE(Batch({"dump", "a.srt", "--settings", "user.ini"}).out.find("house//until"), std::string::npos);
  EXPECT_NE(Batch({"dump", "a.srt", "--settings", "user.ini", "--set", "Cuewright/LBREAK=~"}).out.find("house~until"),
            std::string::npos);
}

TEST_F(BatchTest, CatalogueChoosesTheFormatFiles) {
  Write("formats.dat",
        "<FORMATSLIST>\r\nPLAINTEXT\r\nARROWS\r\n</FORMATSLIST>\r\n---ARROWS FORMAT---\r\n{SubRepeat}\r\n"
        "qxmStart=>qxmEnd=>qxmCaption\r\n{/SubRepeat}\r\n---END FORMAT DEFINITION---\r\n");
  Write("formats.ini", "[ARROWS]\r\nname=Arrows\r\nextension=arr\r\ntimecode=ms\r\nsample=00=>00=>\r\nlbreak=|\r\n");
  Write("a.arr", "1000=>2000=>one\r\n3000=>4000=>two\r\n");
  EXPECT_EQ(Batch({"formats", "--classic", "--catalogue", "."}).out,
            "0\tPLAINTEXT\tPLAINTEXT\ttxt\tms\t0\t0\n"
            "1\tARROWS\tArrows\tarr\tms\t0\t0\n");
  EXPECT_EQ(Batch({"detect", "a.arr", "--catalogue", "."}).out, "a.arr\tARROWS\n");
  EXPECT_EQ(Batch({"dump", "a.arr", "--catalogue=."}).out, "1\t1000\t2000\tone\n2\t3000\t4000\ttwo\n");
}

TEST_F(BatchTest, FileNamesThatAreNoUtf8AreTakenAndGivenBackByteForByte) {
  const std::string name = "caf\xE9.srt";
  Write(name, kSubRip);
  const ProcessResult result = Batch({"detect", name});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, name + "\tSUBRIP\n");
  EXPECT_EQ(Batch({"dump", name}).out, kDumped);
  EXPECT_EQ(Batch({"detect", "--json", name}).out,
            "{\"file\":\"caf\\udce9.srt\",\"format\":\"SUBRIP\",\"messages\":[]}\n");
}

TEST_F(BatchTest, AProgressBarShowsOnATerminalForLongWorkOnly) {
  Write("a.srt", kSubRip);
  ProcessOptions terminal;
  terminal.errorIsTerminal = true;
  EXPECT_EQ(Batch({"detect", "a.srt", "a.srt"}, terminal).error, "");

  std::vector<std::string> many = {"detect"};
  many.resize(601, "a.srt");
  const std::string bar = Batch(many, terminal).error;
  EXPECT_NE(bar.find("/600"), std::string::npos);
  EXPECT_TRUE(bar.ends_with("\r\x1b[K")) << "the bar is removed at the end";
  many.push_back("--quiet");
  EXPECT_EQ(Batch(many, terminal).error, "");
  many.pop_back();
  EXPECT_EQ(Batch(many).error, "") << "no terminal, no bar";
}

TEST_F(BatchTest, ThousandsOfFilesAreDetectedInOneRun) {
  std::vector<std::string> call = {"detect"};
  std::string expected;
  for (int i = 0; i < 4000; ++i) {
    const std::string name = "f" + std::to_string(i) + (i % 2 == 0 ? ".srt" : ".sub");
    Write(name, i % 2 == 0 ? kSubRip : kMicroDvd);
    call.push_back(name);
    expected += name + (i % 2 == 0 ? "\tSUBRIP\n" : "\tMICRODVD\n");
  }
  const ProcessResult result = Batch(call);
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, expected);
}

}  // namespace
}  // namespace cuewright::test
