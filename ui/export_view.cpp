#include "ui/export_view.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/svg_picture.h"

namespace cuewright {
namespace {

constexpr int kTagSize = 24;

}  // namespace

ExportView::ExportView(ExportDialog& form, QWidget* owner) : DialogView(form, owner) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(20, 16, 20, 14);
  column->setSpacing(10);
  auto* formats = Bind(form.cboFormats, new QComboBox(this));
  column->addWidget(MakeLabelOf(form.lblFormat, formats));
  formats->setMinimumWidth(420);
  formats->setMaxVisibleItems(18);
  column->addWidget(formats);
  column->addWidget(Bind(form.lblTotal, PlainLabel(this)));
  auto* encodings = Bind(form.cboEncoding, new QComboBox(this));
  encodings->setMaxVisibleItems(18);
  auto* encoding = new QHBoxLayout;
  encoding->addWidget(MakeLabelOf(form.lblEncoding, encodings));
  encoding->addWidget(encodings, 1);
  column->addLayout(encoding);
  column->addWidget(MakeProperties(form));
  column->addStretch();
  column->addLayout(MakeButtons({nullptr, &form.cmdOK, &form.cmdCancel}, &form.cmdOK));
  Complete(formats);
}

QGroupBox* ExportView::MakeProperties(ExportDialog& form) {
  auto* group = Bind(form.fraProperties, new QGroupBox(this));
  auto* grid = new QGridLayout(group);
  grid->setContentsMargins(14, 10, 14, 12);
  grid->setHorizontalSpacing(18);
  grid->setVerticalSpacing(10);
  int row = 0;
  for (const auto& [name, value] : {std::pair{&form.lblMode, &form.lblMode2},
                                    {&form.lblTimecode, &form.lblTimecode2},
                                    {&form.lblHeader, &form.lblHeader2}}) {
    grid->addWidget(Bind(*name, PlainLabel(group)), row, 0);
    grid->addWidget(Bind(*value, new CaptionLabel(group)), row++, 1);
  }
  grid->addWidget(Bind(form.cmdConfigure, new QPushButton(group)), row - 1, 2);
  grid->addWidget(Bind(form.lblTags, PlainLabel(group)), row, 0);
  auto* tags = new QHBoxLayout;
  for (const auto& [tag, file] : {std::pair{&form.imgBold, ":/bold.svg"},
                                  {&form.imgItalic, ":/italic.svg"},
                                  {&form.imgUnderline, ":/underline.svg"}}) {
    auto* image = Bind(*tag, new SvgPicture(file, group));
    image->setFixedSize(kTagSize, kTagSize);
    tags->addWidget(image);
  }
  tags->addStretch();
  grid->addLayout(tags, row, 1, 1, 2);
  grid->setRowMinimumHeight(row++, kTagSize);
  auto* rate = Bind(form.cmbFPS, new QComboBox(group));
  grid->addWidget(MakeLabelOf(form.lblFPS, rate), row, 0);
  grid->addWidget(rate, row, 1);
  grid->setColumnStretch(1, 1);
  return group;
}

}  // namespace cuewright
