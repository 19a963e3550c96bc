#pragma once

#include <functional>

#include "core/lang_strings.h"
#include "core/ports/messages.h"
#include "text/text.h"

namespace cuewright {

/// What a load or a save has come to.
enum class FileStage {
  FormatChosen,  ///< another format is in force
  LoadBegins,    ///< the format is known; the list will be emptied
  Pauses,        ///< a load can be broken off here
  LoadEnds,      ///< of a new document or an append; a failure is told after this stage
  SaveBegins,
  SaveEnds,  ///< the file is written, or why it can't be was told
};

/// A function that is told each stage, and the text to show meanwhile in place of the file's name; empty for stages
/// without one.
using FileProgress = std::function<void(FileStage stage, TextView status)>;

/// How reading and writing files speak with the user.
struct FormatTalk {
  const LangStrings& strings;
  Messages& messages;
  FileProgress progress = {};  ///< empty: nobody follows

  void Report(FileStage stage, TextView status = {}) const {
    if (progress) progress(stage, status);
  }
};

}  // namespace cuewright
