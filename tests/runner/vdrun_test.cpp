#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "platform/child_processes.h"
#include "tests/runner/films.h"
#include "tests/support/run_process.h"
#include "tests/support/waiting.h"
#include "vdrun/command_line.h"
#include "vdrun/displays.h"

namespace cuewright {
namespace {

using testing::DarkFilm;
using testing::TempFolder;

/// The real program, without a desktop.
struct Vdrun : ::testing::Test {
  Vdrun() {
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY"}) ::unsetenv(name);
    ::setenv("XDG_CONFIG_HOME", folder.Bytes("config").c_str(), 1);
    ::setenv("XDG_RUNTIME_DIR", folder.Path().c_str(), 1);
  }

  test::ProcessResult Run(const std::vector<std::string>& arguments, bool terminal = false) {
    std::vector<std::string> command = {CUEWRIGHT_BIN_DIR "/vdrun/vdrun"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return test::RunProcess(command, {folder.Path().string(), terminal, {}});
  }
  std::string WaveScript() {
    return "VirtualDub.Open(\"" + DarkFilm() + "\",0,0);\r\nVirtualDub.audio.SetMode(1);\r\n" +
           "VirtualDub.audio.SetConversion(8000,0,0);\r\nVirtualDub.SaveWAV(\"out.wav\");\r\n";
  }
  std::string FilmScript(const std::string& film, const std::string& target) {
    return "VirtualDub.Open(\"" + film + "\",0,0);\r\nVirtualDub.video.SetCompression(0x64697678,0,10000,0);\r\n" +
           "VirtualDub.SaveAVI(\"" + target + "\");\r\nVirtualDub.Close();\r\n";
  }

  TempFolder folder;
};

TEST_F(Vdrun, CarriesAScriptOutAndEndsWithZero) {
  folder.Write("a b.vcf", WaveScript());
  const auto result = Run({"/s", "a b.vcf", "/x"});
  EXPECT_EQ(result.status, 0) << result.error;
  EXPECT_EQ(result.error, "");
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(testing::Probe(folder.Bytes("out.wav"), "stream=sample_rate"), "8000\n");
}

TEST_F(Vdrun, RefusesAScriptByItsNameAndLineBeforeAnythingIsDone) {
  folder.Write("bad.vcf", WaveScript() + "VirtualDub.Dance();\r\n");
  const auto result = Run({"/s", "bad.vcf", "/x"});
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(
      result.error.starts_with("vdrun: bad.vcf:5: the command \"VirtualDub.Dance\" isn't known; expected one of "))
      << result.error;
  EXPECT_FALSE(std::filesystem::exists(folder.Bytes("out.wav")));
}

TEST_F(Vdrun, TellsWhatFailedInTheWork) {
  folder.Write("gone.vcf", FilmScript("gone.avi", "out.avi"));
  const auto result = Run({"/s", "gone.vcf", "/x"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.error, "vdrun: gone.vcf:3: there is no film " + folder.Bytes("gone.avi") + "\n");
  EXPECT_EQ(Run({"/s", "no.vcf", "/x"}).error, "vdrun: File not found: no.vcf\n");
  EXPECT_EQ(Run({"/s", "no.vcf"}).status, 1);
}

TEST_F(Vdrun, WithoutFfmpegSaysSo) {
  folder.Write("a.vcf", WaveScript());
  const std::string path = ::getenv("PATH");
  ::setenv("PATH", folder.Path().c_str(), 1);
  const auto result = Run({"/s", "a.vcf", "/x"});
  ::setenv("PATH", path.c_str(), 1);
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.error, "vdrun: a.vcf:4: File not found: ffmpeg\n");
}

TEST_F(Vdrun, AWrongCallIsTold) {
  EXPECT_EQ(Run({}).status, 2);
  EXPECT_EQ(Run({"/q"}).error, "vdrun: \"/q\" isn't known; expected /s SCRIPT /x\nTry 'vdrun --help'.\n");
  EXPECT_EQ(Run({"/s"}).error, "vdrun: expected the path of a script behind /s\nTry 'vdrun --help'.\n");
  EXPECT_EQ(Run({"/s", "a", "/s", "b"}).status, 2);
  EXPECT_EQ(Run({"--version"}).out, "vdrun 1.0.0\n");
  EXPECT_EQ(Run({"--help"}).out, RunHelp());
}

TEST_F(Vdrun, ShowsABarOnATerminal) {
  folder.Write("a.vcf", FilmScript(DarkFilm("libmp3lame", "1280x720"), "out.avi"));
  const auto result = Run({"/s", "a.vcf", "/x"}, true);
  EXPECT_EQ(result.status, 0);
  EXPECT_NE(result.error.find("\r\x1b[K[#"), std::string::npos) << result.error;
  EXPECT_NE(result.error.find(" %"), std::string::npos);
  EXPECT_TRUE(result.error.ends_with("\r\x1b[K")) << "the bar goes at the end";
}

TEST_F(Vdrun, ASignalCancelsAndLeavesNothing) {
  folder.Write("a.vcf", FilmScript(DarkFilm("libmp3lame", "1920x1080"), folder.Bytes("out.avi")));
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    const pid_t child = ::fork();
    if (child == 0) {
      const std::string script = folder.Bytes("a.vcf");
      ::dup2(::open("/dev/null", O_WRONLY), STDERR_FILENO);
      ::execl(CUEWRIGHT_BIN_DIR "/vdrun/vdrun", "vdrun", "/s", script.c_str(), "/x", nullptr);
      ::_exit(127);
    }
    const auto working = [&] {
      for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
        if (entry.path().filename().string().starts_with(".cuewright")) return true;
      }
      return false;
    };
    ASSERT_TRUE(testing::WaitForChange(folder.Path(), working));
    ::kill(child, signal);
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), 3);
    EXPECT_FALSE(std::filesystem::exists(folder.Bytes("out.avi")));
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
      EXPECT_EQ(entry.path().filename(), "a.vcf");
    }
  }
}

/// A program in the place of the run's window.
struct VdrunWindow : ::testing::Test {
  Text Window(const std::string& body) {
    const Text path = folder.Write("window", "#!/bin/sh\n" + body + "\n");
    std::filesystem::permissions(folder.Bytes("window"), std::filesystem::perms::owner_all);
    return path;
  }

  TempFolder folder;
  PosixProcesses processes;
};

TEST_F(VdrunWindow, ThatHangsNeverHoldsTheWork) {
  const auto display = MakeWindowDisplay(processes, Window("exec sleep 100"), [] { return false; });
  for (int i = 0; i < 20000; ++i) {
    display->Show("/films/a film with a long name.avi", {0.5, 42}, 1000 + i * std::int64_t{200});
    ASSERT_FALSE(display->Cancelled());
  }
  display->End("");
}

TEST_F(VdrunWindow, ThatShowsAFailureGoesWithTheRunWhenThatMustEnd) {
  bool mustEnd = false;
  int asked = 0;
  const auto display = MakeWindowDisplay(processes, Window("cat >" + folder.Bytes("told") + "; exec sleep 100"), [&] {
    mustEnd = ++asked > 1 && !folder.Read("told").empty();
    return mustEnd;
  });
  display->End("it failed");
  EXPECT_TRUE(mustEnd);
  EXPECT_EQ(folder.Read("told"), FormatWindowLine({WindowLine::Kind::Failure, "it failed", {}}));
}

TEST_F(VdrunWindow, CancelsAtOnceThoughItTakesLongToGo) {
  const testing::NamedPipe told(folder.Path() / "told");
  const auto display = MakeWindowDisplay(
      processes, Window("echo cancel; echo told >" + folder.Bytes("told") + "; exec sleep 100"), [] { return false; });
  display->Show("/a.avi", {}, 1000);
  ASSERT_EQ(told.ReadLine(), "told\n");
  EXPECT_TRUE(display->Cancelled());
}

TEST_F(Vdrun, TakesTheQualityOfTheUsersSettings) {
  folder.Write("a.vcf", FilmScript(DarkFilm(), "out.avi"));
  std::filesystem::create_directories(folder.Bytes("config/tessaly-cuewright"));
  std::uintmax_t sizes[2] = {};
  const char* stored[2] = {"2", "31"};
  for (int i = 0; i < 2; ++i) {
    folder.Write("config/tessaly-cuewright/settings.ini",
                 "[Brakemoor Works\\Cuewright]\nVDQUANT=" + std::string(stored[i]) + "\n");
    EXPECT_EQ(Run({"/s", "a.vcf"}).status, 0);
    sizes[i] = std::filesystem::file_size(folder.Bytes("out.avi"));
  }
  EXPECT_GT(sizes[0], sizes[1]);
}

TEST(VdrunCommandLine, TakesTheSwitchesInAnyOrder) {
  EXPECT_EQ(ReadRunRequest({"/x", "/s", "a"}).script, "a");
  EXPECT_EQ(ReadRunRequest({"/s", "/x"}).script, "/x");
  EXPECT_EQ(ReadRunRequest({"/s", ""}).kind, RunRequest::Kind::Wrong);
}

}  // namespace
}  // namespace cuewright
