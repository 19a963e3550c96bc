#include "core/preview.h"

namespace cuewright {
namespace {

constexpr int kOverlayInset = 8;
constexpr int kOverlayFoot = 64;

}  // namespace

OverlayPlace PlaceOverlay(int left, int top, int playerWidth, int playerHeight, int overlayHeight, int percent) {
  return {left + kOverlayInset, top + (playerHeight - overlayHeight - kOverlayFoot) * percent / 100,
          playerWidth - 2 * kOverlayInset};
}

Preview::Preview(MainWindow& window, SubWindow& sub, CaptionList& list, CaptionGrid& grid,
                 const DocumentState& document, const AppOptions& options, Player& player)
    : window_(window),
      sub_(sub),
      list_(list),
      grid_(grid),
      document_(document),
      options_(options),
      player_(player),
      index_(list) {
  window_.tmrPreview.Tick.Connect([this] { Tick(); });
}

void Preview::DrawPreviewStyle() {
  if (!sub_.Loaded()) return;
  SubWindow::Style style = sub_.GetStyle();
  style.fontName = options_.F_FONTNAME;
  style.fontSize = options_.F_FONTSIZE;
  style.bold = options_.F_FONTBOLD;
  style.colour = options_.F_FONTCOLOR;
  style.shadowShift = options_.F_SHADOWVAL;
  style.allLines = options_.manner.ShowsAllLines();
  if (document_.HasVideo()) style.opaque = options_.F_OPAQUE;
  sub_.lblShadow.SetVisible(options_.F_SHADOW);
  sub_.lblSub.SetRightToLeft(window_.lblMode.RightToLeft());
  sub_.lblShadow.SetRightToLeft(window_.lblMode.RightToLeft());
  sub_.SetStyle(style);
}

void Preview::PlacePreview() {
  if (sub_.Loaded()) PlaceRequested();
}

void Preview::ShowPreviewCaption(Row row) {
  if (!list_.InRange(row)) return;
  DrawPreviewStyle();
  SubWindow::Style style = sub_.GetStyle();
  style.italic = list_.IsCaptionItalic(row);
  style.underline = list_.IsCaptionUnderline(row);
  sub_.SetStyle(style);
  Text text = list_.GetCaptionText(row, true);
  for (const TextView marker : {u"<b>", u"<i>", u"<u>"}) text = ReplaceAll(text, marker, {});
  if (sub_.Loaded()) sub_.ShowText(text);
}

void Preview::ClearPreviewCaption() {
  // What is no longer shown will be shown anew.
  previewRow_ = 0;
  if (sub_.Loaded()) sub_.ShowText({});
}

void Preview::SetPreviewMode(bool on) {
  GetPreviewCap();
  window_.tmrPreview.SetEnabled(on);
  window_.cmdNext.SetEnabled(false);
  window_.cmdEnd.SetEnabled(false);
  for (TextBox& box : window_.txtTime) box.SetEnabled(!on);
  if (on) {
    window_.cmdApply.SetEnabled(false);
  } else {
    ClearPreviewCaption();
  }
}

void Preview::GetPreviewCap() {
  if (const Row row = index_.RowAt(playerPosMs_); row != 0) previewNextRow_ = row;
}

void Preview::Redraw(Row row) {
  if (window_.optPreview.Value() && row == previewRow_) ShowPreviewCaption(row);
}

void Preview::Tick() {
  const int state = player_.PlayState();
  if (state != kPlayerPlaying && state != kPlayerPaused) return;
  // A stop, the end or another film sends the film back without a seek.
  if (playerPosMs_ < tickedMs_) GetPreviewCap();
  tickedMs_ = playerPosMs_;
  const std::int32_t start = list_.GetCaptionStart(previewNextRow_);
  const std::int32_t end = list_.GetCaptionEnd(previewNextRow_);
  if (playerPosMs_ < start || playerPosMs_ > end) {
    followDue_ = false;
    if (!sub_.lblSub.GetText().empty()) {
      ClearPreviewCaption();
    }
    if (playerPosMs_ >= end) GetPreviewCap();
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
  if (options_.manner.FollowWaitsForHands() && handsOnCaption && handsOnCaption()) return;
  followDue_ = false;
  if (!options_.F_FOLLOW || list_.Selected() == previewNextRow_) return;
  list_.SetRow(previewNextRow_, false);
  grid_.ScrollRow(true);
}

}  // namespace cuewright
