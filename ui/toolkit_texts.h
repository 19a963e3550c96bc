#pragma once

#include <QTranslator>

#include "text/text.h"

namespace cuewright {

/// The toolkit's own texts (those of its pickers and of the menus of its fields) in the program's language, where the
/// system has them; else in English.
class ToolkitTexts {
 public:
  ~ToolkitTexts();

  /// Takes a language by its name in the language table.
  void Use(TextView language);

 private:
  QTranslator texts_;
};

}  // namespace cuewright
