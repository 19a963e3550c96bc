#pragma once

#include <vector>

#include "forms/program.h"

namespace cuewright::testing {

/// All of a document that undo answers for.
struct Snapshot {
  std::vector<Caption> captions;
  Text separator;

  bool operator==(const Snapshot&) const = default;
};

inline Snapshot SnapshotOf(const Program& program) {
  Snapshot snapshot;
  snapshot.separator = program.options.lineSeparator;
  for (Row row = 1; row < program.list.Rows(); ++row) snapshot.captions.push_back(program.list.At(row));
  return snapshot;
}

}  // namespace cuewright::testing
