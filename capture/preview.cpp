#include "capture/preview.h"

#include <utility>

#include "core/style_markers.h"

namespace cuewright {
namespace {

constexpr int kOverlayInset = 8;
constexpr int kOverlayFoot = 64;

}  // namespace

OverlayPlace PlaceOverlay(int left, int top, int playerWidth, int playerHeight, int overlayHeight, int percent) {
  return {left + kOverlayInset, top + (playerHeight - overlayHeight - kOverlayFoot) * percent / 100,
          playerWidth - 2 * kOverlayInset};
}

int PercentOfPlace(int place, int usual) {
  if (place <= 3) return usual;
  return place <= 6 ? 50 : 0;
}

Preview::Preview(Workbench bench, SubWindow& sub, Player& player, const PlayerSample& sample)
    : bench_(bench), sub_(sub), player_(player), sample_(sample), index_(bench.list) {
  bench_.window.tmrPreview.Tick.Connect([this] { Tick(); });
}

void Preview::DrawPreviewStyle() {
  if (!sub_.Loaded()) return;
  SubWindow::Style style = sub_.GetStyle();
  style.fontName = bench_.options.previewFontName;
  style.fontSize = bench_.options.previewFontSize;
  style.bold = bench_.options.previewFontBold;
  style.color = bench_.options.previewColor;
  style.shadowShift = bench_.options.previewShadowDepth;
  style.allLines = bench_.options.manner.ShowsAllLines();
  if (bench_.document.HasVideo()) style.opaque = bench_.options.previewOpaque;
  sub_.lblShadow.SetVisible(bench_.options.previewShadow);
  sub_.lblSub.SetRightToLeft(bench_.window.lblMode.RightToLeft());
  sub_.lblShadow.SetRightToLeft(bench_.window.lblMode.RightToLeft());
  sub_.SetStyle(style);
}

void Preview::OpenOverlay(CarryOn& step) {
  step([&] { sub_.Load(); });
  step([&] { DrawPreviewStyle(); });
  step([&] { PlacePreview(); });
}

void Preview::PlacePreview() {
  if (sub_.Loaded()) PlaceRequested();
}

void Preview::ShowPreviewCaption(Row row) {
  if (!bench_.list.InRange(row)) return;
  DrawPreviewStyle();
  SubWindow::Style style = sub_.GetStyle();
  style.italic = bench_.list.IsCaptionItalic(row);
  style.underline = bench_.list.IsCaptionUnderline(row);
  sub_.SetStyle(style);
  if (!sub_.Loaded()) return;
  if (!bench_.options.manner.KeepsStylesWithin()) {
    return sub_.ShowText(WithoutStyleMarkers(bench_.list.GetCaptionText(row, true)));
  }
  const Text& separator = bench_.options.lineSeparator;
  const CaptionMarks& marks = bench_.list.Marks();
  const Caption& stored = bench_.list.At(row);
  SeenCaption caption = marks.ReadOf(stored.origin, stored.text, separator);
  for (StyledRun& run : caption.runs) run.text = ReplaceAll(run.text, separator, u"\n");
  sub_.ShowCaption(std::move(caption));
}

void Preview::ClearPreviewCaption() {
  // Without a row the next tick shows the caption again, even if it is the same one.
  previewRow_ = 0;
  if (sub_.Loaded()) sub_.ShowText({});
}

void Preview::SetPreviewMode(bool on) {
  GetPreviewCap();
  bench_.window.tmrPreview.SetEnabled(on);
  bench_.window.cmdNext.SetEnabled(false);
  bench_.window.cmdEnd.SetEnabled(false);
  for (TextBox& box : bench_.window.txtTime) box.SetEnabled(!on);
  if (on) {
    bench_.window.cmdApply.SetEnabled(false);
  } else {
    ClearPreviewCaption();
  }
}

void Preview::GetPreviewCap() {
  if (const Row row = index_.RowAt(sample_.PlayerPosMs()); row != 0) previewNextRow_ = row;
}

void Preview::Redraw(Row row) {
  if (bench_.window.optPreview.Value() && row == previewRow_) ShowPreviewCaption(row);
}

void Preview::Tick() {
  const int state = player_.PlayState();
  if (state != kPlayerPlaying && state != kPlayerPaused) return;
  // The position also goes back without a seek: by a stop, at the end of the film, with another film.
  if (sample_.PlayerPosMs() < tickedMs_) GetPreviewCap();
  tickedMs_ = sample_.PlayerPosMs();
  const Ms start = bench_.list.GetCaptionStart(previewNextRow_);
  const Ms end = bench_.list.GetCaptionEnd(previewNextRow_);
  if (sample_.PlayerPosMs() < start || sample_.PlayerPosMs() > end) {
    followDue_ = false;
    if (!sub_.lblSub.GetText().empty()) {
      ClearPreviewCaption();
    }
    if (sample_.PlayerPosMs() >= end) GetPreviewCap();
    return;
  }
  if (previewNextRow_ != previewRow_) {
    ShowPreviewCaption(previewNextRow_);
    followDue_ = true;
  }
  if (followDue_) Follow();
  previewRow_ = previewNextRow_;
}

void Preview::Follow() {
  if (bench_.options.manner.FollowWaitsForHands() && handsOnCaption && handsOnCaption()) return;
  followDue_ = false;
  if (!bench_.options.followCaptions || bench_.list.Selected() == previewNextRow_) return;
  bench_.list.SetRow(previewNextRow_, false);
  bench_.grid.ScrollRow(true);
}

}  // namespace cuewright
