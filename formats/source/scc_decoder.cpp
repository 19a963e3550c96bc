#include "formats/source/scc_decoder.h"

#include "formats/source/scc_characters.h"

namespace cuewright {
namespace {

/// The bits of a byte without that of its parity.
constexpr std::uint8_t kSevenBits = 0x7F;
/// Tells the second channel of a field from the first, and what is left of a byte without it.
constexpr std::uint8_t kChannelBit = 0x08;
constexpr std::uint8_t kAllButChannel = 0xF7;

/// The upper of the two rows, from 0, that the first byte of a preamble can mean.
int RowOfPreamble(std::uint8_t first, bool second) {
  constexpr std::array<int, 8> kRows = {10, 0, 2, 11, 13, 4, 6, 8};
  const int row = kRows[first & 7];
  // Row 11 stands alone.
  return first == 0x10 ? row : row + (second ? 1 : 0);
}

}  // namespace

std::optional<CaptionDecoder::Shown> CaptionDecoder::Take(std::uint16_t word, std::int64_t now) {
  const std::uint8_t first = word >> 8 & kSevenBits;
  const std::uint8_t second = word & kSevenBits;
  if (first >= 0x10 && first < 0x20) {
    // Control words are sent twice, in case one is lost.
    if (doubled_ == word) {
      doubled_ = 0;
      return {};
    }
    doubled_ = word;
    return Control(first, second, now);
  }
  doubled_ = first == 0 && second == 0 ? doubled_ : std::uint16_t{0};
  // Bytes below the printable ones are data of other services.
  if (!listening_ || first < 0x20) return {};
  Put(BasicCaptionCharacter(first), now);
  if (second >= 0x20) Put(BasicCaptionCharacter(second), now);
  return {};
}

std::optional<CaptionDecoder::Shown> CaptionDecoder::Control(std::uint8_t first, std::uint8_t second,
                                                             std::int64_t now) {
  const std::uint8_t channel = first & kChannelBit;
  if (!channel_) channel_ = channel;
  listening_ = channel == *channel_;
  if (!listening_) return {};
  first &= kAllButChannel;
  if (second >= 0x40) {
    Preamble(first, second);
  } else if ((first == 0x14 || first == 0x15) && second >= 0x20 && second < 0x30) {
    return Command(second, now);
  } else if (first == 0x17 && second >= 0x21 && second <= 0x23) {
    Written().Skip(second & 3);
  } else if (first == 0x11 && second >= 0x30) {
    Put(SpecialCaptionCharacter(second), now);
  } else if (first == 0x11 && second >= 0x20) {
    MidRow(second);
  } else if ((first == 0x12 || first == 0x13) && second >= 0x20) {
    // An extended character replaces the plain letter sent before it, which older decoders show.
    Written().Backspace();
    Put(ExtendedCaptionCharacter(first & 1, second), now);
  }
  return {};
}

std::optional<CaptionDecoder::Shown> CaptionDecoder::Command(std::uint8_t second, std::int64_t now) {
  std::optional<Shown> gone;
  switch (second) {
    case 0x20:  // resume caption loading
      mode_ = Mode::PopOn;
      break;
    case 0x21:
      Written().Backspace();
      break;
    case 0x24:  // delete to end of row
      Written().ClearToEnd();
      break;
    case 0x25:
    case 0x26:
    case 0x27:  // roll-up captions of two to four rows
      return BeginRollUp(now);
    case 0x29:  // resume direct captioning
      gone = TakeOff(now);
      mode_ = Mode::PaintOn;
      break;
    case 0x2A:
    case 0x2B:
      mode_ = Mode::Other;
      break;
    case 0x2C:  // erase displayed memory
      gone = TakeOff(now);
      break;
    case 0x2D:
      return mode_ == Mode::RollUp ? RollUp(now) : gone;
    case 0x2E:  // erase non-displayed memory
      screens_[1 - seen_].Clear();
      break;
    case 0x2F:  // end of caption: the memories change places
      return ShowLoaded(now);
    default:
      break;
  }
  return gone;
}

std::optional<CaptionDecoder::Shown> CaptionDecoder::BeginRollUp(std::int64_t now) {
  std::optional<Shown> gone;
  if (mode_ != Mode::RollUp) {
    gone = TakeOff(now);
    baseRow_ = CaptionScreen::kRows - 1;
    screens_[1 - seen_].Clear();
  }
  mode_ = Mode::RollUp;
  Written().MoveTo(baseRow_, 0);
  return gone;
}

std::optional<CaptionDecoder::Shown> CaptionDecoder::ShowLoaded(std::int64_t now) {
  std::optional<Shown> gone = TakeOff(now);
  seen_ = 1 - seen_;
  start_ = now;
  mode_ = Mode::PopOn;
  return gone;
}

/// Each line that rolls up is a caption of its own, up to where the next one begins: the rows above repeat it.
std::optional<CaptionDecoder::Shown> CaptionDecoder::RollUp(std::int64_t now) {
  std::optional<Shown> gone = TakeOff(now);
  Written().MoveTo(baseRow_, 0);
  pen_ = {};
  return gone;
}

void CaptionDecoder::Preamble(std::uint8_t first, std::uint8_t second) {
  const int row = RowOfPreamble(first, (second & 0x20) != 0);
  const std::uint8_t attribute = second >> 1 & 0x0F;
  constexpr int kItalics = 7;
  pen_ = {};
  pen_.underline = (second & 1) != 0;
  pen_.italic = attribute == kItalics;
  if (attribute < kItalics) pen_.colour = attribute;
  if (mode_ == Mode::RollUp) baseRow_ = row;
  Written().MoveTo(row, attribute > kItalics ? (attribute - kItalics - 1) * 4 : 0);
}

void CaptionDecoder::MidRow(std::uint8_t second) {
  const std::uint8_t attribute = second >> 1 & 0x07;
  constexpr int kItalics = 7;
  pen_.italic = attribute == kItalics;
  pen_.underline = (second & 1) != 0;
  if (attribute != kItalics) pen_.colour = attribute;
  // The code takes a place on the screen.
  if (mode_ != Mode::Other) Written().Put(u' ', pen_);
}

void CaptionDecoder::Put(char16_t character, std::int64_t now) {
  if (mode_ == Mode::Other) return;
  if (mode_ != Mode::PopOn && Written().Blank()) start_ = now;
  Written().Put(character, pen_);
}

std::optional<CaptionDecoder::Shown> CaptionDecoder::TakeOff(std::int64_t now) {
  CaptionScreen& screen = screens_[seen_];
  if (screen.Blank()) return {};
  Shown shown{start_, now, screen.Seen(separator_)};
  screen.Clear();
  if (shown.text.runs.empty()) return {};
  return shown;
}

}  // namespace cuewright
