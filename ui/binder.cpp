#include "ui/binder.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QScopedValueRollback>
#include <QSlider>
#include <QTextCursor>
#include <utility>

#include "form/mnemonics.h"
#include "ui/key_codes.h"
#include "ui/qt_color.h"
#include "ui/qt_text.h"

namespace cuewright {

namespace {

// What a label's form had it shown as last.
constexpr const char* kBoldProperty = "boldByForm";
constexpr const char* kColorProperty = "colourByForm";

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

const char* const Binder::kCaptionProperty = "caption";

Binder::Binder(QWidget& root, Form& form) : QObject(&root), root_(root), form_(form) {}

Binder::~Binder() = default;

void Binder::Watch(Control& control, std::function<void()> show) {
  show();
  connections_.push_back(control.Changed.ConnectScoped(std::move(show)));
}

void Binder::ShowCommon(const Control& control, QWidget& widget) {
  if (widget.isEnabled() != control.Enabled()) widget.setEnabled(control.Enabled());
  if (widget.isHidden() == control.Visible()) widget.setVisible(control.Visible());
  const QString tip = ToQt(control.ToolTip());
  if (widget.toolTip() != tip) widget.setToolTip(tip);
  const QString spoken = ToQt(control.SpokenName());
  if (!spoken.isEmpty() && widget.accessibleName() != spoken) widget.setAccessibleName(spoken);
  const auto direction = control.RightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
  if (widget.testAttribute(Qt::WA_SetLayoutDirection) || control.RightToLeft()) {
    if (widget.layoutDirection() != direction) widget.setLayoutDirection(direction);
  }
  if (widget.font().underline() != control.Underlined()) {
    QFont font = widget.font();
    font.setUnderline(control.Underlined());
    widget.setFont(font);
  }
}

QAction* Binder::MakeAction(MenuItem& item, QObject* owner) {
  auto* action = new QAction(owner);
  action->setObjectName(QString::fromStdString(item.Name()));
  action->setSeparator(item.IsSeparator());
  action->setCheckable(item.Checkable());
  if (!item.Shortcut().empty()) {
    action->setShortcuts(QKeySequence::listFromString(QString::fromStdString(item.Shortcut())));
  }
  bound_.insert(&item, action);
  Watch(item, [this, &item, action] {
    action->setText(Shown(CaptionOf(item)));
    action->setEnabled(item.Enabled());
    action->setVisible(item.Visible());
    action->setChecked(item.Checked());
  });
  connect(action, &QAction::triggered, this, [&item, action] {
    // The form decides about the check, not the click.
    action->setChecked(item.Checked());
    item.Click();
    action->setChecked(item.Checked());
  });
  auto* menu = new QMenu(&root_);
  menu->setObjectName(action->objectName() + "Menu");
  connect(menu, &QMenu::aboutToShow, this, [&item] { item.AboutToShow(); });
  FillMenu(*menu, item);
  if (menu->isEmpty()) {
    delete menu;
  } else {
    action->setMenu(menu);
  }
  return action;
}

QString Binder::Shown(TextView text) const {
  return ToQt(form_.RightToLeft() ? InItsOrderFromRight(text) : Text(text));
}

void Binder::GiveMnemonics(const std::vector<MenuItem*>& items) {
  std::vector<MenuItem*> shown;
  std::vector<Text> captions;
  for (MenuItem* item : items) {
    if (item->IsSeparator() || !item->Visible() || !bound_.contains(item)) continue;
    shown.push_back(item);
    captions.push_back(CaptionOf(*item));
  }
  captions = WithMnemonics(std::move(captions));
  for (std::size_t i = 0; i < shown.size(); ++i) {
    const QString text = Shown(captions[i]);
    auto* action = qobject_cast<QAction*>(bound_.value(shown[i]));
    if (action->text() != text) action->setText(text);
  }
}

std::vector<MenuItem*> Binder::ItemsBelow(const MenuItem& parent) const {
  std::vector<MenuItem*> items;
  for (Control* control : form_.Controls()) {
    if (control->GetKind() != Control::Kind::Menu) continue;
    auto* item = static_cast<MenuItem*>(control);
    if (item->Parent() == &parent) items.push_back(item);
  }
  return items;
}

void Binder::FillMenu(QMenu& menu, const MenuItem& parent) {
  for (MenuItem* item : ItemsBelow(parent)) {
    if (!bound_.contains(item)) menu.addAction(MakeAction(*item, &menu));
  }
  // What the menu shows is known when it opens.
  connect(&menu, &QMenu::aboutToShow, this, [this, &parent] { GiveMnemonics(ItemsBelow(parent)); });
}

QStringList Binder::BindAll() {
  QStringList missing;
  for (Control* control : form_.Controls()) {
    if (!bound_.contains(control) && !BindOne(*control)) missing << QString::fromStdString(control->Name());
  }
  if (!form_.Hovered.Empty()) {
    root_.setMouseTracking(true);
    root_.installEventFilter(this);
  }
  connections_.push_back(form_.DirectionChanged.ConnectScoped([this] {
    // Paths and numbers keep their order by the direction.
    for (Control* control : form_.Controls()) {
      if (control->GetKind() == Control::Kind::Menu || control->GetKind() == Control::Kind::Label) control->Changed();
    }
  }));
  connections_.push_back(form_.FocusRequested.ConnectScoped([this](Control& control) {
    if (auto* widget = qobject_cast<QWidget*>(bound_.value(&control))) widget->setFocus();
  }));
  return missing;
}

bool Binder::BindOne(Control& control) {
  if (control.GetKind() == Control::Kind::Timer) {
    BindTimer(static_cast<Timer&>(control));
    return true;
  }
  auto* widget = root_.findChild<QWidget*>(QString::fromStdString(control.Name()));
  if (widget == nullptr) return false;
  bound_.insert(&control, widget);
  BindWidget(control, *widget);
  if (!control.Hovered.Empty()) WatchHover(control, *widget);
  return true;
}

void Binder::BindWidget(Control& control, QWidget& widget) {
  switch (control.GetKind()) {
    case Control::Kind::Label:
      return BindLabel(static_cast<Label&>(control), widget);
    case Control::Kind::Button:
      return BindButton(static_cast<Button&>(control), static_cast<QAbstractButton&>(widget));
    case Control::Kind::Option:
      return BindOption(static_cast<OptionButton&>(control), static_cast<QAbstractButton&>(widget));
    case Control::Kind::Check:
      return BindCheck(static_cast<CheckBox&>(control), static_cast<QCheckBox&>(widget));
    case Control::Kind::Slider:
      return BindSlider(static_cast<Slider&>(control), static_cast<QSlider&>(widget));
    case Control::Kind::List:
      return BindList(static_cast<ListBox&>(control), static_cast<QListWidget&>(widget));
    case Control::Kind::TextBox:
      return BindTextBox(static_cast<TextBox&>(control), widget);
    case Control::Kind::Combo:
      return BindCombo(static_cast<ComboBox&>(control), static_cast<QComboBox&>(widget));
    case Control::Kind::Progress:
      return BindProgress(static_cast<ProgressBar&>(control), static_cast<QProgressBar&>(widget));
    case Control::Kind::Frame:
      return Watch(control, [this, &control, &widget] {
        if (auto* group = qobject_cast<QGroupBox*>(&widget)) group->setTitle(ToQt(control.GetText()));
        ShowCommon(control, widget);
      });
    default:
      Watch(control, [this, &control, &widget] { ShowCommon(control, widget); });
      filtered_.insert(&widget, &control);
      widget.installEventFilter(this);
  }
}

void Binder::BindLabel(Label& label, QWidget& widget) {
  if (auto* button = qobject_cast<QAbstractButton*>(&widget)) {
    Watch(label, [this, &label, button] {
      if (button->text() != ToQt(label.GetText())) button->setText(ToQt(label.GetText()));
      ShowCommon(label, *button);
    });
    connect(button, &QAbstractButton::clicked, this, [&label] { label.Clicked(); });
    return;
  }
  auto* shown = qobject_cast<QLabel*>(&widget);
  Watch(label, [this, &label, shown, &widget] {
    if (shown != nullptr) {
      const bool caption = shown->property(kCaptionProperty).toBool();
      const Text lines = ReplaceAll(label.GetText(), kLineEnd, u"\n");
      const QString text = Shown(caption ? WithoutAccessKey(lines) : lines);
      if (shown->text() != text) shown->setText(text);
      ShowStyle(label, *shown);
    }
    ShowCommon(label, widget);
  });
  filtered_.insert(&widget, &label);
  widget.installEventFilter(this);
}

void Binder::ShowStyle(const Label& label, QLabel& shown) {
  // A label that the window makes bold by itself stays so.
  if (label.Bold() != shown.property(kBoldProperty).toBool()) {
    QFont font = shown.font();
    font.setBold(label.Bold());
    shown.setFont(font);
    shown.setProperty(kBoldProperty, label.Bold());
  }
  const QColor color = label.Color() ? ColorOf(*label.Color()) : QColor();
  if (shown.property(kColorProperty).value<QColor>() == color) return;
  QPalette palette = shown.parentWidget()->palette();
  if (color.isValid()) palette.setColor(QPalette::WindowText, color);
  shown.setPalette(palette);
  shown.setProperty(kColorProperty, color);
}

void Binder::BindTimer(Timer& timer) {
  auto* clock = new QTimer(this);
  clock->setObjectName(QString::fromStdString(timer.Name()));
  clock->setTimerType(Qt::PreciseTimer);
  clock->setInterval(timer.Interval());
  bound_.insert(&timer, clock);
  Watch(timer, [&timer, clock] {
    if (timer.Enabled() == clock->isActive()) return;
    if (timer.Enabled()) {
      clock->start();
    } else {
      clock->stop();
    }
  });
  connect(clock, &QTimer::timeout, this, [&timer] {
    if (timer.Enabled()) timer.Tick();
  });
}

void Binder::BindButton(Button& button, QAbstractButton& widget) {
  Watch(button, [this, &button, &widget] {
    if (widget.text() != ToQt(button.GetText())) widget.setText(ToQt(button.GetText()));
    ShowCommon(button, widget);
  });
  connect(&widget, &QAbstractButton::clicked, this, [&button] { button.Click(); });
  filtered_.insert(&widget, &button);
  widget.installEventFilter(this);
}

void Binder::BindOption(OptionButton& option, QAbstractButton& widget) {
  Watch(option, [this, &option, &widget] {
    if (widget.text() != ToQt(option.GetText())) widget.setText(ToQt(option.GetText()));
    ShowChosen(option, widget);
    ShowCommon(option, widget);
  });
  const auto choose = [this, &option] {
    if (option.Enabled()) option.Clicked();
    ShowOptions();
  };
  // A screen reader checks the button without a click.
  connect(&widget, &QAbstractButton::toggled, this, [this, &option, choose](bool on) {
    if (showing_ || !on) return;
    told_ = &option;
    choose();
  });
  connect(&widget, &QAbstractButton::clicked, this, [this, &option, choose] {
    if (std::exchange(told_, nullptr) != &option) choose();
  });
}

void Binder::ShowOptions() {
  for (Control* control : form_.Controls()) {
    auto* widget = qobject_cast<QAbstractButton*>(bound_.value(control));
    if (control->GetKind() == Control::Kind::Option && widget != nullptr) {
      ShowChosen(static_cast<OptionButton&>(*control), *widget);
    }
  }
}

void Binder::ShowChosen(const OptionButton& option, QAbstractButton& widget) {
  const QScopedValueRollback<bool> showing(showing_, true);
  // A button of an exclusive group is what screen readers take for a radio button. But the form keeps the group, and
  // the toolkit would not let go of the one that is checked.
  widget.setAutoExclusive(false);
  widget.setChecked(option.Value());
  widget.setAutoExclusive(true);
}

void Binder::BindCheck(CheckBox& check, QCheckBox& widget) {
  const QPalette plain = widget.palette();
  const QPalette::ColorRole ground = widget.backgroundRole();
  Watch(check, [this, &check, &widget, plain, ground] {
    const QScopedValueRollback<bool> showing(showing_, true);
    if (widget.text() != ToQt(check.GetText())) widget.setText(ToQt(check.GetText()));
    widget.setChecked(check.Value());
    if (widget.autoFillBackground() != check.Highlighted()) {
      QPalette colors = plain;
      if (check.Highlighted()) colors.setBrush(QPalette::WindowText, colors.toolTipText());
      widget.setPalette(colors);
      widget.setBackgroundRole(check.Highlighted() ? QPalette::ToolTipBase : ground);
      widget.setAutoFillBackground(check.Highlighted());
    }
    ShowCommon(check, widget);
  });
  // A screen reader checks the box without a click.
  connect(&widget, &QCheckBox::toggled, this, [this, &check, &widget] {
    if (showing_) return;
    check.Click();
    const QScopedValueRollback<bool> showing(showing_, true);
    widget.setChecked(check.Value());
  });
}

void Binder::BindSlider(Slider& slider, QSlider& widget) {
  Watch(slider, [this, &slider, &widget] {
    const QSignalBlocker quiet(&widget);
    widget.setRange(slider.Min(), slider.Max());
    if (widget.value() != slider.Value()) widget.setValue(slider.Value());
    ShowCommon(slider, widget);
  });
  connect(&widget, &QSlider::valueChanged, this, [&slider](int value) { slider.Move(value); });
}

void Binder::BindProgress(ProgressBar& bar, QProgressBar& widget) {
  Watch(bar, [this, &bar, &widget] {
    // Without a range the widget shows that it is busy.
    widget.setRange(bar.Busy() ? 0 : bar.Min(), bar.Busy() ? 0 : bar.Max());
    widget.setValue(bar.Value());
    ShowCommon(bar, widget);
  });
}

void Binder::BindList(ListBox& list, QListWidget& widget) {
  Watch(list, [this, &list, &widget] {
    const QSignalBlocker quiet(&widget);
    const auto& items = list.Items();
    bool same = widget.count() == static_cast<int>(items.size());
    for (int i = 0; same && i < widget.count(); ++i) {
      same = widget.item(i)->text() == ToQt(items[static_cast<std::size_t>(i)]);
    }
    if (!same) {
      widget.clear();
      for (const Text& item : items) widget.addItem(ToQt(item));
    }
    if (widget.currentRow() != list.Index()) widget.setCurrentRow(list.Index());
    ShowCommon(list, widget);
  });
  connect(&widget, &QListWidget::currentRowChanged, this, [&list](int row) { list.Choose(row); });
}

void Binder::BindCombo(ComboBox& combo, QComboBox& widget) {
  widget.setEditable(combo.Editable());
  Watch(combo, [this, &combo, &widget] {
    const QSignalBlocker quiet(&widget);
    const auto& items = combo.Items();
    bool same = widget.count() == static_cast<int>(items.size());
    for (int i = 0; same && i < widget.count(); ++i)
      same = widget.itemText(i) == ToQt(items[static_cast<std::size_t>(i)]);
    if (!same) {
      widget.clear();
      for (const Text& item : items) widget.addItem(ToQt(item));
    }
    if (widget.currentIndex() != combo.Index()) widget.setCurrentIndex(combo.Index());
    if (combo.Editable() && !taking_ && widget.currentText() != ToQt(combo.GetText())) {
      widget.setEditText(ToQt(combo.GetText()));
    }
    ShowCommon(combo, widget);
  });
  connect(&widget, &QComboBox::activated, this, [&combo](int index) { combo.Choose(index); });
  if (combo.Editable()) {
    // What the user types is the text: nothing is added to it, and Enter is the window's.
    widget.setCompleter(nullptr);
    widget.setInsertPolicy(QComboBox::NoInsert);
    connect(&widget, &QComboBox::editTextChanged, this, [this, &combo](const QString& text) {
      taking_ = true;
      combo.SetText(FromQt(text));
      taking_ = false;
    });
    filtered_.insert(widget.lineEdit(), &combo);
    widget.lineEdit()->installEventFilter(this);
  }
}

void Binder::BindTextBox(TextBox& box, QWidget& widget) {
  Watch(box, [this, &box, &widget] {
    ShowCommon(box, widget);
    if (taking_) return;
    if (auto* line = qobject_cast<QLineEdit*>(&widget)) {
      const QSignalBlocker quiet(line);
      if (line->text() != ToQt(box.GetText())) line->setText(ToQt(box.GetText()));
      // A shorter text leaves the form's caret behind its end.
      if (line->hasFocus()) {
        line->setSelection(std::min(box.SelStart(), static_cast<int>(line->text().size())), box.SelLength());
      }
    } else if (auto* pane = qobject_cast<QPlainTextEdit*>(&widget)) {
      const QString text = ToQt(ReplaceAll(box.GetText(), kLineEnd, u"\n"));
      const QSignalBlocker quiet(pane);
      if (pane->toPlainText() != text) pane->setPlainText(text);
    }
  });
  if (auto* line = qobject_cast<QLineEdit*>(&widget)) {
    connect(line, &QLineEdit::textEdited, this, [this, &box, &widget] { TakeText(box, widget); });
  } else if (auto* pane = qobject_cast<QPlainTextEdit*>(&widget)) {
    connect(pane, &QPlainTextEdit::textChanged, this, [this, &box, &widget] { TakeText(box, widget); });
  }
  filtered_.insert(&widget, &box);
  widget.installEventFilter(this);
}

void Binder::TakeText(TextBox& box, QWidget& widget) {
  if (auto* line = qobject_cast<QLineEdit*>(&widget)) {
    taking_ = true;
    box.SetText(FromQt(line->text()));
    box.NoteSelection(line->cursorPosition(), 0);
    taking_ = false;
  } else if (auto* pane = qobject_cast<QPlainTextEdit*>(&widget)) {
    const Text text = ReplaceAll(FromQt(pane->toPlainText()), u"\n", kLineEnd);
    if (text == box.GetText()) return;
    taking_ = true;
    box.SetText(text);
    taking_ = false;
  }
  box.Edited();
}

void Binder::WatchHover(Control& control, QWidget& widget) {
  widget.setMouseTracking(true);
  hovered_.insert(&widget, &control);
  widget.installEventFilter(this);
}

void Binder::FilterHover(QObject* object, QEvent& event) {
  Control* control = hovered_.value(object);
  if (event.type() == QEvent::FocusIn && control != nullptr) {
    const Qt::FocusReason reason = static_cast<QFocusEvent&>(event).reason();
    const bool keyboard =
        reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
    if (keyboard) control->Hovered();
  }
  if (event.type() != QEvent::MouseMove) return;
  // A motion comes to the widget under the pointer first and then goes on to its parents.
  const QPoint at = static_cast<QMouseEvent&>(event).globalPosition().toPoint();
  if (at == hoveredAt_) return;
  if (control != nullptr) {
    hoveredAt_ = at;
    control->Hovered();
  } else if (object == &root_ && !form_.Hovered.Empty()) {
    hoveredAt_ = at;
    form_.Hovered();
  }
}

bool Binder::eventFilter(QObject* object, QEvent* event) {
  FilterHover(object, *event);
  Control* control = filtered_.value(object);
  if (control == nullptr) return false;
  switch (control->GetKind()) {
    case Control::Kind::Button:
      return FilterButton(static_cast<Button&>(*control), *event);
    case Control::Kind::TextBox:
      return FilterTextBox(static_cast<TextBox&>(*control), *static_cast<QWidget*>(object), *event);
    case Control::Kind::Combo:
      return FilterCombo(static_cast<ComboBox&>(*control), *static_cast<QLineEdit*>(object), *event);
    case Control::Kind::Label:
      if (event->type() == QEvent::MouseButtonPress && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        static_cast<Label&>(*control).Clicked();
      }
      return false;
    case Control::Kind::Picture:
      if (event->type() == QEvent::MouseButtonPress) {
        const auto& mouse = *static_cast<QMouseEvent*>(event);
        static_cast<Picture&>(*control).MouseDown({MouseButtonOf(mouse.button()),
                                                   static_cast<int>(mouse.position().x()),
                                                   static_cast<int>(mouse.position().y())});
      }
      return false;
    default:
      return false;
  }
}

bool Binder::FilterButton(Button& button, QEvent& event) {
  switch (event.type()) {
    case QEvent::KeyPress: {
      KeyEvent key = KeyEventOf(static_cast<QKeyEvent&>(event));
      button.KeyDown(key);
      return false;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
      if (!button.Enabled()) return false;
      const auto& mouse = static_cast<QMouseEvent&>(event);
      button.MouseDown({MouseButtonOf(mouse.button()), static_cast<int>(mouse.position().x()),
                        static_cast<int>(mouse.position().y())});
      return false;
    }
    case QEvent::MouseButtonRelease: {
      const auto& mouse = static_cast<QMouseEvent&>(event);
      button.MouseUp({MouseButtonOf(mouse.button()), static_cast<int>(mouse.position().x()),
                      static_cast<int>(mouse.position().y())});
      return false;
    }
    default:
      return false;
  }
}

bool Binder::FilterCombo(ComboBox& combo, QLineEdit& editor, QEvent& event) {
  if (event.type() != QEvent::KeyPress) return false;
  KeyEvent key = KeyEventOf(static_cast<QKeyEvent&>(event));
  if (key.command || (key.character == 0 && key.code != kKeyBackspace)) return false;
  const char16_t typed = key.character;
  combo.NoteSelection(static_cast<int>(editor.selectedText().size()));
  combo.KeyPress(key);
  if (!key.handled && key.character != typed) {
    editor.insert(QChar(key.character));
    return true;
  }
  return key.handled;
}

bool Binder::FilterTextBox(TextBox& box, QWidget& widget, QEvent& event) {
  auto* line = qobject_cast<QLineEdit*>(&widget);
  const auto note = [&] {
    if (line == nullptr) return;
    const bool selected = line->hasSelectedText();
    box.NoteSelection(selected ? line->selectionStart() : line->cursorPosition(),
                      selected ? static_cast<int>(line->selectedText().size()) : 0);
  };
  switch (event.type()) {
    case QEvent::KeyPress: {
      auto& pressed = static_cast<QKeyEvent&>(event);
      KeyEvent key = KeyEventOf(pressed);
      note();
      box.KeyDown(key);
      const bool types = key.character != 0 || key.code == kKeyBackspace;
      if (!key.handled && types && !key.command) box.KeyPress(key);
      return key.handled;
    }
    case QEvent::KeyRelease: {
      KeyEvent key = KeyEventOf(static_cast<QKeyEvent&>(event));
      if (!key.autoRepeat) box.KeyUp(key);
      return false;
    }
    case QEvent::FocusIn:
      box.GotFocus();
      return false;
    case QEvent::FocusOut:
      box.LostFocus();
      return false;
    case QEvent::MouseButtonRelease:
      // Behind the widget's own handling, which places the caret.
      QMetaObject::invokeMethod(
          this,
          [this, &box, line, note] {
            if (line == nullptr) return;
            box.NoteSelection(line->cursorPosition(), 0);
            box.MouseUp({MouseButton::Left, 0, 0});
          },
          Qt::QueuedConnection);
      return false;
    default:
      return false;
  }
}

}  // namespace cuewright
