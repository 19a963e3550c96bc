#pragma once

#include <array>

#include "form/controls.h"
#include "form/dialog.h"

namespace cuewright {

/// The controls of the format settings, `frmFormat`. What they do is `FormatDialog`.
class FormatWindow : public Dialog {
 public:
  FormatWindow() : Dialog("frmFormat") {}

  Label lblFormats{*this, "lblFormats"};
  ListBox lstFormats{*this, "lstFormats"};
  Label lblGetMore{*this, "lblGetMore"};
  Label lblTop{*this, "lblTop"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdCancel{*this, "cmdCancel"};
  Button cmdReset{*this, "cmdReset"};

  Picture picDvdSubtitle{*this, "picDvdSubtitle"};
  Label lblDvdSubtitleDiscID{*this, "lblDvdSubtitleDiscID"};
  TextBox txtDvdSubtitleDiscID{*this, "txtDvdSubtitleDiscID"};
  Label lblDvdSubtitleDVDTitle{*this, "lblDvdSubtitleDVDTitle"};
  TextBox txtDvdSubtitleDVDTitle{*this, "txtDvdSubtitleDVDTitle"};
  Label lblDvdSubtitleLang{*this, "lblDvdSubtitleLang"};
  TextBox txtDvdSubtitleLang{*this, "txtDvdSubtitleLang"};
  Label lblDvdSubtitleAuthor{*this, "lblDvdSubtitleAuthor"};
  TextBox txtDvdSubtitleAuthor{*this, "txtDvdSubtitleAuthor"};
  Label lblDvdSubtitleWeb{*this, "lblDvdSubtitleWeb"};
  TextBox txtDvdSubtitleWeb{*this, "txtDvdSubtitleWeb"};
  Label lblDvdSubtitleInfo{*this, "lblDvdSubtitleInfo"};
  TextBox txtDvdSubtitleInfo{*this, "txtDvdSubtitleInfo"};
  Label lblDvdSubtitleLicense{*this, "lblDvdSubtitleLicense"};
  TextBox txtDvdSubtitleLicense{*this, "txtDvdSubtitleLicense"};

  Picture picSami{*this, "picSami"};
  Button cmdSamiFont{*this, "cmdSamiFont"};
  Button cmdSamiColor{*this, "cmdSamiColor"};
  Button cmdSamiBackground{*this, "cmdSamiBackground"};
  Label lblSamiAlign{*this, "lblSamiAlign"};
  ComboBox cmbSamiAlign{*this, "cmbSamiAlign"};
  Picture picSamiSample{*this, "picSamiSample"};
  Label lblSamiSample{*this, "lblSamiSample"};
  Label lblSamiNote{*this, "lblSamiNote"};

  Picture picSsa{*this, "picSsa"};
  Button cmdSsaFont{*this, "cmdSsaFont"};
  Button cmdSsaColor{*this, "cmdSsaColor"};
  Frame fraSsaAlign{*this, "fraSsaAlign"};
  ComboBox cmbSsaAlign{*this, "cmbSsaAlign"};
  ComboBox cmbSsaValign{*this, "cmbSsaValign"};
  Frame fraSsaBorder{*this, "fraSsaBorder"};
  Label lblSsaStyle{*this, "lblSsaStyle"};
  ComboBox cmbSsaStyle{*this, "cmbSsaStyle"};
  Label lblSsaOutline{*this, "lblSsaOutline"};
  TextBox txtSsaOutline{*this, "txtSsaOutline"};
  Label lblSsaShadow{*this, "lblSsaShadow"};
  TextBox txtSsaShadow{*this, "txtSsaShadow"};
  Button cmdSsaBack{*this, "cmdSsaBack"};
  Picture picSsaBack{*this, "picSsaBack"};
  Frame fraSsaMargins{*this, "fraSsaMargins"};
  Label lblSsaMarginl{*this, "lblSsaMarginl"};
  TextBox txtSsaMarginl{*this, "txtSsaMarginl"};
  Label lblSsaMarginr{*this, "lblSsaMarginr"};
  TextBox txtSsaMarginr{*this, "txtSsaMarginr"};
  Label lblSsaMarginv{*this, "lblSsaMarginv"};
  TextBox txtSsaMarginv{*this, "txtSsaMarginv"};
  Picture picSsaSample{*this, "picSsaSample"};
  Label lblSsaSample{*this, "lblSsaSample"};
  Label lblSsaNote{*this, "lblSsaNote"};
  Label lblSsaCharset{*this, "lblSsaCharset"};
  Label imgSsaCharset{*this, "imgSsaCharset"};
};

}  // namespace cuewright
