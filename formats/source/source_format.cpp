#include "formats/source/source_format.h"

namespace cuewright {

std::string SourceFormat::NumberField(int number, std::string_view) const { return std::to_string(number); }

std::unique_ptr<SourceFormat> MakeSourceFormat(TextView) { return nullptr; }

}  // namespace cuewright
