#include "core/manner.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>

namespace cuewright {
namespace {

namespace fs = std::filesystem;

std::string ContentOf(const fs::path& path) {
  std::ifstream file(path);
  std::stringstream content;
  content << file.rdbuf();
  return content.str();
}

TEST(Manner, IsTodaysUnlessTheClassicOneIsAskedFor) {
  Manner manner;
  EXPECT_FALSE(manner.Classic());
  EXPECT_TRUE(manner.AsksWhenCaptionsDiffer());
  manner.SetClassic(true);
  EXPECT_TRUE(manner.Classic());
  EXPECT_FALSE(manner.AsksWhenCaptionsDiffer());
}

// A departure is a named query. What loads, stores, shows and takes the setting is all that may know of it as such.
TEST(Manner, NothingElseAsksForTheSetting) {
  const std::set<std::string> allowed = {"core/manner.h", "settings/option_table.cpp"};
  std::size_t files = 0;
  for (const char* folder : {"app", "audio", "batch", "core", "external", "formats", "forms", "platform", "runner",
                             "settings", "tools", "ui", "vdrun"}) {
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(CUEWRIGHT_SOURCE_DIR) / folder)) {
      if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
      ++files;
      const std::string name = fs::relative(entry.path(), CUEWRIGHT_SOURCE_DIR).string();
      if (allowed.contains(name)) continue;
      const std::string content = ContentOf(entry.path());
      EXPECT_EQ(content.find(".Classic()"), std::string::npos) << name;
      EXPECT_EQ(content.find("u\"Classic\""), std::string::npos) << name;
    }
  }
  EXPECT_GT(files, 300u);
}

std::size_t Count(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) ++count;
  return count;
}

// Every departure is told to the user, in the documents and in the help of both languages.
TEST(Manner, EveryDepartureIsTold) {
  const fs::path root(CUEWRIGHT_SOURCE_DIR);
  const std::size_t departures = Count(ContentOf(root / "core/manner.h"), "{ return !classic_; }");
  EXPECT_GT(departures, 10u);
  // One departure of `KeepsTheSource` is told in two rows, and the table has a heading.
  EXPECT_EQ(Count(ContentOf(root / "docs/manners.md"), "\n| ") - 1, departures + 1);
  for (const char* page : {"resources/help/english/manners.html", "resources/help/spanish/manners.html"}) {
    EXPECT_EQ(Count(ContentOf(root / page), "<tr><td>"), departures + 1) << page;
  }
}

}  // namespace
}  // namespace cuewright
