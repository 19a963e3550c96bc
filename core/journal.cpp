#include "core/journal.h"

#include <array>
#include <bit>
#include <cassert>
#include <limits>
#include <utility>

#include "core/counting.h"
#include "core/row_store.h"
#include "text/byte_numbers.h"

namespace cuewright {
namespace {

constexpr char kSnapshot = 1;
constexpr char kBatch = 2;
constexpr char kReadSnapshot = 3;  // with the file that the captions were read from
constexpr char kRows = 1;
constexpr char kTimes = 2;
constexpr char kReadRows = 3;  // with the numbers of their records
constexpr std::size_t kFrame = 8;
/// Nothing that was written comes near it; a greater length is damage.
constexpr std::uint32_t kLargestRecord = 1U << 30;

constexpr std::array<std::uint32_t, 256> MakeCrcTable() {
  std::array<std::uint32_t, 256> table{};
  for (std::uint32_t i = 0; i < table.size(); ++i) {
    std::uint32_t value = i;
    for (int bit = 0; bit < 8; ++bit) value = (value >> 1) ^ ((value & 1) != 0 ? 0xEDB88320U : 0U);
    table[i] = value;
  }
  return table;
}

std::uint32_t Crc32(std::string_view bytes) {
  static constexpr std::array<std::uint32_t, 256> kTable = MakeCrcTable();
  std::uint32_t crc = 0xFFFFFFFFU;
  for (const char byte : bytes) crc = (crc >> 8) ^ kTable[(crc ^ ByteOf(byte)) & 0xFF];
  return ~crc;
}

constexpr std::size_t kFixed = 4;  // bytes of a number that has always as many

void PutFixed(std::string& out, std::uint32_t value) { PutBytes(out, value, kFixed); }

std::uint32_t FixedAt(std::string_view bytes, std::size_t at) {
  return NumberOf<std::uint32_t>(bytes.substr(at, kFixed));
}

void Put(std::string& out, std::uint64_t value) {
  for (; value >= 0x80; value >>= 7) out.push_back(LowByte(value | 0x80));
  out.push_back(LowByte(value));
}

/// A count, which is never negative.
void PutCount(std::string& out, int count) {
  assert(count >= 0);
  Put(out, static_cast<std::uint64_t>(count));
}

/// A number with a sign: small ones stay short on both sides of 0.
void PutSigned(std::string& out, std::int64_t value) {
  Put(out, std::bit_cast<std::uint64_t>(value) << 1 ^ std::bit_cast<std::uint64_t>(value >> 63));
}

void PutText(std::string& out, TextView text) {
  Put(out, text.size());
  for (const char16_t unit : text) PutBytes(out, unit, 2);
}

void PutCaption(std::string& out, const Caption& caption) {
  PutSigned(out, caption.start.Count());
  PutSigned(out, caption.end.Count());
  PutText(out, caption.text);
}

bool HasOrigin(const Caption& caption) { return caption.origin != 0; }

/// What a snapshot has behind its captions when they were read from a file: the file, and each one's record in it.
void PutSource(std::string& out, const JournalDocument& document) {
  const JournalSource& source = document.source;
  PutText(out, source.format);
  Put(out, std::bit_cast<std::uint32_t>(source.fps));
  Put(out, std::bit_cast<std::uint32_t>(source.codePage));
  out.push_back(source.mark ? 1 : 0);
  Put(out, source.bytes.size());
  out += source.bytes;
  for (const Caption& caption : document.captions) Put(out, caption.origin);
}

/// Takes a payload apart. Once something doesn't fit, everything is 0 and `Good` is false.
class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes) {}

  bool Good() const { return good_; }
  bool AtEnd() const { return at_ == bytes_.size(); }

  std::uint8_t Byte() {
    if (at_ >= bytes_.size()) return Fail();
    return ByteOf(bytes_[at_++]);
  }
  std::uint64_t Number() {
    std::uint64_t value = 0;
    for (int shift = 0; shift < 64; shift += 7) {
      const std::uint8_t byte = Byte();
      value |= std::uint64_t{byte & 0x7FU} << shift;
      if ((byte & 0x80) == 0) return good_ ? value : 0;
    }
    return Fail();
  }
  std::int64_t Signed() {
    const std::uint64_t value = Number();
    return std::bit_cast<std::int64_t>(value >> 1 ^ (~(value & 1) + 1));
  }
  Ms Time() {
    const std::int64_t value = Signed();
    if (!std::in_range<std::int32_t>(value)) return std::int32_t{Fail()};
    return static_cast<std::int32_t>(value);
  }
  /// A count of at most `most`.
  int Count(int most) {
    const std::uint64_t value = Number();
    if (std::cmp_greater(value, most)) return Fail();
    return static_cast<int>(value);
  }
  /// A row of the list, or 0.
  Row OneRow() { return Count(kMaxRow.Number()); }
  Text String() {
    const std::size_t size = Number();
    if (size > (bytes_.size() - at_) / 2) return Fail(), Text();
    Text text(size, u'\0');
    for (char16_t& unit : text) {
      const unsigned low = Byte();
      unit = static_cast<char16_t>(low | unsigned{Byte()} << 8);
    }
    return text;
  }
  std::uint32_t Number32() {
    const std::uint64_t value = Number();
    if (value > std::numeric_limits<std::uint32_t>::max()) return Fail();
    return static_cast<std::uint32_t>(value);
  }
  std::string Bytes() {
    const std::size_t size = Number();
    if (size > bytes_.size() - at_) return Fail(), std::string();
    at_ += size;
    return std::string(bytes_.substr(at_ - size, size));
  }
  Caption OneCaption() {
    Caption caption;
    caption.start = Time();
    caption.end = Time();
    caption.text = String();
    return caption;
  }
  /// So many captions; none once something doesn't fit.
  std::vector<Caption> Captions(int count) {
    std::vector<Caption> captions;
    for (int i = 0; i < count && good_; ++i) captions.push_back(OneCaption());
    return captions;
  }
  std::uint8_t Fail() {
    good_ = false;
    return 0;
  }

 private:
  std::string_view bytes_;
  std::size_t at_ = 0;
  bool good_ = true;
};

/// The document while its records are read.
class Replay {
 public:
  bool Begin(std::string_view payload) {
    Reader in(payload);
    return ReadSnapshot(in) && in.AtEnd();
  }

  /// True when a whole snapshot stands at the head of the bytes, whatever is behind it.
  static bool HoldsSnapshot(std::string_view bytes) {
    Reader in(bytes);
    return Replay().ReadSnapshot(in);
  }

  /// A batch counts as a whole or not at all: it is checked before anything of it is done.
  bool Apply(std::string_view payload) { return Walk(payload, false) && Walk(payload, true); }

  JournalDocument Document() {
    document_.captions.clear();
    document_.captions.reserve(rows_.size());
    for (std::size_t i = 0; i < rows_.size(); ++i) document_.captions.push_back(std::move(rows_.At(i)));
    return std::move(document_);
  }

 private:
  bool ReadSnapshot(Reader& in) {
    const std::uint8_t kind = in.Byte();
    if (kind != kSnapshot && kind != kReadSnapshot) return false;
    document_.time = in.Signed();
    document_.path = in.String();
    document_.format = in.String();
    document_.fps = std::bit_cast<float>(in.Number32());
    document_.codePage = std::bit_cast<std::int32_t>(in.Number32());
    document_.mark = in.Byte() != 0;
    document_.separator = in.String();
    document_.selected = in.OneRow();
    const int count = in.Count(kMaxRow.Number());
    std::vector<Caption> captions = in.Captions(count);
    if (!in.Good() || captions.empty()) return false;
    if (kind == kReadSnapshot && !ReadSource(in, captions)) return false;
    rows_.Splice(0, 0, std::move(captions));
    return true;
  }

  bool ReadSource(Reader& in, std::vector<Caption>& captions) {
    JournalSource& source = document_.source;
    source.format = in.String();
    source.fps = std::bit_cast<float>(in.Number32());
    source.codePage = std::bit_cast<std::int32_t>(in.Number32());
    source.mark = in.Byte() != 0;
    source.bytes = in.Bytes();
    for (Caption& caption : captions) caption.origin = in.Number32();
    return in.Good();
  }

  bool Walk(std::string_view payload, bool apply) {
    Reader in(payload);
    if (in.Byte() != kBatch) return false;
    const std::int64_t time = in.Signed();
    const Row selected = in.OneRow();
    Text separator = in.String();
    size_ = CountOf(rows_);
    while (in.Good() && !in.AtEnd()) {
      const std::uint8_t kind = in.Byte();
      if (kind == kRows || kind == kReadRows) {
        Rows(in, kind == kReadRows, apply);
      } else if (kind == kTimes) {
        Times(in, apply);
      } else {
        in.Fail();
      }
    }
    if (!in.Good()) return false;
    if (apply) {
      document_.time = time;
      document_.selected = selected;
      document_.separator = std::move(separator);
    }
    return true;
  }

  void Rows(Reader& in, bool wereRead, bool apply) {
    const Row first = in.OneRow();
    const int removed = in.Count(kMaxRow.Number());
    const int added = in.Count(kMaxRow.Number());
    const int left = size_ - removed + added;
    if (first < 1 || first - 1 + removed > size_ || left < 1 || left > kMaxRow.Number()) in.Fail();
    std::vector<Caption> captions = in.Captions(in.Good() ? added : 0);
    for (Caption& caption : captions) caption.origin = wereRead ? in.Number32() : 0;
    if (!in.Good()) return;
    size_ = left;
    if (apply) rows_.Splice(first.Index(), SizeOf(removed), std::move(captions));
  }

  void Times(Reader& in, bool apply) {
    const Row first = in.OneRow();
    const int count = in.Count(kMaxRow.Number());
    if (first < 1 || first - 1 + count > size_) in.Fail();
    for (int i = 0; i < count && in.Good(); ++i) {
      const Ms start = in.Time();
      const Ms end = in.Time();
      if (!apply) continue;
      Caption& caption = rows_.At((first + i).Index());
      caption.start = start;
      caption.end = end;
    }
  }

  JournalDocument document_;
  RowStore<Caption> rows_;
  int size_ = 0;  ///< of the list at this place of a batch
};

/// What is wrong with a journal whose first record gives no document.
JournalFault FaultOf(std::string_view bytes) {
  constexpr std::string_view kName = "CWJRNL";
  if (kJournalMagic.starts_with(bytes.substr(0, kJournalMagic.size()))) {
    if (bytes.size() < kJournalMagic.size() + kFrame) return JournalFault::CutOff;
    const std::uint32_t length = FixedAt(bytes, kJournalMagic.size());
    const std::string_view rest = bytes.substr(kJournalMagic.size() + kFrame);
    // A record that is all there under a length that says more was not cut off: its length is damaged.
    const bool cutOff = length > rest.size() && length <= kLargestRecord && !Replay::HoldsSnapshot(rest);
    return cutOff ? JournalFault::CutOff : JournalFault::Damaged;
  }
  return bytes.starts_with(kName) ? JournalFault::OtherVersion : JournalFault::Damaged;
}

/// The payload of the whole record at a place; empty when there is none.
std::optional<std::string_view> PayloadAt(std::string_view bytes, std::size_t at) {
  if (bytes.size() - at < kFrame) return {};
  const std::uint32_t length = FixedAt(bytes, at);
  if (length > bytes.size() - at - kFrame) return {};
  const std::string_view payload = bytes.substr(at + kFrame, length);
  return Crc32(payload) == FixedAt(bytes, at + 4) ? std::optional(payload) : std::nullopt;
}

}  // namespace

std::string JournalRecord(std::string_view payload) {
  std::string record;
  record.reserve(kFrame + payload.size());
  PutFixed(record, static_cast<std::uint32_t>(payload.size()));
  PutFixed(record, Crc32(payload));
  return record.append(payload);
}

std::string JournalSnapshot(const JournalDocument& document) {
  std::string out;
  const bool wasRead = !document.source.bytes.empty();
  out.push_back(wasRead ? kReadSnapshot : kSnapshot);
  PutSigned(out, document.time);
  PutText(out, document.path);
  PutText(out, document.format);
  Put(out, std::bit_cast<std::uint32_t>(document.fps));
  Put(out, std::bit_cast<std::uint32_t>(document.codePage));
  out.push_back(document.mark ? 1 : 0);
  PutText(out, document.separator);
  PutCount(out, document.selected.Number());
  Put(out, document.captions.size());
  for (const Caption& caption : document.captions) PutCaption(out, caption);
  if (wasRead) PutSource(out, document);
  return out;
}

void JournalBatch::Add(const CaptionList& list, const Splice& splice) {
  bool wereRead = false;
  for (Row row = splice.first; row < splice.first + splice.added; ++row) wereRead |= HasOrigin(list.At(row));
  changes_.push_back(splice.TimesOnly() ? kTimes : wereRead ? kReadRows : kRows);
  PutCount(changes_, splice.first.Number());
  if (!splice.TimesOnly()) PutCount(changes_, splice.removed);
  PutCount(changes_, splice.added);
  for (Row row = splice.first; row < splice.first + splice.added; ++row) {
    if (splice.TimesOnly()) {
      PutSigned(changes_, list.At(row).start.Count());
      PutSigned(changes_, list.At(row).end.Count());
    } else {
      PutCaption(changes_, list.At(row));
    }
  }
  if (splice.TimesOnly() || !wereRead) return;
  for (Row row = splice.first; row < splice.first + splice.added; ++row) Put(changes_, list.At(row).origin);
}

std::string JournalBatch::Take(std::int64_t time, Row selected, TextView separator) {
  std::string out;
  out.push_back(kBatch);
  PutSigned(out, time);
  PutCount(out, selected.Number());
  PutText(out, separator);
  out += changes_;
  changes_.clear();
  return out;
}

JournalReading ReadJournal(std::string_view bytes) {
  JournalReading reading;
  reading.fault = FaultOf(bytes);
  if (!bytes.starts_with(kJournalMagic)) return reading;
  std::size_t at = kJournalMagic.size();
  Replay replay;
  const auto first = PayloadAt(bytes, at);
  if (!first || !replay.Begin(*first)) return reading;
  at += kFrame + first->size();
  for (auto payload = PayloadAt(bytes, at); payload && replay.Apply(*payload); payload = PayloadAt(bytes, at)) {
    at += kFrame + payload->size();
  }
  reading.document = replay.Document();
  reading.fault = JournalFault::None;
  reading.validBytes = at;
  return reading;
}

}  // namespace cuewright
