#pragma once

#include "core/ports/player.h"
#include "formats/definition.h"

namespace cuewright {

/// Lays the header of a SubStation script out for a film's picture: the script's own picture becomes that one, and the
/// sizes of its styles grow with it, so that captions look as they did. Other headers, and any where the picture isn't
/// known, stay.
void FitToPicture(const PictureSize& picture, FormatDefinition& definition);

}  // namespace cuewright
