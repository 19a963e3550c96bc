#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "core/ms.h"
#include "formats/source/source_format.h"

namespace cuewright {

/// How long a caption lasts when the file doesn't tell its end.
enum class Lasts {
  ForItsLength,  ///< as its length asks for, at most to the next start
  UntilTheNext,  ///< to the next start; the last one as its length asks for
};

/// The end of a caption whose file tells none and no next one: as its length asks for.
Ms LatestEnd(Ms start, TextView text, const std::array<std::int16_t, 3>& durationPerCharacter);

/// Takes captions of which many have a start alone, and hands them on in their order with their ends: that of the file,
/// else the next start or what their length asks for. Those whose end depends on what is still to come wait for
/// `Flush`, and all behind them.
class OpenEnded {
 public:
  OpenEnded(const SourceSettings& settings, SourceSink& sink, Lasts lasts = Lasts::ForItsLength)
      : durations_(settings.durationPerCharacter), sink_(sink), lasts_(lasts) {}

  void Begin(Ms start, Text text, const SourceRecord& record);
  /// The record of the caption that began last names its end: it counts, whatever it is.
  void SetEnd(Ms end, Stretch field);
  /// The caption that began last ends here. `field` is the time in the file, `behind` where the record goes on to.
  /// False when there is none, its end is known or it begins later. As `Clear` for all others.
  bool End(Ms end, Stretch field, std::size_t behind);
  /// Nothing is shown from this time on: it ends the captions without an end that no earlier such time ends.
  void Clear(Ms at);
  /// True when captions of the file say when they end.
  bool AnyEnds() const { return anyEnds_; }
  void Flush();

 private:
  struct Pending {
    Ms start = 0;
    Ms end = 0;
    Text text;
    SourceRecord record;
  };

  /// A time at which captions end.
  struct Stop {
    Ms at = 0;
    bool clears = false;  ///< no caption begins here
  };

  void HandOn();

  std::array<std::int16_t, 3> durations_;
  SourceSink& sink_;
  Lasts lasts_;
  std::vector<Pending> captions_;  // not handed on yet
  std::vector<Stop> stops_;
  bool anyOpen_ = false;  // one of the captions, not counting the last, has no end
  bool anyEnds_ = false;
  bool stopped_ = false;
};

}  // namespace cuewright
