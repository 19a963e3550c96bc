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

CaptionCommands::CaptionCommands(Workbench bench, CaptionPanel& panel, Preview& preview, TimingCapture& capture,
                                 SettingsStore& store, Ports ports)
    : bench_(bench), panel_(panel), preview_(preview), capture_(capture), store_(store), ports_(ports) {
  WireMenus();
  WireTextPane();
}

void CaptionCommands::WireMenus() {
  bench_.window.mnuAddBelow.Clicked.Connect([this] { AddBelow(); });
  bench_.window.mnuAddBottom.Clicked.Connect([this] { AddBottom(); });
  for (MenuItem* item : {&bench_.window.mnuEditSelected, &bench_.window.rmnuEdit})
    item->Clicked.Connect([this] { EditSelected(); });
  for (MenuItem* item : {&bench_.window.mnuRemove, &bench_.window.rmnuRemove})
    item->Clicked.Connect([this] { RemoveSelected(); });
  bench_.window.mnuGoTo.Clicked.Connect([this] { GoTo(); });
  bench_.window.mnuCountUntimed.Clicked.Connect([this] { CountUntimed(); });
  bench_.window.mnuNextUntimed.Clicked.Connect([this] { NextUntimed(); });
  bench_.window.mnuRawMarks.Clicked.Connect([this] { ToggleMarks(); });
  for (std::size_t choice = 0; choice < bench_.window.mnuSeparator.size(); ++choice) {
    bench_.window.mnuSeparator[choice].Clicked.Connect([this, choice] { ChangeSeparator(choice); });
  }
}

void CaptionCommands::WireTextPane() {
  TextBox& pane = bench_.window.txtSub;
  pane.GotFocus.Connect([this] { capture_.SetTextFocus(true); });
  pane.LostFocus.Connect([this] { capture_.SetTextFocus(false); });
  pane.KeyUp.Connect([this](KeyEvent&) { TakeTextPane(); });
  // Text can also come by the pointer or an input method, without a key of its own.
  pane.Edited.Connect([this] { TakeTextPane(); });
}

void CaptionCommands::TakeTextPane() {
  if (!bench_.document.HasDocument()) return;
  const Row row = bench_.list.Selected();
  const Text text = panel_.TakeText();
  // A key that changed nothing, such as an arrow, is no edit.
  if (bench_.options.manner.AsksWhenCaptionsDiffer() && text == bench_.list.GetCaptionText(row)) return;
  {
    const EditScope scope(bench_.list, EditKind::Typing, TypingNumber(row));
    // A line that was only begun isn't stored, be there marks behind it or not.
    if (!bench_.window.txtSub.GetText().ends_with(kLineEnd)) bench_.list.SetCaptionText(row, text);
    if (bench_.list.Rows() >= 3) bench_.list.SetModified();
  }
  preview_.Redraw(row);
  panel_.ShowStyles(row);
}

std::uint64_t CaptionCommands::TypingNumber(Row row) {
  const std::int64_t now = ports_.events.NowMs();
  if (row != typingRow_ || now - typedAt_ > kTypingPauseMs) ++typingNumber_;
  typingRow_ = row;
  typedAt_ = now;
  return typingNumber_;
}

bool CaptionCommands::CreateCaption(Row row) {
  const Text answer =
      ports_.messages.Ask({bench_.strings[Message::TypeTheNewCaption], bench_.strings[Message::InsertNewCaption], {}});
  if (answer.empty()) return false;
  CarryOn step;
  if (!step([&] {
        const EditScope scope(bench_.list, EditKind::Insert, ++insertNumber_);
        bench_.list.AddCaption(0, 0, answer, row);
        bench_.list.SetRow(row, false);
      })) {
    ports_.messages.Show({step.Last()->description, BoxIcon::Warning});
    return false;
  }
  return true;
}

void CaptionCommands::AddBelow() { CreateCaption(bench_.list.Selected() + 1); }

void CaptionCommands::AddBottom() {
  if (!CreateCaption(0)) return;
  const EditScope scope(bench_.list, EditKind::Insert, insertNumber_);  // the row that it selects belongs to it
  bench_.list.SetRow(bench_.list.Rows() - 1, false);
  if (bench_.list.Rows() >= 11) bench_.grid.SetTopRow(bench_.list.Rows() - kRowsOfPage);
}

void CaptionCommands::EditSelected() {
  const Row row = bench_.list.Selected();
  const Text answer = ports_.messages.Ask(
      {bench_.strings[Message::EditTheSelectedLine], bench_.strings[Message::EditCaption], bench_.grid.ShownText(row)});
  if (IsBlank(answer) || !bench_.list.InRange(row) || answer == bench_.grid.ShownText(row)) return;
  const EditScope scope(bench_.list, EditKind::EditText);
  const Text text = bench_.options.rawMarks ? answer : bench_.list.WithSeenText(row, answer);
  bench_.list.Replace(row, 1, {bench_.list.At(row).WithText(text)});
  panel_.ShowText(row);
}

void CaptionCommands::RemoveSelected() { bench_.list.DeleteCaptions(bench_.list.SelectedRows()); }

void CaptionCommands::GoTo() {
  const Text answer = ports_.messages.Ask({bench_.strings[Message::LineNumber], bench_.strings[Message::GoToLine], {}});
  const double number = LeadingNumber(answer);
  if (!IsNumeric(answer) || !(number > 0)) return;
  bench_.list.SetRow(RoundToInt32(std::min<double>(number, bench_.list.Rows().Number())), true);
}

void CaptionCommands::CountUntimed() {
  int untimed = 0;
  for (Row row = 1; row < bench_.list.Rows(); ++row) untimed += bench_.list.IsCaptionTimed(row) ? 0 : 1;
  ports_.messages.Show({Fill(bench_.strings[Message::TotalWithoutTiming], Decimal(untimed)), BoxIcon::Information,
                        BoxButtons::Ok, bench_.strings[Message::CountNonTimed]});
}

void CaptionCommands::NextUntimed() {
  for (Row row = bench_.list.Selected() + 1; row < bench_.list.Rows(); ++row) {
    if (bench_.list.IsCaptionTimed(row)) continue;
    bench_.list.SetRow(row, true);
    return;
  }
  ports_.messages.Show({bench_.strings[Message::NoMoreWithoutTiming], BoxIcon::Information, BoxButtons::Ok,
                        bench_.strings[Message::SelectNextNonTimed]});
}

void CaptionCommands::ToggleMarks() {
  bench_.options.rawMarks = !bench_.options.rawMarks;
  ShowMarks();
}

void CaptionCommands::ShowMarks() {
  // In the classic manner all that a text has is shown.
  bench_.window.mnuRawMarks.SetVisible(bench_.options.manner.KeepsStylesWithin());
  bench_.window.mnuRawMarks.SetChecked(bench_.options.rawMarks);
  if (!bench_.document.HasDocument()) return;
  panel_.ShowText(bench_.list.Selected());
  bench_.grid.ShowAnew();
}

void CaptionCommands::ShowSeparator() {
  std::size_t choice = 0;
  while (choice < kSeparators.size() && bench_.options.lineSeparator != kSeparators[choice]) ++choice;
  bench_.window.mnuSeparator[0].SetText(bench_.strings[Message::DefaultSeparator]);
  bench_.window.mnuSeparator[1].SetText(kSeparators[1]);
  bench_.window.mnuSeparator[2].SetText(kSeparators[2]);
  bench_.window.mnuSeparator[3].SetText(
      Fill(bench_.strings[Message::CustomSeparator], choice == 3 ? TextView(bench_.options.lineSeparator) : u"..."));
  for (std::size_t i = 0; i < bench_.window.mnuSeparator.size(); ++i)
    bench_.window.mnuSeparator[i].SetChecked(i == choice);
}

void CaptionCommands::ChangeSeparator(std::size_t choice) {
  const Text before = bench_.options.lineSeparator;
  for (std::size_t i = 0; i < bench_.window.mnuSeparator.size(); ++i)
    bench_.window.mnuSeparator[i].SetChecked(i == choice);
  Text after;
  if (choice < kSeparators.size()) {
    after = kSeparators[choice];
  } else {
    after = ports_.messages.Ask(
        {bench_.strings[Message::TypeTheSeparator], bench_.strings[Message::LineSeparator], before});
    if (after.empty()) after = before;
    bench_.window.mnuSeparator[3].SetText(Fill(bench_.strings[Message::CustomSeparator], after));
  }
  std::optional<EditScope> scope;
  if (bench_.document.HasDocument()) scope.emplace(bench_.list, EditKind::Separator);
  bench_.options.lineSeparator = after;
  store_.SaveSetting(kMainSection, u"LBREAK", after);
  if (bench_.document.HasDocument()) ReplaceSeparator(before, after);
  scope.reset();
  panel_.ShowText(bench_.document.HasDocument() ? bench_.list.Selected() : 0);
}

void CaptionCommands::RestoreSeparator(const Text& separator) {
  bench_.options.lineSeparator = separator;
  store_.SaveSetting(kMainSection, u"LBREAK", separator);
  ShowSeparator();
}

void CaptionCommands::ReplaceSeparator(TextView before, TextView after) {
  bench_.list.SetEnabled(false);
  bench_.window.txtSub.SetEnabled(false);
  // Only the first separator of a caption is replaced. The rows between the first and the last that have one go as one
  // splice.
  Row first = 0;
  Row last = 0;
  for (Row row = 1; row < bench_.list.Rows(); ++row) {
    if (FindLoose(bench_.list.At(row).text, before) == TextView::npos) continue;
    if (first == 0) first = row;
    last = row;
  }
  if (first != 0 && before != after) {
    std::vector<Caption> rows;
    for (Row row = first; row <= last; ++row) {
      rows.push_back(bench_.list.At(row));
      rows.back().text = ReplaceFirst(rows.back().text, before, after);
    }
    bench_.list.Replace(first, last - first + 1, std::move(rows));
  }
  bench_.list.SetEnabled(true);
  bench_.window.txtSub.SetEnabled(true);
}

void CaptionCommands::OnListKey(KeyEvent& key) {
  if (!bench_.document.HasDocument() || key.command) return;
  if (key.code == kKeyDelete) {
    RemoveSelected();
    key.handled = true;
  } else if (key.code == kKeyEnter) {
    capture_.SeekToCaption(bench_.list.Selected(), TimingCapture::SeekTo::Start);
    key.handled = true;
  }
}

void CaptionCommands::OnListDoubleClick() {
  if (bench_.document.HasDocument())
    capture_.SeekToCaption(bench_.list.Selected(), TimingCapture::SeekTo::JustBehindStart);
}

bool CaptionCommands::OnListRightDown(int y) {
  const Row row = bench_.grid.RowAt(y);
  if (!bench_.document.HasDocument() || !bench_.list.InRange(row)) return false;
  bench_.grid.RequestFocus();
  // The menu is for all that are selected, when it opens over one of them.
  if (row != bench_.list.Selected()) {
    if (bench_.grid.selection.Has(row)) {
      bench_.grid.selection.MoveCurrent(row, false);
    } else {
      bench_.list.SetRow(row, false);
    }
  }
  panel_.ShowStyles(row);
  bench_.window.rmnuBold.SetChecked(bench_.window.mnuBold.Checked());
  bench_.window.rmnuItalic.SetChecked(bench_.window.mnuItalic.Checked());
  bench_.window.rmnuUnderline.SetChecked(bench_.window.mnuUnderline.Checked());
  return true;
}

void CaptionCommands::OnListUp(int y) {
  if (!bench_.document.HasDocument()) return;
  if (bench_.grid.OnHeading(y)) {
    bench_.list.SetRow(bench_.grid.TopRow(), false);
    return;
  }
  const Row row = bench_.grid.RowAt(y);
  if (bench_.list.InRange(row) && row != bench_.list.Selected()) bench_.list.SetRow(row, false);
}

}  // namespace cuewright
