#include "check/break_rules.h"

#include "text/profile.h"

namespace cuewright {
namespace {

constexpr TextView kPunctuation = u".,;:!?\u2026\u00bf\u00a1\"\u201c\u201d\u201e\u00ab\u00bb()[]\u060c\u061b\u061f";

/// The word without punctuation around it.
TextView BareWord(TextView word) {
  const std::size_t first = word.find_first_not_of(kPunctuation);
  if (first == TextView::npos) return {};
  return word.substr(first, word.find_last_not_of(kPunctuation) - first + 1);
}

}  // namespace

bool BreakRules::Forbids(TextView last, TextView next) const {
  if (last.empty()) return false;
  const Text word = ToLower(last);
  if (lineEnds.contains(word)) return true;
  // Two words with punctuation between them are no pair.
  if (pairs.empty() || kPunctuation.find(last.back()) != TextView::npos) return false;
  Text pair(BareWord(word));
  pair += u' ';
  pair += ToLower(BareWord(next));
  return pairs.contains(pair);
}

BreakRules ReadBreakRules(TextView text) {
  BreakRules rules;
  ProfileLines lines(text);
  for (ProfileLine line; lines.Next(line);) {
    if (line.kind != ProfileLine::Kind::Other) continue;
    for (const Text& word : Split(line.value, u" ")) {
      if (word.empty()) continue;
      if (word.find(u'_') == Text::npos) {
        rules.lineEnds.insert(ToLower(word));
      } else {
        rules.pairs.insert(ToLower(ReplaceAll(word, u"_", u" ")));
      }
    }
  }
  return rules;
}

}  // namespace cuewright
