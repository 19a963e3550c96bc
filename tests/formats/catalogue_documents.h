#pragma once

#include <string>
#include <vector>

#include "core/caption_list.h"
#include "core/frame_rate.h"
#include "formats/catalogue.h"

namespace cuewright::testing {

/// A document that every format is tried with. Times are multiples of 200 ms, which all templates but those of whole
/// seconds carry, and captions are 2 s long at least, which those of whole seconds need.
struct SampleDocument {
  std::string name;
  std::vector<Caption> rows;
};

const std::vector<SampleDocument>& Documents();

/// The document of the files in tests/data/formats.
const SampleDocument& CapabilityDocument();

/// A format that can't do a thing for a reason that lies in the format.
struct FormatException {
  std::string_view format;
  std::string_view document;  ///< "*": all
  std::string_view reason;
};

/// True when the format's file of this document is taken for another's, or for none.
bool TakenForAnother(const std::string& format, const std::string& document);

/// True when another format reads files of this one as well, but otherwise, so that the user is asked.
bool HasARival(const std::string& format);

/// True when the format's file of this document does not give all times back.
bool NotReadWhole(const std::string& format, const std::string& document);

/// Captions as a format carries them: whole seconds are rounded, and what it has no means for (hours, tags, line
/// breaks) is gone. `exact`: as today's manner writes times.
Caption Carried(const FormatCatalogue& catalogue, const Text& id, Caption caption, bool exact);
std::vector<Caption> Carried(const FormatCatalogue& catalogue, const Text& id, const SampleDocument& document,
                             bool exact);

std::vector<Text> TextsOf(const std::vector<Caption>& rows);

/// The rate that a format is written with: 25 when it counts frames, else 0.
FrameRate RateOf(const FormatCatalogue& catalogue, const Text& id);

}  // namespace cuewright::testing
