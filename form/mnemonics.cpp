#include "form/mnemonics.h"

#include <unicode/uchar.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <optional>

#include "text/units.h"

namespace cuewright {
namespace {

constexpr TextView kLetters = u"ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";

/// Letters as a key types them; those of the East Asian scripts come by a method of input.
bool IsTypeable(char16_t unit) {
  if (!u_isalnum(unit)) return false;
  UErrorCode status = U_ZERO_ERROR;
  switch (uscript_getScript(unit, &status)) {
    case USCRIPT_HAN:
    case USCRIPT_HIRAGANA:
    case USCRIPT_KATAKANA:
    case USCRIPT_HANGUL:
      return false;
    default:
      return true;
  }
}

char16_t Folded(char16_t unit) { return LowUnit(u_tolower(unit)); }

/// The letter behind the mark of a caption that has one.
std::optional<char16_t> MarkedLetter(TextView caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != u'&') continue;
    if (caption[++i] != u'&') return Folded(caption[i]);
  }
  return {};
}

/// The places of the letters that a caption can have, those that begin a word first.
std::vector<std::size_t> PlacesOfLetters(TextView caption) {
  std::vector<std::size_t> places;
  for (const bool first : {true, false}) {
    for (std::size_t i = 0; i < caption.size(); ++i) {
      const bool beginsWord = i == 0 || !u_isalnum(caption[i - 1]);
      if (beginsWord == first && IsTypeable(caption[i])) places.push_back(i);
    }
  }
  return places;
}

/// Gives captions a letter each of their own: who has one gives way to another that has no choice.
class Letters {
 public:
  explicit Letters(const std::vector<Text*>& captions) : captions_(captions), places_(captions.size()) {}

  void Take(char16_t letter) { marked_ += letter; }
  bool IsTaken(char16_t letter) const {
    return marked_.find(letter) != Text::npos || HolderOf(letter) < places_.size();
  }

  /// True when the caption has got a letter of its own.
  bool Give(std::size_t caption) {
    Text asked;
    return Give(caption, asked);
  }
  const std::optional<std::size_t>& PlaceOf(std::size_t caption) const { return places_[caption]; }

 private:
  char16_t LetterAt(std::size_t caption, std::size_t place) const { return Folded((*captions_[caption])[place]); }
  std::size_t HolderOf(char16_t letter) const {
    std::size_t holder = 0;
    while (holder < places_.size() && !(places_[holder] && LetterAt(holder, *places_[holder]) == letter)) ++holder;
    return holder;
  }

  /// `asked` has the letters that were asked for on the way here.
  bool Give(std::size_t caption, Text& asked) {
    const std::vector<std::size_t> places = PlacesOfLetters(*captions_[caption]);
    for (const std::size_t place : places) {
      if (IsTaken(LetterAt(caption, place))) continue;
      places_[caption] = place;
      return true;
    }
    for (const std::size_t place : places) {
      const char16_t letter = LetterAt(caption, place);
      if (marked_.find(letter) != Text::npos || asked.find(letter) != Text::npos) continue;
      asked += letter;
      const std::size_t holder = HolderOf(letter);
      if (!Give(holder, asked)) continue;
      places_[caption] = place;
      return true;
    }
    return false;
  }

  const std::vector<Text*>& captions_;
  std::vector<std::optional<std::size_t>> places_;
  Text marked_;
};

}  // namespace

std::vector<Text> WithMnemonics(std::vector<Text> captions) {
  std::vector<Text*> unmarked;
  for (Text& caption : captions) {
    if (!caption.empty() && !MarkedLetter(caption)) unmarked.push_back(&caption);
  }
  // Short captions come first, since they have the fewest letters to choose from.
  std::ranges::stable_sort(unmarked, {}, [](const Text* caption) { return caption->size(); });
  Letters letters(unmarked);
  for (const Text& caption : captions) {
    if (const auto letter = MarkedLetter(caption)) letters.Take(*letter);
  }
  for (std::size_t i = 0; i < unmarked.size(); ++i) letters.Give(i);
  for (std::size_t i = 0; i < unmarked.size(); ++i) {
    if (letters.PlaceOf(i)) continue;
    const auto letter = std::ranges::find_if(kLetters, [&](char16_t unit) { return !letters.IsTaken(Folded(unit)); });
    if (letter == kLetters.end()) continue;
    letters.Take(Folded(*letter));
    // Three dots stay at the end.
    Text& caption = *unmarked[i];
    const std::size_t end = caption.ends_with(u"...") ? caption.size() - 3 : caption.size();
    caption.insert(end, u"(&" + Text(1, *letter) + u")");
  }
  for (std::size_t i = 0; i < unmarked.size(); ++i) {
    if (letters.PlaceOf(i)) unmarked[i]->insert(*letters.PlaceOf(i), 1, u'&');
  }
  return captions;
}

}  // namespace cuewright
