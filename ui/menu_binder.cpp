#include "ui/menu_binder.h"

#include <utility>

#include "form/mnemonics.h"

namespace cuewright {
namespace {

constexpr std::size_t kLongestPath = 61;

/// The caption of an item: a path that would stretch the menu is shortened in its middle.
Text CaptionOf(const MenuItem& item) {
  const Text& text = item.GetText();
  if (!text.starts_with(u'/') || text.size() <= kLongestPath) return text;
  Text front = text.substr(0, kLongestPath / 2);
  Text back = text.substr(text.size() - kLongestPath / 2);
  // Neither half of a character is left, nor of a doubled ampersand.
  const auto half = [](char16_t unit) { return unit == u'&' || (unit >= 0xD800 && unit < 0xE000); };
  while (half(front.back())) front.pop_back();
  while (!back.empty() && half(back.front())) back.erase(0, 1);
  return front + u"\u2026" + back;
}

}  // namespace

QAction* MenuBinder::Bind(MenuItem& item, QObject* owner) {
  auto* action = new QAction(owner);
  action->setObjectName(QString::fromStdString(item.Name()));
  action->setSeparator(item.IsSeparator());
  action->setCheckable(item.Checkable());
  actions_[&item] = action;
  binder_.Watch(item, [this, &item, action] {
    action->setText(binder_.Shown(CaptionOf(item)));
    const QList<QKeySequence> keys = QKeySequence::listFromString(QString::fromStdString(item.Shortcut()));
    if (action->shortcuts() != keys) action->setShortcuts(keys);
    action->setEnabled(item.Enabled());
    action->setVisible(item.Visible());
    action->setChecked(item.Checked());
  });
  binder_.FollowDirection(item);
  QObject::connect(action, &QAction::triggered, &binder_, [&item, action] {
    // The form decides about the check, not the click.
    action->setChecked(item.Checked());
    item.Click();
    action->setChecked(item.Checked());
  });
  if (item.Items().empty()) return action;
  auto* menu = new QMenu(&root_);
  menu->setObjectName(action->objectName() + "Menu");
  QObject::connect(menu, &QMenu::aboutToShow, &binder_, [&item] { item.OpenMenu(); });
  Fill(*menu, item);
  action->setMenu(menu);
  return action;
}

void MenuBinder::GiveMnemonics(const std::vector<MenuItem*>& items) {
  std::vector<MenuItem*> shown;
  std::vector<Text> captions;
  for (MenuItem* item : items) {
    if (item->IsSeparator() || !item->Visible()) continue;
    shown.push_back(item);
    captions.push_back(CaptionOf(*item));
  }
  captions = WithMnemonics(std::move(captions));
  for (std::size_t i = 0; i < shown.size(); ++i) {
    const QString text = binder_.Shown(captions[i]);
    QAction& action = ActionOf(*shown[i]);
    if (action.text() != text) action.setText(text);
  }
}

void MenuBinder::Fill(QMenu& menu, const MenuItem& parent) {
  for (MenuItem* item : parent.Items()) menu.addAction(Bind(*item, &menu));
  // What the menu shows is known when it opens.
  QObject::connect(&menu, &QMenu::aboutToShow, &binder_, [this, &parent] { GiveMnemonics(parent.Items()); });
}

}  // namespace cuewright
