#include "forms/settings_window.h"

namespace cuewright {

SettingsWindow::SettingsWindow() : Dialog("frmSettings") {
  sldAutoJoin.SetRange(1, 40);
  for (Slider& slider : sldDuration) slider.SetRange(1, 35);
  for (Slider& slider : sldTolerance) slider.SetRange(1, 30);
  sldShadow.SetRange(1, 4);
  sldHeight.SetRange(10, 100);
}

}  // namespace cuewright
