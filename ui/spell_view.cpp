#include "ui/spell_view.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/qt_text.h"

namespace cuewright {
namespace {

constexpr int kCaptionWidth = 380;
constexpr int kCaptionLines = 4;
constexpr int kSuggestionLines = 6;

}  // namespace

SpellView::SpellView(SpellDialog& form, QWidget* owner) : DialogView(form, owner), form_(form) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(20, 16, 20, 14);
  row->setSpacing(16);
  row->addWidget(MakeWords(), 1);
  row->addWidget(MakeButtonColumn());
  Names("lblReplace", "txtReplace");
  Names("lblSuggestions", "lstSuggestions");
  Names("lblLanguage", "cboLanguage");
  Bind(findChild<QWidget*>("txtReplace"));
  findChild<QLineEdit*>("txtReplace")->selectAll();
  auto* suggestions = findChild<QListWidget*>("lstSuggestions");
  connect(suggestions, &QListWidget::itemDoubleClicked, this, [this] { form_.cmdReplace.Click(); });
  Keep(form.txtCaption.Changed.ConnectScoped([this] { ShowWord(); }));
  Keep(form.cmdReplace.Changed.ConnectScoped([this] { ChooseDefault(); }));
  ShowWord();
  ChooseDefault();
}

QWidget* SpellView::MakeWords() {
  auto* words = new QWidget(this);
  auto* grid = new QGridLayout(words);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setVerticalSpacing(8);
  grid->addWidget(MakeLabel("lblLine", words), 0, 0, 1, 2);
  caption_ = Named(new QPlainTextEdit(words), "txtCaption");
  caption_->setReadOnly(true);
  caption_->setTabChangesFocus(true);
  caption_->setMinimumWidth(kCaptionWidth);
  caption_->setFixedHeight(caption_->fontMetrics().lineSpacing() * kCaptionLines + 12);
  grid->addWidget(caption_, 1, 0, 1, 2);
  grid->addWidget(MakeLabel("lblNotFound", words), 2, 0);
  QLabel* word = MakeLabel("lblWord", words);
  QFont bold = word->font();
  bold.setBold(true);
  word->setFont(bold);
  word->setMinimumWidth(200);
  grid->addWidget(word, 2, 1);
  grid->addWidget(MakeLabel("lblReplace", words), 3, 0);
  grid->addWidget(Named(new QLineEdit(words), "txtReplace"), 3, 1);
  grid->addWidget(MakeLabel("lblSuggestions", words), 4, 0, Qt::AlignTop);
  auto* suggestions = Named(new QListWidget(words), "lstSuggestions");
  suggestions->setFixedHeight(suggestions->fontMetrics().lineSpacing() * kSuggestionLines + 16);
  grid->addWidget(suggestions, 4, 1);
  grid->addWidget(MakeLabel("lblLanguage", words), 5, 0);
  auto* languages = Named(new QComboBox(words), "cboLanguage");
  languages->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  grid->addWidget(languages, 5, 1);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(6, 1);
  return words;
}

QWidget* SpellView::MakeButtonColumn() {
  auto* buttons = new QWidget(this);
  auto* column = new QVBoxLayout(buttons);
  column->setContentsMargins(0, 0, 0, 0);
  for (const char* name :
       {"cmdReplace", "cmdReplaceAll", "cmdIgnore", "cmdIgnoreAll", "cmdAdd", "cmdUndo", "", "cmdCancel"}) {
    if (*name == '\0') {
      column->addStretch();
      continue;
    }
    auto* button = Named(new QPushButton(buttons), name);
    button->setAutoDefault(false);
    column->addWidget(button);
  }
  return buttons;
}

void SpellView::ShowWord() {
  const Text& text = form_.txtCaption.GetText();
  // The form counts two characters for a line end, the widget one.
  const auto place = [&text](int at) {
    const TextView before = TextView(text).substr(0, static_cast<std::size_t>(at));
    return static_cast<int>(ReplaceAll(before, kLineEnd, u"\n").size());
  };
  const int start = form_.txtCaption.SelStart();
  QTextEdit::ExtraSelection word;
  word.cursor = QTextCursor(caption_->document());
  word.cursor.setPosition(place(start));
  word.cursor.setPosition(place(start + form_.txtCaption.SelLength()), QTextCursor::KeepAnchor);
  word.format.setBackground(palette().color(QPalette::Active, QPalette::Highlight));
  word.format.setForeground(palette().color(QPalette::Active, QPalette::HighlightedText));
  QTextCursor caret = word.cursor;
  caret.clearSelection();
  caption_->setTextCursor(caret);
  caption_->setExtraSelections({word});
}

void SpellView::ChooseDefault() {
  auto* replace = findChild<QPushButton*>("cmdReplace");
  auto* ignore = findChild<QPushButton*>("cmdIgnore");
  (form_.cmdReplace.Enabled() ? replace : ignore)->setDefault(true);
}

}  // namespace cuewright
