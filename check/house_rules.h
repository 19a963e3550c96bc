#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "check/break_rules.h"
#include "core/frame_rate.h"
#include "core/ports/files.h"
#include "text/text.h"

namespace cuewright {

/// A stretch of time that a house states in ms or in frames. Frames are counted at the rate of the house's rules. At
/// another rate the stretch has as many frames as last the same time, to the nearest frame and halves down: 2 frames at
/// 24 are 2 at 30 and 4 at 50.
struct HouseTime {
  Ms ms = 0;
  std::int64_t frames = 0;  ///< used in place of `ms` where it isn't 0

  bool Given() const { return ms != 0 || frames != 0; }
};

/// What a house asks of subtitles. A limit of 0 and an empty text ask for nothing.
struct HouseRules {
  Text id;  ///< name of the file, as `--profile` takes it
  Text name;
  Text source;
  Text date;      ///< the day from which the values are, as year, month and day as far as they are known
  Text language;  ///< two letters; empty: any
  FrameRate rate = 24.0;

  HouseTime minDuration;
  HouseTime maxDuration;
  HouseTime minGap;
  HouseTime chainBelow;  ///< gaps shorter than this are closed to the least gap
  double charactersASecond = 0;
  std::vector<double> charactersWithin;  ///< within 1, 2, 3 ... seconds; a longer caption is read at charactersASecond
  double wordsAMinute = 0;
  int charactersALine = 0;
  int characters = 0;  ///< in all lines together
  int lines = 0;
  bool wideLetters = false;  ///< a letter that fills a square counts as two
  int balance = 0;           ///< no line shorter than this many hundredths of the longest one
  int pyramid = 0;           ///< no upper line longer than this many hundredths of the one below it
  Text dash;                 ///< what a line begins with where several people speak
  BreakRules breaks;         ///< where the language lets no line end
  HouseTime shotZone;        ///< a start or an end this near to a shot belongs to it
  HouseTime beforeShot;      ///< how long before the shot an end in the zone is to lie

  /// A stretch in frames at a rate, and in ms; 0 where nothing is asked for.
  std::int64_t FramesOf(const HouseTime& time, const FrameRate& at) const;
  Ms MsOf(const HouseTime& time, const FrameRate& at) const;

  /// How many characters may be read in so many ms; 0 where nothing is asked for. Between the whole seconds for which
  /// limits are stated it lies on straight lines.
  double CharactersIn(double ms) const;
  /// The least time in ms in which so many characters may be read, where something is asked for.
  double MsFor(double count) const;
};

/// The rules that a file states; nothing when the file can't be understood, with the reason in `problem`: "line 3:
/// ...", without the file's name.
std::optional<HouseRules> ReadHouseRules(TextView text, std::string& problem);

/// The house rules that come with the program: one file each.
class HouseRulesShelf {
 public:
  /// `folder` holds "profiles" and "breaks".
  HouseRulesShelf(const Files& files, TextView folder) : files_(files), folder_(folder) {}

  /// The names of all house rules, in alphabetical order.
  std::vector<Text> Ids() const;
  /// The house rules of a name, whatever its case; nothing, with the reason, when there are none of that name or they
  /// can't be read.
  std::optional<HouseRules> Read(TextView id, std::string& problem) const;

 private:
  const Files& files_;
  Text folder_;
};

}  // namespace cuewright
