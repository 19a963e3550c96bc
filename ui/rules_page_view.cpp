#include "ui/settings_page_views.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLineEdit>
#include <QSlider>
#include <QStyle>
#include <QVBoxLayout>

#include "core/counting.h"

namespace cuewright {
namespace {

constexpr int kPanelIndent = 24;

}  // namespace

RulesPageView::RulesPageView(RulesPage& page, Picture& area, Binder& binder, QWidget* parent)
    : SettingsPageView(area, binder, parent), page_(page) {
  for (CheckBox* check : {&page_.chkAutoSplit, &page_.chkCollision})
    column_->addWidget(Bind(*check, new QCheckBox(this)));
  // Each panel is made right after its check box, since Tab follows the order of making.
  QWidget* join = AddRule(page_.chkAutoJoin, page_.imgAutoJoin, page_.picAutoJoin);
  auto* row = new QHBoxLayout(join);
  row->setSpacing(12);
  row->addWidget(Bind(page_.lblAutoJoin, PlainLabel(join)));
  row->addWidget(MakeSlider(page_.sldAutoJoin, join), 1);
  FillDurationPanel(AddRule(page_.chkDuration, page_.imgDuration, page_.picDuration));
  QWidget* credits = AddRule(page_.chkCredits, page_.imgCredits, page_.picCredits);
  auto* column = new QVBoxLayout(credits);
  column->addWidget(Bind(page_.lblCredits, PlainLabel(credits)));
  column->addWidget(Bind(page_.txtCredits, new QLineEdit(credits)));
  column_->addSpacing(10);
  QComboBox* apply = MakeCombo(page_.cmbApply);
  QLabel* label = Bind(page_.lblApply, PlainLabel(this));
  label->setBuddy(apply);
  column_->addWidget(label);
  column_->addWidget(apply, 0, Qt::AlignLeft);
  column_->addWidget(Bind(page_.chkRulesOnLoad, new QCheckBox(this)));
  column_->addStretch();
  PaintPanels();
}

QWidget* RulesPageView::AddRule(CheckBox& check, Picture& image, Picture& panel) {
  auto* line = BareRow(this);
  QWidget* row = line->parentWidget();
  line->setSpacing(6);
  line->addWidget(Bind(check, new QCheckBox(row)));
  auto* icon = Bind(image, new SvgPicture(":/unfold.svg", row));
  icon->setFixedSize(18, 18);
  icon->setCursor(Qt::PointingHandCursor);
  line->addWidget(icon);
  line->addStretch();
  column_->addWidget(row);
  auto* area = Bind(panel, new QFrame(this));
  area->setFrameShape(QFrame::StyledPanel);
  area->setAutoFillBackground(true);
  panels_.push_back({panel, row, area});
  connections_.push_back(panel.Changed.ConnectScoped([this] { PlacePanels(); }));
  return area;
}

void RulesPageView::FillDurationPanel(QWidget* panel) {
  auto* grid = new QGridLayout(panel);
  grid->setHorizontalSpacing(16);
  grid->setVerticalSpacing(4);
  Label* const classes[] = {&page_.lblShort, &page_.lblMedium, &page_.lblLong};
  for (int k = 0; k < CountOf(classes); ++k) {
    const int row = k * 2;
    grid->addWidget(Bind(*ItemAt(classes, k), BoldLabel(panel)), row, 0, 2, 1);
    grid->addWidget(Bind(ItemAt(page_.lblDuration, k), PlainLabel(panel)), row, 1);
    grid->addWidget(MakeSlider(ItemAt(page_.sldDuration, k), panel), row + 1, 1);
    grid->addWidget(Bind(ItemAt(page_.lblTolerance, k), PlainLabel(panel)), row, 2);
    grid->addWidget(MakeSlider(ItemAt(page_.sldTolerance, k), panel), row + 1, 2);
  }
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(2, 1);
}

void RulesPageView::PaintPanels() {
  QPalette colors = QGuiApplication::palette();
  colors.setBrush(QPalette::Window, colors.toolTipBase());
  colors.setBrush(QPalette::WindowText, colors.toolTipText());
  for (const Panel& panel : panels_) panel.area->setPalette(colors);
}

void RulesPageView::PlacePanels() {
  QSize needed;
  for (const Panel& panel : panels_) {
    const QPoint at = panel.row->mapTo(this, QPoint(0, panel.row->height()));
    const QSize hint = panel.area->sizeHint();
    const int height = std::max(hint.height(), panel.control.Height());
    const QRect place(kPanelIndent, at.y(), width() - kPanelIndent, height);
    panel.area->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
    if (!panel.area->isHidden()) panel.area->raise();
    needed = needed.expandedTo({kPanelIndent + hint.width(), place.bottom() + 1});
  }
  if (minimumSize() != needed) setMinimumSize(needed);
}

void RulesPageView::changeEvent(QEvent* event) {
  SettingsPageView::changeEvent(event);
  if (event->type() == QEvent::LayoutDirectionChange) PlacePanels();
}

}  // namespace cuewright
