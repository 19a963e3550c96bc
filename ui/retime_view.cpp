#include "ui/retime_view.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "ui/sync_line.h"

namespace cuewright {
namespace {

constexpr int kPageIndent = 24;
constexpr int kWaysInAColumn = 3;
constexpr int kFieldWidth = 130;
constexpr int kPointLines = 5;
constexpr int kSegmentLines = 4;  // the page has one row of buttons more

}  // namespace

RetimeView::RetimeView(RetimeWindow& form, QWidget* owner) : ToolView(form, owner), form_(form) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(18, 16, 18, 14);
  column->setSpacing(12);
  binder_.Bind(form.sync->tmrSync);
  column->addWidget(MakeWays());
  column->addWidget(MakePages(), 1);
  column->addWidget(MakeScope());
  auto* result = Bind(form.lblResult, WrappedLabel(this));
  // The window keeps its height whether a line or two are told.
  result->setMinimumHeight(2 * result->fontMetrics().lineSpacing());
  result->setAlignment(Qt::AlignTop | Qt::AlignLeading);
  column->addWidget(result);
  column->addWidget(MakeButtons(form_.cmdOK, form_.cmdCancel));
  binder_.WidgetOf(form.txtShift).setFocus();
}

QWidget* RetimeView::MakeWays() {
  auto* ways = new QWidget(this);
  // Side by side, since the page below needs the height of a small screen.
  auto* grid = new QGridLayout(ways);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setColumnStretch(1, 1);
  int place = 0;
  for (OptionButton* way : {&form_.optShift, &form_.optRatio, &form_.optRates, &form_.optPoints, &form_.optSync}) {
    grid->addWidget(Bind(*way, new QRadioButton(ways)), place % kWaysInAColumn, place / kWaysInAColumn);
    ++place;
  }
  return ways;
}

QWidget* RetimeView::MakePages() {
  auto* pages = new QWidget(this);
  auto* stack = new QGridLayout(pages);
  stack->setContentsMargins(kPageIndent, 0, 0, 0);
  const auto add = [&](Frame& frame, void (RetimeView::*fill)(QWidget*)) {
    auto* page = Bind(frame, new QWidget(pages));
    (this->*fill)(page);
    QSizePolicy policy = page->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    page->setSizePolicy(policy);
    stack->addWidget(page, 0, 0);
  };
  add(form_.fraShift, &RetimeView::FillShift);
  add(form_.fraRatio, &RetimeView::FillRatio);
  add(form_.fraRates, &RetimeView::FillRates);
  add(form_.points.fraPoints, &RetimeView::FillPoints);
  add(form_.sync->fraSync, &RetimeView::FillSync);
  return pages;
}

void RetimeView::FillShift(QWidget* page) {
  auto* grid = new QGridLayout(page);
  grid->setContentsMargins(0, 0, 0, 0);
  auto* amount = Bind(form_.txtShift, new QLineEdit(page));
  amount->setFixedWidth(kFieldWidth);
  grid->addWidget(amount, 0, 0);
  grid->addWidget(Bind(form_.cboUnit, new QComboBox(page)), 0, 1);
  grid->addWidget(Bind(form_.cboDirection, new QComboBox(page)), 0, 2);
  grid->setColumnStretch(3, 1);
  grid->setRowStretch(1, 1);
}

void RetimeView::FillRatio(QWidget* page) {
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(0, 0, 0, 0);
  auto* ratio = Bind(form_.txtRatio, new QLineEdit(page));
  ratio->setFixedWidth(kFieldWidth);
  column->addWidget(ratio);
  column->addWidget(Bind(form_.lblRatio, WrappedLabel(page)));
  column->addStretch();
}

void RetimeView::FillRates(QWidget* page) {
  auto* grid = new QGridLayout(page);
  grid->setContentsMargins(0, 0, 0, 0);
  const auto add = [&](int row, Label& label, ComboBox& rate) {
    auto* box = Bind(rate, new QComboBox(page));
    box->setMinimumWidth(kFieldWidth);
    grid->addWidget(MakeLabelOf(label, box), row, 0);
    grid->addWidget(box, row, 1);
  };
  add(0, form_.lblFrom, form_.cboFrom);
  add(1, form_.lblTo, form_.cboTo);
  grid->addWidget(Bind(form_.lblFilmRate, PlainLabel(page)), 2, 0, 1, 3);
  grid->setColumnStretch(2, 1);
  grid->setRowStretch(3, 1);
}

void RetimeView::FillPoints(QWidget* page) {
  auto* grid = new QGridLayout(page);
  grid->setContentsMargins(0, 0, 0, 0);
  auto* time = Bind(form_.points.txtPoint, new QLineEdit(page));
  time->setFixedWidth(kFieldWidth);
  grid->addWidget(MakeLabelOf(form_.points.lblPoint, time), 0, 0);
  grid->addWidget(time, 0, 1);
  const auto button = [&](Button& control) {
    auto* made = Bind(control, new QPushButton(page));
    made->setAutoDefault(false);
    return made;
  };
  grid->addWidget(button(form_.points.cmdSetPoint), 0, 2);
  grid->addWidget(button(form_.points.cmdFilmPoint), 0, 3);
  auto* points = Bind(form_.points.lstPoints, new QListWidget(page));
  points->setFixedHeight(kPointLines * points->fontMetrics().lineSpacing() + 16);
  grid->addWidget(points, 1, 0, 1, 3);
  grid->addWidget(button(form_.points.cmdRemovePoint), 1, 3, Qt::AlignTop);
  grid->setRowStretch(2, 1);
}

void RetimeView::FillSync(QWidget* page) {
  SyncPage& sync = *form_.sync;
  auto* grid = new QGridLayout(page);
  grid->setContentsMargins(0, 0, 0, 0);
  const auto button = [&](Button& control) {
    auto* made = Bind(control, new QPushButton(page));
    made->setAutoDefault(false);
    return made;
  };
  grid->addWidget(button(sync.cmdSyncFind), 0, 0);
  grid->addWidget(button(sync.cmdSyncFile), 0, 1);
  grid->addWidget(Bind(sync.picSegments, new SyncLine(sync, page)), 1, 0, 1, 4);
  auto* segments = Bind(sync.lstSegments, new QListWidget(page));
  segments->setFixedHeight(kSegmentLines * segments->fontMetrics().lineSpacing() + 16);
  grid->addWidget(segments, 2, 0, 1, 4);
  auto* offset = Bind(sync.txtOffset, new QLineEdit(page));
  offset->setFixedWidth(kFieldWidth);
  grid->addWidget(MakeLabelOf(sync.lblOffset, offset), 3, 0);
  grid->addWidget(offset, 3, 1);
  grid->addWidget(button(sync.cmdSetOffset), 3, 2);
  grid->addWidget(button(sync.cmdFreeSegment), 3, 3);
  grid->addWidget(button(sync.cmdBorder), 4, 0, 1, 2);
  grid->addWidget(button(sync.cmdJoinSegment), 4, 2, 1, 2);
  grid->setRowStretch(5, 1);
}

QWidget* RetimeView::MakeScope() {
  auto* scope = Bind(form_.fraScope, new QGroupBox(this));
  auto* row = new QHBoxLayout(scope);
  row->setSpacing(20);
  for (OptionButton* option : {&form_.optAll, &form_.optSelected, &form_.optFromHere}) {
    row->addWidget(Bind(*option, new QRadioButton(scope)));
  }
  row->addStretch();
  return scope;
}

}  // namespace cuewright
