#pragma once

#include "core/app_options.h"
#include "core/lang_strings.h"
#include "core/ports/desktop.h"
#include "core/ports/system_info.h"
#include "form/controls.h"
#include "form/dialog.h"
#include "formats/catalogue.h"
#include "settings/languages.h"

namespace cuewright {

/// The system's own name with the version of its kernel, as the about box shows it.
Text GetOsName(const SystemInfo& system);

/// The dialog `frmAbout`: the versions of program and formats, and the system with its free memory.
class AboutDialog final : public Dialog {
 public:
  AboutDialog(const AppOptions& options, const LangStrings& strings, const Languages& languages,
              const FormatCatalogue& catalogue, Desktop& desktop, const SystemInfo& system);

  Picture picTop{*this, "picTop"};
  Label lblVersion{*this, "lblVersion"};
  Label lblFree{*this, "lblFree"};
  Label lblTessaly{*this, "lblTessaly"};
  Label lblFormat{*this, "lblFormat"};
  Label lblOsName{*this, "lblOsName"};
  Label lblMemo{*this, "lblMemo"};
  Button cmdOK{*this, "cmdOK"};
  Timer tmrMemo{*this, "tmrMemo", 1000};

  /// Fills the labels; from now on the memory is shown anew every second.
  void Open();

  Signal<AboutDialog> MoveRequested;  ///< the user took hold of the picture: the window goes with the pointer

 protected:
  void OnClose() override { tmrMemo.SetEnabled(false); }

 private:
  void ShowMemoStats();

  const AppOptions& options_;
  const LangStrings& strings_;
  const Languages& languages_;
  const FormatCatalogue& catalogue_;
  const SystemInfo& system_;
};

}  // namespace cuewright
