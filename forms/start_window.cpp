#include "forms/start_window.h"

#include "core/product.h"
#include "forms/web.h"

namespace cuewright {

StartWindow::StartWindow() : Form("frmStart") {}

void StartWindow::ShowMissing(const LangStrings& strings, TextView file, bool rightToLeft) {
  SetTitle(strings[Message::Warning]);
  SetRightToLeft(rightToLeft);
  lblMain.SetText(strings[Message::RequiredFileMissing]);
  lblInfo.SetText(strings[Message::PlayerNotFound]);
  lblFile.SetText(ToLower(file));
  lblMediaplayer.SetText(strings[Message::DownloadPlayer]);
  lblWebsite.SetText(strings[Message::WebsiteItem]);
  cmdIgnore.SetText(strings[Message::Ignore]);
  cmdExit.SetText(strings[Message::MenuSettings]);
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
