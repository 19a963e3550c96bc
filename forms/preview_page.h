#pragma once

#include "capture/preview.h"
#include "core/document.h"
#include "core/ports/pickers.h"
#include "forms/settings_page.h"

namespace cuewright {

/// The page of the look of the captions over the film, with a sample of it.
class PreviewPage final : public SettingsPage {
 public:
  PreviewPage(const Place& place, const DocumentState& document, Preview& preview, Pickers& pickers);

  Label lblFormat{window_, "lblFormat"};
  Button cmdFont{window_, "cmdFont"};
  Button cmdColor{window_, "cmdColor"};
  OptionButton optOpaque{window_, "optOpaque"};
  OptionButton optShadow{window_, "optShadow"};
  Label lblShadow{window_, "lblShadow"};
  Slider sldShadow{window_, "sldShadow"};
  Label lblHeight{window_, "lblHeight"};
  Slider sldHeight{window_, "sldHeight"};
  Picture picSample{window_, "picSample"};
  Label lblSampleShadow{window_, "lblSampleShadow"};
  Label lblSample{window_, "lblSample"};
  CheckBox chkFollow{window_, "chkFollow"};

  /// How the sample is drawn. The background is 0x00BBGGRR, or that of the window.
  struct Sample {
    Text fontName;
    int fontSize = 0;  ///< points
    bool bold = false;
    std::int32_t color = 0;
    int shadowShift = 0;  ///< pixels, right and down
    bool windowBackground = false;
    std::int32_t background = 0;

    bool operator==(const Sample&) const = default;
  };
  const Sample& GetSample() const { return sample_; }
  Signal<PreviewPage> SampleChanged;

  void Fill() override;
  void ApplyLanguage() override;

 private:
  enum class Ground { Opaque, Shadow };

  void ChooseGround(Ground ground);
  void ShowValues();
  void DrawSample();
  void PickFont();
  void PickColor();

  const DocumentState& document_;
  Preview& preview_;
  Pickers& pickers_;
  Sample sample_;
};

}  // namespace cuewright
