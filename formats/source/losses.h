#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <string_view>

namespace cuewright {

/// What a caption has that another format may have no means for.
enum class Loss : std::size_t {
  Bold,
  Italic,
  Underline,
  Strike,
  Colour,
  Speaker,
  Position,       ///< top, middle, left, right
  ExactPosition,  ///< coordinates
  Font,
  Size,
  Karaoke,  ///< times inside of a caption
  Ruby,
  Drawing,
  Effect,  ///< borders, turns, fades, movements
  Class,   ///< a style that the file names elsewhere
  Remark,  ///< words that no viewer shows
  Times,
  LineBreak,
  Other,  ///< marks of no other kind
};

/// The place of a kind in the order above.
constexpr std::size_t NumberOf(Loss kind) { return static_cast<std::size_t>(kind); }
inline constexpr std::size_t kLossKinds = NumberOf(Loss::Other) + 1;

/// What a kind is called in English, as "colours".
std::string_view NameOf(Loss kind);

/// All kinds in their order.
inline constexpr auto kAllLosses = [] {
  std::array<Loss, kLossKinds> kinds{};
  for (std::size_t number = 0; number < kLossKinds; ++number) kinds[number] = static_cast<Loss>(number);
  return kinds;
}();

/// What one caption has or loses.
class LossSet {
 public:
  void Add(Loss kind) { kinds_.set(NumberOf(kind)); }
  bool Has(Loss kind) const { return kinds_.test(NumberOf(kind)); }
  bool Any() const { return kinds_.any(); }

 private:
  std::bitset<kLossKinds> kinds_;
};

/// How many captions lose what.
class Losses {
 public:
  std::size_t Of(Loss kind) const { return counts_[NumberOf(kind)]; }
  bool Any() const {
    for (const std::size_t count : counts_) {
      if (count != 0) return true;
    }
    return false;
  }
  void AddCaption(const LossSet& lost) {
    for (const Loss kind : kAllLosses) {
      if (lost.Has(kind)) ++counts_[NumberOf(kind)];
    }
  }

 private:
  std::array<std::size_t, kLossKinds> counts_{};
};

}  // namespace cuewright
