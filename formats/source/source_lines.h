#pragma once

#include <cstddef>
#include <string_view>

namespace cuewright {

/// One line of a file: its text and the place behind its end.
struct SourceLine {
  std::size_t at = 0;
  std::string_view text;
  std::size_t next = 0;

  std::size_t End() const { return at + text.size(); }
};

/// The lines of a file whose ends may mix: LF, CR LF, CR, and CR CR LF as one.
class SourceLines {
 public:
  /// Looks through all of the bytes once.
  explicit SourceLines(std::string_view bytes) : bytes_(bytes), ends_(EndsOf(bytes)) {}

  /// Takes the next line; false behind the last one. A file that ends in a line end has no line behind it.
  [[nodiscard]] bool Next(SourceLine& line) {
    if (next_ >= bytes_.size()) return false;
    line.at = next_;
    const std::size_t end = ends_ == Ends::Lf ? bytes_.find('\n', next_) : bytes_.find_first_of("\r\n", next_);
    if (end == std::string_view::npos) {
      line.text = bytes_.substr(next_);
      line.next = next_ = bytes_.size();
      return true;
    }
    // A file that has no lone CR is cut at LF alone, which is much faster to look for.
    const bool carriage = ends_ == Ends::Lf && end > next_ && bytes_[end - 1] == '\r';
    std::size_t length = end - next_;
    if (carriage) {
      while (length > 0 && bytes_[next_ + length - 1] == '\r') --length;
    }
    line.text = bytes_.substr(next_, length);
    line.next = next_ = ends_ == Ends::Lf ? end + 1 : Behind(end);
    return true;
  }

  /// The line that begins at a place is the next one.
  void GoTo(std::size_t place) { next_ = place; }
  std::size_t Place() const { return next_; }

 private:
  enum class Ends { Lf, Mixed };

  /// Whether every CR of the file stands in front of a LF.
  static Ends EndsOf(std::string_view bytes) {
    for (std::size_t at = bytes.find('\r'); at != std::string_view::npos; at = bytes.find('\r', at)) {
      while (at < bytes.size() && bytes[at] == '\r') ++at;
      if (at == bytes.size() || bytes[at] != '\n') return Ends::Mixed;
    }
    return Ends::Lf;
  }

  std::size_t Behind(std::size_t end) const {
    if (bytes_[end] == '\n') return end + 1;
    if (bytes_.substr(end, 3) == "\r\r\n") return end + 3;
    return bytes_.substr(end, 2) == "\r\n" ? end + 2 : end + 1;
  }

  std::string_view bytes_;
  std::size_t next_ = 0;
  Ends ends_;
};

}  // namespace cuewright
