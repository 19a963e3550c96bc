#include "formats/source/open_ended.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "core/best_duration.h"

namespace cuewright {

void OpenEnded::Begin(std::int32_t start, Text text, const SourceRecord& record) {
  captions_.push_back({start, 0, std::move(text), record});
  captions_.back().record.endIsReckoned = true;
}

void OpenEnded::SetEnd(std::int32_t end, Stretch field) {
  Pending& last = captions_.back();
  last.end = end;
  last.record.end = field;
  last.record.endIsReckoned = false;
  anyEnds_ = true;
}

bool OpenEnded::End(std::int32_t end, Stretch field, std::size_t behind) {
  anyEnds_ = true;
  if (captions_.empty() || !captions_.back().record.endIsReckoned || end <= captions_.back().start) {
    stops_.push_back(end);
    return false;
  }
  SetEnd(end, field);
  Stretch& whole = captions_.back().record.whole;
  whole = Stretch::Between(whole.at, behind);
  return true;
}

std::int32_t OpenEnded::LatestEnd(const Pending& caption) const {
  constexpr std::int64_t kLatest = std::numeric_limits<std::int32_t>::max();
  const auto length = static_cast<std::int64_t>(std::min(caption.text.size(), std::size_t{1} << 20));
  const std::int64_t duration = length * durations_[LengthClass(static_cast<int>(length))];
  return static_cast<std::int32_t>(std::min(caption.start + duration, kLatest));
}

void OpenEnded::Flush(SourceSink& sink) {
  std::vector<std::int32_t> stops = std::move(stops_);
  stops.reserve(stops.size() + captions_.size());
  for (const Pending& caption : captions_) stops.push_back(caption.start);
  // Songs name a repeated line once, with all its times.
  if (!std::is_sorted(stops.begin(), stops.end())) std::sort(stops.begin(), stops.end());
  for (Pending& caption : captions_) {
    if (caption.record.endIsReckoned) {
      const auto next = std::upper_bound(stops.begin(), stops.end(), caption.start);
      caption.end = LatestEnd(caption);
      if (next != stops.end() && (lasts_ == Lasts::UntilTheNext || *next < caption.end)) caption.end = *next;
    }
    if (!sink.Add(caption.start, caption.end, std::move(caption.text), caption.record)) break;
  }
  captions_.clear();
  stops_.clear();
}

}  // namespace cuewright
