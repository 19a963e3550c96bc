#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "check/checker.h"
#include "check/line_breaker.h"
#include "core/caption_list.h"
#include "tools/proposal.h"

namespace cuewright {

/// Proposes changes that make captions keep to the house rules: other durations as far as the neighbours let, gaps,
/// lines broken anew, dashes. A proposal mends a finding or makes it smaller, and makes no other finding new or worse.
class Fixer {
 public:
  /// The rules must outlive this.
  Fixer(const HouseRules& rules, const FrameRate& rate, std::vector<Ms> shots = {});

  /// The change that mends one finding, in the caption or the one before it; nothing when no change does.
  std::optional<Proposal> Propose(const CaptionList& list, const Finding& finding);

  /// The changes that mend all findings that can be mended, in the order of rows.
  std::vector<Proposal> ProposeAll(const CaptionList& list);

 private:
  /// Changes that may mend the finding, the best first.
  std::vector<Proposal> Candidates(const CaptionList& list, const Finding& finding);
  void AddLonger(const CaptionList& list, Row row, Ms duration, std::vector<Proposal>& to) const;
  void AddApart(const CaptionList& list, Row row, std::vector<Proposal>& to) const;
  void AddNewText(const CaptionList& list, const Finding& finding, std::vector<Proposal>& to);
  Ms DurationFor(const CaptionList& list, const Finding& finding) const;
  /// Makes the change in the list if it mends the finding and harms nothing; else the list stays as it is.
  bool Try(CaptionList& list, const Finding& finding, const Proposal& proposal);
  std::vector<Finding> FindingsAround(const CaptionList& list, Row row);
  /// Mends the first finding of a row that can be mended; false when there is none.
  bool MendOne(CaptionList& list, Row row);

  const HouseRules& rules_;
  FrameRate rate_;
  std::int64_t gap_;
  Checker checker_;
  LineBreaker breaker_;
};

}  // namespace cuewright
