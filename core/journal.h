#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/caption_list.h"
#include "text/text.h"

namespace cuewright {

/// The file that a document was read from, as a journal holds it.
struct JournalSource {
  Text format;  ///< identifier in the catalogue
  float fps = 0;
  std::int32_t codePage = 0;
  bool mark = false;
  std::string bytes;  ///< without the mark; UTF-16 as UTF-8. Empty: there is no such file

  bool operator==(const JournalSource&) const = default;
};

/// A document as a journal holds it.
struct JournalDocument {
  std::int64_t time = 0;  ///< of the last change written, in ms since 1970
  Text path;              ///< "NEW": without a file
  Text format;            ///< identifier in the catalogue
  float fps = 0;
  std::int32_t codePage = 0;
  bool mark = false;
  Text separator;
  Row selected = 1;
  std::vector<Caption> captions;
  JournalSource source;

  bool operator==(const JournalDocument&) const = default;
};

// A journal is `kJournalMagic` and then records: length of the payload (32 bits), its CRC-32, the payload, all numbers
// with the low byte first. The first record is a whole document, each that follows is a batch of changes to it. A
// number in a payload is written in groups of 7 bits, a text as its length and its 16-bit units.

inline constexpr std::string_view kJournalMagic = "CWJRNL1\n";

/// A payload as it stands in the file.
std::string JournalRecord(std::string_view payload);

/// The payload that begins a journal.
std::string JournalSnapshot(const JournalDocument& document);

/// Collects changes into a payload.
class JournalBatch {
 public:
  /// Notes what a splice put into the list, as it stands there now.
  void Add(const CaptionList& list, const Splice& splice);
  bool Empty() const { return changes_.empty(); }
  std::size_t Size() const { return changes_.size(); }
  void Clear() { changes_.clear(); }

  /// The payload of what was collected; the batch is empty then.
  std::string Take(std::int64_t time, Row selected, TextView separator);

 private:
  std::string changes_;
};

/// Why a journal gives no document.
enum class JournalFault : std::uint8_t {
  None,
  CutOff,        ///< its writer ended before the first record was whole: nothing was kept yet
  OtherVersion,  ///< of the program: a journal of a form that this one doesn't know
  Damaged,       ///< the first record isn't what was written
};

/// What a journal's bytes hold.
struct JournalReading {
  std::optional<JournalDocument> document;  ///< empty: the first record gives none
  JournalFault fault = JournalFault::None;  ///< why there is no document
  std::size_t validBytes = 0;               ///< up to the end of the last whole record
};

/// Reads a journal up to the first record that is cut off or damaged; what follows counts as never written.
JournalReading ReadJournal(std::string_view bytes);

}  // namespace cuewright
