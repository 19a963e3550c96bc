#include "capture/preview_index.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "core/counting.h"

namespace cuewright {
namespace {

/// The places of the index without a row yet; each is visited once.
class FreePlaces {
 public:
  explicit FreePlaces(std::size_t count) : next_(count + 1) { std::iota(next_.begin(), next_.end(), std::size_t{0}); }

  /// The first free place at or behind one; the count when there is none.
  std::size_t From(std::size_t place) {
    std::size_t found = place;
    while (next_[found] != found) found = next_[found];
    while (next_[place] != found) place = std::exchange(next_[place], found);
    return found;
  }
  void Take(std::size_t place) { next_[place] = place + 1; }

 private:
  std::vector<std::size_t> next_;
};

}  // namespace

PreviewIndex::PreviewIndex(CaptionList& list)
    : list_(list), spliced_(list.Spliced.ConnectScoped([this](const Splice& splice) { OnSplice(splice); })) {}

Row PreviewIndex::RowAt(Ms ms) {
  if (!built_) Build();
  if (!timed_) return 0;
  if (ms < list_.GetCaptionEnd(1)) return 1;
  const auto behind = std::upper_bound(ends_.begin(), ends_.end(), ms);
  if (behind == ends_.begin()) return 0;
  const std::size_t place = behind - ends_.begin() - 1;
  return int{rows_[2 * place + (ends_[place] == ms ? 0 : 1)]};
}

void PreviewIndex::OnSplice(const Splice& splice) {
  if (!built_ || splice.TimesOnly() || splice.removed != splice.added) {
    built_ = false;
    return;
  }
  // An edit of texts alone leaves the index valid, since it depends on times only.
  for (int i = 0; i < splice.added && built_; ++i) {
    const Caption& before = ItemAt(splice.before, i);
    const Caption& now = list_.At(splice.first + i);
    built_ = before.end == now.end && (before.start > 0) == (now.start > 0);
  }
}

void PreviewIndex::Build() {
  built_ = true;
  timed_ = false;
  ends_.clear();
  for (Row row = 1; row < list_.Rows(); ++row) ends_.push_back(list_.GetCaptionEnd(row));
  std::sort(ends_.begin(), ends_.end());
  ends_.erase(std::unique(ends_.begin(), ends_.end()), ends_.end());
  const auto placeOf = [&](Row row) -> std::size_t {
    const auto at = std::lower_bound(ends_.begin(), ends_.end(), list_.GetCaptionEnd(row));
    return 2 * (at - ends_.begin());
  };
  rows_.assign(2 * ends_.size(), 0);
  FreePlaces places(rows_.size());
  // A time belongs to the first caption in the list that fits it.
  for (Row row = 1; row <= list_.Rows() - 2; ++row) {
    if (!list_.IsCaptionTimed(row)) continue;
    timed_ = true;
    if (list_.GetCaptionEnd(row) > list_.GetCaptionEnd(row + 1)) continue;
    const std::size_t last = placeOf(row + 1);
    for (std::size_t at = places.From(placeOf(row)); at <= last; at = places.From(at)) {
      rows_[at] = static_cast<std::int16_t>((row + 1).Number());
      places.Take(at);
    }
  }
}

}  // namespace cuewright
