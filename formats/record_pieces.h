#pragma once

#include "core/runtime_error.h"
#include "formats/definition.h"
#include "text/text.h"

namespace cuewright {

/// The literal texts around the fields of a record, each brought down to one line. A trail that ends in CR marks a
/// field that ends with its line.
struct RecordPieces {
  Text StartLead;
  Text StartTrail;
  Text EndLead;
  Text EndTrail;
  Text CaptionLead;
  Text CaptionTrail;
};

/// Cuts the record in force; its digits are turned to "0" first, and stay so. A piece that can't be cut is a run-time
/// error and stays empty.
RecordPieces CutRecord(FormatDefinition& definition, CarryOn& errors);

}  // namespace cuewright
