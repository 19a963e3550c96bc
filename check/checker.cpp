#include "check/checker.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "core/counting.h"
#include "core/numbers.h"
#include "text/visible_length.h"

namespace cuewright {
namespace {

constexpr double kMsASecond = 1000;
constexpr double kMsAMinute = 60000;
constexpr TextView kBlanks = u" \t\u00a0\u3000\n";
/// Hyphen-minus, hyphen, non-breaking hyphen, figure dash, en and em dash, horizontal bar, minus.
constexpr TextView kDashes = u"-\u2010\u2011\u2012\u2013\u2014\u2015\u2212";

constexpr std::array<std::string_view, 15> kNames = {
    "min-duration", "max-duration", "overlap", "gap",  "cps",      "wpm",        "line-length", "length",
    "lines",        "balance",      "pyramid", "dash", "line-end", "shot-start", "shot-end"};

bool IsTimed(const Caption& caption) { return caption.start != 0 || caption.end != 0; }

int WordCount(TextView text) {
  int words = 0;
  bool inside = false;
  for (const char16_t c : text) {
    const bool blank = kBlanks.find(c) != TextView::npos;
    words += !blank && !inside ? 1 : 0;
    inside = !blank;
  }
  return words;
}

/// The beginning of a line that is a dash, with the blanks behind it; empty when it begins with another character.
TextView DashOf(TextView line) {
  if (line.empty() || kDashes.find(line.front()) == TextView::npos) return {};
  const std::size_t end = line.find_first_not_of(kBlanks, 1);
  return line.substr(0, end == TextView::npos ? line.size() : end);
}

TextView LastWord(TextView line) {
  const std::size_t last = line.find_last_not_of(kBlanks);
  if (last == TextView::npos) return {};
  line = line.substr(0, last + 1);
  return line.substr(line.find_last_of(kBlanks) + 1);
}

TextView FirstWord(TextView line) {
  const std::size_t first = line.find_first_not_of(kBlanks);
  if (first == TextView::npos) return {};
  return line.substr(first, line.find_first_of(kBlanks, first) - first);
}

}  // namespace

std::string_view RuleName(CheckRule rule) { return ItemAt(kNames, rule); }

Checker::Checker(const HouseRules& rules, const FrameRate& rate, std::vector<Ms> shots)
    : rules_(rules),
      rate_(rate ? rate : rules.rate),
      shots_(std::move(shots)),
      minDuration_(rules.MsOf(rules.minDuration, rate_)),
      maxDuration_(rules.MsOf(rules.maxDuration, rate_)),
      minGapFrames_(rules.minGap.Given() ? rules.FramesOf(rules.minGap, rate_) : 0) {}

std::vector<Finding> Checker::CheckAll(const CaptionList& list) {
  std::vector<Finding> findings;
  for (Row row = 1; row < list.Rows(); ++row) CheckRow(list, row, findings);
  return findings;
}

void Checker::CheckRow(const CaptionList& list, Row row, std::vector<Finding>& findings) {
  findings_ = &findings;
  row_ = row;
  const Caption& caption = list.At(row);
  CheckTimes(list, row);
  CheckText(caption, VisibleOf(list, caption.text));
  CheckShots(caption);
}

TextView Checker::VisibleOf(const CaptionList& list, const Text& stored) {
  const Text& separator = list.Options().lineSeparator;
  if (MayHaveMarks(stored)) {
    seen_.Take(stored, separator, list.Marks());
    return seen_.View();
  }
  if (FindPlain(stored, separator) == Text::npos) return stored;
  plain_ = ReplaceAll(stored, separator, u"\n");
  return plain_;
}

void Checker::Add(CheckRule rule, double value, double limit) {
  Finding finding;
  finding.row = row_;
  finding.rule = rule;
  finding.value = value;
  finding.limit = limit;
  findings_->push_back(std::move(finding));
}

void Checker::CheckTimes(const CaptionList& list, Row row) {
  const Caption& caption = list.At(row);
  if (!IsTimed(caption)) return;
  const std::int64_t duration = Span(caption.start, caption.end);
  // A time in the file is right to half a frame: a duration that is the least one in frames is long enough.
  const bool tooShort = duration < minDuration_.Wide() &&
                        rate_.FramesOfMs(Ms::Within(duration, 0, Ms::Latest())) < rate_.FramesOfMs(minDuration_);
  if (minDuration_ != 0 && tooShort) Add(CheckRule::MinDuration, ToReal(duration), minDuration_.Count());
  if (maxDuration_ != 0 && duration > maxDuration_.Wide()) {
    Add(CheckRule::MaxDuration, ToReal(duration), maxDuration_.Count());
  }
  if (row > 1 && IsTimed(list.At(row - 1))) CheckNeighbour(list, row);
}

/// The gap in front of a caption is said of the caption behind it.
void Checker::CheckNeighbour(const CaptionList& list, Row row) {
  const Ms end = list.At(row - 1).end;
  const Ms start = list.At(row).start;
  const double gap = ToReal(Span(end, start));
  if (gap < 0) {
    Add(CheckRule::Overlap, -gap, 0);
  } else if (rate_.FramesOfMs(start) - rate_.FramesOfMs(end) < minGapFrames_) {
    Add(CheckRule::Gap, gap, rate_.MsOfFrames(minGapFrames_).Count());
  }
}

void Checker::CheckText(const Caption& caption, TextView visible) {
  lines_.clear();
  lengths_.clear();
  int length = 0;
  for (std::size_t at = 0; at <= visible.size();) {
    const std::size_t end = std::min(visible.find(u'\n', at), visible.size());
    lines_.push_back(visible.substr(at, end - at));
    lengths_.push_back(VisibleLength(lines_.back(), rules_.wideLetters));
    length += lengths_.back();
    at = end + 1;
  }
  CheckSpeed(caption, visible, length);
  if (rules_.characters != 0 && length > rules_.characters) Add(CheckRule::TextLength, length, rules_.characters);
  CheckLines();
  if (!rules_.dash.empty()) CheckDashes();
  if (rules_.breaks.Empty()) return;
  for (std::size_t i = 0; i + 1 < lines_.size(); ++i) CheckLineEnd(lines_[i], lines_[i + 1]);
}

void Checker::CheckSpeed(const Caption& caption, TextView visible, int length) {
  const double duration = ToReal(Span(caption.start, caption.end));
  if (duration <= 0) return;
  const double speed = length * kMsASecond / duration;
  if (const double most = rules_.CharactersIn(duration); most > 0 && length > most) {
    Add(CheckRule::ReadingSpeed, speed, most * kMsASecond / duration);
  }
  if (rules_.wordsAMinute <= 0) return;
  const double words = WordCount(visible) * kMsAMinute / duration;
  if (words > rules_.wordsAMinute) Add(CheckRule::WordRate, words, rules_.wordsAMinute);
}

void Checker::CheckLines() {
  const int count = CountOf(lines_);
  if (rules_.lines != 0 && count > rules_.lines) Add(CheckRule::Lines, count, rules_.lines);
  const int longest = *std::ranges::max_element(lengths_);
  if (rules_.charactersALine != 0 && longest > rules_.charactersALine) {
    Add(CheckRule::LineLength, longest, rules_.charactersALine);
  }
  if (count < 2) return;
  const int shortest = *std::ranges::min_element(lengths_);
  if (shortest * 100 < longest * rules_.balance) Add(CheckRule::Balance, shortest * 100.0 / longest, rules_.balance);
  if (rules_.pyramid == 0) return;
  for (std::size_t i = 0; i + 1 < lengths_.size(); ++i) {
    if (lengths_[i] * 100 <= lengths_[i + 1] * rules_.pyramid) continue;
    Add(CheckRule::Pyramid, lengths_[i] * 100.0 / std::max(lengths_[i + 1], 1), rules_.pyramid);
    return;
  }
}

void Checker::CheckDashes() {
  if (lines_.size() < 2) return;
  for (const TextView line : lines_) {
    const TextView dash = DashOf(line);
    if (dash.empty() || dash == rules_.dash) continue;
    Add(CheckRule::Dash, 0, 0);
    findings_->back().found = dash;
    findings_->back().wanted = rules_.dash;
    return;
  }
}

void Checker::CheckLineEnd(TextView line, TextView next) {
  const TextView last = LastWord(line);
  const TextView first = FirstWord(next);
  if (!rules_.breaks.Forbids(last, first)) return;
  Add(CheckRule::LineEnd, 0, 0);
  findings_->back().found = ToLower(last);
}

void Checker::CheckShots(const Caption& caption) {
  if (shots_.empty() || !rules_.shotZone.Given() || !IsTimed(caption)) return;
  const std::int64_t zone = rules_.FramesOf(rules_.shotZone, rate_);
  const std::int64_t before = rules_.FramesOf(rules_.beforeShot, rate_);
  const auto nearest = [&](Ms ms) {
    const auto behind = std::ranges::lower_bound(shots_, ms);
    if (behind == shots_.begin()) return *behind;
    if (behind == shots_.end() || ms - *(behind - 1) <= *behind - ms) return *(behind - 1);
    return *behind;
  };
  const auto distance = [&](Ms ms) { return rate_.FramesOfMs(ms) - rate_.FramesOfMs(nearest(ms)); };
  const std::int64_t start = distance(caption.start);
  if (start != 0 && std::abs(start) < zone) Add(CheckRule::ShotStart, ToReal(start), 0);
  const std::int64_t end = distance(caption.end);
  if (end != -before && std::abs(end) < zone) Add(CheckRule::ShotEnd, ToReal(end), ToReal(-before));
}

}  // namespace cuewright
