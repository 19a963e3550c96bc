#include "ui/tool_bar.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>

#include "ui/menu_binder.h"

namespace cuewright {
namespace {

constexpr int kIconSide = 18;
/// The pictures are drawn in a square of so many units.
constexpr double kUnits = 16;

enum class ToolIcon { Open, Save, Undo, Redo, Sound, Check, Retime };

using Line = std::initializer_list<QPointF>;

void AddLine(QPainterPath& path, Line points) { path.addPolygon(QPolygonF(QList<QPointF>(points))); }

QPainterPath Turn(bool back) {
  QPainterPath path;
  path.arcMoveTo(QRectF(3, 4.5, 10, 8), 230);
  path.arcTo(QRectF(3, 4.5, 10, 8), 230, -280);
  AddLine(path, {{2.2, 3.2}, {3.6, 7.2}, {7.6, 6.2}});
  return back ? path : QTransform().translate(kUnits, 0).scale(-1, 1).map(path);
}

/// The lines of a picture.
QPainterPath Lines(ToolIcon icon) {
  QPainterPath path;
  switch (icon) {
    case ToolIcon::Open:
      AddLine(path, {{1.5, 13}, {1.5, 3}, {6, 3}, {7.5, 5}, {13, 5}, {13, 7.5}});
      AddLine(path, {{1.5, 13}, {4, 7.5}, {15, 7.5}, {12.6, 13}, {1.5, 13}});
      break;
    case ToolIcon::Save:
      AddLine(path, {{8, 1.5}, {8, 10}});
      AddLine(path, {{4.5, 6.8}, {8, 10.3}, {11.5, 6.8}});
      AddLine(path, {{2, 10.5}, {2, 14}, {14, 14}, {14, 10.5}});
      break;
    case ToolIcon::Undo:
      return Turn(true);
    case ToolIcon::Redo:
      return Turn(false);
    case ToolIcon::Sound:
      for (const auto& [x, half] : {std::pair{2.0, 1.5}, {5.0, 5.0}, {8.0, 2.5}, {11.0, 6.0}, {14.0, 2.0}}) {
        AddLine(path, {{x, 8 - half}, {x, 8 + half}});
      }
      break;
    case ToolIcon::Check:
      AddLine(path, {{2, 8.5}, {6.2, 12.8}, {14, 3.5}});
      break;
    case ToolIcon::Retime:
      path.addEllipse(QPointF(8, 8), 6.3, 6.3);
      AddLine(path, {{8, 4.2}, {8, 8}, {10.8, 9.8}});
      break;
  }
  return path;
}

/// Draws a picture in the colours in force, sharp at every scale.
class ToolIconEngine final : public QIconEngine {
 public:
  explicit ToolIconEngine(ToolIcon icon) : icon_(icon) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    const QPalette colors = QGuiApplication::palette();
    QColor ink = colors.color(QPalette::Active, QPalette::WindowText);
    if (mode == QIcon::Disabled) ink.setAlphaF(0.35F);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(rect.topLeft());
    painter->scale(rect.width() / kUnits, rect.height() / kUnits);
    painter->setPen(QPen(ink, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->drawPath(Lines(icon_));
    painter->restore();
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }
  QIconEngine* clone() const override { return new ToolIconEngine(icon_); }

 private:
  ToolIcon icon_;
};

/// The item's words without its dots, and its key.
QString TipOf(const QAction& action) {
  QString words = action.text();
  words.remove('&').remove(QStringLiteral("..."));
  const QString key = action.shortcut().toString(QKeySequence::NativeText);
  return key.isEmpty() ? words : QStringLiteral("%1 (%2)").arg(words, key);
}

}  // namespace

ToolBar::ToolBar(MainWindow& form, const MenuBinder& menus, QWidget* parent) : QToolBar(parent) {
  setObjectName("tlbMain");
  setMovable(false);
  setContextMenuPolicy(Qt::PreventContextMenu);
  setIconSize({kIconSide, kIconSide});
  const auto add = [&](const MenuItem& item, ToolIcon icon) {
    QAction& action = menus.ActionOf(item);
    action.setIcon(QIcon(new ToolIconEngine(icon)));
    action.setIconVisibleInMenu(false);
    const auto tip = [&action] {
      if (const QString text = TipOf(action); action.toolTip() != text) action.setToolTip(text);
    };
    tip();
    connect(&action, &QAction::changed, this, tip);
    addAction(&action);
  };
  add(form.mnuOpenText, ToolIcon::Open);
  add(form.mnuSave, ToolIcon::Save);
  addSeparator();
  add(form.mnuUndo, ToolIcon::Undo);
  add(form.mnuRedo, ToolIcon::Redo);
  addSeparator();
  add(form.mnuFilmSound, ToolIcon::Sound);
  add(form.mnuCheck, ToolIcon::Check);
  add(form.mnuRetime, ToolIcon::Retime);
}

}  // namespace cuewright
