#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/journal.h"
#include "core/ports/journal_store.h"

namespace cuewright::testing {

/// A store in memory whose disk the test fills.
struct FakeJournalStore final : JournalStore {
  void Begin(std::string payload) override {
    if (full) {
      failure = RuntimeError{kErrorDiskFull, u"Disk full: x"};
      return;
    }
    ++begun;
    current = std::string(kJournalMagic) + JournalRecord(payload);
    broken = false;
  }
  void Append(std::string payload) override {
    if (full) broken = true, failure = RuntimeError{kErrorDiskFull, u"Disk full: x"};
    if (broken) return;
    ++appended;
    current += JournalRecord(payload);
  }
  void Remove() override { current.clear(); }
  void Leave() override { kept.push_back(std::exchange(current, {})); }
  bool TakeLost() override { return std::exchange(lost, false); }
  std::optional<RuntimeError> TakeFailure() override { return std::exchange(failure, std::nullopt); }
  std::vector<LeftJournal> TakeLeft() override { return std::exchange(left, {}); }
  void Adopt(int id, std::size_t bytes) override {
    adopted = id;
    current = keptBytes.substr(0, bytes);
  }
  void Discard(int id) override { discarded.push_back(id); }
  void LeaveAgain(int id) override { leftAgain.push_back(id); }
  void LeaveTold(int id) override { leftTold.push_back(id); }
  std::int64_t Now() const override { return 1790000000000; }
  Text LocalTime(std::int64_t ms) const override {
    return ms == 1790000000000 ? u"2026-09-21 14:13:20" : u"at " + Decimal(ms);
  }
  std::optional<std::int64_t> ChangedAt(TextView) const override { return fileChanged; }

  std::string current;
  std::string keptBytes;
  int begun = 0;
  int appended = 0;
  int adopted = 0;
  bool full = false;
  bool broken = false;
  bool lost = false;
  std::optional<std::int64_t> fileChanged = 1780000000000;
  std::vector<std::string> kept;  ///< for the next start
  std::vector<int> leftTold;
  std::optional<RuntimeError> failure;
  std::vector<LeftJournal> left;
  std::vector<int> discarded;
  std::vector<int> leftAgain;
};

}  // namespace cuewright::testing
