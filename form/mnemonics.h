#pragma once

#include <vector>

#include "text/text.h"

namespace cuewright {

/// The captions of one menu, each with the letter by which the keyboard chooses it marked by "&". A caption that has a
/// mark keeps it. The others, the shortest first, get the first letter of a word that no other has, or else any letter;
/// one of a script whose letters no key types, or with no letter left, gets one behind it in parentheses. Captions
/// beyond the letters and the digits stay as they are.
std::vector<Text> WithMnemonics(std::vector<Text> captions);

}  // namespace cuewright
