#include "ui/information_bar.h"

#include <QHBoxLayout>
#include <QToolButton>
#include <QVBoxLayout>

#include "core/product.h"
#include "ui/binder.h"
#include "ui/elided_label.h"
#include "ui/labels.h"
#include "ui/qt_text.h"
#include "ui/svg_picture.h"

namespace cuewright {
namespace {

constexpr int kIcon = 32;
constexpr int kIconInLine = 18;
constexpr int kBetweenFiles = 24;

}  // namespace

InformationBar::InformationBar(MainWindow& form, Binder& binder, QWidget* parent)
    : QWidget(parent), form_(form), binder_(binder) {
  binder_.Bind(form_.picStatus, this);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Base);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(12, 2, 12, 2);
  row->setSpacing(12);
  auto* icon = binder_.Bind(form_.picIco, new SvgPicture(":/cuewright.svg", this));
  icon->setAccessibleName(ToQt(kProductName));
  row->addWidget(icon);
  icon_ = icon;
  files_ = new QVBoxLayout;
  files_->setSpacing(2);
  for (Label* file : {&form_.lblTextFile, &form_.lblVideoFile}) {
    auto* label = binder_.Bind(*file, new ElidedLabel(this));
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    files_->addWidget(label);
  }
  row->addLayout(files_, 1);
  AddNotice(*row);
  logo_ = binder_.Bind(form_.picLogo, BoldLabel(this, 1.4));
  logo_->setText(ToQt(kProductName));
  logo_->setCursor(Qt::PointingHandCursor);
  row->addWidget(logo_);
}

void InformationBar::AddNotice(QBoxLayout& row) {
  auto* notice = binder_.Bind(form_.lblNotice, new ElidedLabel(this));
  notice->setFrameShape(QFrame::StyledPanel);
  notice->setBackgroundRole(QPalette::ToolTipBase);
  notice->setForegroundRole(QPalette::ToolTipText);
  notice->setAutoFillBackground(true);
  notice->setMargin(4);
  notice->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  row.addWidget(notice);
  for (Button* button : {&form_.cmdShowLines, &form_.cmdShowFindings, &form_.cmdApplyFindings, &form_.cmdUndoRules}) {
    row.addWidget(binder_.Bind(*button, new QToolButton(this)));
  }
  auto* close = binder_.Bind(form_.cmdNotice, new QToolButton(this));
  close->setAutoRaise(true);
  row.addWidget(close);
}

void InformationBar::ShowParts(bool logo, bool line) {
  const bool on = form_.picIco.Visible();
  const int side = line ? kIconInLine : kIcon;
  icon_->setFixedSize(side, side);
  files_->setDirection(line ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
  files_->setSpacing(line ? kBetweenFiles : 2);
  for (const Label* label : {&form_.lblTextFile, &form_.lblVideoFile}) {
    QWidget& file = binder_.WidgetOf(*label);
    file.setVisible(on);
    // Beside each other the shorter one leaves its room to the longer.
    file.setSizePolicy(line ? QSizePolicy::Preferred : QSizePolicy::Ignored, QSizePolicy::Preferred);
  }
  for (const Control* part :
       std::initializer_list<const Control*>{&form_.lblNotice, &form_.cmdShowLines, &form_.cmdShowFindings,
                                             &form_.cmdApplyFindings, &form_.cmdUndoRules, &form_.cmdNotice}) {
    binder_.WidgetOf(*part).setVisible(on && part->Visible());
  }
  logo_->setVisible(on && logo);
}

}  // namespace cuewright
