#include "batch/console.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <ctime>

#include "text/units.h"

namespace cuewright {
namespace {

constexpr std::size_t kBlock = 1 << 16;
constexpr std::int64_t kBarAfterMs = 300;
constexpr std::size_t kManyFiles = 500;  // so many files count as long work from the start
constexpr std::int64_t kBarEveryMs = 100;
constexpr std::size_t kBarWidth = 40;

std::int64_t NowMs() {
  timespec now{};
  ::clock_gettime(CLOCK_MONOTONIC, &now);
  return std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1000000;
}

}  // namespace

Console::Console()
    : outIsTerminal_(::isatty(STDOUT_FILENO) == 1), barPossible_(::isatty(STDERR_FILENO) == 1), startMs_(NowMs()) {}

void Console::Out(std::string_view text) {
  block_.append(text);
  if (block_.size() >= kBlock || (outIsTerminal_ && text.ends_with('\n'))) FlushOut();
}

void Console::Say(std::string_view line) {
  if (!quiet_) Complain(line);
}

void Console::Complain(std::string_view line) {
  FlushOut();
  EraseBar();
  Write(STDERR_FILENO, std::string(line) + '\n', errorFailed_);
}

void Console::Progress(std::size_t done, std::size_t total) {
  if (quiet_ || !barPossible_ || total < 2) return;
  const std::int64_t now = NowMs();
  if (total < kManyFiles && now - startMs_ < kBarAfterMs) return;
  if (barShown_ && now - shownMs_ < kBarEveryMs) return;
  const std::size_t filled = std::min(kBarWidth, done * kBarWidth / total);
  const std::string bar = "\r[" + std::string(filled, '#') + std::string(kBarWidth - filled, '.') + "] " +
                          std::to_string(done) + "/" + std::to_string(total);
  Write(STDERR_FILENO, bar, errorFailed_);
  barShown_ = true;
  shownMs_ = now;
}

bool Console::Finish() {
  FlushOut();
  EraseBar();
  return !outFailed_;
}

void Console::FlushOut() {
  if (block_.empty()) return;
  EraseBar();
  Write(resultsTo_, block_, outFailed_);
  block_.clear();
}

void Console::EraseBar() {
  if (!barShown_) return;
  Write(STDERR_FILENO, "\r\x1b[K", errorFailed_);
  barShown_ = false;
}

void Console::Write(int fd, std::string_view text, bool& failed) const {
  while (!failed && !text.empty()) {
    const ssize_t count = ::write(fd, text.data(), text.size());
    if (count >= 0) {
      text.remove_prefix(count);
    } else if (errno != EINTR) {
      failed = true;
    }
  }
}

std::string DisplayUtf8(TextView text) {
  Text whole(text);
  for (std::size_t i = 0; i < whole.size(); ++i) {
    if (IsLead(whole[i]) && i + 1 < whole.size() && IsTrail(whole[i + 1])) {
      ++i;
    } else if (IsLead(whole[i]) || IsTrail(whole[i])) {
      whole[i] = 0xFFFD;
    }
  }
  return ToUtf8(whole);
}

}  // namespace cuewright
