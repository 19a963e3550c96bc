#include "ui/hand_view.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/labels.h"

namespace cuewright {
namespace {

constexpr int kNumberWidth = 90;
constexpr int kTextWidth = 430;

}  // namespace

HandView::HandView(HandWindow& form, QWidget* owner) : ToolView(form, owner), form_(form) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(18, 16, 18, 14);
  column->setSpacing(14);
  column->addWidget(MakeTimes());
  const auto told = [&](Label& label) {
    auto* made = Bind(label, WrappedLabel(this));
    made->setMinimumWidth(kTextWidth);
    return made;
  };
  column->addWidget(told(form.lblExercise));
  auto* exercise = Bind(form.cmdExercise, new QPushButton(this));
  exercise->setAutoDefault(false);
  column->addWidget(exercise, 0, Qt::AlignLeading);
  column->addSpacing(6);
  auto* row = new QHBoxLayout();
  auto* language = Bind(form.cboLanguage, new QComboBox(this));
  row->addWidget(MakeLabelOf(form.lblLanguage, language));
  row->addWidget(language);
  row->addStretch();
  column->addLayout(row);
  column->addWidget(told(form.lblLanguageHint));
  column->addStretch();
  column->addWidget(MakeButtons(form_.cmdOK, form_.cmdCancel));
}

QWidget* HandView::MakeTimes() {
  auto* times = new QWidget(this);
  auto* grid = new QGridLayout(times);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(12);
  auto* hand = Bind(form_.cboHand, new QComboBox(times));
  grid->addWidget(MakeLabelOf(form_.lblHand, hand), 0, 0);
  grid->addWidget(hand, 0, 1, 1, 2);
  grid->addWidget(Bind(form_.lblLate, PlainLabel(times)), 1, 1);
  grid->addWidget(Bind(form_.lblSpread, PlainLabel(times)), 1, 2);
  const auto add = [&](int row, Label& label, TextBox& late, TextBox& spread) {
    for (int place = 0; place < 2; ++place) {
      auto* box = Bind(place == 0 ? late : spread, new QLineEdit(times));
      box->setFixedWidth(kNumberWidth);
      grid->addWidget(box, row, 1 + place);
      if (place == 0) grid->addWidget(MakeLabelOf(label, box), row, 0);
    }
  };
  add(2, form_.lblPress, form_.txtPress, form_.txtPressSpread);
  add(3, form_.lblRelease, form_.txtRelease, form_.txtReleaseSpread);
  grid->setColumnStretch(3, 1);
  return times;
}

}  // namespace cuewright
