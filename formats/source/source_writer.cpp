#include "formats/source/source_writer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <span>
#include <string>

#include "core/counting.h"
#include "formats/encoding_rules.h"

namespace cuewright {
namespace {

/// The number that a field holds; nothing for a field that holds none.
std::optional<int> NumberIn(std::string_view field) {
  int number = 0;
  const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), number);
  if (error != std::errc() || end != field.data() + field.size()) return {};
  return number;
}

/// By how many places the caption of a record comes later than it did in the file.
int PlacesMoved(Row row, std::uint32_t origin) { return row - Row::OfIndex(origin - 1); }

/// True when the record at this place is the first part of a list.
bool BeginsList(std::string_view bytes, std::size_t at) {
  const std::size_t before = at == 0 ? std::string_view::npos : bytes.find_last_not_of(" \t\r\n", at - 1);
  return before != std::string_view::npos && bytes[before] == '[';
}

/// A stretch of a file and what is to stand there, if anything else.
struct Field {
  Stretch place;
  std::optional<Text> anew;
};

/// Writes the file from a place on up to the end of the last field that is written anew; returns that end.
std::size_t PutFields(std::size_t at, std::span<const Field> fields, SourceOutput& out) {
  for (const Field& field : fields) {
    if (!field.anew) continue;
    out.PutOld(at, field.place.at);
    out.Replace(field.place, *field.anew);
    at = field.place.End();
  }
  return at;
}

/// A file that isn't written yet.
struct Gathered final : ByteSink {
  void Write(std::string_view more) override { bytes += more; }
  std::string bytes;
};

}  // namespace

bool SourceWriter::Changed(const SourceMap::Piece& piece, const Caption& caption) const {
  return TimeChanged(piece.times.start, caption.start) || TimeChanged(piece.times.end, caption.end) ||
         !SourceMap::SameText(piece, caption);
}

bool SourceWriter::HeldBy(const Codec& codec) const {
  if (codec.IsUtf8() && !IsBytes()) return true;
  const auto& pieces = map_.Pieces();
  for (Row row = 1; row <= lastRow_ && captions_.InRange(row); ++row) {
    const Caption& caption = captions_.At(row);
    const bool known = caption.origin != 0 && caption.origin <= pieces.size();
    if (known && SourceMap::SameText(pieces[caption.origin - 1], caption)) continue;
    if (!(IsBytes() ? map_.Rules().Holds(caption.text, Separator()) : codec.Holds(caption.text))) return false;
  }
  return true;
}

bool SourceWriter::Differs() const {
  const auto& pieces = map_.Pieces();
  if (lastRow_.Index() + 1 != pieces.size()) return true;
  for (Row row = 1; row <= lastRow_; ++row) {
    const Caption& caption = captions_.At(row);
    if (caption.origin != row.Index() + 1 || Changed(pieces[caption.origin - 1], caption)) return true;
  }
  return false;
}

void SourceWriter::Write(const Codec& codec, bool turned, std::string_view declared, ByteSink& sink) {
  if (!IsBytes()) return WriteRecords(codec, turned, declared, sink);
  // The head counts the file's blocks, so it is written when all of them are known.
  Gathered file;
  WriteRecords(codec, false, {}, file);
  map_.Rules().CountAnew(file.bytes, lastRow_.Number() - CountOf(map_.Pieces()));
  sink.Write(file.bytes);
}

void SourceWriter::WriteRecords(const Codec& codec, bool turned, std::string_view declared, ByteSink& sink) {
  SourceOutput out(map_, codec, turned, sink);
  const Text sample = map_.Rules().Record({Caption{0, 1000, u"x", 0}, 1, u"\n", {}}, Separator());
  const bool blankBetween = sample.ends_with(u"\n\n");
  const auto& pieces = map_.Pieces();
  written_.assign(pieces.size(), false);
  next_ = done_ = 0;
  neighbour_ = nullptr;
  Declare(declared, out);
  for (Row row = 1; row <= lastRow_ && captions_.InRange(row); ++row) {
    const std::uint32_t origin = captions_.At(row).origin;
    if (origin == 0 || origin > pieces.size() || written_[origin - 1]) {
      if (next_ == 0) KeepUpTo(0, out);
      if (!IsBytes()) out.BeginLine(blankBetween);
      WriteNew(row, false, out);
      continue;
    }
    const Stretch whole = pieces[origin - 1].record.whole;
    if (origin > next_) {
      KeepUpTo(origin - 1, out);
      next_ = origin;
      done_ = whole.End();
    }
    if (!IsBytes() && !out.GoesOnAt(whole.at)) out.BeginLine(blankBetween);
    written_[origin - 1] = true;
    neighbour_ = &pieces[origin - 1].record;
    WriteRecord(row, origin, out);
  }
  KeepUpTo(pieces.size(), out);
  out.Finish();
}

void SourceWriter::Declare(std::string_view encoding, SourceOutput& out) {
  const Stretch old = encoding.empty() ? Stretch() : DeclaredEncoding(map_.Bytes());
  if (old.Empty()) return;
  out.PutOld(0, old.at);
  out.Replace(old, FromUtf8(encoding));
  done_ = old.End();
}

void SourceWriter::KeepUpTo(std::size_t piece, SourceOutput& out) {
  const auto& pieces = map_.Pieces();
  // Bytes around records that were removed stay.
  for (; next_ < piece; ++next_) {
    out.PutOld(done_, pieces[next_].record.whole.at);
    done_ = pieces[next_].record.whole.End();
  }
  const std::size_t begin = piece < pieces.size() ? pieces[piece].record.whole.at : map_.Bytes().size();
  out.PutOld(done_, begin);
  done_ = begin;
}

void SourceWriter::WriteRecord(Row row, std::uint32_t origin, SourceOutput& out) const {
  const SourceMap::Piece& piece = map_.Pieces()[origin - 1];
  const bool moved = !piece.record.number.Empty() && PlacesMoved(row, origin) != 0;
  if (moved || Changed(piece, captions_.At(row))) return WriteChanged(row, origin, out);
  const std::size_t at = PartRecord(piece.record.whole, out);
  out.PutOld(at, piece.record.whole.End());
}

std::size_t SourceWriter::PartRecord(Stretch whole, SourceOutput& out) const {
  if (!map_.Rules().RecordsAreAList()) return whole.at;
  const bool parted = map_.Bytes()[whole.at] == ',';
  const bool first = out.LastSign() == '[';
  if (!parted && !BeginsList(map_.Bytes(), whole.at)) return whole.at;
  if (!parted && !first) out.Put(u",");
  return parted && first ? whole.at + 1 : whole.at;
}

void SourceWriter::WriteBlocks(Row row, std::uint32_t origin, SourceOutput& out) const {
  const Stretch whole = map_.Pieces()[origin - 1].record.whole;
  NewRecord record{captions_.At(row), row.Number(), map_.LineEnd(), whole.In(map_.Bytes())};
  record.isOwn = true;
  record.moved = PlacesMoved(row, origin);
  out.Replace(whole, map_.Rules().Record(record, Separator()));
}

bool SourceWriter::SetsEnd(Row row, const SourceMap::Piece& piece) const {
  if (!piece.record.endIsReckoned || !map_.Rules().WritesEnds()) return false;
  const Caption& caption = captions_.At(row);
  // A caption that was moved keeps its duration.
  if (caption.end == piece.times.end) return false;
  if (Span(caption.start, caption.end) == Span(piece.times.start, piece.times.end)) return false;
  const bool last = row == lastRow_ || !captions_.InRange(row + 1);
  return last || captions_.At(row + 1).start != caption.end;
}

void SourceWriter::WriteChanged(Row row, std::uint32_t origin, SourceOutput& out) const {
  if (IsBytes()) return WriteBlocks(row, origin, out);
  const SourceMap::Piece& piece = map_.Pieces()[origin - 1];
  const SourceRecord& record = piece.record;
  const Caption& caption = captions_.At(row);
  const bool start = TimeChanged(piece.times.start, caption.start);
  const bool end = TimeChanged(piece.times.end, caption.end);
  const bool text = !SourceMap::SameText(piece, caption);
  const SourceFormat& rules = map_.Rules();
  const bool setsEnd = SetsEnd(row, piece);
  const std::optional<Text> behind = setsEnd ? rules.EndBehind(caption.end, map_.LineEnd()) : std::nullopt;
  const bool wantsEnd = record.endIsReckoned ? setsEnd && !behind : end && record.end.Empty() && rules.WritesEnds();
  if ((start && record.start.Empty()) || wantsEnd || (text && record.text.at == 0) ||
      ((start || end) && rules.TimesAreLinked())) {
    return WriteNew(row, true, out);
  }
  std::array<Field, 4> fields = {Field{record.number, {}}, Field{record.start, {}}, Field{record.end, {}},
                                 Field{record.text, {}}};
  const auto old = [&](Stretch place) { return place.In(map_.Bytes()); };
  if (const std::optional<int> number = NumberIn(old(record.number))) {
    const int moved = *number + PlacesMoved(row, origin);
    if (moved != *number) fields[0].anew = FromUtf8(rules.NumberField(moved, old(record.number)));
  }
  const Ms offset = rules.OffsetOf(record);
  if (start) fields[1].anew = FromUtf8(rules.TimeField(caption.start - offset, old(record.start)));
  if (end && !record.end.Empty()) fields[2].anew = FromUtf8(rules.TimeField(caption.end - offset, old(record.end)));
  if (text) fields[3].anew = rules.TextField(caption.text, Separator(), map_.LineEnd());
  std::ranges::sort(fields, {}, [](const Field& field) { return field.place.at; });
  out.PutOld(PutFields(PartRecord(record.whole, out), fields, out), record.whole.End());
  if (behind) out.Put(*behind);
}

void SourceWriter::WriteNew(Row row, bool own, SourceOutput& out) const {
  const SourceRecord* neighbour = neighbour_;
  if (neighbour == nullptr && !map_.Pieces().empty()) neighbour = &map_.Pieces()[0].record;
  NewRecord anew{captions_.At(row), row.Number(), map_.LineEnd()};
  if (neighbour != nullptr) {
    anew.neighbour = neighbour->whole.In(map_.Bytes());
    anew.offset = map_.Rules().OffsetOf(*neighbour);
  }
  anew.isOwn = own;
  const Text record = map_.Rules().Record(anew, Separator());
  const bool first = map_.Rules().RecordsAreAList() && out.LastSign() == '[';
  out.Put(TextView(record).substr(first ? 1 : 0));
}

}  // namespace cuewright
