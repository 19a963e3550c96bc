#pragma once

class QAbstractButton;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QKeySequenceEdit;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QProgressBar;
class QSlider;
class QWidget;

namespace cuewright {

class Binder;
class Button;
class CaptionLabel;
class CheckBox;
class ComboBox;
class Frame;
class Label;
class ListBox;
class OptionButton;
class Picture;
class ProgressBar;
class Sheet;
class SheetView;
class Slider;
class TextBox;

// The widgets that fit a control. What all controls have in common is bound by `Binder::Bind`, which calls these.

void Attach(Binder& binder, Label& label, QLabel& widget);
void Attach(Binder& binder, Label& label, CaptionLabel& widget);
/// A label that the keyboard reaches.
void Attach(Binder& binder, Label& label, QAbstractButton& widget);
void Attach(Binder& binder, Button& button, QAbstractButton& widget);
void Attach(Binder& binder, OptionButton& option, QAbstractButton& widget);
void Attach(Binder& binder, CheckBox& check, QCheckBox& widget);
void Attach(Binder& binder, Slider& slider, QSlider& widget);
void Attach(Binder& binder, ProgressBar& bar, QProgressBar& widget);
void Attach(Binder& binder, TextBox& box, QKeySequenceEdit& widget);
void Attach(Binder& binder, ListBox& list, QListWidget& widget);
void Attach(Binder& binder, ComboBox& combo, QComboBox& widget);
void Attach(Binder& binder, TextBox& box, QLineEdit& widget);
void Attach(Binder& binder, TextBox& box, QPlainTextEdit& widget);
void Attach(Binder& binder, Sheet& sheet, SheetView& widget);
void Attach(Binder& binder, Frame& frame, QGroupBox& widget);
/// A frame without a title.
void Attach(Binder& binder, Frame& frame, QWidget& widget);
void Attach(Binder& binder, Picture& picture, QWidget& widget);

}  // namespace cuewright
