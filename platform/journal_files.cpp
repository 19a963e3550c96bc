#include "platform/journal_files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <iterator>
#include <memory>
#include <utility>

#include "core/counting.h"
#include "core/journal.h"
#include "platform/posix_files.h"

namespace cuewright {
namespace {

constexpr std::string_view kEnding = ".journal";
/// What a file is called until it is whole and locked.
constexpr std::string_view kUnfinished = ".journal.new";
/// Added to the name of a journal: marks that the user was told of it.
constexpr std::string_view kTold = ".told";
constexpr std::time_t kUnfinishedSeconds = 60;
constexpr off_t kLargest = off_t{1} << 30;

std::int64_t ChangedMs(const struct stat& info) {
  return std::int64_t{info.st_mtim.tv_sec} * 1000 + info.st_mtim.tv_nsec / 1000000;
}

/// All bytes of an open file; `error` gets the number of what went wrong, 0 for nothing.
std::string ReadAll(int fd, int& error) {
  std::string bytes;
  std::array<char, 65536> block{};
  for (;;) {
    const ssize_t count = ::pread(fd, block.data(), block.size(), std::ssize(bytes));
    if (count < 0 && errno == EINTR) continue;
    error = count < 0 ? errno : 0;
    if (count <= 0) return bytes;
    bytes.append(block.data(), SizeOf(count));
  }
}

std::vector<std::string> NamesIn(const std::string& folder, std::string_view ending) {
  std::vector<std::string> names;
  const std::unique_ptr<DIR, int (*)(DIR*)> open(::opendir(folder.c_str()), ::closedir);
  if (open == nullptr) return names;
  while (const dirent* entry = ::readdir(open.get())) {
    if (std::string_view(entry->d_name).ends_with(ending)) names.emplace_back(entry->d_name);
  }
  return names;
}

/// Removes unfinished files of programs that have ended. A recent one may belong to another program that is
/// about to lock it.
void RemoveUnfinished(const std::string& folder) {
  for (const std::string& name : NamesIn(folder, kUnfinished)) {
    const std::string path = folder + "/" + name;
    const Descriptor fd(::open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW));
    struct stat info {};
    if (fd && ::flock(fd.Get(), LOCK_EX | LOCK_NB) == 0 && ::fstat(fd.Get(), &info) == 0 &&
        std::time(nullptr) - info.st_mtim.tv_sec > kUnfinishedSeconds) {
      ::unlink(path.c_str());
    }
  }
}

}  // namespace

JournalFiles::JournalFiles(Text folder) : folder_(std::move(folder)), folderBytes_(ToUtf8(folder_)) {}

JournalFiles::~JournalFiles() {
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
  }
  asked_.notify_one();
  if (thread_.joinable()) thread_.join();
}

void JournalFiles::Ask(Job job) {
  if (folder_.empty()) return;
  {
    const std::lock_guard lock(mutex_);
    jobs_.push_back(std::move(job));
    if (!thread_.joinable()) thread_ = std::thread([this] { Run(); });
  }
  asked_.notify_one();
}

void JournalFiles::Begin(std::string payload) { Ask({Job::Kind::Begin, std::move(payload), {}, 0}); }
void JournalFiles::Append(std::string payload) { Ask({Job::Kind::Append, std::move(payload), {}, 0}); }
void JournalFiles::Leave() { Ask({Job::Kind::Leave, {}, {}, 0}); }
void JournalFiles::Remove() { Ask({Job::Kind::Remove, {}, {}, 0}); }

std::optional<RuntimeError> JournalFiles::TakeFailure() {
  const std::lock_guard lock(mutex_);
  return std::exchange(failure_, std::nullopt);
}

bool JournalFiles::TakeLost() {
  const std::lock_guard lock(mutex_);
  return std::exchange(lost_, false);
}

void JournalFiles::Wait() {
  std::unique_lock lock(mutex_);
  idle_.wait(lock, [this] { return jobs_.empty() && !busy_; });
}

void JournalFiles::Run() {
  std::unique_lock lock(mutex_);
  for (;;) {
    asked_.wait(lock, [this] { return !jobs_.empty() || ending_; });
    if (jobs_.empty()) return;
    std::deque<Job> jobs = std::exchange(jobs_, {});
    busy_ = true;
    lock.unlock();
    Do(jobs);
    lock.lock();
    busy_ = false;
    if (jobs_.empty()) idle_.notify_all();
  }
}

void JournalFiles::Do(std::deque<Job>& jobs) {
  while (!jobs.empty()) {
    Job job = std::move(jobs.front());
    jobs.pop_front();
    switch (job.kind) {
      case Job::Kind::Begin:
        DoBegin(job.payload);
        break;
      case Job::Kind::Append: {
        // Records that arrived meanwhile are written and flushed together.
        std::string records = JournalRecord(job.payload);
        for (; !jobs.empty() && jobs.front().kind == Job::Kind::Append; jobs.pop_front()) {
          records += JournalRecord(jobs.front().payload);
        }
        DoAppend(records);
        break;
      }
      case Job::Kind::Remove:
        DoRemove();
        break;
      case Job::Kind::Leave:
        file_ = {};
        break;
      case Job::Kind::Adopt:
        DoAdopt(job);
        break;
    }
  }
}

void JournalFiles::DoBegin(const std::string& payload) {
  std::error_code error;
  const bool fresh = !std::filesystem::exists(folderBytes_, error);
  std::filesystem::create_directories(folderBytes_, error);
  if (error) return Fail(error.value());
  if (fresh) ::chmod(folderBytes_.c_str(), 0700);
  File file;
  file.path = folderBytes_ + "/" + std::to_string(::getpid()) + "-XXXXXX" + std::string(kUnfinished);
  file.fd = Descriptor(::mkostemps(file.path.data(), CountOf(kUnfinished), O_CLOEXEC));
  if (!file.fd) return Fail(errno);
  // Locked before it gets the name by which other programs look for it.
  int failed = ::flock(file.fd.Get(), LOCK_EX | LOCK_NB) == 0 ? 0 : errno;
  const std::string bytes = std::string(kJournalMagic) + JournalRecord(payload);
  if (failed == 0) failed = WriteAll(file.fd.Get(), bytes);
  if (failed == 0) failed = Flush(file.fd.Get());
  std::string name = file.path.substr(0, file.path.size() - kUnfinished.size()) + std::string(kEnding);
  if (failed == 0 && ::rename(file.path.c_str(), name.c_str()) != 0) failed = errno;
  if (failed != 0) {
    ::unlink(file.path.c_str());
    // The previous journal, if there is one, is kept: an older state is better than none.
    return Fail(failed);
  }
  FlushFolder(folderBytes_);
  DoRemove();
  file.path = std::move(name);
  file_ = std::move(file);
  written_ = std::ssize(bytes);
  broken_ = false;
}

void JournalFiles::DoAppend(const std::string& records) {
  // Records behind a missing one would be applied to the wrong captions.
  if (!file_.fd || broken_) return;
  if (!InPlace()) {
    // The file was removed by somebody else: what is written to it would be lost.
    file_ = {};
    const std::lock_guard lock(mutex_);
    lost_ = true;
    return;
  }
  int failed = WriteAll(file_.fd.Get(), records);
  if (failed == 0) failed = Flush(file_.fd.Get());
  if (failed == 0) {
    written_ += std::ssize(records);
    return;
  }
  // A record that was cut off is removed again.
  if (::ftruncate(file_.fd.Get(), written_) == 0) ::lseek(file_.fd.Get(), 0, SEEK_END);
  Fail(failed);
}

bool JournalFiles::InPlace() const {
  struct stat open {};
  struct stat named {};
  return ::fstat(file_.fd.Get(), &open) == 0 && ::stat(file_.path.c_str(), &named) == 0 &&
         open.st_dev == named.st_dev && open.st_ino == named.st_ino;
}

void JournalFiles::DoRemove() {
  if (!file_.fd) return;
  ::unlink(file_.path.c_str());
  file_ = {};
}

void JournalFiles::DoAdopt(Job& job) {
  DoRemove();
  file_ = std::move(job.file);
  written_ = static_cast<off_t>(job.bytes);
  broken_ = false;
  if (::ftruncate(file_.fd.Get(), written_) != 0 || ::lseek(file_.fd.Get(), 0, SEEK_END) < 0) Fail(errno);
}

void JournalFiles::Fail(int error) {
  broken_ = true;
  const std::lock_guard lock(mutex_);
  failure_ = ErrorOfErrno(error, folder_);
}

std::vector<LeftJournal> JournalFiles::TakeLeft() {
  std::vector<LeftJournal> found;
  if (folder_.empty()) return found;
  RemoveUnfinished(folderBytes_);
  for (const std::string& name : NamesIn(folderBytes_, kEnding)) {
    if (auto left = TakeOne(folderBytes_ + "/" + name)) found.push_back(std::move(*left));
  }
  for (const std::string& name : NamesIn(folderBytes_, kTold)) {
    const std::string path = folderBytes_ + "/" + name;
    std::error_code error;
    if (!std::filesystem::exists(path.substr(0, path.size() - kTold.size()), error) && !error) ::unlink(path.c_str());
  }
  std::ranges::sort(found, std::ranges::greater(), &LeftJournal::changed);
  return found;
}

std::optional<LeftJournal> JournalFiles::TakeOne(const std::string& path) {
  File file{Descriptor(::open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW)), path};
  int failed = file.fd ? 0 : errno;
  struct stat info {};
  const int asked = file.fd ? ::fstat(file.fd.Get(), &info) : ::lstat(path.c_str(), &info);
  // A locked journal belongs to a running program; one without a name was just removed by its program.
  const bool running = file.fd && ::flock(file.fd.Get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
  if (asked != 0 || running || info.st_nlink == 0 || !S_ISREG(info.st_mode)) return {};
  LeftJournal left{++lastId_, {}, ChangedMs(info), FromUtf8(path), {}, false};
  left.told = ::access((path + std::string(kTold)).c_str(), F_OK) == 0;
  if (failed == 0 && info.st_size > kLargest) failed = EFBIG;
  if (failed == 0) left.bytes = ReadAll(file.fd.Get(), failed);
  if (failed != 0) left.unreadable = ErrorOfErrno(failed == EFBIG ? ENOMEM : failed, left.path);
  left_[lastId_] = std::move(file);
  return left;
}

void JournalFiles::Adopt(int id, std::size_t bytes) {
  const auto at = left_.find(id);
  if (at == left_.end()) return;
  Job job{Job::Kind::Adopt, {}, std::move(at->second), bytes};
  left_.erase(at);
  Ask(std::move(job));
}

void JournalFiles::Discard(int id) {
  const auto at = left_.find(id);
  if (at == left_.end()) return;
  ::unlink(at->second.path.c_str());
  ::unlink((at->second.path + std::string(kTold)).c_str());
  LeaveAgain(id);
}

void JournalFiles::LeaveTold(int id) {
  const auto at = left_.find(id);
  if (at == left_.end()) return;
  const std::string mark = at->second.path + std::string(kTold);
  const Descriptor made(::open(mark.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
  LeaveAgain(id);
}

void JournalFiles::LeaveAgain(int id) { left_.erase(id); }

std::int64_t JournalFiles::Now() const {
  using namespace std::chrono;
  return duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
}

Text JournalFiles::LocalTime(std::int64_t ms) const {
  const std::time_t seconds = ms / 1000;
  std::tm parts{};
  std::array<char, 64> shown{};
  if (::localtime_r(&seconds, &parts) == nullptr) return {};
  return FromUtf8(
      std::string_view(shown.data(), std::strftime(shown.data(), shown.size(), "%Y-%m-%d %H:%M:%S", &parts)));
}

std::optional<std::int64_t> JournalFiles::ChangedAt(TextView path) const {
  struct stat info {};
  if (::stat(ToUtf8(path).c_str(), &info) != 0) return {};
  return ChangedMs(info);
}

}  // namespace cuewright
