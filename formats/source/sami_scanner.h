#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "core/ms.h"
#include "formats/source/source_format.h"

namespace cuewright {

/// A paragraph of a class: its text without the blanks and line ends around it.
struct SamiParagraph {
  std::string_view className;
  Stretch text;
};

/// A time of a SAMI file and what is shown from it on.
struct SamiSync {
  Stretch whole;  ///< up to the next time or the end of the body
  Stretch start;  ///< empty: it isn't a number
  Ms ms = 0;
  std::vector<SamiParagraph> paragraphs;
};

/// Bytes that are equal but for the case of ASCII letters.
bool SameLetters(std::string_view a, std::string_view b);

/// Finds the times of a SAMI file.
class SamiScanner {
 public:
  explicit SamiScanner(std::string_view bytes);

  [[nodiscard]] bool Next(SamiSync& sync);

 private:
  std::size_t BehindRemark(std::size_t at) const;
  std::size_t FindTag(std::string_view name, std::size_t from, std::size_t to) const;
  std::size_t TagEnd(std::size_t at) const;
  void ReadParagraphs(std::size_t from, std::size_t to, SamiSync& sync) const;

  std::string_view bytes_;
  std::size_t bodyEnd_;
  std::size_t next_;
  std::size_t lastClosing_ = 0;  // where the last remark ends
};

}  // namespace cuewright
