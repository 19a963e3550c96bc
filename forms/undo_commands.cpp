#include "forms/undo_commands.h"

namespace cuewright {
namespace {

/// The text that names a command.
std::size_t MessageOf(EditKind kind) {
  switch (kind) {
    case EditKind::Capture:
      return 944;
    case EditKind::Typing:
      return 945;
    case EditKind::SetTimes:
      return 946;
    case EditKind::Insert:
      return 54;
    case EditKind::Remove:
      return 13;
    case EditKind::EditText:
      return 57;
    case EditKind::Bold:
      return 154;
    case EditKind::Italic:
      return 155;
    case EditKind::Underline:
      return 156;
    case EditKind::Separator:
      return 162;
    case EditKind::Convert:
      return 284;
    case EditKind::Append:
      return 72;
    case EditKind::FromClipboard:
      return 18;
    case EditKind::Rules:
      return 31;
    case EditKind::Delay:
      return 170;
    case EditKind::ResetTiming:
      return 14;
    case EditKind::Replace:
      return 432;
    case EditKind::ReplaceAll:
      return 433;
    case EditKind::Drag:
      return 948;
    case EditKind::Spelling:
      return 259;
    case EditKind::Change:
    case EditKind::TakeBack:
      break;
  }
  return 947;
}

}  // namespace

Text EditName(EditKind kind, const LangStrings& strings) {
  Text name = WithoutAccessKey(ReplaceAll(strings[MessageOf(kind)], u"...", {}));
  return kind == EditKind::Convert ? name + u" UTF-8" : name;
}

UndoCommands::UndoCommands(MainWindow& window, CaptionList& list, EditHistory& history, TimingCapture& capture,
                           Preview& preview, const LangStrings& strings)
    : window_(window), list_(list), history_(history), capture_(capture), preview_(preview), strings_(strings) {
  window_.mnuUndo.Clicked.Connect([this] { Undo(); });
  window_.mnuRedo.Clicked.Connect([this] { Redo(); });
  history_.Changed.Connect([this] { ShowItems(); });
  list_.EnabledChanged.Connect([this](bool) { ShowItems(); });
}

void UndoCommands::Undo() {
  // What a running capture has stored is the step that goes; no end comes behind it.
  capture_.AbandonCapture();
  if (history_.UndoKind() == EditKind::Capture) capture_.ForgetPriorEnd();
  history_.Undo();
  preview_.Redraw(list_.Selected());
}

void UndoCommands::Redo() {
  capture_.AbandonCapture();
  if (history_.RedoKind() == EditKind::Capture) capture_.ForgetPriorEnd();
  history_.Redo();
  preview_.Redraw(list_.Selected());
}

void UndoCommands::ShowItems() {
  const auto show = [&](MenuItem& item, std::optional<EditKind> kind, std::size_t plain, std::size_t named) {
    item.SetText(kind ? Fill(strings_[named], EditName(*kind, strings_)) : strings_[plain]);
    item.SetEnabled(kind.has_value() && list_.Enabled());
  };
  show(window_.mnuUndo, history_.UndoKind(), 940, 942);
  show(window_.mnuRedo, history_.RedoKind(), 941, 943);
}

}  // namespace cuewright
