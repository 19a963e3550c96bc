#include "ui/bindings.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QProgressBar>
#include <QSlider>
#include <memory>
#include <utility>

#include "ui/binder.h"
#include "ui/event_tap.h"
#include "ui/key_codes.h"
#include "ui/labels.h"
#include "ui/qt_color.h"
#include "ui/qt_text.h"

namespace cuewright {
namespace {

// Properties of a label: the style that its form has set.
constexpr const char* kBoldProperty = "boldByForm";
constexpr const char* kColorProperty = "colorByForm";

void ShowStyle(const Label& label, QLabel& widget) {
  // A label that the window makes bold by itself stays so.
  if (label.Bold() != widget.property(kBoldProperty).toBool()) {
    QFont font = widget.font();
    font.setBold(label.Bold());
    widget.setFont(font);
    widget.setProperty(kBoldProperty, label.Bold());
  }
  const QColor color = label.Color() ? ColorOf(*label.Color()) : QColor();
  if (widget.property(kColorProperty).value<QColor>() == color) return;
  QPalette palette = widget.parentWidget()->palette();
  if (color.isValid()) palette.setColor(QPalette::WindowText, color);
  widget.setPalette(palette);
  widget.setProperty(kColorProperty, color);
}

void ShowText(const Control& control, QAbstractButton& widget) {
  if (widget.text() != ToQt(control.GetText())) widget.setText(ToQt(control.GetText()));
}

MouseEvent MouseEventOf(const QEvent& event) {
  const auto& mouse = static_cast<const QMouseEvent&>(event);
  const QPoint at = mouse.position().toPoint();
  return {MouseButtonOf(mouse.button()), at.x(), at.y()};
}

template <class Strip>
void AttachLabel(Binder& binder, Label& label, QLabel& widget, Strip strip) {
  binder.Watch(label, [&, strip] {
    const QString text = binder.Shown(strip(ReplaceAll(label.GetText(), kLineEnd, u"\n")));
    if (widget.text() != text) widget.setText(text);
    ShowStyle(label, widget);
  });
  binder.FollowDirection(label);
  new EventTap(binder, widget, [&label](QEvent& event) {
    const bool pressed = event.type() == QEvent::MouseButtonPress;
    if (pressed && MouseEventOf(event).button == MouseButton::Left) label.Click();
    return false;
  });
}

}  // namespace

void Attach(Binder& binder, Label& label, QLabel& widget) {
  AttachLabel(binder, label, widget, [](const Text& text) { return text; });
}

void Attach(Binder& binder, Label& label, CaptionLabel& widget) {
  AttachLabel(binder, label, widget, WithoutAccessKey);
}

void Attach(Binder& binder, Label& label, QAbstractButton& widget) {
  binder.Watch(label, [&] { ShowText(label, widget); });
  QObject::connect(&widget, &QAbstractButton::clicked, &binder, [&label] { label.Click(); });
}

void Attach(Binder& binder, Button& button, QAbstractButton& widget) {
  binder.Watch(button, [&] { ShowText(button, widget); });
  QObject::connect(&widget, &QAbstractButton::clicked, &binder, [&button] { button.Click(); });
  new EventTap(binder, widget, [&button](QEvent& event) {
    switch (event.type()) {
      case QEvent::KeyPress: {
        KeyEvent key = KeyEventOf(static_cast<QKeyEvent&>(event));
        button.PressKey(key);
        break;
      }
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonDblClick:
        if (button.Enabled()) button.PressMouse(MouseEventOf(event));
        break;
      case QEvent::MouseButtonRelease:
        button.ReleaseMouse(MouseEventOf(event));
        break;
      default:
        break;
    }
    return false;
  });
}

void Attach(Binder& binder, OptionButton& option, QAbstractButton& widget) {
  const auto showChosen = [&] {
    const QSignalBlocker quiet(&widget);
    // Screen readers take a button for a radio button when it is exclusive, but an exclusive button can't be unchecked,
    // which the form may want.
    widget.setAutoExclusive(false);
    widget.setChecked(option.Value());
    widget.setAutoExclusive(true);
  };
  binder.Watch(option, [&, showChosen] {
    ShowText(option, widget);
    showChosen();
  });
  binder.Keep(binder.OptionChosen.ConnectScoped(showChosen));
  const auto choose = [&] {
    option.Click();
    binder.NoteOptionChosen();
  };
  // A screen reader checks the button without a click; a click of the user comes behind its check.
  const auto told = std::make_shared<bool>(false);
  QObject::connect(&widget, &QAbstractButton::toggled, &binder, [told, choose](bool on) {
    *told = on;
    if (on) choose();
  });
  QObject::connect(&widget, &QAbstractButton::clicked, &binder, [told, choose] {
    if (!std::exchange(*told, false)) choose();
  });
}

void Attach(Binder& binder, CheckBox& check, QCheckBox& widget) {
  const QPalette plain = widget.palette();
  const QPalette::ColorRole ground = widget.backgroundRole();
  const auto showCheck = [&] {
    const QSignalBlocker quiet(&widget);
    widget.setChecked(check.Value());
  };
  binder.Watch(check, [&, plain, ground, showCheck] {
    ShowText(check, widget);
    showCheck();
    if (widget.autoFillBackground() == check.Highlighted()) return;
    QPalette colors = plain;
    if (check.Highlighted()) colors.setBrush(QPalette::WindowText, colors.toolTipText());
    widget.setPalette(colors);
    widget.setBackgroundRole(check.Highlighted() ? QPalette::ToolTipBase : ground);
    widget.setAutoFillBackground(check.Highlighted());
  });
  // Assistive tools toggle the box without a click.
  QObject::connect(&widget, &QCheckBox::toggled, &binder, [&check, showCheck] {
    check.Click();
    showCheck();
  });
}

void Attach(Binder& binder, Slider& slider, QSlider& widget) {
  binder.Watch(slider, [&] {
    const QSignalBlocker quiet(&widget);
    widget.setRange(slider.Min(), slider.Max());
    if (widget.value() != slider.Value()) widget.setValue(slider.Value());
  });
  QObject::connect(&widget, &QSlider::valueChanged, &binder, [&slider](int value) { slider.Move(value); });
}

void Attach(Binder& binder, ProgressBar& bar, QProgressBar& widget) {
  binder.Watch(bar, [&] {
    // Without a range the widget shows that it is busy.
    widget.setRange(bar.Busy() ? 0 : bar.Min(), bar.Busy() ? 0 : bar.Max());
    widget.setValue(bar.Value());
  });
}

void Attach(Binder& binder, Frame& frame, QGroupBox& widget) {
  binder.Watch(frame, [&] { widget.setTitle(ToQt(frame.GetText())); });
}

void Attach(Binder& /*binder*/, Frame& /*frame*/, QWidget& /*widget*/) {}

void Attach(Binder& binder, Picture& picture, QWidget& widget) {
  new EventTap(binder, widget, [&picture](QEvent& event) {
    if (event.type() == QEvent::MouseButtonPress) picture.PressMouse(MouseEventOf(event));
    return false;
  });
}

}  // namespace cuewright
