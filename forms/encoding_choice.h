#pragma once

#include <vector>

#include "core/lang_strings.h"
#include "form/controls.h"
#include "text/encoding_names.h"

namespace cuewright {

/// A box of choices with all encodings that files are read and saved in, by region and UTF-8 first.
class EncodingChoice {
 public:
  explicit EncodingChoice(ComboBox& box) : box_(box), encodings_(ListedEncodings()) {}

  /// Fills the box in the language in force.
  void Fill(const LangStrings& strings);
  /// One that isn't in the list leaves the choice alone.
  void Choose(const DocumentEncoding& encoding);
  DocumentEncoding Chosen() const;

 private:
  ComboBox& box_;
  std::vector<ListedEncoding> encodings_;
};

}  // namespace cuewright
