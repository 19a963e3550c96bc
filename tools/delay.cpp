#include "tools/delay.h"

#include <algorithm>
#include <vector>

namespace cuewright {
namespace {

std::int64_t Shifted(Ms ms, Ms delay) { return ms.Wide() + delay.Wide(); }

/// A time as the list stores it: a negative one is 0.
Ms Stored(std::int64_t ms) { return Ms::Within(ms, 0, Ms::Latest()); }

}  // namespace

int CountBelowZero(const CaptionList& list, Ms delay) {
  int count = 0;
  for (Row row = 1; row < list.Rows(); ++row) {
    if (list.IsCaptionTimed(row) && Shifted(list.GetCaptionStart(row), delay) < 0) ++count;
  }
  return count;
}

void ShiftCaptions(CaptionList& list, Ms delay) {
  std::vector<CaptionTimes> times;
  times.reserve(list.Count());
  bool any = false;
  for (Row row = 1; row < list.Rows(); ++row) {
    CaptionTimes own = list.TimesAt(row);
    if (own.start > 0) {
      any = true;
      const bool below = Shifted(own.start, delay) < 0;
      own = below ? CaptionTimes{} : CaptionTimes{Stored(Shifted(own.start, delay)), Stored(Shifted(own.end, delay))};
    }
    times.push_back(own);
  }
  if (!any) return;
  const EditScope scope(list, EditKind::Delay);
  list.Retime(1, times);
  list.SetModified();
}

void ClearAllTiming(CaptionList& list) {
  const EditScope scope(list, EditKind::ResetTiming);
  std::vector<CaptionTimes> times(list.Count());
  list.Retime(1, times);
  list.SetModified();
}

}  // namespace cuewright
