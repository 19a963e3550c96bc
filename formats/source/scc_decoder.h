#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "formats/source/scc_screen.h"

namespace cuewright {

/// Decodes the two-byte words of line-21 captions (CEA-608) of one channel and tells what is seen from when to when.
/// Times are whatever the caller counts in.
class CaptionDecoder {
 public:
  struct Shown {
    std::int64_t start = 0;
    std::int64_t end = 0;
    StyledText text;
  };

  explicit CaptionDecoder(TextView separator) : separator_(separator) {}

  /// Takes the word that is sent at `now`; returns the caption that it takes off the screen, if any.
  std::optional<Shown> Take(std::uint16_t word, std::int64_t now);
  /// Ends the transmission; returns the caption that is still on the screen.
  std::optional<Shown> End(std::int64_t now) { return TakeOff(now); }

 private:
  /// How incoming characters are used; `Other` stands for text that is no caption.
  enum class Mode { PopOn, RollUp, PaintOn, Other };

  std::optional<Shown> Control(std::uint8_t first, std::uint8_t second, std::int64_t now);
  std::optional<Shown> Command(std::uint8_t second, std::int64_t now);
  /// Captions roll up from now on, in two to four rows.
  std::optional<Shown> BeginRollUp(std::int64_t now);
  std::optional<Shown> RollUp(std::int64_t now);
  /// What was loaded unseen is shown: the two memories change places.
  std::optional<Shown> ShowLoaded(std::int64_t now);
  void Preamble(std::uint8_t first, std::uint8_t second);
  void MidRow(std::uint8_t second);
  void Put(char16_t character, std::int64_t now);
  std::optional<Shown> TakeOff(std::int64_t now);
  CaptionScreen& Written() { return mode_ == Mode::PopOn ? screens_[1 - seen_] : screens_[seen_]; }

  TextView separator_;
  std::array<CaptionScreen, 2> screens_;
  std::size_t seen_ = 0;    // which of them is displayed
  std::int64_t start_ = 0;  // of what is displayed
  Mode mode_ = Mode::PopOn;
  int baseRow_ = CaptionScreen::kRows - 1;
  CaptionPen pen_;
  std::uint16_t doubled_ = 0;            // the last control word, whose repetition is to be ignored; 0: none
  std::optional<std::uint8_t> channel_;  // the bit of the channel that is decoded, once one was met
  bool listening_ = true;                // the words that come belong to that channel
};

}  // namespace cuewright
