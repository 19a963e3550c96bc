#include "ui/embed_view.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

#include "ui/link_button.h"
#include "ui/qt_text.h"

namespace cuewright {
namespace {

constexpr int kGap = 8;
constexpr int kDetailsWidth = 280;
constexpr int kFrameLines = 4;
constexpr int kNotesWidth = 420;
constexpr int kDigits = 5;

}  // namespace

EmbedView::EmbedView(EmbedWizard& form, QWidget* owner) : WizardView(form, owner), form_(form) {
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(20, 16, 20, 14);
  grid->setHorizontalSpacing(20);
  grid->setVerticalSpacing(12);
  QWidget* drag = MakeIcon(form.imgDrag, ":/film.svg", this, 44);
  drag->setCursor(Qt::SizeAllCursor);
  grid->addWidget(MakeHead(drag), 0, 0, 1, 2);
  auto* stack = new QGridLayout;
  MakeOutputPage(*stack);
  MakeToolPage(*stack);
  MakeFilePage(*stack);
  MakeSummaryPage(*stack);
  grid->addLayout(stack, 1, 0);
  grid->addWidget(MakeDetails(), 1, 1);
  grid->addLayout(MakeWizardButtons(), 2, 0, 1, 2);
  grid->setColumnStretch(0, 1);
  grid->setRowStretch(1, 1);
  // Widgets without a control must report motions too, which clear the hint of a control.
  for (QWidget* widget : findChildren<QWidget*>()) widget->setMouseTracking(true);
  Complete(&binder_.WidgetOf(form.cmdNext));
  Measure();
  Keep(form.DragRequested.ConnectScoped([this] { MoveByPointer(); }));
}

void EmbedView::Measure() {
  // The longest texts are measured at the start, so that the window keeps its size later.
  for (QLabel* note : notes_) note->setMinimumHeight(note->heightForWidth(kNotesWidth));
  QWidget* frame = details_->parentWidget();
  QLabel* sample = WrappedLabel(frame);
  const QMargins margins = frame->layout()->contentsMargins();
  int height = 0;
  for (const Text& hint : form_.Hints()) {
    sample->setText(ToQt(ReplaceAll(hint, kLineEnd, u"\n")));
    height = std::max(height, sample->heightForWidth(kDetailsWidth - margins.left() - margins.right() - kFrameLines));
  }
  delete sample;
  details_->setMinimumHeight(height);
  FitContent();
}

QWidget* EmbedView::MakeDetails() {
  auto* column = BareColumn(this);
  QWidget* area = column->parentWidget();
  area->setFixedWidth(kDetailsWidth);
  column->addWidget(Bind(form_.details.lblDetailsTitle, BoldLabel(area)));
  auto* frame = Bind(form_.details.fraDetails, new QGroupBox(area));
  auto* inside = new QVBoxLayout(frame);
  details_ = Bind(form_.details.lblDetails, WrappedLabel(frame));
  details_->setAlignment(Qt::AlignTop);
  inside->addWidget(details_, 1);
  column->addWidget(frame, 1);
  return area;
}

void EmbedView::MakeOutputPage(QGridLayout& stack) {
  auto* column = MakePage(form_.picStep[0], stack);
  QWidget* page = column->parentWidget();
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(12);
  grid->setVerticalSpacing(8);
  const auto choice = [&](int row, Label& label, ComboBox& control, int columns) {
    auto* box = Bind(control, new QComboBox(page));
    grid->addWidget(MakeLabelOf(label, box), row, 1, 1, 2);
    grid->addWidget(box, row + 1, 1, 1, columns);
  };
  grid->addWidget(MakeIcon(form_.imgFormat, ":/film.svg", page), 0, 0, 2, 1, Qt::AlignTop);
  choice(0, form_.lblFormat, form_.cmbFormat, 1);
  grid->addWidget(Bind(form_.cmdConfigure, new QPushButton(page)), 1, 2);
  grid->addWidget(Bind(form_.imgConfigure, new LinkButton(page)), 2, 1, 1, 2, Qt::AlignLeading);
  grid->addWidget(MakeIcon(form_.imgRes, ":/size.svg", page), 3, 0, 3, 1, Qt::AlignTop);
  choice(3, form_.lblRes, form_.cmbResolution, 2);
  grid->addLayout(MakeSizeRow(page), 5, 1, 1, 2);
  grid->addWidget(MakeIcon(form_.imgMode, ":/sharpness.svg", page), 6, 0, 2, 1, Qt::AlignTop);
  choice(6, form_.lblMode, form_.cmbMode, 2);
  grid->addWidget(MakeIcon(form_.imgPreview, ":/preview.svg", page), 8, 0, 2, 1, Qt::AlignTop);
  grid->addWidget(Bind(form_.chkPreview, new QCheckBox(page)), 8, 1, 1, 2);
  auto* preview = new QHBoxLayout;
  preview->setSpacing(kGap);
  preview->addWidget(Bind(form_.sldPreview, new QSlider(Qt::Horizontal, page)), 1);
  QLabel* value = Bind(form_.lblPreview, PlainLabel(page));
  value->setMinimumWidth(value->fontMetrics().horizontalAdvance("000 minutes"));
  preview->addWidget(value);
  grid->addLayout(preview, 9, 1, 1, 2);
  grid->setColumnStretch(1, 1);
  column->addLayout(grid);
  column->addStretch();
}

QBoxLayout* EmbedView::MakeSizeRow(QWidget* page) {
  auto* row = new QHBoxLayout;
  row->setSpacing(kGap);
  const auto number = [&](TextBox& control) {
    auto* box = Bind(control, new QLineEdit(page));
    box->setFixedWidth(box->fontMetrics().horizontalAdvance('0') * kDigits + 24);
    row->addWidget(box);
  };
  row->addWidget(Bind(form_.lblSize, PlainLabel(page)));
  number(form_.txtWidth);
  row->addWidget(Bind(form_.lblX, PlainLabel(page)));
  number(form_.txtHeight);
  row->addStretch();
  return row;
}

QLabel* EmbedView::AddHeading(QVBoxLayout& column, Picture& icon, const QString& file, QLabel* label) {
  auto* row = new QHBoxLayout;
  row->addWidget(MakeIcon(icon, file, column.parentWidget()));
  row->addWidget(label, 1);
  column.addLayout(row);
  return label;
}

void EmbedView::MakeToolPage(QGridLayout& stack) {
  auto* column = MakePage(form_.picStep[1], stack);
  QWidget* page = column->parentWidget();
  QLabel* tool = AddHeading(*column, form_.imgVD, ":/folder.svg", Bind(form_.lblVirtualdub, PlainLabel(page)));
  tool->setBuddy(AddPathRow(*column, form_.txtVirtualdub, form_.cmdBrowseVD));
  column->addSpacing(12);
  column->addWidget(Bind(form_.lblStep2, WrappedLabel(page)));
  column->addWidget(Bind(form_.lblDownload, new LinkButton(page)), 0, Qt::AlignLeading);
  column->addStretch();
}

void EmbedView::MakeFilePage(QGridLayout& stack) {
  auto* column = MakePage(form_.picStep[2], stack);
  QWidget* page = column->parentWidget();
  QLabel* file = AddHeading(*column, form_.imgSave, ":/save.svg", Bind(form_.lblSave, PlainLabel(page)));
  file->setBuddy(AddPathRow(*column, form_.txtSave, form_.cmdSave));
  column->addStretch();
}

void EmbedView::MakeSummaryPage(QGridLayout& stack) {
  auto* column = MakePage(form_.picStep[3], stack);
  QWidget* page = column->parentWidget();
  column->addWidget(Bind(form_.lblStep4, WrappedLabel(page)));
  for (TextBox* file : {&form_.txtTFileName, &form_.txtVFileName}) {
    auto* box = Bind(*file, new QLineEdit(page));
    box->setReadOnly(true);
    box->setLayoutDirection(Qt::LeftToRight);  // a path is read from its root in every language
    column->addWidget(box);
  }
  column->addSpacing(8);
  AddHeading(*column, form_.imgNotice, ":/warning.svg", Bind(form_.lblNotice, BoldLabel(page)));
  notes_ = {Bind(form_.lblNote1, WrappedLabel(page)), Bind(form_.lblNote2, WrappedLabel(page))};
  for (QLabel* note : notes_) {
    note->setMinimumWidth(kNotesWidth);
    KeepPlace(*note);
    column->addWidget(note);
  }
  column->setSpacing(8);
  column->addWidget(Bind(form_.lblConvert, new LinkButton(page)), 0, Qt::AlignLeading);
  column->addStretch();
}

}  // namespace cuewright
