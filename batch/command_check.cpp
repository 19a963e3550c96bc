#include <cmath>
#include <cstdio>

#include "batch/commands.h"
#include "batch/json.h"
#include "check/checker.h"
#include "check/house_rules.h"
#include "platform/child_processes.h"
#include "shots/film_pictures.h"
#include "shots/shots.h"

namespace cuewright {
namespace {

/// A whole number as such, any other to one digit behind the point.
std::string AsNumber(double number) {
  const bool whole = number == std::floor(number);
  char text[32];
  std::snprintf(text, sizeof text, whole ? "%.0f" : "%.1f", number);
  return text;
}

/// Numbers to one digit, and what a word or dash is.
std::string ValueOf(const Finding& finding) {
  return finding.IsOfWords() ? DisplayUtf8(finding.found) : AsNumber(finding.value);
}

std::string LimitOf(const Finding& finding) {
  return finding.IsOfWords() ? DisplayUtf8(finding.wanted) : AsNumber(finding.limit);
}

std::string AsLine(const Finding& finding) {
  return std::to_string(finding.row.Number()) + '\t' + std::string(RuleName(finding.rule)) + '\t' + ValueOf(finding) +
         '\t' + LimitOf(finding) + '\n';
}

std::string AsJson(const Finding& finding) {
  JsonObject object;
  object.Add("row", finding.row.Number()).Add("rule", FromUtf8(RuleName(finding.rule)));
  if (finding.IsOfWords()) return object.Add("value", finding.found).Add("limit", finding.wanted).Line();
  return object.AddRaw("value", AsNumber(finding.value)).AddRaw("limit", AsNumber(finding.limit)).Line();
}

std::string AsLine(const HouseRules& rules) {
  std::string line;
  for (const Text& part : {rules.id, rules.name, rules.language, rules.date, rules.source}) {
    line += (line.empty() ? "" : "\t") + DisplayUtf8(part);
  }
  return line + '\n';
}

std::string AsJson(const HouseRules& rules) {
  const auto ms = [&](const HouseTime& time) { return rules.MsOf(time, rules.rate); };
  return JsonObject()
      .Add("profile", rules.id)
      .Add("name", rules.name)
      .Add("language", rules.language)
      .Add("date", rules.date)
      .Add("source", rules.source)
      .AddRaw("fps", ToUtf8(rules.rate.AsText()))
      .Add("min_duration", ms(rules.minDuration).Count())
      .Add("max_duration", ms(rules.maxDuration).Count())
      .Add("min_gap", ms(rules.minGap).Count())
      .AddRaw("cps", AsNumber(rules.charactersASecond))
      .AddRaw("wpm", AsNumber(rules.wordsAMinute))
      .Add("line_length", rules.charactersALine)
      .Add("length", rules.characters)
      .Add("lines", rules.lines)
      .Line();
}

/// What the captions are checked against beside the rules.
struct Film {
  FrameRate rate;  ///< none: the rate of the profile counts
  std::vector<Ms> shots;
};

/// The film of the call; false, after telling why, when it can't be read.
bool ReadFilm(const Request& request, const HouseRules& rules, Session& session, Film& film) {
  film.rate = request.fps ? FrameRate::FromText(FromUtf8(*request.fps)) : session.Rate();
  if (!request.film) return true;
  PosixProcesses processes;
  film.rate = RateOfFilm(processes, *request.film);
  FilmReading reading;
  if (!film.rate) reading.problem = "the rate of its pictures can't be read";
  if (reading.problem.empty() && rules.shotZone.Given()) {
    ShotMeasurer measurer;
    reading = MeasureFilm(processes, *request.film, measurer, [](std::size_t) { return true; });
    for (const Shot& shot : FindShots(measurer.Measures())) {
      // A fade has no single picture at which it ends.
      if (shot.kind == ShotKind::Cut) film.shots.push_back(shot.At());
    }
  }
  if (!reading.problem.empty()) session.Boxes().Tell(*request.film + u": " + FromUtf8(reading.problem));
  return reading.problem.empty();
}

}  // namespace

int RunProfiles(const Request& request, Session& session, Console& console) {
  const HouseRulesShelf shelf(session.FileSystem(), session.ProgramFolder());
  int status = kExitDone;
  for (const Text& id : shelf.Ids()) {
    std::string problem;
    const std::optional<HouseRules> rules = shelf.Read(id, problem);
    if (rules) {
      console.Out(request.json ? AsJson(*rules) : AsLine(*rules));
    } else {
      console.Complain("cuewright-batch: " + problem);
      status = kExitFailed;
    }
  }
  return status;
}

int RunCheck(const Request& request, Session& session, Console& console) {
  std::string problem;
  const std::optional<HouseRules> rules =
      HouseRulesShelf(session.FileSystem(), session.ProgramFolder()).Read(request.profile, problem);
  if (!rules) {
    console.Complain("cuewright-batch: " + problem + "; 'cuewright-batch profiles' lists them.");
    return kExitUsage;
  }
  if (!session.Load(request.files.front())) return kExitFailed;
  const bool whole = !session.LoadedWithTrouble();
  Film film;
  if (!ReadFilm(request, *rules, session, film)) return kExitFailed;
  Checker checker(*rules, film.rate, std::move(film.shots));
  const std::vector<Finding> findings = checker.CheckAll(session.Captions());
  for (const Finding& finding : findings) console.Out(request.json ? AsJson(finding) : AsLine(finding));
  if (!whole) return kExitFailed;
  return findings.empty() ? kExitDone : kExitFindings;
}

}  // namespace cuewright
