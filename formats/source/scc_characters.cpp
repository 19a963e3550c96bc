#include "formats/source/scc_characters.h"

#include <string_view>

namespace cuewright {
namespace {

constexpr std::u16string_view kSpecial = u"®°½¿™¢£♪à èâêîôû";
constexpr std::u16string_view kExtended[2] = {
    u"ÁÉÓÚÜü‘¡*'—©℠•“”ÀÂÇÈÊËëÎÏïÔÙùÛ«»",
    u"ÃãÍÌìÒòÕõ{}\\^_¦~ÄäÖöß¥¤│ÅåØø┌┐└┘",
};
static_assert(kSpecial.size() == 16 && kExtended[0].size() == 32 && kExtended[1].size() == 32);

}  // namespace

char16_t BasicCaptionCharacter(std::uint8_t byte) {
  switch (byte) {
    case 0x2A:
      return u'á';
    case 0x5C:
      return u'é';
    case 0x5E:
      return u'í';
    case 0x5F:
      return u'ó';
    case 0x60:
      return u'ú';
    case 0x7B:
      return u'ç';
    case 0x7C:
      return u'÷';
    case 0x7D:
      return u'Ñ';
    case 0x7E:
      return u'ñ';
    case 0x7F:
      return u'█';
    default:
      return byte;
  }
}

char16_t SpecialCaptionCharacter(std::uint8_t byte) { return kSpecial[byte & 0x0F]; }

char16_t ExtendedCaptionCharacter(int set, std::uint8_t byte) { return kExtended[set & 1][byte & 0x1F]; }

}  // namespace cuewright
