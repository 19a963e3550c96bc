#pragma once

#include <QAction>
#include <QMenu>
#include <unordered_map>
#include <vector>

#include "ui/binder.h"

namespace cuewright {

/// Shows the menu items of a form as actions and menus of the window.
class MenuBinder final {
 public:
  MenuBinder(QWidget& root, Binder& binder) : root_(root), binder_(binder) {}

  /// Makes the actions of all items below `parent` and puts them into the menu.
  void Fill(QMenu& menu, const MenuItem& parent);
  /// Makes an action for one item, with a menu when others stand below it.
  QAction* Bind(MenuItem& item, QObject* owner);
  /// Shows the items, which stand side by side, with a letter each by which the keyboard chooses them.
  void GiveMnemonics(const std::vector<MenuItem*>& items);

  /// The action of an item, which must have been bound.
  QAction& ActionOf(const MenuItem& item) const { return *actions_.at(&item); }

 private:
  QWidget& root_;
  Binder& binder_;
  std::unordered_map<const MenuItem*, QAction*> actions_;
};

}  // namespace cuewright
