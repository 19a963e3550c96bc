#pragma once

#include "capture/caption_panel.h"
#include "capture/workbench.h"
#include "core/ports/messages.h"
#include "text/encodings.h"

namespace cuewright {

/// `mnuUTF8`: texts that were read in the system's code page though they were UTF-8 become what they were meant to be.
class Utf8Conversion {
 public:
  Utf8Conversion(Workbench bench, CaptionPanel& panel, const Encodings& encodings, Messages& messages);

 private:
  void Convert();

  Workbench bench_;
  CaptionPanel& panel_;
  const Encodings& encodings_;
  Messages& messages_;
};

}  // namespace cuewright
