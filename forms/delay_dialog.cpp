#include "forms/delay_dialog.h"

#include <cstdlib>
#include <limits>

#include "core/caption_time.h"
#include "core/runtime_error.h"
#include "tools/delay.h"

namespace cuewright {
namespace {

constexpr std::int32_t kMinute = 60000;
constexpr std::int32_t kSecond = 1000;
constexpr std::int32_t kTen = 10;

/// Amounts with their units.
constexpr std::size_t kMinutes = 982;
constexpr std::size_t kSeconds = 983;
constexpr std::size_t kMilliseconds = 984;

}  // namespace

DelayDialog::DelayDialog(CaptionList& list, const LangStrings& strings, Messages& messages)
    : Dialog("frmDelay"), list_(list), strings_(strings), messages_(messages) {
  sldMin.SetRange(-60, 60);
  sldSec.SetRange(-59, 59);
  sldMs.SetRange(-99, 99);
  for (Slider* bar : {&sldMin, &sldSec, &sldMs}) {
    bar->Scrolled.Connect([this] {
      ShowBars();
      ShowDelay();
    });
  }
  cmdApply.Clicked.Connect([this] { Apply(); });
  cmdCancel.Clicked.Connect([this] { Close(); });
}

void DelayDialog::Open(std::int32_t sampleStart, bool rightToLeft) {
  sampleStart_ = sampleStart;
  SetTitle(strings_[170]);
  SetRightToLeft(rightToLeft);
  for (Control* control : Controls()) control->SetRightToLeft(rightToLeft);
  for (Slider* bar : {&sldMin, &sldSec, &sldMs}) bar->SetValue(0);
  lblTitle.SetText(strings_[171]);
  cmdApply.SetText(strings_[39]);
  cmdCancel.SetText(strings_[67]);
  cmdCancel.SetEnabled(true);
  sldMin.SetSpokenName(strings_[173]);
  sldSec.SetSpokenName(strings_[175]);
  sldMs.SetSpokenName(strings_[176]);
  ShowBars();
  ShowDelay();
  NoteOpened();
}

std::int32_t DelayDialog::Delay() const {
  return sldMin.Value() * kMinute + sldSec.Value() * kSecond + sldMs.Value() * kTen;
}

void DelayDialog::ShowBars() {
  lblMin.SetText(strings_.Counted(kMinutes, u"%1", sldMin.Value()));
  lblSec.SetText(strings_.Counted(kSeconds, u"%1", sldSec.Value()));
  lblMs.SetText(strings_.Counted(kMilliseconds, u"%1", sldMs.Value() * kTen));
}

void DelayDialog::ShowDelay() {
  const std::int32_t delay = Delay();
  const Text amount = strings_.Counted(kMilliseconds, u"%1", std::abs(delay));
  lblResult.SetText(delay == 0 ? strings_[177] : Fill(strings_[delay < 0 ? 178 : 179], amount));
  cmdApply.SetEnabled(delay != 0);
  ShowSample(std::int64_t{sampleStart_} + delay);
}

void DelayDialog::ShowSample(std::int64_t start) {
  // A time past what the text can show leaves the last one.
  CarryOn step;
  step([&] {
    if (start > std::numeric_limits<std::int32_t>::max()) ThrowOverflow();
    lblDetail.SetText(strings_[344] + Text(kLineEnd) + MsToTimeText(static_cast<std::int32_t>(start)));
  });
}

void DelayDialog::Apply() {
  const std::int32_t delay = Delay();
  if (delay == 0) return Close();
  if (const int below = CountBelowZero(list_, delay); below > 0) {
    const Text question = strings_.Counted(strings_.Counted(180, u"%1", std::abs(delay)), u"%2", below);
    const MessageBox box{question, BoxIcon::Warning, BoxButtons::YesNo, strings_[146], true};
    if (messages_.Show(box) != BoxAnswer::Yes) return;
  }
  cmdApply.SetEnabled(false);
  cmdCancel.SetEnabled(false);
  lblResult.SetText(strings_[117] + u"...");
  RepaintRequested();
  ShiftCaptions(list_, delay);
  Close();
}

}  // namespace cuewright
