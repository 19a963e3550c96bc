#include "tests/batch/batch_rig.h"

namespace cuewright::test {
namespace {

std::string Number(unsigned value, int size) {
  std::string bytes;
  for (int i = 0; i < size; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFF);
  return bytes;
}

/// A wave of 800 samples a second with two bytes each, 16 bytes a column; each column holds one loud and one low
/// sample.
std::string Wave(unsigned columns) {
  std::string data;
  for (unsigned i = 0; i < columns; ++i) data += Number(100 + i, 2) + std::string(14, '\0');
  return "RIFF" + Number(36 + static_cast<unsigned>(data.size()), 4) + "WAVEfmt " + Number(16, 4) + Number(1, 2) +
         Number(1, 2) + Number(800, 4) + Number(1600, 4) + Number(2, 2) + Number(16, 2) + "data" +
         Number(static_cast<unsigned>(data.size()), 4) + data;
}

TEST_F(BatchTest, PeaksPrintsTheCountAndALineAColumn) {
  Write("a.wav", Wave(6));
  const ProcessResult result = Batch({"peaks", "a.wav"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.error, "");
  // The last 44 bytes, as many as the header has, are never looked at.
  EXPECT_EQ(result.out, "12\n0\t100\t0\n1\t101\t0\n2\t102\t0\n3\t103\t0\n");
}

TEST_F(BatchTest, PeaksInJsonIsAnObjectALine) {
  Write("a.wav", Wave(4));
  EXPECT_EQ(Batch({"peaks", "--json", "a.wav"}).out,
            "{\"peakCount\":8}\n{\"column\":0,\"maximum\":100,\"minimum\":0}\n"
            "{\"column\":1,\"maximum\":101,\"minimum\":0}\n");
}

TEST_F(BatchTest, PeaksTellsAFileThatIsNoWave) {
  Write("a.wav", "RIFF and so on");
  const ProcessResult result = Batch({"peaks", "a.wav"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.error, "a.wav: Failed to load selected wave file. Only uncompressed PCM WAV files are supported.\n");
  EXPECT_EQ(Batch({"peaks", "none.wav"}).error, "none.wav: The file none.wav was not found.\n");
  EXPECT_EQ(Batch({"peaks", "."}).status, 1);
  EXPECT_EQ(Batch({"peaks"}).status, 2);
}

}  // namespace
}  // namespace cuewright::test
