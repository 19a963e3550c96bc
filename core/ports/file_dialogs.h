#pragma once

#include "text/text.h"

namespace cuewright {

/// The desktop's file pickers. Filters are "name|patterns|name|patterns|", patterns joined by ";".
class FileDialogs {
 public:
  virtual ~FileDialogs() = default;

  /// The path chosen; the empty text when the user cancelled.
  virtual Text ShowOpenDialog(TextView title, TextView filter, TextView folder) = 0;
  /// The same for saving; `proposal` is the file name offered. The picker asks before an existing file is taken.
  virtual Text ShowSaveDialog(TextView title, TextView filter, TextView folder, TextView proposal) = 0;
};

}  // namespace cuewright
