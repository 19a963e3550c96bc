// Any bytes as a journal, and any payloads as its records: the checksums would keep a plain fuzzer outside.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/journal.h"
#include "fuzz/engine.h"

namespace {

using namespace cuewright;
using namespace cuewright::fuzz;

/// A journal whose payloads are pieces of the input, each behind its length in two bytes; what is left stands behind
/// them as it is.
std::string Framed(std::string_view input) {
  std::string bytes(kJournalMagic);
  while (input.size() >= 2) {
    const auto low = static_cast<unsigned char>(input[0]);
    const auto high = static_cast<unsigned char>(input[1]);
    const std::size_t length = low | std::size_t{high} << 8;
    if (length > input.size() - 2) break;
    bytes += JournalRecord(input.substr(2, length));
    input.remove_prefix(2 + length);
  }
  return bytes.append(input);
}

void CheckReading(std::string_view bytes) {
  const JournalReading reading = ReadJournal(bytes);
  Demand(reading.document.has_value() == (reading.fault == JournalFault::None), "a fault with a document, or neither");
  if (!reading.document) return Demand(reading.validBytes == 0, "a document of no bytes");
  const std::size_t count = reading.document->captions.size();
  Demand(count >= 1 && count <= kMaxRow.Index() + 1, "a list of a length that no list has");
  Demand(reading.validBytes <= bytes.size(), "more bytes than there are");
  // What counts is the part up to there alone, and the document survives being written again.
  const JournalReading again = ReadJournal(bytes.substr(0, reading.validBytes));
  Demand(again.document.has_value() && again.validBytes == reading.validBytes, "the whole records are read otherwise");
  const std::string written = std::string(kJournalMagic) + JournalRecord(JournalSnapshot(*reading.document));
  const JournalReading rewritten = ReadJournal(written);
  Demand(rewritten.document && rewritten.document->captions == reading.document->captions,
         "the document changes when it is written again");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  CheckReading(input);
  CheckReading(Framed(input));
  return 0;
}
