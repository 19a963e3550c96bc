#include "formats/source/xml_element.h"

namespace cuewright {

bool XmlElement::Load(std::string_view bytes, Stretch element) {
  return Parse(bytes, element).status == pugi::status_ok;
}

bool XmlElement::LoadTag(std::string_view bytes, Stretch tag) {
  const pugi::xml_parse_status status = Parse(bytes, tag).status;
  return status == pugi::status_ok || status == pugi::status_end_element_mismatch;
}

pugi::xml_parse_result XmlElement::Parse(std::string_view bytes, Stretch stretch) {
  // The parser builds its tree within the copy of the bytes, whose room is used again for each element.
  document_.reset();
  bytes_.assign(stretch.In(bytes));
  at_ = stretch.at;
  return document_.load_buffer_inplace(bytes_.data(), bytes_.size(), pugi::parse_minimal, pugi::encoding_utf8);
}

}  // namespace cuewright
