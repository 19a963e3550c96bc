#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "check/house_rules.h"
#include "core/caption_list.h"
#include "core/seen_text.h"

namespace cuewright {

/// The rules that a caption can break.
enum class CheckRule : std::uint8_t {
  MinDuration,
  MaxDuration,
  Overlap,
  Gap,
  ReadingSpeed,
  WordRate,
  LineLength,
  TextLength,
  Lines,
  Balance,
  Pyramid,
  Dash,
  LineEnd,
  ShotStart,
  ShotEnd,
};

/// The name of a rule in reports: "min-duration", "cps" and the like.
std::string_view RuleName(CheckRule rule);

/// A rule that a caption breaks. Times are in ms, distances to a shot in frames, balance and pyramid in hundredths.
struct Finding {
  Row row = 0;
  CheckRule rule = CheckRule::MinDuration;
  double value = 0;
  double limit = 0;
  Text found;   ///< for rules about words: the dash or the word that stands there
  Text wanted;  ///< the dash that should stand there

  bool IsOfWords() const { return rule == CheckRule::Dash || rule == CheckRule::LineEnd; }
  bool operator==(const Finding&) const = default;
};

/// Checks captions against house rules. The findings of a caption depend on it and its two neighbours alone, so that
/// after an edit only three captions have to be checked again.
class Checker {
 public:
  /// `rate` is the film's, `shots` the ms at which its shots begin, in order.
  Checker(const HouseRules& rules, const FrameRate& rate, std::vector<Ms> shots = {});

  /// Appends the findings of one caption to `findings`.
  void CheckRow(const CaptionList& list, Row row, std::vector<Finding>& findings);
  /// The findings of all captions, by row.
  std::vector<Finding> CheckAll(const CaptionList& list);

 private:
  /// A stored text as a viewer sees it, with LF between lines; valid until the next call.
  TextView VisibleOf(const CaptionList& list, const Text& stored);
  void CheckTimes(const CaptionList& list, Row row);
  void CheckNeighbour(const CaptionList& list, Row row);
  void CheckText(const Caption& caption, TextView visible);
  void CheckSpeed(const Caption& caption, TextView visible, int length);
  void CheckLines();
  void CheckDashes();
  void CheckLineEnd(TextView line, TextView next);
  void CheckShots(const Caption& caption);
  void Add(CheckRule rule, double value, double limit);

  const HouseRules& rules_;
  FrameRate rate_;
  std::vector<Ms> shots_;
  Ms minDuration_;
  Ms maxDuration_;
  std::int64_t minGapFrames_;
  SeenText seen_;
  Text plain_;
  std::vector<TextView> lines_;
  std::vector<int> lengths_;
  std::vector<Finding>* findings_ = nullptr;
  Row row_ = 0;
};

}  // namespace cuewright
