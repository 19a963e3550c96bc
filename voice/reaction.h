#pragma once

#include <algorithm>
#include <cmath>

namespace cuewright {

/// How late the hand of a person is who holds a key while somebody speaks, in ms. The lateness of presses has a normal
/// logarithm; that of releases is normal itself, so that they may be early.
struct Reaction {
  double start = 220;       ///< the median of presses
  double startSigma = 0.3;  ///< the spread of their logarithms
  double end = 200;         ///< the median of releases
  double endSpread = 110;   ///< their standard deviation
  bool known = true;        ///< false: the person was not measured, and hands are rather late than early

  bool operator==(const Reaction&) const = default;

  static Reaction Unknown() { return {150, 0.3, 150, 250, false}; }

  /// The log likelihood of a press that is late by so many ms, up to a constant. A second, wider law keeps a press
  /// that came by foresight possible.
  double StartLikelihood(double late) const {
    if (!known) return EndLikelihood(late);
    const double usual = late > 1 ? std::exp(-0.5 * Square(std::log(late / Least(start)) / (startSigma * 1.1))) : 0;
    const double other = std::exp(-0.5 * Square((late - start) / (0.35 * Least(start))));
    return std::log(0.5 * usual + 0.5 * other + 1e-4);
  }

  /// The log likelihood of a release that is late by so many ms, up to a constant.
  double EndLikelihood(double late) const { return std::log(std::exp(-0.5 * Square((late - end) / endSpread)) + 1e-3); }

 private:
  static double Square(double value) { return value * value; }
  static double Least(double median) { return std::max(median, 60.0); }
};

}  // namespace cuewright
