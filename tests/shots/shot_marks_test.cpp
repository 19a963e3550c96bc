#include "shots/shot_marks.h"

#include <gtest/gtest.h>

#include "shots/measure_bytes.h"

namespace cuewright {
namespace {

using Times = std::vector<Ms>;

TEST(ShotMarks, AMarkThatAHandSetGoesByTheSameCommand) {
  ShotMarks marks;
  const Times found = {1000, 5000};
  EXPECT_EQ(marks.Toggle(3000, found, 100), ShotMarks::Change::Set);
  EXPECT_EQ(marks.Apply(found), (Times{1000, 3000, 5000}));
  EXPECT_EQ(marks.Toggle(3060, found, 100), ShotMarks::Change::Taken);
  EXPECT_EQ(marks.Apply(found), found);
}

TEST(ShotMarks, AShotThatWasFoundGoesAndComesBackByTheSameCommand) {
  ShotMarks marks;
  const Times found = {1000, 1100, 5000};
  EXPECT_EQ(marks.Toggle(1080, found, 100), ShotMarks::Change::Taken);
  EXPECT_EQ(marks.Apply(found), (Times{1000, 5000}));
  EXPECT_EQ(marks.Toggle(4980, found, 100), ShotMarks::Change::Taken);
  EXPECT_EQ(marks.Apply(found), Times{1000});
  EXPECT_EQ(marks.Toggle(5020, found, 100), ShotMarks::Change::Set);
  EXPECT_EQ(marks.Apply(found), (Times{1000, 5000}));
}

TEST(ShotMarks, HoldForWhateverIsFoundLater) {
  ShotMarks marks;
  marks.Toggle(1000, {1000}, 100);
  marks.Toggle(2000, {1000}, 100);
  EXPECT_EQ(marks.Apply({500, 1000, 2000}), (Times{500, 2000}));
}

TEST(ShotMarks, AreReadAsTheyWereWrittenAndOtherLinesArePassedOver) {
  ShotMarks marks;
  marks.Toggle(1000, {1000}, 100);
  marks.Toggle(2000, {1000}, 100);
  EXPECT_EQ(marks.Lines(), "set 2000\ntaken 1000\n");
  ShotMarks read;
  read.Read("set x\n\nset 12 y\nset -5\nset 99999999999\ntaken 1000\nset 2000");
  EXPECT_EQ(read.Lines(), marks.Lines());
}

TEST(MeasureBytes, AreReadAsTheyWereMeasured) {
  const std::vector<PictureMeasure> measures = {{.us = 41708,
                                                 .step = 0.5F,
                                                 .break_ = 0.25F,
                                                 .colourStep = 14.5F,
                                                 .colourBreak = 1,
                                                 .mix = 0.125F,
                                                 .span = 12,
                                                 .faint = true},
                                                {.us = -3, .span = 64, .fall = 60, .rise = 2, .plain = true}};
  const std::string bytes = BytesOf(measures);
  EXPECT_EQ(bytes.size(), 16u + 2 * 32u);
  std::vector<PictureMeasure> read;
  ASSERT_TRUE(ReadMeasures(bytes, read));
  EXPECT_EQ(BytesOf(read), bytes);
  EXPECT_EQ(read[0].us, 41708);
  EXPECT_EQ(read[0].mix, 0.125F);
  EXPECT_TRUE(read[0].faint);
  EXPECT_FALSE(read[0].plain);
  EXPECT_FALSE(read[1].faint);
  EXPECT_EQ(read[1].us, -3);
  EXPECT_EQ(read[1].span, 64);
  EXPECT_EQ(read[1].fall, 60);
  EXPECT_EQ(read[1].rise, 2);
  EXPECT_TRUE(read[1].plain);
}

TEST(MeasureBytes, ThoseThatWereCutOffOrAreOfAnotherKindGiveNothing) {
  std::string bytes = BytesOf(std::vector<PictureMeasure>(3));
  std::vector<PictureMeasure> read(5);
  std::string older = bytes;
  older[7] = '3';
  for (const std::string& broken :
       {bytes.substr(0, bytes.size() - 1), bytes.substr(0, bytes.size() - 32), bytes + std::string(32, '\0'),
        "x" + bytes.substr(1), std::string("CWSHOTS4"), older, std::string()}) {
    EXPECT_FALSE(ReadMeasures(broken, read)) << broken.size();
    EXPECT_TRUE(read.empty());
  }
  // A count that would be the whole memory.
  for (std::size_t i = 8; i < 16; ++i) bytes[i] = '\xFF';
  EXPECT_FALSE(ReadMeasures(bytes, read));
}

}  // namespace
}  // namespace cuewright
