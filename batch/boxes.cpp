#include "batch/boxes.h"

#include <utility>

#include "batch/console.h"
#include "core/frame_rate.h"

namespace cuewright {
namespace {

/// The text on one line: line ends become a blank, several in a row one.
Text OneLine(TextView text) {
  Text line;
  bool between = false;
  for (const char16_t c : text) {
    if (c == u'\r' || c == u'\n') {
      between = true;
      continue;
    }
    if (std::exchange(between, false) && !line.empty() && line.back() != u' ') line += u' ';
    line += c;
  }
  return line;
}

/// What is asked, without the lines of a file that stand below it in a window.
Text QuestionOf(const Text& text) {
  const Text blankLine = Text(kLineEnd) + Text(kLineEnd);
  return text.substr(0, text.find(blankLine));
}

}  // namespace

BatchBoxes::BatchBoxes(Output& output, Text fps) : output_(&output), fps_(std::move(fps)) {}

void BatchBoxes::Begin(TextView file) {
  file_ = ToUtf8(file);
  shown_.clear();
  troubles_ = 0;
}

void BatchBoxes::Tell(TextView text) {
  shown_.push_back(OneLine(text));
  const std::string told = DisplayUtf8(shown_.back());
  const std::size_t at = line ? line() : 0;
  if (file_.empty()) {
    output_->Complain("cuewright-batch: " + told);
  } else {
    output_->Say(file_ + (at == 0 ? "" : ":" + std::to_string(at)) + ": " + told);
  }
}

void BatchBoxes::TellNotUnderstood(std::size_t number) {
  const std::string place = file_ + ":" + std::to_string(number);
  shown_.push_back(u"Line " + FromUtf8(std::to_string(number)) + u" was not understood.");
  output_->Complain(place + ": this line was not understood");
  ++troubles_;
}

BoxAnswer BatchBoxes::Show(const MessageBox& box) {
  if (box.icon == BoxIcon::Warning || box.icon == BoxIcon::Error) ++troubles_;
  switch (box.buttons) {
    case BoxButtons::YesNo:
    case BoxButtons::YesNoCancel:
      Tell(QuestionOf(box.text) + (box.noIsDefault ? u" No." : u" Yes."));
      return box.noIsDefault ? BoxAnswer::No : BoxAnswer::Yes;
    case BoxButtons::Ok:
    case BoxButtons::OkCancel:
      break;
  }
  Tell(box.text);
  return BoxAnswer::Ok;
}

Text BatchBoxes::Ask(const InputBox& box) {
  if (FrameRate::FromText(box.initial)) return fps_;
  Tell(box.prompt + u" " + box.initial);
  return box.initial;
}

}  // namespace cuewright
