#include "forms/run_window.h"

#include <cmath>

#include "core/numbers.h"
#include "core/paths.h"
#include "core/product.h"
#include "runner/progress.h"

namespace cuewright {
namespace {

constexpr int kWhole = 1000;
constexpr std::size_t kMostInput = 1 << 20;

}  // namespace

RunWindow::RunWindow(const LangStrings& strings) : Dialog("frmRun"), strings_(strings) {
  barProgress.SetRange(0, kWhole);
  cmdCancel.Clicked.Connect([this] { Close(); });
}

void RunWindow::Open(bool rightToLeft) {
  SetTitle(Text(kProductName));
  SetAllRightToLeft(rightToLeft);
  lblFailure.SetVisible(false);
  barProgress.SetSpokenName(strings_[Message::PleaseWait]);
  cmdCancel.SetText(strings_[Message::Cancel]);
  NoteOpened();
}

void RunWindow::TakeInput(std::string_view bytes) {
  input_ += bytes;
  for (std::size_t end = 0; (end = input_.find('\n')) != std::string::npos; input_.erase(0, end + 1)) {
    TakeLine(std::string_view(input_.data(), end));
  }
  if (input_.size() > kMostInput) input_.clear();
}

void RunWindow::TakeLine(std::string_view line) {
  const std::optional<WindowLine> read = ReadWindowLine(line);
  if (!read) return;
  switch (read->kind) {
    case WindowLine::Kind::File:
      lblFile.SetText(FileNameOf(FromUtf8(read->text)));
      break;
    case WindowLine::Kind::Failure:
      ShowFailure(read->text);
      break;
    case WindowLine::Kind::Progress:
      barProgress.SetBusy(!read->progress.fraction);
      if (read->progress.fraction) barProgress.SetValue(RoundToInt32(std::trunc(*read->progress.fraction * kWhole)));
      lblLeft.SetText(read->progress.secondsLeft
                          ? Fill(strings_[Message::TimeLeft], FromUtf8(TimeLeftText(*read->progress.secondsLeft)))
                          : Text());
      break;
  }
}

void RunWindow::ShowFailure(std::string_view reason) {
  failed_ = true;
  barProgress.SetVisible(false);
  lblLeft.SetVisible(false);
  lblFailure.SetText(FromUtf8(reason));
  lblFailure.SetVisible(true);
  cmdCancel.SetText(strings_[Message::Ok]);
  FailureShown();
}

void RunWindow::EndInput() {
  ended_ = true;
  if (!failed_) Close();
}

void RunWindow::OnClose() { cancelled_ = !failed_ && !ended_; }

}  // namespace cuewright
