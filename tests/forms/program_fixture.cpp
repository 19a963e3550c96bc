#include "tests/support/program_fixture.h"

// Made and taken down in one place: the program's many parts would be compiled anew with each test file.

namespace cuewright::testing {

ProgramFixture::ProgramFixture() { Restart({}); }

ProgramFixture::~ProgramFixture() = default;

void ProgramFixture::Restart(const Text& commandLine, const Text& missingPlayer) {
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

Text ProgramFixture::SubRip(const std::string& name, int captions) {
  std::string content;
  for (int i = 1; i <= captions; ++i) {
    const std::string second = (i % 60 < 10 ? "0" : "") + std::to_string(i % 60);
    const std::string minute = (i / 60 % 60 < 10 ? "0" : "") + std::to_string(i / 60 % 60);
    const std::string at = "00:" + minute + ":" + second;
    content += std::to_string(i) + "\r\n" + at + ",100 --> " + at + ",900\r\nline " + std::to_string(i) + "\r\n\r\n";
  }
  return folder.Write(name, content);
}

void ProgramFixture::Play(const Text& film) {
  program->playerBinding.LoadVideoFile(film);
  player.Become(kPlayerPlaying);
}

std::string ProgramFixture::LastBox() const { return boxes.shown.empty() ? "" : ToUtf8(boxes.shown.back().text); }

}  // namespace cuewright::testing
