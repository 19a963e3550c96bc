#include "capture/film_row.h"

#include <algorithm>
#include <limits>

namespace cuewright {

FilmRow::FilmRow(CaptionList& list)
    : list_(list), spliced_(list.Spliced.ConnectScoped([this](const Splice&) { known_.reset(); })) {}

Row FilmRow::RowAt(std::int32_t ms) {
  if (!known_ || ms < known_->from || ms >= known_->to) known_ = Find(ms);
  return known_->row;
}

FilmRow::Known FilmRow::Find(std::int32_t ms) const {
  Known known{0, std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()};
  for (Row row = 1; row < list_.Rows(); ++row) {
    const CaptionTimes times = list_.TimesAt(row);
    if (times.end <= times.start) continue;
    if (times.start <= ms && ms < times.end) {
      return {row, std::max<std::int64_t>(known.from, times.start), std::min<std::int64_t>(known.to, times.end)};
    }
    if (times.end <= ms) known.from = std::max<std::int64_t>(known.from, times.end);
    if (times.start > ms) known.to = std::min<std::int64_t>(known.to, times.start);
  }
  return known;
}

}  // namespace cuewright
