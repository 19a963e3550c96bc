#include <algorithm>
#include <utility>

#include "formats/line_parsers.h"

namespace cuewright {

void ImportLine::SetBytes(std::string_view bytes, bool ascii) {
  bytes_ = bytes;
  ascii_ = ascii;
  hasBytes_ = true;
  decoded_ = false;
}

void ImportLine::SetText(Text text) {
  own_ = std::move(text);
  text_ = own_;
  hasBytes_ = false;
  decoded_ = true;
}

void ImportLine::Clear() { SetText({}); }

TextView ImportLine::Decode() {
  file_.Decode(bytes_, buffer_, ascii_);
  text_ = buffer_.View();
  decoded_ = true;
  return text_;
}

bool ImportLine::StartsWith(std::string_view ascii) {
  if (hasBytes_) return bytes_.starts_with(ascii);
  return text_.size() >= ascii.size() && std::equal(ascii.begin(), ascii.end(), text_.begin(),
                                                    [](char a, char16_t b) { return static_cast<char16_t>(a) == b; });
}

}  // namespace cuewright
