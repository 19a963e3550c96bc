#include "forms/export_dialog.h"

#include <algorithm>

#include "core/numbers.h"

namespace cuewright {
namespace {

constexpr int kDefaultRateIndex = 4;
constexpr double kLeastRate = 15;
constexpr double kMostRate = 30;

}  // namespace

float RateOf(TextView text) { return static_cast<float>(LeadingNumber(ReplaceAll(text, u",", u"."))); }

ExportDialog::ExportDialog(const FormatCatalogue& catalogue, FormatState& formats, const LangStrings& strings,
                           Messages& messages)
    : Form("frmExport"), catalogue_(catalogue), formats_(formats), strings_(strings), messages_(messages) {
  cmbFPS.SetEditable(true);
  cmbFPS.SetItems({u"15", u"20", u"23,976", u"24", u"25", u"29,97", u"30"});
  cboFormats.Chosen.Connect([this] { ShowProperties(); });
  cmdOK.Clicked.Connect([this] { Accept(); });
  cmdCancel.Clicked.Connect([this] { Closed(); });
}

void ExportDialog::Open() {
  result_ = false;
  SetTitle(ReplaceAll(strings_[45], u"...", {}));
  lblFPS.SetText(strings_[7]);
  cmdOK.SetText(strings_[66]);
  cmdCancel.SetText(strings_[67]);
  std::vector<Text> rows;
  for (int index = 0; index < catalogue_.Count(); ++index) {
    const Text& id = catalogue_.Identifier(index);
    Text row = catalogue_.DisplayName(id) + u" [" + ToUpper(catalogue_.ReadIni(id, u"extension", {})) + u"]";
    if (index == formats_.CurrentFormatIndex) row += u" " + strings_[283];
    rows.push_back(std::move(row));
  }
  lblTotal.SetText(Fill(strings_[52], Decimal(static_cast<long long>(rows.size()))));
  cboFormats.SetItems(std::move(rows));
  if (formats_.CurrentFormatIndex == 0) {
    formats_.CurrentFormatIndex = static_cast<std::uint8_t>(std::max(catalogue_.IndexOf(kSubRip), 0));
  }
  cboFormats.SetIndex(formats_.CurrentFormatIndex);
  if (formats_.CurrentFps <= 0) {
    cmbFPS.SetIndex(kDefaultRateIndex);
  } else {
    const double thousandths = RoundHalfEven(static_cast<double>(formats_.CurrentFps) * 1000);
    Text rate = Decimal(static_cast<long long>(thousandths) / 1000);
    Text decimals = Padded(static_cast<long long>(thousandths) % 1000, 3);
    while (decimals.ends_with(u'0')) decimals.pop_back();
    cmbFPS.SetText(decimals.empty() ? rate : rate + u"," + decimals);
  }
  ShowProperties();
}

Text ExportDialog::ChosenId() const { return catalogue_.Identifier(cboFormats.Index()); }

bool ExportDialog::ChosenCountsFrames() const {
  return ToLower(catalogue_.ReadIni(ChosenId(), u"timecode", u"ms")).find(u"ff") != Text::npos;
}

void ExportDialog::ShowProperties() {
  lblFPS.SetEnabled(ChosenCountsFrames());
  cmbFPS.SetEnabled(ChosenCountsFrames());
}

void ExportDialog::Accept() {
  formats_.CurrentFormatIndex = static_cast<std::uint8_t>(std::max(cboFormats.Index(), 0));
  formats_.CurrentFps = 0;
  if (ChosenCountsFrames()) {
    // The whole part decides: "29,97" is accepted because 29 is.
    const double rate = LeadingNumber(cmbFPS.GetText());
    if (rate < kLeastRate || rate > kMostRate) {
      messages_.Show({strings_[323], BoxIcon::Error, BoxButtons::Ok, strings_[7]});
      FpsFocusRequested();
      return;
    }
    formats_.CurrentFps = RateOf(cmbFPS.GetText());
  }
  result_ = true;
  Closed();
}

}  // namespace cuewright
