#include <gtest/gtest.h>

#include <array>
#include <bit>

#include "tests/formats/file_dice.h"
#include "tests/formats/plain_rules.h"
#include "tests/formats/ruled_format.h"

namespace cuewright::testing {
namespace {

char AsByte(int value) { return static_cast<char>(static_cast<unsigned char>(value)); }

/// Words of EBU's Latin table, whose accents stand in front of their letters.
std::string EbuWords(Dice& dice) {
  std::string words;
  for (int count = dice.Between(1, 5); count > 0; --count) {
    if (!words.empty()) words += dice.OneOf({" ", " ", "  "});
    words += dice.OneOf({"Good", "evening,",
                         "caf\xC2"
                         "e",
                         "10:30", "Nobody",
                         "m\xC2"
                         "as",
                         "a=b"});
  }
  return words;
}

std::string EbuField(Dice& dice) {
  const std::string breaks = dice.OneOf({"\x8A", "\x8A\x8A"});
  const bool boxed = dice.OneIn(2);
  std::vector<std::string> lines;
  for (int count = dice.Between(1, 3); count > 0; --count) {
    std::string line = EbuWords(dice);
    if (dice.OneIn(4)) line = AsByte(dice.Below(8)) + line;
    if (dice.OneIn(6)) line += " " + dice.OneOf({"\x80", "\x82"}) + EbuWords(dice) + dice.OneOf({"\x81\x83", ""});
    if (dice.OneIn(6)) line += AsByte(dice.Between(1, 6)) + EbuWords(dice);
    if (boxed) line = "\x0D\x0B\x0B" + line + "\x0A\x0A";
    lines.push_back(line);
  }
  return (dice.OneIn(5) ? "\x80" : "") + JoinedBy(breaks, lines);
}

std::string EbuTime(std::int64_t ms, int rate) {
  const auto seconds = static_cast<int>(ms / 1000);
  const auto frame = static_cast<int>(ms % 1000 * rate / 1000);
  return {AsByte(seconds / 3600), AsByte(seconds / 60 % 60), AsByte(seconds % 60), AsByte(frame)};
}

std::string EbuFile(Dice& dice) {
  const int rate = dice.OneIn(2) ? 25 : 30;
  std::string file = "850STL" + std::to_string(rate) + ".01" + dice.OneOf({"1", "2"}) + "0009";
  file.resize(1024, ' ');
  const int hours = dice.OneIn(3) ? 10 : 0;
  file.replace(256, 8, dice.OneIn(3) ? "        " : hours == 10 ? "10000000" : "00000000");
  Times times;
  times.start = std::int64_t{3600000} * hours;
  for (int number = 0, count = dice.Between(1, 12); number < count && times.start < 80000000; ++number) {
    times.Next(dice);
    std::string field = EbuField(dice);
    std::string front(16, '\0');
    front[1] = AsByte(number);
    front.replace(5, 8, EbuTime(times.start, rate) + EbuTime(times.end, rate));
    front[13] = AsByte(dice.Between(1, 22));
    front[14] = AsByte(dice.OneIn(3) ? dice.Between(1, 3) : 2);
    // Words of the crew, and data of the program that wrote the file.
    front[15] = AsByte(dice.OneIn(12) ? 1 : 0);
    const std::size_t room = dice.OneIn(4) ? 20 : 112;
    for (int extension = 0; extension == 0 || !field.empty(); ++extension) {
      std::string block = front + field.substr(0, room);
      field.erase(0, room);
      block[3] = AsByte(field.empty() ? 0xFF : extension);
      block.resize(128, '\x8F');
      file += block;
      if (!dice.OneIn(10)) continue;
      block[3] = AsByte(0xFE);
      file += block;
    }
  }
  return file;
}

/// Words of line 21, each byte with its odd parity.
class LineWriter {
 public:
  explicit LineWriter(Dice& dice) : dice_(dice) {}

  void Word(int first, int second) {
    char word[8];
    std::snprintf(word, sizeof word, "%02x%02x ", WithParity(first), WithParity(second));
    words_ += word;
  }
  /// Most are sent twice.
  void Control(int first, int second) {
    Word(first, second);
    if (!dice_.OneIn(12)) Word(first, second);
    if (dice_.OneIn(20)) Word(0, 0);
  }
  void Letters(std::string letters) {
    if (letters.size() % 2 != 0) letters += '\0';
    for (std::size_t i = 0; i < letters.size(); i += 2) Word(letters[i], letters[i + 1]);
  }
  void Text() {
    for (int count = dice_.Between(1, 3); count > 0; --count) {
      Letters(dice_.OneOf({"Rain", "It is", "No.", "ca*e", "10:30", "a b", "So, ~"}) + " ");
      if (dice_.OneIn(8)) Control(0x11, dice_.OneOf({"n", "s"}) == "n" ? 0x37 : 0x32);
      if (dice_.OneIn(8)) Control(0x11, 0x20 + dice_.Below(16));
      if (dice_.OneIn(10)) Control(0x17, 0x21 + dice_.Below(3));
      if (dice_.OneIn(12)) Control(0x14, 0x21);
    }
  }
  void Rows() {
    const int row = dice_.OneIn(2) ? 0x14 : 0x10 + dice_.Below(8);
    for (int rows = dice_.Between(1, 2); rows > 0; --rows) {
      const int style = dice_.OneIn(2) ? 0 : dice_.Below(28);
      Control(row, 0x40 + (dice_.OneIn(2) ? 0x20 : 0) + style);
      Text();
    }
  }
  std::string Taken() { return std::exchange(words_, {}); }

 private:
  static unsigned WithParity(int byte) {
    const auto bits = static_cast<unsigned>(byte);
    return std::popcount(bits) % 2 == 0 ? bits | 0x80U : bits;
  }

  Dice& dice_;
  std::string words_;
};

std::string SccFile(Dice& dice) {
  FileWriter file(dice);
  LineWriter words(dice);
  file.Line("Scenarist_SCC V1.0\n");
  const std::string sign = dice.OneOf({":", ";"});
  const int way = dice.Below(4);
  int frame = 30 * dice.Between(1, 4000);
  for (int count = dice.Between(4, 12); count > 0; --count) {
    const int kind = way < 3 ? way : dice.Below(3);
    if (kind == 0) {
      words.Control(0x14, 0x20);
      words.Control(0x14, 0x2E);
      words.Rows();
      if (dice.OneIn(3)) words.Control(0x14, 0x2C);
      words.Control(0x14, 0x2F);
    } else if (kind == 1) {
      words.Control(0x14, dice.Between(0x25, 0x27));
      words.Control(0x14, 0x2D);
      if (dice.OneIn(2)) words.Control(0x14, 0x70);
      words.Text();
    } else {
      words.Control(0x14, 0x29);
      words.Rows();
    }
    if (dice.OneIn(4)) words.Control(0x14, 0x2C);
    frame += dice.Between(1, 200);
    char time[32];
    // Numbers that are left out of a minute aren't met here.
    const int second = frame / 30 % 60 == 0 ? 1 : frame / 30 % 60;
    std::snprintf(time, sizeof time, "%02d:%02d:%02d%s%02d", frame / 108000 % 100, frame / 1800 % 60, second,
                  sign.c_str(), frame % 30);
    file.Line(time + ("\t" + words.Taken()));
    if (!dice.OneIn(4)) file.Line("");
  }
  return file.Taken();
}

class PlainBroadcastRules : public ::testing::TestWithParam<Ruled> {};

TEST_P(PlainBroadcastRules, GiveWhatTheReaderGives) { ExpectTheSame(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Formats, PlainBroadcastRules,
                         ::testing::Values(Ruled{"Ebu", u"EBUSTL", EbuFile, PlainEbu},
                                           Ruled{"Scc", u"SCC", SccFile, PlainScc}),
                         [](const auto& of) { return std::string(of.param.name); });

}  // namespace
}  // namespace cuewright::testing
