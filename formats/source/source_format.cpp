#include "formats/source/source_format.h"

#include "formats/source/ebu_format.h"
#include "formats/source/lyrics_format.h"
#include "formats/source/numbered_pair_format.h"
#include "formats/source/pair_block_format.h"
#include "formats/source/quicktime_format.h"
#include "formats/source/sami_format.h"
#include "formats/source/scc_format.h"
#include "formats/source/subrip_format.h"
#include "formats/source/substation_format.h"
#include "formats/source/tmplayer_format.h"
#include "formats/source/transcript_format.h"
#include "formats/source/ttml_format.h"
#include "formats/source/webvtt_format.h"

namespace cuewright {
namespace {

using Made = std::unique_ptr<SourceFormat>;

/// Makes the rules that need no settings, with what tells variants of a format apart.
template <class Format, auto... kVariant>
Made Plain(const SourceSettings&) {
  return std::make_unique<Format>(kVariant...);
}

/// The same for rules that need settings.
template <class Format, auto... kVariant>
Made With(const SourceSettings& settings) {
  return std::make_unique<Format>(settings, kVariant...);
}

struct Maker {
  TextView identifier;
  Made (*make)(const SourceSettings& settings);
};

constexpr Maker kMakers[] = {
    {u"ADVANCEDSSA", Plain<SubStationFormat, SubStationVersion::V4Plus>},
    {u"MICRODVD", With<NumberedPairFormat, NumberedPairFormat::Variant::MicroDvd>},
    {u"MPL2", With<NumberedPairFormat, NumberedPairFormat::Variant::Mpl2>},
    {u"SUBVIEWER2", Plain<PairBlockFormat, PairBlockFormat::Variant::SubViewer2>},
    {u"SUBVIEWER2SP", Plain<PairBlockFormat, PairBlockFormat::Variant::SubViewer2>},
    {u"YOUTUBESBV", Plain<PairBlockFormat, PairBlockFormat::Variant::Sbv>},
    {u"SUBSTATIONALPHA", Plain<SubStationFormat, SubStationVersion::V4>},
    {u"EBUSTL", Plain<EbuFormat>},
    {u"KARAOKELRC", With<LyricsFormat>},
    {u"QUICKTIMETEXT", With<QuickTimeFormat>},
    {u"SAMI", With<SamiFormat>},
    {u"SCC", Plain<SccFormat>},
    {u"SUBRIP", Plain<SubRipFormat>},
    {u"TMPLAYER", With<TmPlayerFormat, TmPlayerFormat::Dialect::Rows>},
    {u"TMPLAYERPLUS", With<TmPlayerFormat, TmPlayerFormat::Dialect::Equals>},
    {u"TMPLAYERCOLON", With<TmPlayerFormat, TmPlayerFormat::Dialect::Colon>},
    {u"TRANSCRIPTJSON", Plain<TranscriptFormat>},
    {u"TTML", With<TtmlFormat>},
    {u"WEBVTT", Plain<WebVttFormat>},
    {u"WEBVTT_RSS", Plain<WebVttFormat>},
};

}  // namespace

std::string SourceFormat::NumberField(int number, std::string_view) const { return std::to_string(number); }

std::unique_ptr<SourceFormat> MakeSourceFormat(TextView identifier, const SourceSettings& settings) {
  for (const Maker& maker : kMakers) {
    if (maker.identifier == identifier) return maker.make(settings);
  }
  return nullptr;
}

}  // namespace cuewright
