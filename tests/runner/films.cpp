#include "tests/runner/films.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "core/numbers.h"
#include "tests/support/run_process.h"

namespace cuewright::testing {

std::string Output(const std::vector<std::string>& command) {
  std::vector<std::string> whole = {"/usr/bin/env"};
  whole.insert(whole.end(), command.begin(), command.end());
  const test::ProcessResult result = test::RunProcess(whole);
  EXPECT_EQ(result.status, 0) << command.front() << ": " << result.error;
  return result.out;
}

const std::string& DarkFilm(const std::string& soundCodec, const std::string& size) {
  static const TempFolder folder;
  static std::map<std::string, std::string> made;
  std::string& path = made[soundCodec + size];
  if (!path.empty()) return path;
  path = folder.Bytes("film_" + soundCodec + size + (soundCodec == "libopus" ? ".mkv" : ".avi"));
  Output({"ffmpeg", "-nostdin", "-v", "error", "-f", "lavfi", "-i", "color=c=0x204060:r=25:d=3:s=" + size, "-f",
          "lavfi", "-i", "sine=f=440:r=48000:d=3", "-c:v", "mpeg4", "-q:v", "3", "-c:a", soundCodec, path});
  return path;
}

std::string OneCaption(int charset, const std::string& word) { return Captions({{100, 200}}, charset, word); }

std::string Captions(const std::vector<std::pair<int, int>>& times, int charset, const std::string& word) {
  std::string text =
      "[Script Info]\r\nScriptType: v4.00\r\nPlayResX: 320\r\nPlayResY: 180\r\n\r\n[V4 Styles]\r\n"
      "Format: Name, Fontname, Fontsize, PrimaryColour, SecondaryColour, TertiaryColour, BackColour, Bold, Italic, "
      "BorderStyle, Outline, Shadow, Alignment, MarginL, MarginR, MarginV, AlphaLevel, Encoding\r\n"
      "Style: Default,DejaVu Sans,40,16777215,65535,65535,0,0,0,1,1,0,2,5,5,5,0," +
      std::to_string(charset) +
      "\r\n\r\n[Events]\r\n"
      "Format: Marked, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\r\n";
  const auto clock = [](int hundredths) {
    return "0:00:" + ToUtf8(Padded(hundredths / 100, 2) + u"." + Padded(hundredths % 100, 2));
  };
  for (const auto& [start, end] : times) {
    text += "Dialogue: Marked=0," + clock(start) + "," + clock(end) + ",Default,,0000,0000,0000,," + word + "\r\n";
  }
  return text;
}

std::vector<bool> BrightFrames(const std::string& path) {
  const std::string size = Probe(path, "stream=width,height");
  const std::size_t comma = size.find(',');
  const std::size_t area = std::stoul(size) * std::stoul(size.substr(comma + 1));
  const std::string pixels = Output({"ffmpeg", "-nostdin", "-v", "error", "-i", "file:" + path, "-map", "0:v:0", "-f",
                                     "rawvideo", "-pix_fmt", "gray", "-"});
  std::vector<bool> bright;
  for (std::size_t at = 0; at + area <= pixels.size(); at += area) {
    bright.push_back(std::any_of(pixels.begin() + static_cast<std::ptrdiff_t>(at),
                                 pixels.begin() + static_cast<std::ptrdiff_t>(at + area),
                                 [](char c) { return static_cast<unsigned char>(c) > 200; }));
  }
  return bright;
}

std::string Probe(const std::string& path, const std::string& entries) {
  return Output({"ffprobe", "-v", "error", "-show_entries", entries, "-of", "csv=p=0", "-i", "file:" + path});
}

}  // namespace cuewright::testing
