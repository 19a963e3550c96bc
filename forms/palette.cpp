#include "forms/palette.h"

#include <algorithm>

#include "core/counting.h"
#include "forms/access_keys.h"
#include "text/labels.h"
#include "text/utf8.h"

namespace cuewright {
namespace {

bool HasAllWords(const Text& name, const std::vector<Text>& words) {
  return std::ranges::all_of(words, [&](const Text& word) { return FindPlain(name, word) != Text::npos; });
}

}  // namespace

Palette::Palette(const CommandKeys& keys, const LangStrings& strings)
    : Dialog("frmPalette"), keys_(keys), strings_(strings) {
  txtWords.Edited.Connect([this] { ShowFound(); });
  txtWords.KeyDown.Connect([this](KeyEvent& key) {
    if (key.code != kKeyUp && key.code != kKeyDown) return;
    key.handled = true;
    MoveSelection(key.code == kKeyUp ? -1 : 1);
  });
  cmdOK.Clicked.Connect([this] { Run(); });
  cmdCancel.Clicked.Connect([this] { Close(); });
}

void Palette::Open(bool rightToLeft) {
  SetTitle(WithoutDots(strings_[Message::FindCommand]));
  SetAllRightToLeft(rightToLeft);
  AccessKeys keys;
  cmdOK.SetText(keys.Give(strings_[Message::Ok]));
  cmdCancel.SetText(keys.Give(strings_[Message::Cancel]));
  lblWords.SetText(keys.Give(strings_[Message::FindCommandHint]));
  txtWords.SetSpokenName(strings_[Message::FindCommandHint]);
  lstCommands.SetSpokenName(WithoutDots(strings_[Message::FindCommand]));
  txtWords.SetText({});
  ShowFound();
  NoteOpened();
}

void Palette::ShowFound() {
  std::vector<Text> words = Split(ToLower(txtWords.GetText()), u" ");
  std::erase(words, Text());
  found_.clear();
  std::vector<Text> names;
  for (MenuItem* item : keys_.Commands()) {
    Text path = keys_.PathOf(*item);
    // A command whose item is hidden can't be run now.
    if (!item->Visible() || !HasAllWords(ToLower(path), words)) continue;
    found_.push_back(item);
    const bool keyed = !item->Shortcut().empty();
    names.push_back(keyed ? Fill(strings_[Message::CommandAndKey], path, FromUtf8(item->Shortcut())) : path);
  }
  lstCommands.SetItems(std::move(names));
  lstCommands.SetIndex(0);
  cmdOK.SetEnabled(!found_.empty());
}

void Palette::MoveSelection(int by) {
  if (found_.empty()) return;
  lstCommands.SetIndex(std::clamp(lstCommands.Index() + by, 0, CountOf(found_) - 1));
}

void Palette::Run() {
  const int index = lstCommands.Index();
  if (index < 0 || index >= CountOf(found_)) return;
  MenuItem* const item = ItemAt(found_, index);
  // The palette closes first, so that a dialog of the command doesn't open on top of it.
  Close();
  item->Click();
}

}  // namespace cuewright
