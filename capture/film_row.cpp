#include "capture/film_row.h"

#include <algorithm>
#include <limits>

namespace cuewright {

FilmRow::FilmRow(CaptionList& list)
    : list_(list), spliced_(list.Spliced.ConnectScoped([this](const Splice&) { known_.reset(); })) {}

Row FilmRow::RowAt(Ms ms) {
  if (!known_ || ms.Wide() < known_->from || ms.Wide() >= known_->to) known_ = Find(ms);
  return known_->row;
}

FilmRow::Known FilmRow::Find(Ms ms) const {
  Known known{0, std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()};
  for (Row row = 1; row < list_.Rows(); ++row) {
    const CaptionTimes times = list_.TimesAt(row);
    if (times.end <= times.start) continue;
    if (times.start <= ms && ms < times.end) {
      return {row, std::max(known.from, times.start.Wide()), std::min(known.to, times.end.Wide())};
    }
    if (times.end <= ms) known.from = std::max(known.from, times.end.Wide());
    if (times.start > ms) known.to = std::min(known.to, times.start.Wide());
  }
  return known;
}

}  // namespace cuewright
