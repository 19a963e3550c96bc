#include "capture/time_boxes.h"

#include "core/best_duration.h"
#include "core/caption_time.h"
#include "core/counting.h"
#include "core/runtime_error.h"

namespace cuewright {
namespace {

constexpr int kLength = 12;

bool IsTimeText(TextView text) {
  return text.size() >= kLength && text[2] == u':' && text[5] == u':' && text[8] == u',';
}

int CaretBackFrom(int at) {
  switch (at) {
    case 0:
    case 1:
      return 0;
    case 4:
      return 1;
    case 7:
      return 4;
    case 10:
      return 7;
    default:
      return at - 2;
  }
}

int CaretForwardFrom(int at) {
  switch (at) {
    case 2:
      return 3;
    case 5:
      return 6;
    case 8:
      return 9;
    case 12:
      return 11;
    default:
      return at;
  }
}

}  // namespace

TimeBoxes::TimeBoxes(MainWindow& window, CaptionList& list) : window_(window), list_(list) {
  for (std::size_t index = 0; index < kept_.size(); ++index) {
    window_.txtTime[index].SetText(MsToTimeText(0));
    kept_[index] = MsToTimeText(0);
    Wire(index);
  }
}

void TimeBoxes::Wire(std::size_t index) {
  TextBox& box = window_.txtTime[index];
  box.GotFocus.Connect([this, &box, index] { kept_[index] = box.GetText(); });
  box.LostFocus.Connect([this, index] { Check(index); });
  box.KeyDown.Connect([this, &box](KeyEvent& key) { OnKeyDown(box, key); });
  box.KeyPress.Connect([this, &box](KeyEvent& key) { OnKeyPress(box, key); });
  box.Edited.Connect([this, &box] { StepCaret(box, box.SelStart()); });
  box.MouseUp.Connect([this, &box](const MouseEvent&) { StepCaret(box, box.SelStart()); });
}

void TimeBoxes::OnKeyDown(TextBox& box, KeyEvent& key) {
  key.handled = true;
  switch (key.code) {
    case kKeyDelete:
      break;
    case kKeyLeft:
      caretBack_ = true;
      StepCaret(box, box.SelStart() + 1);
      break;
    case kKeyRight:
      StepCaret(box, box.SelStart() + 1);
      break;
    case kKeyHome:
      StepCaret(box, 0);
      break;
    case kKeyEndOfLine:
      StepCaret(box, kLength);
      break;
    case kKeyEnter:
      Commit();
      break;
    default:
      key.handled = false;
  }
}

void TimeBoxes::OnKeyPress(TextBox& box, KeyEvent& key) {
  key.handled = true;
  if (key.code == kKeyBackspace || key.character == kKeyBackspace) {
    caretBack_ = true;
    Overwrite(box, u'0');
  } else if (key.character >= 48 && key.character <= 59) {
    Overwrite(box, key.character);
  }
}

void TimeBoxes::Overwrite(TextBox& box, char16_t character) {
  Text text = box.GetText();
  const int at = box.SelStart();
  if (at < CountOf(text)) {
    text[at] = character;
  } else if (text.size() < kLength) {
    text += character;
  }
  box.SetText(text);
  StepCaret(box, at + 1);
}

void TimeBoxes::StepCaret(TextBox& box, int from) {
  const int to = caretBack_ ? CaretBackFrom(from) : CaretForwardFrom(from);
  caretBack_ = false;
  box.Select(to, 1);
}

void TimeBoxes::Check(std::size_t index) {
  if (!IsTimeText(window_.txtTime[index].GetText())) window_.txtTime[index].SetText(kept_[index]);
}

void TimeBoxes::Commit() {
  Check(0);
  Check(1);
  const EditScope scope(list_, EditKind::SetTimes);
  const Row row = list_.Selected();
  const Ms start = TimeTextToMs(window_.txtTime[0].GetText());
  list_.SetCaptionStart(row, start, false);
  Ms duration = TimeTextToMs(window_.txtTime[1].GetText());
  if (duration < 1) {
    // Without a best duration, for a text too long for one, the end stays as it is.
    CarryOn step;
    step([&] { SetBestDuration(list_, row); });
    duration = list_.GetCaptionEnd(row) - start;
    step([&] { window_.txtTime[1].SetText(MsToTimeText(duration)); });
  }
  list_.SetCaptionEnd(row, duration + start);
}

}  // namespace cuewright
