#include "formats/source/markup_colours.h"
#include "formats/source/markup_reader.h"

namespace cuewright {
namespace {

/// Calls `take` with each line of a caption, in the style that all have, and puts the separators between what it
/// appends.
template <class Take>
void EachLine(TextView text, TextView separator, RunBuilder& runs, Take take) {
  const RunStyle all = runs.style;
  for (;;) {
    const std::size_t end = separator.empty() ? TextView::npos : FindPlain(text, separator);
    runs.style = all;
    take(text.substr(0, end));
    if (end == TextView::npos) return;
    runs.style = all;
    runs.Append(text.substr(end, separator.size()));
    text.remove_prefix(end + separator.size());
  }
}

void TakeLetters(TextView letters, RunStyle& style) {
  for (const char16_t letter : letters) {
    switch (letter | 0x20) {
      case u'b':
        style.bold = true;
        break;
      case u'i':
        style.italic = true;
        break;
      case u'u':
        style.underline = true;
        break;
      case u's':
        style.strike = true;
        break;
      default:
        break;
    }
  }
}

/// The codes of MicroDVD: a small letter holds for its line, a capital one for all lines from it on.
class MicroDvdCodes {
 public:
  explicit MicroDvdCodes(RunBuilder& runs) : runs_(runs), all_(runs.style) {}

  void ReadLine(TextView line) {
    runs_.style = all_;
    bool codes = true;
    while (codes && line.size() > 3 && line[0] == u'{' && line[2] == u':') {
      const std::size_t end = line.find(u'}');
      codes = end != TextView::npos && Take(line[1], line.substr(3, end - 3));
      if (codes) line.remove_prefix(end + 1);
    }
    if (line.starts_with(u'/')) {
      runs_.style.italic = true;
      line.remove_prefix(1);
    }
    runs_.Append(line);
  }

 private:
  bool Take(char16_t code, TextView value) {
    const bool all = code >= u'A' && code <= u'Z';
    const auto style = [&](auto set) {
      set(runs_.style);
      if (all) set(all_);
    };
    switch (code | 0x20) {
      case u'y':
        style([&](RunStyle& to) { TakeLetters(value, to); });
        return true;
      case u'c':
        style([&](RunStyle& to) { to.colour = ColourWithRedLast(value); });
        return true;
      case u'f':
        runs_.Found(Loss::Font);
        return true;
      case u's':
        runs_.Found(Loss::Size);
        return true;
      case u'p':
      case u'o':
        runs_.Found(Loss::ExactPosition);
        return true;
      case u'h':
        runs_.Found(Loss::Other);
        return true;
      default:
        return false;
    }
  }

  RunBuilder& runs_;
  RunStyle all_;
};

}  // namespace

void ReadMicroDvd(TextView text, TextView separator, RunBuilder& runs) {
  MicroDvdCodes codes(runs);
  EachLine(text, separator, runs, [&](TextView line) { codes.ReadLine(line); });
}

void ReadMpl2(TextView text, TextView separator, RunBuilder& runs) {
  EachLine(text, separator, runs, [&](TextView line) {
    while (!line.empty() && (line[0] == u'/' || line[0] == u'\\' || line[0] == u'_')) {
      if (line[0] == u'/') runs.style.italic = true;
      if (line[0] == u'\\') runs.style.bold = true;
      if (line[0] == u'_') runs.style.underline = true;
      line.remove_prefix(1);
    }
    runs.Append(line);
  });
}

}  // namespace cuewright
