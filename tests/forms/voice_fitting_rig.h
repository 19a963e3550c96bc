#pragma once

#include <chrono>
#include <string>
#include <thread>

#include "forms/voice_fitting.h"
#include "tests/support/program_fixture.h"

namespace cuewright::testing {

/// A film in which somebody speaks four times, and captions that were held for that, each late.
struct VoiceFittingTest : ProgramFixture {
  VoiceFittingTest() {
    std::string held;
    for (const int start : kStarts) {
      const auto clock = [](int ms) {
        return "00:00:" + std::to_string(100 + ms / 1000).substr(1) + "," + std::to_string(1000 + ms % 1000).substr(1);
      };
      held += "1\r\n" + clock(start + 210) + " --> " + clock(start + kLength + 190) + "\r\nWords\r\n\r\n";
    }
    program->documentFiles.OpenSubtitleFile(folder.Write("a.srt", held));
    Play(folder.Write("film.mkv", "x"));
  }

  /// The sound of the film as the decoder gives it, a buzz where somebody speaks.
  static std::string Samples() {
    std::string bytes;
    unsigned noise = 1;
    for (int sample = 0; sample < 24 * kSamplesASecond; ++sample) {
      const int ms = static_cast<int>(std::int64_t{sample} * 1000 / kSamplesASecond);
      bool spoken = false;
      for (const int start : kStarts) spoken = spoken || (ms >= start && ms < start + kLength);
      noise = noise * 1664525 + 1013904223;
      const int value = static_cast<int>(noise >> 27) + (spoken ? (sample % 157) * 50 - 4000 : 0);
      bytes += static_cast<char>(value & 0xFF);
      bytes += static_cast<char>((value >> 8) & 0xFF);
    }
    return bytes;
  }

  /// The decoder gives the sound and ends, and the search is waited for.
  void Hear(const std::string& samples, int status = 0) {
    processes.runs.back()->output = samples;
    processes.runs.back()->status = status;
    WaitForSearch();
  }
  void WaitForSearch() {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (Window().tmrFit.Enabled() && std::chrono::steady_clock::now() < end) {
      Window().tmrFit.Pass();
      std::this_thread::yield();
    }
    ASSERT_FALSE(Window().tmrFit.Enabled());
  }

  /// A caption that was held, and the sure fit of it.
  FitMove KeptFit(Row row) {
    program->fitMarks.Hold(row);
    FitMove move{row, program->list.TimesAt(row), *program->fitMarks.Find(row)};
    move.mark.fitted = {move.before.start + 30, move.before.end - 10};
    move.mark.startMoved = move.mark.endMoved = true;
    move.mark.startConfidence = move.mark.endConfidence = 0.9;
    return move;
  }
  Ms StartOf(Row row) const { return program->list.GetCaptionStart(row); }
  Text Told() { return Window().lblNotice.GetText(); }

  static constexpr int kLength = 2000;
  static constexpr int kStarts[] = {2000, 7000, 12000, 17000};
};

}  // namespace cuewright::testing
