#include "ui/settings_view.h"

#include <QButtonGroup>
#include <QEvent>
#include <QGridLayout>
#include <QShortcut>
#include <QVBoxLayout>

#include "core/counting.h"
#include "ui/fit_screen.h"
#include "ui/link_button.h"
#include "ui/qt_text.h"
#include "ui/settings_page_views.h"
#include "ui/svg_picture.h"

namespace cuewright {
namespace {

constexpr std::array<const char*, SettingsDialog::kPages> kPageIcons = {
    ":/timing.svg", ":/keyboard.svg", ":/player.svg", ":/preview.svg", ":/language.svg"};
constexpr int kDetailsWidth = 480;

}  // namespace

SettingsView::SettingsView(SettingsDialog& form, QWidget* owner) : DialogView(form, owner), form_(form) {
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(0);
  grid->addWidget(MakeMenu(), 0, 0, 2, 1);
  grid->addWidget(MakePages(), 0, 1);
  QBoxLayout* buttons = MakeButtons({&form.cmdReset, nullptr, &form.cmdOK}, &form.cmdOK);
  buttons->setContentsMargins(20, 8, 20, 16);
  grid->addLayout(buttons, 1, 1);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(0, 1);
  // Widgets without a control must report motions too, which clear the hint of a control.
  for (QWidget* widget : findChildren<QWidget*>()) {
    if (widget->objectName().isEmpty()) widget->setMouseTracking(true);
  }
  Complete(menu_->button(static_cast<int>(form_.Page())));
  connect(new QShortcut(Qt::CTRL | Qt::Key_PageDown, this), &QShortcut::activated, this, [this] { TurnPage(1); });
  connect(new QShortcut(Qt::CTRL | Qt::Key_PageUp, this), &QShortcut::activated, this, [this] { TurnPage(-1); });
  Keep(form_.PageChanged.ConnectScoped([this] { ShowPage(); }));
  Keep(form_.LanguageApplied.ConnectScoped([this] { FollowLanguage(); }));
  ShowPage();
  preview_->ShowSample();
  FollowLanguage();
}

void SettingsView::FollowLanguage() {
  language_->ShowFlag(SizeOf(form_.FlagRow()));
  MeasureDetails();
  rules_->PlacePanels();
  FitContent();
}

QWidget* SettingsView::MakeMenu() {
  auto* column = Bind(form_.picMenu, new QWidget(this));
  column->setAutoFillBackground(true);
  column->setBackgroundRole(QPalette::Base);
  auto* grid = new QGridLayout(column);
  grid->setContentsMargins(12, 20, 12, 16);
  grid->setVerticalSpacing(6);
  menu_ = new QButtonGroup(this);
  for (int row = 0; row < CountOf(pages_); ++row) {
    auto* icon = Bind(ItemAt(form_.imgMenu, row), new SvgPicture(ItemAt(kPageIcons, row), column));
    icon->setFixedSize(28, 28);
    auto* entry = Bind(ItemAt(form_.lblMenu, row), new MenuEntry(column));
    entry->setMinimumHeight(36);
    menu_->addButton(entry, row);
    grid->addWidget(icon, row, 0);
    grid->addWidget(entry, row, 1);
  }
  grid->setRowStretch(CountOf(pages_), 1);
  return column;
}

QWidget* SettingsView::MakePages() {
  auto* area = new QWidget(this);
  auto* column = new QVBoxLayout(area);
  column->setContentsMargins(20, 16, 20, 4);
  column->setSpacing(10);
  auto* heading = new QHBoxLayout;
  heading->setSpacing(12);
  top_ = Bind(form_.picTop, new SvgPicture(kPageIcons[0], area));
  top_->setFixedSize(40, 40);
  heading->addWidget(top_);
  heading->addWidget(Bind(form_.lblTop, HeadingLabel(area)), 1);
  column->addLayout(heading);
  // All pages in one place, so that the window has one size.
  auto* place = new QWidget(area);
  auto* stack = new QGridLayout(place);
  stack->setContentsMargins(0, 0, 0, 0);
  auto& areas = form_.picOptions;
  rules_ = new RulesPageView(form_.rules, areas[0], binder_, this);
  auto* keys = new KeysPageView(form_.keys, areas[1], binder_, this);
  auto* player = new PlayerPageView(form_.player, areas[2], binder_, this);
  preview_ = new PreviewPageView(form_.preview, areas[3], binder_, this);
  language_ = new LanguagePageView(form_.language, areas[4], binder_, this);
  pages_ = {rules_, keys, player, preview_, language_};
  for (QWidget* page : pages_) stack->addWidget(page, 0, 0);
  column->addWidget(new ContentScroll(place, area), 1);
  column->addWidget(MakeDetails());
  return area;
}

QWidget* SettingsView::MakeDetails() {
  auto* place = new QWidget(this);
  auto* column = new QVBoxLayout(place);
  column->setContentsMargins(0, 4, 0, 0);
  QLabel* title = Bind(form_.details.lblDetailsTitle, BoldLabel(place));
  column->addWidget(title);
  auto* frame = Bind(form_.details.fraDetails, new QFrame(place));
  frame->setFrameShape(QFrame::StyledPanel);
  auto* inner = new QVBoxLayout(frame);
  inner->setContentsMargins(10, 6, 10, 6);
  detailsText_ = Bind(form_.details.lblDetails, WrappedLabel(frame));
  detailsText_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  inner->addWidget(detailsText_);
  column->addWidget(frame, 1);
  details_ = frame;
  // The pages don't move when the details come and go.
  KeepPlace(*title);
  KeepPlace(*frame);
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

void SettingsView::ShowPage() {
  const std::size_t page = form_.Page();
  menu_->button(static_cast<int>(page))->setChecked(true);
  top_->ShowFile(kPageIcons[page]);
}

void SettingsView::TurnPage(int step) {
  const int count = CountOf(pages_);
  const int page = (static_cast<int>(form_.Page()) + step + count) % count;
  form_.ShowSettingsPage(static_cast<std::size_t>(page));
  menu_->button(page)->setFocus(Qt::TabFocusReason);
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
  rules_->PlacePanels();
}

bool SettingsView::event(QEvent* event) {
  const bool handled = DialogView::event(event);
  if (event->type() == QEvent::ApplicationPaletteChange) {
    rules_->PaintPanels();
    preview_->ShowSample();
  }
  // The layout has placed the check boxes, by which the panels are placed.
  if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Show) {
    rules_->PlacePanels();
    if (isVisible()) GrowForPages();
  }
  return handled;
}

}  // namespace cuewright
