#include "ui/format_view.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/fit_screen.h"
#include "ui/link_button.h"
#include "ui/qt_color.h"
#include "ui/qt_text.h"
#include "ui/sample_area.h"

namespace cuewright {
namespace {

constexpr int kNumberWidth = 64;
/// Behind the sample of a format whose captions stand on the picture.
constexpr QRgb kPicture = 0xFF3A3F47;

QLineEdit* MakeNumber(const char* name, QWidget* parent) {
  auto* box = Named(new QLineEdit(parent), name);
  box->setFixedWidth(kNumberWidth);
  box->setAttribute(Qt::WA_InputMethodEnabled, false);
  return box;
}

QBoxLayout* MakeRow(std::initializer_list<const char*> buttons, QWidget* parent) {
  auto* row = new QHBoxLayout;
  for (const char* name : buttons) {
    auto* button = Named(new QPushButton(parent), name);
    button->setMinimumWidth(100);
    row->addWidget(button);
  }
  row->addStretch();
  return row;
}

QFont FontOf(const FontChoice& choice) {
  QFont font(ToQt(choice.Name));
  if (choice.Size > 0) font.setPointSizeF(choice.Size);
  font.setBold(choice.Bold);
  font.setItalic(choice.Italic);
  return font;
}

void ShowIn(SampleArea& area, const FormatSample& sample, const QColor& background) {
  constexpr Qt::Alignment kSides[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
  SampleStyle style;
  style.font = FontOf(sample.font);
  style.color = ColorOf(sample.color);
  style.background = background;
  style.alignment = Qt::AlignVCenter | kSides[sample.alignment < 0 ? 0 : sample.alignment];
  area.ShowStyle(style);
}

}  // namespace

FormatView::FormatView(FormatDialog& form, QWidget* owner) : DialogView(form, owner), form_(form) {
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(20, 16, 20, 14);
  grid->setHorizontalSpacing(18);
  grid->setVerticalSpacing(14);
  grid->addWidget(MakeList(), 0, 0);
  grid->addWidget(MakePanels(), 0, 1);
  grid->addLayout(MakeButtons({"cmdReset", "", "cmdOK", "cmdCancel"}), 1, 0, 1, 2);
  grid->setColumnStretch(1, 1);
  Names("lblFormats", "lstFormats");
  Names("lblSamiAlign", "cmbSamiAlign");
  Names("lblSsaStyle", "cmbSsaStyle");
  Bind(findChild<QListWidget*>("lstFormats"));
  for (SamplePanel* panel : std::initializer_list<SamplePanel*>{&form_.sami, &form_.ssa}) {
    Keep(panel->SampleChanged.ConnectScoped([this] { ShowSamples(); }));
  }
  ShowSamples();
}

QWidget* FormatView::MakeList() {
  auto* area = new QWidget(this);
  auto* column = new QVBoxLayout(area);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(MakeLabel("lblFormats", area, true));
  auto* list = Named(new QListWidget(area), "lstFormats");
  list->setMinimumWidth(170);
  list->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
  column->addWidget(list, 1);
  column->addWidget(Named(new LinkButton(area), "lblGetMore"), 0, Qt::AlignLeft);
  area->setMaximumWidth(210);
  return area;
}

QWidget* FormatView::MakePanels() {
  auto* area = new QWidget(this);
  auto* column = new QVBoxLayout(area);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(MakeHeading("lblTop", area));
  auto* place = new QWidget(area);
  auto* stack = new QGridLayout(place);
  stack->setContentsMargins(0, 0, 0, 0);
  for (QWidget* panel : {MakeDvd(), MakeSami(), MakeSsa()}) stack->addWidget(panel, 0, 0);
  column->addWidget(new ContentScroll(place, area), 1);
  return area;
}

QWidget* FormatView::MakePanel(const char* name) {
  auto* panel = Named(new QWidget(this), name);
  QSizePolicy policy = panel->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  panel->setSizePolicy(policy);
  return panel;
}

QWidget* FormatView::MakeDvd() {
  QWidget* panel = MakePanel("picDvdSubtitle");
  auto* grid = new QGridLayout(panel);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(14);
  grid->setVerticalSpacing(8);
  int row = 0;
  for (const char* field : {"DiscID", "DVDTitle", "Lang", "Author", "Web", "Info", "License"}) {
    grid->addWidget(MakeLabel(QString("lblDvdSubtitle") + field, panel), row, 0);
    auto* box = new QLineEdit(panel);
    box->setObjectName(QString("txtDvdSubtitle") + field);
    box->setMinimumWidth(220);
    grid->addWidget(box, row++, 1);
  }
  grid->setRowStretch(row, 1);
  return panel;
}

QWidget* FormatView::MakeSami() {
  QWidget* panel = MakePanel("picSami");
  auto* column = new QVBoxLayout(panel);
  column->setContentsMargins(0, 0, 0, 0);
  sami_ = new SampleArea("picSamiSample", "lblSamiSample", nullptr, panel);
  column->addWidget(sami_);
  column->addWidget(MakeLabel("lblSamiNote", panel, true));
  column->addLayout(MakeRow({"cmdSamiFont", "cmdSamiColor", "cmdSamiBackground"}, panel));
  auto* align = new QHBoxLayout;
  align->setSpacing(14);
  align->addWidget(MakeLabel("lblSamiAlign", panel));
  align->addWidget(Named(new QComboBox(panel), "cmbSamiAlign"));
  align->addStretch();
  column->addLayout(align);
  column->addStretch();
  return panel;
}

QGroupBox* FormatView::MakeSsaAlign(QWidget* panel) {
  auto* group = Named(new QGroupBox(panel), "fraSsaAlign");
  auto* column = new QVBoxLayout(group);
  column->addWidget(Named(new QComboBox(group), "cmbSsaAlign"));
  column->addWidget(Named(new QComboBox(group), "cmbSsaValign"));
  column->addStretch();
  return group;
}

QGroupBox* FormatView::MakeSsaBorder(QWidget* panel) {
  auto* group = Named(new QGroupBox(panel), "fraSsaBorder");
  auto* grid = new QGridLayout(group);
  grid->setHorizontalSpacing(10);
  grid->addWidget(MakeLabel("lblSsaStyle", group), 0, 0);
  grid->addWidget(Named(new QComboBox(group), "cmbSsaStyle"), 0, 1);
  grid->addWidget(MakeLabel("lblSsaOutline", group), 1, 0);
  grid->addWidget(MakeNumber("txtSsaOutline", group), 1, 1);
  grid->addWidget(MakeLabel("lblSsaShadow", group), 2, 0);
  grid->addWidget(MakeNumber("txtSsaShadow", group), 2, 1);
  grid->addWidget(Named(new QPushButton(group), "cmdSsaBack"), 3, 0);
  auto* back = Named(new QFrame(group), "picSsaBack");
  back->setFrameShape(QFrame::StyledPanel);
  back->setAutoFillBackground(true);
  back->setFixedWidth(kNumberWidth);
  grid->addWidget(back, 3, 1);
  ssaBack_ = back;
  return group;
}

QGroupBox* FormatView::MakeSsaMargins(QWidget* panel) {
  auto* group = Named(new QGroupBox(panel), "fraSsaMargins");
  auto* grid = new QGridLayout(group);
  grid->setHorizontalSpacing(10);
  int row = 0;
  for (const auto& [label, box] : {std::pair{"lblSsaMarginl", "txtSsaMarginl"},
                                   {"lblSsaMarginr", "txtSsaMarginr"},
                                   {"lblSsaMarginv", "txtSsaMarginv"}}) {
    grid->addWidget(MakeLabel(label, group), row, 0);
    grid->addWidget(MakeNumber(box, group), row++, 1);
  }
  grid->setRowStretch(row, 1);
  return group;
}

QWidget* FormatView::MakeSsa() {
  QWidget* panel = MakePanel("picSsa");
  auto* column = new QVBoxLayout(panel);
  column->setContentsMargins(0, 0, 0, 0);
  ssa_ = new SampleArea("picSsaSample", "lblSsaSample", nullptr, panel);
  column->addWidget(ssa_);
  column->addWidget(MakeLabel("lblSsaNote", panel, true));
  column->addLayout(MakeRow({"cmdSsaFont", "cmdSsaColor"}, panel));
  auto* groups = new QHBoxLayout;
  groups->addWidget(MakeSsaAlign(panel));
  groups->addWidget(MakeSsaBorder(panel), 1);
  groups->addWidget(MakeSsaMargins(panel));
  column->addLayout(groups);
  auto* charset = new QHBoxLayout;
  charset->addWidget(MakeLabel("lblSsaCharset", panel));
  auto* help = Named(new LinkButton(panel), "imgSsaCharset");
  help->setToolButtonStyle(Qt::ToolButtonIconOnly);
  help->setIcon(QIcon(":/help.svg"));
  charset->addWidget(help);
  charset->addStretch();
  column->addLayout(charset);
  column->addStretch();
  return panel;
}

void FormatView::ShowSamples() {
  ShowIn(*sami_, form_.sami.Sample(), ColorOf(form_.sami.Sample().background));
  ShowIn(*ssa_, form_.ssa.Sample(), QColor::fromRgba(kPicture));
  QPalette colors = ssaBack_->palette();
  colors.setColor(QPalette::Window, ColorOf(form_.ssa.Sample().background));
  ssaBack_->setPalette(colors);
}

}  // namespace cuewright
