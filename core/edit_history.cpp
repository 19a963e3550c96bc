#include "core/edit_history.h"

#include <bit>
#include <functional>
#include <iterator>
#include <span>
#include <utility>

#include "core/counting.h"

namespace cuewright {

EditHistory::EditHistory(CaptionList& list, bool& modified) : list_(list), modified_(modified) {
  list_.CommandBegan.Connect([this](EditKind kind, std::uint64_t join) { OnBegan(kind, join); });
  list_.Spliced.Connect([this](const Splice& splice) { OnSplice(splice); });
  list_.CommandEnded.Connect([this] { OnEnded(); });
}

std::optional<EditKind> EditHistory::UndoKind() const {
  return undo_.empty() ? std::nullopt : std::optional(undo_.back().kind);
}

std::optional<EditKind> EditHistory::RedoKind() const {
  return redo_.empty() ? std::nullopt : std::optional(redo_.back().kind);
}

bool EditHistory::Joins(EditKind kind, std::uint64_t join) const {
  if (join == 0 || undo_.empty() || !redo_.empty() || savedAt_ == undo_.size()) return false;
  return undo_.back().kind == kind && undo_.back().join == join;
}

void EditHistory::OnBegan(EditKind kind, std::uint64_t join) {
  if (reversing_ || !keeping_) return;
  raisesBefore_ = list_.ModifiedRaises();
  if (Joins(kind, join)) {
    open_ = std::move(undo_.back());
    undo_.pop_back();
    return;
  }
  open_.emplace();
  open_->kind = kind;
  open_->join = join;
  open_->rowBefore = list_.Selected();
  open_->chosenBefore = list_.SelectedRows();
  open_->separatorBefore = list_.Options().lineSeparator;
}

void EditHistory::OnSplice(const Splice& splice) {
  if (open_) {
    Record(*open_, splice);
  } else {
    strayed_ = true;
  }
}

void EditHistory::Record(EditStep& step, const Splice& splice) {
  if (!step.changes.empty()) {
    EditChange& last = step.changes.back();
    const bool steady = last.removed == last.added && splice.removed == splice.added;
    // These rows are in the step already: as whole rows, or as times where only times had changed.
    const bool within = splice.first >= last.first && splice.first + splice.removed <= last.first + last.removed;
    if (steady && within && (!last.timesOnly || splice.TimesOnly())) return;
    if (steady && last.timesOnly == splice.TimesOnly() && splice.first == last.first + last.removed) {
      last.removed = last.added = last.removed + splice.removed;
      step.captions.insert(step.captions.end(), splice.before.begin(), splice.before.end());
      step.times.insert(step.times.end(), splice.timesBefore.begin(), splice.timesBefore.end());
      return;
    }
  }
  const std::size_t at = splice.TimesOnly() ? step.times.size() : step.captions.size();
  step.changes.push_back({splice.first, splice.removed, splice.added, splice.TimesOnly(), at});
  step.captions.insert(step.captions.end(), splice.before.begin(), splice.before.end());
  step.times.insert(step.times.end(), splice.timesBefore.begin(), splice.timesBefore.end());
}

void EditHistory::OnEnded() {
  if (reversing_ || !open_) return;
  EditStep step = std::move(*open_);
  open_.reset();
  step.rowAfter = list_.Selected();
  step.chosenAfter = list_.SelectedRows();
  step.separatorAfter = list_.Options().lineSeparator;
  step.raised = step.raised || list_.ModifiedRaises() != raisesBefore_;
  if (step.Empty() || ChangesNothing(step)) {
    Changed();
    return;
  }
  redo_.clear();
  if (savedAt_ && *savedAt_ > undo_.size()) savedAt_.reset();
  undo_.push_back(std::move(step));
  Changed();
}

bool EditHistory::ChangesNothing(const EditStep& step) const {
  if (step.separatorBefore != step.separatorAfter || step.changes.size() != 1) return false;
  const EditChange& change = step.changes.front();
  if (change.removed != change.added) return false;
  for (int i = 0; i < change.removed; ++i) {
    const auto at = change.at + SizeOf(i);
    const Row row = change.first + i;
    if (change.timesOnly ? list_.TimesAt(row) != step.times[at] : list_.At(row) != step.captions[at]) return false;
  }
  return true;
}

EditStep EditHistory::Reverse(EditStep step, FinishFirst& all) {
  open_.emplace();
  for (auto change = step.changes.rbegin(); change != step.changes.rend(); ++change) {
    if (change->timesOnly) {
      const auto times = std::span(step.times).subspan(change->at, SizeOf(change->removed));
      all([&] { list_.Retime(change->first, times); });
    } else {
      const auto captions = std::span(step.captions).subspan(change->at, SizeOf(change->removed));
      all([&] {
        list_.Replace(change->first, change->added,
                      {std::make_move_iterator(captions.begin()), std::make_move_iterator(captions.end())});
      });
    }
  }
  EditStep reversed = std::move(*open_);
  open_.reset();
  reversed.kind = step.kind;
  reversed.join = step.join;
  reversed.separatorBefore = std::move(step.separatorBefore);
  reversed.separatorAfter = std::move(step.separatorAfter);
  reversed.rowBefore = step.rowBefore;
  reversed.rowAfter = step.rowAfter;
  reversed.chosenBefore = std::move(step.chosenBefore);
  reversed.chosenAfter = std::move(step.chosenAfter);
  reversed.raised = step.raised;
  return reversed;
}

void EditHistory::Undo() {
  if (!undo_.empty()) Move(undo_, redo_, true);
}

void EditHistory::Redo() {
  if (!redo_.empty()) Move(redo_, undo_, false);
}

void EditHistory::Move(std::vector<EditStep>& from, std::vector<EditStep>& to, bool back) {
  // A command that runs has to end first.
  if (open_ || !list_.Enabled()) return;
  reversing_ = true;
  // What a listener throws must not leave a step half way.
  FinishFirst all;
  all([&] {
    const EditScope scope(list_, EditKind::TakeBack);
    EditStep step = std::move(from.back());
    from.pop_back();
    to.push_back(Reverse(std::move(step), all));
    const EditStep& moved = to.back();
    const Text& separator = back ? moved.separatorBefore : moved.separatorAfter;
    if (separator != list_.Options().lineSeparator) all([&] { SeparatorRestored(separator); });
    if (savedAt_ == undo_.size()) {
      modified_ = false;
    } else if (moved.raised) {
      all([&] { list_.SetModified(); });
    }
    all([&] {
      list_.SelectRows(back ? moved.chosenBefore : moved.chosenAfter, back ? moved.rowBefore : moved.rowAfter, true);
    });
  });
  reversing_ = false;
  all([&] { Changed(); });
  all.Rethrow();
}

void EditHistory::Begin(DocumentBaseline baseline) {
  Forget();
  keeping_ = true;
  if (baseline != DocumentBaseline::None) {
    savedAt_ = 0;
    savedPrint_ = Fingerprint();
  }
  Changed();
}

void EditHistory::End() {
  Forget();
  keeping_ = false;
  Changed();
}

void EditHistory::Forget() {
  undo_.clear();
  redo_.clear();
  open_.reset();
  savedAt_.reset();
  savedPrint_.reset();
  strayed_ = false;
}

void EditHistory::MarkSaved(bool whole) {
  savedAt_ = undo_.size();
  strayed_ = false;
  savedPrint_ = whole ? std::optional(Fingerprint()) : std::nullopt;
  Changed();
}

bool EditHistory::Differs() const {
  if (!keeping_ || AtSavedStep()) return false;
  return savedPrint_ != Fingerprint();
}

std::uint64_t EditHistory::Fingerprint() const {
  // FNV-1a's way of taking one value after the other, on whole hashes.
  std::uint64_t print = 0xcbf29ce484222325;
  const auto take = [&print](std::uint64_t value) { print = (print ^ value) * 0x100000001b3; };
  const Text& separator = list_.Options().lineSeparator;
  for (Row row = 1; row < list_.Rows(); ++row) {
    const Caption& caption = list_.At(row);
    take(std::bit_cast<std::uint32_t>(caption.start.Count()));
    take(std::bit_cast<std::uint32_t>(caption.end.Count()));
    TextView rest = caption.text;
    for (;;) {
      const std::size_t end = separator.empty() ? TextView::npos : rest.find(separator);
      take(std::hash<TextView>()(rest.substr(0, end)));
      if (end == TextView::npos) break;
      rest.remove_prefix(end + separator.size());
    }
    take(~std::uint64_t{0});
  }
  return print;
}

std::size_t EditHistory::Bytes() const {
  std::size_t bytes = 0;
  for (const auto* steps : {&undo_, &redo_}) {
    for (const EditStep& step : *steps) {
      bytes += sizeof(EditStep) + step.changes.capacity() * sizeof(EditChange) +
               step.captions.capacity() * sizeof(Caption) + step.times.capacity() * sizeof(CaptionTimes);
      for (const Caption& caption : step.captions) bytes += caption.text.capacity() * sizeof(char16_t);
    }
  }
  return bytes;
}

}  // namespace cuewright
