#pragma once

#include <string>

#include "form/control.h"

namespace cuewright {

/// A window that opens over another and closes by its own buttons, by Escape or by its frame.
class Dialog : public Form {
 public:
  using Form::Form;
  virtual ~Dialog() = default;

  bool IsOpen() const { return open_; }
  /// Closes the window as its frame does; nothing happens when it is closed.
  void Close() {
    if (!open_) return;
    open_ = false;
    OnClose();
    Closed();
  }

  /// All controls are filled: a window is to be made for them. A window that holds up who opened the dialog comes back
  /// from here when it has closed.
  Signal<Dialog> Opened;
  Signal<Dialog> Closed;

 protected:
  /// To be called last, when all controls are filled.
  void NoteOpened() {
    open_ = true;
    Opened();
  }
  /// What closing does, by whatever way.
  virtual void OnClose() {}

 private:
  bool open_ = false;
};

}  // namespace cuewright
