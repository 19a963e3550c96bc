#pragma once

#include <functional>
#include <vector>

#include "core/form/controls.h"
#include "core/lang_strings.h"
#include "core/ports/messages.h"
#include "formats/catalogue.h"
#include "formats/format_state.h"

namespace cuewright {

/// The dialog `frmExport` in which the user picks the format of a save.
class ExportDialog final : public Form {
 public:
  ExportDialog(const FormatCatalogue& catalogue, FormatState& formats, const LangStrings& strings, Messages& messages);

  ComboBox cboFormats{*this, "cboFormats"};
  Label lblTotal{*this, "lblTotal"};
  Label lblFPS{*this, "lblFPS"};
  ComboBox cmbFPS{*this, "cmbFPS"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdCancel{*this, "cmdCancel"};

  /// Fills the controls for the format in force.
  void Open();
  /// True after OK.
  bool Result() const { return result_; }

  Signal<> Closed;
  Signal<> FpsFocusRequested;

 private:
  void ShowProperties();
  void Accept();
  Text ChosenId() const;
  bool ChosenCountsFrames() const;

  const FormatCatalogue& catalogue_;
  FormatState& formats_;
  const LangStrings& strings_;
  Messages& messages_;
  bool result_ = false;
};

/// A rate as a person writes it, comma or dot before the decimals; 0 for no number.
float RateOf(TextView text);

}  // namespace cuewright
