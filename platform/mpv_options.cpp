#include "platform/mpv_options.h"

#include <cstdlib>
#include <sstream>

namespace cuewright {

MpvPlayerOptions MpvPlayerOptions::FromEnvironment() {
  MpvPlayerOptions options;
  const char* items = std::getenv("CUEWRIGHT_MPV_OPTIONS");
  std::istringstream stream(items ? items : "");
  for (std::string item; stream >> item;) {
    const std::size_t equals = item.find('=');
    if (equals != std::string::npos) options.extra.emplace_back(item.substr(0, equals), item.substr(equals + 1));
  }
  return options;
}

}  // namespace cuewright
