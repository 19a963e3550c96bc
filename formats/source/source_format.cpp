#include "formats/source/source_format.h"

#include "formats/source/subrip_format.h"
#include "formats/source/substation_format.h"
#include "formats/source/webvtt_format.h"

namespace cuewright {
namespace {

template <class Format>
std::unique_ptr<SourceFormat> Make() {
  return std::make_unique<Format>();
}

template <SubStationVersion kVersion>
std::unique_ptr<SourceFormat> MakeSubStation() {
  return std::make_unique<SubStationFormat>(kVersion);
}

struct Maker {
  TextView identifier;
  std::unique_ptr<SourceFormat> (*make)();
};

constexpr Maker kMakers[] = {
    {u"ADVANCEDSSA", MakeSubStation<SubStationVersion::V4Plus>},
    {u"SUBSTATIONALPHA", MakeSubStation<SubStationVersion::V4>},
    {u"SUBRIP", Make<SubRipFormat>},
    {u"WEBVTT", Make<WebVttFormat>},
    {u"WEBVTT_RSS", Make<WebVttFormat>},
};

}  // namespace

std::string SourceFormat::NumberField(int number, std::string_view) const { return std::to_string(number); }

std::unique_ptr<SourceFormat> MakeSourceFormat(TextView identifier) {
  for (const Maker& maker : kMakers) {
    if (maker.identifier == identifier) return maker.make();
  }
  return nullptr;
}

}  // namespace cuewright
