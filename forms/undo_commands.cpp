#include "forms/undo_commands.h"

#include "text/labels.h"

namespace cuewright {
namespace {

/// The text that names a command.
Message MessageOf(EditKind kind) {
  switch (kind) {
    case EditKind::Capture:
      return Message::EditNameTiming;
    case EditKind::Typing:
      return Message::EditNameTyping;
    case EditKind::SetTimes:
      return Message::EditNameTimes;
    case EditKind::Insert:
      return Message::InsertNewCaption;
    case EditKind::Remove:
      return Message::RemoveCaption;
    case EditKind::EditText:
      return Message::EditCaption;
    case EditKind::Bold:
      return Message::Bold;
    case EditKind::Italic:
      return Message::Italic;
    case EditKind::Underline:
      return Message::Underline;
    case EditKind::Separator:
      return Message::LineSeparator;
    case EditKind::Convert:
      return Message::ConvertFrom;
    case EditKind::Append:
      return Message::AppendSubtitle;
    case EditKind::FromClipboard:
      return Message::NewFromClipboard;
    case EditKind::Rules:
      return Message::ApplyCurrentRules;
    case EditKind::Delay:
      return Message::SetDelay;
    case EditKind::ResetTiming:
      return Message::RemoveAllTiming;
    case EditKind::Replace:
      return Message::Replace;
    case EditKind::ReplaceAll:
      return Message::ReplaceAll;
    case EditKind::Drag:
      return Message::EditNameEdge;
    case EditKind::Spelling:
      return Message::SpellCheck;
    case EditKind::Change:
    case EditKind::TakeBack:
      break;
  }
  return Message::EditNameOther;
}

}  // namespace

Text EditName(EditKind kind, const LangStrings& strings) {
  Text name = WithoutAccessKey(WithoutDots(strings[MessageOf(kind)]));
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
  const auto show = [&](MenuItem& item, std::optional<EditKind> kind, Message plain, Message named) {
    item.SetText(kind ? Fill(strings_[named], EditName(*kind, strings_)) : strings_[plain]);
    item.SetEnabled(kind.has_value() && list_.Enabled());
  };
  show(window_.mnuUndo, history_.UndoKind(), Message::Undo, Message::UndoNamed);
  show(window_.mnuRedo, history_.RedoKind(), Message::Redo, Message::RedoNamed);
}

}  // namespace cuewright
