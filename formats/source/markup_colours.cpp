#include "formats/source/markup_colours.h"

#include <array>

#include "text/digits.h"

namespace cuewright {
namespace {

struct NamedColour {
  TextView name;
  std::uint32_t colour;
};

/// The eight that have a class in WebVTT come first.
constexpr std::size_t kCueColours = 8;
constexpr std::array<NamedColour, 20> kNames = {
    {{u"white", 0xFFFFFF},   {u"lime", 0x00FF00},  {u"cyan", 0x00FFFF},  {u"red", 0xFF0000},    {u"yellow", 0xFFFF00},
     {u"magenta", 0xFF00FF}, {u"blue", 0x0000FF},  {u"black", 0x000000}, {u"green", 0x008000},  {u"aqua", 0x00FFFF},
     {u"fuchsia", 0xFF00FF}, {u"gray", 0x808080},  {u"grey", 0x808080},  {u"silver", 0xC0C0C0}, {u"maroon", 0x800000},
     {u"purple", 0x800080},  {u"olive", 0x808000}, {u"navy", 0x000080},  {u"teal", 0x008080},   {u"orange", 0xFFA500}}};

/// The number that hexadecimal digits write; empty when another character is among them.
std::optional<std::uint32_t> Hex(TextView digits) {
  if (digits.empty() || digits.size() > 8) return {};
  std::uint32_t number = 0;
  for (const char16_t c : digits) {
    const int digit = HexDigit(c);
    if (digit < 0) return {};
    number = number << 4 | digit;
  }
  return number;
}

std::optional<std::uint32_t> ByParts(TextView value) {
  const std::size_t open = value.find(u'(');
  if (open == TextView::npos || !EqualLoose(value.substr(0, 3), u"rgb")) return {};
  std::uint32_t colour = 0;
  std::size_t at = open + 1;
  for (int part = 0; part < 3; ++part) {
    while (at < value.size() && (value[at] == u' ' || value[at] == u',')) ++at;
    std::uint32_t number = 0;
    if (at >= value.size() || !IsDigit(value[at])) return {};
    for (; at < value.size() && IsDigit(value[at]) && number < 256; ++at) {
      number = number * 10 + (value[at] - u'0');
    }
    if (number > 255) return {};
    colour = colour << 8 | number;
  }
  return colour;
}

}  // namespace

std::optional<std::uint32_t> WebColour(TextView value) {
  value = TrimBlanks(value);
  for (const auto& [name, colour] : kNames) {
    if (EqualLoose(name, value)) return colour;
  }
  if (const auto parts = ByParts(value)) return parts;
  const bool marked = value.starts_with(u'#');
  if (marked) value.remove_prefix(1);
  const auto number = Hex(value);
  if (!number) return {};
  switch (value.size()) {
    case 3:
      return marked
                 ? std::optional((*number >> 8 & 15) * 0x110000 + (*number >> 4 & 15) * 0x1100 + (*number & 15) * 0x11)
                 : std::nullopt;
    case 6:
      return number;
    case 8:
      return *number >> 8;
    default:
      return {};
  }
}

std::optional<std::uint32_t> ColourWithRedLast(TextView value) {
  const std::size_t first = value.find_first_not_of(u"&Hh$");
  if (first == TextView::npos) return {};
  value.remove_prefix(first);
  const auto number = Hex(value.substr(0, value.find(u'&')));
  if (!number) return {};
  return Exchanged(*number & 0xFFFFFF);
}

Text ColourDigits(std::uint32_t colour) {
  Text digits;
  for (int shift = 20; shift >= 0; shift -= 4) digits += u"0123456789abcdef"[colour >> shift & 15];
  return digits;
}

TextView CueColourClass(std::uint32_t colour) {
  for (std::size_t i = 0; i < kCueColours; ++i) {
    if (kNames[i].colour == colour) return kNames[i].name;
  }
  return {};
}

std::optional<std::uint32_t> ColourOfCueClass(TextView name) {
  for (std::size_t i = 0; i < kCueColours; ++i) {
    if (kNames[i].name == name) return kNames[i].colour;
  }
  return {};
}

}  // namespace cuewright
