#include "ui/export_view.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
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
  column->addWidget(MakeLabel("lblFormat", this));
  auto* formats = Named(new QComboBox(this), "cboFormats");
  formats->setMinimumWidth(420);
  formats->setMaxVisibleItems(18);
  column->addWidget(formats);
  column->addWidget(MakeLabel("lblTotal", this));
  column->addWidget(MakeProperties());
  column->addStretch();
  column->addLayout(MakeButtons({"", "cmdOK", "cmdCancel"}));
  Names("lblFormat", "cboFormats");
  Names("lblFPS", "cmbFPS");
  Bind(formats);
}

QGroupBox* ExportView::MakeProperties() {
  auto* group = Named(new QGroupBox(this), "fraProperties");
  auto* grid = new QGridLayout(group);
  grid->setContentsMargins(14, 10, 14, 12);
  grid->setHorizontalSpacing(18);
  grid->setVerticalSpacing(10);
  const std::pair<const char*, const char*> rows[] = {
      {"lblMode", "lblMode2"}, {"lblTimecode", "lblTimecode2"}, {"lblHeader", "lblHeader2"}};
  int row = 0;
  for (const auto& [name, value] : rows) {
    grid->addWidget(MakeLabel(name, group), row, 0);
    QLabel* shown = MakeLabel(value, group);
    shown->setProperty(Binder::kCaptionProperty, true);
    QFont bold = shown->font();
    bold.setBold(true);
    shown->setFont(bold);
    grid->addWidget(shown, row++, 1);
  }
  auto* configure = Named(new QPushButton(group), "cmdConfigure");
  grid->addWidget(configure, row - 1, 2);
  grid->addWidget(MakeLabel("lblTags", group), row, 0);
  auto* tags = new QHBoxLayout;
  for (const auto& [name, file] :
       {std::pair{"imgBold", ":/bold.svg"}, {"imgItalic", ":/italic.svg"}, {"imgUnderline", ":/underline.svg"}}) {
    auto* image = Named(new SvgPicture(file, group), name);
    image->setFixedSize(kTagSize, kTagSize);
    tags->addWidget(image);
  }
  tags->addStretch();
  grid->addLayout(tags, row, 1, 1, 2);
  grid->setRowMinimumHeight(row++, kTagSize);
  grid->addWidget(MakeLabel("lblFPS", group), row, 0);
  grid->addWidget(Named(new QComboBox(group), "cmbFPS"), row, 1);
  grid->setColumnStretch(1, 1);
  return group;
}

}  // namespace cuewright
