#pragma once

#include "forms/export_dialog.h"

class QWidget;

namespace cuewright {

/// Shows the dialog `frmExport` over `owner` until it closes.
void RunExportDialog(ExportDialog& form, QWidget* owner);

}  // namespace cuewright
