// A spelling check of a whole list without its window: the text made, every word looked up, the text cut up again, with
// the installed English dictionary; against one plain copy of all captions, and against looking up every word anew.

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <memory>
#include <vector>

#include "external/spell_session.h"
#include "external/spell_text.h"
#include "platform/hunspell_dictionaries.h"
#include "platform/posix_files.h"

namespace cuewright {
namespace {

constexpr int kBlock = 500;
constexpr int kRuns = 5;

constexpr std::array<const char16_t*, 40> kWords = {
    u"the",     u"quick",   u"brown",    u"fox",     u"jumps",    u"over",    u"lazy",   u"dogs",
    u"while",   u"seven",   u"friends",  u"watch",   u"from",     u"behind",  u"their",  u"wooden",
    u"fence",   u"and",     u"wonder",   u"about",   u"tomorrow", u"coffee",  u"window", u"picture",
    u"river",   u"I'm",     u"question", u"answer",  u"don't",    u"nothing", u"else",   u"seen",
    u"tonight", u"morning", u"subtitle", u"matters", u"mountain", u"timing",  u"Paris",  u"because"};

std::vector<Text> Captions(int count) {
  std::vector<Text> captions;
  unsigned random = 7;
  const auto line = [&random] {
    Text text;
    for (int word = 0; word < 5; ++word) {
      random = random * 1664525 + 1013904223;
      text += Text(word == 0 ? u"" : u" ") + kWords[(random >> 16) % kWords.size()];
    }
    return text;
  };
  for (int i = 0; i < count; ++i) captions.push_back(line() + u"\r\n<i>" + line());
  return captions;
}

/// Goes through all blocks; how many captions came back changed.
std::size_t CheckAll(const std::vector<Text>& captions, SpellLookup& lookup) {
  SpellDecisions decisions;
  std::size_t changed = 0;
  for (std::size_t first = 0; first < captions.size(); first += kBlock) {
    const auto begin = captions.begin() + static_cast<std::ptrdiff_t>(first);
    const std::vector<Text> block(
        begin, begin + static_cast<std::ptrdiff_t>(std::min<std::size_t>(kBlock, captions.size() - first)));
    SpellSession session(ReplaceAll(SpellingText(block), kLineEnd, u"\r"), decisions);
    session.Use(lookup);
    while (session.Next()) session.IgnoreAll();
    for (const auto& caption : CutSpellingText(session.Document(), block, u"|")) changed += caption ? 1 : 0;
  }
  return changed;
}

template <class Work>
double Milliseconds(Work&& work) {
  double best = 1e9;
  for (int run = 0; run < kRuns; ++run) {
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
    best = std::min(best, taken.count());
  }
  return best;
}

int Run() {
  const HunspellDictionaries dictionaries;
  PosixFiles files;
  UserWords userWords(files, {});
  std::unique_ptr<SpellDictionary> dictionary;
  const double opening = Milliseconds([&] { dictionary = dictionaries.Open(u"en_US"); });
  std::printf("opening the dictionary: %.1f ms\n", opening);
  for (const int count : {2000, 8000, 32000}) {
    const std::vector<Text> captions = Captions(count);
    std::size_t units = 0;
    const double copy = Milliseconds([&] {
      const std::vector<Text> copied(captions);
      units += copied.back().size();
    });
    std::size_t changed = 0;
    SpellLookup lookup(*dictionary, userWords);
    const double check = Milliseconds([&] { changed += CheckAll(captions, lookup); });
    std::size_t known = 0;
    // What asking the dictionary for each word costs.
    const double lookups = Milliseconds([&] {
      for (const Text& caption : captions) {
        for (const WordPlace& place : WordsOf(caption)) {
          known += dictionary->Knows(TextView(caption).substr(place.start, place.length)) ? 1 : 0;
        }
      }
    });
    std::printf("%6d captions: %.1f ms, %.1f times a copy of all captions, %.2f of asking for every word%s\n", count,
                check, check / copy, check / lookups,
                changed == 0 && units > 0 && known > 0 ? "" : " (captions changed!)");
  }
  return 0;
}

}  // namespace
}  // namespace cuewright

int main() { return cuewright::Run(); }
