#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "text/text.h"

namespace cuewright {

/// What the script of an embedding is filled with. Paths are texts of the script, in their quotes.
struct EmbedValues {
  Text source;
  Text subtitle;
  Text target;
  std::optional<std::int64_t> leftOut;  ///< ms left out at the end; empty: the whole film
  struct Size {
    Text width;
    Text height;
    int mode = 0;
  };
  std::optional<Size> size;  ///< empty: that of the film
};

/// The bytes of the script "embedsub.vcf", its lines ended by CR LF.
std::string EmbedScriptBytes(const EmbedValues& values);

/// What the script of an extraction is filled with.
struct ExtractValues {
  Text source;
  Text target;
  bool wave = true;  ///< uncompressed samples; else the sound as it is
  Text sampleRate;   ///< as chosen or typed
};

/// The bytes of the script "aext.vcf", its lines ended by CR LF. A sample rate that is no number from 8000 to 48000
/// leaves that of the film.
std::string ExtractScriptBytes(const ExtractValues& values);

}  // namespace cuewright
