#include "forms/caption_commands.h"

#include <algorithm>
#include <array>
#include <optional>

#include "core/numbers.h"
#include "core/runtime_error.h"

namespace cuewright {
namespace {

constexpr std::array<TextView, 3> kSeparators = {u"|", u"/n", u"[br]"};
constexpr Row kRowsOfPage = 8;
/// A longer pause ends what was typed in one go.
constexpr std::int64_t kTypingPauseMs = 1000;

/// True for a text that is a number as a whole.
bool IsNumeric(TextView text) {
  text = TrimBlanks(text);
  if (text.starts_with(u'+') || text.starts_with(u'-')) text.remove_prefix(1);
  return text.find_first_not_of(u"0123456789.") == TextView::npos &&
         text.find_first_of(u"0123456789") != TextView::npos && std::ranges::count(text, u'.') <= 1;
}

}  // namespace

CaptionCommands::CaptionCommands(MainWindow& window, CaptionList& list, CaptionGrid& grid, CaptionPanel& panel,
                                 const DocumentState& document, AppOptions& options, const LangStrings& strings,
                                 Messages& messages, SettingsStore& store, Preview& preview, TimingCapture& capture,
                                 EventQueue& events)
    : window_(window),
      list_(list),
      grid_(grid),
      panel_(panel),
      document_(document),
      options_(options),
      strings_(strings),
      messages_(messages),
      store_(store),
      preview_(preview),
      capture_(capture),
      events_(events) {
  WireMenus();
  WireTextPane();
}

void CaptionCommands::WireMenus() {
  window_.mnuAddBelow.Clicked.Connect([this] { AddBelow(); });
  window_.mnuAddBottom.Clicked.Connect([this] { AddBottom(); });
  for (MenuItem* item : {&window_.mnuEditSelected, &window_.rmnuEdit})
    item->Clicked.Connect([this] { EditSelected(); });
  for (MenuItem* item : {&window_.mnuRemove, &window_.rmnuRemove}) item->Clicked.Connect([this] { RemoveSelected(); });
  window_.mnuGoTo.Clicked.Connect([this] { GoTo(); });
  window_.mnuCountUntimed.Clicked.Connect([this] { CountUntimed(); });
  window_.mnuNextUntimed.Clicked.Connect([this] { NextUntimed(); });
  for (MenuItem* item : {&window_.mnuBold, &window_.rmnuBold}) item->Clicked.Connect([this] { Toggle(u"<b>"); });
  for (MenuItem* item : {&window_.mnuItalic, &window_.rmnuItalic}) item->Clicked.Connect([this] { Toggle(u"<i>"); });
  for (MenuItem* item : {&window_.mnuUnderline, &window_.rmnuUnderline}) {
    item->Clicked.Connect([this] { Toggle(u"<u>"); });
  }
  for (std::size_t choice = 0; choice < window_.mnuSeparator.size(); ++choice) {
    window_.mnuSeparator[choice].Clicked.Connect([this, choice] { ChangeSeparator(choice); });
  }
}

void CaptionCommands::WireTextPane() {
  TextBox& pane = window_.txtSub;
  pane.GotFocus.Connect([this] { capture_.SetTextFocus(true); });
  pane.LostFocus.Connect([this] { capture_.SetTextFocus(false); });
  pane.KeyUp.Connect([this](KeyEvent&) { TakeTextPane(); });
  // Text can also come by the pointer or an input method, without a key of its own.
  pane.Edited.Connect([this] { TakeTextPane(); });
}

void CaptionCommands::TakeTextPane() {
  if (!document_.HasDocument()) return;
  const Row row = list_.Selected();
  const Text text = ReplaceAll(window_.txtSub.GetText(), kLineEnd, options_.lineSeparator);
  // A key that changed nothing, such as an arrow, is no edit.
  if (options_.manner.AsksWhenCaptionsDiffer() && text == list_.GetCaptionText(row)) return;
  {
    const EditScope scope(list_, EditKind::Typing, TypingNumber(row));
    list_.SetCaptionText(row, text);
    if (list_.Rows() >= 3) list_.SetModified();
  }
  preview_.Redraw(row);
  panel_.ShowStyles(row);
}

std::uint64_t CaptionCommands::TypingNumber(Row row) {
  const std::int64_t now = events_.NowMs();
  if (row != typingRow_ || now - typedAt_ > kTypingPauseMs) ++typingNumber_;
  typingRow_ = row;
  typedAt_ = now;
  return typingNumber_;
}

bool CaptionCommands::CreateCaption(Row row) {
  const Text answer = messages_.Ask({strings_[Message::TypeTheNewCaption], strings_[Message::InsertNewCaption], {}});
  if (answer.empty()) return false;
  CarryOn step;
  if (!step([&] {
        const EditScope scope(list_, EditKind::Insert, ++insertNumber_);
        list_.AddCaption(0, 0, answer, row);
        list_.SetRow(row, false);
      })) {
    messages_.Show({step.Last()->description, BoxIcon::Warning});
    return false;
  }
  return true;
}

void CaptionCommands::AddBelow() { CreateCaption(list_.Selected() + 1); }

void CaptionCommands::AddBottom() {
  if (!CreateCaption(0)) return;
  const EditScope scope(list_, EditKind::Insert, insertNumber_);  // the row that it selects belongs to it
  list_.SetRow(list_.Rows() - 1, false);
  if (list_.Rows() >= 11) grid_.SetTopRow(list_.Rows() - kRowsOfPage);
}

void CaptionCommands::EditSelected() {
  const Row row = list_.Selected();
  const Text answer = messages_.Ask(
      {strings_[Message::EditTheSelectedLine], strings_[Message::EditCaption], list_.GetCaptionText(row)});
  if (IsBlank(answer) || !list_.InRange(row) || answer == list_.GetCaptionText(row)) return;
  const EditScope scope(list_, EditKind::EditText);
  list_.Replace(row, 1, {Caption{list_.GetCaptionStart(row), list_.GetCaptionEnd(row), answer}});
  window_.txtSub.SetText(list_.GetCaptionText(row, true));
}

void CaptionCommands::RemoveSelected() { list_.DeleteCaption(list_.Selected()); }

void CaptionCommands::GoTo() {
  const Text answer = messages_.Ask({strings_[Message::LineNumber], strings_[Message::GoToLine], {}});
  const double number = LeadingNumber(answer);
  if (!IsNumeric(answer) || !(number > 0)) return;
  list_.SetRow(static_cast<Row>(RoundHalfEven(std::min<double>(number, list_.Rows()))), true);
}

void CaptionCommands::CountUntimed() {
  int untimed = 0;
  for (Row row = 1; row < list_.Rows(); ++row) untimed += list_.IsCaptionTimed(row) ? 0 : 1;
  messages_.Show({Fill(strings_[Message::TotalWithoutTiming], Decimal(untimed)), BoxIcon::Information, BoxButtons::Ok,
                  strings_[Message::CountNonTimed]});
}

void CaptionCommands::NextUntimed() {
  for (Row row = list_.Selected() + 1; row < list_.Rows(); ++row) {
    if (list_.IsCaptionTimed(row)) continue;
    list_.SetRow(row, true);
    return;
  }
  messages_.Show({strings_[Message::NoMoreWithoutTiming], BoxIcon::Information, BoxButtons::Ok,
                  strings_[Message::SelectNextNonTimed]});
}

void CaptionCommands::Toggle(TextView marker) {
  const Row row = list_.Selected();
  const EditScope scope(list_, marker == u"<b>"   ? EditKind::Bold
                               : marker == u"<i>" ? EditKind::Italic
                                                  : EditKind::Underline);
  list_.ToggleMarker(row, marker);
  window_.txtSub.SetText(list_.GetCaptionText(row, true));
  preview_.Redraw(row);
  panel_.ShowStyles(row);
}

void CaptionCommands::ShowSeparator() {
  std::size_t choice = 0;
  while (choice < kSeparators.size() && options_.lineSeparator != kSeparators[choice]) ++choice;
  window_.mnuSeparator[0].SetText(strings_[Message::DefaultSeparator]);
  window_.mnuSeparator[1].SetText(kSeparators[1]);
  window_.mnuSeparator[2].SetText(kSeparators[2]);
  window_.mnuSeparator[3].SetText(
      Fill(strings_[Message::CustomSeparator], choice == 3 ? TextView(options_.lineSeparator) : u"..."));
  for (std::size_t i = 0; i < window_.mnuSeparator.size(); ++i) window_.mnuSeparator[i].SetChecked(i == choice);
}

void CaptionCommands::ChangeSeparator(std::size_t choice) {
  const Text before = options_.lineSeparator;
  for (std::size_t i = 0; i < window_.mnuSeparator.size(); ++i) window_.mnuSeparator[i].SetChecked(i == choice);
  Text after;
  if (choice < kSeparators.size()) {
    after = kSeparators[choice];
  } else {
    after = messages_.Ask({strings_[Message::TypeTheSeparator], strings_[Message::LineSeparator], before});
    if (after.empty()) after = before;
    window_.mnuSeparator[3].SetText(Fill(strings_[Message::CustomSeparator], after));
  }
  std::optional<EditScope> scope;
  if (document_.HasDocument()) scope.emplace(list_, EditKind::Separator);
  options_.lineSeparator = after;
  store_.SaveSetting(kMainSection, u"LBREAK", after);
  if (document_.HasDocument()) ReplaceSeparator(before, after);
  scope.reset();
  window_.txtSub.SetText(document_.HasDocument() ? list_.GetCaptionText(list_.Selected(), true) : Text());
}

void CaptionCommands::RestoreSeparator(const Text& separator) {
  options_.lineSeparator = separator;
  store_.SaveSetting(kMainSection, u"LBREAK", separator);
  ShowSeparator();
}

void CaptionCommands::ReplaceSeparator(TextView before, TextView after) {
  list_.SetEnabled(false);
  window_.txtSub.SetEnabled(false);
  // Only the first one of a caption changes. All rows from the first to the last that hold one are one change.
  Row first = 0;
  Row last = 0;
  for (Row row = 1; row < list_.Rows(); ++row) {
    if (FindLoose(list_.At(row).text, before) == TextView::npos) continue;
    if (first == 0) first = row;
    last = row;
  }
  if (first != 0 && before != after) {
    std::vector<Caption> rows;
    for (Row row = first; row <= last; ++row) {
      rows.push_back(list_.At(row));
      rows.back().text = ReplaceFirst(rows.back().text, before, after);
    }
    list_.Replace(first, last - first + 1, std::move(rows));
  }
  list_.SetEnabled(true);
  window_.txtSub.SetEnabled(true);
}

void CaptionCommands::OnListKey(KeyEvent& key) {
  if (!document_.HasDocument() || key.command) return;
  if (key.code == kKeyDelete) {
    RemoveSelected();
    key.handled = true;
  } else if (key.code == kKeyEnter) {
    capture_.SeekToCaption(list_.Selected(), false);
    key.handled = true;
  }
}

void CaptionCommands::OnListDoubleClick() {
  if (document_.HasDocument()) capture_.SeekToCaption(list_.Selected(), true);
}

bool CaptionCommands::OnListRightDown(int y) {
  const Row row = grid_.RowAt(y);
  if (!document_.HasDocument() || !list_.InRange(row)) return false;
  grid_.FocusRequested();
  if (row != list_.Selected()) list_.SetRow(row, false);
  panel_.ShowStyles(row);
  window_.rmnuBold.SetChecked(window_.mnuBold.Checked());
  window_.rmnuItalic.SetChecked(window_.mnuItalic.Checked());
  window_.rmnuUnderline.SetChecked(window_.mnuUnderline.Checked());
  return true;
}

void CaptionCommands::OnListUp(int y) {
  if (!document_.HasDocument()) return;
  if (grid_.OnHeading(y)) {
    list_.SetRow(grid_.TopRow(), false);
    return;
  }
  const Row row = grid_.RowAt(y);
  if (list_.InRange(row) && row != list_.Selected()) list_.SetRow(row, false);
}

}  // namespace cuewright
