#pragma once

#include "core/document.h"
#include "core/folders.h"
#include "core/lang_strings.h"
#include "core/ports/processes.h"
#include "external/video_tool.h"
#include "forms/open_forms.h"
#include "forms/ports.h"
#include "forms/recall.h"
#include "settings/languages.h"
#include "settings/store.h"

namespace cuewright {

/// What the two wizards work on.
struct WizardParts {
  DocumentState& document;
  const AppOptions& options;
  const LangStrings& strings;
  const Languages& languages;
  SettingsStore& store;
  const Recall& recall;
  const Folders& folders;
  OpenForms& openForms;
  Processes* processes;  ///< null: no program can be started
  Ports ports;
};

/// What the wizards need and the web site offers, each by the number of its page.
enum class Download { Xvid = 10, Tool = 14, Subtitler = 18 };

/// The tool that carries the scripts out, in the folder that the user chose.
class WizardTool {
 public:
  explicit WizardTool(WizardParts parts) : p_(parts) {}

  /// Takes the stored folder, or that of our own runner where none is stored. Gives the folder.
  Text TakeStored();
  /// Takes a folder as typed. Gives the tool in it.
  const VideoTool& Take(TextView folder);
  /// Takes a folder and stores it.
  void Store(TextView folder);
  const VideoTool& Get() const { return tool_; }

  /// Asks for a folder; empty when none was chosen or no tool is in it, which is told.
  Text AskFolder();
  /// Tells what is wrong with the folder in a box; true when nothing is.
  [[nodiscard]] bool Check(TextView folder);
  /// Opens the page from which a program is had.
  void OpenDownload(Download program);

  /// Starts a program of the Windows kind; nothing happens when it can't be started.
  void StartWine(const std::vector<Text>& command);

  /// Starts the tool on a script, its working folder the one given; null when it can't be started.
  std::unique_ptr<ChildProcess> Start(TextView script, TextView folder, bool minimised);

 private:
  WizardParts p_;
  VideoTool tool_;
};

}  // namespace cuewright
