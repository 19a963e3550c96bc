#include "ui/settings_view.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QShortcut>
#include <QStyle>
#include <QVBoxLayout>

#include "ui/fit_screen.h"
#include "ui/link_button.h"
#include "ui/qt_color.h"
#include "ui/qt_text.h"
#include "ui/sample_area.h"
#include "ui/svg_picture.h"

namespace cuewright {
namespace {

constexpr std::array<const char*, SettingsDialog::kPages> kPageIcons = {
    ":/timing.svg", ":/keyboard.svg", ":/player.svg", ":/preview.svg", ":/language.svg"};
constexpr int kDetailsWidth = 480;
constexpr int kPanelIndent = 24;

/// Drawings of the flags in the order of the language table.
constexpr std::array<const char*, kLanguageCount> kFlags = {
    "english",    "spanish",   "dutch",    "greek",   "italian",  "french",  "portuguese_br", "portuguese", "catalan",
    "serbian",    "hungarian", "romanian", "finnish", "persian",  "arabic",  "danish",        "bulgarian",  "kazakh",
    "indonesian", "swedish",   "thai",     "german",  "japanese", "russian", "croatian"};

}  // namespace

SettingsView::SettingsView(SettingsDialog& form, QWidget* owner) : DialogView(form, owner), form_(form) {
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(0);
  grid->addWidget(MakeMenu(), 0, 0, 2, 1);
  grid->addWidget(MakePages(), 0, 1);
  QBoxLayout* buttons = MakeButtons({"cmdReset", "", "cmdOK"});
  buttons->setContentsMargins(20, 8, 20, 16);
  grid->addLayout(buttons, 1, 1);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(0, 1);
  // The pointer beside the controls counts too.
  for (QWidget* widget : findChildren<QWidget*>()) {
    if (widget->objectName().isEmpty()) widget->setMouseTracking(true);
  }
  Names("lblApply", "cmbApply");
  Names("lblUImode", "cmbUImode");
  Names("lblLanguage", "cboLanguage");
  Bind(menu_->button(static_cast<int>(form_.Page())));
  for (const auto& [key, step] : {std::pair{Qt::Key_PageDown, 1}, {Qt::Key_PageUp, -1}}) {
    auto* shortcut = new QShortcut(Qt::CTRL | key, this);
    connect(shortcut, &QShortcut::activated, this, [this, step = step] { TurnPage(step); });
  }
  Keep(form_.PageChanged.ConnectScoped([this] { ShowPage(); }));
  Keep(form_.preview.SampleChanged.ConnectScoped([this] { ShowSample(); }));
  Keep(form_.LanguageApplied.ConnectScoped([this] {
    ShowFlag();
    MeasureDetails();
    PlacePanels();
    FitContent();
  }));
  const std::array<Picture*, 3> panels = {&form_.rules.picAutoJoin, &form_.rules.picDuration, &form_.rules.picCredits};
  for (Picture* panel : panels) Keep(panel->Changed.ConnectScoped([this] { PlacePanels(); }));
  PaintPanels();
  ShowPage();
  ShowSample();
  ShowFlag();
  MeasureDetails();
  PlacePanels();
  FitContent();
}

QWidget* SettingsView::MakeMenu() {
  auto* column = Named(new QWidget(this), "picMenu");
  column->setAutoFillBackground(true);
  column->setBackgroundRole(QPalette::Base);
  auto* grid = new QGridLayout(column);
  grid->setContentsMargins(12, 20, 12, 16);
  grid->setVerticalSpacing(6);
  menu_ = new QButtonGroup(this);
  for (std::size_t i = 0; i < pages_.size(); ++i) {
    auto* icon = new SvgPicture(kPageIcons[i], column);
    icon->setObjectName(Indexed("imgMenu", i));
    icon->setFixedSize(28, 28);
    auto* entry = new MenuEntry(column);
    entry->setObjectName(Indexed("lblMenu", i));
    entry->setMinimumHeight(36);
    menu_->addButton(entry, static_cast<int>(i));
    const int row = static_cast<int>(i);
    grid->addWidget(icon, row, 0);
    grid->addWidget(entry, row, 1);
  }
  grid->setRowStretch(static_cast<int>(pages_.size()), 1);
  return column;
}

QWidget* SettingsView::MakePages() {
  auto* area = new QWidget(this);
  auto* column = new QVBoxLayout(area);
  column->setContentsMargins(20, 16, 20, 4);
  column->setSpacing(10);
  auto* heading = new QHBoxLayout;
  heading->setSpacing(12);
  top_ = Named(new SvgPicture(kPageIcons[0], area), "picTop");
  top_->setFixedSize(40, 40);
  heading->addWidget(top_);
  heading->addWidget(MakeHeading("lblTop", area), 1);
  column->addLayout(heading);
  // All pages in one place, so that the window has one size.
  auto* place = new QWidget(area);
  auto* stack = new QGridLayout(place);
  stack->setContentsMargins(0, 0, 0, 0);
  MakeRulesPage();
  MakeKeysPage();
  MakePlayerPage();
  MakePreviewPage();
  MakeLanguagePage();
  for (QWidget* page : pages_) stack->addWidget(page, 0, 0);
  column->addWidget(new ContentScroll(place, area), 1);
  column->addWidget(MakeDetails());
  return area;
}

QWidget* SettingsView::MakePage(std::size_t index, QVBoxLayout*& column) {
  auto* page = new QWidget(this);
  page->setObjectName(Indexed("picOptions", index));
  QSizePolicy policy = page->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  page->setSizePolicy(policy);
  column = new QVBoxLayout(page);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(10);
  pages_[index] = page;
  return page;
}

QWidget* SettingsView::MakeDetails() {
  auto* place = new QWidget(this);
  auto* column = new QVBoxLayout(place);
  column->setContentsMargins(0, 4, 0, 0);
  QLabel* title = MakeLabel("lblDetailsTitle", place);
  QFont bold = title->font();
  bold.setBold(true);
  title->setFont(bold);
  column->addWidget(title);
  auto* frame = Named(new QFrame(place), "fraDetails");
  frame->setFrameShape(QFrame::StyledPanel);
  auto* inner = new QVBoxLayout(frame);
  inner->setContentsMargins(10, 6, 10, 6);
  detailsText_ = MakeLabel("lblDetails", frame, true);
  detailsText_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  inner->addWidget(detailsText_);
  column->addWidget(frame, 1);
  details_ = frame;
  // The pages don't move when the details come and go.
  for (QWidget* widget : std::initializer_list<QWidget*>{title, frame}) {
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
  }
  return place;
}

void SettingsView::MeasureDetails() {
  int height = 0;
  const QFontMetrics metrics(detailsText_->font());
  for (const Text& text : form_.DetailTexts()) {
    const QRect room(0, 0, kDetailsWidth, 4000);
    height = std::max(height,
                      metrics.boundingRect(room, Qt::TextWordWrap, ToQt(ReplaceAll(text, kLineEnd, u"\n"))).height());
  }
  details_->setMinimumWidth(kDetailsWidth + 40);
  details_->setFixedHeight(height + 24);
}

void SettingsView::PaintPanels() {
  QPalette colors = QGuiApplication::palette();
  colors.setBrush(QPalette::Window, colors.toolTipBase());
  colors.setBrush(QPalette::WindowText, colors.toolTipText());
  for (QWidget* panel : panels_) panel->setPalette(colors);
}

void SettingsView::ShowPage() {
  const std::size_t page = form_.Page();
  menu_->button(static_cast<int>(page))->setChecked(true);
  top_->ShowFile(kPageIcons[page]);
}

void SettingsView::TurnPage(int step) {
  const int count = static_cast<int>(pages_.size());
  const int page = (static_cast<int>(form_.Page()) + step + count) % count;
  form_.ShowSettingsPage(static_cast<std::size_t>(page));
  menu_->button(page)->setFocus(Qt::TabFocusReason);
}

void SettingsView::ShowSample() {
  const PreviewPage::Sample& sample = form_.preview.GetSample();
  SampleStyle style;
  style.font = QFont(ToQt(sample.fontName), sample.fontSize, sample.bold ? QFont::Bold : QFont::Normal);
  style.color = ColorOf(sample.color);
  if (!sample.windowBackground) style.background = ColorOf(sample.background);
  style.shadowShift = sample.shadowShift;
  sample_->ShowStyle(style);
}

void SettingsView::ShowFlag() {
  const auto row = static_cast<std::size_t>(form_.FlagRow());
  if (row < kFlags.size()) flag_->ShowFile(QString(":/flags/%1.svg").arg(kFlags[row]));
}

void SettingsView::PlacePanels() {
  const std::array<const Picture*, 3> controls = {&form_.rules.picAutoJoin, &form_.rules.picDuration,
                                                  &form_.rules.picCredits};
  QSize needed;
  QWidget* page = pages_[0];
  for (std::size_t i = 0; i < panels_.size(); ++i) {
    const QPoint at = checks_[i]->mapTo(page, QPoint(0, checks_[i]->height()));
    const QSize hint = panels_[i]->sizeHint();
    const int height = std::max(hint.height(), controls[i]->Height());
    const QRect place(kPanelIndent, at.y(), page->width() - kPanelIndent, height);
    panels_[i]->setGeometry(QStyle::visualRect(layoutDirection(), page->rect(), place));
    if (!panels_[i]->isHidden()) panels_[i]->raise();
    needed = needed.expandedTo({kPanelIndent + hint.width(), place.bottom() + 1});
  }
  if (page->minimumSize() != needed) page->setMinimumSize(needed);
}

void SettingsView::GrowForPages() {
  const QWidget* shown = pages_[form_.Page()];
  int lacking = 0;
  for (const QWidget* page : pages_) {
    if (!page->layout()->hasHeightForWidth()) continue;
    lacking = std::max(lacking, page->layout()->totalHeightForWidth(shown->width()) - shown->height());
  }
  if (lacking > 0) setMinimumHeight(std::min(height() + lacking, RoomOnScreen(*this).height()));
}

void SettingsView::resizeEvent(QResizeEvent* event) {
  DialogView::resizeEvent(event);
  PlacePanels();
}

void SettingsView::changeEvent(QEvent* event) {
  DialogView::changeEvent(event);
  if (event->type() == QEvent::LayoutDirectionChange && checks_[0] != nullptr) PlacePanels();
}

bool SettingsView::event(QEvent* event) {
  const bool handled = DialogView::event(event);
  if (event->type() == QEvent::ApplicationPaletteChange) {
    PaintPanels();
    ShowSample();
  }
  // The check boxes have found their places.
  if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Show) {
    PlacePanels();
    if (isVisible()) GrowForPages();
  }
  return handled;
}

}  // namespace cuewright
