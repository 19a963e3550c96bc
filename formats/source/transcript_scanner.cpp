#include "formats/source/transcript_scanner.h"

#include <algorithm>

#include "text/digits.h"

namespace cuewright {
namespace {

/// Values within values that are followed.
constexpr int kDeepest = 64;

/// Lists whose parts have times of their own but are no captions.
bool HoldsParts(std::string_view key) {
  return key == "words" || key == "tokens" || key == "chars" || key == "characters" || key == "phonemes";
}

class Scanner {
 public:
  explicit Scanner(std::string_view bytes) : bytes_(bytes) {}

  Transcript Scan() {
    Value({}, 0);
    SkipBlanks();
    if (at_ != bytes_.size()) Break();
    return std::move(result_);
  }

 private:
  enum class Kind { Other, Number, String };
  struct Found {
    Kind kind = Kind::Other;
    Stretch place;
  };

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
    return {Kind::String, Stretch::Between(begin, at_++)};
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
        Object(begin, depth);
        return {};
      case '[':
        ++at_;
        Array(key, depth);
        return {};
      default:
        break;
    }
    at_ = std::min(bytes_.find_first_of(" \t\r\n,]}", at_), bytes_.size());
    if (at_ == begin) Break();
    const bool number = IsDigit(bytes_[begin]);
    return {number ? Kind::Number : Kind::Other, Stretch::Between(begin, at_)};
  }

  void Array(std::string_view key, int depth) {
    const bool parts = HoldsParts(key);
    parts_ += parts ? 1 : 0;
    if (!Take(']')) {
      do {
        (void)Value({}, depth + 1);
      } while (Take(','));
      if (!Take(']')) Break();
    }
    parts_ -= parts ? 1 : 0;
  }

  void Object(std::size_t begin, int depth) {
    Found start;
    Found end;
    Found text;
    const std::size_t place = result_.segments.size();
    if (!Take('}')) {
      do {
        if (!Take('"')) return Break();
        const std::string_view key = String().place.In(bytes_);
        if (!Take(':')) return Break();
        const Found value = Value(key, depth + 1);
        if (key == "start") start = value;
        if (key == "end") end = value;
        if (key == "text" || key == "transcript") text = value;
      } while (Take(','));
      if (!Take('}')) return Break();
    }
    const bool segment = start.kind == Kind::Number && end.kind == Kind::Number && text.kind == Kind::String;
    // One that has segments in it is a summary of them.
    if (!segment || parts_ > 0 || result_.segments.size() != place) return;
    result_.segments.push_back({Stretch::Between(begin, at_), start.place, end.place, text.place});
  }

  std::string_view bytes_;
  std::size_t at_ = 0;
  int parts_ = 0;  // lists of parts that this place lies in
  Transcript result_;
};

}  // namespace

Transcript ScanTranscript(std::string_view bytes) { return Scanner(bytes).Scan(); }

}  // namespace cuewright
