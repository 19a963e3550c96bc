#pragma once

#include "audio/audio_bar.h"
#include "core/caption_time.h"
#include "tests/support/program_fixture.h"
#include "tests/support/wave_pictures.h"

namespace cuewright::testing {

inline constexpr std::int32_t kCyan = 0xFFFF00;

inline constexpr std::int32_t kTick = 0xAFAF00;

inline constexpr std::int32_t kGrey = 0x808080;

inline constexpr std::int32_t kBlack = 0;

struct AudioBarRig : ProgramFixture {
  AudioBarRig() { program->audioBar.SetView(&view); }
  ~AudioBarRig() override { program.reset(); }

  /// A wave of 16 bits and 800 samples a second: 16 bytes a column, each with one sample that counts. `level` tells the
  /// sample of a column.
  template <class Level>
  Text Wave(int columns, Level level, const std::string& name = "a.wav") {
    const auto number = [](unsigned value, int size) {
      std::string bytes;
      for (int i = 0; i < size; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFF);
      return bytes;
    };
    std::string data;
    // The last 44 bytes, as many as the header has, are never looked at.
    for (int i = 0; i < columns + 3; ++i) {
      data += number(static_cast<std::uint16_t>(level(i)), 2) + std::string(14, '\0');
    }
    const auto size = static_cast<unsigned>(data.size());
    return folder.Write(name, "RIFF" + number(36 + size, 4) + "WAVEfmt " + number(16, 4) + number(1, 2) + number(1, 2) +
                                  number(800, 4) + number(1600, 4) + number(2, 2) + number(16, 2) + "data" +
                                  number(size, 4) + data);
  }
  Text Flat(int columns, int level = 0) {
    return Wave(columns, [level](int) { return level; });
  }
  AudioBar& Bar() { return program->audioBar; }
  const WaveMarks& Marks() { return Bar().Marks(); }
  void Load(const Text& wave) { Bar().LoadWaveFile(wave); }
  /// Three captions: 1.1 to 1.9 s, 2.1 to 2.9 s, 3.1 to 3.9 s; a film that plays, and a wave.
  void OpenAll(int columns = 2000) {
    program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
    Play(folder.Write("film.mkv", "x"));
    Load(Flat(columns));
    List().SetRow(1, false);
  }
  void At(std::int32_t ms) {
    program->sample.SetPlayerPosMs(ms);
    Window().tmrWave.Pass();
  }
  void Drag(int from, int to) {
    Bar().OnPress(MouseButton::Right, from);
    Bar().OnMove(MouseButton::Right, to);
    Bar().OnRelease(MouseButton::Right);
  }
  std::pair<int, int> Times(Row row) {
    return {List().GetCaptionStart(row).Count(), List().GetCaptionEnd(row).Count()};
  }

  PixelView view;
};

}  // namespace cuewright::testing
