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
  std::size_t end = 0;    ///< of the line in front of it, without blanks
  std::size_t begin = 0;  ///< of the line behind it
  double cost = 0;        ///< what is lost by a break here, whatever the lines' lengths
  bool forbidden = false;
  bool wanted = false;  ///< another speaker begins here
};

/// Breaks texts into lines at the best of all places: each break and each line has a cost, and the lines whose costs
/// are least in all are taken. What costs most is a line wider than the house's, then a break that the language
/// forbids; then count the speaker, punctuation, phrases, the lengths of the lines and which of them is longer.
class LineBreaker {
 public:
  /// The rules outlive this. Without a number of lines two are made, without a width lines of 42.
  explicit LineBreaker(const HouseRules& rules);
  ~LineBreaker();

  /// A text as it is seen, LF between its lines, broken anew. What fits one line becomes one.
  Text Broken(TextView seen);

  /// The same with this number of lines, where the text has places enough; what a bench asks.
  Text BrokenInto(TextView seen, int lines);

  /// The places of a text without line breaks.
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

/// What breaking these rows anew changes; marks stay at their places.
std::vector<Proposal> ProposeBreaks(const CaptionList& list, std::span<const Row> rows, LineBreaker& breaker);

}  // namespace cuewright
