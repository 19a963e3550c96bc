#include "tools/cleaning_data.h"

#include <unicode/regex.h>

#include <algorithm>

#include "core/runtime_error.h"
#include "text/icu_text.h"

namespace cuewright {
namespace {

constexpr std::uint64_t kLargestFile = 1 << 20;
constexpr TextView kEnding = u".txt";
constexpr TextView kCommon = u"common";

struct KindName {
  TextView name;
  CleaningKind kind;
};
constexpr KindName kRuleNames[] = {{u"blanks", CleaningKind::Blanks},
                                   {u"dashes", CleaningKind::Dashes},
                                   {u"descriptions", CleaningKind::Descriptions},
                                   {u"capitals", CleaningKind::Capitals},
                                   {u"letters", CleaningKind::Letters}};

/// Makes a rule of its columns; what is wrong with them, or nothing.
std::string AddRule(const std::vector<Text>& columns, CleaningData& data) {
  const auto* const kind = std::ranges::find(kRuleNames, columns.front(), &KindName::name);
  if (kind == std::end(kRuleNames)) return "there is no '" + ToUtf8(columns.front()) + "'";
  if (columns.size() < 2 || columns.size() > 4) return "a pattern, a replacement and characters were expected";
  UErrorCode status = U_ZERO_ERROR;
  const icu::RegexMatcher matcher(Aliased(columns[1]), UREGEX_MULTILINE, status);
  if (U_FAILURE(status)) return "the pattern can't be understood";
  data.rules.push_back(
      {kind->kind, columns[1], columns.size() > 2 ? columns[2] : Text(), columns.size() > 3 ? columns[3] : Text()});
  return {};
}

/// Takes the columns of a line; what is wrong with them, or nothing.
std::string AddLine(const std::vector<Text>& columns, CleaningData& data) {
  const bool pair = columns.size() == 3;
  if (columns.front() == u"quotes") {
    if (!pair) return "two quotation marks were expected";
    data.openingQuote = columns[1];
    data.closingQuote = columns[2];
  } else if (columns.front() == u"word") {
    if (!pair) return "two words were expected";
    data.words.insert_or_assign(columns[1], columns[2]);
  } else if (columns.front() == u"capital") {
    for (std::size_t i = 1; i < columns.size(); ++i) {
      for (const Text& word : Split(columns[i], u" ")) {
        if (!word.empty()) data.capitals.insert_or_assign(ToLower(word), word);
      }
    }
  } else {
    return AddRule(columns, data);
  }
  return {};
}

}  // namespace

bool AddCleaningData(TextView text, CleaningData& data, std::string& problem) {
  for (int number = 1; !text.empty(); ++number) {
    const std::size_t end = text.find(u'\n');
    TextView line = text.substr(0, end);
    text.remove_prefix(end == TextView::npos ? text.size() : end + 1);
    if (line.ends_with(u'\r')) line.remove_suffix(1);
    if (line.empty() || line.front() == u';') continue;
    const std::string wrong = AddLine(Split(line, u"\t"), data);
    if (wrong.empty()) continue;
    problem = "line " + std::to_string(number) + ": " + wrong;
    return false;
  }
  return true;
}

std::vector<Text> CleaningShelf::Languages() const {
  std::vector<Text> languages;
  for (const Text& name : files_.Names(folder_ + u"cleaning")) {
    if (!name.ends_with(kEnding)) continue;
    Text language = name.substr(0, name.size() - kEnding.size());
    if (language != kCommon) languages.push_back(std::move(language));
  }
  std::ranges::sort(languages);
  return languages;
}

bool CleaningShelf::ReadFile(TextView name, CleaningData& data, std::string& problem) const {
  const Text path = folder_ + u"cleaning/" + Text(name) + Text(kEnding);
  CarryOn errors;
  bool read = false;
  errors([&] { read = AddCleaningData(FromUtf8(files_.Read(path, kLargestFile)), data, problem); });
  if (errors.Last()) problem = ToUtf8(errors.Last()->description);
  if (!read) problem = ToUtf8(path) + ": " + problem;
  return read;
}

std::optional<CleaningData> CleaningShelf::Read(TextView language, std::string& problem) const {
  CleaningData data;
  if (!ReadFile(kCommon, data, problem)) return {};
  const std::vector<Text> languages = Languages();
  const bool own = std::ranges::find(languages, language) != languages.end();
  if (own && !ReadFile(language, data, problem)) return {};
  return data;
}

}  // namespace cuewright
