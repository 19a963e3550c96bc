#include "forms/format_dialog.h"

#include <algorithm>

#include "core/numbers.h"
#include "external/common_dialogs.h"
#include "text/digits.h"

namespace cuewright {
namespace {

constexpr int kMostPixels = 1200;

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
  lblGetMore.Clicked.Connect([this] {
    parts_.messages.Show({strings_[Message::MoreFormatsHint], BoxIcon::Information});
  });
  imgSsaCharset.Clicked.Connect([this] {
    parts_.messages.Show({strings_[Message::FormatCharsetHint], BoxIcon::Information, BoxButtons::Ok,
                          ReplaceAll(strings_[Message::SubtitleCharset], u":", {})});
  });
}

void FormatDialog::WireSami() {
  cmdSamiFont.Clicked.Connect([this] { PickFont(sami_); });
  cmdSamiColor.Clicked.Connect([this] { PickColor(sami_.color); });
  cmdSamiBackground.Clicked.Connect([this] { PickColor(sami_.background); });
  cmbSamiAlign.Chosen.Connect([this] {
    sami_.alignment = cmbSamiAlign.Index();
    SamplesChanged();
  });
}

void FormatDialog::WireSsa() {
  cmdSsaFont.Clicked.Connect([this] { PickFont(ssa_); });
  cmdSsaColor.Clicked.Connect([this] { PickColor(ssa_.color); });
  cmdSsaBack.Clicked.Connect([this] { PickColor(ssa_.background); });
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
  ShowPanel();
  NoteOpened();
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
    Message message;
  };
  const Labelled rows[] = {{lblFormats, Message::ConfigurableFormats},
                           {lblGetMore, Message::MoreFormats},
                           {cmdOK, Message::Ok},
                           {cmdCancel, Message::Cancel},
                           {cmdReset, Message::Reset},
                           {lblDvdSubtitleDiscID, Message::DiscId},
                           {lblDvdSubtitleDVDTitle, Message::DvdTitle},
                           {lblDvdSubtitleLang, Message::DvdLanguage},
                           {lblDvdSubtitleAuthor, Message::DvdAuthor},
                           {lblDvdSubtitleWeb, Message::DvdWeb},
                           {lblDvdSubtitleInfo, Message::DvdInfo},
                           {lblDvdSubtitleLicense, Message::DvdLicense},
                           {cmdSamiFont, Message::FontButton},
                           {cmdSamiColor, Message::ColorButton},
                           {cmdSamiBackground, Message::BackgroundButton},
                           {lblSamiAlign, Message::Alignment},
                           {lblSamiSample, Message::Sample},
                           {lblSamiNote, Message::SampleReflectsHint},
                           {cmdSsaFont, Message::FontButton},
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
  SetTitle(strings_[Message::FormatSettings]);
  SetRightToLeft(parts_.languages.IsRightToLeft());
  for (const Labelled& row : rows) row.control.SetText(strings_[row.message]);
  // The margin is that of the edge at which the captions stand.
  lblSsaMarginv.SetText(strings_[Message::Top] + u"/" + strings_[Message::Bottom]);
  lblSsaCharset.SetText(u"Charset: " + Decimal(parts_.languages.ListCharset()));
  for (ComboBox* box : {&cmbSamiAlign, &cmbSsaAlign}) {
    box->SetItems({strings_[Message::Left], strings_[Message::Right], strings_[Message::Center]});
    box->SetToolTip(strings_[Message::HorizontalAlignmentHint]);
  }
  cmbSsaValign.SetItems({strings_[Message::Top], strings_[Message::Center], strings_[Message::Bottom]});
  cmbSsaValign.SetToolTip(strings_[Message::VerticalAlignmentHint]);
  cmbSsaStyle.SetItems({strings_[Message::Outline], strings_[Message::OpaqueBorder]});
}

void FormatDialog::ApplyNames() {
  const auto name = [](Control& control, const Text& text) { control.SetSpokenName(WithoutAccessKey(text)); };
  name(lstFormats, strings_[Message::ConfigurableFormats]);
  name(txtDvdSubtitleDiscID, strings_[Message::DiscId]);
  name(txtDvdSubtitleDVDTitle, strings_[Message::DvdTitle]);
  name(txtDvdSubtitleLang, strings_[Message::DvdLanguage]);
  name(txtDvdSubtitleAuthor, strings_[Message::DvdAuthor]);
  name(txtDvdSubtitleWeb, strings_[Message::DvdWeb]);
  name(txtDvdSubtitleInfo, strings_[Message::DvdInfo]);
  name(txtDvdSubtitleLicense, strings_[Message::DvdLicense]);
  name(cmbSamiAlign, strings_[Message::Alignment]);
  name(cmbSsaAlign, strings_[Message::HorizontalAlignmentHint]);
  name(cmbSsaValign, strings_[Message::VerticalAlignmentHint]);
  name(cmbSsaStyle, strings_[Message::Border] + u", " + strings_[Message::Style]);
  name(txtSsaOutline, strings_[Message::Border] + u", " + strings_[Message::Outline]);
  name(txtSsaShadow, strings_[Message::Border] + u", " + strings_[Message::Shadow]);
  name(txtSsaMarginl, strings_[Message::Margins] + u", " + strings_[Message::Left]);
  name(txtSsaMarginr, strings_[Message::Margins] + u", " + strings_[Message::Right]);
  name(txtSsaMarginv, strings_[Message::Margins] + u", " + lblSsaMarginv.GetText());
  name(picSamiSample, strings_[Message::Sample]);
  name(picSsaSample, strings_[Message::Sample]);
  name(picSsaBack, strings_[Message::BackgroundButton]);
  name(imgSsaCharset, strings_[Message::WhatsThis]);
  const auto display = [this](TextView id) { return parts_.catalogue.DisplayName(id); };
  name(picDvdSubtitle, display(kDvdSubtitle));
  name(picSami, display(kSami));
  name(picSsa, display(kSubStationAlpha));
}

void FormatDialog::PickFont(FormatSample& sample) {
  if (ShowFontDialog(parts_.pickers, sample.font, 0, 0)) SamplesChanged();
}

void FormatDialog::PickColor(std::int32_t& color) {
  const std::int32_t chosen = ShowColorDialog(parts_.pickers, color);
  if (chosen == kNoColor) return;
  color = chosen;
  SamplesChanged();
}

void FormatDialog::EnableBorder() {
  for (Control* control : std::initializer_list<Control*>{&lblSsaOutline, &txtSsaOutline, &lblSsaShadow, &txtSsaShadow,
                                                          &cmdSsaBack, &picSsaBack}) {
    control->SetEnabled(cmbSsaStyle.Index() == 0);
  }
}

}  // namespace cuewright
