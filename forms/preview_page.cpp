#include "forms/preview_page.h"

#include "core/numbers.h"
#include "external/common_dialogs.h"

namespace cuewright {
namespace {

constexpr int kBoldWeight = 700;
constexpr int kPlainWeight = 400;
/// Behind the sample while a film is open, the colour that lets the picture through elsewhere.
constexpr std::int32_t kFilmBackground = 0x100010;

}  // namespace

PreviewPage::PreviewPage(const Place& place, const DocumentState& document, Preview& preview, Pickers& pickers)
    : SettingsPage(place, {Message::SubtitlePreview, Message::PreviewPageHint, Message::SampleDuringPlayback}),
      document_(document),
      preview_(preview),
      pickers_(pickers) {
  Shows(lblFormat, Message::PreviewTextHint);
  Shows(cmdFont, Message::FontButton);
  Shows(cmdColor, Message::ColorButton);
  // The design gives each of the two the hint of the other.
  Shows(optOpaque, Message::OpaqueBackground, Message::PreviewShadowHint);
  Shows(optShadow, Message::TransparentBackground, Message::OpaqueBoxHint);
  Shows(lblSample, Message::Sample);
  Shows(lblSampleShadow, Message::Sample);
  Shows(chkFollow, Message::FollowSubtitles, Message::FollowSubtitlesHint);
  Speaks(picSample, Message::Sample);
  Follows(sldShadow);
  Follows(sldHeight);
  cmdFont.Clicked.Connect([this] { PickFont(); });
  cmdColor.Clicked.Connect([this] { PickColor(); });
  optOpaque.Clicked.Connect([this] { ChooseGround(Ground::Opaque); });
  optShadow.Clicked.Connect([this] { ChooseGround(Ground::Shadow); });
  sldShadow.Scrolled.Connect([this] {
    ShowValues();
    DrawSample();
  });
  sldHeight.Scrolled.Connect([this] {
    ShowValues();
    preview_.PlacePreview();
  });
}

void PreviewPage::Fill() {
  SettingsPage::Fill();
  optOpaque.SetValue(options_.previewOpaque);
  optShadow.SetValue(!options_.previewOpaque);
  ShowValues();
  DrawSample();
}

void PreviewPage::ApplyLanguage() {
  SettingsPage::ApplyLanguage();
  ShowValues();
  DrawSample();
}

void PreviewPage::ChooseGround(Ground ground) {
  const bool opaque = ground == Ground::Opaque;
  options_.previewOpaque = opaque;
  options_.previewShadow = !opaque;
  optOpaque.SetValue(opaque);
  optShadow.SetValue(!opaque);
  DrawSample();
}

void PreviewPage::ShowValues() {
  lblShadow.SetText(cuewright::Fill(strings_[Message::ShadowDepth], Decimal(options_.previewShadowDepth)));
  lblHeight.SetText(cuewright::Fill(strings_[Message::PreviewPlacement], Decimal(options_.previewHeight)));
  sldShadow.SetSpokenName(lblShadow.GetText());
  sldHeight.SetSpokenName(lblHeight.GetText());
}

void PreviewPage::PickFont() {
  FontChoice font;
  font.Name = options_.previewFontName;
  font.Size = options_.previewFontSize;
  font.Bold = options_.previewFontBold;
  font.Weight = font.Bold ? kBoldWeight : kPlainWeight;
  const Option::Range& sizes = OptionOf(cmdFont.Name()).range;
  if (!ShowFontDialog(pickers_, font, sizes.least, sizes.most)) return;
  options_.previewFontName = font.Name;
  options_.previewFontSize = Checked8(RoundToInt32(font.Size));
  options_.previewFontBold = font.Bold;
  DrawSample();
  preview_.PlacePreview();
}

void PreviewPage::PickColor() {
  const std::int32_t color = ShowColorDialog(pickers_, options_.previewColor);
  if (color == kNoColor) return;
  options_.previewColor = color;
  DrawSample();
}

void PreviewPage::DrawSample() {
  const bool opaque = options_.previewOpaque;
  Sample sample;
  sample.fontName = options_.previewFontName;
  sample.fontSize = options_.previewFontSize;
  sample.bold = options_.previewFontBold;
  sample.color = options_.previewColor;
  sample.shadowShift = options_.previewShadowDepth;
  sample.windowBackground = !opaque && !document_.HasVideo();
  sample.background = opaque ? 0 : kFilmBackground;
  lblSampleShadow.SetVisible(!opaque);
  lblShadow.SetEnabled(!opaque);
  sldShadow.SetEnabled(!opaque);
  if (sample_ != sample) {
    sample_ = std::move(sample);
    SampleChanged();
  }
  preview_.DrawPreviewStyle();
}

}  // namespace cuewright
