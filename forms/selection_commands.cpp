#include "forms/selection_commands.h"

#include <algorithm>
#include <numeric>
#include <optional>

#include "core/caption_time.h"
#include "core/counting.h"
#include "core/numbers.h"
#include "core/style_markers.h"
#include "formats/source/source_map.h"
#include "tools/join_captions.h"
#include "tools/typed_time.h"

namespace cuewright {
namespace {

constexpr Ms kLargestShift = 360000000;  // ms, a hundred hours

/// The ms of a time with or without a sign; empty for any other text.
std::optional<Ms> ShiftOf(TextView typed) {
  typed = TrimBlanks(typed);
  const bool back = typed.starts_with(u'-');
  if (back || typed.starts_with(u'+')) typed.remove_prefix(1);
  const std::optional<Ms> ms = TypedTime(typed);
  if (!ms || *ms > kLargestShift) return {};
  return back ? -*ms : *ms;
}

}  // namespace

SelectionCommands::SelectionCommands(Workbench bench, CaptionPanel& panel, Preview& preview, const FormatState& formats,
                                     Ports ports)
    : bench_(bench), panel_(panel), preview_(preview), formats_(formats), ports_(ports) {
  Wire();
}

void SelectionCommands::Wire() {
  MainWindow& w = bench_.window;
  w.mnuSelectAll.Clicked.Connect([this] { bench_.grid.selection.All(); });
  w.mnuCut.Clicked.Connect([this] { Cut(); });
  w.mnuCopy.Clicked.Connect([this] { Copy(); });
  w.mnuPaste.Clicked.Connect([this] { Paste(); });
  w.mnuShift.Clicked.Connect([this] { Shift(); });
  w.mnuJoinSelected.Clicked.Connect([this] { Join(); });
  w.mnuUpperCase.Clicked.Connect([this] { ChangeCase(LetterCase::Upper); });
  w.mnuLowerCase.Clicked.Connect([this] { ChangeCase(LetterCase::Lower); });
  w.mnuSentenceCase.Clicked.Connect([this] { ChangeCase(LetterCase::Sentence); });
  w.mnuMoveUp.Clicked.Connect([this] { Move(false); });
  w.mnuMoveDown.Clicked.Connect([this] { Move(true); });
  w.mnuSortByStart.Clicked.Connect([this] { SortByStart(); });
  for (MenuItem* item : {&w.mnuBold, &w.rmnuBold}) item->Clicked.Connect([this] { ToggleStyle(kBoldMarker); });
  for (MenuItem* item : {&w.mnuItalic, &w.rmnuItalic}) item->Clicked.Connect([this] { ToggleStyle(kItalicMarker); });
  for (MenuItem* item : {&w.mnuUnderline, &w.rmnuUnderline}) {
    item->Clicked.Connect([this] { ToggleStyle(kUnderlineMarker); });
  }
}

void SelectionCommands::ShowItems() {
  MainWindow& w = bench_.window;
  const bool many = bench_.options.manner.ListIsAWorkbench();
  for (MenuItem* item : {&w.mnuLine1d, &w.mnuSelectAll, &w.mnuCut, &w.mnuCopy, &w.mnuPaste, &w.mnuShift,
                         &w.mnuJoinSelected, &w.mnuLetterCase, &w.mnuUpperCase, &w.mnuLowerCase, &w.mnuSentenceCase,
                         &w.mnuMoveUp, &w.mnuMoveDown, &w.mnuSortByStart}) {
    item->SetVisible(many);
  }
}

void SelectionCommands::ShowCurrent() {
  const Row row = bench_.list.Selected();
  panel_.ShowText(row);
  preview_.Redraw(row);
  panel_.ShowStyles(row);
}

template <class Change>
void SelectionCommands::Rewrite(EditKind kind, Change change) {
  CaptionList& list = bench_.list;
  const RowSet rows = Rows();
  std::vector<Caption> changed;
  bool differs = false;
  for (Row row = rows.First(); row <= rows.Last(); ++row) {
    changed.push_back(rows.Has(row) ? list.At(row).WithText(change(row)) : list.At(row));
    differs = differs || changed.back().text != list.At(row).text;
  }
  if (!differs) return;
  const EditScope scope(list, kind);
  list.Replace(rows.First(), rows.Last() - rows.First() + 1, std::move(changed));
  list.SetModified();
  ShowCurrent();
}

void SelectionCommands::ToggleStyle(TextView marker) {
  CaptionList& list = bench_.list;
  const EditKind kind = marker == kBoldMarker     ? EditKind::Bold
                        : marker == kItalicMarker ? EditKind::Italic
                                                  : EditKind::Underline;
  if (Rows().Count() == 1) {
    // One alone keeps the rule that it has always had, also for markers in its middle.
    const EditScope scope(list, kind);
    list.ToggleMarker(Rows().First(), marker);
    return ShowCurrent();
  }
  const auto has = [&](Row row) {
    const CaptionList::Markers markers = list.MarkersOf(row);
    return marker == kBoldMarker ? markers.bold : marker == kItalicMarker ? markers.italic : markers.underline;
  };
  const bool on = !std::ranges::all_of(Rows().Rows(), has);
  Rewrite(kind, [&](Row row) { return list.TextWithMarker(row, marker, on); });
}

void SelectionCommands::ChangeCase(LetterCase wanted) {
  CaptionList& list = bench_.list;
  const Text& separator = list.Options().lineSeparator;
  Rewrite(EditKind::Case, [&](Row row) {
    const Text lines = ReplaceAll(list.GetSeenText(row, true), kLineEnd, u"\n");
    return list.WithSeenText(row, ReplaceAll(InCase(lines, wanted), u"\n", separator));
  });
}

ClipboardCaptions SelectionCommands::Taken() const {
  ClipboardCaptions taken;
  taken.marks = MarksOf(formats_.Source.get());
  const Text& separator = bench_.options.lineSeparator;
  for (const Row row : Rows().Rows()) {
    const Caption& caption = bench_.list.At(row);
    taken.captions.push_back({caption.start, caption.end, ReplaceAll(caption.text, separator, u"\n")});
  }
  return taken;
}

void SelectionCommands::Copy() {
  const ClipboardCaptions taken = Taken();
  ports_.desktop.PutOnClipboard(TextOfCaptions(taken), WriteCaptions(taken));
}

void SelectionCommands::Cut() {
  Copy();
  const EditScope scope(bench_.list, EditKind::Cut);
  bench_.list.DeleteCaptions(Rows());
}

void SelectionCommands::Paste() {
  CaptionList& list = bench_.list;
  const MarkKind marks = MarksOf(formats_.Source.get());
  ClipboardCaptions given;
  if (auto captions = ReadCaptions(ports_.desktop.ClipboardCaptions())) {
    given = std::move(*captions);
  } else {
    given = CaptionsOfText(ports_.desktop.ClipboardText());
    given.marks = marks;
  }
  if (given.captions.empty()) return;
  const bool blank = list.Rows() == 2 && list.At(1) == Caption{};
  const int whole = CountOf(given.captions) + (blank ? 0 : list.Count());
  if (whole > kMaxRow.Number()) {
    ports_.messages.Show(
        {Fill(bench_.strings[Message::ClipboardTooMuch], Decimal(whole), Decimal(kMaxRow.Number())), BoxIcon::Warning});
    return;
  }
  Losses losses;
  for (Caption& caption : given.captions) {
    if (given.marks != marks) caption.text = ConvertWithin({caption.text}, given.marks, marks, u"\n", losses);
    caption.text = ReplaceAll(caption.text, u"\n", bench_.options.lineSeparator);
  }
  const Row first = blank ? 1 : std::min(Rows().Last(), list.Rows() - 1) + 1;
  const Row last = first + CountOf(given.captions) - 1;
  const EditScope scope(list, EditKind::Paste);
  list.Replace(first, blank ? 1 : 0, std::move(given.captions));
  list.SelectRows({first, last}, first, true);
  list.SetModified();
}

void SelectionCommands::Shift() {
  const Text answer = ports_.messages.Ask(
      {bench_.strings[Message::ShiftQuestion], WithoutAccessKey(bench_.strings[Message::ShiftCaptions]), {}});
  if (IsBlank(answer)) return;
  if (const auto ms = ShiftOf(answer)) return ShiftBy(*ms);
  ports_.messages.Show({Fill(bench_.strings[Message::ShiftNotUnderstood], answer), BoxIcon::Warning});
}

void SelectionCommands::ShiftBy(Ms ms) {
  CaptionList& list = bench_.list;
  const RowSet rows = Rows();
  Ms earliest = Ms::Latest();
  for (const Row row : rows.Rows()) {
    if (list.IsCaptionTimed(row)) earliest = std::min(earliest, list.GetCaptionStart(row));
  }
  // The distances between them stay: none is pushed to the film's beginning, where it would count as untimed.
  const Ms by = std::max(ms, 1 - earliest);
  const auto moved = [by](Ms time) { return Ms::Within(time.Wide() + by.Wide(), 0, Ms::Latest()); };
  std::vector<CaptionTimes> times;
  for (Row row = rows.First(); row <= rows.Last(); ++row) {
    CaptionTimes time = list.TimesAt(row);
    if (rows.Has(row) && list.IsCaptionTimed(row)) {
      time = {moved(time.start), time.end == 0 ? 0 : moved(time.end)};
    }
    times.push_back(time);
  }
  const EditScope scope(list, EditKind::Shift);
  list.Retime(rows.First(), times);
  list.SetModified();
  list.SetRow(list.Selected(), false);
}

void SelectionCommands::Reorder(EditKind kind, const RowSet::Stretch& stretch, const std::vector<Row>& order) {
  CaptionList& list = bench_.list;
  std::vector<Caption> rows;
  rows.reserve(order.size());
  for (const Row row : order) rows.push_back(list.At(row));
  RowSet chosen;
  Row current = list.Selected();
  Row place = stretch.first;
  for (const Row row : order) {
    if (Rows().Has(row)) chosen.Add(place, place);
    if (row == list.Selected()) current = place;
    ++place;
  }
  for (const Row row : Rows().Rows()) {
    if (row < stretch.first || row > stretch.last) chosen.Add(row, row);
  }
  const EditScope scope(list, kind);
  list.Replace(stretch.first, stretch.last - stretch.first + 1, std::move(rows));
  list.SelectRows(std::move(chosen), current, true);
  list.SetModified();
}

void SelectionCommands::Move(bool down) {
  const RowSet& rows = Rows();
  const RowSet::Stretch stretch{std::max<Row>(rows.First() - (down ? 0 : 1), 1),
                                std::min(rows.Last() + (down ? 1 : 0), bench_.list.Rows() - 1)};
  std::vector<Row> order(stretch.last - stretch.first + 1);
  std::iota(order.begin(), order.end(), stretch.first);
  const std::vector<Row> before = order;
  // Each selected row changes places with its neighbour, unless that is a selected one that stands at the list's end.
  if (down) std::ranges::reverse(order);
  for (std::size_t i = 1; i < order.size(); ++i) {
    if (rows.Has(order[i]) && !rows.Has(order[i - 1])) std::swap(order[i], order[i - 1]);
  }
  if (down) std::ranges::reverse(order);
  if (order != before) Reorder(EditKind::Move, stretch, order);
}

void SelectionCommands::SortByStart() {
  const CaptionList& list = bench_.list;
  const RowSet rows = Rows().Count() > 1 ? Rows() : RowSet(1, list.Rows() - 1);
  struct Place {
    Ms start;
    Row row;
  };
  std::vector<Place> places;
  Ms start = 0;
  for (const Row row : rows.Rows()) {
    // A caption without times stays behind the one that it stands behind.
    if (list.IsCaptionTimed(row)) start = list.GetCaptionStart(row);
    places.push_back({start, row});
  }
  std::ranges::stable_sort(places, {}, &Place::start);
  const RowSet::Stretch stretch{rows.First(), rows.Last()};
  std::vector<Row> order;
  auto next = places.begin();
  for (Row row = stretch.first; row <= stretch.last; ++row) order.push_back(rows.Has(row) ? (next++)->row : row);
  if (!std::ranges::is_sorted(order)) Reorder(EditKind::Sort, stretch, order);
}

void SelectionCommands::Join() {
  CaptionList& list = bench_.list;
  const RowSet rows = Rows();
  const EditScope scope(list, EditKind::Join);
  if (JoinCaptions(list, rows, JoinAs::Lines)) list.SelectRows(RowSet(rows.First()), rows.First(), true);
}

}  // namespace cuewright
