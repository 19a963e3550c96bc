#include "forms/export_dialog.h"

#include <algorithm>

#include "core/numbers.h"
#include "core/runtime_error.h"
#include "formats/encoding_rules.h"
#include "formats/source/source_map.h"
#include "forms/access_keys.h"
#include "text/labels.h"

namespace cuewright {
namespace {

constexpr int kDefaultRateIndex = 4;
constexpr double kLeastRate = 15;
constexpr double kMostRate = 30;
constexpr std::size_t kLongestRate = 5;
constexpr TextView kNotAvailable = u"n/a";

}  // namespace

ExportDialog::ExportDialog(const FormatCatalogue& catalogue, FormatState& formats, const AppOptions& options,
                           const LangStrings& strings, Messages& messages)
    : Dialog("frmExport"),
      catalogue_(catalogue),
      formats_(formats),
      options_(options),
      strings_(strings),
      messages_(messages) {
  cmbFPS.SetEditable(true);
  cmbFPS.SetItems({u"15", u"20", u"23,976", u"24", u"25", u"29,97", u"30"});
  cboFormats.Chosen.Connect([this] { ShowProperties(); });
  cboEncoding.Chosen.Connect([this] { encodingChosen_ = true; });
  cmbFPS.KeyPress.Connect([this](KeyEvent& key) { FilterRateKey(key); });
  cmdConfigure.Clicked.Connect([this] { Configure(); });
  cmdOK.Clicked.Connect([this] { Accept(); });
  cmdCancel.Clicked.Connect([this] { Close(); });
}

void ExportDialog::Open(bool rightToLeft) {
  result_ = false;
  SetRightToLeft(rightToLeft);
  ApplyTexts();
  encodingChosen_ = false;
  encodings_.Fill(strings_);
  FillFormats();
  FillRate();
  ShowProperties();
  NoteOpened();
}

void ExportDialog::ApplyTexts() {
  SetTitle(WithoutDots(strings_[Message::SaveAs]));
  lblFormat.SetText(strings_[Message::ExportToFormat]);
  fraProperties.SetText(strings_[Message::FormatProperties]);
  lblMode.SetText(strings_[Message::SyncMode]);
  lblTimecode.SetText(strings_[Message::TimeStructure]);
  lblHeader.SetText(strings_[Message::InfoHeader]);
  lblTags.SetText(strings_[Message::SupportedFormatting]);
  lblFPS.SetText(strings_[Message::SourceVideoFps]);
  cmdConfigure.SetText(strings_[Message::ConfigureFormat]);
  cmdOK.SetText(strings_[Message::Ok]);
  cmdCancel.SetText(strings_[Message::Cancel]);
  AccessKeys keys;
  for (const Message button : {Message::Ok, Message::Cancel}) keys.Give(strings_[button]);
  lblEncoding.SetText(keys.Give(strings_[Message::EncodingOfFile]));
  cboEncoding.SetSpokenName(strings_[Message::EncodingOfFile]);
  cboFormats.SetSpokenName(strings_[Message::ExportToFormat]);
  cmbFPS.SetSpokenName(strings_[Message::SourceVideoFps]);
  imgBold.SetSpokenName(strings_[Message::Bold]);
  imgItalic.SetSpokenName(strings_[Message::Italic]);
  imgUnderline.SetSpokenName(strings_[Message::Underline]);
  imgBold.SetToolTip(strings_[Message::Bold]);
  imgItalic.SetToolTip(strings_[Message::Italic]);
  imgUnderline.SetToolTip(strings_[Message::Underline]);
}

void ExportDialog::FillFormats() {
  std::vector<Text> rows;
  const int count = catalogue_.CountToWrite(options_.manner);
  for (int index = 0; index < count; ++index) {
    const Text& id = catalogue_.Identifier(index);
    Text row = catalogue_.DisplayName(id) + u" [" + ToUpper(catalogue_.ReadIni(id, u"extension", {})) + u"]";
    if (index == formats_.CurrentFormatIndex) row += u" " + strings_[Message::CurrentFormat];
    rows.push_back(std::move(row));
  }
  lblTotal.SetText(Fill(strings_[Message::FormatsSupported], Decimal(rows.size())));
  cboFormats.SetItems(std::move(rows));
  if (formats_.CurrentFormatIndex == 0 || formats_.CurrentFormatIndex >= count) {
    formats_.CurrentFormatIndex = std::max(catalogue_.IndexOf(kSubRip), 0);
  }
  cboFormats.SetIndex(formats_.CurrentFormatIndex);
}

void ExportDialog::FillRate() {
  const bool exact = options_.manner.TimesAreExact();
  const FrameRate rate = formats_.CurrentFps ? formats_.CurrentFps : exact ? formats_.FilmFps : FrameRate();
  if (rate) {
    cmbFPS.SetText(rate.AsText(u','));
  } else {
    cmbFPS.SetIndex(kDefaultRateIndex);
  }
}

FrameRate ExportDialog::AcceptedRate() const {
  const Text& text = cmbFPS.GetText();
  if (options_.manner.TimesAreExact()) {
    const FrameRate rate = FrameRate::FromText(text);
    return rate.IsUsual() ? rate : FrameRate();
  }
  // The whole part decides: "29,97" is accepted because 29 is.
  const double whole = LeadingNumber(text);
  if (whole < kLeastRate || whole > kMostRate) return {};
  return LeadingNumber(ReplaceAll(text, u",", u"."));
}

Text ExportDialog::ChosenId() const { return catalogue_.Identifier(cboFormats.Index()); }

Text ExportDialog::ChosenTimecode() const { return ToLower(catalogue_.ReadIni(ChosenId(), u"timecode", u"ms")); }

bool ExportDialog::ChosenCountsFrames() const { return ChosenTimecode().find(u"ff") != Text::npos; }

void ExportDialog::ShowProperties() {
  CarryOn step;
  step([&] {
    ShowTimecode(ChosenTimecode());
    ShowEncoding();
    lblFPS.SetEnabled(ChosenCountsFrames());
    cmbFPS.SetEnabled(ChosenCountsFrames());
    const bool header = LeadingNumber(catalogue_.ReadIni(ChosenId(), u"header", u"0")) == 1;
    lblHeader2.SetText(strings_[header ? Message::Yes : Message::No]);
    cmdConfigure.SetEnabled(header);
    ShowTags(RoundToInt32(LeadingNumber(catalogue_.ReadIni(ChosenId(), u"tags", u"0"))));
  });
}

void ExportDialog::ShowEncoding() {
  const bool offered = options_.manner.ChoosesEncodings();
  lblEncoding.SetVisible(offered);
  cboEncoding.SetVisible(offered);
  // These two are written in one encoding, whatever is asked for.
  const bool classic = EqualLoose(options_.readAs, u"classic");
  const bool free = !classic && ChosenId() != kAdobeEncore;
  lblEncoding.SetEnabled(free);
  cboEncoding.SetEnabled(free);
  if (encodingChosen_ && free) return;
  const bool own = formats_.Source && formats_.Source->Format() == ChosenId();
  const bool utf8 = !classic && (!free || (!own && IsUtf8UnlessAsked(ChosenId())));
  encodings_.Choose(utf8 ? DocumentEncoding() : formats_.Encoding);
}

void ExportDialog::ShowTimecode(TextView timecode) {
  if (timecode == u"ms") {
    lblMode2.SetText(strings_[Message::Time]);
    const Text& unit = strings_[Message::Milliseconds];
    lblTimecode2.SetText(ToUpper(TextView(unit).substr(0, 1)) + unit.substr(std::min<std::size_t>(unit.size(), 1)));
  } else if (timecode == u"ff") {
    lblMode2.SetText(u"FPS (" + strings_[Message::Frames] + u")");
    lblTimecode2.SetText(u"N/A");
  } else if (timecode == kNotAvailable) {
    lblMode2.SetText(kNotAvailable);
    lblTimecode2.SetText(kNotAvailable);
  } else {
    const bool frames = timecode.find(u"ff") != TextView::npos;
    lblMode2.SetText(frames ? strings_[Message::Time] + u"+FPS" : strings_[Message::Time]);
    lblTimecode2.SetText(timecode);
  }
}

void ExportDialog::ShowTags(int tags) {
  // The number is a sum of 1 bold, 2 italic and 4 underline. Each is subtracted once, so that 8 shows underline and
  // italic.
  imgUnderline.SetVisible(tags >= 4);
  if (tags >= 4) tags -= 4;
  imgItalic.SetVisible(tags >= 2);
  if (tags >= 2) tags -= 2;
  imgBold.SetVisible(tags == 1);
  lblTags.SetEnabled(imgBold.Visible() || imgItalic.Visible() || imgUnderline.Visible());
}

void ExportDialog::FilterRateKey(KeyEvent& key) const {
  if (key.code == kKeyBackspace) return;
  if (key.character == u'.') key.character = u',';
  const Text& text = cmbFPS.GetText();
  if (key.character == u',') {
    if (text.find(u',') != Text::npos) key.handled = true;
  } else if (key.character < u'0' || key.character > u';') {
    // ":" and ";", which follow the digits, pass as well.
    key.handled = true;
  }
  if (cmbFPS.SelLength() == 0 && text.size() > kLongestRate) key.handled = true;
}

void ExportDialog::Configure() {
  formats_.SettingsFormatIndex = std::max(cboFormats.Index(), 0);
  SettingsAsked();
}

void ExportDialog::Accept() {
  formats_.CurrentFormatIndex = std::max(cboFormats.Index(), 0);
  if (ChosenCountsFrames()) {
    const FrameRate rate = AcceptedRate();
    if (!rate) {
      const Text& problem = strings_[options_.manner.TimesAreExact() ? Message::FpsOutOfRange : Message::FpsInvalid];
      messages_.Show({problem, BoxIcon::Error, BoxButtons::Ok, strings_[Message::SourceVideoFps]});
      RequestFocus(cmbFPS);
      return;
    }
    formats_.CurrentFps = rate;
  } else {
    formats_.CurrentFps = {};
  }
  if (cboEncoding.Visible() && cboEncoding.Enabled()) formats_.Encoding = encodings_.Chosen();
  result_ = true;
  Close();
}

}  // namespace cuewright
