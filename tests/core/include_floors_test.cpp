#include <gtest/gtest.h>

#include <compare>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <string>
#include <vector>

namespace cuewright {
namespace {

namespace fs = std::filesystem;

/// The folders and their floors: a file includes its own folder or a lower floor.
const std::map<std::string, int> kFloors = {
    {"text", 0},   {"core", 1},   {"form", 5},      {"capture", 8},   {"formats", 10}, {"settings", 10}, {"sound", 10},
    {"voice", 20}, {"tools", 20}, {"check", 25},    {"external", 20}, {"runner", 20},  {"audio", 20},    {"shots", 20},
    {"forms", 30}, {"ui", 40},    {"platform", 40}, {"app", 50},      {"batch", 50},   {"vdrun", 50}};

struct Include {
  std::string file;
  std::string folder;
  std::string target;
};

std::vector<Include> AllIncludes() {
  const std::regex pattern("^\\s*#\\s*include\\s*[<\"]([^>\"]+)[>\"]");
  std::vector<Include> all;
  for (const auto& [folder, floor] : kFloors) {
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(CUEWRIGHT_SOURCE_DIR) / folder)) {
      if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
      std::ifstream file(entry.path());
      std::string line;
      std::smatch match;
      while (std::getline(file, line)) {
        if (std::regex_search(line, match, pattern)) {
          all.push_back({fs::relative(entry.path(), CUEWRIGHT_SOURCE_DIR).string(), folder, match[1]});
        }
      }
    }
  }
  return all;
}

TEST(IncludeFloors, AFileIncludesItsOwnFolderOrALowerFloor) {
  const auto includes = AllIncludes();
  EXPECT_GT(includes.size(), 300u);
  for (const Include& include : includes) {
    const std::string target = include.target.substr(0, include.target.find('/'));
    const auto at = kFloors.find(target);
    if (at == kFloors.end() || target == include.folder) continue;
    EXPECT_LT(at->second, kFloors.at(include.folder)) << include.file << " includes " << include.target;
  }
}

TEST(IncludeFloors, TheToolkitStaysInTheWindowsAndTheProgram) {
  for (const Include& include : AllIncludes()) {
    if (include.folder == "ui" || include.folder == "app") continue;
    EXPECT_FALSE(std::regex_match(include.target, std::regex("(Qt?[A-Z].*)|(Qt.*/.*)")))
        << include.file << " includes " << include.target;
  }
}

TEST(IncludeFloors, EveryFolderOfSourcesHasAFloor) {
  for (const auto& entry : fs::directory_iterator(CUEWRIGHT_SOURCE_DIR)) {
    const std::string name = entry.path().filename().string();
    if (!entry.is_directory() || name.starts_with('.') || kFloors.contains(name)) continue;
    if (name == "build" || name == "tests" || name == "bench" || name == "fuzz") continue;
    for (const auto& file : fs::recursive_directory_iterator(entry.path())) {
      EXPECT_NE(file.path().extension(), ".cpp") << file.path();
    }
  }
}

std::string ContentOf(const char* path) {
  std::ifstream file(fs::path(CUEWRIGHT_SOURCE_DIR) / path);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// Holds that of two folders one is higher exactly where it is so in the floors of the includes.
void ExpectTheSameOrder(const std::map<std::string, int>& heights) {
  for (const auto& [folder, floor] : kFloors) {
    ASSERT_TRUE(heights.contains(folder)) << folder;
    for (const auto& [other, otherFloor] : kFloors) {
      ASSERT_TRUE(heights.contains(other)) << other;
      EXPECT_EQ(heights.at(folder) <=> heights.at(other), floor <=> otherFloor) << folder << " and " << other;
    }
  }
  EXPECT_EQ(heights.size(), kFloors.size());
}

/// The folders in a text by the number that the pattern finds in front of each.
std::map<std::string, int> HeightsIn(const std::string& text, const char* pattern, int sign) {
  const std::regex row(pattern);
  std::map<std::string, int> heights;
  for (std::sregex_iterator at(text.begin(), text.end(), row), end; at != end; ++at) {
    heights[(*at)[2]] = sign * std::stoi((*at)[1]);
  }
  return heights;
}

TEST(IncludeFloors, TheTableOfTheArchitectureIsTrue) {
  ExpectTheSameOrder(HeightsIn(ContentOf("docs/architecture.md"), R"(\| (\d+) \| `(\w+)/` \|)", 1));
}

TEST(IncludeFloors, ThePictureOfTheArchitectureIsTrue) {
  // What stands higher in a picture has the smaller y.
  ExpectTheSameOrder(HeightsIn(ContentOf("docs/pictures/architecture.svg"),
                               R"re(class="folder" x="\d+" y="(\d+)"[^>]*>(\w+)/<)re", -1));
}

}  // namespace
}  // namespace cuewright
