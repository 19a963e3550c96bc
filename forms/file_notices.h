#pragma once

#include "capture/workbench.h"
#include "core/ports/messages.h"
#include "formats/catalogue.h"
#include "formats/format_state.h"
#include "forms/document_files.h"
#include "forms/lines_report.h"
#include "forms/notices.h"

namespace cuewright {

/// Tells of the document's file what it was read or saved as, and what of it was not understood.
class FileNotices {
 public:
  FileNotices(Workbench bench, DocumentFormats formats, DocumentFiles& files, LinesReport& lines, Notices& notices,
              Messages& messages);

 private:
  /// `text` has places for the format and the encoding.
  void TellFile(Message text);
  void TellSavedAsUtf8(const DocumentEncoding& lacking);

  Workbench bench_;
  DocumentFormats formats_;
  Notices& notices_;
  Messages& messages_;
};

}  // namespace cuewright
