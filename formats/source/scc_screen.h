#pragma once

#include <array>
#include <cstdint>

#include "formats/source/markup.h"

namespace cuewright {

/// How a character of a line-21 caption looks.
struct CaptionPen {
  std::uint8_t colour = 0;  ///< white, green, blue, cyan, red, yellow, magenta
  bool italic = false;
  bool underline = false;

  bool operator==(const CaptionPen&) const = default;
};

/// One of the two memories of a decoder of line-21 captions: 15 rows of 32 characters, and the place of the next
/// character.
class CaptionScreen {
 public:
  static constexpr int kRows = 15;
  static constexpr int kColumns = 32;

  bool Blank() const { return usedRows_ == 0; }
  void Clear();

  /// Sets the row and the column, both from 0, of the next character.
  void MoveTo(int row, int column);
  void SetRow(int row) { row_ = row; }
  /// Moves the place of the next character on by so many columns.
  void Skip(int columns);
  void Put(char16_t character, const CaptionPen& pen);
  void Backspace();
  /// Clears the row from the next character on.
  void ClearToEnd();

  /// What a viewer sees: a line for each row, without the blanks around it, and the place on the picture.
  StyledText Seen(TextView separator) const;

 private:
  struct Cell {
    char16_t character = 0;  ///< 0: nothing is there
    CaptionPen pen;
  };
  using Line = std::array<Cell, kColumns>;

  static void AppendLine(const Line& line, std::vector<StyledRun>& runs);
  bool Uses(int row) const { return (usedRows_ >> row & 1U) != 0; }
  Line& Row() { return cells_[row_]; }

  std::array<Line, kRows> cells_{};
  std::uint32_t usedRows_ = 0;  // a bit for each row
  int row_ = kRows - 1;
  int column_ = 0;
};

}  // namespace cuewright
