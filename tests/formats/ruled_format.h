#pragma once

#include <ostream>
#include <string>

#include "tests/formats/file_dice.h"
#include "tests/formats/plain_rules.h"
#include "text/text.h"

namespace cuewright::testing {

/// A format with files of it by chance and its plain rule.
struct Ruled {
  const char* name;
  TextView identifier;
  std::string (*make)(Dice& dice);
  PlainCaptions (*read)(const std::string& file);
};

std::ostream& operator<<(std::ostream& out, const Ruled& ruled);

/// The format's reader gives what its plain rule gives, in files of many seeds.
void ExpectTheSame(const Ruled& ruled);

}  // namespace cuewright::testing
