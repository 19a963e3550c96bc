#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "check/checker.h"
#include "core/caption_list.h"
#include "core/signal.h"

namespace cuewright {

/// What house rules find in the captions of a list, always as they are now. A caption is looked at when it is asked
/// for, and anew only when it or a neighbour has changed: an edit costs the same in a list of any length.
class LiveFindings {
 public:
  explicit LiveFindings(CaptionList& list);

  /// Holds the captions against other rules from now on. `rate` is the film's; none: the rules' own.
  void SetRules(HouseRules rules, const FrameRate& rate, std::vector<Ms> shots = {});
  const HouseRules& Rules() const { return rules_; }
  const FrameRate& Rate() const { return rate_; }

  /// What is found of a caption; nothing for a row out of range.
  const std::vector<Finding>& Of(Row row);
  /// All of it, by row. Looks at every caption that wasn't asked for yet.
  std::vector<Finding> All();
  /// The next row behind this one, beginning again at the first, of which something is found; 0 for none.
  Row Next(Row row);

  /// Something else may be found from the row on, in so many rows.
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
