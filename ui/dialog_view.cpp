#include "ui/dialog_view.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QWindow>

#include "ui/fit_screen.h"
#include "ui/qt_text.h"
#include "ui/sample_area.h"

namespace cuewright {
namespace {

constexpr int kButtonGap = 8;

}  // namespace

DialogView::DialogView(Dialog& form, QWidget* owner) : QDialog(owner), binder_(*this, form), form_(form) {
  setObjectName(QString::fromStdString(form.Name()));
  const auto title = [this] { setWindowTitle(ToQt(form_.Title())); };
  const auto direction = [this] {
    setLayoutDirection(form_.RightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    AlignLabels();
  };
  title();
  direction();
  Keep(form_.TitleChanged.ConnectScoped(title));
  Keep(form_.DirectionChanged.ConnectScoped(direction));
  Keep(form_.Closed.ConnectScoped([this] {
    done(QDialog::Accepted);
    if (goes_) deleteLater();
  }));
}

void DialogView::ShowModal() {
  goes_ = true;
  setModal(true);
  show();
}

void DialogView::reject() { form_.Close(); }

QLabel* DialogView::MakeLabelOf(Label& label, QWidget* widget) {
  QLabel* made = Bind(label, PlainLabel(widget->parentWidget()));
  made->setBuddy(widget);
  return made;
}

void DialogView::Complete(QWidget* first) {
  AlignLabels();
  FitContent();
  if (first != nullptr) first->setFocus();
}

void DialogView::AlignLabels() {
  // By itself a label of Latin text keeps to the left in a window that is read from the right.
  const Qt::Alignment side = form_.RightToLeft() ? Qt::AlignRight : Qt::AlignLeft;
  for (QLabel* label : findChildren<QLabel*>()) {
    if (dynamic_cast<SampleArea*>(label->parentWidget()) != nullptr) continue;
    label->setAlignment((label->alignment() & Qt::AlignVertical_Mask) | side | Qt::AlignAbsolute);
  }
}

void DialogView::FitContent() {
  setMinimumSize(0, 0);
  // A change below a widget reaches the layouts above it later, by events, and those within a layout when that is
  // activated: here the innermost come first.
  const QList<QWidget*> widgets = findChildren<QWidget*>();
  for (auto widget = widgets.rbegin(); widget != widgets.rend(); ++widget) {
    // By default a combo box keeps the width of the items it had when it was first shown.
    if (auto* const box = qobject_cast<QComboBox*>(*widget)) box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    if (QLayout* const inner = (*widget)->layout()) {
      inner->invalidate();
      inner->activate();
    }
    (*widget)->updateGeometry();
  }
  layout()->invalidate();
  layout()->activate();
  QSize needed = layout()->totalSizeHint();
  if (layout()->hasHeightForWidth())
    needed.setHeight(std::max(needed.height(), layout()->totalHeightForWidth(needed.width())));
  // What is larger than the screen scrolls inside, and needs room for the bar.
  const QSize room = RoomOnScreen(*this);
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  const bool scrolls = findChild<ContentScroll*>() != nullptr;
  if (needed.height() > room.height()) needed = {needed.width() + (scrolls ? bar : 0), room.height()};
  if (scrolls && needed.width() > room.width()) {
    needed = {room.width(), std::min(needed.height() + bar, room.height())};
  }
  setMinimumSize(needed);
}

QPushButton* DialogView::MakeButton(Button& control) {
  auto* button = Bind(control, new QPushButton(this));
  button->setMinimumWidth(88);
  return button;
}

QBoxLayout* DialogView::MakeButtons(std::initializer_list<Button*> buttons, const Button* standard) {
  auto* row = new QHBoxLayout;
  row->setSpacing(kButtonGap);
  for (Button* control : buttons) {
    if (control == nullptr) {
      row->addStretch();
      continue;
    }
    QPushButton* button = MakeButton(*control);
    button->setDefault(control == standard);
    row->addWidget(button);
  }
  return row;
}

void DialogView::MoveByPointer() {
  if (windowHandle() != nullptr) windowHandle()->startSystemMove();
}

}  // namespace cuewright
