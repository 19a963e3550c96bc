#include "external/user_words.h"

#include <utility>

#include "core/paths.h"
#include "core/runtime_error.h"

namespace cuewright {
namespace {

constexpr std::uint64_t kLongestFile = std::uint64_t{16} << 20;

}  // namespace

UserWords::UserWords(Files& files, Text path) : files_(files), path_(std::move(path)) { Read(); }

void UserWords::Read() {
  if (path_.empty() || !files_.Exists(path_)) return;
  CarryOn step;
  step([&] {
    std::set<Text, std::less<>> words;
    for (const Text& line : Split(ReplaceAll(FromUtf8(files_.Read(path_, kLongestFile)), u"\r", {}), u"\n")) {
      if (!IsBlank(line)) words.emplace(TrimBlanks(line));
    }
    words_ = std::move(words);
  });
}

bool UserWords::Has(TextView word) const {
  if (words_.empty()) return false;
  if (words_.find(word) != words_.end()) return true;
  const Text lower = ToLower(word);
  if (lower == word || words_.find(lower) == words_.end()) return false;
  return ToLower(word.substr(1)) == word.substr(1) || ToUpper(word) == word;
}

void UserWords::Add(TextView word) {
  Read();
  auto words = words_;
  if (words.emplace(word).second) Write(std::move(words));
}

void UserWords::Remove(TextView word) {
  Read();
  auto words = words_;
  if (words.erase(Text(word)) != 0) Write(std::move(words));
}

void UserWords::Write(std::set<Text, std::less<>> words) {
  if (!path_.empty()) {
    files_.MakePrivateFolder(path_.substr(0, path_.rfind(u'/') + 1));
    files_.Replace(path_, [&](ByteSink& sink) {
      for (const Text& word : words) sink.Write(ToUtf8(word) + "\n");
    });
  }
  words_ = std::move(words);
}

}  // namespace cuewright
