#include "tests/support/media_files.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace cuewright::test {
namespace {

constexpr const char* kPicture = "-c:v libx264 -preset ultrafast -tune zerolatency -g 25 -pix_fmt yuv420p ";

std::string Picture(double seconds, int framesPerSecond, const std::string& color) {
  std::ostringstream text;
  text << "-f lavfi -i color=c=" << color << ":size=320x180:rate=" << framesPerSecond << ":duration=" << seconds << " ";
  return text.str();
}

std::string Tone(double seconds) {
  std::ostringstream text;
  text << "-f lavfi -i sine=frequency=440:duration=" << seconds << " ";
  return text.str();
}

std::string NameOf(const std::string& kind, double seconds, int framesPerSecond, const std::string& color) {
  std::ostringstream text;
  text << kind << "_" << seconds << "s_" << framesPerSecond << "fps_" << color << ".mkv";
  return text.str();
}

}  // namespace

MediaFiles::MediaFiles() {
  std::string pattern = (std::filesystem::temp_directory_path() / "cuewright-media-XXXXXX").string();
  if (!mkdtemp(pattern.data())) throw std::runtime_error("no temporary folder for media files");
  folder_ = pattern;
}

MediaFiles::~MediaFiles() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

std::string MediaFiles::Make(const std::string& name, const std::string& arguments) {
  const std::string path = (folder_ / name).string();
  if (std::filesystem::exists(path)) return path;
  const std::string command = "ffmpeg -v error -nostdin -y " + arguments + "'" + path + "'";
  if (std::system(command.c_str()) != 0) throw std::runtime_error("failed: " + command);
  return path;
}

std::string MediaFiles::Film(double seconds, int framesPerSecond, const std::string& color) {
  return Make(NameOf("film", seconds, framesPerSecond, color),
              Picture(seconds, framesPerSecond, color) + Tone(seconds) + kPicture + "-c:a pcm_s16le ");
}

std::string MediaFiles::SilentFilm(double seconds, int framesPerSecond, const std::string& color) {
  return Make(NameOf("silent", seconds, framesPerSecond, color), Picture(seconds, framesPerSecond, color) + kPicture);
}

std::string MediaFiles::Sound(double seconds) {
  std::ostringstream name;
  name << "sound_" << seconds << "s.wav";
  return Make(name.str(), Tone(seconds) + "-c:a pcm_s16le ");
}

std::string MediaFiles::FilmWithSound(double seconds, double soundStart, double soundLength) {
  std::ostringstream name;
  name << "film_" << seconds << "s_sound_" << soundStart << "_" << soundLength << ".mkv";
  std::ostringstream offset;
  offset << "-itsoffset " << soundStart << " ";
  return Make(name.str(),
              Picture(seconds, 25, "blue") + offset.str() + Tone(soundLength) + kPicture + "-c:a pcm_s16le ");
}

std::string MediaFiles::File(const std::string& name, const std::string& bytes) {
  const std::string path = (folder_ / name).string();
  std::ofstream(path, std::ios::binary) << bytes;
  return path;
}

MediaFiles& Media() {
  static MediaFiles files;
  return files;
}

}  // namespace cuewright::test
