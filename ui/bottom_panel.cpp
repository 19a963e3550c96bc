#include "ui/bottom_panel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "ui/dialog_view.h"
#include "ui/wrap_row.h"

namespace cuewright {

BottomPanel::BottomPanel(QWidget* parent) : QWidget(parent) {
  setObjectName("picBottom");
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(8, 4, 8, 8);
  row->setSpacing(12);
  auto* left = new QVBoxLayout;
  left->addWidget(MakeTimeRow());
  auto* pane = Named(new QPlainTextEdit(this), "txtSub");
  pane->setTabChangesFocus(true);
  pane->setAcceptDrops(false);      // files are the window's
  pane->setUndoRedoEnabled(false);  // what is typed is taken back with everything else
  pane->setMinimumHeight(48);
  pane_ = pane;
  left->addWidget(pane, 1);
  row->addLayout(left, 1);
  row->addWidget(MakeButtons());
  row->addWidget(MakeModes());
}

QWidget* BottomPanel::MakeTimeRow() {
  auto* panel = new QWidget(this);
  // What belongs together stays together; what has no room beside the others goes below them.
  auto* row = new WrapRow(panel, 14, 4);
  const auto group = [&] {
    auto* made = new QWidget(panel);
    auto* line = new QHBoxLayout(made);
    line->setContentsMargins(0, 0, 0, 0);
    row->addWidget(made);
    return line;
  };
  for (int index = 0; index < 2; ++index) {
    auto* line = group();
    auto* label = Named(new QLabel(panel), index == 0 ? "lblShow" : "lblDuration");
    auto* box = Named(new QLineEdit(panel), index == 0 ? "txtTime(0)" : "txtTime(1)");
    box->setMaxLength(12);
    box->setAttribute(Qt::WA_InputMethodEnabled, false);
    box->setFixedWidth(box->fontMetrics().horizontalAdvance("00:00:00,000") + 24);
    line->addWidget(label);
    line->addWidget(box);
  }
  auto* line = group();
  auto* caption = Named(new QLabel(panel), "lblPosition");
  caption->setMinimumHeight(panel->findChild<QLineEdit*>("txtTime(0)")->sizeHint().height());  // on the boxes' line
  auto* time = Named(new QLabel(panel), "lblTime");
  auto* text = Named(new QLabel(panel), "lblStringPos");
  time->setMinimumWidth(time->fontMetrics().horizontalAdvance("00000000"));
  text->setMinimumWidth(text->fontMetrics().horizontalAdvance("0:00:00"));
  time->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  line->addWidget(caption);
  line->addWidget(text);
  line->addWidget(time);
  return panel;
}

QWidget* BottomPanel::MakeButtons() {
  auto* panel = new QWidget(this);
  auto* grid = new QGridLayout(panel);
  grid->setContentsMargins(0, 0, 0, 0);
  const auto button = [&](const char* name, int row, int column, int columns) {
    auto* made = Named(new QPushButton(panel), name);
    made->setMinimumWidth(80);
    made->setAutoDefault(false);
    made->setAttribute(Qt::WA_InputMethodEnabled, false);
    made->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    grid->addWidget(made, row, column, 1, columns);
    return made;
  };
  button("cmdApply", 0, 0, 2);
  button("cmdNext", 1, 0, 1);
  button("cmdEnd", 1, 1, 1);
  button("cmdCancel", 2, 0, 2);
  return panel;
}

QWidget* BottomPanel::MakeModes() {
  auto* panel = new QWidget(this);
  auto* column = new QVBoxLayout(panel);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  auto* heading = Named(new QLabel(panel), "lblMainMode");
  QFont bold = heading->font();
  bold.setBold(true);
  heading->setFont(bold);
  column->addWidget(heading);
  for (const char* name : {"optPress", "optManual", "optPreview"}) {
    auto* option = Named(new QRadioButton(panel), name);
    option->setAttribute(Qt::WA_InputMethodEnabled, false);
    column->addWidget(option);
  }
  auto* text = Named(new QLabel(panel), "lblMode");
  text->setWordWrap(true);
  text->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  text->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  column->addWidget(text, 1);
  // As wide as the longest mode in the language in force; the text below wraps.
  column->addStrut(240);
  panel->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
  return panel;
}

}  // namespace cuewright
