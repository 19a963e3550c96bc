#include "formats/convert_from_utf8.h"

#include <utility>
#include <vector>

namespace cuewright {

void ConvertCaptionsFromUtf8(CaptionList& captions, const Encodings& encodings) {
  const Text& separator = captions.Options().lineSeparator;
  std::vector<Caption> rows;
  rows.reserve(captions.Count());
  for (Row row = 1; row < captions.Rows(); ++row) {
    Caption caption = captions.At(row);
    Text text = encodings.BytesToText(encodings.TextToBytes(caption.text, kSystemCodePage), kCodePageUtf8);
    if (separator.empty() || !text.ends_with(separator)) caption.text = std::move(text);
    rows.push_back(std::move(caption));
  }
  captions.Replace(1, captions.Count(), std::move(rows));
}

}  // namespace cuewright
