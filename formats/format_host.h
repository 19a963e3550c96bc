#pragma once

#include <cstdint>

#include "core/lang_strings.h"
#include "core/ports/messages.h"
#include "text/encodings.h"
#include "text/text.h"

namespace cuewright {

/// What reading and writing a document need of the window around them.
class FormatHost {
 public:
  virtual ~FormatHost() = default;

  /// Puts a text in `lblTextFile`.
  virtual void SetTextFileLabel(TextView text) = 0;
  /// Empties `lblVideoFile`.
  virtual void ClearVideoFileLabel() = 0;
  /// Shows the open files in both labels again.
  virtual void RefreshStatusLabels() = 0;

  /// Lets the window process its events. `ImportCancelled` may be set behind it.
  virtual void Yield() = 0;

  /// A load begins: `mnuNew`, `mnuOpenText`, `mnuOpenVideo`, `mnuClose`, `mnuSave` and `mnuSaveAs` are disabled,
  /// `cmdCancel` is visible and enabled.
  virtual void ImportBegins() = 0;
  /// A load or an append ends: `mnuNew` and `mnuOpenText` and `mnuOpenVideo` are enabled, `mnuClose` when a text or a
  /// video is loaded, `cmdCancel` is hidden, the list draws itself again.
  virtual void ImportEnds() = 0;

  /// Duration of the loaded media in whole seconds; 0 without one.
  virtual std::int32_t MediaSeconds() const = 0;

  /// A save went to UTF-8, since the document's own encoding lacks a character of it.
  virtual void SavedAsUtf8(const DocumentEncoding& lacking) = 0;
};

/// How reading and writing files speak with the user.
struct FormatTalk {
  const LangStrings& strings;
  Messages& messages;
  FormatHost& host;
};

}  // namespace cuewright
