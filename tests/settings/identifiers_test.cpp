#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "settings/messages.h"

namespace cuewright {
namespace {

namespace fs = std::filesystem;

const fs::path kSources = CUEWRIGHT_SOURCE_DIR;

std::string ContentOf(const fs::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// The rows of resources/messages/identifiers.txt: the identifiers by their number.
std::multimap<int, std::string> Identifiers() {
  std::multimap<int, std::string> all;
  std::ifstream file(kSources / "resources/messages/identifiers.txt");
  int number = 0;
  std::string name;
  while (file >> number >> name) all.emplace(number, name);
  return all;
}

/// The places in a source where a number stands for a message. The type lets most of them not compile.
std::vector<std::string> BareNumbers(const std::string& source) {
  static const std::regex kBare(
      R"([sS]trings(_|\(\))?\[\d|\b(Tell|Counted|CatalogueString|NumberedMessage)\(\d|\bMessage[{(]\d|<Message>\()");
  std::vector<std::string> found;
  for (std::sregex_iterator at(source.begin(), source.end(), kBare), end; at != end; ++at) found.push_back(at->str());
  return found;
}

TEST(MessageIdentifiers, EachEnglishTextHasOneOfItsOwn) {
  const auto identifiers = Identifiers();
  const MessageCatalogue catalogue;
  std::set<std::string> names;
  for (const auto& [number, name] : identifiers) {
    EXPECT_EQ(identifiers.count(number), 1u) << number;
    EXPECT_TRUE(names.insert(name).second) << name << " stands twice";
    EXPECT_TRUE(std::regex_match(name, std::regex("[A-Z][A-Za-z0-9]*"))) << name;
    const Text* text =
        IsTextNumber(static_cast<std::size_t>(number)) ? catalogue.Find(CatalogueNumber(0, number)) : nullptr;
    EXPECT_TRUE(text != nullptr && !text->empty()) << name << " has no text";
  }
  for (int number = 0; number < static_cast<int>(kEndOfTexts); ++number) {
    if (!IsTextNumber(static_cast<std::size_t>(number))) continue;
    const Text* text = catalogue.Find(CatalogueNumber(0, number));
    EXPECT_EQ(identifiers.contains(number), text != nullptr && !text->empty()) << number;
  }
  EXPECT_EQ(static_cast<int>(Message::MenuFile), 0);
  EXPECT_EQ(static_cast<int>(Message::SaveChangesFirst), 161);
}

TEST(MessageIdentifiers, NoSourceUsesABareNumber) {
  EXPECT_EQ(BareNumbers("strings_[161] s.Strings()[7] Tell(951, x) NumberedMessage(5) Message{39} Message(4)").size(),
            6u);
  EXPECT_EQ(BareNumbers("static_cast<Message>(id) strings.Counted(982, y)").size(), 2u);
  EXPECT_TRUE(BareNumbers("strings_[kOverPage[0]] strings[Message::Undo] NumberedMessage(id)").empty());
  std::size_t files = 0;
  for (const char* folder : {"app", "audio", "batch", "bench", "core", "external", "formats", "forms", "fuzz",
                             "platform", "runner", "settings", "tests", "tools", "ui", "vdrun"}) {
    for (const auto& entry : fs::recursive_directory_iterator(kSources / folder)) {
      const fs::path& path = entry.path();
      // The one that gives a message for a number, and the tests of the numbers themselves.
      if (path == kSources / "core/lang_strings.h" || path.parent_path() == kSources / "tests/settings") continue;
      if (path.extension() != ".h" && path.extension() != ".cpp") continue;
      ++files;
      for (const std::string& use : BareNumbers(ContentOf(path))) ADD_FAILURE() << path << ": " << use;
    }
  }
  EXPECT_GT(files, 300u);
}

}  // namespace
}  // namespace cuewright
