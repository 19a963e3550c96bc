#pragma once

#include <QPointer>
#include <functional>
#include <memory>
#include <vector>

#include "form/dialog.h"
#include "ui/dialog_view.h"
#include "ui/tool_view.h"

namespace cuewright {

/// The registry of views: which window of the toolkit a form gets when it opens. A view is made then and goes when its
/// form closes; the forms stay.
class Windows {
 public:
  /// All windows stand over `owner`.
  explicit Windows(QWidget& owner) : owner_(owner) {}
  ~Windows();

  /// A dialog that holds up who opened it until it closes.
  template <class View, class Window>
  void AddHolding(Window& form) {
    connections_.push_back(form.Opened.ConnectScoped([this, &form] {
      View(form, &owner_).exec();
      form.Close();
    }));
  }

  /// A dialog over whatever stands in front, while who opened it goes on.
  template <class View, class Window>
  void AddFree(Window& form) {
    connections_.push_back(form.Opened.ConnectScoped([&form] { (new View(form, Front()))->ShowModal(); }));
  }

  /// A window beside the main one.
  template <class View, class Window>
  void AddBeside(Window& form) {
    AddTool(form, [this, &form] { return new View(form, &owner_); });
  }

 private:
  struct Tool {
    std::function<ToolView*()> make;
    QPointer<ToolView> view;
  };

  static QWidget* Front();
  static void Show(Tool& tool);
  static void Close(Tool& tool);
  void AddTool(ToolForm& form, std::function<ToolView*()> make);

  QWidget& owner_;
  std::vector<std::unique_ptr<Tool>> tools_;
  std::vector<Connection> connections_;
};

}  // namespace cuewright
