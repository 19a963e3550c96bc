#pragma once

#include "forms/export_dialog.h"
#include "ui/dialog_view.h"

class QGroupBox;

namespace cuewright {

/// The dialog `frmExport` on the toolkit.
class ExportView final : public DialogView {
 public:
  ExportView(ExportDialog& form, QWidget* owner);

 private:
  QGroupBox* MakeProperties();
};

/// Shows the dialog `frmExport` over `owner` until it closes.
void RunExportDialog(ExportDialog& form, QWidget* owner);

}  // namespace cuewright
