#include "ui/settings_page_views.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QVBoxLayout>

namespace cuewright {
namespace {

constexpr int kRight = 5;  // the column of the second half

}  // namespace

KeysPageView::KeysPageView(KeysPage& page, Picture& area, Binder& binder, QWidget* parent)
    : SettingsPageView(area, binder, parent), page_(page) {
  column_->addWidget(Bind(page_.chkKeys, new QCheckBox(this)));
  auto* group = Bind(page_.fraKeys, new QGroupBox(this));
  auto* grid = new QGridLayout(group);
  grid->setContentsMargins(12, 10, 12, 12);
  grid->setHorizontalSpacing(8);
  grid->setVerticalSpacing(8);
  grid->setColumnMinimumWidth(4, 20);
  grid->addWidget(Bind(page_.lblPlayback, BoldLabel(group)), 0, 0, 1, 4);
  grid->addWidget(Bind(page_.lblCaptioning, BoldLabel(group)), 0, kRight, 1, 2);
  const auto hotkey = [&](int row, int column, std::size_t index) {
    QLabel* label = Bind(page_.lblHotkey[index], WrappedLabel(group));
    label->setMinimumWidth(column == 0 ? 80 : 170);
    grid->addWidget(label, row, column);
    QLineEdit* key = MakeField(page_.txtHotkey[index], 1, 44, group);
    key->setAlignment(Qt::AlignCenter);
    grid->addWidget(key, row, column + 1);
  };
  int row = 1;
  for (const std::size_t index : {0, 1, 2}) hotkey(row++, 0, index);
  // Rewind and forward, each with the seconds that it goes.
  for (const std::size_t place : {0, 1}) {
    hotkey(row, 0, 8 + place);
    grid->addWidget(MakeField(page_.txtPosition[place], 4, 52, group), row, 2);
    grid->addWidget(Bind(page_.lblSeconds[place], PlainLabel(group)), row++, 3);
  }
  row = 1;
  for (const std::size_t index : {3, 4, 5, 6, 7}) hotkey(row++, kRight, index);
  grid->setColumnStretch(kRight, 1);
  column_->addWidget(group);
  column_->addStretch();
}

QLineEdit* KeysPageView::MakeField(TextBox& box, int letters, int width, QWidget* parent) {
  auto* field = Bind(box, new QLineEdit(parent));
  field->setMaxLength(letters);
  field->setFixedWidth(width);
  field->setAttribute(Qt::WA_InputMethodEnabled, false);
  return field;
}

}  // namespace cuewright
