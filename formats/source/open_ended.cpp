#include "formats/source/open_ended.h"

#include <algorithm>
#include <utility>

#include "core/best_duration.h"

namespace cuewright {

Ms LatestEnd(Ms start, TextView text, const std::array<std::int16_t, 3>& durationPerCharacter) {
  const auto length = static_cast<std::int64_t>(std::min(text.size(), std::size_t{1} << 20));
  const std::int64_t duration = length * durationPerCharacter[LengthClass(static_cast<int>(length))];
  return Ms::Within(start.Wide() + duration, 0, Ms::Latest());
}

void OpenEnded::Begin(Ms start, Text text, const SourceRecord& record) {
  captions_.push_back({start, 0, std::move(text), record});
  captions_.back().record.endIsReckoned = true;
}

void OpenEnded::SetEnd(Ms end, Stretch field) {
  Pending& last = captions_.back();
  last.end = end;
  last.record.end = field;
  last.record.endIsReckoned = false;
  anyEnds_ = true;
}

bool OpenEnded::End(Ms end, Stretch field, std::size_t behind) {
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

void OpenEnded::Flush(SourceSink& sink) {
  std::vector<Ms> stops = std::move(stops_);
  stops.reserve(stops.size() + captions_.size());
  for (const Pending& caption : captions_) stops.push_back(caption.start);
  // Songs name a repeated line once, with all its times.
  if (!std::is_sorted(stops.begin(), stops.end())) std::sort(stops.begin(), stops.end());
  for (Pending& caption : captions_) {
    if (caption.record.endIsReckoned) {
      const auto next = std::upper_bound(stops.begin(), stops.end(), caption.start);
      caption.end = LatestEnd(caption.start, caption.text, durations_);
      if (next != stops.end() && (lasts_ == Lasts::UntilTheNext || *next < caption.end)) caption.end = *next;
    }
    if (!sink.Add(caption.start, caption.end, std::move(caption.text), caption.record)) break;
  }
  captions_.clear();
  stops_.clear();
}

}  // namespace cuewright
