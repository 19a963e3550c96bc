#include "platform/mpv_film.h"

#include <sys/stat.h>

#include <cerrno>

#include <array>
#include <cmath>
#include <cstdio>
#include <filesystem>

#include "platform/posix_files.h"

namespace cuewright {
namespace {

constexpr double kUsualPicture = 0.04;  // seconds
constexpr double kTicksASecond = 1000;  // some containers tell the ticks of their clock in place of the pictures

}  // namespace

void MpvFilm::Take(const MpvNews& news) {
  switch (news.kind) {
    case MpvNews::Kind::Duration:
      duration = news.number;
      break;
    case MpvNews::Kind::FrameRate:
      framesPerSecond = news.number > 0 && news.number < kTicksASecond ? news.number : 0;
      break;
    case MpvNews::Kind::Width:
      picture.width = static_cast<int>(news.number);
      break;
    case MpvNews::Kind::Height:
      picture.height = static_cast<int>(news.number);
      break;
    case MpvNews::Kind::Seekable:
      seekable = news.flag;
      break;
    case MpvNews::Kind::AudioTrack:
      audioTrack = static_cast<int>(news.number);
      break;
    case MpvNews::Kind::SoundTracks:
      soundTracks = news.tracks;
      break;
    default:
      break;
  }
}

double MpvFilm::PictureDuration() const { return framesPerSecond > 0 ? 1 / framesPerSecond : kUsualPicture; }

std::vector<SoundTrack> MpvFilm::Tracks() const {
  std::vector<SoundTrack> tracks;
  for (const MpvSoundTrack& track : soundTracks) tracks.push_back({track.stream, FromUtf8(track.words)});
  return tracks;
}

std::string UnmistakablePath(TextView path) {
  std::error_code error;
  const std::string asked = ToUtf8(path);
  const std::string absolute = std::filesystem::absolute(asked, error).string();
  return error ? asked : absolute;
}

Text ObjectionToFilm(const std::string& path) {
  struct stat info {};
  if (stat(path.c_str(), &info) != 0) return ErrorOfErrno(errno, FromUtf8(path)).description;
  if (S_ISDIR(info.st_mode)) return u"a folder, not a film";
  if (!S_ISREG(info.st_mode)) return u"a device, not a film";
  return {};
}

Text PositionText(double seconds) {
  const long long whole = std::llround(seconds * 1000) / 1000;
  std::array<char, 32> text{};
  if (whole >= 3600) {
    std::snprintf(text.data(), text.size(), "%lld:%02lld:%02lld", whole / 3600, whole / 60 % 60, whole % 60);
  } else {
    std::snprintf(text.data(), text.size(), "%02lld:%02lld", whole / 60, whole % 60);
  }
  return FromUtf8(text.data());
}

}  // namespace cuewright
