#include "ui/report_view.h"

#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTextOption>
#include <QVBoxLayout>
#include <QWindow>

#include "ui/link_button.h"
#include "ui/svg_picture.h"

namespace cuewright {

ReportView::ReportView(ReportWindow& form, QWidget* owner) : ToolView(form, owner), form_(form) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 14, 16, 12);
  column->setSpacing(10);
  column->addWidget(MakeHead());
  auto* text = Bind(form.txtReport, new QPlainTextEdit(this));
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
  column->addWidget(Bind(form.lblTotal, PlainLabel(this)));
  column->addWidget(MakeFoot());
  text->setAccessibleName(windowTitle());
  resize(560, 440);
  Keep(form.RepaintRequested.ConnectScoped([this] { repaint(); }));
  Keep(form.imgDrag.MouseDown.ConnectScoped([this](const MouseEvent& mouse) {
    if (mouse.button == MouseButton::Left && windowHandle() != nullptr) windowHandle()->startSystemMove();
  }));
}

QWidget* ReportView::MakeHead() {
  auto* row = BareRow(this);
  QWidget* head = row->parentWidget();
  row->setSpacing(12);
  auto* picture = Bind(form_.imgDrag, new SvgPicture(":/cuewright.svg", head));
  picture->setAccessibleName(windowTitle());
  picture->setFixedSize(40, 40);
  picture->setCursor(Qt::SizeAllCursor);
  row->addWidget(picture, 0, Qt::AlignTop);
  row->addWidget(Bind(form_.lblTop, WrappedLabel(head)), 1);
  return head;
}

QWidget* ReportView::MakeFoot() {
  auto* row = BareRow(this);
  QWidget* foot = row->parentWidget();
  row->setSpacing(16);
  for (OptionButton* option : {&form_.optStandard, &form_.optDetailed}) {
    row->addWidget(Bind(*option, new QRadioButton(foot)));
  }
  row->addWidget(Bind(form_.lblDefine, new LinkButton(foot)));
  row->addStretch();
  auto* button = Bind(form_.cmdOK, new QPushButton(foot));
  button->setDefault(true);
  button->setFocus();
  row->addWidget(button);
  return foot;
}

}  // namespace cuewright
