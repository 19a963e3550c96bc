#include <utility>

#include "formats/line_parsers.h"
#include "text/text_search.h"

namespace cuewright {

bool ImportLine::Next(TextFile& file, const Encodings* wide) {
  if (!file.NextText(buffer_)) return false;
  text_ = TrimBlanks(buffer_.View());
  if (wide != nullptr) SetText(wide->PairBytes(text_));
  return true;
}

void ImportLine::SetText(Text text) {
  own_ = std::move(text);
  text_ = own_;
}

}  // namespace cuewright
