#include "formats/import.h"

#include <tuple>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "core/caption_time.h"
#include "tests/formats/format_rig.h"
#include "tests/support/printers.h"

namespace cuewright::testing {
namespace {

using Rows = std::vector<Caption>;

std::string Clock(int ms) { return ToUtf8(MsToTimeText(ms)); }

std::string SubRipFile(int count) {
  std::string file;
  for (int i = 1; i <= count; ++i) {
    file += std::to_string(i) + "\r\n" + Clock(i * 1000) + " --> " + Clock(i * 1000 + 500) + "\r\nline " +
            std::to_string(i) + "\r\n\r\n";
  }
  return file;
}

/// A catalogue of one format of the test's own beside plain text.
struct OneFormat : FormatRig {
  OneFormat(const std::string& ini, const std::string& record)
      : FormatRig("[PLAINTEXT]\ntimecode=n/a\n[OWN]\n" + ini,
                  "<FORMATSLIST>\nPLAINTEXT\nOWN\n</FORMATSLIST>\n---PLAINTEXT FORMAT---\n{SubRepeat}\nqxmStart qxmEnd "
                  "qxmCaption\n{/SubRepeat}\n---END FORMAT DEFINITION---\n---OWN FORMAT---\n{SubRepeat}\n" +
                      record + "{/SubRepeat}\n---END FORMAT DEFINITION---\n") {}
};

TEST(ImportLimit, StopsAFileOf33000CaptionsAt32100WithTheWarning) {
  FormatRig rig;
  EXPECT_EQ(rig.Open("a.srt", SubRipFile(33000)), u"SUBRIP");
  EXPECT_EQ(rig.captions.Rows() - 1, 32100);
  ASSERT_EQ(rig.messages.shown.size(), 1u);
  EXPECT_EQ(rig.messages.shown[0].text,
            u"File loading has been suspended because it reached the limit of 32000 captions.");
  EXPECT_EQ(rig.messages.shown[0].icon, BoxIcon::Error);
  EXPECT_EQ(rig.messages.shown[0].title, u"Warning");
}

TEST(ImportLimit, LeavesAFileOf32000CaptionsAlone) {
  FormatRig rig;
  rig.Open("a.srt", SubRipFile(32000));
  EXPECT_EQ(rig.captions.Rows() - 1, 32000);
  EXPECT_TRUE(rig.messages.shown.empty());
}

TEST(ImportLimit, LetsTheCaptionInWorkBeFlushed) {
  FormatRig rig;
  rig.options.manner.SetClassic(true);
  std::string file;
  for (int i = 1; i <= 33000; ++i) file += "{" + std::to_string(i * 10) + "}{" + std::to_string(i * 10 + 5) + "}x\r\n";
  EXPECT_EQ(rig.Open("a.sub", file), u"MICRODVD");
  EXPECT_EQ(rig.captions.Rows() - 1, 32101);
}

TEST(ImportLimit, HoldsWhateverTheLineParser) {
  FormatRig rig;
  std::string file;
  for (int i = 0; i < 40000; ++i) file += "text\r\n";
  EXPECT_EQ(rig.Open("a.txt", file), u"PLAINTEXT");
  EXPECT_EQ(rig.captions.Rows() - 1, 32100);
}

TEST(ImportCancel, KeepsWhatWasReadWhenTheUserStopsTheLoad) {
  FormatRig rig;
  rig.progress.onPause = [&, yields = 0]() mutable { rig.cancelled = ++yields > 20; };
  rig.Open("a.srt", SubRipFile(5000));
  EXPECT_TRUE(rig.cancelled);
  EXPECT_GT(rig.captions.Rows(), 2);
  EXPECT_LT(rig.captions.Rows(), 5000);
  EXPECT_EQ(rig.progress.stages[FileStage::LoadEnds], 1);
}

TEST(ImportEvents, AreHandledAtEveryHundredthCaption) {
  FormatRig rig;
  rig.Open("a.srt", SubRipFile(1000));
  // One at the begin, four lines until the first caption is stored, then four at each hundred.
  EXPECT_GE(rig.progress.stages[FileStage::Pauses], 10);
  EXPECT_LE(rig.progress.stages[FileStage::Pauses], 60);
}

TEST(ImportFrame, DisablesTheMenusTellsTheNameAndEnablesThemAgain) {
  FormatRig rig;
  rig.Open("a.srt", SubRipFile(2));
  EXPECT_EQ(rig.progress.stages[FileStage::LoadBegins], 1);
  EXPECT_EQ(rig.progress.stages[FileStage::LoadEnds], 1);
  EXPECT_EQ(rig.progress.labels, std::vector<Text>{u"Importing SubRip subtitle file..."});
  EXPECT_EQ(rig.state.SettingsFormatIndex, rig.state.CurrentFormatIndex);
}

TEST(ImportFrame, IsOneSpliceOfTheList) {
  FormatRig rig;
  rig.Fill({{1, 2, u"old"}, {3, 4, u"older"}});
  std::vector<std::pair<Row, Row>> splices;
  rig.captions.Spliced.Connect([&](const Splice& splice) { splices.emplace_back(splice.removed, splice.added); });
  rig.Open("a.srt", SubRipFile(3));
  EXPECT_EQ(splices, (std::vector<std::pair<Row, Row>>{{2, 1}, {1, 3}}));
}

TEST(ImportNothing, IsToldWithMessages46And47) {
  FormatRig rig;
  rig.Open("a.txt", "  \r\n \r\n");
  ASSERT_EQ(rig.messages.shown.size(), 1u);
  EXPECT_EQ(rig.messages.shown[0].text,
            u"No text found in the selected file, or subtitle format not recognized.\r\n\r\n"
            u"Please ensure the file is valid and if the format is supported.");
  EXPECT_EQ(rig.messages.shown[0].icon, BoxIcon::Error);
  EXPECT_EQ(rig.progress.stages[FileStage::LoadEnds], 1);
}

TEST(ImportNothing, LeavesABlankDocumentBehindAnUnknownFile) {
  FormatRig rig;
  rig.Fill({{1, 2, u"old"}});
  rig.Open("a.xyz", "words\r\n");
  ASSERT_EQ(rig.messages.shown.size(), 1u);
  EXPECT_EQ(rig.messages.shown[0].text,
            u"Failed to determine subtitle format, selected file format might not be supported yet.");
  EXPECT_EQ(rig.messages.shown[0].icon, BoxIcon::Error);
  EXPECT_EQ(rig.Rows(), (Rows{{1, 2, u"old"}})) << "nothing is loaded";
}

TEST(PlainTextFallback, IsNotForANameThatEndsInUpperCaseTxt) {
  FormatRig rig;
  rig.Open("a.TXT", "words\r\n");
  ASSERT_EQ(rig.messages.shown.size(), 1u);
  EXPECT_TRUE(rig.messages.shown[0].text.starts_with(u"Failed to determine"));
}

TEST(PlainTextFallback, LosesAppend) {
  FormatRig rig;
  rig.Fill({{1, 2, u"old"}});
  rig.importer.DetectFormat(rig.folder.Write("a.txt", "new\r\n"), Loading::Append);
  EXPECT_EQ(rig.Rows(), (Rows{{0, 0, u"new"}}));
}

TEST(PlainTextFallback, WhatTakesADocumentsPlaceIsNotSavedIntoItsFile) {
  FormatRig rig;
  rig.Open("a.srt", "1\n00:00:01,000 --> 00:00:02,000\nold\n\nnote\n");
  rig.importer.DetectFormat(rig.folder.Write("a.txt", "new\nand more\n"), Loading::Append);
  EXPECT_EQ(rig.state.Source, nullptr);
  for (Row row = 1; row < rig.captions.Rows(); ++row) {
    rig.captions.SetCaptionStart(row, row.Number() * 1000, true);
    rig.captions.SetCaptionEnd(row, row.Number() * 1000 + 500);
  }
  EXPECT_EQ(rig.Save(u"SUBRIP"),
            CrLf("1\n00:00:01,000 --> 00:00:01,500\nnew\n\n2\n00:00:02,000 --> 00:00:02,500\nand more\n\n"));
}

TEST(PlainTextFallback, WorksWithoutTheTagsAndTheRateOfAFormatTriedBefore) {
  FormatRig rig;
  rig.Open("a.sub", "{1}{2}x\r\n");
  rig.messages.asked.clear();
  rig.Open("b.txt", "<i>slanted</i>\r\n");
  EXPECT_TRUE(rig.messages.asked.empty());
  EXPECT_EQ(rig.Rows(), (Rows{{0, 0, u"<i>slanted</i>"}}));
}

TEST(PlainTextFallback, SkipsEmptyLinesAndCutsBlanks) {
  FormatRig rig;
  rig.Open("a.txt", "\r\n  one  \r\n\r\n\ttwo\r\n");
  EXPECT_EQ(rig.Rows(), (Rows{{0, 0, u"one"}, {0, 0, u"\ttwo"}}));
}

TEST(FrameRate, IsAskedForWithTheFormatsName) {
  FormatRig rig;
  rig.Open("a.sub", "{25}{50}x\r\n");
  ASSERT_EQ(rig.messages.asked.size(), 1u);
  EXPECT_EQ(rig.messages.asked[0].prompt,
            u"Type the media FPS amount for importing from MicroDVD format. Use the default value if unknown.");
  EXPECT_EQ(rig.messages.asked[0].title, u"Source video FPS");
  EXPECT_EQ(rig.messages.asked[0].initial, u"25");
  EXPECT_EQ(rig.state.CurrentFps, 25.0);
}

TEST(FrameRate, CancelsTheImportWithAnEmptyAnswer) {
  FormatRig rig;
  rig.Open("a.sub", "{25}{50}x\r\n", u"");
  EXPECT_TRUE(rig.cancelled);
  EXPECT_EQ(rig.captions.Rows(), 2);
  EXPECT_EQ(rig.captions.At(1), Caption{});
  EXPECT_EQ(rig.progress.stages[FileStage::LoadEnds], 1);
  EXPECT_TRUE(rig.messages.shown.empty());
}

struct FpsRow {
  const char* answer;
  double fps;  // 0: refused
};

TEST(FrameRateQuestion, AcceptsNumbersFrom1To240) {
  for (const FpsRow& row : {FpsRow{"25", 25},
                            {"23,976", 23.976},
                            {"29.97", 29.97},
                            {"59.94", 59.94},
                            {"1", 1},
                            {"240", 240},
                            {"25,000000", 25},
                            {"0,5", 0},
                            {"240.5", 0},
                            {"abc", 0},
                            {"25 fps", 0},
                            {"-25", 0}}) {
    FormatRig rig;
    rig.messages.lines = {FromUtf8(row.answer), u""};
    EXPECT_EQ(rig.importer.PromptForFps(), row.fps) << row.answer;
    ASSERT_EQ(rig.messages.shown.size(), row.fps == 0 ? 1u : 0u) << row.answer;
    if (row.fps != 0) continue;
    EXPECT_EQ(rig.messages.shown[0].text, rig.strings[Message::FpsOutOfRange]);
  }
}

TEST(FrameRateQuestion, OffersTheRateOfTheFilm) {
  FormatRig rig;
  rig.state.FilmFps = 23.976;
  rig.Open("a.sub", "{25}{50}x\r\n");
  EXPECT_EQ(rig.messages.asked.at(0).initial, u"23.976");
  rig.options.manner.SetClassic(true);
  rig.Open("a.sub", "{25}{50}x\r\n");
  EXPECT_EQ(rig.messages.asked.at(1).initial, u"25");
}

TEST(MicroDvdRate, OfTheFirstLineIsTakenWithoutAQuestion) {
  FormatRig rig;
  EXPECT_EQ(rig.Open("a.sub", "{1}{1}23.976\r\n{24}{48}x\r\n{1}{1}kept\r\n"), u"MICRODVD");
  EXPECT_TRUE(rig.messages.asked.empty());
  EXPECT_EQ(rig.state.CurrentFps, 23.976);
  EXPECT_EQ(rig.Rows(), (Rows{{1001, 2002, u"x"}, {42, 42, u"kept"}}));
  EXPECT_EQ(rig.Save(u"MICRODVD", rig.state.CurrentFps), "{1}{1}23.976\r\n{24}{48}x\r\n{1}{1}kept\r\n");
}

TEST(MicroDvdRate, MayStandAtFrame0) {
  FormatRig rig;
  EXPECT_EQ(rig.Open("a.sub", "{0}{0}29,97\r\n{30}{60}x\r\n"), u"MICRODVD");
  EXPECT_TRUE(rig.messages.asked.empty());
  EXPECT_EQ(rig.state.CurrentFps, 29.97);
  EXPECT_EQ(rig.Rows(), (Rows{{1001, 2002, u"x"}}));
}

TEST(MicroDvdRate, ThatNobodyUsesIsAText) {
  FormatRig rig;
  rig.Open("a.sub", "{1}{1}1984\r\n{25}{50}x\r\n");
  EXPECT_EQ(rig.messages.asked.size(), 1u);
  EXPECT_EQ(rig.Rows(), (Rows{{40, 40, u"1984"}, {1000, 2000, u"x"}}));
}

TEST(MicroDvdRate, IsDroppedAndAskedForInTheClassicManner) {
  FormatRig rig;
  rig.options.manner.SetClassic(true);
  EXPECT_EQ(rig.Open("a.sub", "{1}{1}23.976\r\n{24}{48}x\r\n", u"24"), u"MICRODVD");
  EXPECT_EQ(rig.messages.asked.size(), 1u);
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, u"x"}}));
  EXPECT_EQ(rig.Save(u"MICRODVD", rig.state.CurrentFps), "{24}{48}x\r\n");
}

TEST(FrameRate, AcceptsWholePartsFrom15To30InTheClassicManner) {
  for (const FpsRow& row : {FpsRow{"25", 25},
                            {"23,976", 23.976},
                            {"23.976", 23.976},
                            {"15", 15},
                            {"30", 30},
                            {"30,9", 30.9},
                            {"29.97", 29.97},
                            {"14,99", 0},
                            {"31", 0},
                            {"abc", 0},
                            {"-25", 0},
                            {"25,000000", 0}}) {
    FormatRig rig;
    rig.options.manner.SetClassic(true);
    rig.messages.lines = {FromUtf8(row.answer), u""};
    EXPECT_EQ(rig.importer.PromptForFps(), row.fps) << row.answer;
    EXPECT_EQ(rig.messages.shown.size(), row.fps == 0 ? 1u : 0u) << row.answer;
  }
}

TEST(FrameRate, TellsAnInvalidAnswerAndAsksAgain) {
  FormatRig rig;
  rig.options.manner.SetClassic(true);
  rig.messages.lines = {u"10", u"24"};
  EXPECT_EQ(rig.importer.PromptForFps(), 24.0);
  ASSERT_EQ(rig.messages.shown.size(), 1u);
  EXPECT_EQ(rig.messages.shown[0].text, u"The value entered is invalid. Please enter a value between 15 and 30.");
  EXPECT_EQ(rig.messages.shown[0].title, u"Open text or subtitle");
  EXPECT_EQ(rig.messages.shown[0].icon, BoxIcon::Error);
}

TEST(FrameRate, IsZeroForFormatsWithoutFrames) {
  FormatRig rig;
  rig.state.CurrentFps = 25.0;
  rig.Open("a.srt", SubRipFile(1));
  EXPECT_FALSE(rig.state.CurrentFps);
}

TEST(Append, ShiftsByTheMediasLengthCumulatively) {
  FormatRig rig;
  rig.Open("a.srt", SubRipFile(1));
  const Text second = rig.folder.Write("b.srt", SubRipFile(1));
  rig.importer.DetectFormat(second, Loading::Append, 60);
  rig.importer.DetectFormat(second, Loading::Append, 60);
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 1500, u"line 1"}, {61000, 61500, u"line 1"}, {121000, 121500, u"line 1"}}));
  ASSERT_EQ(rig.messages.shown.size(), 2u);
  EXPECT_EQ(
      rig.messages.shown[1].text,
      u"The selected subtitle file was added with this delay time:\r\n\r\n00:02:00,000\r\n\r\n"
      u"To append another subtitle file, open first the video that corresponds to the subtitle file appended last.");
  EXPECT_EQ(rig.messages.shown[1].icon, BoxIcon::Information);
  EXPECT_EQ(rig.progress.stages[FileStage::LoadBegins], 1) << "an append leaves the menus alone";
}

TEST(Append, StartsOverAfterAnOrdinaryImport) {
  FormatRig rig;
  rig.Open("a.srt", SubRipFile(1));
  rig.importer.DetectFormat(rig.path = rig.folder / "a.srt", Loading::Append, 60);
  rig.Open("a.srt", SubRipFile(1));
  rig.importer.DetectFormat(rig.folder / "a.srt", Loading::Append, 60);
  EXPECT_EQ(rig.captions.GetCaptionStart(2), 61000);
}

TEST(Append, KeepsTheDocumentsEncoding) {
  FormatRig rig;
  rig.Open("a.srt", "\xEF\xBB\xBF" + SubRipFile(1));
  rig.importer.DetectFormat(rig.folder.Write("b.srt", SubRipFile(1)), Loading::Append);
  EXPECT_EQ(rig.state.Encoding, (DocumentEncoding{kCodePageUtf8, true}));
}

/// How the document of `rig` is written: format, rate, encoding, and the template in force.
auto WayOfWriting(const FormatRig& rig) {
  return std::tuple(rig.state.CurrentFormatIndex, rig.state.SettingsFormatIndex, rig.state.CurrentFps,
                    rig.state.Encoding.codePage, rig.state.Encoding.mark, rig.loader.Definition().recordText,
                    rig.loader.Definition().timecodeTemplate, rig.loader.Definition().sampleText);
}

TEST(Append, LeavesTheDocumentsWayOfWritingInForce) {
  const struct {
    std::string name, content;
    Text fps;
  } rows[] = {
      {"other_format.srt", SubRipFile(1), u"25"}, {"other_rate.sub", "{1}{2}x\r\n", u"30"},
      {"rate_refused.sub", "{1}{2}x\r\n", u""},   {"unrecognised.xyz", "words\r\n", u"25"},
      {"plain.txt", "words\r\n", u"25"},          {"wide.srt", "\xFF\xFE" + std::string("1\0\n\0", 4), u"25"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    FormatRig rig;
    rig.Open("a.sub", "\xEF\xBB\xBF{10}{20}one\r\n", u"24");
    const auto before = WayOfWriting(rig);
    rig.messages.lines.assign(1, row.fps);
    rig.importer.DetectFormat(rig.folder.Write(row.name, row.content), Loading::Append);
    EXPECT_EQ(WayOfWriting(rig), before);
    EXPECT_EQ(rig.state.CurrentFps, 24.0);
  }
}

TEST(Append, OfATextThatCantBeReadLeavesTheCaptions) {
  FormatRig rig;
  rig.Fill({{1, 2, u"old"}});
  rig.importer.DetectFormat(rig.folder / "gone.txt", Loading::Append);
  EXPECT_EQ(rig.Rows(), (Rows{{1, 2, u"old"}}));
  EXPECT_EQ(rig.messages.shown.size(), 2u);
}

TEST(RunTimeErrors, AreToldAtTheEndOfTheImportAndTheRestIsRead) {
  FormatRig rig;
  rig.options.manner.SetClassic(true);
  const std::string wide(300, 'x');
  rig.Open("a.sub", "{25}{50}" + wide + "\r\n{75}{100}short\r\n{125}{150}last\r\n");
  ASSERT_EQ(rig.messages.shown.size(), 1u);
  EXPECT_EQ(rig.messages.shown[0].text,
            u"An error ocurred while loading the file " + (rig.folder / "a.sub") + u".\r\n\r\nError #6: Overflow");
  EXPECT_EQ(rig.messages.shown[0].icon, BoxIcon::Warning);
  EXPECT_EQ(rig.captions.At(rig.captions.Rows() - 1), (Caption{5000, 6000, u"last"}));
}

TEST(HostileFile, ThatIsMissingIsTold) {
  FormatRig rig;
  rig.importer.DetectFormat(rig.folder / "none.srt", Loading::NewDocument);
  ASSERT_EQ(rig.messages.shown.size(), 2u);
  EXPECT_TRUE(rig.messages.shown[1].text.find(u"Error #53: File not found") != Text::npos);
}

TEST(HostileFile, ThatIsMissingAndNamedTxtHasNoText) {
  FormatRig rig;
  rig.importer.DetectFormat(rig.folder / "none.txt", Loading::NewDocument);
  ASSERT_EQ(rig.messages.shown.size(), 2u);
  EXPECT_TRUE(rig.messages.shown[0].text.starts_with(u"No text found"));
  EXPECT_TRUE(rig.messages.shown[1].text.find(u"Error #53") != Text::npos);
}

TEST(HostileFile, ThatIsAFolderAPipeOrADeviceIsRefusedAtOnce) {
  FormatRig rig;
  const Text pipe = rig.folder / "pipe.srt";
  ASSERT_EQ(::mkfifo(ToUtf8(pipe).c_str(), 0600), 0);
  for (const Text& target : {FromUtf8(rig.folder.Path().string()), pipe, Text(u"/dev/zero")}) {
    rig.messages.shown.clear();
    rig.importer.DetectFormat(target, Loading::NewDocument);
    ASSERT_EQ(rig.messages.shown.size(), 2u) << ToUtf8(target);
    EXPECT_TRUE(rig.messages.shown[1].text.find(u"Error #75") != Text::npos) << ToUtf8(rig.messages.shown[1].text);
  }
}

TEST(HostileFile, BeyondTheLimitIsRefusedWithItsSize) {
  FormatRig rig;
  const std::string huge = rig.folder.Bytes("huge.srt");
  std::ofstream(huge).put('x');
  std::filesystem::resize_file(huge, 1ULL << 30);
  rig.importer.DetectFormat(FromUtf8(huge), Loading::NewDocument);
  ASSERT_EQ(rig.messages.shown.size(), 2u);
  EXPECT_TRUE(rig.messages.shown[1].text.find(u"Error #7: The file is too large (1073741824 bytes") != Text::npos);
}

TEST(HostileFile, OfZerosEndsWithTheMessageOfAnUnknownFormat) {
  FormatRig rig;
  rig.Open("zeros.srt", std::string(8 << 20, '\0'));
  ASSERT_EQ(rig.messages.shown.size(), 1u);
  EXPECT_TRUE(rig.messages.shown[0].text.starts_with(u"Failed to determine"));
}

TEST(HostileFile, OfNoiseEndsWithTheMessageOfAnUnknownFormat) {
  FormatRig rig;
  std::string noise(1 << 20, '\0');
  std::uint32_t state = 1;
  for (char& c : noise) c = static_cast<char>((state = state * 1664525u + 1013904223u) >> 24);
  rig.Open("noise.srt", noise);
  ASSERT_FALSE(rig.messages.shown.empty());
  EXPECT_TRUE(rig.messages.shown[0].text.starts_with(u"Failed to determine"));
}

TEST(HostileFile, OfOneEndlessLineIsReadToABoundAndToldSo) {
  FormatRig rig;
  rig.Open("line.txt", std::string((16 << 20) + 100, 'x'));
  EXPECT_EQ(rig.captions.At(1).text.size(), std::size_t{16} << 20);
  ASSERT_EQ(rig.messages.shown.size(), 1u);
  EXPECT_TRUE(rig.messages.shown[0].text.ends_with(u"A line is too long; only its beginning was read"));
}

TEST(HostileFile, WhoseCaptionsRepeatAllTextBeforeThemStopsAtABound) {
  FormatRig rig;
  std::string file = "00:00:01:00 00:00:02:00 first\r\n";
  for (int i = 0; i < 32000; ++i) file += "00:00:01:00 00:00:02:00\r\nsome text that is never taken away\r\n";
  rig.ImportAs(u"ADOBEENCORE", file);
  ASSERT_FALSE(rig.messages.shown.empty());
  EXPECT_TRUE(rig.messages.shown.back().text.ends_with(u"Error #7: Out of memory"));
  EXPECT_GT(rig.captions.Rows(), 1000);
}

TEST(HostileFile, OfOneCaptionWithoutEndIsReadInOneGo) {
  FormatRig rig;
  std::string file = "1\r\n00:00:01,000 --> 00:00:02,000\r\n";
  for (int i = 0; i < 200000; ++i) file += i % 3 == 0 ? " led by a blank\r\n" : "words and <i>words</i>\r\n";
  rig.Open("a.srt", file);
  EXPECT_EQ(rig.captions.Rows(), 2);
  EXPECT_GT(rig.captions.At(1).text.size(), 2000000u);
  // The same behind a first caption, where lines are read in runs.
  rig.Open("b.srt", SubRipFile(1) + file);
  EXPECT_EQ(rig.captions.Rows(), 3);
}

TEST(HostileFile, ThatIsEmptyHasNoText) {
  FormatRig rig;
  rig.Open("empty.txt", "");
  ASSERT_EQ(rig.messages.shown.size(), 1u);
  EXPECT_TRUE(rig.messages.shown[0].text.starts_with(u"No text found"));
}

TEST(Recognition, TriesTheSecondTemplate) {
  OneFormat rig("timecode=hh:mm:ss.zzz\ntimecoderss=mm:ss.zzz\nsample=00:00:00.000 > 00:00:00.000\nlbreak=|\n",
                "qxmStart > qxmEnd qxmCaption\n");
  EXPECT_EQ(rig.Open("long", "00:01:02.500 > 00:01:03.500 long\r\n"), u"OWN");
  EXPECT_EQ(rig.Rows(), (Rows{{62500, 63500, u"long"}}));
  // The short mask is no mask of the catalogue, so nothing is literal and only masks of "0" are looked for.
  EXPECT_EQ(rig.Open("short", "01:02.500 > 01:03.500 short\r\n"), u"PLAINTEXT");
}

TEST(Recognition, TriesTheSecondTemplateWhereAnotherFormatHasItsMask) {
  FormatRig rig(
      "[OWN]\ntimecode=hh:mm:ss.zzz\ntimecoderss=mm:ss.zzz\nsample=00:00:00.000 > 00:00:00.000\nlbreak=|\n"
      "[OTHER]\ntimecode=mm:ss.zzz\nsample=nothing of the kind\n",
      "PLAINTEXT\nOWN\nOTHER\n</FORMATSLIST>\n---OWN FORMAT---\n{SubRepeat}\nqxmStart > qxmEnd "
      "qxmCaption\n{/SubRepeat}\n"
      "---END FORMAT DEFINITION---\n---OTHER FORMAT---\n{SubRepeat}\nqxmStart qxmEnd qxmCaption\n{/SubRepeat}\n"
      "---END FORMAT DEFINITION---\n");
  EXPECT_EQ(rig.Open("short", "01:02.500 > 01:03.500 short\r\n"), u"OWN");
  EXPECT_EQ(rig.Rows(), (Rows{{62500, 63500, u"short"}}));
}

TEST(Recognition, BringsNumbersOfAnyLengthDownToTwoDigits) {
  OneFormat rig("timecode=ff\nsample={00}{00}\nlbreak=|\n", "{qxmStart}{qxmEnd}qxmCaption\n");
  for (const std::string digits : {"12", "123", "1234", "12345", "123456"}) {
    EXPECT_EQ(rig.Open("a", "{" + digits + "}{" + digits + "}x\r\n"), u"OWN") << digits;
  }
  EXPECT_EQ(rig.Open("b.txt", "{1}{2}x\r\n"), u"PLAINTEXT") << "one digit is not brought up to two";
}

TEST(Recognition, LooksAtTheFirst250LinesOnly) {
  FormatRig rig;
  std::string filling;
  for (int i = 0; i < 248; ++i) filling += "words\r\n";
  EXPECT_EQ(rig.Open("in.txt", filling + SubRipFile(1)), u"SUBRIP");
  for (int i = 0; i < 2; ++i) filling += "words\r\n";
  EXPECT_EQ(rig.Open("out.txt", filling + SubRipFile(1)), u"PLAINTEXT");
}

TEST(Recognition, TellsPinnacleAndDvdSubtitleSystemFromEncore) {
  FormatRig rig;
  const std::string pair = "00:00:12:10 00:00:15:05 Good evening\r\n";
  EXPECT_EQ(rig.Open("a", pair), u"ADOBEENCORE");
  EXPECT_EQ(rig.Open("b", "#INPOINT OUTPOINT PATH\r\n" + pair), u"PINNACLEIMP");
  EXPECT_EQ(rig.Open("c", pair + "00:00:16:00 00:00:19:20 one//two\r\n"), u"DVDSUBSYSTEM");
}

TEST(Recognition, ChangesEncoreToPinnacleAndThenToDvdSubtitleSystem) {
  std::string ini;
  std::string dat = "PLAINTEXT\nADOBEENCORE\nPINNACLEIMP\nDVDSUBSYSTEM\n</FORMATSLIST>\n";
  for (const std::string id : {"ADOBEENCORE", "PINNACLEIMP", "DVDSUBSYSTEM"}) {
    ini += "[" + id + "]\ntimecode=hh:mm:ss:ff\nlbreak=//\nsample=" + (id == "ADOBEENCORE" ? "00:00:00:00" : "none") +
           "\n";
    dat +=
        "---" + id + " FORMAT---\n{SubRepeat}\nqxmStart qxmEnd qxmCaption\n{/SubRepeat}\n---END FORMAT DEFINITION---\n";
  }
  FormatRig rig(ini, dat);
  const std::string pair = "00:00:12:10 00:00:15:05 Good evening\r\n";
  EXPECT_EQ(rig.Open("a", pair), u"ADOBEENCORE");
  EXPECT_EQ(rig.Open("b", "#inpoint outpoint path\r\n" + pair), u"PINNACLEIMP");
  // The second change looks at the format in force no more.
  EXPECT_EQ(rig.Open("c", "#INPOINT OUTPOINT PATH\r\n" + pair + "//\r\n"), u"DVDSUBSYSTEM");
}

TEST(Recognition, TellsDvdMaestroFromDvdStudioBySpNumber) {
  FormatRig rig;
  const std::string line = "00:00:12:10\t00:00:15:05\tGood evening\r\n";
  EXPECT_EQ(rig.Open("a", line), u"MACDVDPRO");
  EXPECT_EQ(rig.Open("b", "SP_NUMBER\r\n" + line), u"SPRUCEDVDMAESTRO");
}

// Sixteen-bit text without a mark is found in the second run only where its bytes pair up.

std::string Sixteen(const std::string& text) {
  std::string bytes;
  for (const char c : text) bytes += c, bytes += '\0';
  return bytes;
}

TEST(WideRetry, RecognisesSixteenBitTextWithoutAMark) {
  FormatRig rig;
  rig.options.readAs = u"classic";
  EXPECT_EQ(rig.Open("a.srt", Sixteen("00:00:01,000 --> 00:00:02,000")), u"SUBRIP");
  // The lone timing line is legible; it holds no text.
  ASSERT_EQ(rig.messages.shown.size(), 1u);
  EXPECT_TRUE(rig.messages.shown[0].text.starts_with(u"No text found"));
}

TEST(WideRetry, ReadsTheLinesWhosePairingComesOutRight) {
  FormatRig rig;
  rig.options.readAs = u"classic";
  // Behind a CR comes a NUL, so that every second line is off by one byte.
  rig.Open("a.ssa", Sixteen("[V4 Styles]\rDialogue: Marked=0,0:00:01.00,0:00:02.00,Default,NTP,0,0,0,,odd\r"
                            "Dialogue: Marked=0,0:00:03.00,0:00:04.00,Default,NTP,0,0,0,,even"));
  EXPECT_EQ(rig.Format(), u"SUBSTATIONALPHA");
  EXPECT_LE(rig.captions.Rows() - 1, 1);
}

}  // namespace
}  // namespace cuewright::testing
