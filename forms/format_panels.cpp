#include "forms/format_panels.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/counting.h"
#include "core/numbers.h"
#include "core/product.h"
#include "core/runtime_error.h"
#include "external/common_dialogs.h"
#include "formats/catalogue.h"
#include "formats/headers.h"
#include "text/digits.h"

namespace cuewright {
namespace {

constexpr int kBoldWeight = 700;
constexpr int kPlainWeight = 400;

Text FlagDigit(bool flag) { return flag ? u"1" : u"0"; }

/// A size in points with at most one decimal.
Text SizeText(double size) {
  const long long tenths = std::llround(RoundHalfEven(size * 10));
  return tenths % 10 == 0 ? Decimal(tenths / 10) : Decimal(tenths / 10) + u"." + Decimal(tenths % 10);
}

constexpr std::array<TextView, 3> kSamiAlignments = {u"left", u"right", u"center"};

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

constexpr int kMostPixels = 1200;
// The entries of the two lists of the alignment.
constexpr int kTop = 0;
constexpr int kMiddle = 1;
constexpr int kBottom = 2;
constexpr int kLeft = 0;
constexpr int kRight = 1;
constexpr int kCenter = 2;

void Limit(TextBox& box) {
  if (LeadingNumber(box.GetText()) > kMostPixels) box.SetText(Decimal(kMostPixels));
}

}  // namespace

Text FormatPanel::Value(const SettingsReader& store, TextView key, TextView fallback) const {
  return store.GetSetting(FormatOptionStore(identifier_), key, fallback);
}

void FormatPanel::Read(const SettingsReader& store) {
  for (const Field& field : fields_) field.box->SetText(Value(store, field.key, field.fallback));
}

void FormatPanel::Save(SettingsStore& store) const {
  std::vector<SettingsStore::KeyValue> values = FurtherValues();
  for (const Field& field : fields_) values.emplace_back(field.key, field.box->GetText());
  store.SaveSettings(FormatOptionStore(identifier_), values);
}

void SamplePanel::ReadFont(const SettingsReader& store) {
  FontChoice font;
  font.Name = Value(store, font_.name, u"Tahoma");
  font.Size = LeadingNumber(Value(store, font_.size, font_.defaultSize));
  font.Bold = LeadingNumber(Value(store, u"bold", font_.defaultBold)) != 0;
  font.Weight = font.Bold ? kBoldWeight : kPlainWeight;
  font.Italic = LeadingNumber(Value(store, u"italic", u"0")) != 0;
  sample_.font = font;
}

std::vector<SettingsStore::KeyValue> SamplePanel::FontValues() const {
  return {{Text(font_.name), sample_.font.Name},
          {Text(font_.size), SizeText(sample_.font.Size)},
          {u"bold", FlagDigit(sample_.font.Bold)},
          {u"italic", FlagDigit(sample_.font.Italic)}};
}

void SamplePanel::WireSample(Button& font, Button& color, Button& background, ComboBox& alignment) {
  font.Clicked.Connect([this] {
    if (ShowFontDialog(pickers_, sample_.font, 0, 0)) SampleChanged();
  });
  color.Clicked.Connect([this] { PickColor(sample_.color); });
  background.Clicked.Connect([this] { PickColor(sample_.background); });
  alignment.Chosen.Connect([this, &alignment] {
    sample_.alignment = alignment.Index();
    SampleChanged();
  });
}

void SamplePanel::PickColor(std::int32_t& color) {
  const std::int32_t chosen = ShowColorDialog(pickers_, color);
  if (chosen == kNoColor) return;
  color = chosen;
  SampleChanged();
}

void SamplePanel::ShowAlignments(ComboBox& box, const LangStrings& strings) {
  box.SetItems({strings[Message::Left], strings[Message::Right], strings[Message::Center]});
  box.SetToolTip(strings[Message::HorizontalAlignmentHint]);
}

DvdSubtitlePanel::DvdSubtitlePanel(Form& window) : FormatPanel(window, kDvdSubtitle) {
  fields_ = {{&discId.box, u"discid", {}},    {&title.box, u"dvdtitle", {}},
             {&language.box, u"lang", u"EN"}, {&author.box, u"author", {}},
             {&web.box, u"web", kWebSite},    {&info.box, u"info", u"Created with Tessaly Cuewright"},
             {&license.box, u"license", {}}};
}

void DvdSubtitlePanel::ApplyTexts(const LangStrings& strings) {
  constexpr Message kNames[] = {Message::DiscId, Message::DvdTitle, Message::DvdLanguage, Message::DvdAuthor,
                                Message::DvdWeb, Message::DvdInfo,  Message::DvdLicense};
  for (std::size_t i = 0; i < std::size(kNames); ++i) {
    LabelledBox& row = *Boxes()[i];
    row.label.SetText(strings[kNames[i]]);
    row.box.SetSpokenName(WithoutAccessKey(strings[kNames[i]]));
  }
}

Text WebColor(std::int32_t color) {
  constexpr TextView kDigits = u"0123456789ABCDEF";
  Text text = u"#";
  for (const int shift : {0, 8, 16}) {
    const int component = (color >> shift) & 0xFF;
    text += ItemAt(kDigits, component / 16);
    text += ItemAt(kDigits, component % 16);
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

// Bold by default here, though a header without the key isn't.
SamiPanel::SamiPanel(Form& window, Pickers& pickers)
    : SamplePanel(window, kSami, {u"font", u"size", u"18", u"1"}, pickers) {
  WireSample(cmdSamiFont, cmdSamiColor, cmdSamiBackground, cmbSamiAlign);
}

void SamiPanel::ApplyTexts(const LangStrings& strings) {
  const ControlText rows[] = {{cmdSamiFont, Message::FontButton},
                              {cmdSamiColor, Message::ColorButton},
                              {cmdSamiBackground, Message::BackgroundButton},
                              {lblSamiAlign, Message::Alignment},
                              {lblSamiSample, Message::Sample},
                              {lblSamiNote, Message::SampleReflectsHint}};
  ShowTexts(rows, strings);
  ShowAlignments(cmbSamiAlign, strings);
  const ControlText spoken[] = {{cmbSamiAlign, Message::Alignment}, {picSamiSample, Message::Sample}};
  SpeakTexts(spoken, strings);
}

void SamiPanel::Read(const SettingsReader& store) {
  ReadFont(store);
  alignment_ = Value(store, u"alignment", u"center");
  cmbSamiAlign.SetIndex(PlaceOf(kSamiAlignments, alignment_));
  sample_.alignment = cmbSamiAlign.Index();
  sample_.color = ColorOfWeb(Value(store, u"color", u"#FFFF00"));
  sample_.background = ColorOfWeb(Value(store, u"background", u"#000000"));
  AnnounceSample();
}

std::vector<SettingsStore::KeyValue> SamiPanel::FurtherValues() const {
  const int chosen = cmbSamiAlign.Index();
  std::vector<SettingsStore::KeyValue> values = FontValues();
  values.insert(values.end(), {{u"alignment", chosen < 0 ? alignment_ : Text(ItemAt(kSamiAlignments, chosen))},
                               {u"color", WebColor(sample_.color)},
                               {u"background", WebColor(sample_.background)}});
  return values;
}

SsaPanel::SsaPanel(Form& window, Pickers& pickers)
    : SamplePanel(window, kSubStationAlpha, {u"fontname", u"fontsize", u"28", u"0"}, pickers) {
  fields_ = {{&txtSsaOutline, u"outline", u"1"},
             {&txtSsaShadow, u"shadow", u"1"},
             {&txtSsaMarginl, u"marginl", u"30"},
             {&txtSsaMarginr, u"marginr", u"30"},
             {&txtSsaMarginv, u"marginv", u"30"}};
  for (const Field& field : fields_) {
    field.box->KeyPress.Connect([](KeyEvent& key) {
      if (key.code != kKeyBackspace && !IsDigit(key.character)) key.handled = true;
    });
    field.box->Edited.Connect([box = field.box] { Limit(*box); });
  }
  WireSample(cmdSsaFont, cmdSsaColor, cmdSsaBack, cmbSsaAlign);
  cmbSsaStyle.Chosen.Connect([this] { EnableBorder(); });
}

void SsaPanel::ApplyTexts(const LangStrings& strings) {
  const ControlText rows[] = {{cmdSsaFont, Message::FontButton},
                              {cmdSsaColor, Message::ColorButton},
                              {fraSsaAlign, Message::Alignment},
                              {fraSsaBorder, Message::Border},
                              {lblSsaStyle, Message::Style},
                              {lblSsaOutline, Message::Outline},
                              {lblSsaShadow, Message::Shadow},
                              {cmdSsaBack, Message::BackgroundButton},
                              {fraSsaMargins, Message::Margins},
                              {lblSsaMarginl, Message::Left},
                              {lblSsaMarginr, Message::Right},
                              {lblSsaSample, Message::Sample},
                              {lblSsaNote, Message::SampleReflectsHint}};
  ShowTexts(rows, strings);
  // The margin is that of the edge at which the captions stand.
  lblSsaMarginv.SetText(strings[Message::Top] + u"/" + strings[Message::Bottom]);
  ShowAlignments(cmbSsaAlign, strings);
  cmbSsaValign.SetItems({strings[Message::Top], strings[Message::Center], strings[Message::Bottom]});
  cmbSsaValign.SetToolTip(strings[Message::VerticalAlignmentHint]);
  cmbSsaStyle.SetItems({strings[Message::Outline], strings[Message::OpaqueBorder]});
  SpeakNames(strings);
}

void SsaPanel::SpeakNames(const LangStrings& strings) {
  const ControlText rows[] = {{cmbSsaAlign, Message::HorizontalAlignmentHint},
                              {cmbSsaValign, Message::VerticalAlignmentHint},
                              {picSsaSample, Message::Sample},
                              {picSsaBack, Message::BackgroundButton},
                              {imgSsaCharset, Message::WhatsThis}};
  SpeakTexts(rows, strings);
  const auto name = [&](Control& control, Message group, const Text& text) {
    control.SetSpokenName(WithoutAccessKey(strings[group] + u", " + text));
  };
  name(cmbSsaStyle, Message::Border, strings[Message::Style]);
  name(txtSsaOutline, Message::Border, strings[Message::Outline]);
  name(txtSsaShadow, Message::Border, strings[Message::Shadow]);
  name(txtSsaMarginl, Message::Margins, strings[Message::Left]);
  name(txtSsaMarginr, Message::Margins, strings[Message::Right]);
  name(txtSsaMarginv, Message::Margins, lblSsaMarginv.GetText());
}

std::int32_t SsaPanel::Number(const SettingsReader& store, TextView key, TextView fallback) const {
  return RoundToInt32(LeadingNumber(Value(store, key, fallback)));
}

void SsaPanel::Read(const SettingsReader& store) {
  SamplePanel::Read(store);
  for (const Field& field : fields_) Limit(*field.box);
  cmbSsaStyle.SetIndex(LeadingNumber(Value(store, u"borderstyle", u"1")) == 1 ? 0 : 1);
  EnableBorder();
  CarryOn step;
  step([&] { ReadFont(store); });
  step([&] { ShowAlignment(Number(store, u"alignment", u"2")); });
  step([&] { sample_.color = Number(store, u"primarycolour", u"65535"); });
  step([&] { sample_.background = Number(store, u"backcolour", u"0"); });
  AnnounceSample();
  if (step.Last()) throw RuntimeError(*step.Last());
}

void SsaPanel::ShowAlignment(std::int32_t alignment) {
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
  cmbSsaAlign.SetIndex(rest == 1 ? kLeft : rest == 2 ? kCenter : rest == 3 ? kRight : -1);
  sample_.alignment = cmbSsaAlign.Index();
}

int SsaPanel::Alignment() const {
  const int horizontal = cmbSsaAlign.Index() == kLeft ? 1 : cmbSsaAlign.Index() == kRight ? 3 : 2;
  const int vertical = cmbSsaValign.Index() == kTop ? 4 : cmbSsaValign.Index() == kMiddle ? 8 : 0;
  return horizontal + vertical;
}

std::vector<SettingsStore::KeyValue> SsaPanel::FurtherValues() const {
  std::vector<SettingsStore::KeyValue> values = FontValues();
  values.insert(values.end(), {{u"alignment", Decimal(Alignment())},
                               {u"primarycolour", Decimal(sample_.color)},
                               {u"backcolour", Decimal(sample_.background)},
                               {u"borderstyle", cmbSsaStyle.Index() == 0 ? u"1" : u"3"}});
  return values;
}

void SsaPanel::EnableBorder() {
  for (Control* control : std::initializer_list<Control*>{&lblSsaOutline, &txtSsaOutline, &lblSsaShadow, &txtSsaShadow,
                                                          &cmdSsaBack, &picSsaBack}) {
    control->SetEnabled(cmbSsaStyle.Index() == 0);
  }
}

}  // namespace cuewright
