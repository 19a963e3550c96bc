#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/counting.h"
#include "form/control.h"

namespace cuewright {

/// Text that the user reads, and may click.
class Label final : public Control {
 public:
  using Control::Control;
  Signal<Label> Clicked;
  void Click() { Clicked(); }

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
  using Control::Control;
  Signal<Button> Clicked;
  Signal<Button, KeyEvent&> KeyDown;
  Signal<Button, KeyEvent&> KeyUp;
  Signal<Button, const MouseEvent&> MouseDown;
  Signal<Button, const MouseEvent&> MouseUp;

  /// A click as by the user; nothing happens while disabled.
  void Click() {
    if (Enabled()) Clicked();
  }
  // What the keyboard and the pointer do to it.
  void PressKey(KeyEvent& key) { KeyDown(key); }
  void ReleaseKey(KeyEvent& key) { KeyUp(key); }
  void PressMouse(const MouseEvent& mouse) { MouseDown(mouse); }
  void ReleaseMouse(const MouseEvent& mouse) { MouseUp(mouse); }
};

/// A field of text with caret and selection.
class TextBox final : public Control {
 public:
  using Control::Control;

  int SelStart() const { return selStart_; }
  int SelLength() const { return selLength_; }
  /// Places the caret at a 0-based position and selects from there; both are cut to the text.
  void Select(int start, int length) {
    const int size = CountOf(GetText());
    start = std::clamp(start, 0, size);
    length = std::clamp(length, 0, size - start);
    if (start == selStart_ && length == selLength_) return;
    selStart_ = start;
    selLength_ = length;
    ShowAnew();
  }
  /// Takes over where the user put the caret, without telling it back.
  void NoteSelection(int start, int length) { selStart_ = start, selLength_ = length; }

  Signal<TextBox, KeyEvent&> KeyDown;
  Signal<TextBox, KeyEvent&> KeyPress;  ///< a character about to be typed
  Signal<TextBox, KeyEvent&> KeyUp;
  Signal<TextBox> Edited;  ///< the user changed the text
  Signal<TextBox> GotFocus;
  Signal<TextBox> LostFocus;
  Signal<TextBox, const MouseEvent&> MouseUp;

  // What the user does to it.
  void PressKey(KeyEvent& key) { KeyDown(key); }
  void TypeKey(KeyEvent& key) { KeyPress(key); }
  void ReleaseKey(KeyEvent& key) { KeyUp(key); }
  void NoteEdited() { Edited(); }
  void TakeFocus() { GotFocus(); }
  void LoseFocus() { LostFocus(); }
  void ReleaseMouse(const MouseEvent& mouse) { MouseUp(mouse); }

 private:
  int selStart_ = 0;
  int selLength_ = 0;
};

/// One of a group of which exactly one is selected. The form keeps the group.
class OptionButton final : public Control {
 public:
  using Control::Control;
  bool Value() const { return value_; }
  void SetValue(bool value) { Assign(value_, value); }
  Signal<OptionButton> Clicked;
  /// A click as by the user; nothing happens while disabled.
  void Click() {
    if (Enabled()) Clicked();
  }

 private:
  bool value_ = false;
};

/// A box that is checked or not.
class CheckBox final : public Control {
 public:
  using Control::Control;
  bool Value() const { return value_; }
  void SetValue(bool value) { Assign(value_, value); }
  /// Painted in the colours of a tool tip.
  bool Highlighted() const { return highlighted_; }
  void SetHighlighted(bool on) { Assign(highlighted_, on); }
  Signal<CheckBox> Clicked;

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

/// What a slider and a progress bar have in common: a whole number within limits.
class Ranged : public Control {
 public:
  using Control::Control;

  int Min() const { return min_; }
  int Max() const { return max_; }
  void SetRange(int min, int max) {
    min_ = min;
    max_ = max;
    value_ = std::clamp(value_, min, max);
    ShowAnew();
  }
  int Value() const { return value_; }
  /// A value out of range becomes the nearest in it.
  void SetValue(int value) { Assign(value_, std::clamp(value, min_, max_)); }

 private:
  int min_ = 0;
  int max_ = 100;
  int value_ = 0;
};

/// A bar on which the user picks a whole number.
class Slider final : public Ranged {
 public:
  using Ranged::Ranged;

  /// The user moved the bar.
  void Move(int value) {
    SetValue(value);
    Scrolled();
  }
  Signal<Slider> Scrolled;
};

/// A bar that shows how far a piece of work is.
class ProgressBar final : public Ranged {
 public:
  using Ranged::Ranged;

  /// Work goes on, but how far it is can't be told.
  bool Busy() const { return busy_; }
  void SetBusy(bool busy) { Assign(busy_, busy); }

 private:
  bool busy_ = false;
};

/// An item of a menu. Items with the same parent stand in the order of their making.
class MenuItem final : public Control {
 public:
  MenuItem(Form& form, std::string name, MenuItem* parent = nullptr) : Control(form, std::move(name)) {
    if (parent != nullptr) parent->items_.push_back(this);
  }

  /// The items of the menu that opens here.
  const std::vector<MenuItem*>& Items() const { return items_; }
  bool Checked() const { return checked_; }
  void SetChecked(bool checked) { Assign(checked_, checked); }
  bool Checkable() const { return checkable_; }
  void SetCheckable(bool checkable) { checkable_ = checkable; }
  bool IsSeparator() const { return separator_; }
  void SetSeparator(bool separator) { separator_ = separator; }
  /// A key binding in the form "Ctrl+S", several as "Ctrl+S; Ctrl+D"; empty for none.
  const std::string& Shortcut() const { return shortcut_; }
  void SetShortcut(std::string shortcut) { Assign(shortcut_, std::move(shortcut)); }

  Signal<MenuItem> Clicked;
  Signal<MenuItem> AboutToShow;  ///< the menu below this item opens
  void OpenMenu() { AboutToShow(); }

  /// A click as by the user; nothing happens while disabled.
  void Click() {
    if (Enabled()) Clicked();
  }

 private:
  std::vector<MenuItem*> items_;
  std::string shortcut_;
  bool checked_ = false;
  bool checkable_ = false;
  bool separator_ = false;
};

/// An area of the window that holds others or a picture.
class Picture final : public Control {
 public:
  using Control::Control;
  /// The least height in pixels; 0 for that of the content.
  int Height() const { return height_; }
  void SetHeight(int height) { Assign(height_, height); }
  Signal<Picture, const MouseEvent&> MouseDown;
  void PressMouse(const MouseEvent& mouse) { MouseDown(mouse); }

 private:
  int height_ = 0;
};

/// A titled group of controls.
class Frame final : public Control {
 public:
  using Control::Control;
};

/// A timer: while enabled, `Tick` comes about every `Interval` ms between other events.
class Timer final : public Control {
 public:
  Timer(Form& form, std::string name, int interval) : Control(form, std::move(name)), interval_(interval) {
    SetEnabled(false);
  }
  int Interval() const { return interval_; }
  Signal<Timer> Tick;
  /// The interval has passed; nothing while the timer is off.
  void Pass() {
    if (Enabled()) Tick();
  }

 private:
  int interval_;
};

/// What a box of choices and a list have in common: texts of which one may be chosen.
class Choice : public Control {
 public:
  using Control::Control;

  const std::vector<Text>& Items() const { return items_; }
  /// None of them is chosen then.
  void SetItems(std::vector<Text> items) {
    items_ = std::move(items);
    index_ = -1;
    ShowAnew();
  }
  /// The chosen item; -1 for none or a text of the user's own.
  int Index() const { return index_; }

 protected:
  bool Has(int index) const { return index >= -1 && index < std::ssize(items_); }

  std::vector<Text> items_;
  int index_ = -1;
};

/// A box that opens a list of texts; one that is editable also takes any text.
class ComboBox final : public Choice {
 public:
  using Choice::Choice;

  void SetIndex(int index) {
    if (!Has(index)) return;
    index_ = index;
    if (index >= 0) SetText(items_[index]);
    ShowAnew();
  }
  bool Editable() const { return editable_; }
  void SetEditable(bool editable) { Assign(editable_, editable); }

  /// The user chose an item.
  void Choose(int index) {
    SetIndex(index);
    Chosen();
  }
  Signal<ComboBox> Chosen;
  Signal<ComboBox, KeyEvent&> KeyPress;  ///< a character about to be typed
  void TypeKey(KeyEvent& key) { KeyPress(key); }
  /// What the user has selected of the text; told before each `KeyPress`.
  int SelLength() const { return selLength_; }
  void NoteSelection(int length) { selLength_ = length; }

 private:
  int selLength_ = 0;
  bool editable_ = false;
};

/// A list of texts of which one may be selected.
class ListBox final : public Choice {
 public:
  using Choice::Choice;

  void SetIndex(int index) {
    if (Has(index)) Assign(index_, index);
  }

  /// The user selected an item.
  void Choose(int index) {
    SetIndex(index);
    Chosen();
  }
  Signal<ListBox> Chosen;
};

}  // namespace cuewright
