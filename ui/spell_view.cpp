#include "ui/spell_view.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/counting.h"
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
  Complete(word_);
  word_->selectAll();
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
  grid->addWidget(Bind(form_.lblLine, PlainLabel(words)), 0, 0, 1, 2);
  caption_ = new QPlainTextEdit(words);
  // In a field that is only read the form's own selection stays.
  caption_->setReadOnly(true);
  Bind(form_.txtCaption, caption_);
  caption_->setTabChangesFocus(true);
  caption_->setMinimumWidth(kCaptionWidth);
  caption_->setFixedHeight(caption_->fontMetrics().lineSpacing() * kCaptionLines + 12);
  grid->addWidget(caption_, 1, 0, 1, 2);
  grid->addWidget(Bind(form_.lblNotFound, PlainLabel(words)), 2, 0);
  QLabel* word = Bind(form_.lblWord, BoldLabel(words));
  word->setMinimumWidth(200);
  grid->addWidget(word, 2, 1);
  word_ = Bind(form_.txtReplace, new QLineEdit(words));
  grid->addWidget(MakeLabelOf(form_.lblReplace, word_), 3, 0);
  grid->addWidget(word_, 3, 1);
  auto* suggestions = Bind(form_.lstSuggestions, new QListWidget(words));
  connect(suggestions, &QListWidget::itemDoubleClicked, this, [this] { form_.cmdReplace.Click(); });
  grid->addWidget(MakeLabelOf(form_.lblSuggestions, suggestions), 4, 0, Qt::AlignTop);
  suggestions->setFixedHeight(suggestions->fontMetrics().lineSpacing() * kSuggestionLines + 16);
  grid->addWidget(suggestions, 4, 1);
  auto* languages = Bind(form_.cboLanguage, new QComboBox(words));
  grid->addWidget(MakeLabelOf(form_.lblLanguage, languages), 5, 0);
  languages->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  grid->addWidget(languages, 5, 1);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(6, 1);
  return words;
}

QWidget* SpellView::MakeButtonColumn() {
  auto* column = BareColumn(this);
  QWidget* buttons = column->parentWidget();
  const auto add = [&](Button& control) {
    auto* button = Bind(control, new QPushButton(buttons));
    button->setAutoDefault(false);
    column->addWidget(button);
    return button;
  };
  replace_ = add(form_.cmdReplace);
  add(form_.cmdReplaceAll);
  ignore_ = add(form_.cmdIgnore);
  for (Button* control : {&form_.cmdIgnoreAll, &form_.cmdAdd, &form_.cmdUndo}) add(*control);
  column->addStretch();
  add(form_.cmdCancel);
  return buttons;
}

void SpellView::ShowWord() {
  const Text& text = form_.txtCaption.GetText();
  // The form counts two characters for a line end, the widget one.
  const auto place = [&text](int at) {
    const TextView before = TextView(text).substr(0, SizeOf(at));
    return CountOf(ReplaceAll(before, kLineEnd, u"\n"));
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

void SpellView::ChooseDefault() { (form_.cmdReplace.Enabled() ? replace_ : ignore_)->setDefault(true); }

}  // namespace cuewright
