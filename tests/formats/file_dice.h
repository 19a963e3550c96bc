#pragma once

#include <cstdint>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

// Files of captions by chance.

namespace cuewright::testing {

/// Chance by a seed, the same everywhere.
class Dice {
 public:
  explicit Dice(unsigned seed) : random_(seed) {}

  int Below(int number) { return static_cast<int>(random_() % static_cast<unsigned>(number)); }
  int Between(int least, int most) { return least + Below(most - least + 1); }
  bool OneIn(int number) { return Below(number) == 0; }
  std::string OneOf(const std::vector<std::string>& choices) {
    return choices.at(static_cast<std::size_t>(Below(static_cast<int>(choices.size()))));
  }

 private:
  std::mt19937 random_;
};

/// Writes a file line by line, with line ends of one kind or with two that mix.
class FileWriter {
 public:
  explicit FileWriter(Dice& dice) : dice_(dice) {
    const int kind = dice.Below(5);
    ends_ = kind == 0 ? std::vector<std::string>{"\r"} : std::vector<std::string>{"\n", "\r\n"};
    if (kind == 1) ends_ = {"\n"};
    if (kind == 2) ends_ = {"\r\n"};
  }
  void Line(const std::string& line) { file_ += line + dice_.OneOf(ends_); }
  /// The file; its last line may lack its end.
  std::string Taken() {
    while (dice_.OneIn(3) && !file_.empty() && (file_.back() == '\n' || file_.back() == '\r')) file_.pop_back();
    return file_;
  }

 private:
  Dice& dice_;
  std::vector<std::string> ends_;
  std::string file_;
};

inline std::string Words(Dice& dice) {
  std::string words;
  for (int count = dice.Between(1, 4); count > 0; --count) {
    if (!words.empty()) words += ' ';
    words += dice.OneOf({"Good", "evening,", "Inspector.", "caf\xC3\xA9", "\xE2\x80\x94", "10:30", "->", "42", "a=b",
                         "{x}", "(no)", "a", "it <i>is</i> so", "\xD0\xB4\xD0\xB0", "1,000", "[y]"});
  }
  return words;
}

/// One to three lines, now and then with a style for all of them.
inline std::vector<std::string> TextOf(Dice& dice) {
  std::vector<std::string> lines;
  for (int count = dice.Between(1, 3); count > 0; --count) lines.push_back(Words(dice));
  const std::string style = dice.OneOf({"b", "i", "u"});
  const int kind = dice.Below(8);
  for (std::size_t i = 0; i < lines.size() && kind < 2; ++i) {
    if (kind == 0 || i == 0) lines[i] = "<" + style + ">" + lines[i];
    if (kind == 0 || i + 1 == lines.size()) lines[i] += "</" + style + ">";
  }
  return lines;
}

inline std::string JoinedBy(const std::string& mark, const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += (text.empty() ? "" : mark) + line;
  return text;
}

/// "h:mm:ss,zzz" with digits for the hours and for the fraction.
inline std::string Clock(std::int64_t ms, int hours, const std::string& sign, int digits) {
  char clock[64];
  const auto number = [](std::int64_t value) { return static_cast<int>(value); };
  std::snprintf(clock, sizeof clock, "%0*d:%02d:%02d", hours, number(ms / 3600000), number(ms / 60000 % 60),
                number(ms / 1000 % 60));
  char fraction[16];
  std::snprintf(fraction, sizeof fraction, "%03d", number(ms % 1000));
  return clock + sign + std::string(fraction).substr(0, static_cast<std::size_t>(digits));
}

/// "mm:ss.zzz", whose minutes run on.
inline std::string ShortClock(std::int64_t ms, int digits) {
  const std::string minutes = std::to_string(ms / 60000);
  return (minutes.size() < 2 ? "0" : "") + minutes + Clock(ms, 2, ".", digits).substr(5);
}

/// Captions one behind the other, some of them over each other.
struct Times {
  std::int64_t start = 0;
  std::int64_t end = 0;

  void Next(Dice& dice) {
    start += dice.OneIn(20) ? 3600000 : dice.Between(1, 9000);
    end = start + dice.Between(1, 6000);
  }
};

}  // namespace cuewright::testing
