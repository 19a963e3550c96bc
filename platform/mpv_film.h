#pragma once

#include <string>
#include <vector>

#include "core/ports/player.h"
#include "platform/mpv_core.h"

namespace cuewright {

/// What the library has told of the film that is open.
struct MpvFilm {
  double duration = 0;         ///< seconds; 0: not known
  double framesPerSecond = 0;  ///< 0: not known
  PictureSize picture;
  bool seekable = true;
  int audioTrack = -1;  ///< stream that is heard; -1: none
  std::vector<MpvSoundTrack> soundTracks;

  /// News of other kinds are passed over.
  void Take(const MpvNews& news);
  /// How long a picture stays, in seconds; a usual time where the film doesn't tell.
  double PictureDuration() const;
  std::vector<SoundTrack> Tracks() const;
};

/// Why a path can't be a film; empty when it may be one.
Text ObjectionToFilm(const std::string& path);

/// An absolute path in UTF-8, which is never taken for an address or an option, whatever the file's name.
std::string UnmistakablePath(TextView path);

/// A position as "mm:ss", with hours in front where there are any.
Text PositionText(double seconds);

}  // namespace cuewright
