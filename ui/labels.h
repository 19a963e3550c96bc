#pragma once

#include <QBoxLayout>
#include <QLabel>

class QPlainTextEdit;

namespace cuewright {

/// A line of plain text.
QLabel* PlainLabel(QWidget* parent);
/// Plain text that goes on in further lines where it has no room.
QLabel* WrappedLabel(QWidget* parent);
/// A line of bold text, larger than others by the factor.
QLabel* BoldLabel(QWidget* parent, double larger = 1);
/// Several lines to read, which the keyboard reaches and leaves by Tab.
QPlainTextEdit* ReadOnlyText(QWidget* parent);
/// The title of a window or a page.
inline QLabel* HeadingLabel(QWidget* parent) { return BoldLabel(parent, 1.25); }

/// A label that shows the caption of a button, which has the mark of an access key.
class CaptionLabel final : public QLabel {
 public:
  explicit CaptionLabel(QWidget* parent);
};

/// Gives the widget a bold font, larger by the factor.
void MakeBold(QWidget& widget, double larger = 1);
/// A row or a column without margins, the layout of a new widget in `parent`.
QHBoxLayout* BareRow(QWidget* parent);
QVBoxLayout* BareColumn(QWidget* parent);
/// The widget's place stays empty while it is hidden.
void KeepPlace(QWidget& widget);

}  // namespace cuewright
