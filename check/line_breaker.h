#pragma once

#include <memory>
#include <span>
#include <vector>

#include "check/house_rules.h"
#include "core/caption_list.h"
#include "tools/proposal.h"

namespace cuewright {

/// A place at which a line may end.
struct BreakPlace {
  std::size_t end = 0;    ///< where the line in front of the break ends, without blanks
  std::size_t begin = 0;  ///< where the line behind the break begins
  double cost = 0;        ///< how bad a break is here, apart from the lengths of the lines
  bool forbidden = false;
  bool wanted = false;  ///< another speaker begins here
};

/// Breaks texts into lines at the best of all places: each break and each line has a cost, and the lines whose costs
/// are least in all are taken. What costs most is a line wider than the house's, then a break that the language
/// forbids; then count the speaker, punctuation, phrases, the lengths of the lines and which of them is longer.
class LineBreaker {
 public:
  /// The rules must outlive this. Where they state no number of lines it is two, and where they state no width it
  /// is 42.
  explicit LineBreaker(const HouseRules& rules);
  ~LineBreaker();

  /// A text as a viewer sees it, with LF between its lines, broken anew. A text that fits one line becomes one line.
  Text Broken(TextView seen);

  /// The same with a given number of lines, as far as the text has places for them; for benches.
  Text BrokenInto(TextView seen, int lines);

  /// The places at which a text without line breaks may be broken.
  std::vector<BreakPlace> PlacesIn(TextView flat);

 private:
  struct Words;
  struct Layout;

  /// The lines of a text joined, and where a new speaker begins in it.
  static Text Joined(TextView seen, std::vector<std::size_t>& speakers);
  void Rate(TextView flat, BreakPlace& place) const;
  double LineCost(int length, double share) const;
  double PairCost(int upper, int lower) const;
  Layout Best(TextView flat, std::span<const BreakPlace> places, int lines) const;
  Text Lay(TextView flat, std::vector<BreakPlace> places, int least, int most) const;

  const HouseRules& rules_;
  int width_;
  int lines_;
  std::unique_ptr<Words> words_;
};

/// The changes that breaking these rows anew would make; marks stay at their places.
std::vector<Proposal> ProposeBreaks(const CaptionList& list, std::span<const Row> rows, LineBreaker& breaker);

}  // namespace cuewright
