#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

#include "forms/program.h"
#include "platform/posix_files.h"
#include "platform/sound_store.h"
#include "tests/support/fakes.h"
#include "tests/support/printers.h"
#include "tests/support/spelling.h"
#include "tests/support/temp_folder.h"

namespace cuewright::testing {

/// The whole program without its windows: real files and formats, a player and boxes of the test's own.
struct ProgramFixture : ::testing::Test {
  ProgramFixture();
  ~ProgramFixture() override;

  /// Starts the program anew with a command line, on the same settings.
  void Restart(const Text& commandLine, const Text& missingPlayer = {});

  /// A SubRip file of so many captions, one a second.
  Text SubRip(const std::string& name, int captions);

  CaptionList& List() { return program->list; }
  MainWindow& Window() { return program->window; }
  void Play(const Text& film);
  std::string LastBox() const;

  TempFolder folder;
  PosixFiles files;
  FakeMessages boxes;
  FakeFileDialogs dialogs;
  FakeEventQueue events;
  FakeDesktop desktop;
  FakePlayer player;
  JournalStore* journal = nullptr;  ///< taken by the next start
  FakePickers pickers;
  FakeProcesses processes;
  FakeSystemInfo system;
  FakeWeb web;
  FakeDictionaries dictionaries;
  FolderSoundStore sounds{folder / "cache", 100000};
  std::unique_ptr<Program> program;
  const Locale* userLocale = nullptr;  ///< of the next `Restart`; null: a system that knows no locales
  bool started = false;
};

}  // namespace cuewright::testing
