#pragma once

#include "core/app_options.h"
#include "core/folders.h"
#include "core/lang_strings.h"
#include "core/ports/locale.h"
#include "core/ports/web.h"
#include "core/product.h"
#include "core/runtime_error.h"
#include "external/update_list.h"
#include "form/controls.h"
#include "form/dialog.h"
#include "forms/ports.h"
#include "settings/languages.h"
#include "settings/store.h"
#include "text/encodings.h"

namespace cuewright {

/// What the question for updates needs.
struct UpdateParts {
  const AppOptions& options;
  const LangStrings& strings;
  const Languages& languages;
  const Folders& folders;
  const Encodings& encodings;
  const Locale& locale;
  Web& web;
  Ports ports;
  const SettingsStore& store;  ///< can name another site to be asked
  Text settingsFile;           ///< where that is
  Version version{};           ///< of this program
};

/// The dialog `frmUpdate`, which asks the product's site for a newer version. It installs nothing: all that it does is
/// to open the product's page.
class UpdateDialog final : public Dialog {
 public:
  explicit UpdateDialog(UpdateParts parts);

  Label lblStatus{*this, "lblStatus"};
  TextBox txtStatus{*this, "txtStatus"};
  Label lblWhatsNew{*this, "lblWhatsNew"};
  Button cmdOK{*this, "cmdOK"};

  /// Empties the log; the check begins when the window is active.
  void Open();
  /// The window has become the active one: the first time, the check runs. It handles events while it waits, and ends
  /// early when the window closes.
  void OnActivated();

  Signal<UpdateDialog> DefaultRequested;  ///< cmdOK is to be the default button

 protected:
  void OnClose() override;

 private:
  /// One check: which opening of the window it belongs to, and what failed on its way.
  struct Run {
    unsigned opening = 0;
    CarryOn step{};
  };
  enum class End { Gone, Stopped, Finished };

  void AddStatusLine(TextView text);
  void AddError(TextView heading, const RuntimeError& error);
  bool CheckConnection() const;
  bool DownloadUpdateList(const Run& run, const Text& url, const Text& file, int delay);
  /// The window may have closed while events were handled, and even have been opened again.
  bool StillOpen(const Run& run) const { return IsOpen() && run.opening == openings_; }
  bool Wait(const Run& run, int ms);
  End Check(Run& run);
  End Compare(Run& run, const Text& localVersion);
  void Offer(Run& run, const Text& list);
  End Refuse(TextView line);
  void ShowChanges();
  Text TempFile() const { return parts_.folders.TempFolder + u"qxmupd.tmp"; }

  UpdateParts parts_;
  const LangStrings& strings_;
  Text RemoteVersionText;
  unsigned openings_ = 0;
};

}  // namespace cuewright
