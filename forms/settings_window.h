#pragma once

#include <array>

#include "form/controls.h"
#include "form/dialog.h"

namespace cuewright {

/// The controls of the settings dialog, `frmSettings`. What they do is `SettingsDialog`.
class SettingsWindow : public Dialog {
 public:
  static constexpr std::size_t kPages = 5;

  SettingsWindow();

  // The menu column, the heading, the details area and the buttons.
  Picture picMenu{*this, "picMenu"};
  std::array<Label, kPages> lblMenu{Label{*this, "lblMenu(0)"}, Label{*this, "lblMenu(1)"}, Label{*this, "lblMenu(2)"},
                                    Label{*this, "lblMenu(3)"}, Label{*this, "lblMenu(4)"}};
  std::array<Picture, kPages> imgMenu{Picture{*this, "imgMenu(0)"}, Picture{*this, "imgMenu(1)"},
                                      Picture{*this, "imgMenu(2)"}, Picture{*this, "imgMenu(3)"},
                                      Picture{*this, "imgMenu(4)"}};
  Picture picTop{*this, "picTop"};
  Label lblTop{*this, "lblTop"};
  std::array<Picture, kPages> picOptions{Picture{*this, "picOptions(0)"}, Picture{*this, "picOptions(1)"},
                                         Picture{*this, "picOptions(2)"}, Picture{*this, "picOptions(3)"},
                                         Picture{*this, "picOptions(4)"}};
  Label lblDetailsTitle{*this, "lblDetailsTitle"};
  Frame fraDetails{*this, "fraDetails"};
  Label lblDetails{*this, "lblDetails"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdReset{*this, "cmdReset"};

  // Correction rules.
  CheckBox chkAutoSplit{*this, "chkAutoSplit"};
  CheckBox chkCollision{*this, "chkCollision"};
  CheckBox chkAutoJoin{*this, "chkAutoJoin"};
  Picture imgAutoJoin{*this, "imgAutoJoin"};
  Picture picAutoJoin{*this, "picAutoJoin"};
  Label lblAutoJoin{*this, "lblAutoJoin"};
  Slider sldAutoJoin{*this, "sldAutoJoin"};
  CheckBox chkDuration{*this, "chkDuration"};
  Picture imgDuration{*this, "imgDuration"};
  Picture picDuration{*this, "picDuration"};
  Label lblShort{*this, "lblShort"};
  Label lblMedium{*this, "lblMedium"};
  Label lblLong{*this, "lblLong"};
  std::array<Label, 3> lblDuration{Label{*this, "lblDuration(0)"}, Label{*this, "lblDuration(1)"},
                                   Label{*this, "lblDuration(2)"}};
  std::array<Slider, 3> sldDuration{Slider{*this, "sldDuration(0)"}, Slider{*this, "sldDuration(1)"},
                                    Slider{*this, "sldDuration(2)"}};
  std::array<Label, 3> lblTolerance{Label{*this, "lblTolerance(0)"}, Label{*this, "lblTolerance(1)"},
                                    Label{*this, "lblTolerance(2)"}};
  std::array<Slider, 3> sldTolerance{Slider{*this, "sldTolerance(0)"}, Slider{*this, "sldTolerance(1)"},
                                     Slider{*this, "sldTolerance(2)"}};
  CheckBox chkCredits{*this, "chkCredits"};
  Picture imgCredits{*this, "imgCredits"};
  Picture picCredits{*this, "picCredits"};
  Label lblCredits{*this, "lblCredits"};
  TextBox txtCredits{*this, "txtCredits"};
  Label lblApply{*this, "lblApply"};
  ComboBox cmbApply{*this, "cmbApply"};

  // Keyboard shortcuts.
  CheckBox chkKeys{*this, "chkKeys"};
  Frame fraKeys{*this, "fraKeys"};
  Label lblPlayback{*this, "lblPlayback"};
  Label lblCaptioning{*this, "lblCaptioning"};
  std::array<Label, 10> lblHotkey{Label{*this, "lblHotkey(0)"}, Label{*this, "lblHotkey(1)"},
                                  Label{*this, "lblHotkey(2)"}, Label{*this, "lblHotkey(3)"},
                                  Label{*this, "lblHotkey(4)"}, Label{*this, "lblHotkey(5)"},
                                  Label{*this, "lblHotkey(6)"}, Label{*this, "lblHotkey(7)"},
                                  Label{*this, "lblHotkey(8)"}, Label{*this, "lblHotkey(9)"}};
  std::array<TextBox, 10> txtHotkey{TextBox{*this, "txtHotkey(0)"}, TextBox{*this, "txtHotkey(1)"},
                                    TextBox{*this, "txtHotkey(2)"}, TextBox{*this, "txtHotkey(3)"},
                                    TextBox{*this, "txtHotkey(4)"}, TextBox{*this, "txtHotkey(5)"},
                                    TextBox{*this, "txtHotkey(6)"}, TextBox{*this, "txtHotkey(7)"},
                                    TextBox{*this, "txtHotkey(8)"}, TextBox{*this, "txtHotkey(9)"}};
  std::array<TextBox, 2> txtPosition{TextBox{*this, "txtPosition(0)"}, TextBox{*this, "txtPosition(1)"}};
  std::array<Label, 2> lblSeconds{Label{*this, "lblSeconds(0)"}, Label{*this, "lblSeconds(1)"}};

  // The player.
  CheckBox chkStretch{*this, "chkStretch"};
  Label lblUImode{*this, "lblUImode"};
  ComboBox cmbUImode{*this, "cmbUImode"};
  Label lblVSFilter{*this, "lblVSFilter"};
  Picture imgVSHelp{*this, "imgVSHelp"};
  OptionButton optVSDisable{*this, "optVSDisable"};
  OptionButton optVSHide{*this, "optVSHide"};
  Label lblVSNotice{*this, "lblVSNotice"};
  Button cmdVSFilter{*this, "cmdVSFilter"};

  // The preview's look.
  Label lblFormat{*this, "lblFormat"};
  Button cmdFont{*this, "cmdFont"};
  Button cmdColor{*this, "cmdColor"};
  OptionButton optOpaque{*this, "optOpaque"};
  OptionButton optShadow{*this, "optShadow"};
  Label lblShadow{*this, "lblShadow"};
  Slider sldShadow{*this, "sldShadow"};
  Label lblHeight{*this, "lblHeight"};
  Slider sldHeight{*this, "sldHeight"};
  Picture picSample{*this, "picSample"};
  Label lblSampleShadow{*this, "lblSampleShadow"};
  Label lblSample{*this, "lblSample"};
  CheckBox chkFollow{*this, "chkFollow"};

  // The language.
  Label lblLanguage{*this, "lblLanguage"};
  ComboBox cboLanguage{*this, "cboLanguage"};
  Picture picFlag{*this, "picFlag"};
  Label lblTranslator{*this, "lblTranslator"};
  Label lblComplete{*this, "lblComplete"};
  Frame fraCharset{*this, "fraCharset"};
  TextBox txtCharset{*this, "txtCharset"};
  Label lblCharset{*this, "lblCharset"};
  Button cmdRegionalSettings{*this, "cmdRegionalSettings"};
  Frame fraNotice{*this, "fraNotice"};
  Label lblWarning{*this, "lblWarning"};
  Label lblCurrLang{*this, "lblCurrLang"};
  Label lblReqLang{*this, "lblReqLang"};
  CheckBox chkClassic{*this, "chkClassic"};
  CheckBox chkRulesOnLoad{*this, "chkRulesOnLoad"};
};

}  // namespace cuewright
