#include "forms/encoding_choice.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/counting.h"
#include "forms/notices.h"

namespace cuewright {
namespace {

/// In the order of the regions.
constexpr std::array kRegions = {Message::RegionUnicode,
                                 Message::RegionWestern,
                                 Message::RegionCentral,
                                 Message::RegionSouth,
                                 Message::RegionNordic,
                                 Message::RegionBaltic,
                                 Message::RegionCeltic,
                                 Message::RegionCyrillic,
                                 Message::RegionGreek,
                                 Message::RegionTurkish,
                                 Message::RegionHebrew,
                                 Message::RegionArabic,
                                 Message::RegionThai,
                                 Message::RegionVietnamese,
                                 Message::RegionChineseSimplified,
                                 Message::RegionChineseTraditional,
                                 Message::RegionJapanese,
                                 Message::RegionKorean};
static_assert(kRegions.size() == static_cast<std::size_t>(EncodingRegion::Korean) + 1);

}  // namespace

void EncodingChoice::Fill(const LangStrings& strings) {
  std::vector<Text> rows;
  for (const ListedEncoding& listed : encodings_) {
    const Text& region = strings[ItemAt(kRegions, listed.region)];
    const Text name = EncodingName(listed.encoding);
    const bool unicode = listed.region == EncodingRegion::Unicode;
    rows.push_back(unicode ? name : cuewright::Fill(strings[Message::EncodingRow], region, name));
  }
  box_.SetItems(std::move(rows));
  box_.SetIndex(0);
}

void EncodingChoice::Choose(const DocumentEncoding& encoding) {
  const int place = PlaceOf(encodings_, encoding, &ListedEncoding::encoding);
  if (place >= 0) box_.SetIndex(place);
}

DocumentEncoding EncodingChoice::Chosen() const {
  const int index = box_.Index();
  return index < 0 ? DocumentEncoding() : ItemAt(encodings_, index).encoding;
}

}  // namespace cuewright
