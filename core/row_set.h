#pragma once

#include <span>
#include <vector>

#include "core/row.h"

namespace cuewright {

/// Rows of the list, each once and in order. Kept as stretches: all rows of a long list cost as much as one.
class RowSet {
 public:
  /// The rows from `first` to `last`, both with them.
  struct Stretch {
    Row first = 0;
    Row last = 0;

    bool operator==(const Stretch&) const = default;
  };

  RowSet() = default;
  explicit RowSet(Row row) : RowSet(row, row) {}
  /// The rows between two, whichever comes first, and these themselves.
  RowSet(Row one, Row other);

  bool Empty() const { return stretches_.empty(); }
  int Count() const;
  bool Has(Row row) const;
  /// The first and the last one; 0 for none.
  Row First() const { return Empty() ? 0 : stretches_.front().first; }
  Row Last() const { return Empty() ? 0 : stretches_.back().last; }
  std::vector<Row> Rows() const;
  std::span<const Stretch> Stretches() const { return stretches_; }

  void Add(Row one, Row other);
  void Remove(Row one, Row other);
  /// Drops what lies behind a row.
  void CutBehind(Row last);

  /// The list has changed: `removed` rows from `first` on gave way to `added`. Rows behind them move with their
  /// captions; of those that changed the first ones are still there.
  void Follow(Row first, int removed, int added);

  bool operator==(const RowSet&) const = default;

 private:
  std::vector<Stretch> stretches_;
};

}  // namespace cuewright
