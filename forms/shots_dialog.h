#pragma once

#include "core/app_options.h"
#include "core/lang_strings.h"
#include "form/controls.h"
#include "form/dialog.h"
#include "forms/film_shots.h"

namespace cuewright {

/// The dialog `frmShots`: how sensitive the detector of shots is, which acts at once on what was measured, and whether
/// it looks at films by itself.
class ShotsDialog final : public Dialog {
 public:
  ShotsDialog(FilmShots& shots, AppOptions& options, const LangStrings& strings);

  Label lblSense{*this, "lblSense"};
  Slider sldSense{*this, "sldSense"};
  Label lblCount{*this, "lblCount"};
  CheckBox chkFind{*this, "chkFind"};
  Button cmdClose{*this, "cmdClose"};

  void Open(bool rightToLeft);

 private:
  void ShowCount();

  FilmShots& shots_;
  AppOptions& options_;
  const LangStrings& strings_;
};

}  // namespace cuewright
