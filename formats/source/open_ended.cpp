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

bool OpenEnded::End(std::int32_t end, Stretch field, std::size_t behind) {
  if (captions_.empty() || !captions_.back().record.endIsReckoned) return false;
  Pending& last = captions_.back();
  last.end = end;
  last.record.end = field;
  last.record.endIsReckoned = false;
  last.record.whole = Stretch::Between(last.record.whole.at, behind);
  anyEnds_ = true;
  return true;
}

std::int32_t OpenEnded::LatestEnd(const Pending& caption) const {
  constexpr std::int64_t kLatest = std::numeric_limits<std::int32_t>::max();
  const auto length = static_cast<std::int64_t>(std::min(caption.text.size(), std::size_t{1} << 20));
  const std::int64_t duration = length * durations_[LengthClass(static_cast<int>(length))];
  return static_cast<std::int32_t>(std::min(caption.start + duration, kLatest));
}

void OpenEnded::Flush(SourceSink& sink) {
  std::vector<std::int32_t> starts;
  starts.reserve(captions_.size());
  for (const Pending& caption : captions_) starts.push_back(caption.start);
  // Songs name a repeated line once, with all its times.
  if (!std::is_sorted(starts.begin(), starts.end())) std::sort(starts.begin(), starts.end());
  for (Pending& caption : captions_) {
    if (caption.record.endIsReckoned) {
      const auto next = std::upper_bound(starts.begin(), starts.end(), caption.start);
      caption.end = LatestEnd(caption);
      if (next != starts.end()) caption.end = std::min(caption.end, *next);
    }
    if (!sink.Add(caption.start, caption.end, std::move(caption.text), caption.record)) break;
  }
  captions_.clear();
}

}  // namespace cuewright
