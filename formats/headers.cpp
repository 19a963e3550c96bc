#include "formats/headers.h"

#include "core/numbers.h"
#include "core/product.h"
#include "formats/catalogue.h"

namespace cuewright {
namespace {

constexpr TextView kYellow = u"65535";

/// Options of one format and the header that grows from them.
class HeaderWriter {
 public:
  HeaderWriter(const SettingsReader& settings, TextView identifier)
      : settings_(settings), section_(FormatOptionStore(identifier)) {}

  Text Option(TextView key, TextView fallback) const { return settings_.GetSetting(section_, key, fallback); }
  bool IsOne(TextView key) const { return LeadingNumber(Option(key, u"0")) == 1; }

  void Line(const Text& line) {
    if (!header_.empty()) header_ += kLineEnd;
    header_ += line;
  }

  Text Take() { return std::move(header_); }

 private:
  const SettingsReader& settings_;
  Text section_;
  Text header_;
};

Text DvdSubtitleHeader(HeaderWriter header) {
  header.Line(u"{HEAD");
  header.Line(u"DISCID=" + header.Option(u"discid", u""));
  header.Line(u"DVDTITLE=" + header.Option(u"dvdtitle", u""));
  header.Line(u"CODEPAGE=1250");
  header.Line(u"FORMAT=ASCII");
  header.Line(u"LANG=" + header.Option(u"lang", u"EN"));
  header.Line(u"TITLE=1");
  header.Line(u"ORIGINAL=ORIGINAL");
  header.Line(u"AUTHOR=" + header.Option(u"author", u""));
  header.Line(u"WEB=" + header.Option(u"web", kWebSite));
  header.Line(u"INFO=" + header.Option(u"info", u"Created with Tessaly Cuewright"));
  header.Line(u"LICENSE=" + header.Option(u"license", u""));
  header.Line(u"}");
  return header.Take();
}

Text SamiHeader(HeaderWriter header) {
  Text style;
  if (header.IsOne(u"bold")) style += u"font-weight: bold; ";
  if (header.IsOne(u"italic")) style += u"font-style: italic; ";
  header.Line(u"<SAMI>");
  header.Line(u"<Head>");
  header.Line(u"   <STYLE TYPE=\"Text/css\">");
  header.Line(u"   <!--");
  header.Line(u"      P {margin-left: 28pt; margin-right: 28pt; font-size: " + header.Option(u"size", u"18") + u"pt;");
  header.Line(u"      text-align: " + header.Option(u"alignment", u"center") + u"; font-family: " +
              header.Option(u"font", u"Tahoma") + u"; " + style + u"color: " + header.Option(u"color", u"#FFFF00") +
              u"; background-color: " + header.Option(u"background", u"#000000") + u";}");
  header.Line(u"      .SUBTTL {Name: 'Subtitles'; Lang: en-US; SAMIType: CC;}");
  header.Line(u"   -->");
  header.Line(u"   </Style>");
  header.Line(u"</Head>");
  header.Line(u"<BODY>");
  return header.Take();
}

Text SubStationStyle(const HeaderWriter& header, std::int16_t charset) {
  Text style = u"Style: Default";
  const auto field = [&](TextView value) { style.append(u",").append(value); };
  field(header.Option(u"fontname", u"Tahoma"));
  field(header.Option(u"fontsize", u"28"));
  // A single colour is stored; all three places of the header show it.
  for (int i = 0; i < 3; ++i) field(header.Option(u"primarycolour", kYellow));
  field(header.Option(u"backcolour", u"0"));
  field(header.Option(u"bold", u"0"));
  field(header.Option(u"italic", u"0"));
  field(header.Option(u"borderstyle", u"1"));
  field(header.Option(u"outline", u"1"));
  field(header.Option(u"shadow", u"1"));
  field(header.Option(u"alignment", u"2"));
  for (const TextView margin : {TextView(u"marginl"), TextView(u"marginr"), TextView(u"marginv")}) {
    field(header.Option(margin, u"30"));
  }
  field(u"0");
  field(Decimal(charset));
  return style;
}

Text SubStationHeader(HeaderWriter header, std::int16_t charset) {
  header.Line(u"[Script Info]");
  header.Line(u"; Subtitle script generated with Tessaly Cuewright");
  header.Line(u"; " + Text(kWebSite) + u"/cuewright.php");
  header.Line(u"Title: <untitled>");
  header.Line(u"Original Script: <unknown>");
  header.Line(u"ScriptType: v4.00");
  header.Line(u"");
  header.Line(u"[V4 Styles]");
  header.Line(
      u"Format: Name, Fontname, Fontsize, PrimaryColour, SecondaryColour, TertiaryColour, BackColour, Bold, Italic, "
      u"BorderStyle, Outline, Shadow, Alignment, MarginL, MarginR, MarginV, AlphaLevel, Encoding");
  header.Line(SubStationStyle(header, charset));
  header.Line(u"");
  header.Line(u"[Events]");
  header.Line(u"Format: Marked, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text");
  return header.Take();
}

}  // namespace

Text FormatOptionStore(TextView identifier) { return u"Cuewright\\" + Text(identifier); }

Text BuildBuiltInHeader(TextView identifier, const SettingsReader& settings, std::int16_t charset) {
  if (identifier == kDvdSubtitle) return DvdSubtitleHeader({settings, identifier});
  if (identifier == kSami) return SamiHeader({settings, identifier});
  if (identifier == kSubStationAlpha) return SubStationHeader({settings, identifier}, charset);
  return {};
}

}  // namespace cuewright
