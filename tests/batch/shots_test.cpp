#include "tests/batch/batch_rig.h"

namespace cuewright::test {
namespace {

TEST_F(ShellTest, ShotsTellsFrameTimeAndKind) {
  ASSERT_EQ(Shell("ffmpeg -v error -f lavfi -i testsrc2=s=160x90:r=24000/1001:d=2 "
                  "-f lavfi -i mandelbrot=s=160x90:r=24000/1001 -filter_complex "
                  "'[1]trim=end_frame=30[b];[0]trim=end_frame=31[a];[a][b]concat=n=2:v=1' -c:v libx264 -bf 3 film.mp4")
                .status,
            0);
  const ProcessResult result = Batch({"shots", "film.mp4"});
  EXPECT_EQ(result.status, 0) << result.error;
  EXPECT_EQ(result.out, "31\t1293\tcut\n");
  EXPECT_EQ(Batch({"shots", "--json", "film.mp4"}).out, "{\"frame\":31,\"ms\":1293,\"kind\":\"cut\"}\n");
}

TEST_F(ShellTest, CheckTakesRateAndShotsFromAFilm) {
  ASSERT_EQ(Shell("ffmpeg -v error -f lavfi -i testsrc2=s=160x90:r=50:d=2 -f lavfi -i mandelbrot=s=160x90:r=50 "
                  "-filter_complex '[1]trim=end_frame=100[b];[0]trim=end_frame=100[a];[a][b]concat=n=2:v=1' "
                  "-c:v libx264 film.mp4")
                .status,
            0);
  Write("a.srt",
        "1\n00:00:00,100 --> 00:00:01,920\nIt ends in time.\n\n2\n00:00:02,100 --> 00:00:03,800\nIt begins late.\n\n");
  const ProcessResult result = Batch({"check", "a.srt", "--profile", "streaming-en", "--film", "film.mp4"});
  EXPECT_EQ(result.status, 3) << result.error;
  EXPECT_EQ(result.out, "2\tshot-start\t5\t0\n");
  EXPECT_EQ(Batch({"check", "a.srt", "--profile", "plain", "--film", "a.srt"}).status, 1);
  EXPECT_EQ(Batch({"check", "a.srt", "--profile", "plain", "--film", "film.mp4", "--fps", "25"}).status, 2);
}

TEST_F(ShellTest, ShotsOfWhatIsNoFilmFails) {
  Write("a.txt", "no film\n");
  const ProcessResult result = Batch({"shots", "a.txt"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out, "");
  EXPECT_NE(result.error.find("a.txt"), std::string::npos) << result.error;
  EXPECT_EQ(Batch({"shots", "none.mp4"}).status, 1);
  EXPECT_EQ(Batch({"shots"}).status, 2);
}

}  // namespace
}  // namespace cuewright::test
