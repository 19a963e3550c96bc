#include "form/mnemonics.h"

#include <unicode/uchar.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <optional>

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

char16_t Folded(char16_t unit) { return static_cast<char16_t>(u_tolower(unit)); }

/// The letter behind the mark of a caption that has one.
std::optional<char16_t> MarkedLetter(TextView caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != u'&') continue;
    if (caption[++i] != u'&') return Folded(caption[i]);
  }
  return {};
}

/// Where the letter is that the caption is to have: of those not taken one that begins a word goes first.
std::optional<std::size_t> PlaceOfLetter(TextView caption, const Text& taken) {
  const auto free = [&](std::size_t i) {
    return IsTypeable(caption[i]) && taken.find(Folded(caption[i])) == Text::npos;
  };
  for (const bool beginsWord : {true, false}) {
    for (std::size_t i = 0; i < caption.size(); ++i) {
      if (beginsWord && i > 0 && u_isalnum(caption[i - 1])) continue;
      if (free(i)) return i;
    }
  }
  return {};
}

}  // namespace

std::vector<Text> WithMnemonics(std::vector<Text> captions) {
  Text taken;
  std::vector<Text*> unmarked;
  for (Text& caption : captions) {
    if (const auto letter = MarkedLetter(caption)) {
      taken += *letter;
    } else if (!caption.empty()) {
      unmarked.push_back(&caption);
    }
  }
  // Short captions come first, since they have the fewest letters to choose from.
  std::ranges::stable_sort(unmarked, {}, [](const Text* caption) { return caption->size(); });
  for (Text* shown : unmarked) {
    Text& caption = *shown;
    if (const auto place = PlaceOfLetter(caption, taken)) {
      taken += Folded(caption[*place]);
      caption.insert(*place, 1, u'&');
      continue;
    }
    const auto letter =
        std::ranges::find_if(kLetters, [&](char16_t unit) { return taken.find(Folded(unit)) == Text::npos; });
    if (letter == kLetters.end()) continue;
    taken += Folded(*letter);
    // Three dots stay at the end.
    const std::size_t end = caption.ends_with(u"...") ? caption.size() - 3 : caption.size();
    caption.insert(end, u"(&" + Text(1, *letter) + u")");
  }
  return captions;
}

}  // namespace cuewright
