#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "capture/workbench.h"
#include "check/fixes.h"
#include "check/live_findings.h"
#include "core/folders.h"
#include "core/ports/files.h"
#include "core/ports/player.h"
#include "formats/format_state.h"
#include "settings/store.h"

namespace cuewright {

/// A set of house rules that can be chosen.
struct HouseRulesName {
  Text id;
  Text name;
};

/// The house rules that the captions are held against, and what they find.
class HouseCheck {
 public:
  HouseCheck(Workbench bench, const FormatState& formats, const Folders& folders, const Files& files,
             SettingsStore& store, Player& player);

  LiveFindings findings;

  /// The house rules that come with the program, those of no language first.
  std::vector<HouseRulesName> Profiles() const;
  /// Takes other rules and keeps the choice; false, with the reason in `Problem`, when they can't be read.
  bool Choose(TextView id);
  /// Where the shots of the open film begin, in ms and in order; none when that isn't known. Rules that ask for shots
  /// look at them from now on.
  void SetShots(std::vector<Ms> shots);
  const std::vector<Ms>& Shots() const { return shots_; }
  /// Takes the rules of the settings, at the rate of the film or the file: another document has begun.
  void TakeStored();
  const std::string& Problem() const { return problem_; }

  /// The least gap in ms that the rules ask for between two captions; 0 for none.
  Ms LeastGap() const;

  /// What mends a finding, or all.
  std::optional<Proposal> Fix(const Finding& finding) const;
  std::vector<Proposal> FixAll() const;

 private:
  bool Take(TextView id);
  FrameRate RateOfFilm() const;
  /// Another film, or none, may have another rate.
  void FollowFilm();

  Workbench bench_;
  const FormatState& formats_;
  const Folders& folders_;
  const Files& files_;
  SettingsStore& store_;
  Player& player_;
  std::vector<Ms> shots_;
  std::string problem_;
};

/// The rule in the words of the language in force.
const Text& RuleWords(CheckRule rule, const LangStrings& strings);
/// What was found, and what the rule lets through, with their units.
Text ValueWords(const Finding& finding, const LangStrings& strings);
Text LimitWords(const Finding& finding, const LangStrings& strings);
/// All of it in one line, for a tip or a screen reader.
Text FindingWords(const Finding& finding, const LangStrings& strings);

}  // namespace cuewright
