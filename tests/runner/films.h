#pragma once

#include <string>
#include <utility>
#include <vector>

#include "tests/support/temp_folder.h"

namespace cuewright::testing {

/// A dark film of so many seconds, 25 pictures a second, with the sound that the codec gives; made once.
const std::string& DarkFilm(const std::string& soundCodec = "libmp3lame", const std::string& size = "320x180");

/// The bytes of a subtitle that says a word from 1 to 2 seconds.
std::string OneCaption(int charset = 0, const std::string& word = "Word");

/// The bytes of one that says a word between each two times in hundredths of a second.
std::string Captions(const std::vector<std::pair<int, int>>& times, int charset = 0, const std::string& word = "Word");

/// For each picture of a film whether something in it is nearly white.
std::vector<bool> BrightFrames(const std::string& path);

/// What ffprobe tells of the entries ("stream=codec_name,width"), a stream a line.
std::string Probe(const std::string& path, const std::string& entries);

/// Runs a program that is looked for as a shell does; its output. Fails the test when it fails.
std::string Output(const std::vector<std::string>& command);

}  // namespace cuewright::testing
