// Follows the examples of CONTRIBUTING.md.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>

#include "tests/batch/batch_rig.h"

namespace cuewright::test {
namespace {

namespace fs = std::filesystem;

const fs::path kRoot = CUEWRIGHT_SOURCE_DIR;

std::string ContentOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> Found(const std::string& text, const std::string& pattern) {
  const std::regex expression(pattern);
  std::vector<std::string> found;
  for (std::sregex_iterator at(text.begin(), text.end(), expression), end; at != end; ++at) found.push_back((*at)[1]);
  return found;
}

/// The part of the page below a heading.
std::string Part(const std::string& heading) {
  const std::string page = ContentOf(kRoot / "CONTRIBUTING.md");
  const std::size_t begin = page.find("## " + heading + "\n");
  if (begin == std::string::npos) return {};
  return page.substr(begin, page.find("\n## ", begin) - begin);
}

/// What stands in the blocks of a language.
std::vector<std::string> Blocks(const std::string& part, const std::string& language) {
  return Found(part, "```" + language + "\n([\\s\\S]*?)```");
}

std::string WithCrLf(const std::string& text) { return std::regex_replace(text, std::regex("\r?\n"), "\r\n"); }

struct Contributing : BatchTest {};

TEST_F(Contributing, AllThatThePageNamesIsThere) {
  const std::string page = ContentOf(kRoot / "CONTRIBUTING.md");
  const std::vector<std::string> links = Found(page, R"(\]\(([^)]+)\))");
  EXPECT_GT(links.size(), 4u);
  for (const std::string& link : links) EXPECT_TRUE(fs::exists(kRoot / link)) << link;
  for (const std::string& path :
       Found(page, "`((?:\\./)?(?:[a-z0-9_]+/)*[a-z0-9_]+(?:/|\\.(?:cpp|h|sh|py|txt|dat|ini)))`")) {
    EXPECT_TRUE(fs::exists(kRoot / path)) << path;
  }
}

TEST_F(Contributing, ItsCommandsAreThere) {
  const std::string presets = ContentOf(kRoot / "CMakePresets.json");
  int commands = 0;
  for (const std::string& block : Blocks(ContentOf(kRoot / "CONTRIBUTING.md"), "sh")) {
    std::istringstream lines(block);
    for (std::string line; std::getline(lines, line); ++commands) {
      for (const std::string& preset : Found(line, "--preset (\\w+)")) {
        EXPECT_NE(presets.find("\"name\": \"" + preset + "\""), std::string::npos) << line;
      }
      const bool script = line.starts_with("scripts/");
      EXPECT_TRUE(!script || fs::exists(kRoot / line.substr(0, line.find(' ')))) << line;
    }
  }
  EXPECT_EQ(commands, 6);
  const std::string part = Part("Build and test");
  const std::vector<std::string> others = Found(part.substr(part.find("Other presets")), "`([a-z-]+)`");
  EXPECT_EQ(others.size(), 5u);
  for (const std::string& preset : others) {
    EXPECT_NE(presets.find("\"name\": \"" + preset + "\""), std::string::npos) << preset;
  }
}

TEST_F(Contributing, TheExampleOfATextBecomesAMessage) {
  const std::string part = Part("Add a text");
  const std::vector<std::string> files = Found(part, "\n`(resources/messages/[a-z]+\\.txt)`\n");
  const std::vector<std::string> rows = Blocks(part, "text");
  ASSERT_EQ(files.size(), 3u);
  ASSERT_EQ(rows.size(), 3u);
  fs::create_directories(PathOf("resources/messages"));
  fs::create_directories(PathOf("cmake"));
  fs::copy(kRoot / "cmake/messages.cmake", PathOf("cmake"));
  std::string next;
  for (std::size_t i = 0; i < files.size(); ++i) {
    const std::string before = ContentOf(kRoot / files[i]);
    const std::vector<std::string> numbers = Found(before, "(?:^|\n)(\\d+)\t");
    ASSERT_FALSE(numbers.empty()) << files[i];
    // The three files end at the same number.
    const std::string following = std::to_string(std::stoi(numbers.back()) + 1);
    EXPECT_EQ(following, i == 0 ? following : next) << files[i];
    next = following;
    ASSERT_TRUE(before.ends_with('\n')) << files[i];
    Write(files[i], before + std::regex_replace(rows[i], std::regex("NEXT"), next));
  }
  EXPECT_EQ(Found(rows[0], "(%\\d)"), Found(rows[1], "(%\\d)"));
  Write("CMakeLists.txt",
        "cmake_minimum_required(VERSION 3.25)\nproject(messages NONE)\ninclude(cmake/messages.cmake)\n");
  const ProcessResult made = RunProcess({"/usr/bin/env", "cmake", "-S", PathOf("."), "-B", PathOf("build")});
  ASSERT_EQ(made.status, 0) << made.error;
  const std::string name = Found(rows[2], "\t(\\w+)")[0];
  EXPECT_NE(Read("build/generated/core/message.h").find("  " + name + " = " + next + ",\n"), std::string::npos);
  EXPECT_NE(part.find("Message::" + name), std::string::npos);
}

TEST_F(Contributing, TheExampleOfAFormatIsRecognisedReadAndWritten) {
  const std::string part = Part("Add a format");
  const std::vector<std::string> texts = Blocks(part, "text");
  const std::vector<std::string> sections = Blocks(part, "ini");
  ASSERT_EQ(texts.size(), 2u);
  ASSERT_EQ(sections.size(), 1u);
  const std::string id = Found(texts[0], "---(\\w+) FORMAT---")[0];
  std::string layouts = ContentOf(kRoot / "resources/formats.dat");
  const std::size_t end = layouts.find("</FORMATSLIST>");
  ASSERT_NE(end, std::string::npos);
  layouts.insert(end, id + "\r\n");
  Write("formats.dat", layouts + "\r\n" + WithCrLf(texts[0]));
  Write("formats.ini", ContentOf(kRoot / "resources/formats.ini") + "\r\n" + WithCrLf(sections[0]));
  Write("its.angled", WithCrLf(texts[1]));
  Write("some.srt", kSubRip);

  EXPECT_NE(Batch({"formats", "--catalogue", "."}).out.find(id), std::string::npos);
  EXPECT_NE(Batch({"detect", "its.angled", "--catalogue", "."}).out.find(id), std::string::npos);
  const std::string dumped = Batch({"dump", "its.angled", "--catalogue", "."}).out;
  EXPECT_EQ(dumped,
            "1\t12400\t15200\tGood evening, Inspector.\n"
            "2\t16000\t19800\tNobody leaves this house|until the storm has passed.\n");
  ASSERT_EQ(Batch({"convert", "some.srt", "--to", id, "--out", "written.angled", "--catalogue", "."}).status, 0);
  EXPECT_EQ(Batch({"dump", "written.angled", "--catalogue", "."}).out, dumped);
}

TEST_F(Contributing, TheLinesOfTheOptionAreThoseOfTheCode) {
  const std::string part = Part("Add an option");
  const std::vector<std::string> files = Found(part, "`((?:core|settings|forms|ui)/[a-z_]+\\.(?:h|cpp))`");
  const std::vector<std::string> lines = Blocks(part, "cpp");
  ASSERT_EQ(files.size(), 5u);
  ASSERT_EQ(lines.size(), files.size());
  for (std::size_t i = 0; i < files.size(); ++i) {
    const std::string line = lines[i].substr(0, lines[i].find('\n'));
    EXPECT_NE(ContentOf(kRoot / files[i]).find(line), std::string::npos) << files[i] << ": " << line;
  }
  // There is no file beside them that names it.
  for (const std::string folder : {"core", "settings", "forms", "ui", "capture", "tools"}) {
    for (const auto& entry : fs::recursive_directory_iterator(kRoot / folder)) {
      if (!entry.is_regular_file()) continue;
      const std::string name = fs::relative(entry.path(), kRoot).string();
      const bool told = std::find(files.begin(), files.end(), name) != files.end();
      EXPECT_TRUE(told || ContentOf(entry.path()).find("chkRulesOnLoad") == std::string::npos) << name;
    }
  }
}

TEST_F(Contributing, TheExampleOfADialogIsTheTestedOne) {
  const std::string tested = ContentOf(kRoot / "tests/ui/example_dialog_test.cpp");
  const std::vector<std::string> blocks = Blocks(Part("Add a dialog"), "cpp");
  EXPECT_EQ(blocks.size(), 4u);
  for (const std::string& block : blocks) EXPECT_NE(tested.find(block), std::string::npos) << block;
}

}  // namespace
}  // namespace cuewright::test
