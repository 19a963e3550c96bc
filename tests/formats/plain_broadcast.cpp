// Plain rules of what broadcasters use: EBU Tech 3264 and the words of line 21.
#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <vector>

#include "tests/formats/plain_rules.h"
#include "tests/formats/plain_text.h"

namespace cuewright::testing {
namespace {

int ByteAt(const std::string& bytes, std::size_t at) { return static_cast<unsigned char>(bytes.at(at)); }

std::int64_t Rounded(std::int64_t upper, std::int64_t lower) { return (upper * 2 + lower) / (lower * 2); }

/// A letter of a caption and how it looks.
struct Letter {
  std::string letter;
  std::string colour;  ///< as "#rrggbb"; empty: white
  bool italic = false;
  bool underlined = false;

  bool LooksAs(const Letter& other) const {
    return colour == other.colour && italic == other.italic && underlined == other.underlined;
  }
};
using Letters = std::vector<Letter>;

/// The line without the blanks around it. Blanks between words look as the words do, or like nothing.
Letters Tidied(Letters line) {
  const auto isBlank = [](const Letter& letter) { return letter.letter == " "; };
  while (!line.empty() && isBlank(line.back())) line.pop_back();
  while (!line.empty() && isBlank(line.front())) line.erase(line.begin());
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (!isBlank(line[i])) continue;
    std::size_t next = i;
    while (isBlank(line[next])) ++next;
    const Letter& before = line[i - 1];
    std::size_t word = i;
    while (isBlank(line[word])) --word;
    line[i] = line[word].LooksAs(line[next]) ? before : Letter{};
    line[i].letter = " ";
  }
  return line;
}

/// The tags of a letter but for those that all of its caption has, from the outermost on.
Lines TagsOf(const Letter& letter, bool allItalic, bool allUnderlined) {
  Lines tags;
  if (!letter.colour.empty()) tags.push_back("font color=\"" + letter.colour + "\"");
  if (letter.italic && !allItalic) tags.emplace_back("i");
  if (letter.underlined && !allUnderlined) tags.emplace_back("u");
  return tags;
}

/// What all letters share of the styles is a marker; the rest are tags around parts of the text. `place` stands between
/// the two.
std::string WithTags(const std::vector<Letters>& lines, const std::string& place) {
  Letters all;
  for (const Letters& line : lines) {
    if (line.empty()) continue;
    if (!all.empty()) all.push_back(all.back().LooksAs(line.front()) ? all.back() : Letter{});
    if (!all.empty()) all.back().letter = "|";
    all.insert(all.end(), line.begin(), line.end());
  }
  if (all.empty()) return {};
  const bool italic = std::all_of(all.begin(), all.end(), [](const Letter& letter) { return letter.italic; });
  const bool underlined = std::all_of(all.begin(), all.end(), [](const Letter& letter) { return letter.underlined; });
  std::string text = std::string(italic ? "<i>" : "") + (underlined ? "<u>" : "") + place;
  Lines open;
  all.emplace_back();
  for (const Letter& letter : all) {
    const Lines wanted = TagsOf(letter, italic && !letter.letter.empty(), underlined && !letter.letter.empty());
    while (open.size() > wanted.size() || !std::equal(open.begin(), open.end(), wanted.begin())) {
      text += "</" + Replaced(open.back(), " .*", "") + ">";
      open.pop_back();
    }
    while (open.size() < wanted.size()) {
      open.push_back(wanted[open.size()]);
      text += "<" + open.back() + ">";
    }
    text += letter.letter;
  }
  return text;
}

/// "{\anN}" for a place on the picture but the usual one, below in the middle.
std::string PlaceMark(int row, int column) {
  const int place = row * 3 + column + 1;
  return place == 2 ? "" : "{\\an" + std::to_string(place) + "}";
}

}  // namespace

PlainCaptions PlainEbu(const std::string& file) {
  const int rate = std::stoi(file.substr(6, 2));
  const auto timeAt = [&](std::size_t at) {
    const std::int64_t seconds = ByteAt(file, at) * 3600 + ByteAt(file, at + 1) * 60 + ByteAt(file, at + 2);
    return seconds * 1000 + Rounded(ByteAt(file, at + 3) * 1000, rate);
  };
  std::int64_t programme = 0;
  const std::string clock = file.substr(256, 8);
  if (const auto start = Match(clock, "(\\d\\d)(\\d\\d)(\\d\\d)(\\d\\d)")) {
    programme = MsOf(start->str(1) + ":" + start->str(2) + ":" + start->str(3)) +
                Rounded(std::stoi(start->str(4)) * 1000, rate);
  }
  PlainCaptions captions;
  std::string field;
  bool fromZero = false;
  for (std::size_t at = 1024; at + 128 <= file.size(); at += 128) {
    const int extension = ByteAt(file, at + 3);
    const bool reserved = extension >= 0xF0 && extension != 0xFF;
    if (reserved || ByteAt(file, at + 15) == 1) continue;
    const std::string part = file.substr(at + 16, 112);
    field += part.substr(0, part.find('\x8F'));
    if (extension != 0xFF) continue;
    std::vector<Letters> lines(1);
    Letter pen;
    static const std::array<std::string, 8> kColours = {"#000000", "#ff0000", "#00ff00", "#ffff00",
                                                        "#0000ff", "#ff00ff", "#00ffff", ""};
    for (std::size_t i = 0; i < field.size(); ++i) {
      const int byte = ByteAt(field, i);
      if (byte == 0x80 || byte == 0x81) pen.italic = byte == 0x80;
      if (byte == 0x82 || byte == 0x83) pen.underlined = byte == 0x82;
      if (byte < 8) pen.colour = kColours[static_cast<std::size_t>(byte)];
      if (byte == 0x8A) {
        lines.emplace_back();
        pen.colour.clear();
      } else if (byte == 0xC2) {
        // An accent stands in front of its letter.
        pen.letter = field.at(++i) == 'e' ? "\xC3\xA9" : "\xC3\xA1";
        lines.back().push_back(pen);
      } else if (byte < 0x20 || byte == ' ') {
        // A code takes a place on the screen; of several blanks one is read.
        pen.letter = " ";
        if (!lines.back().empty() && lines.back().back().letter != " ") lines.back().push_back(pen);
      } else if (byte < 0x7F) {
        pen.letter = field.substr(i, 1);
        lines.back().push_back(pen);
      }
    }
    field.clear();
    std::transform(lines.begin(), lines.end(), lines.begin(), Tidied);
    // The first row of the text and its alignment.
    const int row = ByteAt(file, at + 13);
    const int side = ByteAt(file, at + 14);
    const int third = row * 3 <= 23 ? 2 : row * 9 <= 23 * 5 ? 1 : 0;
    const std::string place = PlaceMark(third, side == 1 ? 0 : side == 3 ? 2 : 1);
    captions.push_back({timeAt(at + 5), timeAt(at + 9), WithTags(lines, place)});
    fromZero = fromZero || captions.back().start < programme;
  }
  for (PlainCaption& caption : captions) {
    caption.start -= fromZero ? 0 : programme;
    caption.end -= fromZero ? 0 : programme;
  }
  return captions;
}

namespace {

/// A memory of 15 rows of 32 cells.
using Memory = std::map<int, std::map<int, Letter>>;

std::string SeenIn(const Memory& memory) {
  std::vector<Letters> lines;
  int lowest = 0;
  for (const auto& [row, cells] : memory) {
    Letters line(32, Letter{" ", "", false, false});
    for (const auto& [column, letter] : cells) line[static_cast<std::size_t>(column)] = letter;
    line = Tidied(line);
    if (!line.empty()) lowest = row;
    lines.push_back(line);
  }
  return WithTags(lines, PlaceMark(lowest <= 5 ? 2 : lowest <= 10 ? 1 : 0, 1));
}

/// A decoder of line 21 that does what each word says, one after another.
class Decoder {
 public:
  void Word(int word, std::int64_t frame) {
    frame_ = frame;
    const int first = word >> 8 & 0x7F;
    const int second = word & 0x7F;
    const bool repeated = word == last_;
    if (first == 0 && second == 0) return;
    last_ = 0;
    if (first >= 0x20) {
      Print(first);
      if (second >= 0x20) Print(second);
    } else if (!repeated) {
      last_ = word;
      Control(first, second);
    }
  }

  PlainCaptions All(std::int64_t frame) {
    frame_ = frame;
    Erase();
    return captions_;
  }

 private:
  enum class Way { Loaded, Rolled, Painted };

  Memory& Written() { return way_ == Way::Loaded ? hidden_ : seen_; }

  void Put(const std::string& letter) {
    if (way_ != Way::Loaded && seen_.empty()) since_ = frame_;
    pen_.letter = letter;
    Written()[row_][column_] = pen_;
    column_ = std::min(column_ + 1, 31);
  }

  void Print(int code) {
    static const std::map<int, std::string> kOthers = {{0x2A, "\xC3\xA1"}, {0x5C, "\xC3\xA9"}, {0x7E, "\xC3\xB1"}};
    const auto other = kOthers.find(code);
    Put(other == kOthers.end() ? std::string(1, static_cast<char>(code)) : other->second);
  }

  void Erase() {
    const std::string text = SeenIn(seen_);
    if (!text.empty()) captions_.push_back({Rounded(since_ * 1001, 30), Rounded(frame_ * 1001, 30), text});
    seen_.clear();
  }

  void Control(int first, int second) {
    static const std::array<std::string, 7> kColours = {"",        "#00ff00", "#0000ff", "#00ffff",
                                                        "#ff0000", "#ffff00", "#ff00ff"};
    if (second >= 0x40) {
      static const std::map<int, int> kRows = {{0x10, 11}, {0x11, 1}, {0x12, 3}, {0x13, 12},
                                               {0x14, 14}, {0x15, 5}, {0x16, 7}, {0x17, 9}};
      row_ = kRows.at(first) + (first != 0x10 && (second & 0x20) != 0 ? 1 : 0);
      base_ = way_ == Way::Rolled ? row_ : base_;
      const auto kind = static_cast<std::size_t>(second >> 1 & 0xF);
      pen_ = {"", kind < 7 ? kColours[kind] : "", kind == 7, (second & 1) != 0};
      column_ = kind < 8 ? 0 : static_cast<int>(kind - 8) * 4;
    } else if (first == 0x11 && second < 0x30) {
      const auto kind = static_cast<std::size_t>(second >> 1 & 7);
      pen_.italic = kind == 7;
      pen_.underlined = (second & 1) != 0;
      if (kind < 7) pen_.colour = kColours[kind];
      Put(" ");
    } else if (first == 0x11) {
      Put(second == 0x37 ? "\xE2\x99\xAA" : "\xC2\xBD");
    } else if (first == 0x17) {
      column_ = std::min(column_ + (second & 3), 31);
    } else if (first == 0x14) {
      Command(second);
    }
  }

  void Command(int command) {
    if (command == 0x20) way_ = Way::Loaded;
    // Behind a letter in the last column there is no other: it goes first.
    if (command == 0x21 && column_ > 0) {
      column_ -= column_ == 31 && Written()[row_].contains(31) ? 0 : 1;
      Written()[row_].erase(column_);
    }
    if (command >= 0x25 && command <= 0x27) {
      if (way_ != Way::Rolled) {
        Erase();
        hidden_.clear();
        base_ = 15;
      }
      way_ = Way::Rolled;
      row_ = base_;
      column_ = 0;
    }
    if (command == 0x29) {
      Erase();
      way_ = Way::Painted;
    }
    if (command == 0x2C) Erase();
    if (command == 0x2D && way_ == Way::Rolled) {
      Erase();
      row_ = base_;
      column_ = 0;
      pen_ = {};
    }
    if (command == 0x2E) hidden_.clear();
    if (command != 0x2F) return;
    Erase();
    std::swap(seen_, hidden_);
    since_ = frame_;
    way_ = Way::Loaded;
  }

  Memory seen_;
  Memory hidden_;
  Way way_ = Way::Loaded;
  int row_ = 15;
  int column_ = 0;
  int base_ = 15;
  Letter pen_;
  int last_ = 0;
  std::int64_t frame_ = 0;
  std::int64_t since_ = 0;
  PlainCaptions captions_;
};

}  // namespace

PlainCaptions PlainScc(const std::string& file) {
  Decoder decoder;
  std::int64_t frame = 0;
  for (const std::string& line : LinesOf(file)) {
    const auto time = Match(line, "(\\d\\d):(\\d\\d):(\\d\\d)([:;])(\\d\\d)(.*)");
    if (!time) continue;
    const std::int64_t minutes = std::stoi(time->str(1)) * 60 + std::stoi(time->str(2));
    std::int64_t named = (minutes * 60 + std::stoi(time->str(3))) * 30 + std::stoi(time->str(5));
    // Two numbers of each minute are left out, but of every tenth.
    if (time->str(4) == ";") named -= 2 * (minutes - minutes / 10);
    frame = std::max(frame, named);
    const std::string words = time->str(6);
    const std::regex& word = Regex("\\S+");
    for (std::sregex_iterator at(words.begin(), words.end(), word), end; at != end; ++at, ++frame) {
      if (Match(at->str(), "[0-9a-fA-F]{4}")) decoder.Word(std::stoi(at->str(), nullptr, 16), frame);
    }
  }
  return decoder.All(frame + 120);
}

}  // namespace cuewright::testing
