#include "forms/keys_dialog.h"

#include <algorithm>
#include <utility>

#include "core/counting.h"
#include "forms/access_keys.h"
#include "text/labels.h"
#include "text/units.h"
#include "text/utf8.h"

namespace cuewright {

KeysDialog::KeysDialog(CommandKeys& keys, const AppOptions& options, const LangStrings& strings)
    : Dialog("frmKeys"), keys_(keys), options_(options), strings_(strings) {
  cboSet.Chosen.Connect([this] {
    keys_.Choose(ItemAt(kKeySets, cboSet.Index()));
    ShowCommands();
  });
  lstCommands.Chosen.Connect([this] { ShowConflict(); });
  txtKey.Edited.Connect([this] { ShowConflict(); });
  cmdAssign.Clicked.Connect([this] {
    if (MenuItem* item = Selected()) keys_.Assign(*item, ToUtf8(txtKey.GetText()));
    ShowCommands();
  });
  cmdRemove.Clicked.Connect([this] {
    if (MenuItem* item = Selected()) keys_.Assign(*item, {});
    ShowCommands();
  });
  cmdClose.Clicked.Connect([this] { Close(); });
}

void KeysDialog::Open(bool rightToLeft) {
  SetTitle(WithoutDots(strings_[Message::KeysOfCommands]));
  SetAllRightToLeft(rightToLeft);
  AccessKeys keys;
  cmdClose.SetText(keys.Give(strings_[Message::Close]));
  cmdAssign.SetText(keys.Give(strings_[Message::AssignKey]));
  cmdRemove.SetText(keys.Give(strings_[Message::RemoveKey]));
  lblSet.SetText(keys.Give(strings_[Message::KeySetLabel]));
  lblKey.SetText(keys.Give(strings_[Message::NewKey]));
  cboSet.SetSpokenName(strings_[Message::KeySetLabel]);
  txtKey.SetSpokenName(strings_[Message::NewKey]);
  lstCommands.SetSpokenName(WithoutDots(strings_[Message::KeysOfCommands]));
  cboSet.SetItems({strings_[Message::KeySetOwn], strings_[Message::KeySetClassic], u"Aegisub", u"Subtitle Edit"});
  cboSet.SetIndex(PlaceOf(kKeySets, keys_.Set()));
  txtKey.SetText({});
  ShowCommands();
  NoteOpened();
}

MenuItem* KeysDialog::Selected() const {
  const int index = lstCommands.Index();
  return index < 0 || index >= CountOf(commands_) ? nullptr : ItemAt(commands_, index);
}

void KeysDialog::ShowCommands() {
  const int index = std::max(lstCommands.Index(), 0);
  commands_ = keys_.Commands();
  std::vector<Text> names;
  for (const MenuItem* item : commands_) {
    names.push_back(Fill(strings_[Message::CommandAndKey], keys_.PathOf(*item), FromUtf8(item->Shortcut())));
  }
  lstCommands.SetItems(std::move(names));
  lstCommands.SetIndex(index);
  ShowConflict();
}

Text KeysDialog::Objection(const std::string& key) const {
  if (options_.hotkeysOn == 0 || key.size() != 1) return {};
  const std::pair<std::int16_t, Message> letters[] = {{options_.playKey, Message::Play},
                                                      {options_.pauseKey, Message::Pause},
                                                      {options_.stopKey, Message::Stop},
                                                      {options_.startKey, Message::Start},
                                                      {options_.nextKey, Message::Next},
                                                      {options_.endKey, Message::End},
                                                      {options_.rewindKey, Message::Rewind},
                                                      {options_.forwardKey, Message::ForwardKey},
                                                      {options_.jumpKey, Message::JumpToNextSubtitle},
                                                      {options_.previousKey, Message::ReturnToPreviousSubtitle}};
  for (const auto& [letter, name] : letters) {
    if (ByteOf(key.front()) == letter) {
      return Fill(strings_[Message::KeyOfCapture], FromUtf8(key), WithoutAccessKey(strings_[name]));
    }
  }
  return {};
}

void KeysDialog::ShowConflict() {
  const std::string key = ToUtf8(txtKey.GetText());
  const MenuItem* const item = Selected();
  const MenuItem* const holder = keys_.HolderOf(key);
  const Text objection = Objection(key);
  Text told = objection;
  if (told.empty() && holder != nullptr && holder != item) {
    told = Fill(strings_[Message::KeyIsTaken], FromUtf8(key), keys_.PathOf(*holder));
  }
  if (told.empty() && TypesInTexts(key)) told = Fill(strings_[Message::KeyTypes], FromUtf8(key));
  lblConflict.SetText(told);
  cmdAssign.SetEnabled(item != nullptr && !key.empty() && objection.empty());
  cmdRemove.SetEnabled(item != nullptr && !item->Shortcut().empty());
}

}  // namespace cuewright
