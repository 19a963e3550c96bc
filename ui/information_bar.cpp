#include "ui/information_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

#include "core/product.h"
#include "ui/dialog_view.h"
#include "ui/elided_label.h"
#include "ui/qt_text.h"
#include "ui/svg_picture.h"

namespace cuewright {

InformationBar::InformationBar(QWidget* parent) : QWidget(parent) {
  setObjectName("picStatus");
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Base);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(12, 4, 12, 4);
  row->setSpacing(12);
  auto* icon = Named(new SvgPicture(":/cuewright.svg", this), "picIco");
  icon->setFixedSize(32, 32);
  row->addWidget(icon);
  auto* texts = new QVBoxLayout;
  texts->setSpacing(2);
  texts->addStretch();
  for (const char* name : {"lblTextFile", "lblVideoFile"}) {
    auto* label = Named(new ElidedLabel(this), name);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    texts->addWidget(label);
  }
  texts->addStretch();
  row->addLayout(texts, 1);
  auto* notice = Named(new ElidedLabel(this), "lblNotice");
  notice->setFrameShape(QFrame::StyledPanel);
  notice->setBackgroundRole(QPalette::ToolTipBase);
  notice->setForegroundRole(QPalette::ToolTipText);
  notice->setAutoFillBackground(true);
  notice->setMargin(4);
  notice->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  row->addWidget(notice);
  for (const char* name : {"cmdShowFindings", "cmdApplyFindings", "cmdUndoRules"}) {
    row->addWidget(Named(new QToolButton(this), name));
  }
  auto* close = Named(new QToolButton(this), "cmdNotice");
  close->setAutoRaise(true);
  row->addWidget(close);
  logo_ = Named(new QLabel(ToQt(kProductName), this), "picLogo");
  QFont font = logo_->font();
  font.setPointSizeF(font.pointSizeF() * 1.4);
  font.setBold(true);
  logo_->setFont(font);
  logo_->setCursor(Qt::PointingHandCursor);
  row->addWidget(logo_);
}

void InformationBar::ShowParts(const MainWindow& form, bool logo) {
  const bool on = form.picIco.Visible();
  for (const char* name : {"lblTextFile", "lblVideoFile"}) findChild<QWidget*>(name)->setVisible(on);
  findChild<QWidget*>("lblNotice")->setVisible(on && form.lblNotice.Visible());
  for (const Button* button : {&form.cmdShowFindings, &form.cmdApplyFindings, &form.cmdUndoRules, &form.cmdNotice}) {
    findChild<QWidget*>(QString::fromStdString(button->Name()))->setVisible(on && button->Visible());
  }
  logo_->setVisible(on && logo);
}

}  // namespace cuewright
