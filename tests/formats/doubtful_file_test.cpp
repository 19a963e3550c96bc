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
