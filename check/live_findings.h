#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "check/checker.h"
#include "core/caption_list.h"
#include "core/signal.h"

namespace cuewright {

/// The findings of house rules in the captions of a list, always up to date. A caption is checked when it is asked for,
/// and again only after it or a neighbour has changed, so that an edit costs the same in a list of any length.
class LiveFindings {
 public:
  explicit LiveFindings(CaptionList& list);

  /// Checks the captions by other rules from now on. `rate` is the film's; without one the rules' own rate is used.
  void SetRules(HouseRules rules, const FrameRate& rate, std::vector<Ms> shots = {});
  const HouseRules& Rules() const { return rules_; }
  const FrameRate& Rate() const { return rate_; }

  /// The findings of a caption; none for a row out of range.
  const std::vector<Finding>& Of(Row row);
  /// All findings, by row. Checks every caption that has no valid findings yet.
  std::vector<Finding> All();
  /// The next row with a finding behind this one, going on at the first row after the last; 0 when there is none.
  Row Next(Row row);

  /// The findings may have changed in so many rows from this one on.
  Signal<LiveFindings, Row, int> Changed;

 private:
  void OnSplice(const Splice& splice);
  void Forget();

  CaptionList& list_;
  HouseRules rules_;
  FrameRate rate_;
  std::unique_ptr<Checker> checker_;
  std::vector<std::optional<std::vector<Finding>>> rows_;  ///< of each caption, the first at 0
  const std::vector<Finding> nothing_;
};

}  // namespace cuewright
