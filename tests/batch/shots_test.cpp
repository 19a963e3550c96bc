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
  // The picture comes after 1292.958 ms: a caption from 1293 on would be there with the next one only.
  EXPECT_EQ(result.out, "31\t1292\tcut\n");
  EXPECT_EQ(Batch({"shots", "--json", "film.mp4"}).out, "{\"frame\":31,\"ms\":1292,\"kind\":\"cut\"}\n");
}

TEST_F(ShellTest, ACaptionFromTheTimeOfACutOnIsBurnedIntoItsPictureFirst) {
  ASSERT_EQ(Shell("ffmpeg -v error -f lavfi -i testsrc2=s=160x90:r=24000/1001:d=2 "
                  "-f lavfi -i mandelbrot=s=160x90:r=24000/1001 -filter_complex "
                  "'[1]trim=end_frame=30[b];[0]trim=end_frame=31[a];[a][b]concat=n=2:v=1' -c:v libx264 -bf 3 film.mp4")
                .status,
            0);
  const std::string line = Batch({"shots", "film.mp4"}).out;
  const std::string ms = line.substr(line.find('\t') + 1, 4);
  Write("a.srt", "1\n00:00:0" + ms.substr(0, 1) + "," + ms.substr(1) + " --> 00:00:02,000\nHere\n\n");
  const std::string hashes =
      "ffmpeg -v error -i film.mp4 -an -f framemd5 - | grep -v ^# >bare;"
      "ffmpeg -v error -i film.mp4 -vf subtitles=a.srt -an -f framemd5 - | grep -v ^# >burned;";
  EXPECT_EQ(Shell(hashes + "cmp -s bare burned && echo same; diff bare burned | grep '^<' | head -1 | cut -d, -f2").out,
            "         31\n");
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
