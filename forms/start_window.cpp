#include "forms/start_window.h"

#include "core/product.h"
#include "forms/web.h"

namespace cuewright {

StartWindow::StartWindow() : Form("frmStart") {}

void StartWindow::ShowMissing(const LangStrings& strings, TextView file, bool rightToLeft) {
  SetTitle(strings[146]);
  SetRightToLeft(rightToLeft);
  lblMain.SetText(strings[147]);
  lblInfo.SetText(strings[148]);
  lblFile.SetText(ToLower(file));
  lblMediaplayer.SetText(strings[131]);
  lblWebsite.SetText(strings[19]);
  cmdIgnore.SetText(strings[70]);
  cmdExit.SetText(strings[5]);
  for (Label* label : {&lblMain, &lblInfo, &lblFile, &lblMediaplayer, &lblWebsite}) {
    label->SetRightToLeft(rightToLeft);
  }
}

void StartWindow::WireLinks(Desktop& desktop, const Text& language) {
  const auto openPlayer = [&desktop] { OpenExternal(desktop, kPlayerPage); };
  imgWMP.MouseDown.Connect([openPlayer](const MouseEvent& mouse) {
    if (mouse.button == MouseButton::Left) openPlayer();
  });
  lblMediaplayer.Clicked.Connect(openPlayer);
  lblWebsite.Clicked.Connect([&desktop, &language] { OpenWebPage(desktop, ProductPage(language), language); });
}

}  // namespace cuewright
