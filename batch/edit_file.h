#pragma once

#include <optional>
#include <string>

#include "batch/commands.h"
#include "batch/json.h"

namespace cuewright {

/// The outcome for a file that was read, edited and written.
struct EditOutcome {
  bool read = false;
  bool written = false;
  int changed = 0;  ///< captions
};

/// False, after telling so, when the catalogue lacks the format of `--to`.
bool KnowsFormatToWrite(const Request& request, const Session& session, Console& console);

/// Writes the edited document to `--out`, in its own format unless `--to` names another; false, after telling why, when
/// that fails. A file that was not read whole is never written over.
bool WriteEdited(const Request& request, Session& session);

/// Prints how many captions changed, as a sentence or as JSON; the exit status of the run.
int ReportEdit(const Request& request, Session& session, Console& console, const EditOutcome& outcome);

}  // namespace cuewright
