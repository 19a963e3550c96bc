#include "ui/bottom_panel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "ui/binder.h"
#include "ui/keyed_button.h"
#include "ui/labels.h"
#include "ui/larger_font.h"
#include "ui/wrap_row.h"

namespace cuewright {

BottomPanel::BottomPanel(MainWindow& form, const AppOptions& options, Binder& binder, QWidget* parent)
    : QWidget(parent), form_(form), options_(options), binder_(binder) {
  binder_.Bind(form_.picBottom, this);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(8, 4, 8, 8);
  row->setSpacing(12);
  auto* left = new QVBoxLayout;
  left->addWidget(MakeTimeRow());
  auto* pane = binder_.Bind(form_.txtSub, new QPlainTextEdit(this));
  pane->setTabChangesFocus(true);
  pane->setAcceptDrops(false);      // files are the window's
  pane->setUndoRedoEnabled(false);  // what is typed is taken back with everything else
  pane->setMinimumHeight(48);
  if (options_.manner.HasCalmWindow()) pane->setFont(LargerFont());
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
    auto* line = BareRow(panel);
    QWidget* made = line->parentWidget();
    row->addWidget(made);
    return line;
  };
  int height = 0;
  for (const auto& [label, time] :
       {std::pair{&form_.lblShow, &form_.txtTime[0]}, {&form_.lblDuration, &form_.txtTime[1]}}) {
    auto* line = group();
    line->addWidget(binder_.Bind(*label, new QLabel(panel)));
    auto* box = binder_.Bind(*time, new QLineEdit(panel));
    box->setMaxLength(12);
    box->setAttribute(Qt::WA_InputMethodEnabled, false);
    box->setFixedWidth(box->fontMetrics().horizontalAdvance("00:00:00,000") + 24);
    line->addWidget(box);
    height = box->sizeHint().height();
  }
  auto* line = group();
  auto* caption = binder_.Bind(form_.lblPosition, new QLabel(panel));
  caption->setMinimumHeight(height);  // on the boxes' line
  auto* time = binder_.Bind(form_.lblTime, new QLabel(panel));
  auto* text = binder_.Bind(form_.lblStringPos, new QLabel(panel));
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
  const auto button = [&](Button& control, QPushButton* widget, int row, int column, int columns) {
    auto* made = binder_.Bind(control, widget);
    made->setMinimumWidth(80);
    made->setAutoDefault(false);
    made->setAttribute(Qt::WA_InputMethodEnabled, false);
    made->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    grid->addWidget(made, row, column, 1, columns);
  };
  const auto keyed = [&](const std::uint8_t& key) { return new KeyedButton(key, options_.manner, panel); };
  button(form_.cmdApply, keyed(options_.startKey), 0, 0, 2);
  button(form_.cmdNext, keyed(options_.nextKey), 1, 0, 1);
  button(form_.cmdEnd, keyed(options_.endKey), 1, 1, 1);
  button(form_.cmdCancel, new QPushButton(panel), 2, 0, 2);
  return panel;
}

QWidget* BottomPanel::MakeModes() {
  auto* column = BareColumn(this);
  QWidget* panel = column->parentWidget();
  column->setSpacing(0);
  column->addWidget(binder_.Bind(form_.lblMainMode, BoldLabel(panel)));
  for (OptionButton* control : {&form_.optPress, &form_.optManual, &form_.optPreview}) {
    auto* option = binder_.Bind(*control, new QRadioButton(panel));
    option->setAttribute(Qt::WA_InputMethodEnabled, false);
    column->addWidget(option);
  }
  auto* text = binder_.Bind(form_.lblMode, new QLabel(panel));
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
