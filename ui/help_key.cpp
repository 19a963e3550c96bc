#include "ui/help_key.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include "forms/help_window.h"

namespace cuewright {
namespace {

/// The name of the window around a widget, or of the next one below it that has one.
QString NameOfWindow(const QWidget* widget) {
  while (widget != nullptr) {
    const QWidget* window = widget->window();
    if (window->objectName().startsWith("frm")) return window->objectName();
    widget = window->parentWidget();
  }
  return {};
}

}  // namespace

HelpKey::HelpKey(HelpWindow& help) : help_(help) { qApp->installEventFilter(this); }

bool HelpKey::eventFilter(QObject* object, QEvent* event) {
  if (event->type() != QEvent::KeyPress || !object->isWidgetType()) return false;
  const auto& key = static_cast<const QKeyEvent&>(*event);
  if (key.key() != Qt::Key_F1 || key.modifiers() != Qt::NoModifier) return false;
  const QString name = NameOfWindow(static_cast<QWidget*>(object));
  if (name.isEmpty() || name == "frmMain") return false;
  help_.OpenFor(name.toStdString());
  return true;
}

}  // namespace cuewright
