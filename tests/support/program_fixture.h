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
  ProgramFixture() { Restart({}); }

  /// Starts the program anew with a command line, on the same settings.
  void Restart(const Text& commandLine, const Text& missingPlayer = {}) {
    program.reset();
    StartEnvironment environment;
    environment.commandLine = commandLine;
    environment.appFolder = FromUtf8(CUEWRIGHT_SOURCE_DIR "/resources");
    environment.settingsFile = folder / "settings.ini";
    environment.registryFile = folder / "registry";
    environment.system = &system;
    environment.web = &web;
    environment.dictionaries = &dictionaries;
    environment.wordsFolder = folder / "words/";
    environment.makeTempFolder = [this] { return folder / "run/"; };
    environment.missingPlayer = missingPlayer;
    environment.processes = &processes;
    environment.sounds = &sounds;
    environment.locale = userLocale;
    program =
        std::make_unique<Program>(Ports{files, boxes, dialogs, events, desktop, player, pickers, journal}, environment);
    started = program->Start();
    program->options.nearMs = 199;  // the captions of `SubRip` are 200 ms apart, and stay so on load
    program->LoadMainWindow(1280, 800);
    program->grid.NoteMetrics(200, 20);
  }

  /// A SubRip file of so many captions, one a second.
  Text SubRip(const std::string& name, int captions) {
    std::string content;
    for (int i = 1; i <= captions; ++i) {
      const std::string second = (i % 60 < 10 ? "0" : "") + std::to_string(i % 60);
      const std::string minute = (i / 60 % 60 < 10 ? "0" : "") + std::to_string(i / 60 % 60);
      const std::string at = "00:" + minute + ":" + second;
      content += std::to_string(i) + "\r\n" + at + ",100 --> " + at + ",900\r\nline " + std::to_string(i) + "\r\n\r\n";
    }
    return folder.Write(name, content);
  }

  CaptionList& List() { return program->list; }
  MainWindow& Window() { return program->window; }
  void Play(const Text& film) {
    program->playerBinding.LoadVideoFile(film);
    player.Become(kPlayerPlaying);
  }
  std::string LastBox() const { return boxes.shown.empty() ? "" : ToUtf8(boxes.shown.back().text); }

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
