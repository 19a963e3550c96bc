#pragma once

#include "capture/workbench.h"
#include "formats/catalogue.h"
#include "formats/export.h"
#include "formats/format_state.h"
#include "forms/list_dialog.h"

namespace cuewright {

/// What is asked before a save loses something of the captions.
class SaveCheck {
 public:
  SaveCheck(Workbench bench, const FormatCatalogue& catalogue, FormatState& state, const Exporter& exporter);

  ListDialog dialog;

  /// Tells what the format in force can't hold, a line a kind; nothing is asked where it holds all. False: the user
  /// doesn't want to save so.
  [[nodiscard]] bool AgreesToLosses();
  /// Shows the lines up to a row with letters that the encoding in force lacks; the encoding is UTF-8 once the user
  /// agrees to that. False: nothing is to be saved.
  [[nodiscard]] bool AgreesToEncoding(Row lastRow);

 private:
  Text LineOf(const LackingPlace& place) const;

  Workbench bench_;
  const FormatCatalogue& catalogue_;
  FormatState& state_;
  const Exporter& exporter_;
};

}  // namespace cuewright
