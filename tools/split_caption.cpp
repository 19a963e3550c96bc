#include "tools/split_caption.h"

#include <algorithm>
#include <cmath>

#include "core/counting.h"
#include "core/numbers.h"
#include "tools/pane_text.h"

namespace cuewright {
namespace {

/// How long, in ms, each part stands at least where the caption is long enough.
constexpr Ms kLeastPart = 100;
/// How far a pause may lie from the time that the share of the letters gives.
constexpr Ms kPauseReach = 500;
/// Steps of sound that are weighed together, so that a single quiet one inside a word is no pause.
constexpr std::ptrdiff_t kPauseSteps = 6;

bool IsGap(char16_t c) { return c == u' ' || c == u'\n' || c == u'\u3000'; }

/// Letters of scripts that are written without blanks between words.
bool IsUnspaced(char16_t c) { return (c >= 0x3040 && c <= 0x30FF) || (c >= 0x3400 && c <= 0x9FFF); }

std::ptrdiff_t Letters(TextView text) {
  return std::ranges::count_if(text, [](char16_t c) { return !IsGap(c); });
}

double ShareBefore(TextView text, std::size_t place) {
  const std::ptrdiff_t all = Letters(text);
  return all == 0 ? 0.5 : ToReal(Letters(text.substr(0, place))) / ToReal(all);
}

/// How good a place is, as a number of letters by which it may lie farther from the wanted one.
double Merit(TextView text, std::size_t place) {
  constexpr double kOfLineEnd = 6;
  constexpr double kOfSentenceEnd = 8;
  constexpr double kOfClauseEnd = 4;
  const char16_t last = text[place - 1];
  double merit = text[place] == u'\n' ? kOfLineEnd : 0;
  if (TextView(u".!?\u2026\u3002\uFF01\uFF1F\u061F").find(last) != TextView::npos) merit += kOfSentenceEnd;
  if (TextView(u",;:\u3001\uFF0C\u060C").find(last) != TextView::npos) merit += kOfClauseEnd;
  return merit;
}

/// The best place for a split near a share of the letters; 0 when there is none.
std::size_t BestPlace(TextView text, double share) {
  const double all = ToReal(Letters(text));
  const double wanted = share * all;
  std::size_t best = 0;
  double least = 0;
  double before = 0;
  for (std::size_t place = 0; place < text.size(); ++place) {
    const bool gap = IsGap(text[place]);
    const bool breaks = gap || (before > 0 && IsUnspaced(text[place]) && IsUnspaced(text[place - 1]));
    if (before > 0 && before < all && breaks) {
      const double cost = std::fabs(before - wanted) - Merit(text, place);
      if (best == 0 || cost < least) {
        best = place;
        least = cost;
      }
    }
    if (!gap) ++before;
  }
  return best;
}

struct Parts {
  Text first;
  Text second;
};

/// The two parts as they are stored.
Parts PartsAt(const PaneText& text, std::size_t place) {
  const TextView view = text.View();
  const std::size_t second = std::min(view.find_first_not_of(u" \n", place), view.size());
  const std::size_t firstDash = DashLength(view);
  const std::size_t secondDash = DashLength(view.substr(second));
  // Each of the two speaks alone now.
  const bool dialogue = firstDash != 0 && secondDash != 0 && view.substr(0, place).find(u'\n') == TextView::npos &&
                        view.substr(second).find(u'\n') == TextView::npos;
  return {text.Piece(dialogue ? firstDash : 0, place),
          text.Piece(dialogue ? second + secondDash : second, view.size())};
}

void Divide(CaptionList& list, Row row, Parts parts, Ms ms) {
  Caption first = list.At(row).WithText(std::move(parts.first));
  Caption second{0, 0, std::move(parts.second)};
  if (first.end > first.start) {
    const Ms part = std::min(kLeastPart, (first.end - first.start) / 2);
    second.end = first.end;
    second.start = first.end = std::clamp(ms, first.start + part, first.end - part);
  }
  list.Replace(row, 1, {std::move(first), std::move(second)});
  list.SetModified();
}

}  // namespace

Ms QuietestNear(const Loudness& sound, Ms ms, Ms reach) {
  const std::ptrdiff_t known = std::ssize(sound.levels);
  const auto stepOf = [&](std::int64_t time) { return (time - sound.from.Wide()) / Loudness::kStepMs; };
  const std::ptrdiff_t first = std::max<std::ptrdiff_t>(stepOf(Span(reach, ms)), 0);
  const std::ptrdiff_t last = std::min(stepOf(ms.Wide() + reach.Wide()), known) - kPauseSteps;
  Ms best = ms;
  std::int64_t least = -1;
  for (std::ptrdiff_t step = first; step <= last; ++step) {
    std::int64_t level = 0;
    for (std::ptrdiff_t i = step; i < step + kPauseSteps; ++i) level += ItemAt(sound.levels, i);
    const Ms middle = sound.from + Checked32((2 * step + kPauseSteps) * Loudness::kStepMs / 2).Value();
    if (least < 0 || level < least || (level == least && Abs(middle - ms) < Abs(best - ms))) {
      least = level;
      best = middle;
    }
  }
  return best;
}

bool SplitAtPlace(CaptionList& list, Row row, std::size_t place, const Loudness& sound) {
  const PaneText text(list, row);
  const TextView view = text.View();
  const auto halves = [&](std::size_t at) { return Letters(view.substr(0, at)) > 0 && Letters(view.substr(at)) > 0; };
  if (place >= view.size() || !halves(place)) place = BestPlace(view, 0.5);
  if (place == 0) return false;
  const CaptionTimes times = list.TimesAt(row);
  const std::int64_t duration = Span(times.start, times.end);
  const Ms ms = times.start + Ms::Nearest(ShareBefore(view, place) * ToReal(duration));
  const Ms reach = Ms::Within(duration / 4, 0, kPauseReach);
  Divide(list, row, PartsAt(text, place), QuietestNear(sound, ms, reach));
  return true;
}

bool SplitAtTime(CaptionList& list, Row row, Ms ms) {
  const CaptionTimes times = list.TimesAt(row);
  if (ms <= times.start || ms >= times.end) return false;
  const PaneText text(list, row);
  const double share = ToReal(Span(times.start, ms)) / ToReal(Span(times.start, times.end));
  const std::size_t place = BestPlace(text.View(), share);
  if (place == 0) return false;
  Divide(list, row, PartsAt(text, place), ms);
  return true;
}

}  // namespace cuewright
