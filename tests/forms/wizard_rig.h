#pragma once

#include "core/product.h"
#include "tests/support/program_fixture.h"

namespace cuewright::testing {

/// A program with a subtitle and a film open, a runner in its folder and an FFmpeg that can do all.
struct WizardRig : ProgramFixture {
  WizardRig() {
    program->folders.AppFolder = folder / "app/";
    std::filesystem::create_directories(folder.Path() / "app/vdrun");
    std::filesystem::create_directories(folder.Path() / "run");
    folder.Write("app/vdrun/vdrun", "runner");
    processes.onStart = [this](FakeProcesses::Run& run) {
      if (run.program != u"ffmpeg") return;
      run.status = 0;
      run.output = run.arguments.back() == u"-filters" ? filters : encoders;
    };
    player.duration = 300.7;
  }

  /// A subtitle of the wizard's format and a film, as if they were open.
  void OpenFiles(const std::string& film = "film.avi", const std::string& subtitle = "text.ssa") {
    program->document.SubtitlePath = folder.Write(subtitle, "[Script Info]\n");
    program->document.VideoPath = folder.Write(film, "film");
    player.SetEnabled(true);
  }

  EmbedWizard& Embed() { return program->embedWizard; }
  AudioWizard& Audio() { return program->audioWizard; }
  /// The lines of a script in the run's folder.
  std::vector<Text> Script(const std::string& name) {
    std::vector<Text> lines = Split(FromUtf8(folder.Read("run/" + name)), u"\r\n");
    if (!lines.empty() && lines.back().empty()) lines.pop_back();
    return lines;
  }
  Text LastTitle() { return boxes.shown.empty() ? Text() : boxes.shown.back().title; }
  Text Says(Message message) { return program->strings[message]; }
  bool Shows(Message message) { return !boxes.shown.empty() && boxes.shown.back().text == Says(message); }
  /// The program that was started last and isn't FFmpeg's own list.
  FakeProcesses::Run* Tool() {
    for (auto run = processes.runs.rbegin(); run != processes.runs.rend(); ++run) {
      if ((*run)->program != u"ffmpeg") return run->get();
    }
    return nullptr;
  }

  std::string filters = " .. subtitles         V->V       Render text subtitles\n";
  std::string encoders = " V....D libxvid              libxvidcore MPEG-4 part 2\n";
};

}  // namespace cuewright::testing
