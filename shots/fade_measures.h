#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "shots/picture_measure.h"
#include "shots/thumbnail.h"

namespace cuewright {

/// Looks for pictures that go over evenly from one shot to another, or to a plain picture and from it.
class FadeMeasurer {
 public:
  FadeMeasurer();

  /// Takes the next picture, whose measure is the last of these, and completes those of pictures before it.
  void Add(const Thumbnail& thumbnail, std::vector<PictureMeasure>& measures);

  /// The last picture has come: measures a fade to black that the film ends in before it is quite black.
  void Finish(std::vector<PictureMeasure>& measures);

  /// Pictures that lie at most between the first and the last one of a fade.
  static constexpr std::size_t kLongest = 64;
  /// Pictures of a window over which a fade is looked for, at most.
  static constexpr std::size_t kMostWindow = 96;

 private:
  static constexpr std::size_t kKept = 128;  ///< pictures that are held; a power of two
  static constexpr std::size_t kParts = 72;

  /// What a picture looks like from afar: the means of 48 parts of its luma and 12 of each chroma plane, in eighths of
  /// a level. Chroma counts twice.
  using Sight = std::array<std::int16_t, kParts>;

  /// Where the pictures of a window lie on the way from one sight to another. What is left over is the sum of squared
  /// distances along that way, by its squared length.
  struct Window {
    std::size_t count = 0;
    std::array<float, kMostWindow> place{};  ///< pictures from the window's first
    std::array<float, kMostWindow> along{};  ///< 0 is at the one sight, 1 at the other
    std::array<float, kMostWindow> aside{};  ///< the squared distance from the way, by its squared length

    /// Drops the pictures that lie far aside when they are few: a flash.
    void DropFew();
    /// How far the pictures lie from the way, by its length.
    float Aside() const;
    /// How much less an even way leaves over than another explanation; 1 is nothing, 0 no less.
    float Gain(float even, float other) const;
    /// What a steady motion leaves over.
    float RestOfLine() const;
    /// What the best step from 0 to 1 leaves over.
    float RestOfStep() const;
    /// What an even way between two places leaves over.
    float RestOfWay(float from, float to) const;
  };

  const Sight& At(std::size_t picture) const { return sights_[picture % kKept]; }
  /// True when a picture has next to no detail beside one of those before it.
  bool IsFaint(std::size_t picture) const;
  Sight MeanOf(std::size_t first, std::size_t last) const;
  /// The mean of a picture and as many before it as stand by themselves at a fade's end.
  const Sight& MeanUpTo(std::size_t last, std::size_t rest) const;
  Window WindowOf(std::size_t first, std::size_t last, const Sight& one, const Sight& other) const;
  /// How much better the pictures fit an even way to a plain picture or from it, from one of them to another, than a
  /// step.
  float GainOfPlainWay(std::size_t first, std::size_t last, const Sight& one, const Sight& other, std::size_t from,
                       std::size_t to) const;
  /// Details of two shots that lie over each other are weaker than those of a picture that moves: 1 when they are as
  /// weak as in a fade, 0 when they aren't.
  float LostDetail(std::size_t first, std::size_t last, std::size_t rest) const;
  void MeasureMix(std::size_t last, std::size_t span, std::vector<PictureMeasure>& measures) const;
  void MeasureFall(std::size_t plain, PictureMeasure& measure) const;
  void MeasureRise(std::size_t last, std::size_t span, std::vector<PictureMeasure>& measures);

  std::vector<Sight> sights_;
  std::vector<std::array<Sight, 4>> means_;  ///< `MeanUpTo` of each picture, for each length of rest
  std::array<float, kKept> details_{};
  std::array<float, kKept> riseGains_{};  ///< of the best rise so far from a picture
};

}  // namespace cuewright
