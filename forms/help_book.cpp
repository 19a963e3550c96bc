#include "forms/help_book.h"

#include <unicode/uchar.h>
#include <unicode/unorm2.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <array>
#include <utility>

#include "core/counting.h"
#include "core/runtime_error.h"

namespace cuewright {
namespace {

constexpr std::uint64_t kLargestPage = 1 << 20;

Text ReadPage(const Files& files, const Text& path) {
  try {
    return FromUtf8(files.Read(path, kLargestPage));
  } catch (const RuntimeError&) {
    return {};
  }
}

Text Between(TextView text, TextView from, TextView to) {
  const std::size_t begin = text.find(from);
  if (begin == TextView::npos) return {};
  const std::size_t end = text.find(to, begin + from.size());
  if (end == TextView::npos) return {};
  return Text(text.substr(begin + from.size(), end - begin - from.size()));
}

/// The text of a page as it is read, marks and all line ends as blanks.
Text WithoutMarks(TextView page) {
  Text text;
  bool inMark = false;
  for (const char16_t c : page) {
    if (c == u'<') inMark = true;
    if (!inMark) text += c < u' ' ? u' ' : c;
    if (c == u'>') {
      inMark = false;
      text += u' ';
    }
  }
  constexpr std::array<std::pair<TextView, TextView>, 5> names{
      {{u"&lt;", u"<"}, {u"&gt;", u">"}, {u"&quot;", u"\""}, {u"&nbsp;", u" "}, {u"&amp;", u"&"}}};
  for (const auto& [name, character] : names) text = ReplaceAll(text, name, character);
  return text;
}

std::vector<Text> WordsOf(TextView text) {
  std::vector<Text> words = Split(SearchKey(text), u" ");
  std::erase_if(words, [](const Text& word) { return word.empty(); });
  return words;
}

bool HoldsAll(TextView text, const std::vector<Text>& words) {
  return std::all_of(words.begin(), words.end(), [&](const Text& word) { return text.find(word) != TextView::npos; });
}

}  // namespace

Text SearchKey(TextView text) {
  UErrorCode error = U_ZERO_ERROR;
  const UNormalizer2* normalizer = unorm2_getNFKDInstance(&error);
  Text apart(text.size() * 4 + 32, u'\0');
  const int length = unorm2_normalize(normalizer, text.data(), CountOf(text), apart.data(), CountOf(apart), &error);
  if (U_FAILURE(error) != 0) return ToLower(text);
  apart.resize(length);
  Text plain;
  for (std::int32_t at = 0; at < length;) {
    UChar32 c = 0;
    const std::int32_t from = at;
    U16_NEXT(apart.data(), at, length, c);
    if (u_charType(c) == U_NON_SPACING_MARK) continue;
    plain.append(apart, from, at - from);
  }
  return ToLower(plain);
}

bool HelpBook::Load(const Files& files, const Text& folder) {
  topics_.clear();
  const Text contents = ReplaceAll(ReadPage(files, folder + u"contents.txt"), u"\r", {});
  for (const Text& line : Split(contents, u"\n")) {
    const std::size_t depth = line.find_first_not_of(u'\t');
    if (depth == Text::npos) continue;
    HelpTopic topic{line.substr(depth), {}, depth, {}};
    const Text page = ReadPage(files, folder + topic.file);
    topic.title = WithoutMarks(Between(page, u"<title>", u"</title>"));
    if (topic.title.empty()) continue;
    topic.words = SearchKey(WithoutMarks(page));
    topics_.push_back(std::move(topic));
  }
  return !topics_.empty();
}

std::vector<std::size_t> HelpBook::Find(TextView text) const {
  const std::vector<Text> words = WordsOf(text);
  std::vector<std::size_t> found;
  for (std::size_t i = 0; i < topics_.size(); ++i) {
    if (HoldsAll(topics_[i].words, words)) found.push_back(i);
  }
  if (!words.empty()) {
    std::stable_partition(found.begin(), found.end(),
                          [&](std::size_t i) { return HoldsAll(SearchKey(topics_[i].title), words); });
  }
  return found;
}

std::optional<std::size_t> HelpBook::PlaceOf(TextView file) const {
  const auto at = std::find_if(topics_.begin(), topics_.end(), [&](const HelpTopic& t) { return t.file == file; });
  if (at == topics_.end()) return std::nullopt;
  return at - topics_.begin();
}

}  // namespace cuewright
