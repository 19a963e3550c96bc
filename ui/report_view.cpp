#include "ui/report_view.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTextOption>
#include <QVBoxLayout>
#include <QWindow>

#include "ui/link_button.h"
#include "ui/svg_picture.h"

namespace cuewright {
namespace {

QLabel* PlainLabel(const char* name, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  return label;
}

}  // namespace

ReportView::ReportView(ReportWindow& form, QWidget* owner) : ToolView(form, owner), form_(form), binder_(*this, form) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 14, 16, 12);
  column->setSpacing(10);
  column->addWidget(MakeHead());
  auto* text = new QPlainTextEdit(this);
  text->setObjectName("txtReport");
  text->setReadOnly(true);
  text->setTabChangesFocus(true);
  // Without a width to wrap at, lines that are read from the right would stand at the left.
  text->setLineWrapMode(QPlainTextEdit::WidgetWidth);
  const auto turn = [this, text] {
    QTextOption option = text->document()->defaultTextOption();
    option.setTextDirection(form_.RightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    option.setAlignment(form_.RightToLeft() ? Qt::AlignRight | Qt::AlignAbsolute : Qt::AlignLeft);
    text->document()->setDefaultTextOption(option);
  };
  turn();
  Keep(form.DirectionChanged.ConnectScoped(turn));
  column->addWidget(text, 1);
  column->addWidget(PlainLabel("lblTotal", this));
  column->addWidget(MakeFoot());
  binder_.BindAll();
  text->setAccessibleName(windowTitle());
  resize(560, 440);
  Keep(form.RepaintRequested.ConnectScoped([this] { repaint(); }));
  Keep(form.imgDrag.MouseDown.ConnectScoped([this](const MouseEvent& mouse) {
    if (mouse.button == MouseButton::Left && windowHandle() != nullptr) windowHandle()->startSystemMove();
  }));
  findChild<QPushButton*>("cmdOK")->setFocus();
}

QWidget* ReportView::MakeHead() {
  auto* head = new QWidget(this);
  auto* row = new QHBoxLayout(head);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(12);
  auto* picture = new SvgPicture(":/cuewright.svg", head);
  picture->setObjectName("imgDrag");
  picture->setAccessibleName(windowTitle());
  picture->setFixedSize(40, 40);
  picture->setCursor(Qt::SizeAllCursor);
  row->addWidget(picture, 0, Qt::AlignTop);
  QLabel* top = PlainLabel("lblTop", head);
  top->setWordWrap(true);
  row->addWidget(top, 1);
  return head;
}

QWidget* ReportView::MakeFoot() {
  auto* foot = new QWidget(this);
  auto* row = new QHBoxLayout(foot);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(16);
  for (const char* name : {"optStandard", "optDetailed"}) {
    auto* option = new QRadioButton(foot);
    option->setObjectName(name);
    row->addWidget(option);
  }
  auto* define = new LinkButton(foot);
  define->setObjectName("lblDefine");
  row->addWidget(define);
  row->addStretch();
  auto* button = new QPushButton(foot);
  button->setObjectName("cmdOK");
  button->setDefault(true);
  row->addWidget(button);
  return foot;
}

}  // namespace cuewright
