#include "formats/source/ebu_format.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "core/counting.h"
#include "core/numbers.h"
#include "formats/source/clock_field.h"
#include "text/digits.h"
#include "text/text_search.h"
#include "text/units.h"

namespace cuewright {
namespace {

// The head.
constexpr std::size_t kHeadSize = 1024;
constexpr std::size_t kDiskFormatAt = 3;
constexpr std::size_t kDisplayStandardAt = 11;
constexpr std::size_t kCharacterTableAt = 12;
constexpr Stretch kBlockCount = {238, 5};
constexpr Stretch kSubtitleCount = {243, 5};
constexpr Stretch kRowCount = {253, 2};
constexpr Stretch kProgrammeStart = {256, 8};

// A block.
constexpr std::size_t kBlockSize = 128;
constexpr std::size_t kNumberAt = 1;
constexpr std::size_t kExtensionAt = 3;
constexpr std::size_t kStartAt = 5;
constexpr std::size_t kEndAt = 9;
constexpr std::size_t kTimeSize = 4;
constexpr std::size_t kVerticalAt = 13;
constexpr std::size_t kJustificationAt = 14;
constexpr std::size_t kCommentAt = 15;
constexpr std::size_t kTextAt = 16;
constexpr std::size_t kTextSize = kBlockSize - kTextAt;

constexpr unsigned char kLastBlock = 0xFF;
constexpr unsigned char kUserData = 0xFE;
constexpr unsigned char kFirstReserved = 0xF0;
constexpr char kUnused = '\x8F';
constexpr int kTeletextRows = 23;

unsigned char ByteAt(std::string_view bytes, std::size_t at) { return ByteOf(bytes[at]); }

bool IsUserData(std::string_view block) { return ByteAt(block, kExtensionAt) == kUserData; }

/// True for a block that is no part of a caption: a comment, or data with a meaning of their own.
bool IsNoCaption(std::string_view block) {
  const unsigned char extension = ByteAt(block, kExtensionAt);
  return (extension >= kFirstReserved && extension != kLastBlock) || ByteAt(block, kCommentAt) == 1;
}

int NumberOf(std::string_view block) { return ByteAt(block, kNumberAt) + 256 * ByteAt(block, kNumberAt + 1); }

/// The block that a new caption begins with in a file without captions.
std::string FirstBlock() {
  std::string block(kBlockSize, '\0');
  block[kExtensionAt] = LowByte(kLastBlock);
  block[kVerticalAt] = LowByte(kTeletextRows - 1);
  block[kJustificationAt] = 2;
  std::fill(block.begin() + kTextAt, block.end(), kUnused);
  return block;
}

/// The number of digits; nothing changes where there are none.
void AddTo(Stretch digits, int more, std::string& file) {
  const std::string_view field = digits.In(file);
  const auto number = ReadNumber(field);
  if (!number || number->size != field.size()) return;
  std::string anew = std::to_string(std::max(number->number + more, 0));
  if (anew.size() > digits.size) return;
  anew.insert(0, digits.size - anew.size(), '0');
  file.replace(digits.at, digits.size, anew);
}

Text Widened(std::string_view bytes) {
  Text text;
  text.reserve(bytes.size());
  for (const char byte : bytes) text += ByteOf(byte);
  return text;
}

StyledText MarksIn(Text text, TextView separator) { return ReadMarks({std::move(text)}, MarkKind::SubRip, separator); }

int LinesOf(const StyledText& text, TextView separator) { return CountOf(Split(text.Visible(), separator)); }

}  // namespace

bool IsEbuHead(std::string_view bytes) {
  const std::string_view code = bytes.substr(std::min(kDiskFormatAt, bytes.size()), 8);
  return code.size() == 8 && (code.starts_with("STL") || code.starts_with("stl")) && IsDigit(code[3]) &&
         IsDigit(code[4]) && code.substr(5) == ".01";
}

void EbuFormat::ReadHead(std::string_view head) {
  if (const auto rate = ReadNumber(head.substr(kDiskFormatAt + 3, 2)); rate && rate->number != 0) rate_ = rate->number;
  if (const auto table = ReadNumber(head.substr(kCharacterTableAt, 2))) texts_.codec = CodecOfEbuTable(table->number);
  texts_.teletext = head[kDisplayStandardAt] == '1' || head[kDisplayStandardAt] == '2';
  const auto rows = ReadNumber(kRowCount.In(head));
  rows_ = !texts_.teletext && rows && rows->number > 0 ? rows->number : kTeletextRows;
  programmeStart_ = ProgrammeStart(kProgrammeStart.In(head));
}

/// Hours, minutes, seconds and frames of two digits each; 0 where they aren't told.
Ms EbuFormat::ProgrammeStart(std::string_view digits) const {
  std::string field;
  for (; digits.size() >= 2; digits.remove_prefix(2)) {
    const auto number = ReadNumber(digits.substr(0, 2));
    if (!number || number->size != 2) return 0;
    field += LowByte(number->number);
  }
  Ms ms = 0;
  return TimeOf(field, ms) ? ms : 0;
}

bool EbuFormat::BeginsBefore(std::string_view blocks, Ms ms) const {
  for (; blocks.size() >= kBlockSize; blocks.remove_prefix(kBlockSize)) {
    Ms start = 0;
    if (!IsNoCaption(blocks) && TimeOf(blocks.substr(kStartAt, kTimeSize), start) && start < ms) return true;
  }
  return false;
}

std::size_t EbuFormat::EndOfCaption(std::string_view bytes, std::size_t at) const {
  const std::string_view block = bytes.substr(at, kBlockSize);
  std::size_t end = at + kBlockSize;
  for (unsigned char extension = ByteAt(block, kExtensionAt);
       extension != kLastBlock && end + kBlockSize <= bytes.size(); end += kBlockSize) {
    const std::string_view next = bytes.substr(end, kBlockSize);
    if (IsUserData(next)) continue;
    if (IsNoCaption(next) || NumberOf(next) != NumberOf(block)) break;
    const unsigned char following = ByteAt(next, kExtensionAt);
    // The blocks of a caption are counted in a byte, so that there are no more than 241.
    if (following != kLastBlock && following != extension + 1) break;
    extension = following;
  }
  return end;
}

bool EbuFormat::TakeCaption(std::string_view bytes, Stretch whole, TextView separator, SourceSink& sink) const {
  const std::size_t at = whole.at;
  Ms start = 0;
  Ms stop = 0;
  if (!TimeOf(bytes.substr(at + kStartAt, kTimeSize), start) || !TimeOf(bytes.substr(at + kEndAt, kTimeSize), stop)) {
    sink.NotUnderstood(at);
    return true;
  }
  SourceRecord record;
  record.whole = whole;
  record.number = Stretch::Of(at + kNumberAt, 2);
  record.start = Stretch::Of(at + kStartAt, kTimeSize);
  record.end = Stretch::Of(at + kEndAt, kTimeSize);
  return sink.Add(start - programmeStart_, std::max<Ms>(stop - programmeStart_, 0),
                  TextOf(record.whole.In(bytes), separator), record);
}

void EbuFormat::Read(const SourceText& text, TextView separator, SourceSink& sink) {
  const std::string_view bytes = text.bytes;
  size_ = bytes.size();
  if (size_ < kHeadSize) return sink.NotUnderstood(0);
  ReadHead(bytes.substr(0, kHeadSize));
  // Times that count from the film's beginning, whatever start of the tape the head names.
  if (BeginsBefore(bytes.substr(kHeadSize), programmeStart_)) programmeStart_ = 0;
  bool first = true;
  std::size_t at = kHeadSize;
  while (at + kBlockSize <= bytes.size()) {
    const std::string_view block = bytes.substr(at, kBlockSize);
    std::size_t end = at + kBlockSize;
    if (!IsNoCaption(block)) {
      end = EndOfCaption(bytes, at);
      if (std::exchange(first, false)) firstNumber_ = NumberOf(block);
      if (!TakeCaption(bytes, Stretch::Between(at, end), separator, sink)) return;
    }
    at = end;
  }
  constexpr std::string_view kPadding = {"\0\x1A\x8F \r\n", 6};
  if (bytes.substr(at).find_first_not_of(kPadding) != std::string_view::npos) sink.NotUnderstood(at);
}

bool EbuFormat::TimeOf(std::string_view field, Ms& ms) const {
  const int hours = ByteAt(field, 0);
  const int minutes = ByteAt(field, 1);
  const int seconds = ByteAt(field, 2);
  const int frames = ByteAt(field, 3);
  if (hours > 23 || minutes > 59 || seconds > 59 || frames >= rate_) return false;
  ms = ((hours * 60 + minutes) * 60 + seconds) * 1000 + Checked32(Nearest(frames * 1000, rate_));
  return true;
}

std::string EbuFormat::TimeField(Ms ms, std::string_view) const {
  // The last time that a field can tell.
  const std::int64_t last = std::int64_t{24} * 3600 * rate_ - 1;
  const std::int64_t onTape = std::max<Ms>(ms, 0).Wide() + programmeStart_.Wide();
  const std::int64_t frames = std::min(Nearest(onTape * rate_, 1000), last);
  const std::int64_t seconds = frames / rate_;
  return {LowByte(seconds / 3600), LowByte(seconds / 60 % 60), LowByte(seconds % 60), LowByte(frames % rate_)};
}

std::string EbuFormat::FieldOf(std::string_view blocks) const {
  std::string field;
  for (; blocks.size() >= kBlockSize; blocks.remove_prefix(kBlockSize)) {
    if (IsUserData(blocks)) continue;
    const std::string_view part = blocks.substr(kTextAt, kTextSize);
    field += part.substr(0, part.find(kUnused));
  }
  return field;
}

int EbuFormat::PlaceOf(std::string_view block) const {
  const int column = block[kJustificationAt] == 1 ? 1 : block[kJustificationAt] == 3 ? 3 : 2;
  const int row = ByteAt(block, kVerticalAt);
  if (row * 3 <= rows_) return column + 6;
  return row * 9 <= rows_ * 5 ? column + 3 : column;
}

Text EbuFormat::TextOf(std::string_view blocks, TextView separator) const {
  StyledText text = ReadEbuText(FieldOf(blocks), texts_, separator);
  text.place = PlaceOf(blocks);
  LossSet lost;
  return WriteMarks(text, MarkKind::SubRip, separator, lost).text;
}

Text EbuFormat::TextField(TextView text, TextView separator, TextView) const {
  bool held = true;
  const StyledText styled = MarksIn(Text(text), separator);
  return Widened(WriteEbuText(styled.runs, {}, texts_, separator, held));
}

bool EbuFormat::Holds(TextView text, TextView separator) const {
  bool held = true;
  const StyledText styled = MarksIn(Text(text), separator);
  (void)WriteEbuText(styled.runs, {}, texts_, separator, held);
  return held;
}

/// As many blocks as the field needs, with everything else in them as in the first of the old blocks.
std::string EbuFormat::BlocksOf(std::string_view field, std::string_view old) const {
  std::string blocks;
  int extension = 0;
  do {
    const std::string_view part = field.substr(0, kTextSize);
    field.remove_prefix(part.size());
    std::string block(old.substr(0, kTextAt));
    block[kExtensionAt] = field.empty() ? LowByte(kLastBlock) : LowByte(extension++);
    block += part;
    block.resize(kBlockSize, kUnused);
    blocks += block;
  } while (!field.empty() && extension < kFirstReserved);
  return blocks;
}

/// Moves a text to the place that its marks ask for. A text at the bottom stays there when it gets more lines or fewer.
void EbuFormat::PutPlace(const StyledText& text, const StyledText& before, TextView separator,
                         std::string& block) const {
  const int old = before.place - 1;
  const int now = text.place - 1;
  const int rowsOfLine = texts_.teletext ? 2 : 1;
  const int lines = LinesOf(text, separator);
  if (old % 3 != now % 3) block[kJustificationAt] = LowByte(now % 3 + 1);
  int row = ByteAt(block, kVerticalAt);
  if (old / 3 != now / 3) {
    constexpr int kTop = 1;
    const int bottom = rows_ - lines * rowsOfLine + 1;
    row = now / 3 == 2 ? kTop : now / 3 == 1 ? rows_ / 2 - lines * rowsOfLine / 2 : bottom;
  } else if (now / 3 == 0) {
    row -= (lines - LinesOf(before, separator)) * rowsOfLine;
  }
  block[kVerticalAt] = LowByte(std::clamp(row, 0, std::min(rows_, 99)));
}

Text EbuFormat::Record(const NewRecord& record, TextView separator) const {
  const bool known = record.neighbour.size() >= kBlockSize;
  std::string blocks = known ? std::string(record.neighbour) : FirstBlock();
  const int number = record.isOwn && known ? NumberOf(blocks) + record.moved : firstNumber_ + record.number - 1;
  if (!record.isOwn || TextOf(blocks, separator) != record.caption.text) {
    const StyledText text = MarksIn(record.caption.text, separator);
    const StyledText before = MarksIn(TextOf(blocks, separator), separator);
    bool held = true;
    const std::string field = WriteEbuText(text.runs, FieldOf(blocks), texts_, separator, held);
    std::string first = blocks.substr(0, kBlockSize);
    PutPlace(text, before, separator, first);
    std::string anew = BlocksOf(field, first);
    for (std::size_t at = 0; record.isOwn && at < blocks.size(); at += kBlockSize) {
      const std::string_view block = std::string_view(blocks).substr(at, kBlockSize);
      if (IsUserData(block)) anew += block;
    }
    blocks = std::move(anew);
  }
  for (std::size_t at = 0; at < blocks.size(); at += kBlockSize) {
    blocks[at + kNumberAt] = LowByte(number & 0xFF);
    blocks[at + kNumberAt + 1] = LowByte(number >> 8 & 0xFF);
    if (IsUserData(std::string_view(blocks).substr(at, kBlockSize))) continue;
    PutTime(record.caption.start, at + kStartAt, blocks);
    PutTime(record.caption.end, at + kEndAt, blocks);
  }
  return Widened(blocks);
}

/// Writes a time unless the field shows it already.
void EbuFormat::PutTime(Ms ms, std::size_t at, std::string& blocks) const {
  Ms old = 0;
  if (TimeOf(std::string_view(blocks).substr(at, kTimeSize), old) && old == ms) return;
  blocks.replace(at, kTimeSize, TimeField(ms, {}));
}

std::size_t EbuFormat::BlockBytes() const { return kBlockSize; }

void EbuFormat::CountAnew(std::string& file, int moreRecords) const {
  if (file.size() < kHeadSize || file.size() == size_) return;
  const auto blocks = [](std::size_t size) { return Checked32((size - kHeadSize) / kBlockSize); };
  AddTo(kBlockCount, blocks(file.size()) - blocks(size_), file);
  AddTo(kSubtitleCount, moreRecords, file);
}

}  // namespace cuewright
