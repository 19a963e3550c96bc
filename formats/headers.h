#pragma once

#include <cstdint>

#include "core/ports/settings_reader.h"
#include "text/text.h"

namespace cuewright {

/// The header of DVDSUBTITLE, SAMI or SUBSTATIONALPHA, composed from the user's options, lines joined by CR LF without
/// one at the end; empty for any other identifier. `charset` is the number that SubStation's style names.
Text BuildBuiltInHeader(TextView identifier, const SettingsReader& settings, std::int16_t charset);

/// The section of a format's options: "Cuewright\" and the identifier.
Text FormatOptionStore(TextView identifier);

}  // namespace cuewright
