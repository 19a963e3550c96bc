#include "forms/delay_dialog.h"

#include <cstdlib>

#include "core/caption_time.h"
#include "core/runtime_error.h"
#include "tools/delay.h"

namespace cuewright {
namespace {

constexpr std::int32_t kMinute = 60000;
constexpr std::int32_t kSecond = 1000;
constexpr std::int32_t kTen = 10;

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

void DelayDialog::Open(Ms sampleStart, bool rightToLeft) {
  sampleStart_ = sampleStart;
  SetTitle(strings_[Message::SetDelay]);
  SetAllRightToLeft(rightToLeft);
  for (Slider* bar : {&sldMin, &sldSec, &sldMs}) bar->SetValue(0);
  lblTitle.SetText(strings_[Message::SetDelayHint]);
  cmdApply.SetText(strings_[Message::Apply]);
  cmdCancel.SetText(strings_[Message::Cancel]);
  cmdCancel.SetEnabled(true);
  sldMin.SetSpokenName(strings_[Message::Minutes]);
  sldSec.SetSpokenName(strings_[Message::Seconds]);
  sldMs.SetSpokenName(strings_[Message::Milliseconds]);
  ShowBars();
  ShowDelay();
  NoteOpened();
}

Ms DelayDialog::Delay() const { return sldMin.Value() * kMinute + sldSec.Value() * kSecond + sldMs.Value() * kTen; }

void DelayDialog::ShowBars() {
  lblMin.SetText(strings_.Counted(Message::CountedMinutes, u"%1", sldMin.Value()));
  lblSec.SetText(strings_.Counted(Message::CountedSeconds, u"%1", sldSec.Value()));
  lblMs.SetText(strings_.Counted(Message::CountedMilliseconds, u"%1", sldMs.Value() * kTen));
}

void DelayDialog::ShowDelay() {
  const Ms delay = Delay();
  const Text amount = strings_.Counted(Message::CountedMilliseconds, u"%1", Abs(delay).Count());
  lblResult.SetText(delay == 0
                        ? strings_[Message::NoChangesApplied]
                        : Fill(strings_[delay < 0 ? Message::SubtitlesEarlier : Message::SubtitlesLater], amount));
  cmdApply.SetEnabled(delay != 0);
  ShowSample(sampleStart_.Wide() + delay.Wide());
}

void DelayDialog::ShowSample(std::int64_t start) {
  // A start beyond the range of times keeps the text of the last one that could be shown.
  CarryOn step;
  step([&] {
    if (start > Ms::Latest().Wide()) ThrowOverflow();
    lblDetail.SetText(strings_[Message::ResultingAppearTime] + Text(kLineEnd) +
                      MsToTimeText(Ms::Within(start, -Ms::Latest(), Ms::Latest())));
  });
}

void DelayDialog::Apply() {
  const Ms delay = Delay();
  if (delay == 0) return Close();
  if (const int below = CountBelowZero(list_, delay); below > 0) {
    const Text question =
        strings_.Counted(strings_.Counted(Message::DelayBelowZero, u"%1", Abs(delay).Count()), u"%2", below);
    const MessageBox box{question, BoxIcon::Warning, BoxButtons::YesNo, strings_[Message::Warning], true};
    if (messages_.Show(box) != BoxAnswer::Yes) return;
  }
  cmdApply.SetEnabled(false);
  cmdCancel.SetEnabled(false);
  lblResult.SetText(strings_[Message::PleaseWait] + u"...");
  RepaintRequested();
  ShiftCaptions(list_, delay);
  Close();
}

}  // namespace cuewright
