#include "forms/journal_restore.h"

#include <utility>

#include "core/document.h"

namespace cuewright {
namespace {

/// Which of the document's file and what is kept of it is newer; empty for a document without a file.
Text Comparison(const JournalDocument& document, const JournalStore& store, const LangStrings& strings) {
  if (document.path.empty() || document.path == kNewDocument) return {};
  const std::optional<std::int64_t> file = store.ChangedAt(document.path);
  if (!file) return strings[Message::FileIsGone];
  return Fill(strings[*file > document.time ? Message::FileIsNewer : Message::FileIsOlder], store.LocalTime(*file));
}

BoxAnswer Offer(const JournalDocument& document, const JournalStore& store, Messages& messages,
                const LangStrings& strings) {
  const long long count = document.captions.size();
  const Text name = document.path == kNewDocument ? strings[Message::NewSubtitle] : document.path;
  Text text = Fill(strings.Counted(Message::UnsavedDocumentLeft, u"%3", count), name, store.LocalTime(document.time));
  if (const Text compared = Comparison(document, store, strings); !compared.empty()) {
    text.append(kLineEnd).append(kLineEnd).append(compared);
  }
  text.append(kLineEnd).append(kLineEnd).append(strings[Message::YesRestoresIt]);
  return messages.Show({text, BoxIcon::Question, BoxButtons::YesNoCancel});
}

/// Leaves journals that give no document where they are, and tells of those that the user hasn't heard of, in one box.
class Unreadable {
 public:
  Unreadable(JournalStore& store, const LangStrings& strings) : store_(store), strings_(strings) {}

  void Leave(const LeftJournal& left, JournalFault fault) {
    if (!left.told) {
      const Text& reason = left.unreadable                       ? left.unreadable->description
                           : fault == JournalFault::OtherVersion ? strings_[Message::LeftByOtherVersion]
                                                                 : strings_[Message::LeftDamaged];
      list_.append(kLineEnd).append(kLineEnd).append(left.path).append(kLineEnd).append(reason);
    }
    // A journal that can't be read now may be readable later.
    if (left.unreadable) {
      store_.LeaveAgain(left.id);
    } else {
      store_.LeaveTold(left.id);
    }
  }

  void Tell(Messages& messages) const {
    if (!list_.empty()) messages.Show({strings_[Message::LeftDocumentsBroken] + list_, BoxIcon::Warning});
  }

 private:
  JournalStore& store_;
  const LangStrings& strings_;
  Text list_;
};

}  // namespace

std::optional<RestoredDocument> OfferLeftDocuments(JournalStore& store, Messages& messages,
                                                   const LangStrings& strings) {
  std::optional<RestoredDocument> chosen;
  Unreadable unreadable(store, strings);
  bool asking = true;
  for (const LeftJournal& left : store.TakeLeft()) {
    JournalReading reading = left.unreadable ? JournalReading() : ReadJournal(left.bytes);
    if (reading.fault == JournalFault::CutOff) {
      store.Discard(left.id);
      continue;
    }
    if (!reading.document) {
      unreadable.Leave(left, reading.fault);
      continue;
    }
    if (!asking) {
      store.LeaveAgain(left.id);
      continue;
    }
    const BoxAnswer answer = Offer(*reading.document, store, messages, strings);
    asking = answer == BoxAnswer::No;
    if (answer == BoxAnswer::No) store.Discard(left.id);
    if (answer == BoxAnswer::Cancel) store.LeaveAgain(left.id);
    if (answer == BoxAnswer::Yes) chosen = {left.id, reading.validBytes, std::move(*reading.document)};
  }
  unreadable.Tell(messages);
  return chosen;
}

}  // namespace cuewright
