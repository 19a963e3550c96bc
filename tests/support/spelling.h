#pragma once

#include <map>
#include <set>
#include <utility>
#include <vector>

#include "core/ports/spelling.h"

namespace cuewright::testing {

/// A dictionary of the test's own words.
class FakeDictionary final : public SpellDictionary {
 public:
  explicit FakeDictionary(std::set<Text> known) : words(std::move(known)) {}
  bool Knows(TextView word) override {
    asked.emplace_back(word);
    return words.count(Text(word)) != 0;
  }
  std::vector<Text> Suggest(TextView word) override { return suggestions[Text(word)]; }

  std::set<Text> words;
  std::map<Text, std::vector<Text>> suggestions;
  std::vector<Text> asked;
};

/// Dictionaries of the test's own; one whose words are {"broken"} can't be opened.
class FakeDictionaries final : public SpellDictionaries {
 public:
  std::vector<Text> Installed() const override {
    std::vector<Text> names;
    for (const auto& [name, words] : dictionaries) names.push_back(name);
    return names;
  }
  std::unique_ptr<SpellDictionary> Open(TextView name) const override {
    opened.emplace_back(name);
    const std::set<Text>& words = dictionaries.at(Text(name));
    if (words == std::set<Text>{u"broken"}) throw RuntimeError{kErrorPathFileAccess, u"It can't be read."};
    auto dictionary = std::make_unique<FakeDictionary>(words);
    dictionary->suggestions = suggestions;
    return dictionary;
  }
  Text Missing() const override { return u"No dictionary is there."; }

  std::map<Text, std::set<Text>> dictionaries;
  std::map<Text, std::vector<Text>> suggestions;
  mutable std::vector<Text> opened;
};

}  // namespace cuewright::testing
