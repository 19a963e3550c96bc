#pragma once

#include <cstdint>

#include "core/caption_marks.h"
#include "form/controls.h"

namespace cuewright {

/// The overlay window `frmSub` that shows a caption over the picture. It exists while a video is open.
class SubWindow final : public Form {
 public:
  SubWindow() : Form("frmSub") {}

  Label lblShadow{*this, "lblShadow"};
  Label lblSub{*this, "lblSub"};

  bool Loaded() const { return loaded_; }
  void Load();
  void Unload();

  /// How the two labels are drawn. The size is in points, colours are 0x00BBGGRR, the shadow's shift in pixels.
  struct Style {
    Text fontName;
    int fontSize = 18;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    std::int32_t color = 0xFFFFFF;
    int shadowShift = 1;
    bool opaque = false;   ///< black behind the text; else the picture shows through
    bool allLines = true;  ///< as high as its lines, each by its own direction; else two lines high, by the language's

    bool operator==(const Style&) const = default;
  };
  const Style& GetStyle() const { return style_; }
  void SetStyle(const Style& style);

  /// A caption of one look, in the usual place: the text of both labels.
  void ShowText(TextView text);
  /// A caption whose parts have looks of their own, with LF for its line separators. Its text is that of both labels.
  void ShowCaption(SeenCaption caption);
  /// The parts of what is shown; none for a caption of one look.
  const SeenCaption& Shown() const { return shown_; }

  Signal<SubWindow> LoadedChanged;
  Signal<SubWindow> StyleChanged;  ///< also of a part, and the place

 private:
  bool loaded_ = false;
  Style style_;
  SeenCaption shown_;
};

}  // namespace cuewright
