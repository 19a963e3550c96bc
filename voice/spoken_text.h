#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "core/ports/processes.h"
#include "sound/sound_table.h"
#include "text/text.h"

namespace cuewright {

/// What a synthesiser gave: its rate, and the samples of each line without the silence around it.
struct SpokenLines {
  int samplesASecond = 0;
  std::vector<std::vector<std::int16_t>> lines;  ///< as many as were asked for; empty for one that says nothing
  std::string problem;                           ///< why there are none: one sentence for the user
};

/// Takes the mono wave of many lines apart: they are divided by `pauseMs` of silence each. No lines when the wave has
/// another number of them than `count`.
SpokenLines TakeLinesApart(std::string_view wave, std::size_t count, int pauseMs);

/// Has espeak-ng speak lines of text. It is a program of its own that gets the text as an argument, and needs no sound
/// device.
class TextSpeaker {
 public:
  /// `language` is a code such as "en" or "pt-BR".
  TextSpeaker(Processes& processes, Text language) : processes_(processes), language_(std::move(language)) {}

  /// Speaks the lines, each a text without marks; many at once cost far less than one after the other. `goOn` is asked
  /// between portions and ends it: then lines are empty.
  SpokenLines Speak(std::span<const Text> lines, const std::function<bool()>& goOn = {});

 private:
  SpokenLines SpeakPortion(std::span<const Text> lines);
  /// The wave of a text with marks; empty, with `problem`, when there is none.
  std::string Wave(const Text& marked, std::string& problem);

  Processes& processes_;
  Text language_;
};

/// What is heard of samples every 10 ms; an empty table for a rate below 16,000.
SoundTable TableOfSamples(std::span<const std::int16_t> samples, int samplesASecond);

/// The shape of a sound's spectrum without its loudness: cepstra of the bands, in dB, from the first on.
using Cepstrum = std::array<float, SoundTable::kBands - 1>;
Cepstrum CepstrumOf(const SoundTable::Step& step);

}  // namespace cuewright
