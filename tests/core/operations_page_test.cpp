#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace cuewright {
namespace {

namespace fs = std::filesystem;

const fs::path kRoot = CUEWRIGHT_SOURCE_DIR;

std::string ContentOf(const fs::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// What a pattern's first group finds in a text.
std::vector<std::string> Found(const std::string& text, const std::regex& pattern) {
  std::vector<std::string> found;
  for (std::sregex_iterator at(text.begin(), text.end(), pattern), end; at != end; ++at) found.push_back((*at)[1]);
  return found;
}

bool HoldsWord(const std::string& text, const std::string& word) {
  for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) {
    const auto letter = [&](std::size_t place) {
      return place < text.size() && (std::isalnum(static_cast<unsigned char>(text[place])) != 0 || text[place] == '_');
    };
    if (!letter(at - 1) && !letter(at + word.size())) return true;
  }
  return false;
}

struct Row {
  std::vector<std::string> units;  ///< files without their ending
  std::string operations;
};

/// Every source of these folders as its unit.
std::set<std::string> Units(const std::vector<std::string>& folders) {
  std::set<std::string> units;
  for (const std::string& folder : folders) {
    for (const auto& entry : fs::recursive_directory_iterator(kRoot / folder)) {
      const fs::path& path = entry.path();
      if (path.extension() != ".h" && path.extension() != ".cpp") continue;
      units.insert(fs::relative(path, kRoot).replace_extension().string());
    }
  }
  return units;
}

/// The units that a name of the page means: a folder means all that is in it, and "*" any letters.
std::vector<std::string> UnitsOf(const std::string& name) {
  if (name.find('*') == std::string::npos && !name.ends_with('/')) return {name};
  const std::regex pattern(std::regex_replace(name.ends_with('/') ? name + '*' : name, std::regex(R"(\*)"), ".*"));
  std::vector<std::string> units;
  for (const std::string& unit : Units({fs::path(name).parent_path().string()})) {
    if (std::regex_match(unit, pattern)) units.push_back(unit);
  }
  return units;
}

std::vector<Row> ReadPage() {
  const std::regex pattern(R"(^\|[^|]*\| `([^|`]+)` \|([^|]+)\|$)");
  std::istringstream page(ContentOf(kRoot / "docs/operations.md"));
  std::vector<Row> rows;
  std::smatch match;
  for (std::string line; std::getline(page, line);) {
    if (!std::regex_match(line, match, pattern)) continue;
    Row row{{}, match[2]};
    std::string folder;
    std::istringstream files(match[1]);
    // A file without a folder stands in that of the file before it.
    for (std::string name; std::getline(files >> std::ws, name, ',');) {
      const fs::path unit = name.find('/') == std::string::npos ? fs::path(folder) / name : fs::path(name);
      folder = unit.parent_path().string();
      for (const std::string& each : UnitsOf(unit.string())) row.units.push_back(each);
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

std::string CodeOf(const std::string& unit) {
  return ContentOf(kRoot / (unit + ".h")) + ContentOf(kRoot / (unit + ".cpp"));
}

/// What the page says of each unit.
std::map<std::string, std::string> OperationsByUnit() {
  std::map<std::string, std::string> operations;
  for (const Row& row : ReadPage()) {
    for (const std::string& unit : row.units) operations[unit] += row.operations;
  }
  return operations;
}

TEST(OperationsPage, EveryFileThatItNamesIsThere) {
  ASSERT_GT(ReadPage().size(), 100u);
  for (const Row& row : ReadPage()) {
    for (const std::string& unit : row.units) EXPECT_FALSE(CodeOf(unit).empty()) << unit;
  }
}

TEST(OperationsPage, EveryNameOnItStandsInTheFilesOfItsRow) {
  const std::regex inTheCode(R"re(`([\w()]+)`(?! \(`))re");
  for (const Row& row : ReadPage()) {
    std::string code;
    for (const std::string& unit : row.units) code += CodeOf(unit);
    for (const std::string& name : Found(row.operations, inTheCode)) {
      EXPECT_TRUE(HoldsWord(code, name)) << name << " in " << row.units.front();
    }
  }
}

TEST(OperationsPage, EveryFileOfTheBehaviourHasARow) {
  const std::map<std::string, std::string> operations = OperationsByUnit();
  for (const std::string& unit :
       Units({"capture", "formats", "settings", "tools", "audio", "external", "runner", "forms"})) {
    EXPECT_TRUE(operations.contains(unit)) << unit;
  }
}

TEST(OperationsPage, EveryCommandStandsInTheRowOfTheFileThatActsOnIt) {
  const std::map<std::string, std::string> operations = OperationsByUnit();
  const std::regex handled(R"(\b(r?mnu\w+)\.Clicked)");
  int commands = 0;
  for (const std::string& unit : Units({"capture", "audio", "forms"})) {
    for (const std::string& command : Found(CodeOf(unit), handled)) {
      ++commands;
      EXPECT_TRUE(operations.contains(unit) && HoldsWord(operations.at(unit), command)) << command << " in " << unit;
    }
  }
  EXPECT_GT(commands, 20);
}

TEST(OperationsPage, EveryCommandOfTheMenusAndEveryWindowIsOnIt) {
  const std::string page = ContentOf(kRoot / "docs/operations.md");
  for (const std::string& item : Found(CodeOf("capture/main_window"), std::regex(R"(MenuItem (r?mnu\w+)\{)"))) {
    if (item.find("Line") != std::string::npos && item != "mnuLineSeparator") continue;  // lines between the items
    EXPECT_TRUE(HoldsWord(page, item)) << item;
  }
  for (const std::string& unit : Units({"capture", "forms"})) {
    for (const std::string& window : Found(CodeOf(unit), std::regex(R"re(\b(?:Dialog|Form|ToolForm)\("(frm\w+)")re"))) {
      EXPECT_TRUE(HoldsWord(page, window)) << window;
    }
  }
}

}  // namespace
}  // namespace cuewright
