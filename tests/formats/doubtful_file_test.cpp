#include <gtest/gtest.h>

#include "core/journal.h"
#include "tests/formats/format_rig.h"
#include "tests/support/printers.h"

namespace cuewright::testing {
namespace {

using Rows = std::vector<Caption>;

constexpr const char* kMostlyOther = "{10}{50}one\nnot\nof\nthis\nformat\n{60}{90}two\n";

TEST(DoubtfulFile, IsShownBeforeItIsLoaded) {
  FormatRig rig;
  rig.messages.answers = {BoxAnswer::Yes};
  EXPECT_EQ(rig.Open("a.sub", kMostlyOther), u"MICRODVD");
  ASSERT_EQ(rig.messages.shown.size(), 1u);
  const MessageBox& box = rig.messages.shown[0];
  EXPECT_EQ(box.buttons, BoxButtons::YesNo);
  EXPECT_TRUE(box.noIsDefault);
  EXPECT_EQ(box.text,
            u"Most lines of this file were not understood as MicroDVD. Load what was understood?\r\n\r\n"
            u"{10}{50}one\r\nnot\r\nof\r\nthis\r\nformat\r\n{60}{90}two");
  EXPECT_EQ(rig.captions.Rows(), 3);
  EXPECT_EQ(rig.Save(u"MICRODVD", 25.0), kMostlyOther);
}

TEST(DoubtfulFile, IsLeftAloneWhenNobodyWantsIt) {
  FormatRig rig;
  rig.messages.answers = {BoxAnswer::No};
  rig.Open("a.sub", kMostlyOther);
  EXPECT_EQ(rig.messages.shown.size(), 1u);
  EXPECT_EQ(rig.Rows(), (Rows{{0, 0, u""}}));
  EXPECT_EQ(rig.state.Source, nullptr);
  EXPECT_TRUE(rig.cancelled);
}

TEST(DoubtfulFile, OneOfWhichMostIsUnderstoodIsNotAskedAbout) {
  FormatRig rig;
  rig.Open("a.sub", "{10}{50}one\nother\n{60}{90}two\n\n\n");
  EXPECT_TRUE(rig.messages.shown.empty());
  EXPECT_EQ(rig.captions.Rows(), 3);
}

TEST(DoubtfulFile, TheClassicMannerDoesNotAsk) {
  FormatRig rig;
  rig.options.manner.SetClassic(true);
  rig.Open("a.sub", kMostlyOther);
  EXPECT_TRUE(rig.messages.shown.empty());
}

TEST(DoubtfulFile, IsAskedAboutBeforeItIsAppended) {
  FormatRig rig;
  rig.Open("a.srt", "1\n00:00:01,000 --> 00:00:02,000\nfirst\n");
  const std::shared_ptr<const SourceMap> document = rig.state.Source;
  rig.messages.answers = {BoxAnswer::No};
  rig.messages.lines = {u"25"};
  const Text other = rig.folder.Write("b.sub", kMostlyOther);
  rig.importer.DetectFormat(other, Loading::Append);
  ASSERT_EQ(rig.messages.shown.size(), 1u);
  EXPECT_TRUE(rig.messages.shown[0].text.starts_with(u"Most lines of this file were not understood as MicroDVD."));
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, u"first"}}));
  EXPECT_TRUE(rig.cancelled);
  EXPECT_EQ(rig.state.Source, document);
}

TEST(DoubtfulFile, IsAppendedWhenItIsWanted) {
  FormatRig rig;
  const std::string first = "1\n00:00:01,000 --> 00:00:02,000\nfirst\n";
  rig.Open("a.srt", first);
  rig.messages.answers = {BoxAnswer::Yes};
  rig.messages.lines = {u"25"};
  rig.importer.DetectFormat(rig.folder.Write("b.sub", "{100}{150}one\nnot\nof it\n"), Loading::Append, 60);
  ASSERT_EQ(rig.captions.Rows(), 3);
  EXPECT_EQ(rig.captions.At(2), (Caption{64000, 66000, u"one"}));
  EXPECT_EQ(rig.Save(u"SUBRIP"), first + "\n2\n00:01:04,000 --> 00:01:06,000\none\n\n");
}

// Frames or hundredths of a second: nothing in this file tells.
constexpr const char* kFramesOrHundredths =
    "00:00:12:10 00:00:15:05 Good evening.\n"
    "00:00:16:00 00:00:19:20 Nobody leaves.\n";

const Rows kAsFrames = {{12400, 15200, u"Good evening."}, {16000, 19800, u"Nobody leaves."}};
const Rows kAsHundredths = {{12100, 15050, u"Good evening."}, {16000, 19200, u"Nobody leaves."}};

TEST(RivalFormats, AreAskedAboutWithTheBestFirst) {
  FormatRig rig;
  rig.messages.answers = {BoxAnswer::Yes};
  EXPECT_EQ(rig.Open("a.txt", kFramesOrHundredths), u"ADOBEENCORE");
  ASSERT_EQ(rig.messages.shown.size(), 1u);
  const MessageBox& box = rig.messages.shown[0];
  EXPECT_EQ(box.icon, BoxIcon::Question);
  EXPECT_EQ(box.buttons, BoxButtons::YesNoCancel);
  EXPECT_EQ(box.text,
            u"Several formats fit this file equally well: Adobe Encore, DVD Subtitle System. Load it as Adobe Encore?"
            u"\r\n\r\n00:00:12:10 00:00:15:05 Good evening.\r\n00:00:16:00 00:00:19:20 Nobody leaves.");
  EXPECT_EQ(rig.Rows(), kAsFrames);
}

TEST(RivalFormats, TheNextIsOfferedAfterNo) {
  FormatRig rig;
  rig.messages.answers = {BoxAnswer::No, BoxAnswer::Yes};
  EXPECT_EQ(rig.Open("a.txt", kFramesOrHundredths), u"DVDSUBSYSTEM");
  ASSERT_EQ(rig.messages.shown.size(), 2u);
  EXPECT_EQ(rig.messages.shown[1].buttons, BoxButtons::YesNo);
  EXPECT_TRUE(rig.messages.asked.empty());  // hundredths need no rate
  EXPECT_EQ(rig.Rows(), kAsHundredths);
  EXPECT_EQ(rig.Save(u"DVDSUBSYSTEM"), kFramesOrHundredths);
}

TEST(RivalFormats, NothingIsLoadedWhenNoneIsWanted) {
  for (const std::deque<BoxAnswer>& answers :
       {std::deque{BoxAnswer::Cancel}, std::deque{BoxAnswer::No, BoxAnswer::No}}) {
    FormatRig rig;
    rig.messages.answers = answers;
    rig.Open("a.txt", kFramesOrHundredths);
    EXPECT_EQ(rig.messages.shown.size(), answers.size());
    EXPECT_EQ(rig.Rows(), (Rows{{0, 0, u""}}));
    EXPECT_TRUE(rig.cancelled);
  }
}

TEST(RivalFormats, AreAskedAboutBeforeAppending) {
  FormatRig rig;
  rig.Open("a.srt", "1\n00:00:01,000 --> 00:00:02,000\nfirst\n");
  rig.messages.answers = {BoxAnswer::No, BoxAnswer::Yes};
  rig.importer.DetectFormat(rig.folder.Write("b.txt", kFramesOrHundredths), Loading::Append);
  ASSERT_EQ(rig.captions.Rows(), 4);
  EXPECT_EQ(rig.captions.At(2), kAsHundredths[0]);
  EXPECT_EQ(rig.Format(), u"SUBRIP");
}

TEST(RivalFormats, NumbersThatNoFrameHasSettleIt) {
  FormatRig rig;
  EXPECT_EQ(rig.Open("a.txt", "00:00:12:40 00:00:15:20 Good evening.\n00:00:16:00 00:00:19:80 Nobody leaves.\n"),
            u"DVDSUBSYSTEM");
  EXPECT_TRUE(rig.messages.shown.empty());
}

TEST(RivalFormats, NumbersThatFewFramesHaveChangeTheOrder) {
  FormatRig rig;
  rig.messages.answers = {BoxAnswer::Yes};
  EXPECT_EQ(rig.Open("a.txt", "00:00:12:40 00:00:15:20 Good evening.\n"), u"DVDSUBSYSTEM");
  EXPECT_EQ(rig.messages.shown.size(), 1u);
}

TEST(RivalFormats, AFileThatAllReadAlikeIsNotAskedAbout) {
  FormatRig rig;
  EXPECT_EQ(rig.Open("a.txt", "00:00:12:00 00:00:15:00 Good evening.\n"), u"ADOBEENCORE");
  EXPECT_TRUE(rig.messages.shown.empty());
}

TEST(RivalFormats, TheClassicMannerTakesTheFirst) {
  FormatRig rig;
  rig.options.manner.SetClassic(true);
  EXPECT_EQ(rig.Open("a.txt", kFramesOrHundredths), u"ADOBEENCORE");
  EXPECT_TRUE(rig.messages.shown.empty());
}

TEST(RivalFormats, TheChosenOneIsReadAgainFromAJournal) {
  FormatRig rig;
  rig.messages.answers = {BoxAnswer::No, BoxAnswer::Yes};
  rig.Open("a.txt", kFramesOrHundredths);
  const JournalSource kept = KeptSource(*rig.state.Source);
  rig.state.Source = nullptr;
  rig.messages.shown.clear();
  rig.importer.RestoreSource(kept);
  ASSERT_NE(rig.state.Source, nullptr);
  EXPECT_EQ(rig.state.Source->Format(), u"DVDSUBSYSTEM");
  EXPECT_TRUE(rig.messages.shown.empty());
}

constexpr const char* kTwoClasses =
    "<SAMI><BODY>\n"
    "<SYNC Start=1000><P Class=ENCC>Good evening\n<P Class=FRCC>Bonsoir\n"
    "<SYNC Start=2000><P Class=ENCC>&nbsp;\n<P Class=FRCC>&nbsp;\n</BODY></SAMI>\n";

/// Opens the file with these answers to the question for the class.
Rows Choosing(FormatRig& rig, std::deque<Text> answers) {
  const Text path = rig.folder.Write("a.smi", kTwoClasses);
  rig.messages.lines = std::move(answers);
  rig.importer.DetectFormat(path, Loading::NewDocument);
  return rig.Rows();
}

TEST(ClassesOfSami, AreAskedFor) {
  FormatRig rig;
  EXPECT_EQ(Choosing(rig, {u"ENCC"}), (Rows{{1000, 2000, u"Good evening"}}));
  ASSERT_EQ(rig.messages.asked.size(), 1u);
  EXPECT_EQ(rig.messages.asked[0].prompt,
            u"The file has captions of several classes: ENCC, FRCC. Type the one that is to be read.");
  EXPECT_EQ(rig.messages.asked[0].initial, u"ENCC");
  EXPECT_EQ(Choosing(rig, {u"nothing like that", u" frcc "}), (Rows{{1000, 2000, u"Bonsoir"}}));
  EXPECT_EQ(rig.Save(u"SAMI"), kTwoClasses);
}

TEST(ClassesOfSami, NoAnswerLoadsNothing) {
  FormatRig rig;
  EXPECT_EQ(Choosing(rig, {}), (Rows{{0, 0, u""}}));
  EXPECT_TRUE(rig.cancelled);
}

TEST(ClassesOfSami, TheChosenOneIsReadAgainFromAJournal) {
  FormatRig rig;
  Choosing(rig, {u"FRCC"});
  const JournalSource kept = KeptSource(*rig.state.Source);
  rig.state.Source = nullptr;
  rig.messages.asked.clear();
  rig.importer.RestoreSource(kept);
  ASSERT_NE(rig.state.Source, nullptr);
  EXPECT_EQ(rig.state.Source->CaptionClass(), u"FRCC");
  EXPECT_TRUE(rig.messages.asked.empty());
  EXPECT_EQ(rig.Save(u"SAMI"), kTwoClasses);
}

TEST(ClassesOfSami, AHeadWithOneStyleLeavesNothingToAsk) {
  FormatRig rig;
  rig.Open("a.smi",
           "<SAMI><HEAD><STYLE TYPE=\"text/css\"><!--\nP {margin:0}\n.ENCC {Name: English;}\n--></STYLE></HEAD>"
           "<BODY><SYNC Start=1000><P Class=ENCC>x\n<SYNC Start=2000><P Class=OTHER>y\n</BODY></SAMI>\n");
  EXPECT_TRUE(rig.messages.asked.empty());
}

}  // namespace
}  // namespace cuewright::testing
