#pragma once

#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>
#include <string>
#include <thread>

#include "core/ports/journal_store.h"
#include "platform/descriptor.h"

namespace cuewright {

/// Journals as files of the user's own in one folder. The file of a running program is locked, so that no other takes
/// it for one that was left behind; a thread of its own writes and flushes.
class JournalFiles final : public JournalStore {
 public:
  /// The folder is made when the first journal begins. An empty path keeps no journals.
  explicit JournalFiles(Text folder);
  /// Waits until everything is on the disk.
  ~JournalFiles() override;
  JournalFiles(const JournalFiles&) = delete;
  JournalFiles& operator=(const JournalFiles&) = delete;

  void Begin(std::string payload) override;
  void Append(std::string payload) override;
  void Remove() override;
  void Leave() override;
  bool TakeLost() override;
  std::optional<RuntimeError> TakeFailure() override;
  std::vector<LeftJournal> TakeLeft() override;
  void Adopt(int id, std::size_t bytes) override;
  void Discard(int id) override;
  void LeaveAgain(int id) override;
  void LeaveTold(int id) override;
  std::int64_t Now() const override;
  Text LocalTime(std::int64_t ms) const override;
  std::optional<std::int64_t> ChangedAt(TextView path) const override;

  /// Waits until the disk has all that was asked for by now.
  void Wait();

 private:
  /// An open and locked file.
  struct File {
    Descriptor fd;
    std::string path;
  };
  struct Job {
    enum class Kind { Begin, Append, Remove, Leave, Adopt } kind = Kind::Append;
    std::string payload;
    File file;
    std::size_t bytes = 0;
  };

  void Ask(Job job);
  void Run();
  void Do(std::deque<Job>& jobs);
  void DoBegin(const std::string& payload);
  void DoAppend(const std::string& records);
  void DoRemove();
  void DoAdopt(Job& job);
  void Fail(int error);
  /// The open file still stands under its name.
  bool InPlace() const;
  /// Takes one of the folder's journals; empty when it belongs to a program that runs.
  std::optional<LeftJournal> TakeOne(const std::string& path);

  const Text folder_;
  const std::string folderBytes_;
  std::map<int, File> left_;
  int lastId_ = 0;

  std::mutex mutex_;
  std::condition_variable asked_;
  std::condition_variable idle_;
  std::deque<Job> jobs_;
  bool busy_ = false;
  bool ending_ = false;
  std::optional<RuntimeError> failure_;
  bool lost_ = false;
  std::thread thread_;

  // The thread's own.
  File file_;
  std::int64_t written_ = 0;  ///< bytes of whole records
  bool broken_ = false;       ///< a record is missing behind them
};

}  // namespace cuewright
