#include "forms/shots_dialog.h"

#include "core/counting.h"
#include "forms/access_keys.h"
#include "text/labels.h"

namespace cuewright {
namespace {

constexpr int kLeastSense = 25;
constexpr int kMostSense = 400;

}  // namespace

ShotsDialog::ShotsDialog(FilmShots& shots, AppOptions& options, const LangStrings& strings)
    : Dialog("frmShots"), shots_(shots), options_(options), strings_(strings) {
  sldSense.SetRange(kLeastSense, kMostSense);
  sldSense.Scrolled.Connect([this] { shots_.SetSensitivity(sldSense.Value()); });
  chkFind.Clicked.Connect([this] { options_.findShots = chkFind.Value(); });
  cmdClose.Clicked.Connect([this] { Close(); });
  // Shots may still be arriving while the window is open.
  shots_.Changed.Connect([this] {
    if (IsOpen()) ShowCount();
  });
}

void ShotsDialog::Open(bool rightToLeft) {
  SetTitle(WithoutDots(strings_[Message::ShotsItem]));
  SetAllRightToLeft(rightToLeft);
  AccessKeys keys;
  cmdClose.SetText(keys.Give(strings_[Message::Close]));
  chkFind.SetText(keys.Give(strings_[Message::FindShots]));
  chkFind.SetValue(options_.findShots);
  lblSense.SetText(keys.Give(strings_[Message::ShotSense]));
  sldSense.SetSpokenName(strings_[Message::ShotSense]);
  sldSense.SetValue(options_.shotSense);
  ShowCount();
  NoteOpened();
}

void ShotsDialog::ShowCount() {
  lblCount.SetText(Fill(strings_[Message::ValueInPercent], Decimal(options_.shotSense)) + u"     " +
                   strings_.Counted(Message::ShotsCount, u"%1", CountOf(shots_.Shots())));
}

}  // namespace cuewright
