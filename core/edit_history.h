#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "core/caption_list.h"
#include "core/edit_kind.h"
#include "core/finish_first.h"
#include "core/signal.h"
#include "text/text.h"

namespace cuewright {

/// One change: what went stands in the step's store from `at` on.
struct EditChange {
  Row first = 1;
  int removed = 0;
  int added = 0;
  bool timesOnly = false;
  std::size_t at = 0;
};
/// A command that can be taken back.
struct EditStep {
  EditKind kind = EditKind::Change;
  std::uint64_t join = 0;
  std::vector<EditChange> changes;
  std::vector<Caption> captions;
  std::vector<CaptionTimes> times;
  Text separatorBefore;
  Text separatorAfter;
  Row rowBefore = 1;
  Row rowAfter = 1;
  RowSet chosenBefore;
  RowSet chosenAfter;
  bool raised = false;

  bool Empty() const { return changes.empty() && separatorBefore == separatorAfter; }
};

/// What the captions of a new document are as.
enum class DocumentBaseline {
  File,   ///< its file
  Blank,  ///< the blank document that it began as
  None,   ///< nothing that was ever stored: they came back from a journal
};

/// Takes commands back and does them again. It hears every change of the list and keeps what went, so that its memory
/// grows with what changed; a command is one step, however many changes it made.
class EditHistory {
 public:
  /// `modified` is the document's flag.
  EditHistory(CaptionList& list, bool& modified);

  /// The command that `Undo` (`Redo`) would take back (do again); empty for none.
  std::optional<EditKind> UndoKind() const;
  std::optional<EditKind> RedoKind() const;

  /// Takes the last command back, and the next one back again. The list, the selected rows and the separator are as
  /// they were before the command (after it). The modified flag is cleared in the state that was saved; in every other
  /// it is raised if the command had raised it.
  void Undo();
  void Redo();

  /// Steps behind and ahead.
  std::size_t UndoSteps() const { return undo_.size(); }
  std::size_t RedoSteps() const { return redo_.size(); }

  /// There is another document, and its captions are as `baseline` says: nothing is left to take back.
  void Begin(DocumentBaseline baseline);
  /// There is no document: nothing is kept until the next `Begin`.
  void End();
  /// The document was saved; with `whole` its captions are as its file from now on.
  void MarkSaved(bool whole);
  /// True when the captions, whatever line break separates their lines, aren't those that were loaded or saved last;
  /// false without a document. Looks at all of them unless the steps alone tell.
  bool Differs() const;
  /// True when the steps behind are those of the state that was loaded or saved last.
  bool AtSavedStep() const { return savedPrint_ && savedAt_ == undo_.size() && !strayed_; }

  /// About how many bytes the steps take up.
  std::size_t Bytes() const;

  Signal<EditHistory> Changed;                         ///< there is something else to take back or to do again
  Signal<EditHistory, const Text&> SeparatorRestored;  ///< the captions are written with this separator again

 private:
  void Forget();
  void OnBegan(EditKind kind, std::uint64_t join);
  void OnSplice(const Splice& splice);
  void OnEnded();
  /// The step's changes leave all as it was.
  bool ChangesNothing(const EditStep& step) const;
  std::uint64_t Fingerprint() const;
  bool Joins(EditKind kind, std::uint64_t join) const;
  static void Record(EditStep& step, const Splice& splice);
  /// Takes the changes of a step back; the result takes that back.
  EditStep Reverse(EditStep step, FinishFirst& all);
  void Move(std::vector<EditStep>& from, std::vector<EditStep>& to, bool back);

  CaptionList& list_;
  bool& modified_;
  std::vector<EditStep> undo_;
  std::vector<EditStep> redo_;
  std::optional<EditStep> open_;  ///< the step of the command that runs
  bool keeping_ = false;          ///< there is a document
  bool reversing_ = false;
  bool strayed_ = false;  ///< the list was changed outside of a command
  std::uint32_t raisesBefore_ = 0;
  std::optional<std::size_t> savedAt_;       ///< steps behind in the state that was saved
  std::optional<std::uint64_t> savedPrint_;  ///< of the captions in that state; empty: no file has them
};

}  // namespace cuewright
