#include "ui/start_view.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include "ui/labels.h"
#include "ui/qt_text.h"
#include "ui/svg_picture.h"

namespace cuewright {
namespace {

/// A label that looks like a link.
QLabel* LinkLabel(QWidget* parent) {
  QLabel* label = WrappedLabel(parent);
  label->setCursor(Qt::PointingHandCursor);
  QPalette colors = label->palette();
  colors.setColor(QPalette::WindowText, colors.color(QPalette::Link));
  label->setPalette(colors);
  return label;
}

}  // namespace

StartView::StartView(StartWindow& form) : form_(form), binder_(*this, form) {
  setObjectName("frmStart");
  setWindowIcon(QIcon(":/cuewright.svg"));
  setMinimumWidth(480);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(20, 20, 20, 16);
  row->setSpacing(16);
  auto* picture = binder_.Bind(form.imgWMP, new SvgPicture(":/logo.svg", this));
  picture->setAccessibleName("Media player");
  picture->setFixedSize(96, 72);
  row->addWidget(picture, 0, Qt::AlignTop);
  auto* column = new QVBoxLayout;
  column->setSpacing(10);
  auto* heading = binder_.Bind(form.lblMain, BoldLabel(this, 1.3));
  heading->setWordWrap(true);
  column->addWidget(heading);
  for (Label* label : {&form.lblFile, &form.lblInfo}) column->addWidget(binder_.Bind(*label, WrappedLabel(this)));
  for (Label* link : {&form.lblMediaplayer, &form.lblWebsite}) column->addWidget(binder_.Bind(*link, LinkLabel(this)));
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  for (Button* button : {&form.cmdIgnore, &form.cmdExit})
    buttons->addWidget(binder_.Bind(*button, new QPushButton(this)));
  column->addLayout(buttons);
  row->addLayout(column, 1);
  setWindowTitle(ToQt(form_.Title()));
  const auto turn = [this] { setLayoutDirection(form_.RightToLeft() ? Qt::RightToLeft : Qt::LeftToRight); };
  turn();
  direction_ = form_.DirectionChanged.ConnectScoped(turn);
  ignore_ = form_.cmdIgnore.Clicked.ConnectScoped([this] { goesOn_ = true; });
  title_ = form_.TitleChanged.ConnectScoped([this] { setWindowTitle(ToQt(form_.Title())); });
}

void StartView::closeEvent(QCloseEvent* event) {
  QWidget::closeEvent(event);
  if (!goesOn_) form_.cmdExit.Click();
}

}  // namespace cuewright
