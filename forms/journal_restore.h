#pragma once

#include <cstddef>
#include <optional>

#include "core/journal.h"
#include "core/lang_strings.h"
#include "core/ports/journal_store.h"
#include "core/ports/messages.h"

namespace cuewright {

/// A document that the user wants back, and its journal.
struct RestoredDocument {
  int journal = 0;
  std::size_t bytes = 0;  ///< of whole records
  JournalDocument document;
};

/// Offers the documents of programs that ended without saving, newest first: Yes takes one, No throws it away, Cancel
/// leaves it and those behind it to the next start. Journals that give no document stay and are told once, but for
/// those that were cut off before anything was in them, which go.
std::optional<RestoredDocument> OfferLeftDocuments(JournalStore& store, Messages& messages, const LangStrings& strings);

}  // namespace cuewright
