#include "bench/formats/captions.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace cuewright::bench {
namespace {

constexpr std::array<std::string_view, 40> kWords = {
    "the",     "house", "stood", "quiet", "above", "harbour", "and",     "nobody",  "spoke",    "before",
    "morning", "came",  "again", "with",  "rain",  "on",      "every",   "window",  "while",    "old",
    "friends", "told",  "their", "long",  "about", "ships",   "winters", "letters", "brothers", "stories",
    "lost",    "road",  "back",  "home",  "under", "a",       "heavy",   "sky",     "of",       "stone"};
constexpr std::array<std::string_view, 10> kAccented = {"café",  "déjà",   "señor", "über",   "naïve",
                                                        "Žižka", "façade", "crème", "mañana", "Élise"};

/// A generator of our own, so that the file is the same on every machine.
class Dice {
 public:
  std::uint32_t Below(std::uint32_t limit) {
    state_ = state_ * 6364136223846793005u + 1442695040888963407u;
    return static_cast<std::uint32_t>(state_ >> 33) % limit;
  }

 private:
  std::uint64_t state_ = 20;
};

void AppendLine(std::string& out, Dice& dice) {
  const std::uint32_t words = 6 + dice.Below(5);
  for (std::uint32_t i = 0; i < words; ++i) {
    if (i > 0) out += ' ';
    out += dice.Below(8) == 0 ? kAccented[dice.Below(kAccented.size())] : kWords[dice.Below(kWords.size())];
  }
  out += ".,?!"[dice.Below(4)];
}

void AppendClock(std::string& out, long ms) {
  const auto padded = [&](long value, std::size_t digits) {
    const std::string number = std::to_string(value);
    out.append(digits - number.size(), '0');
    out += number;
  };
  padded(ms / 3600000, 2);
  out += ':';
  padded(ms / 60000 % 60, 2);
  out += ':';
  padded(ms / 1000 % 60, 2);
  out += ',';
  padded(ms % 1000, 3);
}

}  // namespace

std::string MakeSubRip(int count) {
  std::string out;
  Dice dice;
  long start = 1000;
  for (int number = 1; number <= count; ++number) {
    // 32,000 captions stay under ten hours, since some formats have one digit for them. Multiples of 200 ms stand in
    // every format: whole frames at 25 a second, whole tenths and hundredths.
    const long end = start + 200 * (3 + static_cast<long>(dice.Below(3)));
    out += std::to_string(number);
    out += "\r\n";
    AppendClock(out, start);
    out += " --> ";
    AppendClock(out, end);
    out += "\r\n";
    AppendLine(out, dice);
    if (dice.Below(2) == 0) {
      out += "\r\n";
      AppendLine(out, dice);
    }
    out += "\r\n\r\n";
    start = end + 200;
  }
  return out;
}

}  // namespace cuewright::bench
