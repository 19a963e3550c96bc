#pragma once

#include "capture/caption_panel.h"
#include "capture/preview.h"
#include "capture/timing_capture.h"
#include "capture/workbench.h"
#include "forms/ports.h"
#include "settings/store.h"

namespace cuewright {

/// The actions on captions of the menus Edit, Format and Settings, of the list and of the text pane.
class CaptionCommands {
 public:
  CaptionCommands(Workbench bench, CaptionPanel& panel, Preview& preview, TimingCapture& capture, SettingsStore& store,
                  Ports ports);

  /// Asks for a text and inserts it untimed at a row (0: the bottom); false when the user gave none.
  bool CreateCaption(Row row);

  /// The check and the custom text of the separator's menu follow the separator in force.
  void ShowSeparator();

  /// The list and the pane show the marks in the texts or hide them, as the settings say.
  void ShowMarks();

  /// The captions are written with this separator again: it is the one in force, in the store and in the menu.
  void RestoreSeparator(const Text& separator);

  /// What the list does on its own keys and clicks.
  void OnListKey(KeyEvent& key);
  void OnListDoubleClick();
  /// Pointer position in pixels from the list's top, heading included. True when the list's menu is to open.
  bool OnListRightDown(int y);
  void OnListUp(int y);

 private:
  void WireMenus();
  void WireTextPane();
  void AddBelow();
  void AddBottom();
  void EditSelected();
  void RemoveSelected();
  void GoTo();
  void CountUntimed();
  void NextUntimed();
  void ToggleMarks();
  void ChangeSeparator(std::size_t choice);
  void ReplaceSeparator(TextView before, TextView after);
  void TakeTextPane();
  std::uint64_t TypingNumber(Row row);

  Workbench bench_;
  CaptionPanel& panel_;
  Preview& preview_;
  TimingCapture& capture_;
  SettingsStore& store_;
  Ports ports_;
  std::uint64_t insertNumber_ = 0;
  std::uint64_t typingNumber_ = 0;  ///< of what is typed without a pause in one row
  Row typingRow_ = 0;
  std::int64_t typedAt_ = 0;
};

}  // namespace cuewright
