#pragma once

#include <string>
#include <utility>

#include "form/control.h"
#include "forms/open_forms.h"

namespace cuewright {

/// A window that stands beside the main one without holding it up. It is loaded from `Show` to `Close`.
class ToolForm : public Form {
 public:
  ToolForm(std::string name, OpenForms& openForms) : Form(std::move(name)), openForms_(openForms) {}
  virtual ~ToolForm() = default;

  bool Loaded() const { return loaded_; }

  /// Loads the window and shows it; one that is loaded comes to the front.
  void Show() {
    if (!loaded_) {
      loaded_ = true;
      openForms_.Opened(Name(), [this] { Close(); });
      Load();
    }
    ShowRequested();
  }

  /// Unloads the window; nothing happens when it isn't loaded.
  void Close() {
    if (!loaded_) return;
    loaded_ = false;
    openForms_.Closed(Name());
    Unload();
    CloseRequested();
  }

  /// The window has become the active one.
  virtual void OnActivated() {}

  /// The texts are those of another language now.
  virtual void ApplyLanguage(bool rightToLeft) = 0;

  Signal<ToolForm> ShowRequested;   ///< a widget for the window is to be made and shown, or to come to the front
  Signal<ToolForm> CloseRequested;  ///< that widget is to go

 protected:
  /// Fills the controls of a window that is about to open.
  virtual void Load() = 0;
  /// Forgets what only a window on show needs.
  virtual void Unload() {}

 private:
  OpenForms& openForms_;
  bool loaded_ = false;
};

}  // namespace cuewright
