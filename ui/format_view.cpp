#include "ui/format_view.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
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
  grid->addLayout(MakeButtons({&form.cmdReset, nullptr, &form.cmdOK, &form.cmdCancel}, &form.cmdOK), 1, 0, 1, 2);
  grid->setColumnStretch(1, 1);
  Complete(&binder_.WidgetOf(form.lstFormats));
  for (SamplePanel* panel : std::initializer_list<SamplePanel*>{&form_.sami, &form_.ssa}) {
    Keep(panel->SampleChanged.ConnectScoped([this] { ShowSamples(); }));
  }
  ShowSamples();
}

QWidget* FormatView::MakeList() {
  auto* column = BareColumn(this);
  QWidget* area = column->parentWidget();
  auto* list = Bind(form_.lstFormats, new QListWidget(area));
  QLabel* label = MakeLabelOf(form_.lblFormats, list);
  label->setWordWrap(true);
  column->addWidget(label);
  list->setMinimumWidth(170);
  list->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
  column->addWidget(list, 1);
  column->addWidget(Bind(form_.lblGetMore, new LinkButton(area)), 0, Qt::AlignLeft);
  area->setMaximumWidth(210);
  return area;
}

QWidget* FormatView::MakePanels() {
  auto* column = BareColumn(this);
  QWidget* area = column->parentWidget();
  column->addWidget(Bind(form_.lblTop, HeadingLabel(area)));
  auto* place = new QWidget(area);
  auto* stack = new QGridLayout(place);
  stack->setContentsMargins(0, 0, 0, 0);
  for (QWidget* panel : {MakeDvd(), MakeSami(), MakeSsa()}) stack->addWidget(panel, 0, 0);
  column->addWidget(new ContentScroll(place, area), 1);
  return area;
}

QWidget* FormatView::MakePanel(Picture& control) {
  auto* panel = Bind(control, new QWidget(this));
  KeepPlace(*panel);
  return panel;
}

QLineEdit* FormatView::MakeNumber(TextBox& control, QWidget* parent) {
  auto* box = Bind(control, new QLineEdit(parent));
  box->setFixedWidth(kNumberWidth);
  box->setAttribute(Qt::WA_InputMethodEnabled, false);
  return box;
}

QBoxLayout* FormatView::MakeRow(std::initializer_list<Button*> buttons, QWidget* parent) {
  auto* row = new QHBoxLayout;
  for (Button* control : buttons) {
    auto* button = Bind(*control, new QPushButton(parent));
    button->setMinimumWidth(100);
    row->addWidget(button);
  }
  row->addStretch();
  return row;
}

QWidget* FormatView::MakeDvd() {
  QWidget* panel = MakePanel(form_.dvdSubtitle.picDvdSubtitle);
  auto* grid = new QGridLayout(panel);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(14);
  grid->setVerticalSpacing(8);
  int row = 0;
  for (LabelledBox* field : form_.dvdSubtitle.Boxes()) {
    grid->addWidget(Bind(field->label, PlainLabel(panel)), row, 0);
    auto* box = Bind(field->box, new QLineEdit(panel));
    box->setMinimumWidth(220);
    grid->addWidget(box, row++, 1);
  }
  grid->setRowStretch(row, 1);
  return panel;
}

QWidget* FormatView::MakeSami() {
  SamiPanel& sami = form_.sami;
  QWidget* panel = MakePanel(sami.picSami);
  auto* column = new QVBoxLayout(panel);
  column->setContentsMargins(0, 0, 0, 0);
  sami_ = new SampleArea(binder_, sami.picSamiSample, sami.lblSamiSample, nullptr, panel);
  column->addWidget(sami_);
  column->addWidget(Bind(sami.lblSamiNote, WrappedLabel(panel)));
  column->addLayout(MakeRow({&sami.cmdSamiFont, &sami.cmdSamiColor, &sami.cmdSamiBackground}, panel));
  auto* align = new QHBoxLayout;
  align->setSpacing(14);
  auto* alignments = Bind(sami.cmbSamiAlign, new QComboBox(panel));
  align->addWidget(MakeLabelOf(sami.lblSamiAlign, alignments));
  align->addWidget(alignments);
  align->addStretch();
  column->addLayout(align);
  column->addStretch();
  return panel;
}

QGroupBox* FormatView::MakeSsaAlign(QWidget* panel) {
  auto* group = Bind(form_.ssa.fraSsaAlign, new QGroupBox(panel));
  auto* column = new QVBoxLayout(group);
  for (ComboBox* box : {&form_.ssa.cmbSsaAlign, &form_.ssa.cmbSsaValign}) {
    column->addWidget(Bind(*box, new QComboBox(group)));
  }
  column->addStretch();
  return group;
}

QGroupBox* FormatView::MakeSsaBorder(QWidget* panel) {
  SsaPanel& ssa = form_.ssa;
  auto* group = Bind(ssa.fraSsaBorder, new QGroupBox(panel));
  auto* grid = new QGridLayout(group);
  grid->setHorizontalSpacing(10);
  auto* styles = Bind(ssa.cmbSsaStyle, new QComboBox(group));
  grid->addWidget(MakeLabelOf(ssa.lblSsaStyle, styles), 0, 0);
  grid->addWidget(styles, 0, 1);
  grid->addWidget(Bind(ssa.lblSsaOutline, PlainLabel(group)), 1, 0);
  grid->addWidget(MakeNumber(ssa.txtSsaOutline, group), 1, 1);
  grid->addWidget(Bind(ssa.lblSsaShadow, PlainLabel(group)), 2, 0);
  grid->addWidget(MakeNumber(ssa.txtSsaShadow, group), 2, 1);
  grid->addWidget(Bind(ssa.cmdSsaBack, new QPushButton(group)), 3, 0);
  auto* back = Bind(ssa.picSsaBack, new QFrame(group));
  back->setFrameShape(QFrame::StyledPanel);
  back->setAutoFillBackground(true);
  back->setFixedWidth(kNumberWidth);
  grid->addWidget(back, 3, 1);
  ssaBack_ = back;
  return group;
}

QGroupBox* FormatView::MakeSsaMargins(QWidget* panel) {
  SsaPanel& ssa = form_.ssa;
  auto* group = Bind(ssa.fraSsaMargins, new QGroupBox(panel));
  auto* grid = new QGridLayout(group);
  grid->setHorizontalSpacing(10);
  int row = 0;
  for (const auto& [label, box] : {std::pair{&ssa.lblSsaMarginl, &ssa.txtSsaMarginl},
                                   {&ssa.lblSsaMarginr, &ssa.txtSsaMarginr},
                                   {&ssa.lblSsaMarginv, &ssa.txtSsaMarginv}}) {
    grid->addWidget(Bind(*label, PlainLabel(group)), row, 0);
    grid->addWidget(MakeNumber(*box, group), row++, 1);
  }
  grid->setRowStretch(row, 1);
  return group;
}

QWidget* FormatView::MakeSsa() {
  SsaPanel& ssa = form_.ssa;
  QWidget* panel = MakePanel(ssa.picSsa);
  auto* column = new QVBoxLayout(panel);
  column->setContentsMargins(0, 0, 0, 0);
  ssa_ = new SampleArea(binder_, ssa.picSsaSample, ssa.lblSsaSample, nullptr, panel);
  column->addWidget(ssa_);
  column->addWidget(Bind(ssa.lblSsaNote, WrappedLabel(panel)));
  column->addLayout(MakeRow({&ssa.cmdSsaFont, &ssa.cmdSsaColor}, panel));
  auto* groups = new QHBoxLayout;
  groups->addWidget(MakeSsaAlign(panel));
  groups->addWidget(MakeSsaBorder(panel), 1);
  groups->addWidget(MakeSsaMargins(panel));
  column->addLayout(groups);
  auto* charset = new QHBoxLayout;
  charset->addWidget(Bind(ssa.lblSsaCharset, PlainLabel(panel)));
  auto* help = Bind(ssa.imgSsaCharset, new LinkButton(panel));
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
