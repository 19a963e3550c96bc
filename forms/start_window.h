#pragma once

#include <functional>

#include "core/folders.h"
#include "core/lang_strings.h"
#include "core/ports/desktop.h"
#include "form/controls.h"

namespace cuewright {

/// The first window, `frmStart`. It is seen only when the player is missing.
class StartWindow final : public Form {
 public:
  StartWindow();

  Picture imgWMP{*this, "imgWMP"};
  Label lblMain{*this, "lblMain"};
  Label lblInfo{*this, "lblInfo"};
  Label lblFile{*this, "lblFile"};
  Label lblMediaplayer{*this, "lblMediaplayer"};
  Label lblWebsite{*this, "lblWebsite"};
  Button cmdIgnore{*this, "cmdIgnore"};
  Button cmdExit{*this, "cmdExit"};

  /// Captions in the language in force, and the missing file's name.
  void ShowMissing(const LangStrings& strings, TextView file, bool rightToLeft);
  /// What a click on the links opens; the page is in the program's language.
  void WireLinks(Desktop& desktop, const Text& language);
};

}  // namespace cuewright
