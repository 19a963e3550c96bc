#pragma once

#include <array>
#include <vector>

#include "core/lang_strings.h"
#include "core/ports/messages.h"
#include "core/ports/pickers.h"
#include "form/dialog.h"
#include "formats/catalogue.h"
#include "formats/format_state.h"
#include "forms/format_panels.h"
#include "settings/languages.h"
#include "settings/store.h"

namespace cuewright {

/// What the format settings work on.
struct FormatParts {
  const FormatCatalogue& catalogue;
  FormatState& formats;
  SettingsStore& store;
  const LangStrings& strings;
  const Languages& languages;
  Messages& messages;
  Pickers& pickers;
};

/// The format settings, `frmFormat`: the options of the formats with a built-in header. Nothing is stored before OK.
class FormatDialog final : public Dialog {
 public:
  explicit FormatDialog(const FormatParts& parts);

  Label lblFormats{*this, "lblFormats"};
  ListBox lstFormats{*this, "lstFormats"};
  Label lblGetMore{*this, "lblGetMore"};
  Label lblTop{*this, "lblTop"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdCancel{*this, "cmdCancel"};
  Button cmdReset{*this, "cmdReset"};

  DvdSubtitlePanel dvdSubtitle;
  SamiPanel sami;
  SsaPanel ssa;

  /// Reads all options and selects the format of `SettingsFormatIndex`, or that in force.
  void Open();

 private:
  void ApplyTexts();
  void ReadPanels();
  void FillList();
  void ShowPanel();
  void Accept();
  void Reset();

  FormatParts parts_;
  const LangStrings& strings_;
  const std::array<FormatPanel*, 3> panels_ = {&dvdSubtitle, &sami, &ssa};
  std::vector<int> listed_;  // index in the catalogue of each row of the list
};

}  // namespace cuewright
