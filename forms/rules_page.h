#pragma once

#include <array>

#include "capture/timing_capture.h"
#include "forms/settings_page.h"

namespace cuewright {

/// The page of the correction rules. Three of them have a panel, which opens when the pointer comes over their check
/// box.
class RulesPage final : public SettingsPage {
 public:
  RulesPage(const Place& place, TimingCapture& capture);

  CheckBox chkAutoSplit{window_, "chkAutoSplit"};
  CheckBox chkCollision{window_, "chkCollision"};
  CheckBox chkAutoJoin{window_, "chkAutoJoin"};
  Picture imgAutoJoin{window_, "imgAutoJoin"};
  Picture picAutoJoin{window_, "picAutoJoin"};
  Label lblAutoJoin{window_, "lblAutoJoin"};
  Slider sldAutoJoin{window_, "sldAutoJoin"};
  CheckBox chkDuration{window_, "chkDuration"};
  Picture imgDuration{window_, "imgDuration"};
  Picture picDuration{window_, "picDuration"};
  Label lblShort{window_, "lblShort"};
  Label lblMedium{window_, "lblMedium"};
  Label lblLong{window_, "lblLong"};
  ControlArray<Label, 3> lblDuration{window_, "lblDuration"};
  ControlArray<Slider, 3> sldDuration{window_, "sldDuration"};
  ControlArray<Label, 3> lblTolerance{window_, "lblTolerance"};
  ControlArray<Slider, 3> sldTolerance{window_, "sldTolerance"};
  CheckBox chkCredits{window_, "chkCredits"};
  Picture imgCredits{window_, "imgCredits"};
  Picture picCredits{window_, "picCredits"};
  Label lblCredits{window_, "lblCredits"};
  TextBox txtCredits{window_, "txtCredits"};
  Label lblApply{window_, "lblApply"};
  ComboBox cmbApply{window_, "cmbApply"};
  CheckBox chkRulesOnLoad{window_, "chkRulesOnLoad"};

  void Fill() override;
  void ApplyLanguage() override;
  void TakeOpenFields() override;
  void DropOpenFields() override { creditsOpen_ = false; }
  void ClosePanels();

 private:
  /// A rule with a panel: its check box, the image that opens it too, the panel, its height in pixels and what is told.
  struct Panel {
    CheckBox& check;
    Picture& image;
    Picture& area;
    int height;
    Hint hint;
  };

  void WireRules();
  void WireCredits();
  void WirePanels();
  void OpenPanel(const Panel& panel);
  void ShowValues();
  void EnableControls();
  void TakeCredits();

  TimingCapture& capture_;
  std::array<Panel, 3> panels_;
  bool creditsOpen_ = false;  // the field was typed into and still has the focus
};

}  // namespace cuewright
