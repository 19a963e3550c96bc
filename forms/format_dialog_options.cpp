#include <array>

#include "core/numbers.h"
#include "core/product.h"
#include "core/runtime_error.h"
#include "formats/headers.h"
#include "forms/format_dialog.h"

// The way of the options between the store and the controls.

namespace cuewright {
namespace {

constexpr int kBoldWeight = 700;
constexpr int kPlainWeight = 400;
constexpr std::array<TextView, 3> kSamiAlignments = {u"left", u"right", u"center"};
// Of the two lists of SubStation's alignment.
constexpr int kTop = 0;
constexpr int kMiddle = 1;
constexpr int kBottom = 2;
constexpr int kCenter = 2;

/// A store without any value: every option reads as its default.
class NoSettings final : public SettingsReader {
 public:
  Text GetSetting(TextView, TextView, TextView fallback) const override { return Text(fallback); }
};

/// The options of one format.
class Options {
 public:
  Options(const SettingsReader& store, TextView identifier) : store_(store), section_(FormatOptionStore(identifier)) {}

  Text Read(TextView key, TextView fallback) const { return store_.GetSetting(section_, key, fallback); }
  std::int32_t Number(TextView key, TextView fallback) const {
    return RoundToInt32(LeadingNumber(Read(key, fallback)));
  }
  bool Flag(TextView key, TextView fallback) const { return LeadingNumber(Read(key, fallback)) != 0; }

  FontChoice Font(TextView nameKey, TextView sizeKey, TextView size, TextView bold) const {
    FontChoice font;
    font.Name = Read(nameKey, u"Tahoma");
    font.Size = LeadingNumber(Read(sizeKey, size));
    font.Bold = Flag(u"bold", bold);
    font.Weight = font.Bold ? kBoldWeight : kPlainWeight;
    font.Italic = Flag(u"italic", u"0");
    return font;
  }

 private:
  const SettingsReader& store_;
  Text section_;
};

Text FlagDigit(bool flag) { return flag ? u"1" : u"0"; }

/// A size in points with at most one decimal.
Text SizeText(double size) {
  const auto tenths = static_cast<long long>(RoundHalfEven(size * 10));
  return tenths % 10 == 0 ? Decimal(tenths / 10) : Decimal(tenths / 10) + u"." + Decimal(tenths % 10);
}

int HexValue(char16_t c) {
  if (c >= u'0' && c <= u'9') return c - u'0';
  if (c >= u'a' && c <= u'f') return c - u'a' + 10;
  if (c >= u'A' && c <= u'F') return c - u'A' + 10;
  return -1;
}

/// The number that two hexadecimal digits begin with.
std::int32_t HexPair(TextView pair) {
  std::int32_t value = 0;
  for (const char16_t c : pair) {
    const int digit = HexValue(c);
    if (digit < 0) break;
    value = value * 16 + digit;
  }
  return value;
}

}  // namespace

Text WebColor(std::int32_t color) {
  constexpr TextView kDigits = u"0123456789ABCDEF";
  Text text = u"#";
  for (const int shift : {0, 8, 16}) {
    const int component = (color >> shift) & 0xFF;
    text += kDigits[static_cast<std::size_t>(component / 16)];
    text += kDigits[static_cast<std::size_t>(component % 16)];
  }
  return text;
}

std::int32_t ColorOfWeb(TextView text) {
  std::int32_t color = 0;
  for (std::size_t i = 0; i < 3; ++i) {
    const std::size_t at = 1 + 2 * i;
    if (at < text.size()) color |= HexPair(text.substr(at, 2)) << (8 * i);
  }
  return color;
}

void FormatDialog::ReadDvd(const SettingsReader& store) {
  const Options options(store, kDvdSubtitle);
  txtDvdSubtitleDiscID.SetText(options.Read(u"discid", {}));
  txtDvdSubtitleDVDTitle.SetText(options.Read(u"dvdtitle", {}));
  txtDvdSubtitleLang.SetText(options.Read(u"lang", u"EN"));
  txtDvdSubtitleAuthor.SetText(options.Read(u"author", {}));
  txtDvdSubtitleWeb.SetText(options.Read(u"web", kWebSite));
  txtDvdSubtitleInfo.SetText(options.Read(u"info", u"Created with Tessaly Cuewright"));
  txtDvdSubtitleLicense.SetText(options.Read(u"license", {}));
}

void FormatDialog::ReadSami(const SettingsReader& store) {
  const Options options(store, kSami);
  // Bold here, though a header without the key isn't.
  sami_.font = options.Font(u"font", u"size", u"18", u"1");
  samiAlignment_ = options.Read(u"alignment", u"center");
  cmbSamiAlign.SetIndex(-1);
  for (std::size_t i = 0; i < kSamiAlignments.size(); ++i) {
    if (samiAlignment_ == kSamiAlignments[i]) cmbSamiAlign.SetIndex(static_cast<int>(i));
  }
  sami_.alignment = cmbSamiAlign.Index();
  sami_.color = ColorOfWeb(options.Read(u"color", u"#FFFF00"));
  sami_.background = ColorOfWeb(options.Read(u"background", u"#000000"));
  SamplesChanged();
}

void FormatDialog::ReadSsa(const SettingsReader& store) {
  const Options options(store, kSubStationAlpha);
  CarryOn step;
  step([&] { ssa_.font = options.Font(u"fontname", u"fontsize", u"28", u"0"); });
  step([&] { ReadSsaAlignment(options.Number(u"alignment", u"2")); });
  step([&] { ssa_.color = options.Number(u"primarycolour", u"65535"); });
  step([&] { ssa_.background = options.Number(u"backcolour", u"0"); });
  cmbSsaStyle.SetIndex(LeadingNumber(options.Read(u"borderstyle", u"1")) == 1 ? 0 : 1);
  txtSsaOutline.SetText(options.Read(u"outline", u"1"));
  txtSsaShadow.SetText(options.Read(u"shadow", u"1"));
  txtSsaMarginl.SetText(options.Read(u"marginl", u"30"));
  txtSsaMarginr.SetText(options.Read(u"marginr", u"30"));
  txtSsaMarginv.SetText(options.Read(u"marginv", u"30"));
  for (TextBox* box : NumberBoxes()) Limit(*box);
  EnableBorder();
  SamplesChanged();
  if (step.Last()) throw RuntimeError(*step.Last());
}

void FormatDialog::ReadSsaAlignment(std::int32_t alignment) {
  int vertical = kBottom;
  int rest = alignment == 0 ? 1 : alignment;
  if (alignment >= 9) {
    vertical = kMiddle;
    rest = alignment - 8;
  } else if (alignment >= 5) {
    vertical = kTop;
    rest = alignment - 4;
  }
  cmbSsaValign.SetIndex(vertical);
  cmbSsaAlign.SetIndex(rest == 1 ? 0 : rest == 2 ? kCenter : rest == 3 ? 1 : -1);
  ssa_.alignment = cmbSsaAlign.Index();
}

int FormatDialog::SsaAlignment() const {
  const int horizontal = cmbSsaAlign.Index() == 0 ? 1 : cmbSsaAlign.Index() == 1 ? 3 : 2;
  const int vertical = cmbSsaValign.Index() == kTop ? 4 : cmbSsaValign.Index() == kMiddle ? 8 : 0;
  return horizontal + vertical;
}

void FormatDialog::Accept() {
  SaveDvd();
  SaveSami();
  SaveSsa();
  Close();
}

void FormatDialog::SaveDvd() {
  parts_.store.SaveSettings(FormatOptionStore(kDvdSubtitle), {{u"discid", txtDvdSubtitleDiscID.GetText()},
                                                              {u"dvdtitle", txtDvdSubtitleDVDTitle.GetText()},
                                                              {u"lang", txtDvdSubtitleLang.GetText()},
                                                              {u"author", txtDvdSubtitleAuthor.GetText()},
                                                              {u"web", txtDvdSubtitleWeb.GetText()},
                                                              {u"info", txtDvdSubtitleInfo.GetText()},
                                                              {u"license", txtDvdSubtitleLicense.GetText()}});
}

void FormatDialog::SaveSami() {
  const int chosen = cmbSamiAlign.Index();
  const Text alignment = chosen < 0 ? samiAlignment_ : Text(kSamiAlignments[static_cast<std::size_t>(chosen)]);
  parts_.store.SaveSettings(FormatOptionStore(kSami), {{u"font", sami_.font.Name},
                                                       {u"size", SizeText(sami_.font.Size)},
                                                       {u"bold", FlagDigit(sami_.font.Bold)},
                                                       {u"italic", FlagDigit(sami_.font.Italic)},
                                                       {u"alignment", alignment},
                                                       {u"color", WebColor(sami_.color)},
                                                       {u"background", WebColor(sami_.background)}});
}

void FormatDialog::SaveSsa() {
  parts_.store.SaveSettings(FormatOptionStore(kSubStationAlpha),
                            {{u"fontname", ssa_.font.Name},
                             {u"fontsize", SizeText(ssa_.font.Size)},
                             {u"bold", FlagDigit(ssa_.font.Bold)},
                             {u"italic", FlagDigit(ssa_.font.Italic)},
                             {u"alignment", Decimal(SsaAlignment())},
                             {u"primarycolour", Decimal(ssa_.color)},
                             {u"backcolour", Decimal(ssa_.background)},
                             {u"borderstyle", cmbSsaStyle.Index() == 0 ? u"1" : u"3"},
                             {u"outline", txtSsaOutline.GetText()},
                             {u"shadow", txtSsaShadow.GetText()},
                             {u"marginl", txtSsaMarginl.GetText()},
                             {u"marginr", txtSsaMarginr.GetText()},
                             {u"marginv", txtSsaMarginv.GetText()}});
}

void FormatDialog::Reset() {
  const NoSettings none;
  if (picDvdSubtitle.Visible()) ReadDvd(none);
  if (picSami.Visible()) ReadSami(none);
  if (picSsa.Visible()) ReadSsa(none);
}

}  // namespace cuewright
