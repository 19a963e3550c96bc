#pragma once

#include <QElapsedTimer>
#include <QWidget>

#include "core/lang_strings.h"
#include "core/ports/desktop.h"
#include "core/ports/event_queue.h"
#include "core/ports/file_dialogs.h"
#include "core/ports/messages.h"

namespace cuewright {

/// The window over which a box opens: the active one, else one that is seen; null for none.
QWidget* BoxOwner();

/// The path that a picker gave, with bytes that are no UTF-8 kept.
Text PickedPath(const QString& path);

/// Message boxes and one-line questions of the desktop, over the active window.
class QtMessages final : public Messages {
 public:
  /// From now on the buttons bear these strings, as they are when a box opens.
  void LabelButtons(const LangStrings& strings) { strings_ = &strings; }

  BoxAnswer Show(const MessageBox& box) override;
  Text Ask(const InputBox& box) override;

 private:
  const LangStrings* strings_ = nullptr;
};

class QtFileDialogs final : public FileDialogs {
 public:
  Text ShowOpenDialog(TextView title, TextView filter, TextView folder) override;
  Text ShowSaveDialog(TextView title, TextView filter, TextView folder, TextView proposal) override;
};

class QtEventQueue final : public EventQueue {
 public:
  QtEventQueue();
  void Yield() override;
  void YieldToPainting() override;
  void WaitMs(int ms) override;
  std::int64_t NowMs() const override;

 private:
  QElapsedTimer clock_;
  qint64 yieldedAt_ = 0;
};

class QtDesktop final : public Desktop {
 public:
  bool ShellOpen(TextView target) override;
  bool OpenRegionalSettings() override;
  bool ClipboardHasText() const override;
  Text ClipboardText() const override;
  std::string ClipboardCaptions() const override;
  void PutOnClipboard(TextView text, const std::string& captions) override;
  void SetBusy(bool busy) override;

 private:
  bool busy_ = false;
};

}  // namespace cuewright
