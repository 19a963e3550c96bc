#include "ui/help_view.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QImageReader>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QTextBlock>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>
#include <QtMath>

#include "ui/fit_screen.h"
#include "ui/qt_text.h"

namespace cuewright {
namespace {

constexpr QSize kSize(920, 640);
constexpr int kContentsWidth = 270;
constexpr int kOwnWidth = QTextFormat::UserProperty + 1;  // of a picture in its file

}  // namespace

HelpView::HelpView(HelpWindow& form, QWidget* owner) : ToolView(form, owner), form_(form), owner_(owner) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(10, 10, 10, 10);
  column->addWidget(MakeBar());
  column->addWidget(Bind(form.lblNotice, WrappedLabel(this)));
  auto* halves = new QSplitter(this);
  halves->addWidget(MakeContents());
  halves->addWidget(MakePage());
  halves->setStretchFactor(1, 1);
  halves->setChildrenCollapsible(false);
  halves->setSizes({kContentsWidth, kSize.width() - kContentsWidth});
  column->addWidget(halves, 1);
  setTabOrder(&binder_.WidgetOf(form.cmdForward), &binder_.WidgetOf(form.txtSearch));
  setTabOrder(&binder_.WidgetOf(form.txtSearch), &binder_.WidgetOf(form.lstTopics));
  setTabOrder(&binder_.WidgetOf(form.lstTopics), page_);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  resize(kSize.boundedTo(RoomOnScreen(*this)));
  StandOver();
  Keep(form.PageChanged.ConnectScoped([this] { ShowPage(); }));
  Keep(form.ShowRequested.ConnectScoped([this] { StandOver(); }));
  ShowPage();
  page_->setFocus();
}

QWidget* HelpView::MakeBar() {
  auto* row = BareRow(this);
  QWidget* bar = row->parentWidget();
  for (Button* control : {&form_.cmdBack, &form_.cmdForward}) {
    auto* button = Bind(*control, new QPushButton(bar));
    button->setAutoDefault(false);
    row->addWidget(button);
  }
  row->addStretch();
  auto* label = Bind(form_.lblSearch, new QLabel(bar));
  auto* search = Bind(form_.txtSearch, new QLineEdit(bar));
  search->setClearButtonEnabled(true);
  search->setMinimumWidth(240);
  label->setBuddy(search);
  row->addWidget(label);
  row->addWidget(search);
  const auto key = [this](const QKeySequence& keys, auto action) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
  };
  key(QKeySequence(Qt::ALT | Qt::Key_Left), [this] { form_.cmdBack.Click(); });
  key(QKeySequence(Qt::ALT | Qt::Key_Right), [this] { form_.cmdForward.Click(); });
  key(QKeySequence::Find, [search] { search->setFocus(), search->selectAll(); });
  return bar;
}

QWidget* HelpView::MakeContents() {
  auto* list = Bind(form_.lstTopics, new QListWidget(this));
  list->setMinimumWidth(140);
  list->setUniformItemSizes(true);
  return list;
}

QWidget* HelpView::MakePage() {
  page_ = Bind(form_.picTopic, new QTextBrowser(this));
  page_->setOpenLinks(false);
  page_->document()->setDocumentMargin(14);
  page_->viewport()->installEventFilter(this);
  connect(page_, &QTextBrowser::anchorClicked, this,
          [this](const QUrl& link) { form_.Follow(FromQt(link.toString())); });
  return page_;
}

void HelpView::StandOver() {
  QWidget* modal = QApplication::activeModalWidget();
  QWidget* below = modal != nullptr && modal != this ? modal : owner_;
  if (below == parentWidget()) return;
  setParent(below, windowFlags());
  if (auto* dialog = qobject_cast<QDialog*>(modal)) {
    // The viewer was a child of the dialog, which hides it when it closes.
    connect(dialog, &QDialog::finished, this, [this] {
      if (parentWidget() == owner_) return;
      setParent(owner_, windowFlags());
      show();
    });
  }
}

void HelpView::ShowPage() {
  const Text path = form_.PagePath();
  if (path.empty()) return;
  const std::size_t part = path.rfind(u'#');
  QUrl page = QUrl::fromLocalFile(ToQt(path.substr(0, part)));
  if (part != Text::npos) page.setFragment(ToQt(path.substr(part + 1)));
  if (page_->source() != page) page_->setSource(page);
  FitPictures();
  MarkFound();
}

void HelpView::FitPictures() {
  const int room = page_->viewport()->width() - 2 * qCeil(page_->document()->documentMargin());
  for (QTextBlock block = page_->document()->begin(); block.isValid(); block = block.next()) {
    for (auto at = block.begin(); !at.atEnd(); ++at) {
      const QTextFragment fragment = at.fragment();
      QTextImageFormat picture = fragment.charFormat().toImageFormat();
      if (!picture.isValid()) continue;
      if (!picture.hasProperty(kOwnWidth)) {
        const QString file = page_->source().resolved(QUrl(picture.name())).toLocalFile();
        picture.setProperty(kOwnWidth, picture.width() > 0 ? picture.width() : QImageReader(file).size().width());
      }
      const double wanted = std::min<double>(picture.property(kOwnWidth).toDouble(), std::max(room, 1));
      if (std::abs(picture.width() - wanted) < 1) continue;
      picture.setWidth(wanted);
      QTextCursor cursor(page_->document());
      cursor.setPosition(fragment.position());
      cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
      cursor.setCharFormat(picture);
      return FitPictures();  // the change has invalidated the iterators
    }
  }
}

bool HelpView::eventFilter(QObject* object, QEvent* event) {
  if (object == page_->viewport() && event->type() == QEvent::Resize) FitPictures();
  return ToolView::eventFilter(object, event);
}

void HelpView::MarkFound() {
  QList<QTextEdit::ExtraSelection> marks;
  for (const QString& word : ToQt(form_.SearchText()).split(' ', Qt::SkipEmptyParts)) {
    QTextCursor at(page_->document());
    while (!(at = page_->document()->find(word, at)).isNull()) {
      QTextEdit::ExtraSelection mark;
      mark.cursor = at;
      mark.format.setBackground(palette().highlight());
      mark.format.setForeground(palette().highlightedText());
      marks.append(mark);
    }
  }
  page_->setExtraSelections(marks);
}

}  // namespace cuewright
