#pragma once

#include <cstdint>

#include "capture/workbench.h"
#include "core/caption_list.h"
#include "core/document.h"
#include "core/journal.h"
#include "core/ports/event_queue.h"
#include "core/ports/journal_store.h"
#include "formats/catalogue.h"
#include "formats/format_state.h"

namespace cuewright {

/// Writes every change of the document to its journal, a few times a second and never in the middle of a command: a
/// program that is killed loses the last moment alone.
class JournalKeeper {
 public:
  /// Without a store nothing is kept.
  JournalKeeper(Workbench bench, const FormatCatalogue& catalogue, const FormatState& format, EventQueue& events,
                JournalStore* store);

  /// The document is as its file, or is another one, or is gone: there is nothing to lose.
  void Forget();
  /// What the document is now is in no file: there is something to lose without a further change.
  void Need();
  /// Hands to the store what has not been written yet.
  void Flush();
  /// The document goes, and what of it is in no file stays for the next start. Changes since `Flush` aren't its own.
  void Leave();
  /// Goes on with a journal that was left behind, whose document is the open one now.
  void Adopt(int id, std::size_t bytes);

  Signal<JournalKeeper, const RuntimeError&> Failed;  ///< the journal can't be written; once a run

 private:
  enum class State { NothingToLose, WantsSnapshot, Following };

  void OnSplice(const Splice& splice);
  void OnCommandEnded();
  void Tick();
  /// The document as it is, but for its captions.
  JournalDocument Describe() const;
  void WriteSnapshot();
  void WriteBatch();
  void TakeFailure();
  void Rest();

  Workbench bench_;
  const FormatCatalogue& catalogue_;
  const FormatState& format_;
  EventQueue& events_;
  JournalStore* store_;
  State state_ = State::NothingToLose;
  JournalBatch batch_;
  Text separator_;                 ///< the one written last
  std::int64_t pendingSince_ = 0;  ///< when the batch got its first change
  std::int64_t retryAt_ = 0;       ///< no snapshot before this time
  std::size_t snapshotBytes_ = 0;
  std::size_t batchBytes_ = 0;  ///< since the snapshot
  int idleTicks_ = 0;
  bool told_ = false;
};

}  // namespace cuewright
