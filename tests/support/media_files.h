#pragma once

#include <filesystem>
#include <string>

namespace cuewright::test {

/// Real films and sounds, made by ffmpeg when first asked for, in a folder that goes with the test program.
class MediaFiles {
 public:
  MediaFiles();
  ~MediaFiles();
  MediaFiles(const MediaFiles&) = delete;
  MediaFiles& operator=(const MediaFiles&) = delete;

  const std::filesystem::path& Folder() const { return folder_; }

  /// A film of one colour ("red", "0x204060") with a tone; `seconds` long.
  std::string Film(double seconds, int framesPerSecond = 25, const std::string& color = "red");
  /// The same without sound.
  std::string SilentFilm(double seconds, int framesPerSecond = 25, const std::string& color = "red");
  /// A tone alone.
  std::string Sound(double seconds);
  /// A film whose sound ends (begins) at another second than its picture.
  std::string FilmWithSound(double seconds, double soundStart, double soundLength);

  /// A file with the given bytes.
  std::string File(const std::string& name, const std::string& bytes);

  /// Runs ffmpeg with the arguments and the path of the result behind them, unless that exists already.
  std::string Make(const std::string& name, const std::string& arguments);

 private:
  std::filesystem::path folder_;
};

/// The files of this test program.
MediaFiles& Media();

}  // namespace cuewright::test
