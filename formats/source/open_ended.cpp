#include "formats/source/open_ended.h"

#include <algorithm>
#include <utility>

#include "core/best_duration.h"
#include "core/counting.h"

namespace cuewright {

Ms LatestEnd(Ms start, TextView text, const std::array<std::int16_t, 3>& durationPerCharacter) {
  const int length = CountOf(text.substr(0, std::size_t{1} << 20));
  const std::int64_t duration = std::int64_t{length} * durationPerCharacter[LengthClass(length)];
  return Ms::Within(start.Wide() + duration, 0, Ms::Latest());
}

void OpenEnded::HandOn() {
  for (Pending& caption : captions_) {
    stopped_ = stopped_ || !sink_.Add(caption.start, caption.end, std::move(caption.text), caption.record);
  }
  captions_.clear();
}

void OpenEnded::Begin(Ms start, Text text, const SourceRecord& record) {
  anyOpen_ = anyOpen_ || (!captions_.empty() && captions_.back().record.endIsReckoned);
  if (!anyOpen_) HandOn();
  stops_.push_back({start});
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
  Clear(end);
  if (captions_.empty() || !captions_.back().record.endIsReckoned || end <= captions_.back().start) return false;
  SetEnd(end, field);
  Stretch& whole = captions_.back().record.whole;
  whole = Stretch::Between(whole.at, behind);
  return true;
}

void OpenEnded::Clear(Ms at) {
  anyEnds_ = true;
  stops_.push_back({at, true});
}

void OpenEnded::Flush() {
  const auto earlier = [](const Stop& a, const Stop& b) { return a.at < b.at; };
  // Files of songs give a repeated line once, with all its times, so captions don't come in order. Where several stops
  // have the same time, the first one in the file counts.
  if (!std::is_sorted(stops_.begin(), stops_.end(), earlier)) std::stable_sort(stops_.begin(), stops_.end(), earlier);
  for (Pending& caption : captions_) {
    if (!caption.record.endIsReckoned) continue;
    const auto next = std::upper_bound(stops_.begin(), stops_.end(), Stop{caption.start}, earlier);
    caption.end = LatestEnd(caption.start, caption.text, durations_);
    if (next == stops_.end()) continue;
    const bool told = next->clears || lasts_ == Lasts::UntilTheNext;
    if (told || next->at < caption.end) caption.end = next->at;
  }
  HandOn();
  stops_.clear();
  anyOpen_ = false;
}

}  // namespace cuewright
