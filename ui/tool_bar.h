#pragma once

#include <QToolBar>

#include "capture/main_window.h"

namespace cuewright {

class MenuBinder;

/// The bar `tlbMain` under the menus: those of their items that one needs all day, as pictures.
class ToolBar final : public QToolBar {
 public:
  /// The items must have been bound.
  ToolBar(MainWindow& form, const MenuBinder& menus, QWidget* parent);
};

}  // namespace cuewright
