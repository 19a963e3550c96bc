#include "formats/catalogue.h"

#include <gtest/gtest.h>

#include "core/runtime_error.h"
#include "tests/formats/format_rig.h"

namespace cuewright::testing {
namespace {

/// A block with one record, of the text behind its start line.
std::string Block(const std::string& id, const std::string& record) {
  return "---" + id + " FORMAT---\n" + record + "---END FORMAT DEFINITION---\n";
}

const std::string kRecord = "{SubRepeat}\nqxmStart qxmEnd qxmCaption\n{/SubRepeat}\n";

std::string List(const std::string& identifiers) { return "<FORMATSLIST>\n" + identifiers + "</FORMATSLIST>\n"; }

FormatDefinition Loaded(FormatRig& rig, TextView id) {
  EXPECT_TRUE(rig.loader.LoadFormatDefinition(id));
  return rig.loader.Definition();
}

TEST(CatalogueList, StoresALowerCaseLineInUpperCaseButFindsNoLowerCaseBlock) {
  FormatRig rig("", List("PLAINTEXT\nsubrip\n") + Block("subrip", kRecord));
  EXPECT_EQ(rig.catalogue.Identifier(1), u"SUBRIP");
  EXPECT_FALSE(rig.loader.LoadFormatDefinition(u"SUBRIP"));
  EXPECT_FALSE(rig.loader.Definition().definitionFound);
}

TEST(CatalogueList, FindsTheBlockThatStandsInUpperCase) {
  FormatRig rig("", List("PLAINTEXT\nsubrip\n") + Block("SUBRIP", kRecord));
  EXPECT_TRUE(rig.loader.LoadFormatDefinition(u"SUBRIP"));
}

TEST(CatalogueList, TakesAnEmptyLineForAnEmptyIdentifier) {
  FormatRig rig("", List("PLAINTEXT\n\nSUBRIP\n"));
  ASSERT_EQ(rig.catalogue.Count(), 3);
  EXPECT_EQ(rig.catalogue.Identifier(1), u"");
  EXPECT_FALSE(rig.loader.LoadFormatDefinition(u""));
}

TEST(CatalogueList, KeepsALineInFrontOfTheOpeningTag) {
  FormatRig rig("", "EARLY\n<FormatsList>\nLATER\n</formatslist>\nOUT\n");
  ASSERT_EQ(rig.catalogue.Count(), 2);
  EXPECT_EQ(rig.catalogue.Identifier(0), u"EARLY");
  EXPECT_EQ(rig.catalogue.Identifier(1), u"LATER");
}

TEST(CatalogueList, EndsWithTheFileWhenTheClosingTagIsMissing) {
  FormatRig rig("", "<FORMATSLIST>\n  PLAINTEXT  \nA");
  EXPECT_EQ(rig.catalogue.Count(), 2);
  EXPECT_EQ(rig.catalogue.Identifier(0), u"PLAINTEXT");
}

TEST(CatalogueList, DoesNotEndALineAtALoneLf) {
  FormatRig rig;
  FormatCatalogue catalogue;
  catalogue.Load("", "<FORMATSLIST>\rA\nB\r</FORMATSLIST>\r", rig.encodings);
  ASSERT_EQ(catalogue.Count(), 1);
  EXPECT_EQ(catalogue.Identifier(0), u"A\nB");
}

TEST(CatalogueList, OverflowsBehind255Identifiers) {
  std::string lines;
  for (int i = 0; i < 256; ++i) lines += "F" + std::to_string(i) + "\r\n";
  const Encodings encodings;
  FormatCatalogue catalogue;
  try {
    catalogue.Load("", lines, encodings);
    FAIL() << "no overflow";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number, kErrorOverflow);
  }
  EXPECT_EQ(catalogue.Count(), 255);
}

TEST(CatalogueList, MakesTheLaterOfTwoEqualEntriesTheCurrentFormat) {
  FormatRig rig("", List("PLAINTEXT\nTWICE\nOTHER\nTWICE\n") + Block("TWICE", kRecord));
  EXPECT_TRUE(rig.loader.SelectFormat(u"TWICE"));
  EXPECT_EQ(rig.state.CurrentFormatIndex, 3);
}

TEST(CatalogueList, NeverSelectsIndexZero) {
  FormatRig rig("", List("ONLY\nOTHER\n") + Block("ONLY", kRecord));
  rig.state.CurrentFormatIndex = 1;
  EXPECT_TRUE(rig.loader.SelectFormat(u"ONLY"));
  EXPECT_EQ(rig.state.CurrentFormatIndex, 1);
}

TEST(CatalogueBlock, IsTheFirstOfTwoForOneIdentifier) {
  FormatRig rig("", List("P\nA\n") + Block("A", "first\n" + kRecord) + Block("A", "second\n" + kRecord));
  EXPECT_EQ(Loaded(rig, u"A").headerText, u"first");
}

TEST(CatalogueBlock, RunsOverTheStartLineOfAnotherFormat) {
  FormatRig rig(
      "", List("P\nA\nB\n") + "---A FORMAT---\nhead\n---B FORMAT---\n" + kRecord + "---END FORMAT DEFINITION---\n");
  EXPECT_EQ(Loaded(rig, u"A").headerText, u"head\r\n---B FORMAT---");
  EXPECT_EQ(Loaded(rig, u"B").headerText, u"");
}

TEST(CatalogueBlock, EndsWithTheFile) {
  FormatRig rig("", List("P\nA\n") + "---A FORMAT---\n" + kRecord + "foot");
  EXPECT_EQ(Loaded(rig, u"A").footerText, u"foot\r\n");
}

TEST(CatalogueBlock, GivesHeaderRecordAndFooterAsTheMarksCutThem) {
  FormatRig rig("", List("P\nA\n") + "ignored\n  " +
                        Block("A",
                              "one\n  two  \n{SubRepeat}\nqxmStart\nqxmEnd qxmCaption\n\n"
                              "{/SubRepeat}\nfoot\n"));
  const FormatDefinition definition = Loaded(rig, u"A");
  EXPECT_EQ(definition.headerText, u"one\r\n  two  ");
  EXPECT_EQ(definition.recordText, u"qxmStart\r\nqxmEnd qxmCaption\r\n\r");
  EXPECT_EQ(definition.footerText, u"foot\r\n");
}

TEST(CatalogueBlock, KeepsAHeaderOfOneEmptyLine) {
  FormatRig rig("", List("P\nA\n") + Block("A", "\n" + kRecord));
  EXPECT_EQ(Loaded(rig, u"A").headerText, u"\r\n");
}

struct BrokenBlock {
  const char* name;
  const char* text;
};

class InvalidBlock : public ::testing::TestWithParam<BrokenBlock> {};

TEST_P(InvalidBlock, IsToldOnceInARunAndEmptiesTheTexts) {
  FormatRig rig("", List("P\nA\nB\n") + Block("A", GetParam().text) + Block("B", kRecord + "foot\n"));
  EXPECT_TRUE(rig.loader.LoadFormatDefinition(u"B"));
  EXPECT_FALSE(rig.loader.LoadFormatDefinition(u"A"));
  EXPECT_TRUE(rig.loader.Definition().definitionFound);
  EXPECT_EQ(rig.loader.Definition().recordText, u"");
  EXPECT_EQ(rig.loader.Definition().footerText, u"");
  EXPECT_FALSE(rig.loader.LoadFormatDefinition(u"NONE"));
  ASSERT_EQ(rig.messages.shown.size(), 1u);
  EXPECT_EQ(rig.messages.shown[0].text, u"The subtitle format A is incorrectly defined or was not found.");
  EXPECT_EQ(rig.messages.shown[0].icon, BoxIcon::Warning);
}

INSTANTIATE_TEST_SUITE_P(
    Marks, InvalidBlock,
    ::testing::Values(BrokenBlock{"NoOpening", "qxmStart qxmEnd qxmCaption\n{/SubRepeat}\n"},
                      BrokenBlock{"NoClosing", "{SubRepeat}\nqxmStart qxmEnd qxmCaption\n"},
                      BrokenBlock{"NoStart", "{SubRepeat}\nqxmEnd qxmCaption\n{/SubRepeat}\n"},
                      BrokenBlock{"NoEnd", "{SubRepeat}\nqxmStart qxmCaption\n{/SubRepeat}\n"},
                      BrokenBlock{"NoCaption", "{SubRepeat}\nqxmStart qxmEnd\n{/SubRepeat}\n"},
                      BrokenBlock{"LowerCase", "{subrepeat}\nqxmStart qxmEnd qxmCaption\n{/subrepeat}\n"},
                      BrokenBlock{"MarkInLowerCase", "{SubRepeat}\nqxmstart qxmEnd qxmCaption\n{/SubRepeat}\n"},
                      BrokenBlock{"ClosedFirst", "{/SubRepeat}\nqxmStart qxmEnd qxmCaption\n{SubRepeat}\n"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(FormatDefinition, HasDefaultsWithoutASection) {
  FormatRig rig("", List("P\nA\n") + Block("A", kRecord));
  const FormatDefinition definition = Loaded(rig, u"A");
  EXPECT_EQ(definition.timecodeTemplate, u"ms");
  EXPECT_EQ(definition.timecodeMask, u"0");
  EXPECT_EQ(definition.sampleText, u"\t\t\t");
  EXPECT_EQ(definition.lineBreak, u"[enter]");
  EXPECT_EQ(definition.tagFlags, 0);
  EXPECT_EQ(definition.subCountPicture, u"");
  EXPECT_TRUE(definition.captionAfterEnd);
  EXPECT_FALSE(definition.singleLineRecord);
}

TEST(FormatDefinition, TransformsTheSample) {
  FormatRig rig("[A]\nsample=!start?end x\n", List("P\nA\n") + Block("A", kRecord));
  EXPECT_EQ(Loaded(rig, u"A").sampleText, u"\r\nSTART\tEND X");
}

struct TimecodeRow {
  const char* name;
  TextView timecode, mask, compact, hours, fraction;
};

class TimecodeTemplate : public ::testing::TestWithParam<TimecodeRow> {};

TEST_P(TimecodeTemplate, DerivesItsFourTexts) {
  const TimecodeRow& row = GetParam();
  FormatRig rig("[A]\ntimecode=" + ToUtf8(row.timecode) + "\n", List("P\nA\n"));
  rig.loader.LoadTimecode(u"A");
  EXPECT_FALSE(rig.loader.Definition().definitionFound);
  const FormatDefinition& definition = rig.loader.Definition();
  EXPECT_EQ(definition.timecodeTemplate, ToLower(row.timecode));
  EXPECT_EQ(definition.timecodeMask, row.mask);
  EXPECT_EQ(definition.timecodeCompact, row.compact);
  EXPECT_EQ(definition.hourPicture, row.hours);
  EXPECT_EQ(definition.fractionPicture, row.fraction);
}

INSTANTIATE_TEST_SUITE_P(
    Forms, TimecodeTemplate,
    ::testing::Values(TimecodeRow{"Milliseconds", u"hh:mm:ss,zzz", u"00:00:00,000", u"h:m:s,z", u"00", u"000"},
                      TimecodeRow{"UpperCase", u"HH:MM:SS,ZZZ", u"00:00:00,000", u"h:m:s,z", u"00", u"000"},
                      TimecodeRow{"OneHourDigit", u"h:mm:ss.zz", u"0:00:00.00", u"h:m:s.z", u"0", u"00"},
                      TimecodeRow{"Tenths", u"mm:ss.z", u"00:00.0", u"m:s.z", u"0", u"0"},
                      TimecodeRow{"Frames", u"hh:mm:ss:ff", u"00:00:00:00", u"h:m:s:ff", u"00", u"0"},
                      TimecodeRow{"BothFractions", u"hh.zz.zzz", u"00.00.000", u"h.zz.z", u"00", u"000"},
                      TimecodeRow{"PlainMilliseconds", u"ms", u"0", u"", u"", u""},
                      TimecodeRow{"PlainFrames", u"FF", u"0", u"", u"", u""},
                      TimecodeRow{"None", u"n/a", u"n/a", u"n/a", u"0", u"0"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(FormatDefinition, KeepsTheDerivedTextsOfTheFormatBeforeForAPlainCount) {
  FormatRig rig("[A]\ntimecode=h:mm:ss.zz\n[B]\ntimecode=ff\n", List("P\nA\nB\n"));
  rig.loader.LoadTimecode(u"A");
  rig.loader.LoadTimecode(u"B");
  EXPECT_EQ(rig.loader.Definition().timecodeMask, u"0");
  EXPECT_EQ(rig.loader.Definition().timecodeCompact, u"h:m:s.z");
  EXPECT_EQ(rig.loader.Definition().fractionPicture, u"00");
}

TEST(FormatDefinition, KeepsTheTagsOfTheFormatBeforeWhenItHasNone) {
  FormatRig rig("[A]\ntags=7\ntagopen=<b>\ntagclose=</b>\n[B]\ntagopen=x\n",
                List("P\nA\nB\n") + Block("A", kRecord) + Block("B", kRecord));
  Loaded(rig, u"A");
  EXPECT_EQ(Loaded(rig, u"B").tagFlags, 0);
  EXPECT_EQ(rig.loader.Definition().tagOpen, u"<b>");
  EXPECT_EQ(rig.loader.Definition().tagClose, u"</b>");
}

TEST(FormatDefinition, CountsWithPictureZeroWhenTheKeyIsMissing) {
  FormatRig rig("", List("P\nA\n") + Block("A", "{SubRepeat}\nQXMSUBCOUNT qxmStart qxmEnd qxmCaption\n{/SubRepeat}\n"));
  EXPECT_EQ(Loaded(rig, u"A").subCountPicture, u"0");
}

TEST(FormatDefinition, OverflowsWithTagFlagsBeyond8Bits) {
  FormatRig rig("[A]\ntags=256\n", List("P\nA\n") + Block("A", kRecord));
  EXPECT_THROW(rig.loader.LoadFormatDefinition(u"A"), RuntimeError);
}

TEST(FormatDefinition, IsSingleLineOnlyWithoutRealLineBreaks) {
  FormatRig rig("[A]\nlbreak=|\n[B]\nlbreak=[enter]\n[C]\nlbreak=|\n",
                List("P\nA\nB\nC\n") + Block("A", kRecord) + Block("B", kRecord) +
                    Block("C", "{SubRepeat}\nqxmStart qxmEnd\nqxmCaption\n{/SubRepeat}\n"));
  EXPECT_TRUE(Loaded(rig, u"A").singleLineRecord);
  EXPECT_FALSE(Loaded(rig, u"B").singleLineRecord);
  EXPECT_FALSE(Loaded(rig, u"C").singleLineRecord);
}

TEST(FormatDefinition, TakesTheHeaderOfTheCurrentFormatWhenItIsBuiltIn) {
  FormatRig rig("[SAMI]\nheader=1\n", List("P\nSAMI\n") + Block("SAMI", "own\n" + kRecord));
  EXPECT_EQ(Loaded(rig, u"SAMI").headerText, u"");
  rig.state.CurrentFormatIndex = 1;
  EXPECT_TRUE(Loaded(rig, u"SAMI").headerText.starts_with(u"<SAMI>"));
}

TEST(FormatDefinition, TellsTheNameInTheStatusLabelWhenSelected) {
  FormatRig rig("[A]\nname=The A\n", List("P\nA\n") + Block("A", kRecord));
  rig.loader.SelectFormat(u"A");
  EXPECT_EQ(rig.progress.labels, std::vector<Text>{u"Importing The A subtitle file..."});
  EXPECT_EQ(rig.progress.stages[FileStage::FormatChosen], 1);
}

TEST(FormatProfile, ReadsAsPrivateProfilesAreRead) {
  const std::string longValue(300, 'x');
  FormatRig rig("[A]\nplain= v \nDOUBLE=\" quoted \"\nsingle=' q '\nempty=\nlong=" + longValue +
                    "\nplain=second\n;c=1\n[a]\nlate=1\n[B]\nk=v=w\n",
                List("P\n"));
  const auto read = [&](TextView section, TextView key) { return rig.catalogue.ReadIni(section, key, u"none"); };
  EXPECT_EQ(read(u"a", u"PLAIN"), u"v");
  EXPECT_EQ(read(u"A", u"double"), u" quoted ");
  EXPECT_EQ(read(u"A", u"single"), u" q ");
  EXPECT_EQ(read(u"A", u"empty"), u"");
  EXPECT_EQ(read(u"A", u"long").size(), 254u);
  EXPECT_EQ(read(u"A", u"late"), u"none") << "only the first section of a name is looked at";
  EXPECT_EQ(read(u"B", u"k"), u"v=w");
  EXPECT_EQ(read(u"A", u"c"), u"none");
  EXPECT_EQ(read(u"C", u"k"), u"none");
}

TEST(CatalogueFiles, TellsEachMissingFile) {
  FormatRig rig;
  FormatCatalogue catalogue;
  const Text ini = rig.folder / "formats.ini";
  const Text dat = rig.folder / "formats.dat";
  EXPECT_FALSE(LoadFormatCatalogue(catalogue, rig.files, ini, dat, rig.encodings, rig.strings, rig.messages));
  ASSERT_EQ(rig.messages.shown.size(), 2u);
  EXPECT_EQ(rig.messages.shown[0].text,
            u"A required component to run the program was not found. Please reinstall Tessaly Cuewright.\r\n\r\n[" +
                ini + u"]");
  EXPECT_EQ(rig.messages.shown[0].icon, BoxIcon::Error);
  EXPECT_EQ(rig.messages.shown[0].title, u"Warning");
  EXPECT_TRUE(rig.messages.shown[1].text.ends_with(u"[" + dat + u"]"));
}

TEST(CatalogueFiles, WithLfAloneAreTheSame) {
  FormatRig rig;
  const std::string folder = std::string(CUEWRIGHT_SOURCE_DIR) + "/resources/";
  std::string bytes[] = {FileBytes(folder + "formats.ini"), FileBytes(folder + "formats.dat")};
  for (std::string& text : bytes) std::erase(text, '\r');
  FormatCatalogue plain;
  plain.Load(bytes[0], bytes[1], rig.encodings);
  ASSERT_EQ(plain.Count(), rig.catalogue.Count());
  for (int i = 0; i < plain.Count(); ++i) {
    const Text& id = rig.catalogue.Identifier(i);
    EXPECT_EQ(plain.Identifier(i), id);
    EXPECT_EQ(plain.Block(id).record, rig.catalogue.Block(id).record) << ToUtf8(id);
    EXPECT_EQ(plain.Block(id).header, rig.catalogue.Block(id).header) << ToUtf8(id);
    EXPECT_EQ(plain.Block(id).footer, rig.catalogue.Block(id).footer) << ToUtf8(id);
  }
}

TEST(CatalogueFiles, AnErrorInTheListNamesItsFile) {
  FormatRig rig;
  FormatCatalogue catalogue;
  const Text ini = rig.folder.Write("formats.ini", "[P]\r\nname=N\r\n");
  const Text dat = rig.folder.Write("formats.dat", "");
  try {
    FAIL() << LoadFormatCatalogue(catalogue, rig.files, ini, dat, rig.encodings, rig.strings, rig.messages);
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number, kErrorOverflow);
    EXPECT_EQ(error.description, u"Overflow: " + dat);
  }
}

TEST(CatalogueFiles, AreReadWhenBothAreThere) {
  FormatRig rig;
  FormatCatalogue catalogue;
  const Text ini = rig.folder.Write("formats.ini", "[P]\r\nname=N\r\n");
  const Text dat = rig.folder.Write("formats.dat", "<FORMATSLIST>\r\nP\r\n</FORMATSLIST>\r\n");
  EXPECT_TRUE(LoadFormatCatalogue(catalogue, rig.files, ini, dat, rig.encodings, rig.strings, rig.messages));
  EXPECT_EQ(catalogue.DisplayName(u"P"), u"N");
}

}  // namespace
}  // namespace cuewright::testing
