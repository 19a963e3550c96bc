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
  QGroupBox* MakeProperties(ExportDialog& form);
};

}  // namespace cuewright
