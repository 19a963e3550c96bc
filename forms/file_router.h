#pragma once

#include <vector>

#include "core/document.h"
#include "forms/audio_commands.h"
#include "forms/document_files.h"
#include "forms/player_binding.h"
#include "forms/recent_files.h"

namespace cuewright {

/// Opens files as what they are: those of the command line, those dropped on the window, and the recent ones.
class FileRouter {
 public:
  FileRouter(const DocumentState& document, DocumentFiles& texts, PlayerBinding& films, AudioCommands& sounds);

  void OpenAs(FileKind kind, const Text& path);
  /// Opens files that were dropped on the window: the films and sounds first, then the last text as the document.
  void OpenDropped(const std::vector<Text>& paths);
  /// The file that the program was started with, by its extension.
  void OpenStartFile(TextView path);

 private:
  const DocumentState& document_;
  DocumentFiles& texts_;
  PlayerBinding& films_;
  AudioCommands& sounds_;
};

}  // namespace cuewright
