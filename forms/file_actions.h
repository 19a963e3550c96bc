#pragma once

#include <functional>

#include "capture/caption_panel.h"
#include "capture/main_window.h"
#include "capture/timing_capture.h"
#include "core/caption_list.h"
#include "core/document.h"
#include "core/edit_history.h"
#include "core/folders.h"
#include "core/lang_strings.h"
#include "core/signal.h"
#include "formats/catalogue.h"
#include "formats/definition.h"
#include "formats/export.h"
#include "formats/format_state.h"
#include "formats/import.h"
#include "forms/player_binding.h"
#include "forms/ports.h"
#include "forms/recall.h"
#include "forms/recent_files.h"

namespace cuewright {

/// What the actions of the File menu work on.
struct FileActionParts {
  MainWindow& window;
  CaptionList& list;
  const EditHistory& history;
  CaptionPanel& panel;
  DocumentState& document;
  AppOptions& options;
  const LangStrings& strings;
  SettingsStore& store;
  FormatCatalogue& catalogue;
  FormatState& formats;
  FormatLoader& loader;
  Importer& importer;
  Exporter& exporter;
  Recall& recall;
  PlayerBinding& playerBinding;
  TimingCapture& capture;
  SubWindow& sub;
};

/// How a document comes into being, is saved and goes away: the actions of the File menu.
class FileActions {
 public:
  FileActions(FileActionParts parts, Ports ports);

  /// True when the caller may throw the document away.
  bool PromptForSave();
  /// Loads a subtitle or text file as the document.
  void OpenSubtitleFile(TextView path);
  /// Writes to `SubtitlePath` in the format in force; false when no file was written.
  bool SaveDocument();
  /// Asks for a file in any of the formats; the empty text when none was chosen.
  Text OpenFileFilter();
  /// Ends subtitle, video and audio together.
  void CloseDocuments();
  /// The file that the program was started with, by its extension.
  void OpenStartFile(TextView path);

  /// Opens files that were dropped on the window: the films and sounds first, then the last text as the document.
  void OpenDropped(const std::vector<Text>& paths);
  /// Opens a file as what it is.
  void OpenAs(FileKind kind, const Text& path);

  /// The document has come from its file.
  Signal<> Loaded;
  /// The document was written to its file; true with all of its captions.
  Signal<bool> Saved;
  /// The caller may throw the document away; true when the user said that its changes may go.
  Signal<bool> Leaving;
  /// The document has gone, or another is about to come.
  Signal<> Left;

  /// A file was read or written; what waited for that can be done.
  Signal<> FileWorkEnded;

  void New();
  void NewFromClipboard();
  void OpenText();
  void OpenVideo();
  void Append();
  void Save();
  /// False when a dialog was left, or no file was written.
  bool SaveAs();
  void Close();

  Signal<> DocumentOpened;  ///< there is another document; a file's has just been read, before any rule has run
  Signal<> DocumentClosed;

  // Set by the owner of the windows.
  std::function<void()> closeTools;
  std::function<void()> resetControls;
  std::function<void()> refreshFileLabels;
  std::function<void()> resetRuleReport;
  std::function<void()> restoreFilter;  ///< gives the system's own filter for subtitles its settings back
  std::function<void()> applyRulesOnLoad;
  std::function<bool()> chooseFormat;  ///< the export dialog; false when it was left without a choice
  std::function<void(TextView)> openAudioFile;
  std::function<void()> closeWave;

 private:
  void Wire();
  /// There are captions that would be lost with the document.
  bool HasUnsaved() const;
  /// Saves as the user asked for by Yes; false when there is no file with the captions behind it.
  bool SaveBeforeLeaving();
  /// The file that was written with the captions up to a row holds all that the document has.
  bool HoldsAll(Row lastRow) const;
  /// The part of `SaveAs` that may be broken off, or fail, at any place.
  bool ChooseAndSave();
  void LoadSteps(const Text& path, class CarryOn& step);
  void FinishLoad(class CarryOn& step);
  bool LoadFailed() const;
  bool Playing() const { return ports_.player.PlayState() == kPlayerPlaying; }
  Text FilterOf(TextView id, TextView fallbackName) const;
  Text Untitled(Message message) const;
  /// Asks about a file of another name than the picker gave, which asked about that one alone.
  bool MayReplace(const Text& path);

  /// As `PromptForSave`; `thrownAway` tells that the user said so.
  bool MayLeave(bool& thrownAway);

  FileActionParts p_;
  Ports ports_;
};

}  // namespace cuewright
