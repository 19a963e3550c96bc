#include "forms/journal_keeper.h"

#include <algorithm>
#include <utility>

#include "formats/source/source_map.h"

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

JournalKeeper::JournalKeeper(Workbench bench, const FormatCatalogue& catalogue, const FormatState& format,
                             EventQueue& events, JournalStore* store)
    : bench_(bench), catalogue_(catalogue), format_(format), events_(events), store_(store) {
  if (store_ == nullptr) return;
  bench_.list.Spliced.Connect([this](const Splice& splice) { OnSplice(splice); });
  bench_.list.CommandEnded.Connect([this] { OnCommandEnded(); });
  bench_.window.tmrJournal.Tick.Connect([this] { Tick(); });
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
  bench_.window.tmrJournal.SetEnabled(true);
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
  bench_.window.tmrJournal.SetEnabled(false);
}

void JournalKeeper::Adopt(int id, std::size_t bytes) {
  Forget();
  store_->Adopt(id, bytes);
  state_ = State::Following;
  separator_ = bench_.list.Options().lineSeparator;
  snapshotBytes_ = bytes;
  batchBytes_ = 0;
}

void JournalKeeper::OnSplice(const Splice& splice) {
  // While a document is read or closed its captions are those of the file.
  if (!bench_.document.HasDocument()) return;
  if (state_ == State::NothingToLose) state_ = State::WantsSnapshot;
  if (state_ == State::Following) {
    if (batch_.Empty()) pendingSince_ = events_.NowMs();
    batch_.Add(bench_.list, splice);
  }
  bench_.window.tmrJournal.SetEnabled(true);
}

void JournalKeeper::OnCommandEnded() {
  if (state_ == State::Following && bench_.list.Options().lineSeparator != separator_)
    bench_.window.tmrJournal.SetEnabled(true);
}

void JournalKeeper::Tick() {
  TakeFailure();
  if (!bench_.list.Enabled() || !bench_.document.HasDocument()) return;
  if (bench_.list.InCommand() && events_.NowMs() - pendingSince_ < kLongestCommandMs) return;
  if (state_ != State::WantsSnapshot && batch_.Empty() && bench_.list.Options().lineSeparator == separator_) {
    if (++idleTicks_ > kIdleTicks) bench_.window.tmrJournal.SetEnabled(false);
    return;
  }
  idleTicks_ = 0;
  if (state_ == State::WantsSnapshot) {
    if (events_.NowMs() >= retryAt_) WriteSnapshot();
  } else if (state_ == State::Following) {
    WriteBatch();
  }
}

JournalDocument JournalKeeper::Describe() const {
  JournalDocument described;
  described.path = bench_.document.SubtitlePath;
  described.format = catalogue_.Identifier(format_.CurrentFormatIndex);
  described.fps = format_.CurrentFps.AsGiven();
  described.codePage = format_.Encoding.codePage;
  described.mark = format_.Encoding.mark;
  if (format_.Source) described.source = KeptSource(*format_.Source);
  return described;
}

void JournalKeeper::WriteSnapshot() {
  JournalDocument document = Describe();
  document.time = store_->Now();
  document.separator = separator_ = bench_.list.Options().lineSeparator;
  document.selected = bench_.list.Selected();
  document.captions.reserve(bench_.list.Count());
  for (Row row = 1; row < bench_.list.Rows(); ++row) document.captions.push_back(bench_.list.At(row));
  std::string payload = JournalSnapshot(document);
  snapshotBytes_ = payload.size();
  batchBytes_ = 0;
  store_->Begin(std::move(payload));
  batch_.Clear();
  state_ = State::Following;
}

void JournalKeeper::WriteBatch() {
  if (batchBytes_ > std::max(kMostChanges, snapshotBytes_)) return WriteSnapshot();
  separator_ = bench_.list.Options().lineSeparator;
  std::string payload = batch_.Take(store_->Now(), bench_.list.Selected(), separator_);
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
  Failed(*failure);
}

}  // namespace cuewright
