#pragma once

#include <string>
#include <vector>

#include "core/app_options.h"
#include "core/folders.h"
#include "core/lang_strings.h"
#include "core/ports/desktop.h"
#include "core/ports/files.h"
#include "form/controls.h"
#include "forms/help_book.h"
#include "forms/settings_dialog.h"
#include "forms/tool_form.h"
#include "settings/languages.h"

namespace cuewright {

/// What the help works on.
struct HelpParts {
  const Folders& folders;
  const AppOptions& options;
  const LangStrings& strings;
  const Languages& languages;
  const SettingsDialog& settings;  ///< each of its pages has a page of the help
  const Files& files;
  Desktop& desktop;
};

/// The window `frmHelp`: contents, search and pages of the help, with the way back.
class HelpWindow final : public ToolForm {
 public:
  HelpWindow(const HelpParts& parts, OpenForms& openForms);

  Button cmdBack{*this, "cmdBack"};
  Button cmdForward{*this, "cmdForward"};
  Label lblSearch{*this, "lblSearch"};
  TextBox txtSearch{*this, "txtSearch"};
  ListBox lstTopics{*this, "lstTopics"};
  Label lblNotice{*this, "lblNotice"};
  Picture picTopic{*this, "picTopic"};  ///< the page

  /// True when there is help in a language of the table.
  bool Has(TextView language) const;

  /// Shows the page of a window by the window's name, the first one for a window without a page of its own. Nothing
  /// happens where there is no help at all.
  void OpenFor(const std::string& window);

  /// A link on the page was taken: another page or a part of one ("file.html#part"), or an address of the web.
  void Follow(TextView link);

  /// Whole path of the page on show, with "#" and the part behind it where one is meant.
  Text PagePath() const;
  /// What is searched for, to be marked on the page.
  const Text& SearchText() const { return txtSearch.GetText(); }

  void ApplyLanguage(bool rightToLeft) override;

  Signal<HelpWindow> PageChanged;  ///< another page, or part of one, is to be shown

 private:
  void Load() override;
  Text FolderOf(TextView language) const;
  void ReadBook();
  void ShowTopics();
  void Go(const Text& page);
  void Move(std::size_t to);
  void Visit();

  HelpParts p_;
  HelpBook book_;
  Text folder_;                      ///< of the book that is open
  std::vector<std::size_t> listed_;  ///< places of the topics in `lstTopics`
  std::vector<Text> visited_;        ///< pages in the order of their visits
  std::size_t at_ = 0;               ///< the one on show
};

}  // namespace cuewright
