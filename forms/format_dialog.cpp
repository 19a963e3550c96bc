#include "forms/format_dialog.h"

#include <algorithm>

#include "core/numbers.h"
#include "external/common_dialogs.h"

namespace cuewright {
namespace {

constexpr int kMostPixels = 1200;

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

}  // namespace

FormatDialog::FormatDialog(const FormatParts& parts) : parts_(parts), strings_(parts_.strings) {
  WireButtons();
  WireSami();
  WireSsa();
}

void FormatDialog::WireButtons() {
  lstFormats.Chosen.Connect([this] { ShowPanel(); });
  cmdOK.Clicked.Connect([this] { Accept(); });
  cmdCancel.Clicked.Connect([this] { Close(); });
  cmdReset.Clicked.Connect([this] { Reset(); });
  lblGetMore.Clicked.Connect([this] { parts_.messages.Show({strings_[308], BoxIcon::Information}); });
  imgSsaCharset.Clicked.Connect([this] {
    parts_.messages.Show({strings_[343], BoxIcon::Information, BoxButtons::Ok, ReplaceAll(strings_[63], u":", {})});
  });
}

void FormatDialog::WireSami() {
  cmdSamiFont.Clicked.Connect([this] { PickFont(sami_); });
  cmdSamiColor.Clicked.Connect([this] { PickColour(sami_.colour); });
  cmdSamiBackground.Clicked.Connect([this] { PickColour(sami_.background); });
  cmbSamiAlign.Chosen.Connect([this] {
    sami_.alignment = cmbSamiAlign.Index();
    SamplesChanged();
  });
}

void FormatDialog::WireSsa() {
  cmdSsaFont.Clicked.Connect([this] { PickFont(ssa_); });
  cmdSsaColor.Clicked.Connect([this] { PickColour(ssa_.colour); });
  cmdSsaBack.Clicked.Connect([this] { PickColour(ssa_.background); });
  cmbSsaAlign.Chosen.Connect([this] {
    ssa_.alignment = cmbSsaAlign.Index();
    SamplesChanged();
  });
  cmbSsaStyle.Chosen.Connect([this] { EnableBorder(); });
  for (TextBox* box : NumberBoxes()) {
    box->KeyPress.Connect([](KeyEvent& key) {
      if (key.code != kKeyBackspace && !IsDigit(key.character)) key.handled = true;
    });
    box->Edited.Connect([box] { Limit(*box); });
  }
}

std::array<TextBox*, 5> FormatDialog::NumberBoxes() {
  return {&txtSsaMarginl, &txtSsaMarginr, &txtSsaMarginv, &txtSsaOutline, &txtSsaShadow};
}

void FormatDialog::Limit(TextBox& box) {
  if (LeadingNumber(box.GetText()) > kMostPixels) box.SetText(Decimal(kMostPixels));
}

void FormatDialog::Open() {
  ApplyTexts();
  ApplyNames();
  CarryOn step;
  step([&] { ReadDvd(parts_.store); });
  step([&] { ReadSami(parts_.store); });
  step([&] { ReadSsa(parts_.store); });
  if (step.Last()) {
    parts_.messages.Show(
        {u"Error # " + Decimal(step.Last()->number) + Text(kLineEnd) + step.Last()->description, BoxIcon::Warning});
  }
  FillList();
  NoteOpened();
  ShowPanel();
}

void FormatDialog::FillList() {
  FormatState& formats = parts_.formats;
  if (formats.SettingsFormatIndex == 0) formats.SettingsFormatIndex = formats.CurrentFormatIndex;
  listed_.clear();
  std::vector<Text> names;
  for (int index = 0; index < parts_.catalogue.Count(); ++index) {
    const Text& id = parts_.catalogue.Identifier(index);
    if (LeadingNumber(parts_.catalogue.ReadIni(id, u"header", u"0")) != 1) continue;
    listed_.push_back(index);
    names.push_back(parts_.catalogue.DisplayName(id));
  }
  lstFormats.SetItems(std::move(names));
  const auto at = std::find(listed_.begin(), listed_.end(), formats.SettingsFormatIndex);
  lstFormats.SetIndex(at == listed_.end() ? -1 : static_cast<int>(at - listed_.begin()));
}

void FormatDialog::ShowPanel() {
  const int row = lstFormats.Index();
  Text id;
  lblTop.SetText({});
  if (row >= 0) {
    const int index = listed_[static_cast<std::size_t>(row)];
    parts_.formats.SettingsFormatIndex = static_cast<std::uint8_t>(index);
    id = parts_.catalogue.Identifier(index);
    lblTop.SetText(parts_.catalogue.DisplayName(id) + u" [" +
                   ToUpper(parts_.catalogue.ReadIni(id, u"extension", u"---")) + u"]");
  }
  picDvdSubtitle.SetVisible(id == kDvdSubtitle);
  picSami.SetVisible(id == kSami);
  picSsa.SetVisible(id == kSubStationAlpha);
  cmdReset.SetEnabled(picDvdSubtitle.Visible() || picSami.Visible() || picSsa.Visible());
}

void FormatDialog::ApplyTexts() {
  struct Labelled {
    Control& control;
    std::size_t message;
  };
  const Labelled rows[] = {{lblFormats, 326},
                           {lblGetMore, 307},
                           {cmdOK, 66},
                           {cmdCancel, 67},
                           {cmdReset, 71},
                           {lblDvdSubtitleDiscID, 345},
                           {lblDvdSubtitleDVDTitle, 346},
                           {lblDvdSubtitleLang, 347},
                           {lblDvdSubtitleAuthor, 348},
                           {lblDvdSubtitleWeb, 349},
                           {lblDvdSubtitleInfo, 350},
                           {lblDvdSubtitleLicense, 351},
                           {cmdSamiFont, 216},
                           {cmdSamiColor, 264},
                           {cmdSamiBackground, 327},
                           {lblSamiAlign, 328},
                           {lblSamiSample, 221},
                           {lblSamiNote, 340},
                           {cmdSsaFont, 216},
                           {cmdSsaColor, 264},
                           {fraSsaAlign, 328},
                           {fraSsaBorder, 335},
                           {lblSsaStyle, 336},
                           {lblSsaOutline, 337},
                           {lblSsaShadow, 332},
                           {cmdSsaBack, 327},
                           {fraSsaMargins, 339},
                           {lblSsaMarginl, 329},
                           {lblSsaMarginr, 330},
                           {lblSsaSample, 221},
                           {lblSsaNote, 340}};
  SetTitle(strings_[325]);
  SetRightToLeft(parts_.languages.IsRightToLeft());
  for (const Labelled& row : rows) row.control.SetText(strings_[row.message]);
  // The margin is that of the edge at which the captions stand.
  lblSsaMarginv.SetText(strings_[333] + u"/" + strings_[334]);
  lblSsaCharset.SetText(u"Charset: " + Decimal(parts_.languages.ListCharset()));
  for (ComboBox* box : {&cmbSamiAlign, &cmbSsaAlign}) {
    box->SetItems({strings_[329], strings_[330], strings_[331]});
    box->SetToolTip(strings_[341]);
  }
  cmbSsaValign.SetItems({strings_[333], strings_[331], strings_[334]});
  cmbSsaValign.SetToolTip(strings_[342]);
  cmbSsaStyle.SetItems({strings_[337], strings_[338]});
}

void FormatDialog::ApplyNames() {
  const auto name = [](Control& control, const Text& text) { control.SetSpokenName(WithoutAccessKey(text)); };
  name(lstFormats, strings_[326]);
  name(txtDvdSubtitleDiscID, strings_[345]);
  name(txtDvdSubtitleDVDTitle, strings_[346]);
  name(txtDvdSubtitleLang, strings_[347]);
  name(txtDvdSubtitleAuthor, strings_[348]);
  name(txtDvdSubtitleWeb, strings_[349]);
  name(txtDvdSubtitleInfo, strings_[350]);
  name(txtDvdSubtitleLicense, strings_[351]);
  name(cmbSamiAlign, strings_[328]);
  name(cmbSsaAlign, strings_[341]);
  name(cmbSsaValign, strings_[342]);
  name(cmbSsaStyle, strings_[335] + u", " + strings_[336]);
  name(txtSsaOutline, strings_[335] + u", " + strings_[337]);
  name(txtSsaShadow, strings_[335] + u", " + strings_[332]);
  name(txtSsaMarginl, strings_[339] + u", " + strings_[329]);
  name(txtSsaMarginr, strings_[339] + u", " + strings_[330]);
  name(txtSsaMarginv, strings_[339] + u", " + lblSsaMarginv.GetText());
  name(picSamiSample, strings_[221]);
  name(picSsaSample, strings_[221]);
  name(picSsaBack, strings_[327]);
  name(imgSsaCharset, strings_[8]);
  const auto display = [this](TextView id) { return parts_.catalogue.DisplayName(id); };
  name(picDvdSubtitle, display(kDvdSubtitle));
  name(picSami, display(kSami));
  name(picSsa, display(kSubStationAlpha));
}

void FormatDialog::PickFont(FormatSample& sample) {
  if (ShowFontDialog(parts_.pickers, sample.font, 0, 0)) SamplesChanged();
}

void FormatDialog::PickColour(std::int32_t& colour) {
  const std::int32_t chosen = ShowColorDialog(parts_.pickers, colour);
  if (chosen == kNoColour) return;
  colour = chosen;
  SamplesChanged();
}

void FormatDialog::EnableBorder() {
  for (Control* control : std::initializer_list<Control*>{&lblSsaOutline, &txtSsaOutline, &lblSsaShadow, &txtSsaShadow,
                                                          &cmdSsaBack, &picSsaBack}) {
    control->SetEnabled(cmbSsaStyle.Index() == 0);
  }
}

}  // namespace cuewright
