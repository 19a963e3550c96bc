#include "formats/source/transcript_scanner.h"

#include <algorithm>
#include <array>

#include "text/digits.h"

namespace cuewright {
namespace {

/// Values within values that are followed.
constexpr int kDeepest = 64;
constexpr std::string_view kBlanks = " \t\r\n";

/// Lists whose parts have times of their own but are no captions.
bool HoldsParts(std::string_view key) {
  return key == "words" || key == "tokens" || key == "chars" || key == "characters" || key == "phonemes";
}

enum class Kind { Other, Number, String, List, Pair, Piece };

/// A value of the file and the two values in it that count: the first numbers of a list, "from" and "to" of an object,
/// or the piece of a text in either.
struct Found {
  Kind kind = Kind::Other;
  Stretch place;
  Stretch first;
  Stretch second;
  int pieces = 0;

  bool IsScalar() const { return kind == Kind::Number || kind == Kind::String; }
};

/// The members of an object that make it a segment.
struct Members {
  Found start;
  Found end;
  Found duration;
  Found text;
  Found list;
  Found clocks;
  Found ranges;
  Found pieces;
  SegmentShape shape = SegmentShape::Flat;
  Stretch from;
  Stretch to;
  Stretch piece;

  void Take(std::string_view key, const Found& value);
  bool Make(TranscriptSegment& segment) const;
};

struct Role {
  std::string_view key;
  Found Members::*member;
};
constexpr std::array<Role, 17> kRoles = {{{"start", &Members::start},
                                          {"startTime", &Members::start},
                                          {"start_time", &Members::start},
                                          {"begin", &Members::start},
                                          {"tStartMs", &Members::start},
                                          {"end", &Members::end},
                                          {"endTime", &Members::end},
                                          {"end_time", &Members::end},
                                          {"duration", &Members::duration},
                                          {"dur", &Members::duration},
                                          {"dDurationMs", &Members::duration},
                                          {"text", &Members::text},
                                          {"transcript", &Members::text},
                                          {"body", &Members::text},
                                          {"timestamp", &Members::list},
                                          {"timestamps", &Members::clocks},
                                          {"offsets", &Members::ranges}}};

void Members::Take(std::string_view key, const Found& value) {
  if (key == "tStartMs") shape = SegmentShape::Events;
  if (key == "segs") pieces = value;
  if (key == "from") from = value.place;
  if (key == "to") to = value.place;
  if (key == "utf8" && value.kind == Kind::String) piece = value.place;
  for (const Role& role : kRoles) {
    if (role.key == key) this->*role.member = value;
  }
}

bool Members::Make(TranscriptSegment& segment) const {
  segment.shape = shape;
  segment.start = start.place;
  segment.lasts = !end.IsScalar();
  segment.end = segment.lasts ? duration.place : end.place;
  bool timed = start.IsScalar() && (end.IsScalar() || duration.IsScalar());
  if (!timed && ranges.kind == Kind::Pair) {
    segment.shape = SegmentShape::Ranges;
    segment.start = ranges.first;
    segment.end = ranges.second;
    segment.startClock = clocks.first;
    segment.endClock = clocks.second;
  } else if (!timed && list.kind == Kind::List && !list.first.Empty()) {
    segment.shape = SegmentShape::List;
    segment.start = list.first;
    segment.end = list.second;
  }
  if (segment.shape == SegmentShape::Ranges || segment.shape == SegmentShape::List) {
    segment.lasts = false;
    timed = true;
  }
  if (shape == SegmentShape::Events && pieces.pieces > 0) {
    segment.pieces = pieces.place;
    if (pieces.pieces == 1) segment.text = pieces.first;
    return timed;
  }
  segment.text = text.place;
  return timed && text.kind == Kind::String;
}

class Scanner {
 public:
  explicit Scanner(std::string_view bytes) : bytes_(bytes) {}

  Transcript Scan() {
    std::size_t values = 0;
    do {
      Value({}, 0);
      SkipBlanks();
      ++values;
    } while (at_ < bytes_.size() && (bytes_[at_] == '{' || bytes_[at_] == '['));
    if (at_ != bytes_.size()) Break();
    result_.lines = values > 1 && values == result_.segments.size();
    return std::move(result_);
  }

 private:
  void Break() {
    if (!result_.broken) result_.brokenAt = std::min(at_, bytes_.size());
    result_.broken = true;
    at_ = bytes_.size();
  }

  void SkipBlanks() {
    while (at_ < bytes_.size() &&
           (bytes_[at_] == ' ' || bytes_[at_] == '\t' || bytes_[at_] == '\r' || bytes_[at_] == '\n')) {
      ++at_;
    }
  }

  bool Take(char c) {
    SkipBlanks();
    if (at_ >= bytes_.size() || bytes_[at_] != c) return false;
    ++at_;
    return true;
  }

  Found String() {
    const std::size_t begin = at_;
    for (at_ = bytes_.find_first_of("\"\\", at_); at_ != std::string_view::npos && bytes_[at_] == '\\';
         at_ = bytes_.find_first_of("\"\\", at_ + 2)) {
    }
    if (at_ == std::string_view::npos) {
      Break();
      return {};
    }
    return {Kind::String, Stretch::Between(begin, at_++), {}, {}, 0};
  }

  Found Value(std::string_view key, int depth) {
    SkipBlanks();
    if (at_ >= bytes_.size() || depth > kDeepest) {
      Break();
      return {};
    }
    const std::size_t begin = at_;
    switch (bytes_[at_]) {
      case '"':
        ++at_;
        return String();
      case '{':
        ++at_;
        return Object(begin, depth);
      case '[':
        ++at_;
        return Array(begin, key, depth);
      default:
        break;
    }
    at_ = std::min(bytes_.find_first_of(" \t\r\n,]}", at_), bytes_.size());
    if (at_ == begin) Break();
    const bool number = IsDigit(bytes_[begin]);
    return {number ? Kind::Number : Kind::Other, Stretch::Between(begin, at_), {}, {}, 0};
  }

  Found Array(std::size_t begin, std::string_view key, int depth) {
    const bool parts = HoldsParts(key);
    parts_ += parts ? 1 : 0;
    Found list{Kind::List, {}, {}, {}, 0};
    if (!Take(']')) {
      do {
        const Found value = Value({}, depth + 1);
        if (value.kind == Kind::Piece && list.pieces++ == 0) list.first = value.first;
        if (value.kind != Kind::Number) continue;
        (list.first.Empty() ? list.first : list.second) = value.place;
      } while (Take(','));
      if (!Take(']')) Break();
    }
    parts_ -= parts ? 1 : 0;
    list.place = Stretch::Between(begin, at_);
    return list;
  }

  Found Object(std::size_t begin, int depth) {
    Members members;
    const std::size_t place = result_.segments.size();
    if (!Take('}')) {
      do {
        if (!Take('"')) {
          Break();
          return {};
        }
        const std::string_view key = String().place.In(bytes_);
        if (!Take(':')) {
          Break();
          return {};
        }
        members.Take(key, Value(key, depth + 1));
      } while (Take(','));
      if (!Take('}')) {
        Break();
        return {};
      }
    }
    TranscriptSegment segment;
    segment.whole = Stretch::Between(begin, at_);
    // An object with segments in it is a summary of them, and no segment itself.
    if (parts_ == 0 && result_.segments.size() == place && members.Make(segment)) result_.segments.push_back(segment);
    if (members.piece.at != 0) return {Kind::Piece, segment.whole, members.piece, {}, 1};
    if (!members.to.Empty()) return {Kind::Pair, segment.whole, members.from, members.to, 0};
    return {};
  }

  std::string_view bytes_;
  std::size_t at_ = 0;
  int parts_ = 0;  // lists of parts that this place lies in
  Transcript result_;
};

}  // namespace

Transcript ScanTranscript(std::string_view bytes) { return Scanner(bytes).Scan(); }

std::vector<std::string_view> PiecesIn(std::string_view list) {
  constexpr std::string_view kKey = "\"utf8\"";
  std::vector<std::string_view> pieces;
  // The list was read as JSON before.
  for (std::size_t at = list.find(kKey); at != std::string_view::npos; at = list.find(kKey, at)) {
    const std::size_t begin = std::min(list.find('"', at + kKey.size()), list.size() - 1) + 1;
    std::size_t end = begin;
    while (end < list.size() && list[end] != '"') end += list[end] == '\\' ? 2 : 1;
    pieces.push_back(list.substr(begin, std::min(end, list.size()) - begin));
    at = std::min(end, list.size());
  }
  return pieces;
}

bool BeginsAsJson(std::string_view bytes) {
  const std::size_t first = bytes.find_first_not_of(kBlanks);
  if (first == std::string_view::npos || (bytes[first] != '{' && bytes[first] != '[')) return false;
  const std::size_t second = std::min(bytes.find_first_not_of(kBlanks, first + 1), bytes.size() - 1);
  return bytes[second] == '"' || (bytes[first] == '[' && (bytes[second] == '{' || bytes[second] == '['));
}

}  // namespace cuewright
