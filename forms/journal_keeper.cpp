#include "forms/journal_keeper.h"

#include <algorithm>
#include <utility>

namespace cuewright {
namespace {

/// A command that runs longer is written in pieces.
constexpr std::int64_t kLongestCommandMs = 600;
/// After a failure the journal is begun anew at such intervals.
constexpr std::int64_t kRetryMs = 5000;
/// A journal with more changes than this, and than its document is long, begins anew.
constexpr std::size_t kMostChanges = std::size_t{4} << 20;
/// The timer goes on for so many ticks behind the last writing, to hear whether that failed.
constexpr int kIdleTicks = 10;

}  // namespace

JournalKeeper::JournalKeeper(MainWindow& window, CaptionList& list, const DocumentState& document, EventQueue& events,
                             JournalStore* store, std::function<JournalDocument()> describe)
    : window_(window),
      list_(list),
      document_(document),
      events_(events),
      store_(store),
      describe_(std::move(describe)) {
  if (store_ == nullptr) return;
  list_.Spliced.Connect([this](const Splice& splice) { OnSplice(splice); });
  list_.CommandEnded.Connect([this] { OnCommandEnded(); });
  window_.tmrJournal.Tick.Connect([this] { Tick(); });
}

void JournalKeeper::Forget() {
  if (store_ == nullptr) return;
  if (state_ != State::NothingToLose) store_->Remove();
  Rest();
}

void JournalKeeper::Leave() {
  if (store_ == nullptr) return;
  if (state_ != State::NothingToLose) store_->Leave();
  Rest();
}

void JournalKeeper::Need() {
  if (store_ == nullptr || state_ != State::NothingToLose) return;
  state_ = State::WantsSnapshot;
  window_.tmrJournal.SetEnabled(true);
}

void JournalKeeper::Flush() {
  if (store_ == nullptr) return;
  if (state_ == State::WantsSnapshot) WriteSnapshot();
  if (state_ == State::Following && !batch_.Empty()) WriteBatch();
}

void JournalKeeper::Rest() {
  state_ = State::NothingToLose;
  batch_.Clear();
  retryAt_ = 0;
  window_.tmrJournal.SetEnabled(false);
}

void JournalKeeper::Adopt(int id, std::size_t bytes) {
  Forget();
  store_->Adopt(id, bytes);
  state_ = State::Following;
  separator_ = list_.Options().lineSeparator;
  snapshotBytes_ = bytes;
  batchBytes_ = 0;
}

void JournalKeeper::OnSplice(const Splice& splice) {
  // A document that is being read or closed has nothing of its own yet.
  if (!document_.HasDocument()) return;
  if (state_ == State::NothingToLose) state_ = State::WantsSnapshot;
  if (state_ == State::Following) {
    if (batch_.Empty()) pendingSince_ = events_.NowMs();
    batch_.Add(list_, splice);
  }
  window_.tmrJournal.SetEnabled(true);
}

void JournalKeeper::OnCommandEnded() {
  if (state_ == State::Following && list_.Options().lineSeparator != separator_) window_.tmrJournal.SetEnabled(true);
}

void JournalKeeper::Tick() {
  TakeFailure();
  if (!list_.Enabled() || !document_.HasDocument()) return;
  if (list_.InCommand() && events_.NowMs() - pendingSince_ < kLongestCommandMs) return;
  if (state_ != State::WantsSnapshot && batch_.Empty() && list_.Options().lineSeparator == separator_) {
    if (++idleTicks_ > kIdleTicks) window_.tmrJournal.SetEnabled(false);
    return;
  }
  idleTicks_ = 0;
  if (state_ == State::WantsSnapshot) {
    if (events_.NowMs() >= retryAt_) WriteSnapshot();
  } else if (state_ == State::Following) {
    WriteBatch();
  }
}

void JournalKeeper::WriteSnapshot() {
  JournalDocument document = describe_();
  document.time = store_->Now();
  document.separator = separator_ = list_.Options().lineSeparator;
  document.selected = list_.Selected();
  document.captions.reserve(static_cast<std::size_t>(list_.Rows()));
  for (Row row = 1; row < list_.Rows(); ++row) document.captions.push_back(list_.At(row));
  std::string payload = JournalSnapshot(document);
  snapshotBytes_ = payload.size();
  batchBytes_ = 0;
  store_->Begin(std::move(payload));
  batch_.Clear();
  state_ = State::Following;
}

void JournalKeeper::WriteBatch() {
  if (batchBytes_ > std::max(kMostChanges, snapshotBytes_)) return WriteSnapshot();
  separator_ = list_.Options().lineSeparator;
  std::string payload = batch_.Take(store_->Now(), list_.Selected(), separator_);
  batchBytes_ += payload.size();
  store_->Append(std::move(payload));
}

void JournalKeeper::TakeFailure() {
  if (store_->TakeLost() && state_ != State::NothingToLose) {
    batch_.Clear();
    state_ = State::WantsSnapshot;
  }
  const std::optional<RuntimeError> failure = store_->TakeFailure();
  if (!failure) return;
  batch_.Clear();
  state_ = State::WantsSnapshot;
  retryAt_ = events_.NowMs() + kRetryMs;
  if (std::exchange(told_, true)) return;
  if (tellFailure) tellFailure(*failure);
}

}  // namespace cuewright
