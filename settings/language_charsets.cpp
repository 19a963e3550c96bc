#include "settings/languages.h"

namespace cuewright {
namespace {

struct CharsetRow {
  int codePage;
  std::int16_t number;
  TextView name;
};

constexpr CharsetRow kCharsets[] = {
    {874, 222, u"THAI_CHARSET"},      {932, 128, u"JAPANESE_SHIFTJIS"},        {936, 134, u"SIMPLIFIED_CHINESE_GB2312"},
    {949, 129, u"KOREAN_HANGUL"},     {950, 136, u"TRADITIONAL_CHINESE_BIG5"}, {1250, 238, u"EASTERN_EUROPEAN"},
    {1251, 204, u"CYRILLIC_CHARSET"}, {1252, 0, u"WESTERN_EUROPEAN_LATIN"},    {1253, 161, u"GREEK_CHARSET"},
    {1254, 162, u"TURKISH_CHARSET"},  {1255, 177, u"HEBREW_CHARSET"},          {1256, 178, u"ARABIC_CHARSET"},
    {1257, 186, u"BALTIC_CHARSET"},   {1258, 163, u"VIETNAMESE_CHARSET"},      {1361, 130, u"KOREAN_JOHAB"}};

}  // namespace

Charset CharsetOfCodePage(int codePage) {
  for (const CharsetRow& row : kCharsets) {
    if (row.codePage == codePage) return {row.number, Text(row.name)};
  }
  return {0, u"WESTERN_EUROPEAN_LATIN"};
}

}  // namespace cuewright
