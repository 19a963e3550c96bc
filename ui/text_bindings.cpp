#include <QComboBox>
#include <QKeyEvent>
#include <QKeySequenceEdit>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QScopedValueRollback>

#include "core/counting.h"
#include "ui/binder.h"
#include "ui/key_codes.h"
#include "ui/qt_text.h"

namespace cuewright {
namespace {

/// A text box and its widget: what is typed goes to the form and isn't shown back.
class TextBinding : public QObject {
 public:
  TextBinding(Binder& binder, TextBox& box, QWidget& widget) : QObject(&binder), box_(box) {
    widget.installEventFilter(this);
  }

  bool eventFilter(QObject* /*object*/, QEvent* event) override {
    switch (event->type()) {
      case QEvent::KeyPress: {
        KeyEvent key = KeyEventOf(*static_cast<QKeyEvent*>(event));
        NoteSelection();
        box_.PressKey(key);
        const bool types = key.character != 0 || key.code == kKeyBackspace;
        if (!key.handled && types && !key.command) box_.TypeKey(key);
        return key.handled;
      }
      case QEvent::KeyRelease: {
        KeyEvent key = KeyEventOf(*static_cast<QKeyEvent*>(event));
        if (!key.autoRepeat) box_.ReleaseKey(key);
        return false;
      }
      case QEvent::FocusIn:
        box_.TakeFocus();
        return false;
      case QEvent::FocusOut:
        box_.LoseFocus();
        return false;
      case QEvent::MouseButtonRelease:
        // Behind the widget's own handling, which places the caret.
        QMetaObject::invokeMethod(
            this, [this] { ReleaseMouse(); }, Qt::QueuedConnection);
        return false;
      default:
        return false;
    }
  }

 protected:
  virtual void NoteSelection() {}
  virtual void ReleaseMouse() {}

  void Take(TextView text) {
    const QScopedValueRollback<bool> taking(taking_, true);
    box_.SetText(text);
  }

  TextBox& box_;
  bool taking_ = false;
};

class LineBinding final : public TextBinding {
 public:
  LineBinding(Binder& binder, TextBox& box, QLineEdit& line) : TextBinding(binder, box, line), line_(line) {
    binder.Watch(box, [this] { Show(); });
    connect(&line, &QLineEdit::textEdited, this, [this] {
      Take(FromQt(line_.text()));
      box_.NoteSelection(line_.cursorPosition(), 0);
      box_.NoteEdited();
    });
  }

 private:
  void Show() {
    if (taking_) return;
    const QSignalBlocker quiet(&line_);
    if (line_.text() != ToQt(box_.GetText())) line_.setText(ToQt(box_.GetText()));
    // A shorter text leaves the form's caret behind its end.
    if (line_.hasFocus()) {
      line_.setSelection(std::min(box_.SelStart(), CountOf(line_.text())), box_.SelLength());
    }
  }
  void NoteSelection() override {
    const bool selected = line_.hasSelectedText();
    box_.NoteSelection(selected ? line_.selectionStart() : line_.cursorPosition(), line_.selectionLength());
  }
  void ReleaseMouse() override {
    box_.NoteSelection(line_.cursorPosition(), 0);
    box_.ReleaseMouse({MouseButton::Left, 0, 0});
  }

  QLineEdit& line_;
};

class PaneBinding final : public TextBinding {
 public:
  PaneBinding(Binder& binder, TextBox& box, QPlainTextEdit& pane) : TextBinding(binder, box, pane), pane_(pane) {
    binder.Watch(box, [this] { Show(); });
    connect(&pane, &QPlainTextEdit::textChanged, this, [this] {
      const Text text = ReplaceAll(FromQt(pane_.toPlainText()), u"\n", kLineEnd);
      if (text == box_.GetText()) return;
      Take(text);
      NoteSelection();
      box_.NoteEdited();
    });
    connect(&pane, &QPlainTextEdit::selectionChanged, this, [this] { NoteSelection(); });
    connect(&pane, &QPlainTextEdit::cursorPositionChanged, this, [this] { NoteSelection(); });
  }

 private:
  void Show() {
    if (taking_) return;
    const QString text = ToQt(ReplaceAll(box_.GetText(), kLineEnd, u"\n"));
    const QSignalBlocker quiet(&pane_);
    if (pane_.toPlainText() == text) return;
    pane_.setPlainText(text);
    NoteSelection();
  }
  void NoteSelection() override {
    // What is only read shows places that its form chose.
    if (pane_.isReadOnly()) return;
    // The form counts two characters for a line end, the widget one.
    const QString text = pane_.toPlainText();
    const auto place = [&text](int at) { return at + static_cast<int>(QStringView(text).first(at).count(u'\n')); };
    const QTextCursor cursor = pane_.textCursor();
    const int start = place(cursor.selectionStart());
    box_.NoteSelection(start, place(cursor.selectionEnd()) - start);
  }

  QPlainTextEdit& pane_;
};

/// A box of choices whose text the user may type.
class EditableCombo final : public QObject {
 public:
  EditableCombo(Binder& binder, ComboBox& combo, QComboBox& widget)
      : QObject(&binder), combo_(combo), editor_(*widget.lineEdit()) {
    widget.setInsertPolicy(QComboBox::NoInsert);
    binder.Watch(combo, [this, &widget] {
      const QSignalBlocker quiet(&widget);
      if (!taking_ && widget.currentText() != ToQt(combo_.GetText())) widget.setEditText(ToQt(combo_.GetText()));
    });
    connect(&widget, &QComboBox::editTextChanged, this, [this](const QString& text) {
      const QScopedValueRollback<bool> taking(taking_, true);
      combo_.SetText(FromQt(text));
    });
    editor_.installEventFilter(this);
  }

  bool eventFilter(QObject* /*object*/, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return false;
    KeyEvent key = KeyEventOf(*static_cast<QKeyEvent*>(event));
    if (key.command || (key.character == 0 && key.code != kKeyBackspace)) return false;
    const char16_t typed = key.character;
    combo_.NoteSelection(editor_.selectionLength());
    combo_.TypeKey(key);
    if (!key.handled && key.character != typed) {
      editor_.insert(QChar(key.character));
      return true;
    }
    return key.handled;
  }

 private:
  ComboBox& combo_;
  QLineEdit& editor_;
  bool taking_ = false;
};

/// Fills a box of choices or a list, unless it has the items already.
template <class Widget>
void ShowItems(const Choice& control, Widget& widget) {
  QStringList items;
  for (const Text& item : control.Items()) items << ToQt(item);
  QStringList present;
  for (int i = 0; i < widget.count(); ++i) present << widget.model()->index(i, 0).data().toString();
  if (present == items) return;
  widget.clear();
  widget.addItems(items);
}

}  // namespace

void Attach(Binder& binder, TextBox& box, QLineEdit& widget) { new LineBinding(binder, box, widget); }

void Attach(Binder& binder, TextBox& box, QPlainTextEdit& widget) { new PaneBinding(binder, box, widget); }

void Attach(Binder& binder, TextBox& box, QKeySequenceEdit& widget) {
  binder.Watch(box, [&] {
    const QSignalBlocker quiet(&widget);
    const QKeySequence keys = QKeySequence::fromString(ToQt(box.GetText()), QKeySequence::PortableText);
    if (widget.keySequence() != keys) widget.setKeySequence(keys);
  });
  QObject::connect(&widget, &QKeySequenceEdit::keySequenceChanged, &binder, [&](const QKeySequence& keys) {
    // One key is a command, not several behind each other.
    const QKeySequence first = keys.isEmpty() ? keys : QKeySequence(keys[0]);
    box.SetText(FromQt(first.toString(QKeySequence::PortableText)));
    box.NoteEdited();
  });
}

void Attach(Binder& binder, ListBox& list, QListWidget& widget) {
  binder.Watch(list, [&] {
    const QSignalBlocker quiet(&widget);
    ShowItems(list, widget);
    if (widget.currentRow() != list.Index()) widget.setCurrentRow(list.Index());
  });
  QObject::connect(&widget, &QListWidget::currentRowChanged, &binder, [&list](int row) { list.Choose(row); });
}

void Attach(Binder& binder, ComboBox& combo, QComboBox& widget) {
  widget.setEditable(combo.Editable());
  // What the user types is the text: nothing is added to it, and Enter is the window's.
  if (combo.Editable()) widget.setCompleter(nullptr);
  binder.Watch(combo, [&] {
    const QSignalBlocker quiet(&widget);
    ShowItems(combo, widget);
    if (widget.currentIndex() != combo.Index()) widget.setCurrentIndex(combo.Index());
  });
  QObject::connect(&widget, &QComboBox::activated, &binder, [&combo](int index) { combo.Choose(index); });
  if (combo.Editable()) new EditableCombo(binder, combo, widget);
}

}  // namespace cuewright
