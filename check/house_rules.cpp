#include "check/house_rules.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/counting.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "text/digits.h"
#include "text/profile.h"

namespace cuewright {
namespace {

constexpr std::uint64_t kLargestFile = 1 << 20;
constexpr double kMsASecond = 1000;
constexpr TextView kEnding = u".ini";

/// A number of decimal digits, with a point; empty for any other text.
std::optional<double> NumberIn(TextView value) {
  const bool fits = !value.empty() && value.size() <= 7 && IsDigit(value.front()) && IsDigit(value.back()) &&
                    std::ranges::count(value, u'.') <= 1 &&
                    std::ranges::all_of(value, [](char16_t c) { return IsDigit(c) || c == u'.'; });
  if (!fits) return {};
  return LeadingNumber(value);
}

bool TakeText(TextView value, Text& text) {
  text = value;
  return !value.empty();
}

bool TakeNumber(TextView value, double& number) {
  const std::optional<double> read = NumberIn(value);
  if (read) number = *read;
  return read.has_value();
}

bool TakeNumber(TextView value, int& number) {
  const std::optional<double> read = NumberIn(value);
  if (!read || *read != std::floor(*read)) return false;
  number = static_cast<int>(*read);
  return true;
}

/// "1000" in ms, "2 frames".
bool TakeTime(TextView value, HouseTime& time) {
  constexpr TextView kFrames = u" frames";
  const bool frames = value.ends_with(kFrames);
  if (frames) value.remove_suffix(kFrames.size());
  int number = 0;
  if (!TakeNumber(value, number)) return false;
  if (frames) {
    time.frames = number;
  } else {
    time.ms = number;
  }
  return true;
}

/// "12 20 36": each more than the one before.
bool TakeRising(TextView value, std::vector<double>& numbers) {
  for (const TextView part : Split(value, u" ")) {
    double number = 0;
    if (!TakeNumber(part, number) || number <= (numbers.empty() ? 0 : numbers.back())) return false;
    numbers.push_back(number);
  }
  return true;
}

bool TakeRate(TextView value, FrameRate& rate) {
  rate = FrameRate::FromText(value);
  return rate.IsUsual();
}

bool TakeSwitch(TextView value, bool& on) {
  on = value == u"1";
  return value == u"0" || value == u"1";
}

/// A key of the file, and the function that takes its value; false for a value that the key can't have.
struct Key {
  TextView name;
  bool (*take)(TextView value, HouseRules& rules);
};

constexpr std::array kKeys = {
    Key{u"Name", [](TextView value, HouseRules& rules) { return TakeText(value, rules.name); }},
    Key{u"Source", [](TextView value, HouseRules& rules) { return TakeText(value, rules.source); }},
    Key{u"Date", [](TextView value, HouseRules& rules) { return TakeText(value, rules.date); }},
    Key{u"Language", [](TextView value, HouseRules& rules) { return TakeText(value, rules.language); }},
    Key{u"Rate", [](TextView value, HouseRules& rules) { return TakeRate(value, rules.rate); }},
    Key{u"MinDuration", [](TextView value, HouseRules& rules) { return TakeTime(value, rules.minDuration); }},
    Key{u"MaxDuration", [](TextView value, HouseRules& rules) { return TakeTime(value, rules.maxDuration); }},
    Key{u"MinGap", [](TextView value, HouseRules& rules) { return TakeTime(value, rules.minGap); }},
    Key{u"ChainBelow", [](TextView value, HouseRules& rules) { return TakeTime(value, rules.chainBelow); }},
    Key{u"CharactersASecond",
        [](TextView value, HouseRules& rules) { return TakeNumber(value, rules.charactersASecond); }},
    Key{u"CharactersWithin",
        [](TextView value, HouseRules& rules) { return TakeRising(value, rules.charactersWithin); }},
    Key{u"WordsAMinute", [](TextView value, HouseRules& rules) { return TakeNumber(value, rules.wordsAMinute); }},
    Key{u"CharactersALine", [](TextView value, HouseRules& rules) { return TakeNumber(value, rules.charactersALine); }},
    Key{u"Characters", [](TextView value, HouseRules& rules) { return TakeNumber(value, rules.characters); }},
    Key{u"Lines", [](TextView value, HouseRules& rules) { return TakeNumber(value, rules.lines); }},
    Key{u"WideLetters", [](TextView value, HouseRules& rules) { return TakeSwitch(value, rules.wideLetters); }},
    Key{u"Balance", [](TextView value, HouseRules& rules) { return TakeNumber(value, rules.balance); }},
    Key{u"Pyramid", [](TextView value, HouseRules& rules) { return TakeNumber(value, rules.pyramid); }},
    Key{u"Dash", [](TextView value, HouseRules& rules) { return TakeText(value, rules.dash); }},
    Key{u"ShotZone", [](TextView value, HouseRules& rules) { return TakeTime(value, rules.shotZone); }},
    Key{u"BeforeShot", [](TextView value, HouseRules& rules) { return TakeTime(value, rules.beforeShot); }},
};

/// Takes a line; what is wrong with it, or nothing.
std::string TakeLine(const ProfileLine& line, HouseRules& rules) {
  if (line.kind == ProfileLine::Kind::Section) return {};
  if (line.kind == ProfileLine::Kind::Other) return "KEY=VALUE was expected";
  const auto key = std::ranges::find_if(kKeys, [&](const Key& one) { return EqualLoose(one.name, line.name); });
  if (key == kKeys.end()) return "there is no key '" + ToUtf8(line.name) + "'";
  if (key->take(line.value, rules)) return {};
  return "'" + ToUtf8(line.value) + "' can't be the value of " + ToUtf8(key->name);
}

}  // namespace

std::int64_t HouseRules::FramesOf(const HouseTime& time, const FrameRate& at) const {
  if (time.frames == 0) return at.FramesOfMs(time.ms);
  const std::int64_t scaled = time.frames * at.Numerator() * rate.Denominator();
  const std::int64_t unit = std::int64_t{at.Denominator()} * rate.Numerator();
  return (2 * scaled + unit - 1) / (2 * unit);
}

Ms HouseRules::MsOf(const HouseTime& time, const FrameRate& at) const {
  return time.frames == 0 ? time.ms : at.MsOfFrames(FramesOf(time, at));
}

double HouseRules::CharactersIn(double ms) const {
  const double second = std::floor(ms / kMsASecond);
  if (second >= CountOf(charactersWithin)) {
    // Multiplied first and divided then, so that whole characters come out exactly.
    const double atSpeed = ms * charactersASecond / kMsASecond;
    return charactersWithin.empty() ? atSpeed : std::max(charactersWithin.back(), atSpeed);
  }
  const std::size_t at = RoundToInt32(second);
  const double before = at == 0 ? 0 : charactersWithin[at - 1];
  return before + (ms - second * kMsASecond) * (charactersWithin[at] - before) / kMsASecond;
}

double HouseRules::MsFor(double count) const {
  const auto at = std::ranges::lower_bound(charactersWithin, count);
  if (at == charactersWithin.end()) {
    const double seconds = std::max<double>(CountOf(charactersWithin), count / charactersASecond);
    return seconds * kMsASecond;
  }
  const double before = at == charactersWithin.begin() ? 0 : *(at - 1);
  const double seconds = ToReal(at - charactersWithin.begin()) + (count - before) / (*at - before);
  return seconds * kMsASecond;
}

std::optional<HouseRules> ReadHouseRules(TextView text, std::string& problem) {
  HouseRules rules;
  ProfileLines lines(text);
  for (ProfileLine line; lines.Next(line);) {
    const std::string wrong = TakeLine(line, rules);
    if (wrong.empty()) continue;
    problem = "line " + std::to_string(line.number) + ": " + wrong;
    return {};
  }
  if (!rules.charactersWithin.empty() && rules.charactersASecond == 0) {
    problem = "CharactersWithin needs CharactersASecond for what is longer";
    return {};
  }
  if (rules.name.empty()) {
    problem = "there is no Name";
    return {};
  }
  return rules;
}

std::vector<Text> HouseRulesShelf::Ids() const {
  std::vector<Text> ids;
  for (const Text& name : files_.Names(folder_ + u"profiles")) {
    if (name.ends_with(kEnding)) ids.push_back(name.substr(0, name.size() - kEnding.size()));
  }
  std::ranges::sort(ids);
  return ids;
}

std::optional<HouseRules> HouseRulesShelf::Read(TextView id, std::string& problem) const {
  const std::vector<Text> ids = Ids();
  const auto found = std::ranges::find_if(ids, [&](const Text& one) { return EqualLoose(one, id); });
  if (found == ids.end()) {
    problem = "there are no house rules '" + ToUtf8(id) + "'";
    return {};
  }
  const Text path = folder_ + u"profiles/" + *found + Text(kEnding);
  std::optional<HouseRules> rules;
  CarryOn errors;
  errors([&] {
    rules = ReadHouseRules(FromUtf8(files_.Read(path, kLargestFile)), problem);
    if (!rules) problem = ToUtf8(path) + ": " + problem;
    if (!rules || rules->language.empty()) return;
    const Text words = folder_ + u"breaks/" + rules->language + u".txt";
    if (files_.IsRegular(words)) rules->breaks = ReadBreakRules(FromUtf8(files_.Read(words, kLargestFile)));
  });
  if (errors.Last()) {
    problem = ToUtf8(path) + ": " + ToUtf8(errors.Last()->description);
    return {};
  }
  if (rules) rules->id = *found;
  return rules;
}

}  // namespace cuewright
