#include "ui/main_window_view.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFile>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QShortcut>
#include <QStyle>
#include <QStyleOption>
#include <QSvgRenderer>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

#include "core/product.h"
#include "ui/audio_bar_widgets.h"
#include "ui/caption_table.h"
#include "ui/elided_label.h"
#include "ui/fit_screen.h"
#include "ui/focus_keeper.h"
#include "ui/held_keys.h"
#include "ui/key_codes.h"
#include "ui/overlay.h"
#include "ui/qt_text.h"
#include "ui/svg_picture.h"
#include "ui/tool_windows.h"
#include "ui/wrap_row.h"

namespace cuewright {
namespace {

template <class Widget>
Widget* Named(Widget* widget, const char* name) {
  widget->setObjectName(name);
  return widget;
}

constexpr int kTitleGrip = 40;  // pixels of the title that have to be on a screen
constexpr int kDividerStep = 8;

/// The local files of a drag, in their order.
std::vector<Text> LocalFiles(const QMimeData& data) {
  std::vector<Text> paths;
  for (const QUrl& url : data.urls()) {
    if (url.isLocalFile()) paths.push_back(FromUtf8(QFile::encodeName(url.toLocalFile()).toStdString()));
  }
  return paths;
}

/// The divider shows a grip, and where the keyboard's focus is.
bool PaintDivider(QWidget& divider) {
  QPainter painter(&divider);
  QStyleOption option;
  option.initFrom(&divider);
  option.state |= QStyle::State_Horizontal;
  divider.style()->drawControl(QStyle::CE_Splitter, &option, &painter, &divider);
  if (divider.hasFocus() && divider.window()->isActiveWindow())
    painter.fillRect(divider.rect().adjusted(2, 0, -2, 0), divider.palette().highlight());
  return true;
}

}  // namespace

MainWindowView::MainWindowView(Program& program, QWidget* video)
    : program_(program),
      form_(program.window),
      area_(new QWidget(this)),
      binder_(*this, program.window),
      video_(video) {
  setObjectName("frmMain");
  setWindowIcon(QIcon(":/cuewright.svg"));
  setMinimumSize(MainLayout::kLeastWidth, std::min(MainLayout::kLeastHeight, RoomOnScreen(*this).height()));
  setCentralWidget(area_);
  setAttribute(Qt::WA_InputMethodEnabled, false);
  BuildMenus();
  BuildInformationBar();
  table_ = new CaptionTable(program_.list, program_.grid, program_.commands, *listMenu_, area_);
  connections_.push_back(table_->ColumnsChosen.ConnectScoped([this](const std::array<int, 4>* widths) {
    LayoutMemory& memory = program_.shell.Memory();
    if (widths != nullptr) {
      memory.NoteColumns(*widths, program_.shell.Layout().ListWidth());
    } else {
      memory.ForgetColumns();
    }
    ApplyLayout();
  }));
  divider_ = Named(new QWidget(area_), "imgSize");
  divider_->setCursor(Qt::SplitHCursor);
  divider_->setFocusPolicy(Qt::TabFocus);
  setAcceptDrops(true);
  video_->setParent(area_);
  logo_ = Named(new SvgPicture(":/logo.svg", area_), "picPLogo");
  audioBar_ = std::make_unique<AudioBarWidgets>(program_.audioBar, area_);
  overlay_ = new Overlay(program_.sub, area_);
  BuildBottomPanel();
  ApplyNames();
  new FocusKeeper(*this, captureButtons_);
  binder_.BindAll();
  tools_ = std::make_unique<ToolWindows>(program_, *this);
  FitLeastWidth();

  connections_.push_back(form_.TitleChanged.ConnectScoped([this] { ShowTitle(); }));
  connections_.push_back(program_.shell.LayoutChanged.ConnectScoped([this] { ApplyLayout(); }));
  connections_.push_back(program_.preview.PlaceRequested.ConnectScoped([this] { PlaceOverlayNow(); }));
  connections_.push_back(program_.sub.lblSub.Changed.ConnectScoped([this] { PlaceOverlayNow(); }));
  connections_.push_back(program_.LanguageChanged.ConnectScoped([this] { ApplyNames(); }));
  connections_.push_back(form_.DirectionChanged.ConnectScoped([this] { ApplyDirection(); }));
  ShowTitle();
  ApplyDirection();
  connections_.push_back(program_.grid.Changed.ConnectScoped([this] { FollowDocument(); }));
  setTabOrder(findChild<QWidget*>("optPreview"), divider_);
  qApp->installEventFilter(this);
  // Filters run from the last one to the first: the instant is known before anything acts.
  inputInstants_ = std::make_unique<InputInstants>(form_);
  RestFocus();
}

MainWindowView::~MainWindowView() { qApp->removeEventFilter(this); }

void MainWindowView::BuildMenus() {
  const std::vector<MenuItem*> tops = {&form_.mnuFile,  &form_.mnuEdit,     &form_.mnuFormat, &form_.mnuView,
                                       &form_.mnuTools, &form_.mnuSettings, &form_.mnuHelp};
  for (MenuItem* top : tops) {
    menuBar()->addAction(binder_.MakeAction(*top, menuBar()));
  }
  for (MenuItem* top : tops) {
    connections_.push_back(top->Changed.ConnectScoped([this, tops] { binder_.GiveMnemonics(tops); }));
  }
  binder_.GiveMnemonics(tops);
  listMenu_ = new QMenu(this);
  listMenu_->setObjectName("mnuRclick");
  binder_.FillMenu(*listMenu_, form_.mnuRclick);
  connect(findChild<QAction*>("mnuExit"), &QAction::triggered, this, &QWidget::close);
  // The desktop's key for the menus; the toolkit knows Alt alone.
  connect(new QShortcut(Qt::Key_F10, this), &QShortcut::activated, this, [this] {
    menuBar()->setFocus(Qt::MenuBarFocusReason);
    menuBar()->setActiveAction(menuBar()->actions().front());
  });
}

void MainWindowView::BuildInformationBar() {
  status_ = Named(new QWidget(area_), "picStatus");
  status_->setAutoFillBackground(true);
  status_->setBackgroundRole(QPalette::Base);
  auto* row = new QHBoxLayout(status_);
  row->setContentsMargins(12, 4, 12, 4);
  row->setSpacing(12);
  auto* icon = Named(new SvgPicture(":/cuewright.svg", status_), "picIco");
  icon->setFixedSize(32, 32);
  row->addWidget(icon);
  auto* texts = new QVBoxLayout;
  texts->setSpacing(2);
  texts->addStretch();
  for (const char* name : {"lblTextFile", "lblVideoFile"}) {
    auto* label = Named(new ElidedLabel(status_), name);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    texts->addWidget(label);
  }
  texts->addStretch();
  row->addLayout(texts, 1);
  auto* notice = Named(new ElidedLabel(status_), "lblNotice");
  notice->setFrameShape(QFrame::StyledPanel);
  notice->setBackgroundRole(QPalette::ToolTipBase);
  notice->setForegroundRole(QPalette::ToolTipText);
  notice->setAutoFillBackground(true);
  notice->setMargin(4);
  notice->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  row->addWidget(notice);
  for (const char* name : {"cmdShowFindings", "cmdApplyFindings", "cmdUndoRules"}) {
    row->addWidget(Named(new QToolButton(status_), name));
  }
  auto* close = Named(new QToolButton(status_), "cmdNotice");
  close->setAutoRaise(true);
  row->addWidget(close);
  barLogo_ = Named(new QLabel(ToQt(kProductName), status_), "picLogo");
  QFont font = barLogo_->font();
  font.setPointSizeF(font.pointSizeF() * 1.4);
  font.setBold(true);
  barLogo_->setFont(font);
  barLogo_->setCursor(Qt::PointingHandCursor);
  row->addWidget(barLogo_);
}

QWidget* MainWindowView::MakeTimeRow() {
  auto* panel = new QWidget(bottom_);
  // What belongs together stays together; what has no room beside the others goes below them.
  auto* row = new WrapRow(panel, 14, 4);
  const auto group = [&] {
    auto* made = new QWidget(panel);
    auto* line = new QHBoxLayout(made);
    line->setContentsMargins(0, 0, 0, 0);
    row->addWidget(made);
    return line;
  };
  for (int index = 0; index < 2; ++index) {
    auto* line = group();
    auto* label = Named(new QLabel(panel), index == 0 ? "lblShow" : "lblDuration");
    auto* box = Named(new QLineEdit(panel), index == 0 ? "txtTime(0)" : "txtTime(1)");
    box->setMaxLength(12);
    box->setAttribute(Qt::WA_InputMethodEnabled, false);
    box->setFixedWidth(box->fontMetrics().horizontalAdvance("00:00:00,000") + 24);
    line->addWidget(label);
    line->addWidget(box);
  }
  auto* line = group();
  auto* caption = Named(new QLabel(panel), "lblPosition");
  caption->setMinimumHeight(panel->findChild<QLineEdit*>("txtTime(0)")->sizeHint().height());  // on the boxes' line
  auto* time = Named(new QLabel(panel), "lblTime");
  auto* text = Named(new QLabel(panel), "lblStringPos");
  time->setMinimumWidth(time->fontMetrics().horizontalAdvance("00000000"));
  text->setMinimumWidth(text->fontMetrics().horizontalAdvance("0:00:00"));
  time->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  line->addWidget(caption);
  line->addWidget(text);
  line->addWidget(time);
  return panel;
}

QWidget* MainWindowView::MakeButtons() {
  auto* panel = new QWidget(bottom_);
  auto* grid = new QGridLayout(panel);
  grid->setContentsMargins(0, 0, 0, 0);
  const auto button = [&](const char* name, int row, int column, int columns) {
    auto* made = Named(new QPushButton(panel), name);
    made->setMinimumWidth(80);
    made->setAutoDefault(false);
    made->setAttribute(Qt::WA_InputMethodEnabled, false);
    made->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    grid->addWidget(made, row, column, 1, columns);
    return made;
  };
  button("cmdApply", 0, 0, 2);
  button("cmdNext", 1, 0, 1);
  button("cmdEnd", 1, 1, 1);
  button("cmdCancel", 2, 0, 2);
  return panel;
}

QWidget* MainWindowView::MakeModes() {
  auto* panel = new QWidget(bottom_);
  auto* column = new QVBoxLayout(panel);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  auto* heading = Named(new QLabel(panel), "lblMainMode");
  QFont bold = heading->font();
  bold.setBold(true);
  heading->setFont(bold);
  column->addWidget(heading);
  for (const char* name : {"optPress", "optManual", "optPreview"}) {
    auto* option = Named(new QRadioButton(panel), name);
    option->setAttribute(Qt::WA_InputMethodEnabled, false);
    column->addWidget(option);
  }
  auto* text = Named(new QLabel(panel), "lblMode");
  text->setWordWrap(true);
  text->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  text->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  column->addWidget(text, 1);
  // As wide as the longest mode in the language in force; the text below wraps.
  column->addStrut(240);
  panel->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
  return panel;
}

void MainWindowView::BuildBottomPanel() {
  bottom_ = Named(new QWidget(area_), "picBottom");
  auto* row = new QHBoxLayout(bottom_);
  row->setContentsMargins(8, 4, 8, 8);
  row->setSpacing(12);
  auto* left = new QVBoxLayout;
  left->addWidget(MakeTimeRow());
  auto* pane = Named(new QPlainTextEdit(bottom_), "txtSub");
  pane->setTabChangesFocus(true);
  pane->setAcceptDrops(false);      // files are the window's
  pane->setUndoRedoEnabled(false);  // what is typed is taken back with everything else
  pane->setMinimumHeight(48);
  pane_ = pane;
  left->addWidget(pane, 1);
  row->addLayout(left, 1);
  row->addWidget(MakeButtons());
  row->addWidget(MakeModes());
}

void MainWindowView::FitLeastWidth() {
  setMinimumWidth(std::max(MainLayout::kLeastWidth, bottom_->minimumSizeHint().width()));
}

void MainWindowView::ApplyNames() {
  const std::pair<const char*, Message> names[] = {{"txtTime(0)", Message::SpokenCaptionStart},
                                                   {"txtTime(1)", Message::SpokenCaptionDuration},
                                                   {"txtSub", Message::SpokenCaptionText},
                                                   {"grdSubs", Message::SpokenCaptionList},
                                                   {"picPLogo", Message::NoVideoFileLoaded},
                                                   {"imgSize", Message::SpokenDivider},
                                                   {"picStatus", Message::SpokenInfoBar},
                                                   {"picBottom", Message::SpokenCaptioningPanel},
                                                   {"picWave", Message::SpokenAudioBar},
                                                   {"picLevel", Message::SpokenSoundLevel},
                                                   {"sldWavScale", Message::WaveHeight},
                                                   {"imgWavPos", Message::SpokenWavePosition},
                                                   {"WMP", Message::SpokenFilm},
                                                   {"cmdNotice", Message::CloseNotice},
                                                   {"wmpTransport", Message::SpokenFilmControls},
                                                   {"wmpPlay", Message::Play},
                                                   {"wmpPause", Message::Pause},
                                                   {"wmpStop", Message::Stop},
                                                   {"wmpMute", Message::Mute},
                                                   {"wmpSeek", Message::SpokenFilmPosition},
                                                   {"wmpVolume", Message::Volume}};
  for (const auto& [name, text] : names) {
    auto* widget = findChild<QWidget*>(name);
    if (widget == nullptr) continue;
    widget->setAccessibleName(ToQt(program_.strings[text]));
    // The film's own controls have no captions.
    if (QByteArrayView(name).startsWith("wmp") && !widget->toolTip().isEmpty()) {
      widget->setToolTip(ToQt(program_.strings[text]));
    }
  }
  findChild<QWidget*>("picIco")->setAccessibleName(ToQt(kProductName));
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
  findChild<QLabel*>("lblMode")->setContentsMargins(form_.RightToLeft() ? 8 : 0, 0, 0, 0);
  ApplyLayout();
}

QRect MainWindowView::Placed(const Rect& rect) const {
  return QStyle::visualRect(layoutDirection(), area_->rect(), {rect.left, rect.top, rect.width, rect.height});
}

void MainWindowView::ApplyLayout() {
  MainLayout& layout = program_.shell.Layout();
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
  const bool bar = form_.picIco.Visible();
  for (const char* name : {"lblTextFile", "lblVideoFile"}) status_->findChild<QWidget*>(name)->setVisible(bar);
  status_->findChild<QWidget*>("lblNotice")->setVisible(bar && form_.lblNotice.Visible());
  for (const Button* button :
       {&form_.cmdShowFindings, &form_.cmdApplyFindings, &form_.cmdUndoRules, &form_.cmdNotice}) {
    status_->findChild<QWidget*>(QString::fromStdString(button->Name()))->setVisible(bar && button->Visible());
  }
  barLogo_->setVisible(bar && layout.ShowsLogo());
  ApplyColumns();
  table_->NoteMetrics();
  program_.preview.PlacePreview();
}

void MainWindowView::ApplyColumns() {
  program_.shell.ApplyColumns(pane_->width(), table_->verticalScrollBar()->sizeHint().width());
}

void MainWindowView::PlaceOverlayNow() {
  const QRect player = Placed(program_.shell.Layout().Player());
  const auto place = [&](int height) {
    return PlaceOverlay(player.left(), player.top(), player.width(), player.height(), height,
                        program_.options.previewHeight);
  };
  const int width = place(0).width;
  const int height = overlay_->WantedHeight(width);
  QRect shown(place(height).left, place(height).top, width, height);
  // Many lines keep to the picture.
  if (program_.sub.GetStyle().allLines) shown.moveTop(std::max(shown.top(), player.top()));
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
        program_.files.OpenDropped(paths);
      },
      Qt::QueuedConnection);
}

void MainWindowView::closeEvent(QCloseEvent* event) {
  if (program_.document.FileInWork) {
    // The load ends first, at once, and then the window.
    program_.document.ImportCancelled = true;
    closeAfterWork_ = program_.files.FileWorkEnded.ConnectScoped([this] {
      QMetaObject::invokeMethod(this, &QWidget::close, Qt::QueuedConnection);
      closeAfterWork_.Disconnect();
    });
    event->ignore();
    return;
  }
  if (!program_.files.PromptForSave()) {
    event->ignore();
    return;
  }
  const QSize size = normalGeometry().size();
  if (!isMinimized() && !isMaximized()) program_.shell.Memory().SaveWindowCorner({pos().x(), pos().y()});
  program_.shell.SaveAtUnload(isMinimized(), isMaximized(), size.width(), size.height());
  program_.files.CloseDocuments();
  event->accept();
  QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
}

void MainWindowView::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && !isActiveWindow()) program_.capture.OnFocusLost();
}

bool MainWindowView::FilterKey(QObject* object, QEvent* event) {
  auto* widget = qobject_cast<QWidget*>(object);
  if (widget == nullptr || widget->window() != this) return false;
  // An event that its receiver leaves goes on to the parents; the shortcut is for the first one alone.
  QWidget* focus = QApplication::focusWidget();
  if (widget != (focus != nullptr ? focus : this)) return false;
  KeyEvent key = KeyEventOf(*static_cast<QKeyEvent*>(event));
  if (event->type() == QEvent::KeyPress) {
    // An open menu hands on what none of its items has.
    if (QApplication::activePopupWidget() != nullptr) return false;
    program_.capture.OnKeyDown(key);
  } else if (!IsKeyStillDown(static_cast<QKeyEvent*>(event)->nativeScanCode())) {
    program_.capture.OnKeyUp(key);
  }
  return key.handled;
}

bool MainWindowView::FilterUndoKeys(QObject* object, QEvent* event) {
  const auto* widget = qobject_cast<QWidget*>(object);
  if (widget == nullptr || widget->window() != this) return false;
  // The fields would take these keys for a history of their own.
  const auto* key = static_cast<QKeyEvent*>(event);
  const QKeySequence pressed(key->keyCombination());
  for (const char* name : {"mnuUndo", "mnuRedo"}) {
    if (findChild<QAction*>(name)->shortcuts().contains(pressed)) {
      event->ignore();
      return true;
    }
  }
  return false;
}

bool MainWindowView::FilterDivider(QEvent* event) {
  const auto* mouse = static_cast<QMouseEvent*>(event);
  if (event->type() != QEvent::MouseMove || (mouse->buttons() & Qt::LeftButton) == 0) return false;
  const QPoint at = area_->mapFromGlobal(mouse->globalPosition().toPoint());
  MoveDivider(QStyle::visualPos(layoutDirection(), area_->rect(), at).x());
  return true;
}

bool MainWindowView::FilterDividerKey(QKeyEvent* event) {
  const bool left = event->key() == Qt::Key_Left;
  if (!left && event->key() != Qt::Key_Right) return false;
  const bool back = left != (layoutDirection() == Qt::RightToLeft);
  MoveDivider(program_.shell.Layout().Divider().left + (back ? -kDividerStep : kDividerStep));
  return true;
}

void MainWindowView::ShowTitle() {
  // The toolkit takes this sign for a place of its own.
  setWindowTitle(ToQt(form_.Title()).replace("[*]", "[*][*]"));
}

void MainWindowView::RestFocus() {
  // With nothing to work on the keyboard rests in the window itself, not on the divider.
  area_->setAccessibleName(ToQt(form_.lblTextFile.GetText()));
  area_->setFocus();
}

void MainWindowView::FollowDocument() {
  const bool came = program_.grid.Active() && !hadDocument_;
  const bool went = !program_.grid.Active() && hadDocument_;
  hadDocument_ = program_.grid.Active();
  const QWidget* focus = focusWidget();
  const bool atRest = focus == nullptr || focus == divider_ || focus == area_;
  // The keyboard is for the list as soon as there is one, unless the user is typing elsewhere.
  if (came && atRest) table_->setFocus();
  if (went && (atRest || focus == table_)) RestFocus();
}

void MainWindowView::MoveDivider(int left) {
  program_.shell.Layout().DragDivider(left);
  ApplyLayout();
}

bool MainWindowView::eventFilter(QObject* object, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
      if (object == divider_ && FilterDividerKey(static_cast<QKeyEvent*>(event))) return true;
      return FilterKey(object, event);
    case QEvent::KeyRelease:
      return FilterKey(object, event);
    case QEvent::FocusIn:
    case QEvent::FocusOut:
      if (object == divider_) divider_->update();
      return false;
    case QEvent::Resize:
      // The columns are measured by the pane.
      if (object == pane_) ApplyColumns();
      return false;
    case QEvent::LayoutRequest:
      if (object == bottom_) FitLeastWidth();
      return false;
    case QEvent::Paint:
      return object == divider_ && PaintDivider(*divider_);
    case QEvent::ShortcutOverride:
      return FilterUndoKeys(object, event);
    case QEvent::MouseButtonRelease:
      if (object->isWidgetType()) {
        program_.capture.OnPointerUp(MouseButtonOf(static_cast<QMouseEvent*>(event)->button()));
      }
      return false;
    case QEvent::MouseMove:
      return object == divider_ && FilterDivider(event);
    default:
      return false;
  }
}

}  // namespace cuewright
