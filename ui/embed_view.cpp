#include "ui/embed_view.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>
#include <QWindow>

#include "ui/qt_text.h"
#include "ui/svg_picture.h"

namespace cuewright {
namespace {

constexpr int kGap = 8;
constexpr int kDetailsWidth = 280;
constexpr int kFrameLines = 4;
constexpr int kNotesWidth = 420;
constexpr int kDigits = 5;

}  // namespace

EmbedView::EmbedView(EmbedWizard& form, QWidget* owner) : WizardView(form, owner) {
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(20, 16, 20, 14);
  grid->setHorizontalSpacing(20);
  grid->setVerticalSpacing(12);
  grid->addWidget(MakeHead(), 0, 0, 1, 2);
  auto* stack = new QGridLayout;
  MakeOutputPage(*stack);
  MakeToolPage(*stack);
  MakeFilePage(*stack);
  MakeSummaryPage(*stack);
  grid->addLayout(stack, 1, 0);
  grid->addWidget(MakeDetails(), 1, 1);
  grid->addLayout(MakeWizardButtons(), 2, 0, 1, 2);
  grid->setColumnStretch(0, 1);
  grid->setRowStretch(1, 1);
  Names("lblFormat", "cmbFormat");
  Names("lblRes", "cmbResolution");
  Names("lblMode", "cmbMode");
  Names("lblVirtualdub", "txtVirtualdub");
  Names("lblSave", "txtSave");
  // The pointer beside the controls counts too.
  for (QWidget* widget : findChildren<QWidget*>()) widget->setMouseTracking(true);
  Bind(findChild<QPushButton*>("cmdNext"));
  Measure(form);
  Keep(form.DragRequested.ConnectScoped([this] {
    if (windowHandle() != nullptr) windowHandle()->startSystemMove();
  }));
}

void EmbedView::Measure(const EmbedWizard& form) {
  // Whatever is read here has its room from the start, so that the window keeps its size.
  for (const char* name : {"lblNote1", "lblNote2"}) {
    auto* note = findChild<QLabel*>(name);
    note->setMinimumHeight(note->heightForWidth(kNotesWidth));
  }
  auto* details = findChild<QLabel*>("lblDetails");
  QLabel sample(details->parentWidget());
  sample.setTextFormat(Qt::PlainText);
  sample.setWordWrap(true);
  const QMargins frame = findChild<QGroupBox*>("fraDetails")->layout()->contentsMargins();
  int height = 0;
  for (const Text& hint : form.Hints()) {
    sample.setText(ToQt(ReplaceAll(hint, kLineEnd, u"\n")));
    height = std::max(height, sample.heightForWidth(kDetailsWidth - frame.left() - frame.right() - kFrameLines));
  }
  details->setMinimumHeight(height);
  FitContent();
}

QWidget* EmbedView::MakeHead() {
  auto* head = new QWidget(this);
  auto* row = new QHBoxLayout(head);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(12);
  QWidget* drag = MakeIcon(":/film.svg", "imgDrag", head, 44);
  drag->setCursor(Qt::SizeAllCursor);
  row->addWidget(drag);
  auto* texts = new QVBoxLayout;
  texts->addWidget(MakeHeading("lblTop", head));
  texts->addWidget(MakeLabel("lblTop2", head));
  row->addLayout(texts, 1);
  return head;
}

QWidget* EmbedView::MakeDetails() {
  auto* area = new QWidget(this);
  auto* column = new QVBoxLayout(area);
  column->setContentsMargins(0, 0, 0, 0);
  area->setFixedWidth(kDetailsWidth);
  QLabel* title = MakeLabel("lblDetailsTitle", area);
  QFont bold = title->font();
  bold.setBold(true);
  title->setFont(bold);
  column->addWidget(title);
  auto* frame = Named(new QGroupBox(area), "fraDetails");
  auto* inside = new QVBoxLayout(frame);
  QLabel* text = MakeLabel("lblDetails", frame, true);
  text->setAlignment(Qt::AlignTop);
  inside->addWidget(text, 1);
  column->addWidget(frame, 1);
  return area;
}

void EmbedView::MakeOutputPage(QGridLayout& stack) {
  auto* column = MakePage(stack, 0);
  QWidget* page = column->parentWidget();
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(12);
  grid->setVerticalSpacing(8);
  grid->addWidget(MakeIcon(":/film.svg", "imgFormat", page), 0, 0, 2, 1, Qt::AlignTop);
  grid->addWidget(MakeLabel("lblFormat", page), 0, 1, 1, 2);
  grid->addWidget(Named(new QComboBox(page), "cmbFormat"), 1, 1);
  grid->addWidget(Named(new QPushButton(page), "cmdConfigure"), 1, 2);
  grid->addWidget(MakeLink("imgConfigure", page), 2, 1, 1, 2, Qt::AlignLeading);
  grid->addWidget(MakeIcon(":/size.svg", "imgRes", page), 3, 0, 3, 1, Qt::AlignTop);
  grid->addWidget(MakeLabel("lblRes", page), 3, 1, 1, 2);
  grid->addWidget(Named(new QComboBox(page), "cmbResolution"), 4, 1, 1, 2);
  auto* size = new QHBoxLayout;
  size->setSpacing(kGap);
  size->addWidget(MakeLabel("lblSize", page));
  for (const char* name : {"txtWidth", "txtHeight"}) {
    auto* box = Named(new QLineEdit(page), name);
    box->setFixedWidth(box->fontMetrics().horizontalAdvance('0') * kDigits + 24);
    size->addWidget(box);
    if (name == QString("txtWidth")) size->addWidget(MakeLabel("lblX", page));
  }
  size->addStretch();
  grid->addLayout(size, 5, 1, 1, 2);
  grid->addWidget(MakeIcon(":/sharpness.svg", "imgMode", page), 6, 0, 2, 1, Qt::AlignTop);
  grid->addWidget(MakeLabel("lblMode", page), 6, 1, 1, 2);
  grid->addWidget(Named(new QComboBox(page), "cmbMode"), 7, 1, 1, 2);
  grid->addWidget(MakeIcon(":/preview.svg", "imgPreview", page), 8, 0, 2, 1, Qt::AlignTop);
  grid->addWidget(Named(new QCheckBox(page), "chkPreview"), 8, 1, 1, 2);
  auto* preview = new QHBoxLayout;
  preview->setSpacing(kGap);
  auto* slider = Named(new QSlider(Qt::Horizontal, page), "sldPreview");
  preview->addWidget(slider, 1);
  QLabel* value = MakeLabel("lblPreview", page);
  value->setMinimumWidth(value->fontMetrics().horizontalAdvance("000 minutes"));
  preview->addWidget(value);
  grid->addLayout(preview, 9, 1, 1, 2);
  grid->setColumnStretch(1, 1);
  column->addLayout(grid);
  column->addStretch();
}

void EmbedView::MakeToolPage(QGridLayout& stack) {
  auto* column = MakePage(stack, 1);
  QWidget* page = column->parentWidget();
  auto* row = new QHBoxLayout;
  row->addWidget(MakeIcon(":/folder.svg", "imgVD", page));
  row->addWidget(MakeLabel("lblVirtualdub", page), 1);
  column->addLayout(row);
  AddPathRow(*column, "txtVirtualdub", "cmdBrowseVD");
  column->addSpacing(12);
  column->addWidget(MakeLabel("lblStep2", page, true));
  column->addWidget(MakeLink("lblDownload", page), 0, Qt::AlignLeading);
  column->addStretch();
}

void EmbedView::MakeFilePage(QGridLayout& stack) {
  auto* column = MakePage(stack, 2);
  QWidget* page = column->parentWidget();
  auto* row = new QHBoxLayout;
  row->addWidget(MakeIcon(":/save.svg", "imgSave", page));
  row->addWidget(MakeLabel("lblSave", page), 1);
  column->addLayout(row);
  AddPathRow(*column, "txtSave", "cmdSave");
  column->addStretch();
}

void EmbedView::MakeSummaryPage(QGridLayout& stack) {
  auto* column = MakePage(stack, 3);
  QWidget* page = column->parentWidget();
  column->addWidget(MakeLabel("lblStep4", page, true));
  for (const char* name : {"txtTFileName", "txtVFileName"}) {
    auto* box = Named(new QLineEdit(page), name);
    box->setReadOnly(true);
    box->setLayoutDirection(Qt::LeftToRight);  // a path is read from its root in every language
    column->addWidget(box);
  }
  column->addSpacing(8);
  auto* row = new QHBoxLayout;
  row->addWidget(MakeIcon(":/warning.svg", "imgNotice", page));
  QLabel* title = MakeLabel("lblNotice", page);
  QFont bold = title->font();
  bold.setBold(true);
  title->setFont(bold);
  row->addWidget(title, 1);
  column->addLayout(row);
  for (const char* name : {"lblNote1", "lblNote2"}) {
    QLabel* note = MakeLabel(name, page, true);
    note->setMinimumWidth(kNotesWidth);
    QSizePolicy policy = note->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    note->setSizePolicy(policy);
    column->addWidget(note);
  }
  column->setSpacing(8);
  column->addWidget(MakeLink("lblConvert", page), 0, Qt::AlignLeading);
  column->addStretch();
}

}  // namespace cuewright
