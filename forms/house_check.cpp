#include "forms/house_check.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "check/house_rules.h"
#include "core/counting.h"
#include "forms/film_rate.h"

namespace cuewright {
namespace {

constexpr TextView kStoredKey = u"CheckProfile";

/// How the numbers of a rule are told.
enum class Unit : std::uint8_t { Plain, Ms, Frames, Percent };

struct RuleText {
  Message words;
  Unit unit;
};

/// In the order of `CheckRule`.
constexpr std::array kRuleTexts = {
    RuleText{Message::RuleMinDuration, Unit::Ms},     RuleText{Message::RuleMaxDuration, Unit::Ms},
    RuleText{Message::RuleOverlap, Unit::Ms},         RuleText{Message::RuleGap, Unit::Ms},
    RuleText{Message::RuleReadingSpeed, Unit::Plain}, RuleText{Message::RuleWordRate, Unit::Plain},
    RuleText{Message::RuleLineLength, Unit::Plain},   RuleText{Message::RuleTextLength, Unit::Plain},
    RuleText{Message::RuleLines, Unit::Plain},        RuleText{Message::RuleBalance, Unit::Percent},
    RuleText{Message::RulePyramid, Unit::Percent},    RuleText{Message::RuleDash, Unit::Plain},
    RuleText{Message::RuleLineEnd, Unit::Plain},      RuleText{Message::RuleShotStart, Unit::Frames},
    RuleText{Message::RuleShotEnd, Unit::Frames}};

const RuleText& TextOf(CheckRule rule) { return ItemAt(kRuleTexts, rule); }

/// To one digit behind the point, and none for a whole number.
Text Number(double value) {
  const long long tenths = std::llround(value * 10);
  Text text = Decimal(tenths / 10);
  if (tenths % 10 != 0) {
    if (tenths < 0 && tenths > -10) text = u"-" + text;
    text += u'.';
    text += Decimal(std::abs(tenths % 10));
  }
  return text;
}

Text Told(double value, Unit unit, const LangStrings& strings) {
  switch (unit) {
    case Unit::Ms:
      return Fill(strings[Message::ValueInMs], Number(value));
    case Unit::Frames:
      return strings.Counted(Message::ValueInFrames, u"%1", std::llround(value));
    case Unit::Percent:
      return Fill(strings[Message::ValueInPercent], Number(value));
    default:
      return Number(value);
  }
}

}  // namespace

HouseCheck::HouseCheck(Workbench bench, const FormatState& formats, const Folders& folders, const Files& files,
                       SettingsStore& store, Player& player)
    : findings(bench.list),
      bench_(bench),
      formats_(formats),
      folders_(folders),
      files_(files),
      store_(store),
      player_(player) {
  player_.ControlsChange.Connect([this] { FollowFilm(); });
}

std::vector<HouseRulesName> HouseCheck::Profiles() const {
  const HouseRulesShelf shelf(files_, folders_.AppFolder);
  std::vector<std::pair<Text, HouseRulesName>> found;
  for (const Text& id : shelf.Ids()) {
    std::string problem;
    if (const auto rules = shelf.Read(id, problem)) found.push_back({rules->language, {id, rules->name}});
  }
  std::ranges::stable_sort(found, {}, &std::pair<Text, HouseRulesName>::first);
  std::vector<HouseRulesName> profiles;
  profiles.reserve(found.size());
  for (auto& [language, profile] : found) profiles.push_back(std::move(profile));
  return profiles;
}

FrameRate HouseCheck::RateOfFilm() const { return FilmOrFileRate(player_, formats_); }

void HouseCheck::FollowFilm() {
  if (!(RateOfFilm() == findings.Rate())) findings.SetRules(findings.Rules(), RateOfFilm(), shots_);
}

void HouseCheck::SetShots(std::vector<Ms> shots) {
  if (shots == shots_) return;
  shots_ = std::move(shots);
  findings.SetRules(findings.Rules(), findings.Rate(), shots_);
}

bool HouseCheck::Take(TextView id) {
  if (findings.Rules().id == id) {
    FollowFilm();
    return true;
  }
  std::optional<HouseRules> rules = HouseRulesShelf(files_, folders_.AppFolder).Read(id, problem_);
  if (!rules) return false;
  problem_.clear();
  findings.SetRules(*std::move(rules), RateOfFilm(), shots_);
  return true;
}

bool HouseCheck::Choose(TextView id) {
  if (!Take(id)) return false;
  bench_.options.checkProfile = findings.Rules().id;
  store_.SaveSetting(kMainSection, kStoredKey, bench_.options.checkProfile);
  return true;
}

void HouseCheck::TakeStored() {
  // The stored profile may be one that another version of the program had.
  if (!Take(bench_.options.checkProfile)) Take(AppOptions().checkProfile);
}

Ms HouseCheck::LeastGap() const {
  const HouseRules& rules = findings.Rules();
  return rules.MsOf(rules.minGap, findings.Rate() ? findings.Rate() : rules.rate);
}

std::optional<Proposal> HouseCheck::Fix(const Finding& finding) const {
  return Fixer(findings.Rules(), findings.Rate(), shots_).Propose(bench_.list, finding);
}

std::vector<Proposal> HouseCheck::FixAll() const {
  return Fixer(findings.Rules(), findings.Rate(), shots_).ProposeAll(bench_.list);
}

const Text& RuleWords(CheckRule rule, const LangStrings& strings) { return strings[TextOf(rule).words]; }

Text ValueWords(const Finding& finding, const LangStrings& strings) {
  return finding.IsOfWords() ? finding.found : Told(finding.value, TextOf(finding.rule).unit, strings);
}

Text LimitWords(const Finding& finding, const LangStrings& strings) {
  return finding.IsOfWords() ? finding.wanted : Told(finding.limit, TextOf(finding.rule).unit, strings);
}

Text FindingWords(const Finding& finding, const LangStrings& strings) {
  Text value = ValueWords(finding, strings);
  if (const Text limit = LimitWords(finding, strings); !limit.empty()) {
    value = Fill(strings[Message::FindingOfLimit], value, limit);
  }
  return Fill(strings[Message::FindingLine], RuleWords(finding.rule, strings), value);
}

}  // namespace cuewright
