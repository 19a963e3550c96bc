#pragma once

#include <QDialog>
#include <QPointer>
#include <functional>
#include <memory>
#include <vector>

#include "core/signal.h"
#include "forms/program.h"
#include "ui/help_key.h"

namespace cuewright {

/// A tool form's window on the toolkit: it closes with its form, and its frame closes the form.
class ToolView : public QDialog {
 public:
  ToolView(ToolForm& form, QWidget* owner);

 protected:
  void reject() override;
  void changeEvent(QEvent* event) override;

  /// Keeps a connection for the window's life.
  void Keep(Connection connection) { connections_.push_back(std::move(connection)); }

 private:
  ToolForm& form_;
  std::vector<Connection> connections_;
};

/// Makes the windows beside the main one when their forms ask for them, and takes them away.
class ToolWindows {
 public:
  ToolWindows(Program& program, QWidget& owner);
  ~ToolWindows();

 private:
  using Maker = std::function<ToolView*()>;
  struct Entry {
    ToolForm& form;
    Maker make;
    QPointer<ToolView> view;
  };

  void Add(ToolForm& form, Maker make);
  static void Show(Entry& entry);
  static void Close(Entry& entry);

  HelpKey helpKey_;
  std::vector<std::unique_ptr<Entry>> entries_;
  std::vector<Connection> connections_;
};

}  // namespace cuewright
