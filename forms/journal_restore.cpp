#include "forms/journal_restore.h"

#include <utility>

#include "core/document.h"

namespace cuewright {
namespace {

BoxAnswer Offer(const JournalDocument& document, const JournalStore& store, Messages& messages,
                const LangStrings& strings) {
  const Text count = Decimal(static_cast<long long>(document.captions.size()));
  const Text name = document.path == kNewDocument ? strings[17] : document.path;
  Text text = Fill(ReplaceAll(strings[949], u"%3", count), name, store.LocalTime(document.time));
  text.append(kLineEnd).append(kLineEnd).append(strings[950]);
  return messages.Show({text, BoxIcon::Question, BoxButtons::YesNoCancel});
}

}  // namespace

std::optional<RestoredDocument> OfferLeftDocuments(JournalStore& store, Messages& messages,
                                                   const LangStrings& strings) {
  std::optional<RestoredDocument> chosen;
  bool asking = true;
  for (const LeftJournal& left : store.TakeLeft()) {
    if (!asking) {
      store.LeaveAgain(left.id);
      continue;
    }
    JournalReading reading = ReadJournal(left.bytes);
    if (!reading.document) {
      // Cut off before anything was in it.
      store.Discard(left.id);
      continue;
    }
    const BoxAnswer answer = Offer(*reading.document, store, messages, strings);
    asking = answer == BoxAnswer::No;
    if (answer == BoxAnswer::No) store.Discard(left.id);
    if (answer == BoxAnswer::Cancel) store.LeaveAgain(left.id);
    if (answer == BoxAnswer::Yes) chosen = {left.id, reading.validBytes, std::move(*reading.document)};
  }
  return chosen;
}

}  // namespace cuewright
