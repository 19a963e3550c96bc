#include "tests/batch/batch_rig.h"

namespace cuewright::test {
namespace {

constexpr const char* kMpl2 = "[124][152]A night|of rain.\n[160][198]The end.\n";
constexpr const char* kScc =
    "Scenarist_SCC V1.0\n\n00:00:01:00\t9420 9420 9470 9470 5261 e96e 942f 942f\n\n00:00:03:00\t942c 942c\n";

std::string EbuFile() {
  std::string file = "850STL25.01100";
  file.resize(1024, ' ');
  std::string block("\0\1\0\xFF\0\0\0\x0C\x0A\0\0\x0F\x05\x14\2\0Rain", 20);
  block.resize(128, '\x8F');
  return file + block;
}

TEST_F(BatchTest, FormatsBeyondTheCatalogueAreDetectedDumpedAndKept) {
  struct Case {
    const char* name;
    std::string bytes;
    const char* format;
    const char* dumped;
  };
  const Case cases[] = {
      {"film.mpl", kMpl2, "MPL2", "1\t12400\t15200\tA night|of rain.\n2\t16000\t19800\tThe end.\n"},
      {"film.stl", EbuFile(), "EBUSTL", "1\t12400\t15200\tRain\n"},
      {"film.scc", kScc, "SCC", "1\t1201\t3003\tRain\n"},
  };
  for (const Case& row : cases) {
    Write(row.name, row.bytes);
    EXPECT_EQ(Batch({"detect", row.name}).out, std::string(row.name) + "\t" + row.format + "\n");
    const ProcessResult dumped = Batch({"dump", row.name});
    EXPECT_EQ(dumped.status, 0);
    EXPECT_EQ(dumped.out, row.dumped);
    EXPECT_EQ(Batch({"convert", row.name, "--out", "kept"}).status, 0);
    EXPECT_EQ(Read("kept"), row.bytes) << row.name;
    EXPECT_EQ(Batch({"detect", "--classic", row.name}).out.find(row.format), std::string::npos);
  }
}

TEST_F(BatchTest, OnlySomeOfThemAreWritten) {
  Write("film.mpl", kMpl2);
  EXPECT_EQ(Batch({"convert", "film.mpl", "--to", "TRANSCRIPTJSON", "--out", "film.json"}).status, 0);
  EXPECT_EQ(Batch({"convert", "film.json", "--to", "MPL2", "--out", "again.mpl"}).status, 0);
  EXPECT_EQ(Batch({"dump", "again.mpl"}).out, Batch({"dump", "film.mpl"}).out);
  const ProcessResult refused = Batch({"convert", "film.mpl", "--to", "SCC", "--out", "film.scc"});
  EXPECT_EQ(refused.status, 2);
  EXPECT_EQ(refused.error, "cuewright-batch: files in the format 'SCC' are read, but not written anew.\n");
  Write("film.scc", kScc);
  const ProcessResult moved = Batch({"retime", "film.scc", "--shift", "100", "--out", "moved.scc"});
  EXPECT_EQ(moved.status, 1);
  EXPECT_FALSE(Exists("moved.scc"));
}

TEST_F(BatchTest, AFileOfWhichLittleIsUnderstoodIsRefused) {
  Write("a.sub", "{10}{50}one\nnot\nof\nthis\nformat\n");
  const ProcessResult result = Batch({"dump", "a.sub"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out, "");
  EXPECT_NE(result.error.find("Most lines of this file were not understood as MicroDVD."), std::string::npos);
  EXPECT_EQ(Batch({"convert", "a.sub", "--out", "b.sub"}).status, 1);
  EXPECT_FALSE(Exists("b.sub"));
}

TEST_F(BatchTest, OfSeveralFormatsThatFitTheBestIsTakenAndSaid) {
  Write("a.txt", "00:00:12:10 00:00:15:05 Good evening.\n");
  const ProcessResult result = Batch({"dump", "a.txt"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "1\t12400\t15200\tGood evening.\n");
  EXPECT_EQ(result.error,
            "a.txt: Several formats fit this file equally well: Adobe Encore, DVD Subtitle System. "
            "Load it as Adobe Encore? Yes.\n");
  EXPECT_EQ(Batch({"detect", "a.txt"}).out, "a.txt\tADOBEENCORE\n");
  EXPECT_EQ(Batch({"dump", "a.txt", "--classic"}).error, "");
}

TEST_F(BatchTest, OfSeveralClassesTheFirstIsReadAndSaid) {
  Write("a.smi",
        "<SAMI><BODY>\n<SYNC Start=1000><P Class=ENCC>Good evening\n<P Class=FRCC>Bonsoir\n"
        "<SYNC Start=2000><P Class=ENCC>&nbsp;\n<P Class=FRCC>&nbsp;\n</BODY></SAMI>\n");
  const ProcessResult result = Batch({"dump", "a.smi"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "1\t1000\t2000\tGood evening\n");
  EXPECT_NE(result.error.find("several classes: ENCC, FRCC."), std::string::npos);
}

}  // namespace
}  // namespace cuewright::test
