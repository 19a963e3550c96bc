#pragma once

#include <cstdint>
#include <exception>
#include <span>
#include <utility>
#include <vector>

#include "core/app_options.h"
#include "core/caption_marks.h"
#include "core/counting.h"
#include "core/edit_kind.h"
#include "core/ms.h"
#include "core/row_set.h"
#include "core/row_store.h"
#include "core/signal.h"
#include "text/text.h"

namespace cuewright {

/// One caption. Times are whole ms, 0 for none; line breaks in the text stand as the line separator, styles of the
/// whole caption as the bare markers "<b>", "<i>", "<u>", those of parts as its format marks them. Its number is its
/// row.
struct Caption {
  Ms start = 0;
  Ms end = 0;
  Text text;
  std::uint32_t origin = 0;  ///< number of its record in the file that was read, from 1; 0: it stands in none

  /// This caption with another text.
  Caption WithText(Text changed) const { return {start, end, std::move(changed), origin}; }

  /// What the user sees is the same; captions of different records may be.
  bool operator==(const Caption& other) const { return start == other.start && end == other.end && text == other.text; }
};

/// Start and end of a caption in ms.
struct CaptionTimes {
  Ms start = 0;
  Ms end = 0;

  bool operator==(const CaptionTimes&) const = default;
};

/// What one change of the list did: `removed` rows from `first` on went, `added` came in their place. A change of times
/// alone has as many of both, and gives the times that went in place of the rows.
struct Splice {
  Row first = 1;
  int removed = 0;
  int added = 0;
  std::span<const Caption> before;            ///< the rows that went
  std::span<const CaptionTimes> timesBefore;  ///< the times that went; the texts stayed

  bool TimesOnly() const { return !timesBefore.empty(); }
};

/// The document's captions and the selected rows. Every change ends in `Replace`.
class CaptionList {
 public:
  /// `options` gives the line separator and the nearby factor; `modified` is the document's flag.
  CaptionList(const AppOptions& options, bool& modified);

  /// Caption count plus 1; never below 2.
  Row Rows() const { return Count() + 1; }
  int Count() const { return CountOf(rows_); }
  bool InRange(Row row) const { return row >= 1 && row < Rows(); }
  const Caption& At(Row row) const { return rows_[row.Index()]; }
  CaptionTimes TimesAt(Row row) const { return {At(row).start, At(row).end}; }
  /// Of all captions, row 1 first.
  std::vector<CaptionTimes> AllTimes() const;

  /// The text, the empty one for a row out of range; with `asLines` every line separator is CR LF.
  Text GetCaptionText(Row row, bool asLines = false) const;

  /// What the marks in the texts mean; without it they are texts with the list's markers alone. It outlives the list.
  void SetMarks(const CaptionMarks& marks) { marks_ = &marks; }
  const CaptionMarks& Marks() const { return *marks_; }
  /// The text as it is read, without marks; in the classic manner the stored one. Else as `GetCaptionText`.
  Text GetSeenText(Row row, bool asLines = false) const;
  /// The stored text of a row in range with another text to read, in which its marks have kept their places.
  Text WithSeenText(Row row, TextView seen) const;

  /// Start (end) in ms; 0 for a row out of range.
  Ms GetCaptionStart(Row row) const;
  Ms GetCaptionEnd(Row row) const;
  /// True when the start is above 0.
  bool IsCaptionTimed(Row row) const;

  /// Stores a text; one that ends in the line separator is dropped. Leaves the modified flag alone.
  void SetCaptionText(Row row, TextView text);
  /// Stores a start (end) in ms, a negative one as 0; sets the modified flag unless `quiet`.
  void SetCaptionStart(Row row, Ms ms, bool quiet);
  void SetCaptionEnd(Row row, Ms ms);
  void ClearCaptionTiming(Row row, bool quiet);

  /// Which of the markers "<b>", "<i>" and "<u>" occur in a text, in lower case.
  struct Markers {
    bool bold = false;
    bool italic = false;
    bool underline = false;
    int Count() const { return int{bold} + int{italic} + int{underline}; }
  };
  static Markers MarkersIn(TextView text);
  /// Which of them a caption has as a whole; in the classic manner all that occur in it.
  Markers MarkersOf(Row row) const;

  /// The caption as a whole has the style.
  bool IsCaptionBold(Row row) const;
  bool IsCaptionItalic(Row row) const;
  bool IsCaptionUnderline(Row row) const;
  /// Any of the three.
  bool IsCaptionFormatted(Row row) const;

  /// The text of a row in range with the marker, or without it, as `ToggleMarker` would store it.
  Text TextWithMarker(Row row, TextView marker, bool on) const;

  /// Takes the marker ("<b>", "<i>" or "<u>") from the whole caption, or gives it to all of it: then marks that style
  /// parts of it in the same way go. In the classic manner every copy is removed, or one appended. Leaves the modified
  /// flag alone.
  void ToggleMarker(Row row, TextView marker);

  /// Adds a caption at `row`, 0 for the bottom; the first one of an empty document fills its blank row.
  /// Times and text are stored unchanged; the modified flag is left alone. Returns the row it got.
  Row AddCaption(Ms start, Ms end, TextView text, Row row);

  /// Removes a row; the only caption is blanked instead. Nothing happens to a blank only caption.
  void DeleteCaption(Row row);
  /// Removes rows, those in range, in one change; the caption behind the first one is selected. Of all captions a blank
  /// one is left.
  void DeleteCaptions(RowSet rows);

  /// Joins a caption to its predecessor when its start lies before that one's end or at most the nearby
  /// factor behind it.
  void SnapNearbyStart(Row row, bool quiet);

  /// A text of two lines, split at a dialogue dash or at the blank nearest the middle; empty when it holds no
  /// blank. Run-time error 6 from 512 characters on, 5 when no place to split is left.
  Text SplitCaptionLines(TextView text) const;

  /// Renumbers: a number is its row, so this only announces that all rows are to be shown anew.
  void SortNumbers();

  /// Empties the list to one blank row.
  void Reset();

  /// The one mutator: `count` rows from `first` on give way to `rows`. At least one caption must be left.
  /// Run-time error 6 when the list would pass `kMaxRow`; then nothing changes.
  void Replace(Row first, int count, std::vector<Caption> rows);

  /// The mutator for times alone: the rows from `first` on take these, and the times that went come back in their
  /// place. No text is touched. Negative times are stored as they are.
  void Retime(Row first, std::span<CaptionTimes> times);

  /// The selected row as the list has it, and the row last passed through `SetRow`.
  Row Selected() const { return selected_; }
  Row CurrentRow() const { return currentRow_; }

  /// The rows that commands act on: never none, and usually the selected row alone. They go with their captions when
  /// the list changes.
  const RowSet& SelectedRows() const { return chosen_; }
  /// Selects these rows, those in range, of which `row` is the one that the window shows. Else as `SetRow`.
  void SelectRows(RowSet rows, Row row, bool scroll);

  /// Selects a row (a negative one means 1, one past the end the last, 0 nothing) and announces it unless the
  /// list is disabled. The selected row shown anew leaves those that are selected with it.
  void SetRow(Row row, bool scroll);

  /// Moves the list's selection, as an arrow key or a click does; runs `SetRow` when it left `CurrentRow` behind. A row
  /// that the user points at is in view and stays where it is: then `scroll` is false. No other row is selected.
  void MoveSelection(Row row, bool scroll = true);

  /// Disabled during bulk operations: `SetRow` then announces nothing.
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);

  void SetModified() {
    modified_ = true;
    ++modifiedRaises_;
  }
  /// How often the modified flag was raised, also while it was up.
  std::uint32_t ModifiedRaises() const { return modifiedRaises_; }

  /// A command on the captions begins and ends: what changes between is one step. Those inside another belong to it.
  /// Commands of the same kind that follow each other with the same `join`, which isn't 0, are one as well. See
  /// `EditScope`.
  void BeginCommand(EditKind kind, std::uint64_t join);
  void EndCommand();
  bool InCommand() const { return commandDepth_ > 0; }

  const AppOptions& Options() const { return options_; }

  Signal<CaptionList, const Splice&> Spliced;
  Signal<CaptionList, Row, bool> RowShown;    ///< `SetRow` ran on the enabled list: row, whether to scroll
  Signal<CaptionList, Row> SelectionChanged;  ///< the selection has moved, also on a disabled list
  Signal<CaptionList, bool> EnabledChanged;
  Signal<CaptionList, EditKind, std::uint64_t> CommandBegan;
  Signal<CaptionList> CommandEnded;

 private:
  void StoreTimes(Row row, Ms start, Ms end);
  void Choose(Row row, RowSet rows, bool scroll);
  /// Styles stay where they are in the texts, so that these have marks.
  bool HasMarks() const { return options_.manner.KeepsStylesWithin(); }

  const AppOptions& options_;
  bool& modified_;
  RowStore<Caption> rows_;
  const ListMarks listMarks_;
  const CaptionMarks* marks_ = &listMarks_;
  Row selected_ = 1;
  Row currentRow_ = 1;
  RowSet chosen_{1};
  bool enabled_ = true;
  int commandDepth_ = 0;
  std::uint32_t modifiedRaises_ = 0;
};

/// Makes what is done to the list in its life one command.
class EditScope {
 public:
  EditScope(CaptionList& list, EditKind kind, std::uint64_t join = 0) : list_(list) { list_.BeginCommand(kind, join); }
  EditScope(const EditScope&) = delete;
  EditScope& operator=(const EditScope&) = delete;
  /// Throws what a slot throws at the end, unless an exception is on its way already.
  ~EditScope() noexcept(false) {
    try {
      list_.EndCommand();
    } catch (...) {
      if (std::uncaught_exceptions() == exceptions_) throw;
    }
  }

 private:
  CaptionList& list_;
  int exceptions_ = std::uncaught_exceptions();  // on their way when the command began
};

}  // namespace cuewright
