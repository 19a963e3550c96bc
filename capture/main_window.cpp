#include "capture/main_window.h"

namespace cuewright {

MainWindow::MainWindow() : Form("frmMain") {
  for (MenuItem* line :
       {&mnuLine0, &mnuLine0a, &mnuLine0b, &mnuLine0c, &mnuLine0d, &mnuLine0e, &mnuLine1, &mnuLine1a, &mnuLine1b,
        &mnuLine1c, &mnuLine2, &mnuLine2a, &mnuLine3, &mnuLine4, &mnuLine4a, &mnuLine5, &rmnuLine}) {
    line->SetSeparator(true);
  }
  for (MenuItem* item : {&mnuBold, &mnuItalic, &mnuUnderline, &rmnuBold, &rmnuItalic, &rmnuUnderline, &mnuInfoBar,
                         &mnuAudioBar, &mnuRawMarks, &mnuFullWave}) {
    item->SetCheckable(true);
  }
  for (MenuItem& item : mnuSeparator) item.SetCheckable(true);
  mnuNew.SetShortcut("Ctrl+N");
  mnuOpenText.SetShortcut("Ctrl+O");
  mnuSave.SetShortcut("Ctrl+S");
  mnuSaveAs.SetShortcut("Ctrl+Shift+S");
  mnuExit.SetShortcut("Ctrl+Q");
  mnuUndo.SetShortcut("Ctrl+Z");
  mnuRedo.SetShortcut("Ctrl+Shift+Z; Ctrl+Y");
  mnuFind.SetShortcut("Ctrl+F");
  mnuReplace.SetShortcut("Ctrl+H");
  mnuRawMarks.SetShortcut("Ctrl+M");
  mnuNextFinding.SetShortcut("F8");
  mnuCheck.SetShortcut("Shift+F8");
  mnuGSettings.SetShortcut("Ctrl+,");
  mnuHelpTopics.SetShortcut("F1");
  mnuUTF8.SetText(u"UTF-8");
  mnuLine0b.SetVisible(false);
  mnuTFileName.SetVisible(false);
  mnuVFileName.SetVisible(false);
  mnuAFileName.SetVisible(false);
  mnuRecent.SetVisible(false);
  cmdCancel.SetVisible(false);
  for (Control* control : std::initializer_list<Control*>{&picWave, &picLevel, &sldWavScale, &imgWavPos, &lblWave,
                                                          &cmdStopSound, &lblWaveTip}) {
    control->SetVisible(false);
  }
  sldWavScale.SetEnabled(false);
  optPress.SetValue(true);
}

}  // namespace cuewright
