#pragma once

#include "capture/workbench.h"
#include "formats/format_state.h"
#include "forms/list_dialog.h"

namespace cuewright {

/// The lines of the document's file that were not understood.
class LinesReport {
 public:
  LinesReport(Workbench bench, const FormatState& state);

  ListDialog dialog;

  /// How many they are, as far as they are told.
  int Count() const;
  /// Shows their numbers and how each begins.
  void Show();

 private:
  Workbench bench_;
  const FormatState& state_;
};

}  // namespace cuewright
