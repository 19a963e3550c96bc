#include "ui/start_view.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include "ui/qt_text.h"
#include "ui/svg_picture.h"

namespace cuewright {
namespace {

QLabel* MakeLabel(const char* name, QWidget* parent, bool link) {
  auto* label = new QLabel(parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  if (link) {
    label->setCursor(Qt::PointingHandCursor);
    QPalette colors = label->palette();
    colors.setColor(QPalette::WindowText, colors.color(QPalette::Link));
    label->setPalette(colors);
    QFont font = label->font();
    font.setUnderline(true);
    label->setFont(font);
  }
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
  auto* picture = new SvgPicture(":/logo.svg", this);
  picture->setObjectName("imgWMP");
  picture->setAccessibleName("Media player");
  picture->setFixedSize(96, 72);
  row->addWidget(picture, 0, Qt::AlignTop);
  auto* column = new QVBoxLayout;
  column->setSpacing(10);
  auto* heading = MakeLabel("lblMain", this, false);
  QFont bold = heading->font();
  bold.setBold(true);
  bold.setPointSizeF(bold.pointSizeF() * 1.3);
  heading->setFont(bold);
  column->addWidget(heading);
  column->addWidget(MakeLabel("lblFile", this, false));
  column->addWidget(MakeLabel("lblInfo", this, false));
  column->addWidget(MakeLabel("lblMediaplayer", this, true));
  column->addWidget(MakeLabel("lblWebsite", this, true));
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  for (const char* name : {"cmdIgnore", "cmdExit"}) {
    auto* button = new QPushButton(this);
    button->setObjectName(name);
    buttons->addWidget(button);
  }
  column->addLayout(buttons);
  row->addLayout(column, 1);
  binder_.BindAll();
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
