#pragma once

#include "core/ports/desktop.h"
#include "core/ports/event_queue.h"
#include "core/ports/file_dialogs.h"
#include "core/ports/files.h"
#include "core/ports/journal_store.h"
#include "core/ports/messages.h"
#include "core/ports/pickers.h"
#include "core/ports/player.h"

namespace cuewright {

/// What the program is given of the outside. Used where it is put together; each part gets only what it needs.
struct Ports {
  Files& files;
  Messages& messages;
  FileDialogs& fileDialogs;
  EventQueue& events;
  Desktop& desktop;
  Player& player;
  Pickers& pickers;
  JournalStore* journal = nullptr;  ///< null: no journal is kept
};

}  // namespace cuewright
