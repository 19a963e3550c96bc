#include "ui/main_window_view.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFile>
#include <QHash>
#include <QIcon>
#include <QLayout>
#include <QMenuBar>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollBar>
#include <QShortcut>
#include <QStatusBar>
#include <QStyle>
#include <QUrl>

#include "audio/audio_bar.h"
#include "capture/caption_grid.h"
#include "capture/preview.h"
#include "capture/sub_window.h"
#include "capture/timing_capture.h"
#include "forms/caption_commands.h"
#include "forms/document_files.h"
#include "forms/document_session.h"
#include "forms/file_router.h"
#include "forms/help_window.h"
#include "forms/list_view_commands.h"
#include "ui/audio_bar_widgets.h"
#include "ui/bottom_panel.h"
#include "ui/caption_table.h"
#include "ui/elided_label.h"
#include "ui/fit_screen.h"
#include "ui/focus_keeper.h"
#include "ui/held_keys.h"
#include "ui/information_bar.h"
#include "ui/key_codes.h"
#include "ui/layout_divider.h"
#include "ui/overlay.h"
#include "ui/qt_text.h"
#include "ui/svg_picture.h"
#include "ui/tool_bar.h"

namespace cuewright {
namespace {

constexpr int kTitleGrip = 40;  // pixels of the title that have to be on a screen

/// The local files of a drag, in their order.
std::vector<Text> LocalFiles(const QMimeData& data) {
  std::vector<Text> paths;
  for (const QUrl& url : data.urls()) {
    if (url.isLocalFile()) paths.push_back(FromUtf8(QFile::encodeName(url.toLocalFile()).toStdString()));
  }
  return paths;
}

}  // namespace

MainWindowView::MainWindowView(const MainWindowParts& parts, QWidget* video)
    : p_(parts),
      form_(parts.window),
      area_(new QWidget(this)),
      binder_(*this, parts.window),
      menus_(*this, binder_),
      video_(video),
      helpKey_(parts.help) {
  setObjectName("frmMain");
  setWindowIcon(QIcon(":/cuewright.svg"));
  setMinimumSize(MainLayout::kLeastWidth, std::min(MainLayout::kLeastHeight, RoomOnScreen(*this).height()));
  setCentralWidget(area_);
  setAttribute(Qt::WA_InputMethodEnabled, false);
  BuildMenus();
  BuildParts();
  ApplyNames();
  FitLeastWidth();
  ShowTitle();
  ApplyDirection();
  Follow();
  setTabOrder(&binder_.WidgetOf(form_.optPreview), divider_);
  qApp->installEventFilter(this);
  // Filters run from the last one to the first: the instant is known before anything acts.
  inputInstants_ = std::make_unique<InputInstants>(form_);
  RestFocus();
}

void MainWindowView::BuildParts() {
  status_ = new InformationBar(form_, binder_, area_);
  table_ = new CaptionTable(p_.list, p_.grid, p_.commands, *listMenu_, area_);
  connections_.push_back(table_->Columns().Chosen.ConnectScoped([this](const std::array<int, 4>* widths) {
    LayoutMemory& memory = p_.shell.Memory();
    if (widths != nullptr) {
      memory.NoteColumns(*widths, p_.shell.Layout().ListWidth());
    } else {
      memory.ForgetColumns();
    }
    ApplyLayout();
  }));
  connections_.push_back(
      table_->Columns().Arranged.ConnectScoped([this](const ColumnOrder& columns) { p_.listView.Arrange(columns); }));
  connections_.push_back(table_->HeaderMenuAsked.ConnectScoped(
      [this](const QPoint& place) { menus_.ActionOf(form_.mnuListColumns).menu()->popup(place); }));
  divider_ = binder_.Bind(form_.imgSize, new LayoutDivider(area_));
  divider_->Dragged.Connect([this](int left) { MoveDivider(left); });
  divider_->Stepped.Connect([this](int step) { MoveDivider(p_.shell.Layout().Divider().left + step); });
  setAcceptDrops(true);
  video_->setParent(area_);
  logo_ = binder_.Bind(form_.picPLogo, new SvgPicture(":/logo.svg", area_));
  audioBar_ = std::make_unique<AudioBarWidgets>(p_.audioBar, p_.waveBoard, binder_, area_);
  overlay_ = new Overlay(p_.sub, area_);
  new FocusKeeper(*this, binder_, captureButtons_);
  bottom_ = new BottomPanel(form_, p_.options, binder_, area_);
  toolBar_ = new ToolBar(form_, menus_, this);
  addToolBar(toolBar_);
  statusBar()->setContentsMargins(6, 0, 6, 0);
  statusBar()->addWidget(binder_.Bind(form_.lblStatus, new ElidedLabel(this)), 1);
  connections_.push_back(form_.lblStatus.Changed.ConnectScoped([this] { ShowBars(); }));
  for (Control* control : form_.Controls()) {
    if (auto* timer = dynamic_cast<Timer*>(control)) binder_.Bind(*timer);
  }
}

void MainWindowView::Follow() {
  connections_.push_back(form_.TitleChanged.ConnectScoped([this] { ShowTitle(); }));
  connections_.push_back(p_.shell.LayoutChanged.ConnectScoped([this] { ApplyLayout(); }));
  connections_.push_back(p_.preview.PlaceRequested.ConnectScoped([this] { PlaceOverlayNow(); }));
  connections_.push_back(p_.sub.lblSub.Changed.ConnectScoped([this] { PlaceOverlayNow(); }));
  connections_.push_back(p_.sub.StyleChanged.ConnectScoped([this] { PlaceOverlayNow(); }));
  connections_.push_back(p_.languageChanged.ConnectScoped([this] { ApplyNames(); }));
  connections_.push_back(form_.DirectionChanged.ConnectScoped([this] { ApplyDirection(); }));
  connections_.push_back(p_.grid.Changed.ConnectScoped([this] { FollowDocument(); }));
}

MainWindowView::~MainWindowView() { qApp->removeEventFilter(this); }

void MainWindowView::BuildMenus() {
  const std::vector<MenuItem*> tops = form_.Menus();
  for (MenuItem* top : tops) {
    menuBar()->addAction(menus_.Bind(*top, menuBar()));
  }
  for (MenuItem* top : tops) {
    connections_.push_back(top->Changed.ConnectScoped([this, tops] { menus_.GiveMnemonics(tops); }));
  }
  menus_.GiveMnemonics(tops);
  listMenu_ = new QMenu(this);
  listMenu_->setObjectName("mnuRclick");
  menus_.Fill(*listMenu_, form_.mnuRclick);
  connect(&menus_.ActionOf(form_.mnuExit), &QAction::triggered, this, &QWidget::close);
  // The desktop's key for the menus; the toolkit knows Alt alone.
  connect(new QShortcut(Qt::Key_F10, this), &QShortcut::activated, this, [this] {
    menuBar()->setFocus(Qt::MenuBarFocusReason);
    menuBar()->setActiveAction(menuBar()->actions().front());
  });
}

void MainWindowView::FitLeastWidth() {
  setMinimumWidth(std::max(MainLayout::kLeastWidth, bottom_->minimumSizeHint().width()));
}

void MainWindowView::ApplyNames() {
  table_->setAccessibleName(ToQt(p_.strings[Message::SpokenCaptionList]));
  toolBar_->setAccessibleName(ToQt(WithoutAccessKey(p_.strings[Message::ToolBar])));
  // The film's own controls have no captions.
  const QHash<QString, Message> names = {{"WMP", Message::SpokenFilm},
                                         {"wmpTransport", Message::SpokenFilmControls},
                                         {"wmpPlay", Message::Play},
                                         {"wmpPause", Message::Pause},
                                         {"wmpStop", Message::Stop},
                                         {"wmpMute", Message::Mute},
                                         {"wmpSeek", Message::SpokenFilmPosition},
                                         {"wmpVolume", Message::Volume}};
  for (QWidget* widget : area_->findChildren<QWidget*>()) {
    const auto name = names.find(widget->objectName());
    if (name == names.end()) continue;
    widget->setAccessibleName(ToQt(p_.strings[name.value()]));
    if (!widget->toolTip().isEmpty()) widget->setToolTip(widget->accessibleName());
  }
}

void MainWindowView::ShowStarted(const Shell::StartSize& size) {
  if (size.width > 0 && size.height > 0) resize(size.width, size.height);
  // A corner that is on no screen any more would hide the window.
  if (size.corner && QGuiApplication::screenAt({size.corner->left + kTitleGrip, size.corner->top}) != nullptr) {
    move(size.corner->left, size.corner->top);
  }
  if (size.maximised) {
    showMaximized();
  } else {
    show();
  }
}

void MainWindowView::ApplyDirection() {
  // For all windows: the dialogs and boxes that follow are read the same way.
  QGuiApplication::setLayoutDirection(form_.RightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
  // The last letters of an Arabic line reach beyond their advance.
  binder_.WidgetOf(form_.lblMode).setContentsMargins(form_.RightToLeft() ? 8 : 0, 0, 0, 0);
  ApplyLayout();
}

QRect MainWindowView::Placed(const Rect& rect) const {
  return QStyle::visualRect(layoutDirection(), area_->rect(), {rect.left, rect.top, rect.width, rect.height});
}

void MainWindowView::ShowBars() {
  toolBar_->setVisible(p_.options.toolBarOn && p_.options.manner.HasCalmWindow());
  statusBar()->setVisible(form_.lblStatus.Visible());
}

void MainWindowView::ApplyLayout() {
  ShowBars();
  MainLayout& layout = p_.shell.Layout();
  layout.SetInner(area_->width(), area_->height());
  status_->setGeometry(Placed(layout.Status()));
  table_->setGeometry(Placed(layout.List()));
  divider_->setGeometry(Placed(layout.Divider()));
  video_->setGeometry(Placed(layout.Player()));
  bottom_->setGeometry(Placed(layout.Bottom()));
  audioBar_->Place(Placed(layout.Wave()));
  bottom_->layout()->activate();
  const QRect player = Placed(layout.Player());
  const QSize logo(160, 120);
  logo_->setGeometry(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, logo, player));
  logo_->raise();
  status_->ShowParts(layout.ShowsLogo(), layout.InformationBand() == MainLayout::Band::Line);
  ApplyColumns();
  table_->NoteMetrics();
  p_.preview.PlacePreview();
}

void MainWindowView::ApplyColumns() {
  p_.shell.ApplyColumns(bottom_->Pane()->width(), table_->verticalScrollBar()->sizeHint().width());
}

void MainWindowView::PlaceOverlayNow() {
  const QRect player = Placed(p_.shell.Layout().Player());
  const auto place = [&](int height) {
    const int percent = PercentOfPlace(p_.sub.Shown().place, p_.options.previewHeight);
    return PlaceOverlay(player.left(), player.top(), player.width(), player.height(), height, percent);
  };
  const int width = place(0).width;
  const int height = overlay_->WantedHeight(width);
  QRect shown(place(height).left, place(height).top, width, height);
  // An overlay with many lines must not reach above the picture.
  if (p_.sub.GetStyle().allLines) shown.moveTop(std::max(shown.top(), player.top()));
  if (overlay_->geometry() == shown) return;
  overlay_->setGeometry(shown);
  overlay_->raise();
}

void MainWindowView::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  ApplyLayout();
}

void MainWindowView::dragEnterEvent(QDragEnterEvent* event) {
  if (!LocalFiles(*event->mimeData()).empty()) event->acceptProposedAction();
}

void MainWindowView::dropEvent(QDropEvent* event) {
  const std::vector<Text> paths = LocalFiles(*event->mimeData());
  if (paths.empty()) return;
  event->setDropAction(Qt::CopyAction);
  event->accept();
  // The program that the files come from waits for the drop to end; a question to the user must not hold it.
  QMetaObject::invokeMethod(
      this,
      [this, paths] {
        activateWindow();
        p_.router.OpenDropped(paths);
      },
      Qt::QueuedConnection);
}

void MainWindowView::closeEvent(QCloseEvent* event) {
  if (p_.document.FileInWork) {
    // The load is cancelled first; the window closes when it has ended.
    p_.document.ImportCancelled = true;
    closeAfterWork_ = p_.documentFiles.FileWorkEnded.ConnectScoped([this] {
      QMetaObject::invokeMethod(this, &QWidget::close, Qt::QueuedConnection);
      closeAfterWork_.Disconnect();
    });
    event->ignore();
    return;
  }
  if (!p_.documentFiles.PromptForSave()) {
    event->ignore();
    return;
  }
  const QSize size = normalGeometry().size();
  if (!isMinimized() && !isMaximized()) p_.shell.Memory().SaveWindowCorner({pos().x(), pos().y()});
  p_.shell.SaveAtUnload(isMinimized(), isMaximized(), size.width(), size.height());
  p_.session.CloseDocuments();
  event->accept();
  QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
}

void MainWindowView::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && !isActiveWindow()) p_.capture.OnFocusLost();
}

bool MainWindowView::FilterKey(QObject* object, QEvent* event) {
  auto* widget = qobject_cast<QWidget*>(object);
  if (widget == nullptr || widget->window() != this) return false;
  // An event that is ignored is sent to the parents too; a key must be handled for its first receiver only.
  QWidget* focus = QApplication::focusWidget();
  if (widget != (focus != nullptr ? focus : this)) return false;
  KeyEvent key = KeyEventOf(*static_cast<QKeyEvent*>(event));
  if (event->type() == QEvent::KeyPress) {
    // An open menu sends keys that it has no item for to the window.
    if (QApplication::activePopupWidget() != nullptr) return false;
    p_.capture.OnKeyDown(key);
  } else if (!IsKeyStillDown(static_cast<QKeyEvent*>(event)->nativeScanCode())) {
    p_.capture.OnKeyUp(key);
  }
  return key.handled;
}

bool MainWindowView::FilterShortcut(QObject* object, QEvent* event) {
  const auto* widget = qobject_cast<QWidget*>(object);
  if (widget == nullptr || widget->window() != this) return false;
  const auto* key = static_cast<QKeyEvent*>(event);
  // A button that has the keyboard is pressed by Space, whatever command has that key.
  if (key->key() == Qt::Key_Space && key->modifiers() == Qt::NoModifier &&
      qobject_cast<QAbstractButton*>(object) != nullptr) {
    event->accept();
    return true;
  }
  // Text fields would take these keys for their own undo.
  const QKeySequence pressed(key->keyCombination());
  for (const MenuItem* item : {&form_.mnuUndo, &form_.mnuRedo}) {
    if (menus_.ActionOf(*item).shortcuts().contains(pressed)) {
      event->ignore();
      return true;
    }
  }
  return false;
}

void MainWindowView::ShowTitle() {
  // The toolkit replaces "[*]" by the mark of a modified document; doubled it stays as it is.
  setWindowTitle(ToQt(form_.Title()).replace("[*]", "[*][*]"));
}

void MainWindowView::RestFocus() {
  // With nothing to work on the keyboard rests in the window itself, not on the divider.
  area_->setAccessibleName(ToQt(form_.lblTextFile.GetText()));
  area_->setFocus();
}

void MainWindowView::FollowDocument() {
  const bool came = p_.grid.Active() && !hadDocument_;
  const bool went = !p_.grid.Active() && hadDocument_;
  hadDocument_ = p_.grid.Active();
  const QWidget* focus = focusWidget();
  const bool atRest = focus == nullptr || focus == divider_ || focus == area_;
  // The keyboard is for the list as soon as there is one, unless the user is typing elsewhere.
  if (came && atRest) table_->setFocus();
  if (went && (atRest || focus == table_)) RestFocus();
}

void MainWindowView::MoveDivider(int left) {
  p_.shell.Layout().DragDivider(left);
  ApplyLayout();
}

bool MainWindowView::eventFilter(QObject* object, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
      return FilterKey(object, event);
    case QEvent::KeyRelease:
      return FilterKey(object, event);
    case QEvent::Resize:
      // A scroll bar has appeared or disappeared.
      if (object == area_) ApplyLayout();
      // The widths of the columns follow that of the pane.
      if (object == bottom_->Pane()) ApplyColumns();
      return false;
    case QEvent::LayoutRequest:
      if (object == bottom_) FitLeastWidth();
      return false;
    case QEvent::ShortcutOverride:
      return FilterShortcut(object, event);
    case QEvent::MouseButtonRelease:
      if (object->isWidgetType()) {
        p_.capture.OnPointerUp(MouseButtonOf(static_cast<QMouseEvent*>(event)->button()));
      }
      return false;
    default:
      return false;
  }
}

}  // namespace cuewright
