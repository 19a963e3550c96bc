#include "forms/list_dialog.h"

#include <utility>

#include "forms/access_keys.h"

namespace cuewright {

ListDialog::ListDialog(std::string name, const LangStrings& strings) : Dialog(std::move(name)), strings_(strings) {
  cmdSave.Clicked.Connect([this] {
    result_ = true;
    Close();
  });
  cmdCancel.Clicked.Connect([this] { Close(); });
}

void ListDialog::Open(const ListDialogContent& content, bool rightToLeft) {
  result_ = false;
  SetTitle(content.title);
  SetAllRightToLeft(rightToLeft);
  lblTop.SetText(content.heading);
  Text list;
  for (const Text& line : content.lines) {
    if (!list.empty()) list += kLineEnd;
    list += line;
  }
  txtList.SetText(list);
  txtList.SetSpokenName(content.title);
  const bool asks = !content.save.empty();
  cmdSave.SetVisible(asks);
  AccessKeys keys;
  cmdCancel.SetText(keys.Give(strings_[asks ? Message::Cancel : Message::Close]));
  if (asks) cmdSave.SetText(keys.Give(content.save));
  NoteOpened();
}

}  // namespace cuewright
