#include "vdrun/displays.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <utility>

#include "core/runtime_error.h"

namespace cuewright {
namespace {

constexpr std::int64_t kBarEveryMs = 100;
constexpr std::int64_t kWindowAfterMs = 700;
constexpr std::int64_t kWindowEveryMs = 200;
constexpr int kWindowPollMs = 100;
constexpr int kBarWidth = 40;

void WriteError(const std::string& text) {
  std::fputs(text.c_str(), stderr);
  std::fflush(stderr);
}

class TerminalDisplay final : public RunDisplay {
 public:
  TerminalDisplay() : terminal_(::isatty(STDERR_FILENO) == 1) {}

  void Show(const std::string& file, const RunProgress& progress, std::int64_t elapsedMs) override {
    if (!terminal_ || elapsedMs - shownAt_ < kBarEveryMs) return;
    shownAt_ = elapsedMs;
    const int filled = static_cast<int>(progress.fraction.value_or(0) * kBarWidth);
    std::string bar = "\r\x1b[K[" + std::string(static_cast<std::size_t>(filled), '#') +
                      std::string(static_cast<std::size_t>(kBarWidth - filled), '.') + "]";
    if (progress.fraction) bar += " " + std::to_string(static_cast<int>(*progress.fraction * 100)) + " %";
    if (progress.secondsLeft) bar += ", " + TimeLeftText(*progress.secondsLeft) + " left";
    const std::string name = Printable(file.substr(file.rfind('/') + 1), false);
    WriteError(bar + (name.size() > 30 ? std::string() : "  " + name));
    shown_ = true;
  }

  void Note(const std::string& text) override {
    Erase();
    WriteError("vdrun: " + Printable(text, true) + "\n");
  }

  void End(const std::string& failure) override {
    Erase();
    if (!failure.empty()) WriteError("vdrun: " + Printable(failure, true) + "\n");
  }

 private:
  void Erase() {
    if (std::exchange(shown_, false)) WriteError("\r\x1b[K");
  }

  bool terminal_;
  bool shown_ = false;
  std::int64_t shownAt_ = -kBarEveryMs;
};

class WindowDisplay final : public RunDisplay {
 public:
  WindowDisplay(Processes& processes, Text window, std::function<bool()> mustEnd)
      : processes_(processes), window_(std::move(window)), mustEnd_(std::move(mustEnd)) {}

  void Show(const std::string& file, const RunProgress& progress, std::int64_t elapsedMs) override {
    if (elapsedMs < kWindowAfterMs) return;
    Open();
    // A window that hangs is sent nothing more until it reads again.
    if (child_ == nullptr || elapsedMs - shownAt_ < kWindowEveryMs || child_->HasUntold()) return;
    shownAt_ = elapsedMs;
    if (file != file_) child_->Tell(FormatWindowLine({WindowLine::Kind::File, file_ = file, {}}));
    child_->Tell(FormatWindowLine({WindowLine::Kind::Progress, {}, progress}));
  }

  void Note(const std::string& text) override { WriteError("vdrun: " + Printable(text, true) + "\n"); }

  bool Cancelled() override {
    if (child_ == nullptr || cancelled_) return cancelled_;
    // The window reports a cancel at once, before it closes.
    said_ += child_->TakeOutput();
    cancelled_ = said_.find(kCancelLine) != std::string::npos || child_->Ended() == kWindowCancelled;
    return cancelled_;
  }

  void End(const std::string& failure) override {
    if (failure.empty()) {
      child_.reset();
      return;
    }
    WriteError("vdrun: " + Printable(failure, true) + "\n");
    Open();
    if (child_ == nullptr) return;
    child_->Tell(FormatWindowLine({WindowLine::Kind::Failure, failure, {}}));
    while (!child_->Ended() && !mustEnd_()) {
      child_->Wait(kWindowPollMs);
      child_->TakeOutput();
    }
    child_.reset();
  }

 private:
  void Open() {
    if (std::exchange(opened_, true)) return;
    // The work is done even when the window cannot be started.
    CarryOn step;
    step([&] { child_ = processes_.Start(window_, {}, {.input = true}); });
  }

  Processes& processes_;
  Text window_;
  std::function<bool()> mustEnd_;
  std::unique_ptr<ChildProcess> child_;
  std::string said_;
  bool cancelled_ = false;
  std::string file_;
  std::int64_t shownAt_ = 0;
  bool opened_ = false;
};

}  // namespace

std::unique_ptr<RunDisplay> MakeTerminalDisplay() { return std::make_unique<TerminalDisplay>(); }

std::unique_ptr<RunDisplay> MakeWindowDisplay(Processes& processes, Text window, std::function<bool()> mustEnd) {
  return std::make_unique<WindowDisplay>(processes, std::move(window), std::move(mustEnd));
}

}  // namespace cuewright
