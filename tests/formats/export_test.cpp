#include "formats/export.h"

#include <gtest/gtest.h>

#include "tests/formats/format_rig.h"
#include "tests/support/printers.h"

namespace cuewright::testing {
namespace {

/// A catalogue of one format beside plain text.
struct OwnFormat : FormatRig {
  OwnFormat(const std::string& ini, const std::string& block, const std::string& id = "OWN")
      : FormatRig("[" + id + "]\n" + ini, "PLAINTEXT\n" + id + "\n</FORMATSLIST>\n---" + id + " FORMAT---\n" + block +
                                              "---END FORMAT DEFINITION---\n") {}
};

std::string Record(const std::string& lines) { return "{SubRepeat}\n" + lines + "{/SubRepeat}\n"; }

/// What one caption is written as.
std::string Written(const std::string& ini, const std::string& record, const Caption& caption, FrameRate fps = {}) {
  OwnFormat rig(ini, Record(record));
  rig.Fill({caption});
  return rig.Save(u"OWN", fps);
}

TEST(TemplateWriter, FillsEveryPlaceholderInExactCase) {
  EXPECT_EQ(
      Written("subcount=000\n", "qxmSubCount qxmStart-qxmEnd [qxmCaption] qxmStart qxmstart\n", {1500, 2000, u"text"}),
      "001 1500-2000 [text] 1500 qxmstart\r\n");
}

TEST(TemplateWriter, WritesTheTwelfthCaptionAs012) {
  OwnFormat rig("subcount=000\n", Record("qxmSubCount qxmStart qxmEnd qxmCaption\n"));
  rig.Fill(std::vector<Caption>(12, Caption{1, 2, u"x"}));
  EXPECT_TRUE(rig.Save(u"OWN").ends_with("\r\n012 1 2 x\r\n"));
}

TEST(TemplateWriter, CountsUleadFromZero) {
  OwnFormat rig("subcount=0\n", Record("#qxmSubCount qxmStart qxmEnd qxmCaption\n"), "UDVDWORKSHOP20");
  rig.Fill({{1, 2, u"x"}, {3, 4, u"y"}});
  EXPECT_EQ(rig.Save(u"UDVDWORKSHOP20"), "#0 1 2 x\r\n#1 3 4 y\r\n");
}

TEST(TemplateWriter, SkipsBlankCaptionsAndCountsThemAllTheSame) {
  OwnFormat rig("subcount=0\n", Record("qxmSubCount qxmStart qxmEnd qxmCaption\n"));
  rig.Fill({{1, 2, u"x"}, {3, 4, u"  "}, {5, 6, u"z"}});
  EXPECT_EQ(rig.Save(u"OWN"), "1 1 2 x\r\n3 5 6 z\r\n");
}

TEST(TemplateWriter, WritesHeaderAndFooterEvenWithoutCaptions) {
  OwnFormat rig("", "head\n" + Record("qxmStart qxmEnd qxmCaption\n") + "foot\n");
  rig.Fill({{0, 0, u""}});
  EXPECT_EQ(rig.Save(u"OWN"), "head\r\nfoot\r\n\r\n") << "the footer keeps its line end, so an empty line follows";
}

TEST(TemplateWriter, WritesAHeaderOfOneEmptyLine) {
  OwnFormat rig("", "\n" + Record("qxmStart qxmEnd qxmCaption\n"));
  rig.Fill({{1, 2, u"x"}});
  EXPECT_EQ(rig.Save(u"OWN"), "\r\n\r\n1 2 x\r\n");
}

TEST(TemplateWriter, WritesNoHeaderOfBlanks) {
  OwnFormat rig("", "   \n" + Record("qxmStart qxmEnd qxmCaption\n"));
  rig.Fill({{1, 2, u"x"}});
  EXPECT_EQ(rig.Save(u"OWN"), "1 2 x\r\n");
}

TEST(TemplateWriter, KeepsTheDigitsThatAnImportTurnedToZero) {
  OwnFormat rig("timecode=ff\nsample=E 0 00\nlbreak=|\n", Record("E 1 qxmStart qxmEnd qxmCaption\n"));
  EXPECT_EQ(rig.Open("a", "E 1 25 50 text\r\n"), u"OWN");
  EXPECT_EQ(rig.Save(u"OWN", 25), "E 1 25 50 text\r\n");
}

TEST(TemplateWriter, WritesRowsUpToTheLastOneOnly) {
  OwnFormat rig("", Record("qxmStart qxmEnd qxmCaption\n"));
  rig.Fill({{1, 2, u"x"}, {3, 4, u"y"}, {0, 0, u"z"}});
  rig.Choose(u"OWN");
  rig.path = rig.folder / "saved";
  rig.exporter.ExportSubtitle(2);
  EXPECT_EQ(rig.folder.Read("saved"), "1 2 x\r\n3 4 y\r\n");
  rig.exporter.ExportSubtitle(0);
  EXPECT_EQ(rig.folder.Read("saved"), "");
}

TEST(TemplateWriter, WritesFramesByTheRate) {
  EXPECT_EQ(Written("timecode=ff\n", "{qxmStart}{qxmEnd}qxmCaption\n", {1000, 2040, u"x"}, 25), "{25}{51}x\r\n");
  EXPECT_EQ(Written("timecode=hh:mm:ss:ff\n", "qxmStart,qxmEnd,qxmCaption\n", {1000, 2040, u"x"}, 25),
            "00:00:01:00,00:00:02:01,x\r\n");
}

struct BreakRow {
  const char* lineBreak;
  const char* written;
};

TEST(LineBreaks, AreWrittenAsTheFormatHasThem) {
  for (const BreakRow& row :
       {BreakRow{"none", "a b c"}, {"[enter]", "a\r\nb\r\nc"}, {"|", "a|b|c"}, {"<br>", "a<br>b<br>c"}}) {
    EXPECT_EQ(Written("lbreak=" + std::string(row.lineBreak) + "\n", "qxmStart qxmEnd qxmCaption\n", {1, 2, u"a|b|c"}),
              "1 2 " + std::string(row.written) + "\r\n");
  }
}

struct TagRow {
  const char* ini;
  TextView stored;
  const char* written;
};

TEST(Tags, AreMadeOfTheMarkers) {
  for (const TagRow& row :
       {TagRow{"tags=7\ntagopen=<b>\ntagclose=</b>\n", u"<i>a|b", "<i>a|b</i>"},
        {"tags=7\ntagopen=<b>\ntagclose=</b>\n", u"<u><i><b>a", "<u><i><b>a</b></i></u>"},
        {"tags=7\ntagopen={y:b}\n", u"a<b>b", "a{y:b}b"},               // no closing tag
        {"tags=1\ntagopen=[b]\ntagclose=[/b]\n", u"<u>a", "[u]a[/u]"},  // single bits are not looked at
        {"tags=1\ntagopen=[b]\ntagclose=---\n", u"<b>a", "[b]a---"},
        {"tags=7\ntagopen=[b]\ntagclose=[/b]\n", u"<b>a<b>c", "[b]a[b]c[/b]"},
        {"tags=0\ntagopen=[b]\n", u"<b><i>a<u>", "a"},
        {"tags=0\n", u"a < b", "a < b"}}) {
    EXPECT_EQ(Written(std::string(row.ini) + "lbreak=|\n", "qxmStart qxmEnd qxmCaption\n", {1, 2, Text(row.stored)}),
              "1 2 " + std::string(row.written) + "\r\n")
        << ToUtf8(row.stored);
  }
}

TEST(Tags, AreMadeOfMarkersInCapitalsInTheClassicManner) {
  OwnFormat rig("tags=7\ntagopen=[b]\ntagclose=[/b]\nlbreak=|\n", Record("qxmStart qxmEnd qxmCaption\n"));
  rig.options.manner.SetClassic(true);
  rig.Fill({{1, 2, u"<B>a"}});
  EXPECT_EQ(rig.Save(u"OWN"), "1 2 <B>a[/b]\r\n");  // found loosely, replaced exactly
}

TEST(CsveWriter, TurnsSemicolonsIntoCommas) {
  OwnFormat rig("lbreak=|\ntags=0\n", Record("qxmStart;qxmEnd;qxmCaption\n"), "CSVE");
  rig.Fill({{1, 2, u"a;b|<i>c;d"}});
  EXPECT_EQ(rig.Save(u"CSVE"), "1;2;a,b|c,d\r\n");
}

TEST(PlainTextWriter, WritesAllRowsWithSeparatorsAndMarkers) {
  FormatRig rig;
  rig.Fill({{1, 2, u"<b>a|b"}, {0, 0, u""}, {3, 4, u"c"}});
  rig.Choose(u"PLAINTEXT");
  rig.path = rig.folder / "saved";
  rig.exporter.ExportSubtitle(1);
  EXPECT_EQ(rig.folder.Read("saved"), "<b>a|b\r\n\r\nc\r\n");
}

TEST(TmPlayerWriter, FillsTwoRowsPerCaption) {
  FormatRig rig;
  rig.Fill({{1000, 2000, u"<i>one"}, {3000, 4300, u"a|b|c"}, {0, 0, u""}});
  EXPECT_EQ(rig.Save(u"TMPLAYER"),
            "00:00:01,1=one\r\n00:00:01,2=\r\n00:00:02,1=\r\n00:00:02,2=\r\n"
            "00:00:03,1=a\r\n00:00:03,2=b\r\n00:00:03,2=c\r\n00:00:04,1=\r\n00:00:04,2=\r\n"
            "00:00:00,1=\r\n00:00:00,2=\r\n00:00:00,1=\r\n00:00:00,2=\r\n");
}

TEST(TmPlayerWriter, RoundsUpFromAQuarterOfASecondInTheClassicManner) {
  FormatRig rig;
  rig.options.manner.SetClassic(true);
  rig.Fill({{3000, 4300, u"a"}});
  EXPECT_EQ(rig.Save(u"TMPLAYER"), "00:00:03,1=a\r\n00:00:03,2=\r\n00:00:05,1=\r\n00:00:05,2=\r\n");
}

TEST(MicroDvdWriter, TellsARateThatIsNotTheUsualOne) {
  FormatRig rig;
  rig.Fill({{1000, 2000, u"a"}});
  EXPECT_EQ(rig.Save(u"MICRODVD", 23.976), "{1}{1}23.976\r\n{24}{48}a\r\n");
  EXPECT_EQ(rig.Save(u"MICRODVD", 25.0), "{25}{50}a\r\n");
}

TEST(MicroDvdWriter, StylesAllLinesOfACaption) {
  FormatRig rig;
  rig.Fill({{1000, 2000, u"<i>a"}, {3000, 4000, u"<i>a|b"}});
  EXPECT_EQ(rig.Save(u"MICRODVD", 25.0), "{25}{50}{y:i}a\r\n{75}{100}{Y:i}a|b\r\n");
}

TEST(EncoreWriter, WritesLinesBelowEachOtherWithoutMarkersHeaderOrFooter) {
  FormatRig rig;
  rig.Fill({{1000, 2000, u"<i>one|two"}, {0, 0, u""}});
  EXPECT_EQ(rig.Save(u"ADOBEENCORE", 25), "00:00:01:00 00:00:02:00 one\r\ntwo\r\n00:00:00:00 00:00:00:00 \r\n");
}

TEST(KaraokeWriter, PrintsOneHourAndTwoMinutesAs62Minutes) {
  FormatRig rig;
  rig.Fill({{3720000, 3721000, u"x"}});
  EXPECT_TRUE(rig.Save(u"KARAOKELRC").find("[62:00.00]x") != std::string::npos);
}

TEST(ExportErrors, LeaveThePlaceholderOfATimeThatOverflowsAndAreToldAtTheEnd) {
  OwnFormat rig("timecode=hh:mm:ss\nlbreak=|\n", Record("qxmStart qxmEnd qxmCaption\n"));
  rig.Fill({{1000, 256 * 3600000, u"x"}, {3000, 4000, u"y"}});
  rig.modified = true;
  EXPECT_EQ(rig.Save(u"OWN"), "00:00:01 qxmEnd x\r\n00:00:03 00:00:04 y\r\n");
  ASSERT_EQ(rig.messages.shown.size(), 1u);
  EXPECT_EQ(rig.messages.shown[0].text,
            u"An error ocurred while saving the file " + rig.path + u".\r\n\r\nError #6: Overflow");
  EXPECT_FALSE(rig.modified) << "the file was written";
}

TEST(ExportErrors, WriteAnEmptyLineForEachCaptionOfAnInvalidDefinition) {
  OwnFormat rig("", "nothing\n");
  rig.Fill({{1, 2, u"x"}, {3, 4, u"y"}});
  EXPECT_EQ(rig.Save(u"OWN"), "\r\n\r\n");
  ASSERT_FALSE(rig.messages.shown.empty());
  EXPECT_EQ(rig.messages.shown[0].text, u"The subtitle format OWN is incorrectly defined or was not found.");
}

TEST(ExportFrame, TellsTheNameAndRefreshesTheLabels) {
  FormatRig rig;
  rig.Fill({{1, 2, u"x"}});
  rig.modified = true;
  rig.Save(u"SUBRIP");
  EXPECT_EQ(rig.progress.labels, std::vector<Text>{u"Exporting SubRip file..."});
  EXPECT_EQ(rig.progress.stages[FileStage::SaveBegins], 1);
  EXPECT_EQ(rig.progress.stages[FileStage::SaveEnds], 1);
  EXPECT_FALSE(rig.modified);
}

TEST(ExportFrame, UsesTheUsersSeparator) {
  OwnFormat rig("lbreak=//\n", Record("qxmStart qxmEnd qxmCaption\n"));
  rig.options.lineSeparator = u"[br]";
  rig.Fill({{1, 2, u"a[br]b|c[brd[br]"}});
  EXPECT_EQ(rig.Save(u"OWN"), "1 2 a//b|c[brd//\r\n");
}

}  // namespace
}  // namespace cuewright::testing
