#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <span>
#include <utility>
#include <vector>

namespace cuewright {

/// An ordered store of rows with a gap at the place of the last change, so that changes near each other cost
/// the same in a list of any length.
template <class T>
class RowStore {
 public:
  std::size_t size() const { return items_.size() - GapSize(); }

  const T& operator[](std::size_t at) const { return items_[at < gapBegin_ ? at : at + GapSize()]; }

  T& At(std::size_t at) { return items_[at < gapBegin_ ? at : at + GapSize()]; }

  /// Puts `added` in the place of `count` items from `at` on; returns those that went.
  std::vector<T> Splice(std::size_t at, std::size_t count, std::vector<T> added) {
    std::vector<T> removed;
    if (count == added.size()) {
      removed = std::move(added);
      for (std::size_t i = 0; i < count; ++i) std::swap(removed[i], At(at + i));
      return removed;
    }
    if (count == size()) return Exchange(std::move(added));
    removed.reserve(count);
    MoveGap(at);
    for (std::size_t i = 0; i < count; ++i) {
      removed.push_back(std::move(items_[gapEnd_ + i]));
      items_[gapEnd_ + i] = T();
    }
    gapEnd_ += count;
    if (GapSize() < added.size()) Grow(added.size());
    std::move(added.begin(), added.end(), std::span(items_).subspan(gapBegin_).begin());
    gapBegin_ += added.size();
    return removed;
  }

 private:
  std::size_t GapSize() const { return gapEnd_ - gapBegin_; }

  void MoveGap(std::size_t at) {
    // An empty gap moves without its items: an item moved onto itself would be lost.
    if (gapBegin_ == gapEnd_) {
      gapBegin_ = gapEnd_ = at;
      return;
    }
    while (gapBegin_ > at) items_[--gapEnd_] = std::move(items_[--gapBegin_]);
    while (gapBegin_ < at) items_[gapBegin_++] = std::move(items_[gapEnd_++]);
  }

  /// Takes all items out and puts others in their place, without moving any.
  std::vector<T> Exchange(std::vector<T> added) {
    MoveGap(size());
    items_.resize(gapBegin_);
    gapBegin_ = gapEnd_ = added.size();
    return std::exchange(items_, std::move(added));
  }

  void Grow(std::size_t needed) {
    const std::size_t before = size();
    const std::size_t gap = std::max(needed, before / 4 + 16);
    std::vector<T> items(before + gap);
    std::ranges::move(std::span(items_).first(gapBegin_), items.begin());
    std::ranges::move(std::span(items_).subspan(gapEnd_), std::span(items).subspan(gapBegin_ + gap).begin());
    items_ = std::move(items);
    gapEnd_ = gapBegin_ + gap;
  }

  std::vector<T> items_;
  std::size_t gapBegin_ = 0;
  std::size_t gapEnd_ = 0;
};

}  // namespace cuewright
