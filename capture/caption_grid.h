#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "capture/caption_cells.h"
#include "capture/list_columns.h"
#include "core/caption_list.h"
#include "core/selection.h"
#include "core/signal.h"
#include "text/text.h"

namespace cuewright {

/// What is wrong with captions, for the list to show. An edit that changes what is found of other rows is told to the
/// list by `CaptionGrid::ShowRowsAnew`.
class RowFindings {
 public:
  virtual ~RowFindings() = default;

  /// True when there are findings of a row in range. Called for every row that is painted.
  virtual bool Any(Row row) const = 0;
  /// The findings of a row in the language in force, each on a line of its own; empty when there are none.
  virtual Text Reasons(Row row) const = 0;
};

/// Which captions were moved to where the voice is, for the list to show.
class RowMoves {
 public:
  virtual ~RowMoves() = default;

  enum class Kind : std::uint8_t { None, Sure, Doubtful };
  /// True when a row in range was moved. Called for every row that is painted.
  virtual Kind KindOf(Row row) const = 0;
  /// How far a row was moved and how sure that is, in the language in force; empty for one that wasn't moved.
  virtual Text Words(Row row) const = 0;
};

/// Times that the list shows in place of the captions' own, while the user looks at what a change would bring.
class ForeseenTimes {
 public:
  virtual ~ForeseenTimes() = default;
  /// The times to show for a row in range.
  virtual CaptionTimes TimesOf(Row row) const = 0;
};

/// What the list control `grdSubs` shows beside its rows: columns, headings, fonts and what part is in view.
/// Sizes are in pixels. `Changed` asks for the whole control to be set up anew, `Scrolled` to follow `TopRow`.
class CaptionGrid {
 public:
  explicit CaptionGrid(CaptionList& list) : selection(list), list_(list) {}

  /// What the user does with rows by hand.
  Selection selection;

  /// True while captions are shown; false while one plain column shows `Notice`, without highlighting.
  bool Active() const { return active_; }
  const Text& Notice() const { return notice_; }
  void ShowNotice(TextView notice);
  void ShowCaptions();

  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);

  /// True when the user's choice of columns is shown; else, in the classic manner, four columns show what is stored.
  bool IsWorkbench() const { return list_.Options().manner.ListIsAWorkbench(); }

  using Texts = std::array<Text, kListColumns>;
  /// The headings, one for each `ListColumn`.
  const Texts& Headings() const { return headings_; }
  void SetHeadings(Texts headings);

  /// How the user has arranged the columns.
  const ColumnOrder& Columns() const { return columns_; }
  void SetColumns(const ColumnOrder& columns);
  const TimesShown& Times() const { return times_; }
  void SetTimes(const TimesShown& times);

  /// The findings to show; they must outlive the list. Null: captions aren't checked.
  void SetFindings(const RowFindings* findings);
  bool HasFindings(Row row) const {
    return IsWorkbench() && findings_ != nullptr && list_.InRange(row) && findings_->Any(row);
  }
  Text Findings(Row row) const { return HasFindings(row) ? findings_->Reasons(row) : Text(); }

  /// The captions that were moved; it must outlive the list. Null: none is marked as moved.
  void SetMoves(const RowMoves* moves);
  RowMoves::Kind MoveOf(Row row) const {
    return IsWorkbench() && moves_ != nullptr && list_.InRange(row) ? moves_->KindOf(row) : RowMoves::Kind::None;
  }
  /// The findings of a row and how it was moved, each on a line of its own; empty when there is neither.
  Text Remarks(Row row) const;

  /// The row whose caption the film shows; 0 for none.
  Row FilmRow() const { return filmRow_; }
  void MarkFilmRow(Row row);
  /// These rows are to be painted anew.
  void ShowRowsAnew(Row first, Row last) { RowsTouched(first, last); }
  /// What a cell of a row in range shows.
  Text CellText(Row row, ListColumn column) const;
  /// How a caption is read out: of one with times "%1, %2 to %3 seconds, %4" or the like (number, start, end, text), of
  /// one without "%1, without times, %4". `found` has places for that and for what is found of it.
  void SetSpoken(TextView timed, TextView untimed, TextView found);
  /// What the text column shows of a row in range.
  Text ShownText(Row row) const;
  /// From now on rows show these times instead of their own, until null is given; until then they must stay alive.
  void Foresee(const ForeseenTimes* times);
  /// The times that the list shows of a row in range.
  CaptionTimes ShownTimes(Row row) const { return foreseen_ != nullptr ? foreseen_->TimesOf(row) : list_.TimesAt(row); }
  /// The times shown of a row in range aren't its own.
  bool ShowsOtherTimes(Row row) const { return foreseen_ != nullptr && foreseen_->TimesOf(row) != list_.TimesAt(row); }
  /// All rows are to be painted anew.
  void ShowAnew() { Changed(); }
  /// What a screen reader says for a row; empty for one out of range.
  Text SpokenCaption(Row row) const;
  bool RightToLeft() const { return rightToLeft_; }
  void SetRightToLeft(bool on);

  const std::array<int, 4>& ColumnWidths() const { return widths_; }
  void SetColumnWidths(std::array<int, 4> widths);

  /// The font of the rows.
  const Text& FontName() const { return fontName_; }
  int FontSize() const { return fontSize_; }
  bool FontBold() const { return fontBold_; }
  void SetFont(TextView name, int size, bool bold);

  /// The first visible row, from 1.
  Row TopRow() const { return topRow_; }
  void SetTopRow(Row row);
  /// Takes over the first visible row after the user has scrolled, without telling it back.
  void NoteTopRow(Row row) { topRow_ = row; }

  /// Height of the control and of one row, as the window measured them.
  void NoteMetrics(int height, int rowHeight);
  int Height() const { return height_; }

  /// Keeps the selected row in view; with `force` it stays three rows above the lower edge.
  void ScrollRow(bool force);

  /// The row under a vertical position counted from the control's top, heading included; it may lie out of range,
  /// and on the heading it is the row above the first visible one.
  Row RowAt(int y) const { return topRow_ + (y / rowHeight_ - 1); }
  bool OnHeading(int y) const { return y < rowHeight_; }

  Signal<CaptionGrid> Changed;
  Signal<CaptionGrid> Scrolled;
  Signal<CaptionGrid, Row, Row> RowsTouched;  ///< the first and the last of rows that look different now
  Signal<CaptionGrid> FocusRequested;
  void RequestFocus() { FocusRequested(); }

 private:
  CaptionList& list_;
  const ForeseenTimes* foreseen_ = nullptr;
  bool active_ = false;
  bool enabled_ = true;
  bool rightToLeft_ = false;
  Text notice_;
  Texts headings_;
  ColumnOrder columns_;
  TimesShown times_;
  const RowFindings* findings_ = nullptr;
  const RowMoves* moves_ = nullptr;
  Row filmRow_ = 0;
  Text spokenTimed_;
  Text spokenUntimed_;
  Text spokenFound_;
  std::array<int, 4> widths_ = {34, 58, 58, 200};
  Text fontName_;
  int fontSize_ = 8;
  bool fontBold_ = false;
  Row topRow_ = 1;
  int height_ = 0;
  int rowHeight_ = 1;
};

}  // namespace cuewright
