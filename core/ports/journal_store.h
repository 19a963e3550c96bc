#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/runtime_error.h"
#include "text/text.h"

namespace cuewright {

/// A journal that a program which ended left behind.
struct LeftJournal {
  int id = 0;  ///< for the calls of the store
  std::string bytes;
  std::int64_t changed = 0;  ///< when the file was written last, in ms since 1970
  Text path{};
  std::optional<RuntimeError> unreadable{};  ///< why there are no bytes; empty: all of them are there
  bool told = false;                         ///< the user has heard of this one at a start before
};

/// Keeps the journal of the open document in a file that survives the program. Writing is done elsewhere, in the order
/// of the calls: none of them waits for the disk unless it says so. Payloads become records there.
class JournalStore {
 public:
  virtual ~JournalStore() = default;

  /// Begins the document's journal with its first payload, in place of the one before.
  virtual void Begin(std::string payload) = 0;
  /// Appends a payload and flushes it to the disk. Nothing happens after a failure until the next `Begin`.
  virtual void Append(std::string payload) = 0;
  /// Removes the document's journal.
  virtual void Remove() = 0;
  /// Leaves the document's journal to the next start.
  virtual void Leave() = 0;
  /// True when the document's journal was taken away by others since the last call; it has to begin anew.
  virtual bool TakeLost() = 0;
  /// What went wrong since the last call; empty for nothing.
  virtual std::optional<RuntimeError> TakeFailure() = 0;

  /// The journals of programs that don't run any more, newest first; from now on they belong to this one. Waits.
  virtual std::vector<LeftJournal> TakeLeft() = 0;
  /// Goes on with a left journal as the document's, behind its first `bytes` bytes.
  virtual void Adopt(int id, std::size_t bytes) = 0;
  /// Removes a left journal, or leaves it to the next start.
  virtual void Discard(int id) = 0;
  virtual void LeaveAgain(int id) = 0;
  /// Leaves it as `LeaveAgain` does, and notes that the user has heard of it.
  virtual void LeaveTold(int id) = 0;

  /// Now, in ms since 1970, and such a time as the user reads it.
  virtual std::int64_t Now() const = 0;
  virtual Text LocalTime(std::int64_t ms) const = 0;
  /// When a file was written last; empty when it isn't there.
  virtual std::optional<std::int64_t> ChangedAt(TextView path) const = 0;
};

}  // namespace cuewright
