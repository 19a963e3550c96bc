#include "check/line_breaker.h"

#include <unicode/brkiter.h>
#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <limits>
#include <utility>

#include "check/checker.h"
#include "core/counting.h"
#include "core/seen_text.h"
#include "text/icu_text.h"
#include "text/visible_length.h"

namespace cuewright {
namespace {

constexpr int kUsualWidth = 42;
constexpr int kUsualLines = 2;
constexpr int kMostLines = 6;
/// A text with more places than this isn't a caption; it is left as it is.
constexpr std::size_t kMostPlaces = 120;

constexpr TextView kBlanks = u" \t\u3000";
constexpr TextView kDashes = u"-\u2010\u2011\u2012\u2013\u2014\u2015\u2212";
constexpr TextView kSentenceEnds = u".!?\u2026\u061f\u3002\uff01\uff1f";
constexpr TextView kPauses = u",;:\u060c\u061b\u3001\uff0c\uff1b\uff1a";
constexpr TextView kClosing = u"\"'\u2019\u201d\u00bb)]";

// The cost of a break, by what stands in front of it.
constexpr double kBehindSentence = 0;
constexpr double kBehindPause = 6;
constexpr double kInFrontOfPhrase = 14;
constexpr double kBetweenWords = 26;
constexpr double kInsideName = 22;    ///< more between two words with capitals
constexpr double kInsideNumber = 14;  ///< more behind a number
constexpr double kShortWordBack = 6;  ///< more when a word of up to three letters ends the line
constexpr double kForbidden = 1000;
// The cost of lines.
constexpr double kTooWide = 20000;
constexpr double kTooWideACharacter = 500;
constexpr double kTooMany = 100000;
constexpr double kUneven = 90;  ///< times the square of the part by which a line differs from its share
constexpr double kUpperLonger = 10;
constexpr double kHouseRule = 300;  ///< for lines that the house finds uneven

UChar32 CharacterAt(TextView text, std::size_t at) {
  UChar32 c = 0;
  U16_GET(text.data(), 0, at, text.size(), c);
  return c;
}

/// Scripts that have no blanks between words.
bool IsOfRunningScript(UChar32 c) {
  const int lineClass = u_getIntPropertyValue(c, UCHAR_LINE_BREAK);
  return lineClass == U_LB_IDEOGRAPHIC || lineClass == U_LB_COMPLEX_CONTEXT || lineClass == U_LB_CLOSE_PUNCTUATION ||
         lineClass == U_LB_NONSTARTER || lineClass == U_LB_CONDITIONAL_JAPANESE_STARTER ||
         lineClass == U_LB_OPEN_PUNCTUATION;
}

TextView LastWordOf(TextView line) { return line.substr(line.find_last_of(kBlanks) + 1); }

TextView FirstWordOf(TextView line) { return line.substr(0, line.find_first_of(kBlanks)); }

bool BeginsWithCapital(TextView word) { return !word.empty() && u_isupper(CharacterAt(word, 0)) != 0; }

bool EndsIn(TextView word, TextView set) {
  while (word.size() > 1 && kClosing.find(word.back()) != TextView::npos) word.remove_suffix(1);
  return !word.empty() && set.find(word.back()) != TextView::npos;
}

TextView WithoutBlanks(TextView text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == TextView::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace

/// The library's places between words, made once.
struct LineBreaker::Words {
  std::unique_ptr<icu::BreakIterator> iterator;
};

/// Which places are taken, and what that costs.
struct LineBreaker::Layout {
  std::vector<BreakPlace> breaks;
  double cost = std::numeric_limits<double>::infinity();
};

namespace {

/// How many characters are seen from the text's beginning to the end of the line in front of a place, and to the
/// beginning of the line behind it.
struct LineEdge {
  int end = 0;
  int begin = 0;
};

constexpr double kNoWay = std::numeric_limits<double>::infinity();

/// The best way to a line.
struct Way {
  double cost = kNoWay;
  std::size_t above = 0;  ///< the place behind which the line above begins
};

/// The edges of the text's beginning, of its places and of its end.
std::vector<LineEdge> EdgesOf(TextView flat, std::span<const BreakPlace> places, bool wide) {
  std::vector<LineEdge> edges = {{}};
  for (const BreakPlace& place : places) {
    edges.push_back({VisibleLength(flat.substr(0, place.end), wide), VisibleLength(flat.substr(0, place.begin), wide)});
  }
  const int all = VisibleLength(flat, wide);
  edges.push_back({all, all});
  return edges;
}

/// The places at which the lines of the best layout end, and its cost.
template <class WayTo>
std::pair<std::vector<BreakPlace>, double> Traced(std::span<const BreakPlace> places, int lines, WayTo wayTo) {
  const std::size_t count = places.size() + 1;
  std::size_t to = count;
  std::size_t from = 0;
  double cost = kNoWay;
  for (std::size_t at = 0; at < count; ++at) {
    if (const Way way = wayTo(lines, at, to); way.cost < cost) cost = way.cost, from = at;
  }
  std::vector<BreakPlace> breaks;
  if (cost == kNoWay) return {breaks, cost};
  for (int line = lines; line > 1; --line) {
    breaks.insert(breaks.begin(), places[from - 1]);
    const std::size_t above = wayTo(line, from, to).above;
    to = from;
    from = above;
  }
  return {breaks, cost};
}

/// The stored text with the blanks and line breaks that `broken` has; all other characters are the same in both.
Text WithBreaks(SeenText& seen, TextView broken) {
  constexpr TextView kGaps = u" \t\u3000\n";
  const TextView old = seen.View();
  const auto behindGap = [&](TextView text, std::size_t at) {
    return std::min(text.find_first_not_of(kGaps, at), text.size());
  };
  std::vector<SeenText::Change> changes;
  std::size_t at = 0;
  std::size_t fresh = 0;
  while (at < old.size() || fresh < broken.size()) {
    const std::size_t end = behindGap(old, at);
    const std::size_t freshEnd = behindGap(broken, fresh);
    if (old.substr(at, end - at) != broken.substr(fresh, freshEnd - fresh)) {
      changes.push_back({at, end, Text(broken.substr(fresh, freshEnd - fresh))});
    }
    at = std::min(end + 1, old.size());
    fresh = std::min(freshEnd + 1, broken.size());
  }
  seen.Apply(changes);
  return seen.Stored();
}

}  // namespace

LineBreaker::LineBreaker(const HouseRules& rules)
    : rules_(rules),
      width_(rules.charactersALine != 0 ? rules.charactersALine : kUsualWidth),
      lines_(std::clamp(rules.lines != 0 ? rules.lines : kUsualLines, 1, kMostLines)),
      words_(std::make_unique<Words>()) {
  UErrorCode status = U_ZERO_ERROR;
  const std::string language = ToUtf8(rules.language);
  words_->iterator.reset(icu::BreakIterator::createLineInstance(icu::Locale(language.c_str()), status));
  if (U_FAILURE(status)) words_->iterator.reset();
}

LineBreaker::~LineBreaker() = default;

Text LineBreaker::Joined(TextView seen, std::vector<std::size_t>& speakers) {
  Text flat;
  while (true) {
    const std::size_t end = seen.find(u'\n');
    const TextView line = WithoutBlanks(seen.substr(0, end));
    if (!line.empty()) {
      const bool runs = !flat.empty() && IsOfRunningScript(CharacterAt(flat, flat.size() - 1)) &&
                        IsOfRunningScript(CharacterAt(line, 0));
      if (!flat.empty() && !runs) flat += u' ';
      if (!flat.empty() && kDashes.find(line.front()) != TextView::npos) speakers.push_back(flat.size());
      flat += line;
    }
    if (end == TextView::npos) return flat;
    seen.remove_prefix(end + 1);
  }
}

void LineBreaker::Rate(TextView flat, BreakPlace& place) const {
  const TextView last = LastWordOf(flat.substr(0, place.end));
  const TextView next = FirstWordOf(flat.substr(place.begin));
  place.forbidden = rules_.breaks.Forbids(last, next);
  // A dash that stands by itself belongs to what follows.
  if (last.find_first_not_of(kDashes) == TextView::npos) place.forbidden = true;
  if (EndsIn(last, kSentenceEnds)) {
    place.cost = kBehindSentence;
  } else if (EndsIn(last, kPauses)) {
    place.cost = kBehindPause;
  } else {
    place.cost = rules_.breaks.lineEnds.contains(ToLower(next)) ? kInFrontOfPhrase : kBetweenWords;
    if (BeginsWithCapital(last) && BeginsWithCapital(next)) place.cost += kInsideName;
    if (u_isdigit(CharacterAt(last, last.size() - 1)) != 0) place.cost += kInsideNumber;
    if (VisibleLength(last, false) <= 3) place.cost += kShortWordBack;
  }
  if (place.forbidden) place.cost += kForbidden;
}

std::vector<BreakPlace> LineBreaker::PlacesIn(TextView flat) {
  std::vector<BreakPlace> places;
  if (!words_->iterator) return places;
  const icu::UnicodeString text = Aliased(flat);
  words_->iterator->setText(text);
  for (std::int32_t at = words_->iterator->next(); at != icu::BreakIterator::DONE; at = words_->iterator->next()) {
    const std::size_t begin = at;
    if (begin == 0 || begin >= flat.size()) continue;
    BreakPlace place;
    place.begin = begin;
    const bool blank = kBlanks.find(flat[begin - 1]) != TextView::npos;
    if (!blank && !(IsOfRunningScript(CharacterAt(flat, begin - 1)) && IsOfRunningScript(CharacterAt(flat, begin)))) {
      continue;
    }
    place.end = flat.find_last_not_of(kBlanks, begin - 1) + 1;
    if (place.end == 0) continue;
    Rate(flat, place);
    places.push_back(place);
  }
  return places;
}

double LineBreaker::LineCost(int length, double share) const {
  double cost = 0;
  if (length > width_) cost += kTooWide + kTooWideACharacter * (length - width_);
  const double part = (length - share) / std::max(share, 1.0);
  return cost + kUneven * part * part;
}

double LineBreaker::PairCost(int upper, int lower) const {
  double cost = 0;
  const int longer = std::max(upper, lower);
  if (upper > lower) cost += kUpperLonger * (upper - lower) / std::max(longer, 1);
  if (rules_.pyramid != 0 && upper * 100 > lower * rules_.pyramid) cost += kHouseRule;
  if (rules_.balance != 0 && std::min(upper, lower) * 100 < longer * rules_.balance) cost += kHouseRule;
  return cost;
}

/// The best of all layouts with so many lines. Lines are compared with the one above, so the best way to each line is
/// kept, whatever comes behind it.
LineBreaker::Layout LineBreaker::Best(TextView flat, std::span<const BreakPlace> places, int lines) const {
  const std::size_t count = places.size() + 1;  // the text's end ends a line as well
  const std::vector<LineEdge> edges = EdgesOf(flat, places, rules_.wideLetters);
  const double whole = edges[count].end;
  const double share = whole / lines;
  // For a line that begins behind one place and ends at another: the cost of the layout up to its end, and where the
  // line above begins.
  std::vector<std::vector<Way>> ways(lines + 1, std::vector<Way>((count + 1) * (count + 1)));
  const auto way = [&](int line, std::size_t from, std::size_t to) -> Way& {
    return ItemAt(ways, line)[from * (count + 1) + to];
  };
  for (int line = 1; line <= lines; ++line) {
    for (std::size_t from = line == 1 ? 0 : 1; from < (line == 1 ? 1 : count); ++from) {
      for (std::size_t to = from + 1; to <= count; ++to) {
        // A speaker's first word begins a line.
        if (to - from > 1 && places[to - 2].wanted) break;
        if ((line == lines) != (to == count)) continue;
        const int length = edges[to].end - edges[from].begin;
        Way& best = way(line, from, to);
        const double own = LineCost(length, share) + (to < count ? places[to - 1].cost : 0);
        if (line == 1) best.cost = own;
        for (std::size_t above = 0; line > 1 && above < from; ++above) {
          const double cost =
              way(line - 1, above, from).cost + own + PairCost(edges[from].end - edges[above].begin, length);
          if (cost < best.cost) best = {cost, above};
        }
      }
    }
  }
  auto [breaks, cost] = Traced(places, lines, way);
  return {std::move(breaks), cost};
}

Text LineBreaker::Lay(TextView flat, std::vector<BreakPlace> places, int least, int most) const {
  Layout best;
  for (int lines = least; lines <= most; ++lines) {
    Layout layout = Best(flat, places, lines);
    layout.cost += lines > lines_ ? kTooMany * (lines - lines_) : 0;
    if (layout.cost < best.cost) best = std::move(layout);
    // Fewer lines are better as long as they hold the text.
    if (best.cost < kForbidden) break;
  }
  Text broken(flat);
  for (auto at = best.breaks.rbegin(); at != best.breaks.rend(); ++at) {
    broken.replace(at->end, at->begin - at->end, u"\n");
  }
  return broken;
}

Text LineBreaker::Broken(TextView seen) {
  std::vector<std::size_t> speakers;
  const Text flat = Joined(seen, speakers);
  std::vector<BreakPlace> places = PlacesIn(flat);
  if (flat.empty() || places.size() > kMostPlaces) return Text(seen);
  for (BreakPlace& place : places) {
    if (std::ranges::find(speakers, place.begin) == speakers.end()) continue;
    place.wanted = true;
    place.forbidden = false;
    place.cost = kBehindSentence;
  }
  const int least = CountOf(speakers) + 1;
  return Lay(flat, std::move(places), least, std::max(least, std::min(lines_ + 2, kMostLines)));
}

Text LineBreaker::BrokenInto(TextView seen, int lines) {
  std::vector<std::size_t> speakers;
  const Text flat = Joined(seen, speakers);
  std::vector<BreakPlace> places = PlacesIn(flat);
  if (flat.empty() || places.size() > kMostPlaces) return Text(seen);
  return Lay(flat, std::move(places), lines, lines);
}

std::vector<Proposal> ProposeBreaks(const CaptionList& list, std::span<const Row> rows, LineBreaker& breaker) {
  std::vector<Proposal> proposals;
  SeenText seen;
  for (const Row row : rows) {
    if (!list.InRange(row)) continue;
    const Caption& caption = list.At(row);
    seen.Take(caption.text, list.Options().lineSeparator, list.Marks());
    const Text broken = breaker.Broken(seen.View());
    if (broken == seen.View()) continue;
    proposals.push_back({row, caption.WithText(WithBreaks(seen, broken))});
  }
  return proposals;
}

}  // namespace cuewright
