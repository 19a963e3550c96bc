#include "core/word_changes.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace cuewright {
namespace {

/// A word, a dash, or one character between words.
struct Piece {
  std::size_t at = 0;
  TextView text;
  bool isWord = false;
};

/// Two texts of so many pieces each are compared in a moment.
constexpr std::size_t kMostPieces = 600;

constexpr TextView kGaps = u" \t\n\u00a0\u3000";
constexpr TextView kBetweenWords = u" \t\n\u00a0\u3000-\u2010\u2011\u2012\u2013\u2014\u2015";

bool IsGap(char16_t c) { return kGaps.find(c) != TextView::npos; }

bool HaveOneShape(TextView a, TextView b) { return std::ranges::equal(a, b, {}, IsGap, IsGap); }

std::vector<Piece> PiecesOf(TextView text) {
  std::vector<Piece> pieces;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t end = at + 1;
    while (!IsGap(text[at]) && end < text.size() && !IsGap(text[end])) ++end;
    const TextView piece = text.substr(at, end - at);
    pieces.push_back({at, piece, piece.find_first_not_of(kBetweenWords) != TextView::npos});
    at = end;
  }
  return pieces;
}

/// What a common piece is worth: a word always more than the gaps around it.
std::uint32_t WorthOf(const Piece& piece) {
  return piece.isWord ? 4 + static_cast<std::uint32_t>(piece.text.size()) : 1;
}

/// The pieces that both texts have in the same order and that are worth most, as pairs of places in the two lists.
class CommonPieces {
 public:
  CommonPieces(const std::vector<Piece>& old, const std::vector<Piece>& wanted)
      : old_(old), wanted_(wanted), best_((old.size() + 1) * (wanted.size() + 1)) {
    for (std::size_t i = old.size(); i-- > 0;) {
      for (std::size_t j = wanted.size(); j-- > 0;) {
        Best(i, j) = std::max({Best(i + 1, j), Best(i, j + 1), Taken(i, j)});
      }
    }
  }

  std::vector<std::pair<std::size_t, std::size_t>> Pairs() {
    std::vector<std::pair<std::size_t, std::size_t>> pairs;
    for (std::size_t i = 0, j = 0; i < old_.size() && j < wanted_.size();) {
      if (Taken(i, j) == Best(i, j) && old_[i].text == wanted_[j].text) {
        pairs.emplace_back(i++, j++);
      } else if (Best(i + 1, j) == Best(i, j)) {
        ++i;
      } else {
        ++j;
      }
    }
    return pairs;
  }

 private:
  std::uint32_t& Best(std::size_t i, std::size_t j) { return best_[i * (wanted_.size() + 1) + j]; }
  std::uint32_t Taken(std::size_t i, std::size_t j) {
    return old_[i].text == wanted_[j].text ? Best(i + 1, j + 1) + WorthOf(old_[i]) : 0;
  }

  const std::vector<Piece>& old_;
  const std::vector<Piece>& wanted_;
  std::vector<std::uint32_t> best_;
};

/// Nothing where no word is common, or too much would have to be compared.
std::vector<SeenText::Change> ChangesBetweenWords(TextView old, TextView wanted) {
  const std::vector<Piece> from = PiecesOf(old);
  const std::vector<Piece> to = PiecesOf(wanted);
  if (from.size() > kMostPieces || to.size() > kMostPieces) return {};
  const auto pairs = CommonPieces(from, to).Pairs();
  if (std::ranges::none_of(pairs, [&](const auto& pair) { return from[pair.first].isWord; })) return {};
  std::vector<SeenText::Change> changes;
  std::size_t at = 0;
  std::size_t fresh = 0;
  const auto changeUpTo = [&](std::size_t end, std::size_t freshEnd) {
    if (end > at || freshEnd > fresh) changes.push_back({at, end, Text(wanted.substr(fresh, freshEnd - fresh))});
  };
  for (const auto& [i, j] : pairs) {
    changeUpTo(from[i].at, to[j].at);
    at = from[i].at + from[i].text.size();
    fresh = to[j].at + to[j].text.size();
  }
  changeUpTo(old.size(), wanted.size());
  return changes;
}

}  // namespace

std::vector<SeenText::Change> ChangesByWords(TextView old, TextView wanted) {
  const std::size_t shorter = std::min(old.size(), wanted.size());
  std::size_t front = 0;
  while (front < shorter && old[front] == wanted[front]) ++front;
  std::size_t back = 0;
  while (back < shorter - front && old[old.size() - 1 - back] == wanted[wanted.size() - 1 - back]) ++back;
  const auto between = [&](TextView text) { return text.substr(front, text.size() - front - back); };
  const std::vector<SeenText::Change> asOne = {{front, old.size() - back, Text(between(wanted))}};
  const bool withinAWord = std::ranges::none_of(between(old), IsGap) && std::ranges::none_of(between(wanted), IsGap);
  if (withinAWord || HaveOneShape(between(old), between(wanted))) return asOne;
  while (front > 0 && !IsGap(old[front - 1])) --front;
  while (back > 0 && !IsGap(old[old.size() - back])) --back;
  std::vector<SeenText::Change> changes = ChangesBetweenWords(between(old), between(wanted));
  if (changes.empty()) return asOne;
  for (SeenText::Change& change : changes) {
    change.from += front;
    change.to += front;
  }
  return changes;
}

}  // namespace cuewright
