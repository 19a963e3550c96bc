#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/signal.h"
#include "text/text.h"

namespace cuewright {

class Form;

/// Key codes of the keys that the forms tell apart; letters are 65 (A) to 90 (Z), digits 48 to 57.
inline constexpr int kKeyBackspace = 8;
inline constexpr int kKeyEnter = 13;
inline constexpr int kKeySpace = 32;
inline constexpr int kKeyEndOfLine = 35;
inline constexpr int kKeyHome = 36;
inline constexpr int kKeyLeft = 37;
inline constexpr int kKeyUp = 38;
inline constexpr int kKeyRight = 39;
inline constexpr int kKeyDown = 40;
inline constexpr int kKeyDelete = 46;

/// A key going down or up. A handler that sets `handled` keeps the key from the control's own behaviour.
struct KeyEvent {
  int code = 0;                ///< key code; 0 where the key has none
  char16_t character = 0;      ///< what it types; 0 for nothing
  std::uint32_t physical = 0;  ///< which key of the keyboard, to tell one from another
  bool autoRepeat = false;
  bool command = false;  ///< Ctrl, Alt or the system key is held with it
  bool handled = false;
};

enum class MouseButton { None, Left, Right, Middle };

/// A pointer event in pixels of the control.
struct MouseEvent {
  MouseButton button = MouseButton::None;
  int x = 0;
  int y = 0;
};

/// A named control of a window, with no toolkit behind it. `Changed` tells the window to show the state anew.
class Control {
 public:
  Control(Form& form, std::string name);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  const std::string& Name() const { return name_; }

  const Text& GetText() const { return text_; }
  void SetText(TextView text);
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled) { Assign(enabled_, enabled); }
  bool Visible() const { return visible_; }
  void SetVisible(bool visible) { Assign(visible_, visible); }
  const Text& ToolTip() const { return toolTip_; }
  void SetToolTip(TextView text);
  bool RightToLeft() const { return rightToLeft_; }
  void SetRightToLeft(bool on) { Assign(rightToLeft_, on); }
  /// The key hint: the caption is underlined.
  bool Underlined() const { return underlined_; }
  void SetUnderlined(bool on) { Assign(underlined_, on); }
  /// What a screen reader says for a control whose own text doesn't tell; empty: its own text.
  const Text& SpokenName() const { return spokenName_; }
  void SetSpokenName(TextView name);

  Signal<Control> Changed;
  /// Has the window show the state once more.
  void ShowAnew() { Changed(); }
  Signal<Control> Hovered;  ///< the pointer came over the control, or the focus by the keyboard
  void Hover() { Hovered(); }

 protected:
  template <class T>
  void Assign(T& field, const T& value) {
    if (field == value) return;
    field = value;
    Changed();
  }

 private:
  std::string name_;
  Text text_;
  Text toolTip_;
  Text spokenName_;
  bool enabled_ = true;
  bool visible_ = true;
  bool rightToLeft_ = false;
  bool underlined_ = false;
};

/// A window's controls, found by name. The toolkit's side binds a widget to each.
class Form {
 public:
  explicit Form(std::string name) : name_(std::move(name)) {}
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const std::string& Name() const { return name_; }
  const std::vector<Control*>& Controls() const { return controls_; }
  /// Null when no control has the name.
  Control* Find(const std::string& name) const;

  const Text& Title() const { return title_; }
  void SetTitle(TextView title) {
    title_ = title;
    TitleChanged();
  }
  Signal<Form> TitleChanged;

  /// The window's reading direction.
  bool RightToLeft() const { return rightToLeft_; }
  void SetRightToLeft(bool on) {
    if (rightToLeft_ == on) return;
    rightToLeft_ = on;
    DirectionChanged();
  }
  /// The same for the window and each of its controls.
  void SetAllRightToLeft(bool on);
  Signal<Form> DirectionChanged;

  Signal<Form> Hovered;  ///< the pointer came over the window beside its controls
  void Hover() { Hovered(); }
  Signal<Form, Control&> FocusRequested;  ///< the control is to take the focus

 protected:
  void RequestFocus(Control& control) { FocusRequested(control); }

 private:
  friend class Control;
  std::string name_;
  Text title_;
  bool rightToLeft_ = false;
  std::vector<Control*> controls_;
};

}  // namespace cuewright
