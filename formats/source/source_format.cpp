#include "formats/source/source_format.h"

#include "formats/catalogue.h"
#include "formats/source/subrip_format.h"

namespace cuewright {

std::string SourceFormat::NumberField(int number, std::string_view) const { return std::to_string(number); }

std::unique_ptr<SourceFormat> MakeSourceFormat(TextView identifier) {
  if (identifier == kSubRip) return std::make_unique<SubRipFormat>();
  return nullptr;
}

}  // namespace cuewright
