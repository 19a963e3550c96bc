#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "form/control.h"

namespace cuewright {

/// Text that the user reads, and may click.
class Label final : public Control {
 public:
  Label(Form& form, std::string name) : Control(form, Kind::Label, std::move(name)) {}
  Signal<> Clicked;

  bool Bold() const { return bold_; }
  void SetBold(bool on) { Assign(bold_, on); }
  /// The colour of the text, 0x00BBGGRR; empty: that of the window.
  const std::optional<std::int32_t>& Color() const { return color_; }
  void SetColor(std::optional<std::int32_t> color) { Assign(color_, color); }

 private:
  bool bold_ = false;
  std::optional<std::int32_t> color_;
};

/// A push button. Its physical press and release are told as well as the click.
class Button final : public Control {
 public:
  Button(Form& form, std::string name) : Control(form, Kind::Button, std::move(name)) {}
  Signal<> Clicked;
  Signal<KeyEvent&> KeyDown;
  Signal<KeyEvent&> KeyUp;
  Signal<const MouseEvent&> MouseDown;
  Signal<const MouseEvent&> MouseUp;

  /// A click as by the user; nothing happens while disabled.
  void Click() {
    if (Enabled()) Clicked();
  }
};

/// A field of text with caret and selection.
class TextBox final : public Control {
 public:
  TextBox(Form& form, std::string name) : Control(form, Kind::TextBox, std::move(name)) {}

  int SelStart() const { return selStart_; }
  int SelLength() const { return selLength_; }
  /// Places the caret at a 0-based position and selects from there; both are cut to the text.
  void Select(int start, int length) {
    const int size = static_cast<int>(GetText().size());
    start = std::clamp(start, 0, size);
    length = std::clamp(length, 0, size - start);
    if (start == selStart_ && length == selLength_) return;
    selStart_ = start;
    selLength_ = length;
    Changed();
  }
  /// Takes over where the user put the caret, without telling it back.
  void NoteSelection(int start, int length) { selStart_ = start, selLength_ = length; }

  Signal<KeyEvent&> KeyDown;
  Signal<KeyEvent&> KeyPress;  ///< a character about to be typed
  Signal<KeyEvent&> KeyUp;
  Signal<> Edited;  ///< the user changed the text
  Signal<> GotFocus;
  Signal<> LostFocus;
  Signal<const MouseEvent&> MouseUp;

 private:
  int selStart_ = 0;
  int selLength_ = 0;
};

/// One of a group of which exactly one is selected. The form keeps the group.
class OptionButton final : public Control {
 public:
  OptionButton(Form& form, std::string name) : Control(form, Kind::Option, std::move(name)) {}
  bool Value() const { return value_; }
  void SetValue(bool value) { Assign(value_, value); }
  Signal<> Clicked;

 private:
  bool value_ = false;
};

/// A box that is checked or not.
class CheckBox final : public Control {
 public:
  CheckBox(Form& form, std::string name) : Control(form, Kind::Check, std::move(name)) {}
  bool Value() const { return value_; }
  void SetValue(bool value) { Assign(value_, value); }
  /// Painted in the colours of a tool tip.
  bool Highlighted() const { return highlighted_; }
  void SetHighlighted(bool on) { Assign(highlighted_, on); }
  Signal<> Clicked;

  /// A click as by the user; nothing happens while disabled.
  void Click() {
    if (!Enabled()) return;
    SetValue(!value_);
    Clicked();
  }

 private:
  bool value_ = false;
  bool highlighted_ = false;
};

/// A bar on which the user picks a whole number.
class Slider final : public Control {
 public:
  Slider(Form& form, std::string name) : Control(form, Kind::Slider, std::move(name)) {}

  int Min() const { return min_; }
  int Max() const { return max_; }
  void SetRange(int min, int max) {
    min_ = min;
    max_ = max;
    value_ = std::clamp(value_, min, max);
    Changed();
  }
  int Value() const { return value_; }
  /// A value out of range becomes the nearest in it.
  void SetValue(int value) { Assign(value_, std::clamp(value, min_, max_)); }

  /// The user moved the bar.
  void Move(int value) {
    SetValue(value);
    Scrolled();
  }
  Signal<> Scrolled;

 private:
  int min_ = 0;
  int max_ = 100;
  int value_ = 0;
};

/// A bar that shows how far a piece of work is.
class ProgressBar final : public Control {
 public:
  ProgressBar(Form& form, std::string name) : Control(form, Kind::Progress, std::move(name)) {}

  int Min() const { return min_; }
  int Max() const { return max_; }
  void SetRange(int min, int max) {
    min_ = min;
    max_ = max;
    value_ = std::clamp(value_, min, max);
    Changed();
  }
  int Value() const { return value_; }
  /// A value out of range becomes the nearest in it.
  void SetValue(int value) { Assign(value_, std::clamp(value, min_, max_)); }
  /// Work goes on, but how far it is can't be told.
  bool Busy() const { return busy_; }
  void SetBusy(bool busy) { Assign(busy_, busy); }

 private:
  int min_ = 0;
  int max_ = 100;
  int value_ = 0;
  bool busy_ = false;
};

/// An item of a menu. Items with the same parent stand in the order of their making.
class MenuItem final : public Control {
 public:
  MenuItem(Form& form, std::string name, MenuItem* parent = nullptr)
      : Control(form, Kind::Menu, std::move(name)), parent_(parent) {}

  MenuItem* Parent() const { return parent_; }
  bool Checked() const { return checked_; }
  void SetChecked(bool checked) { Assign(checked_, checked); }
  bool Checkable() const { return checkable_; }
  void SetCheckable(bool checkable) { checkable_ = checkable; }
  bool IsSeparator() const { return separator_; }
  void SetSeparator(bool separator) { separator_ = separator; }
  /// A key binding in the form "Ctrl+S", several as "Ctrl+S; Ctrl+D"; empty for none.
  const std::string& Shortcut() const { return shortcut_; }
  void SetShortcut(std::string shortcut) { shortcut_ = std::move(shortcut); }

  Signal<> Clicked;
  Signal<> AboutToShow;  ///< the menu below this item opens

  /// A click as by the user; nothing happens while disabled.
  void Click() {
    if (Enabled()) Clicked();
  }

 private:
  MenuItem* parent_;
  std::string shortcut_;
  bool checked_ = false;
  bool checkable_ = false;
  bool separator_ = false;
};

/// An area of the window that holds others or a picture.
class Picture final : public Control {
 public:
  Picture(Form& form, std::string name) : Control(form, Kind::Picture, std::move(name)) {}
  /// The least height in pixels; 0 for that of the content.
  int Height() const { return height_; }
  void SetHeight(int height) { Assign(height_, height); }
  Signal<const MouseEvent&> MouseDown;

 private:
  int height_ = 0;
};

/// A titled group of controls.
class Frame final : public Control {
 public:
  Frame(Form& form, std::string name) : Control(form, Kind::Frame, std::move(name)) {}
};

/// A timer: while enabled, `Tick` comes about every `Interval` ms between other events.
class Timer final : public Control {
 public:
  Timer(Form& form, std::string name, int interval) : Control(form, Kind::Timer, std::move(name)), interval_(interval) {
    SetEnabled(false);
  }
  int Interval() const { return interval_; }
  Signal<> Tick;

 private:
  int interval_;
};

/// A box that opens a list of texts; one that is editable also takes any text.
class ComboBox final : public Control {
 public:
  ComboBox(Form& form, std::string name) : Control(form, Kind::Combo, std::move(name)) {}

  const std::vector<Text>& Items() const { return items_; }
  void SetItems(std::vector<Text> items) {
    items_ = std::move(items);
    index_ = -1;
    Changed();
  }
  /// The chosen item; -1 for none or a text of the user's own.
  int Index() const { return index_; }
  void SetIndex(int index) {
    if (index < -1 || index >= static_cast<int>(items_.size())) return;
    index_ = index;
    if (index >= 0) SetText(items_[static_cast<std::size_t>(index)]);
    Changed();
  }
  bool Editable() const { return editable_; }
  void SetEditable(bool editable) { Assign(editable_, editable); }

  /// The user chose an item.
  void Choose(int index) {
    SetIndex(index);
    Chosen();
  }
  Signal<> Chosen;
  Signal<KeyEvent&> KeyPress;  ///< a character about to be typed
  /// What the user has selected of the text; told before each `KeyPress`.
  int SelLength() const { return selLength_; }
  void NoteSelection(int length) { selLength_ = length; }

 private:
  std::vector<Text> items_;
  int index_ = -1;
  int selLength_ = 0;
  bool editable_ = false;
};

/// A list of texts of which one may be selected.
class ListBox final : public Control {
 public:
  ListBox(Form& form, std::string name) : Control(form, Kind::List, std::move(name)) {}

  const std::vector<Text>& Items() const { return items_; }
  void SetItems(std::vector<Text> items) {
    items_ = std::move(items);
    index_ = -1;
    Changed();
  }
  /// The selected item; -1 for none.
  int Index() const { return index_; }
  void SetIndex(int index) {
    if (index < -1 || index >= static_cast<int>(items_.size())) return;
    Assign(index_, index);
  }

  /// The user selected an item.
  void Choose(int index) {
    SetIndex(index);
    Chosen();
  }
  Signal<> Chosen;

 private:
  std::vector<Text> items_;
  int index_ = -1;
};

}  // namespace cuewright
