#pragma once

#include <QMainWindow>
#include <memory>

#include "form/focus_group.h"
#include "forms/shell.h"
#include "ui/binder.h"
#include "ui/help_key.h"
#include "ui/input_instants.h"
#include "ui/menu_binder.h"
#include "ui/windows.h"

namespace cuewright {

class AudioBar;
class AudioBarWidgets;
class BottomPanel;
class CaptionCommands;
class CaptionGrid;
class CaptionTable;
class DocumentFiles;
class DocumentSession;
class FileRouter;
class HelpWindow;
class InformationBar;
class ListViewCommands;
class LayoutDivider;
class Overlay;
class Preview;
class SubWindow;
class TimingCapture;
class ToolBar;
class WaveBoard;

/// What the main window shows and hands on.
struct MainWindowParts {
  MainWindow& window;
  CaptionList& list;
  CaptionGrid& grid;
  CaptionCommands& commands;
  ListViewCommands& listView;
  SubWindow& sub;
  Preview& preview;
  TimingCapture& capture;
  AudioBar& audioBar;
  WaveBoard& waveBoard;
  Shell& shell;
  DocumentState& document;
  DocumentFiles& documentFiles;
  DocumentSession& session;
  FileRouter& router;
  HelpWindow& help;
  const AppOptions& options;
  const LangStrings& strings;
  Announcement<>& languageChanged;
};

/// The main window `frmMain` on the toolkit: it lays the widgets out as the form says and hands it what happens.
class MainWindowView final : public QMainWindow {
 public:
  /// `video` is the player's widget; the window takes it over.
  MainWindowView(const MainWindowParts& parts, QWidget* video);
  ~MainWindowView() override;

  /// Shows the window in the size and state of the settings.
  void ShowStarted(const Shell::StartSize& size);

  /// The windows over and beside this one.
  Windows& Views() { return windows_; }

  bool eventFilter(QObject* object, QEvent* event) override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void BuildMenus();
  void BuildParts();
  /// Connects what moves and changes the window.
  void Follow();
  /// The window isn't made narrower than what the panel at its foot says in the language in force.
  void FitLeastWidth();
  /// What assistive programs read, in the language in force.
  void ApplyNames();
  void ShowTitle();
  void RestFocus();
  void FollowDocument();
  void MoveDivider(int left);
  void ApplyLayout();
  /// The tool bar and the line at the foot are there as the settings and the manner say.
  void ShowBars();
  void ApplyColumns();
  void ApplyDirection();
  /// Where a part of the layout stands; mirrored when the window is read from the right.
  QRect Placed(const Rect& rect) const;
  void PlaceOverlayNow();
  bool FilterKey(QObject* object, QEvent* event);
  bool FilterShortcut(QObject* object, QEvent* event);

  MainWindowParts p_;
  MainWindow& form_;
  QWidget* area_;
  /// Space goes on from one step of a capture to the next.
  FocusGroup captureButtons_{{&form_.cmdApply, &form_.cmdNext, &form_.cmdEnd}};
  Binder binder_;
  MenuBinder menus_;
  QMenu* listMenu_ = nullptr;
  CaptionTable* table_ = nullptr;
  QWidget* video_ = nullptr;
  QWidget* logo_ = nullptr;
  InformationBar* status_ = nullptr;
  BottomPanel* bottom_ = nullptr;
  ToolBar* toolBar_ = nullptr;
  LayoutDivider* divider_ = nullptr;
  Overlay* overlay_ = nullptr;
  std::unique_ptr<AudioBarWidgets> audioBar_;
  std::unique_ptr<InputInstants> inputInstants_;
  HelpKey helpKey_;
  Windows windows_{*this};
  Connection closeAfterWork_;  ///< the user wants to close, and a file is still in work
  bool hadDocument_ = false;
  std::vector<Connection> connections_;
};

}  // namespace cuewright
