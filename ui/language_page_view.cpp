#include "ui/settings_page_views.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>

#include "settings/languages.h"
#include "ui/link_button.h"

namespace cuewright {
namespace {

/// Drawings of the flags in the order of the language table.
constexpr std::array<const char*, kLanguageCount> kFlags = {
    "english",    "spanish",   "dutch",    "greek",   "italian",  "french",  "portuguese_br", "portuguese", "catalan",
    "serbian",    "hungarian", "romanian", "finnish", "persian",  "arabic",  "danish",        "bulgarian",  "kazakh",
    "indonesian", "swedish",   "thai",     "german",  "japanese", "russian", "croatian"};

}  // namespace

LanguagePageView::LanguagePageView(LanguagePage& page, Picture& area, Binder& binder, QWidget* parent)
    : SettingsPageView(area, binder, parent), page_(page) {
  QComboBox* languages = MakeCombo(page.cboLanguage);
  QLabel* label = Bind(page.lblLanguage, PlainLabel(this));
  label->setBuddy(languages);
  column_->addWidget(label);
  auto* row = new QHBoxLayout;
  row->setSpacing(12);
  row->addWidget(languages);
  flag_ = Bind(page.picFlag, new SvgPicture(":/flags/english.svg", this));
  flag_->setFixedSize(48, 32);
  row->addWidget(flag_);
  row->addStretch();
  column_->addLayout(row);
  auto* credits = new QHBoxLayout;
  credits->addWidget(Bind(page.lblTranslator, PlainLabel(this)), 1);
  auto* link = Bind(page.lblComplete, new LinkButton(this));
  KeepPlace(*link);
  credits->addWidget(link);
  column_->addLayout(credits);
  column_->addWidget(MakeCharset());
  column_->addWidget(MakeNotice());
  column_->addStretch();
  column_->addWidget(Bind(page.chkClassic, new QCheckBox(this)));
}

QWidget* LanguagePageView::MakeCharset() {
  auto* group = Bind(page_.fraCharset, new QGroupBox(this));
  auto* column = new QVBoxLayout(group);
  auto* row = new QHBoxLayout;
  auto* charset = Bind(page_.txtCharset, new QLineEdit(group));
  charset->setReadOnly(true);
  row->addWidget(charset, 1);
  row->addWidget(MakeButton(page_.cmdRegionalSettings, group));
  column->addLayout(row);
  column->addWidget(Bind(page_.lblCharset, WrappedLabel(group)));
  return group;
}

QWidget* LanguagePageView::MakeNotice() {
  auto* group = Bind(page_.fraNotice, new QGroupBox(this));
  KeepPlace(*group);
  auto* row = new QHBoxLayout(group);
  auto* icon = new SvgPicture(":/warning.svg", group);
  icon->setFixedSize(32, 32);
  row->addWidget(icon, 0, Qt::AlignTop);
  auto* column = new QVBoxLayout;
  column->addWidget(Bind(page_.lblWarning, BoldLabel(group)));
  for (Label* label : {&page_.lblCurrLang, &page_.lblReqLang}) column->addWidget(Bind(*label, WrappedLabel(group)));
  row->addLayout(column, 1);
  return group;
}

void LanguagePageView::ShowFlag(std::size_t row) {
  if (row < kFlags.size()) flag_->ShowFile(QString(":/flags/%1.svg").arg(kFlags[row]));
}

}  // namespace cuewright
