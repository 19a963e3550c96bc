#pragma once

#include <string_view>

#include "text/text.h"

namespace cuewright {

/// Where a cue of WebVTT stands by the settings behind its times, which may be empty: the nearest of nine places,
/// numbered as on a number pad. https://www.w3.org/TR/webvtt1/#webvtt-cue-settings-list
int PlaceOfCue(std::string_view settings);

/// The settings of a cue at a place, with a blank in front; empty for the usual one.
Text SettingsOfPlace(int place);

}  // namespace cuewright
