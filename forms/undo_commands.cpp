#include "forms/undo_commands.h"

#include <algorithm>
#include <utility>

#include "text/labels.h"

namespace cuewright {
namespace {

constexpr std::pair<EditKind, Message> kNames[] = {{EditKind::Capture, Message::EditNameTiming},
                                                   {EditKind::Typing, Message::EditNameTyping},
                                                   {EditKind::SetTimes, Message::EditNameTimes},
                                                   {EditKind::Insert, Message::InsertNewCaption},
                                                   {EditKind::Remove, Message::RemoveCaption},
                                                   {EditKind::Split, Message::SplitCaption},
                                                   {EditKind::JoinNeighbor, Message::JoinCaption},
                                                   {EditKind::Duplicate, Message::DuplicateCaption},
                                                   {EditKind::MeetNext, Message::MeetNext},
                                                   {EditKind::SwapTexts, Message::SwapTexts},
                                                   {EditKind::EditText, Message::EditCaption},
                                                   {EditKind::Bold, Message::Bold},
                                                   {EditKind::Italic, Message::Italic},
                                                   {EditKind::Underline, Message::Underline},
                                                   {EditKind::Separator, Message::LineSeparator},
                                                   {EditKind::Convert, Message::ConvertFrom},
                                                   {EditKind::Append, Message::AppendSubtitle},
                                                   {EditKind::FromClipboard, Message::NewFromClipboard},
                                                   {EditKind::Rules, Message::ApplyCurrentRules},
                                                   {EditKind::Delay, Message::SetDelay},
                                                   {EditKind::Retime, Message::RetimeItem},
                                                   {EditKind::Fit, Message::FitItem},
                                                   {EditKind::FitBack, Message::TakeFitBack},
                                                   {EditKind::FromSound, Message::TimesFromSound},
                                                   {EditKind::ResetTiming, Message::RemoveAllTiming},
                                                   {EditKind::Replace, Message::Replace},
                                                   {EditKind::ReplaceAll, Message::ReplaceAll},
                                                   {EditKind::Drag, Message::EditNameEdge},
                                                   {EditKind::Spelling, Message::SpellCheck},
                                                   {EditKind::Cut, Message::CutCaptions},
                                                   {EditKind::Paste, Message::PasteCaptions},
                                                   {EditKind::Case, Message::LetterCase},
                                                   {EditKind::Shift, Message::ShiftCaptions},
                                                   {EditKind::Move, Message::EditNameMove},
                                                   {EditKind::Sort, Message::SortByStart},
                                                   {EditKind::Join, Message::JoinSelected},
                                                   {EditKind::Fix, Message::EditNameFix},
                                                   {EditKind::Breaks, Message::BreakLines},
                                                   {EditKind::Cleaning, Message::CleanTexts}};

/// The text that names a command.
Message MessageOf(EditKind kind) {
  const auto* const name = std::ranges::find(kNames, kind, &std::pair<EditKind, Message>::first);
  return name == std::end(kNames) ? Message::EditNameOther : name->second;
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
  // A running capture has stored a start already, which is the step that is undone: its end must not be stored later.
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
