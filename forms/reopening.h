#pragma once

#include "capture/workbench.h"
#include "forms/document_files.h"
#include "forms/reopen_dialog.h"

namespace cuewright {

/// `mnuReopen`: the document's file is read anew in an encoding that the user chooses.
class Reopening {
 public:
  Reopening(Workbench bench, DocumentFormats formats, DocumentSession& session, DocumentFiles& documentFiles,
            const Files& files);

  ReopenDialog dialog;

  void Reopen();

 private:
  void ShowItem();
  /// The file has a format when it is read so; else the document stays as it is.
  bool HasFormatAs(const DocumentEncoding& encoding);

  Workbench bench_;
  DocumentFormats formats_;
  DocumentSession& session_;
  DocumentFiles& documentFiles_;
  const Files& files_;
};

}  // namespace cuewright
