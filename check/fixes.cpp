#include "check/fixes.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/numbers.h"
#include "core/seen_text.h"

namespace cuewright {
namespace {

constexpr double kMsASecond = 1000;

/// How far a finding is from what the rule wants; 1 for a rule that is either broken or kept.
double ExcessOf(const Finding& finding) {
  return finding.IsOfWords() ? 1 : std::max(std::abs(finding.value - finding.limit), 0.001);
}

/// The findings of one rule in a row, as one number. Several of a rule, such as two lines that end badly, add up.
double ExcessOf(const std::vector<Finding>& findings, Row row, CheckRule rule) {
  double excess = 0;
  for (const Finding& finding : findings) {
    if (finding.row == row && finding.rule == rule) excess += ExcessOf(finding);
  }
  return excess;
}

bool HarmsNothing(const std::vector<Finding>& before, const std::vector<Finding>& after) {
  return std::ranges::all_of(after, [&](const Finding& finding) {
    return ExcessOf(after, finding.row, finding.rule) <= ExcessOf(before, finding.row, finding.rule) + 1e-6;
  });
}

/// A list of its own with some rows of another.
struct Copy {
  Copy(const CaptionList& list, Row first, Row last) : rows(list.Options(), modified) {
    rows.SetMarks(list.Marks());
    std::vector<Caption> captions;
    captions.reserve(last.Index() - first.Index() + 1);
    for (Row row = first; row <= last; ++row) captions.push_back(list.At(row));
    rows.Replace(1, 1, std::move(captions));
  }

  bool modified = false;
  CaptionList rows;
};

constexpr TextView kDashes = u"-\u2010\u2011\u2012\u2013\u2014\u2015\u2212";

/// The dashes that begin lines as the house wants them.
Text WithDashes(SeenText& seen, TextView dash) {
  const TextView text = seen.View();
  std::vector<SeenText::Change> changes;
  for (std::size_t at = 0; at < text.size(); at = std::min(text.find(u'\n', at), text.size() - 1) + 1) {
    if (kDashes.find(text[at]) == TextView::npos) continue;
    const std::size_t end = std::min(text.find_first_not_of(u" \t\u00a0", at + 1), text.size());
    if (text.substr(at, end - at) != dash) changes.push_back({at, end, Text(dash)});
  }
  seen.Apply(changes);
  return seen.Stored();
}

/// The last end in front of a start that leaves so many frames between them.
Ms EndBefore(Ms start, std::int64_t gap, const FrameRate& rate) {
  const Ms end = start - rate.MsOfFrames(gap);
  const std::int64_t frames = rate.FramesOfMs(start) - gap;
  // So many ms may be a frame less where both times are rounded.
  return rate.FramesOfMs(end) <= frames ? end : rate.MsOfFrames(frames);
}

/// The first start behind an end that leaves so many frames between them.
Ms StartBehind(Ms end, std::int64_t gap, const FrameRate& rate) {
  const Ms start = end + rate.MsOfFrames(gap);
  const std::int64_t frames = rate.FramesOfMs(end) + gap;
  return rate.FramesOfMs(start) >= frames ? start : rate.MsOfFrames(frames);
}

}  // namespace

Fixer::Fixer(const HouseRules& rules, const FrameRate& rate, std::vector<Ms> shots)
    : rules_(rules),
      rate_(rate ? rate : rules.rate),
      gap_(rules.minGap.Given() ? rules.FramesOf(rules.minGap, rate_) : 0),
      checker_(rules, rate_, std::move(shots)),
      breaker_(rules) {}

/// The least duration that the rule of the finding lets through.
Ms Fixer::DurationFor(const CaptionList& list, const Finding& finding) const {
  if (finding.rule == CheckRule::MinDuration) return Ms::Nearest(finding.limit);
  const Caption& caption = list.At(finding.row);
  const double now = ToReal(Span(caption.start, caption.end));
  const double duration = finding.rule == CheckRule::ReadingSpeed ? rules_.MsFor(finding.value * now / kMsASecond)
                                                                  : now * finding.value / finding.limit;
  return Ms::Nearest(std::ceil(std::min(duration, 1e8)));
}

/// Later ends first, as far as the next caption lets; then an earlier start as well, since that leaves the sound.
void Fixer::AddLonger(const CaptionList& list, Row row, Ms duration, std::vector<Proposal>& to) const {
  const Caption& caption = list.At(row);
  std::int64_t lastEnd = caption.start.Wide() + duration.Wide();
  if (row + 1 < list.Rows() && list.At(row + 1).start > 0) {
    lastEnd = std::min(lastEnd, EndBefore(list.At(row + 1).start, gap_, rate_).Wide());
  }
  Caption longer = caption;
  longer.end = Ms::Within(lastEnd, caption.end, Ms::Latest());
  const bool enough = longer.end - caption.start >= duration;
  if (!enough) {
    Caption earlier = longer;
    const Ms first = row > 1 ? StartBehind(list.At(row - 1).end, gap_, rate_) : 0;
    earlier.start = std::min(caption.start, std::max(first, longer.end - duration));
    if (earlier.start != caption.start) to.push_back({row, earlier});
  }
  if (longer.end != caption.end) to.push_back({row, longer});
}

/// The caption before ends earlier, or this one starts later.
void Fixer::AddApart(const CaptionList& list, Row row, std::vector<Proposal>& to) const {
  Caption before = list.At(row - 1);
  Caption caption = list.At(row);
  if (const Ms end = EndBefore(caption.start, gap_, rate_); end > before.start) {
    Caption shorter = before;
    shorter.end = end;
    to.push_back({row - 1, shorter});
  }
  if (const Ms start = StartBehind(before.end, gap_, rate_); start < caption.end) {
    caption.start = start;
    to.push_back({row, caption});
  }
}

void Fixer::AddNewText(const CaptionList& list, const Finding& finding, std::vector<Proposal>& to) {
  if (finding.rule != CheckRule::Dash) {
    const Row rows[] = {finding.row};
    for (Proposal& proposal : ProposeBreaks(list, rows, breaker_)) to.push_back(std::move(proposal));
    return;
  }
  const Caption& caption = list.At(finding.row);
  SeenText seen;
  seen.Take(caption.text, list.Options().lineSeparator, list.Marks());
  to.push_back({finding.row, caption.WithText(WithDashes(seen, rules_.dash))});
}

std::vector<Proposal> Fixer::Candidates(const CaptionList& list, const Finding& finding) {
  std::vector<Proposal> candidates;
  Caption changed = list.At(finding.row);
  const auto frames = [&](Ms ms, double by) { return rate_.MsOfFrames(rate_.FramesOfMs(ms) - std::llround(by)); };
  switch (finding.rule) {
    case CheckRule::MinDuration:
    case CheckRule::ReadingSpeed:
    case CheckRule::WordRate:
      AddLonger(list, finding.row, DurationFor(list, finding), candidates);
      break;
    case CheckRule::MaxDuration:
      changed.end = changed.start + Ms::Nearest(finding.limit);
      candidates.push_back({finding.row, changed});
      break;
    case CheckRule::Overlap:
    case CheckRule::Gap:
      AddApart(list, finding.row, candidates);
      break;
    case CheckRule::ShotStart:
      changed.start = frames(changed.start, finding.value - finding.limit);
      candidates.push_back({finding.row, changed});
      break;
    case CheckRule::ShotEnd:
      changed.end = frames(changed.end, finding.value - finding.limit);
      candidates.push_back({finding.row, changed});
      break;
    case CheckRule::TextLength:
      break;  // only a person can say it in fewer words
    default:
      AddNewText(list, finding, candidates);
  }
  return candidates;
}

std::vector<Finding> Fixer::FindingsAround(const CaptionList& list, Row row) {
  std::vector<Finding> findings;
  for (Row each = std::max<Row>(row - 1, 1); each <= std::min(row + 1, list.Rows() - 1); ++each) {
    checker_.CheckRow(list, each, findings);
  }
  return findings;
}

bool Fixer::Try(CaptionList& list, const Finding& finding, const Proposal& proposal) {
  if (!proposal.after || proposal.after->start > proposal.after->end || proposal.after->start < 0) return false;
  const std::vector<Finding> before = FindingsAround(list, proposal.row);
  const Caption old = list.At(proposal.row);
  list.Replace(proposal.row, 1, {*proposal.after});
  const std::vector<Finding> after = FindingsAround(list, proposal.row);
  const bool mends = ExcessOf(after, finding.row, finding.rule) < ExcessOf(before, finding.row, finding.rule) - 1e-6;
  if (mends && HarmsNothing(before, after)) return true;
  list.Replace(proposal.row, 1, {old});
  return false;
}

std::optional<Proposal> Fixer::Propose(const CaptionList& list, const Finding& finding) {
  if (!list.InRange(finding.row)) return {};
  // Findings of a caption and of the one before it depend on these rows alone.
  const Row first = std::max<Row>(finding.row - 2, 1);
  Copy copy(list, first, std::min(finding.row + 1, list.Rows() - 1));
  Finding here = finding;
  here.row = finding.row - first + 1;
  for (const Proposal& candidate : Candidates(copy.rows, here)) {
    if (Try(copy.rows, here, candidate)) return Proposal{candidate.row + (first - 1).Number(), candidate.after};
  }
  return {};
}

bool Fixer::MendOne(CaptionList& list, Row row) {
  std::vector<Finding> findings;
  checker_.CheckRow(list, row, findings);
  return std::ranges::any_of(findings, [&](const Finding& finding) {
    const std::vector<Proposal> candidates = Candidates(list, finding);
    return std::ranges::any_of(candidates, [&](const Proposal& each) { return Try(list, finding, each); });
  });
}

std::vector<Proposal> Fixer::ProposeAll(const CaptionList& list) {
  // A change leaves less to mend each time; the number bounds what is mended in small steps.
  constexpr int kMostChanges = 12;
  Copy copy(list, 1, list.Rows() - 1);
  for (Row row = 1; row < copy.rows.Rows(); ++row) {
    for (int changes = 0; changes < kMostChanges && MendOne(copy.rows, row); ++changes) {
    }
  }
  std::vector<Proposal> proposals;
  for (Row row = 1; row < list.Rows(); ++row) {
    if (!(copy.rows.At(row) == list.At(row))) proposals.push_back({row, copy.rows.At(row)});
  }
  return proposals;
}

}  // namespace cuewright
