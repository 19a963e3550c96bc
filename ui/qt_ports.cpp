#include "ui/qt_ports.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QEventLoop>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QMimeData>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QTimer>
#include <QUrl>

#include "core/paths.h"
#include "core/product.h"
#include "ui/qt_text.h"

namespace cuewright {
namespace {

/// What captions are on the clipboard for other windows of the program.
constexpr char kCaptionsType[] = "application/x-cuewright-captions";

constexpr qint64 kYieldEveryMs = 16;

/// The buttons of a box and the messages on them.
constexpr std::pair<QMessageBox::StandardButton, Message> kBoxButtons[] = {{QMessageBox::Ok, Message::Ok},
                                                                           {QMessageBox::Cancel, Message::Cancel},
                                                                           {QMessageBox::Yes, Message::Yes},
                                                                           {QMessageBox::No, Message::No}};

QMessageBox::Icon IconOf(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::Information:
      return QMessageBox::Information;
    case BoxIcon::Question:
      return QMessageBox::Question;
    case BoxIcon::Warning:
      return QMessageBox::Warning;
    case BoxIcon::Error:
      return QMessageBox::Critical;
    default:
      return QMessageBox::NoIcon;
  }
}

QMessageBox::StandardButtons ButtonsOf(BoxButtons buttons) {
  switch (buttons) {
    case BoxButtons::OkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case BoxButtons::YesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case BoxButtons::YesNoCancel:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    default:
      return QMessageBox::Ok;
  }
}

/// What Escape and the close button of a box answer: the button that leaves everything as it is.
QMessageBox::StandardButton HarmlessOf(BoxButtons buttons) {
  switch (buttons) {
    case BoxButtons::OkCancel:
    case BoxButtons::YesNoCancel:
      return QMessageBox::Cancel;
    case BoxButtons::YesNo:
      return QMessageBox::No;
    default:
      return QMessageBox::Ok;
  }
}

/// "name|*.a;*.b|..." as the picker takes it: "name (*.a *.b);;...". The pattern for every file is "*" here.
QString PickerFilter(TextView filter) {
  QStringList entries;
  const std::vector<Text> parts = Split(filter, u"|");
  for (std::size_t i = 0; i + 1 < parts.size(); i += 2) {
    QStringList patterns = ToQt(parts[i + 1]).split(';', Qt::SkipEmptyParts);
    patterns.removeDuplicates();
    QString name = ToQt(parts[i]);
    // The picker takes the last parenthesis as the patterns.
    name = name.left(name.indexOf(" ("));
    QStringList both;
    for (const QString& pattern : patterns) {
      both << (pattern == "*.*" ? QString("*") : pattern);
      if (pattern != "*.*" && pattern.toUpper() != pattern) both << pattern.toUpper();
    }
    entries << name + " (" + both.join(' ') + ")";
  }
  return entries.join(";;");
}

/// The first ending in a filter, "srt" of "name|*.srt;*.txt|"; empty for one of every file.
QString FirstSuffix(TextView filter) {
  const std::vector<Text> parts = Split(filter, u"|");
  if (parts.size() < 2) return {};
  const QString pattern = ToQt(parts[1]).section(';', 0, 0);
  const QString suffix = pattern.section("*.", 1, 1);
  return suffix == "*" ? QString() : suffix;
}

/// Buttons as in the program's own dialogs. Beside an icon a text that is read from the right would be cut off.
void DropIcons(const QWidget& dialog) {
  for (auto* button : dialog.findChildren<QPushButton*>()) button->setIcon({});
}

QString FolderPath(TextView folder) { return QFile::decodeName(QByteArray::fromStdString(ToUtf8(folder))); }

}  // namespace

QWidget* BoxOwner() {
  QWidget* active = QApplication::activeWindow();
  if (active != nullptr) return active;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible()) return window;
  }
  return nullptr;
}

Text PickedPath(const QString& path) { return FromUtf8(QFile::encodeName(path).toStdString()); }

BoxAnswer QtMessages::Show(const MessageBox& box) {
  QMessageBox shown(IconOf(box.icon), ToQt(box.title.empty() ? kProductName : TextView(box.title)),
                    ToQt(ReplaceAll(box.text, kLineEnd, u"\n")), ButtonsOf(box.buttons), BoxOwner());
  shown.setTextFormat(Qt::PlainText);
  shown.setObjectName("messageBox");
  for (const auto& [kind, message] : kBoxButtons) {
    QAbstractButton* button = shown.button(kind);
    if (button != nullptr && strings_ != nullptr && !(*strings_)[message].empty()) {
      button->setText(ToQt((*strings_)[message]));
    }
  }
  DropIcons(shown);
  shown.setEscapeButton(HarmlessOf(box.buttons));
  if (box.noIsDefault) shown.setDefaultButton(QMessageBox::No);
  switch (shown.exec()) {
    case QMessageBox::Yes:
      return BoxAnswer::Yes;
    case QMessageBox::No:
      return BoxAnswer::No;
    case QMessageBox::Ok:
      return BoxAnswer::Ok;
    default:
      return box.buttons == BoxButtons::Ok      ? BoxAnswer::Ok
             : box.buttons == BoxButtons::YesNo ? BoxAnswer::No
                                                : BoxAnswer::Cancel;
  }
}

Text QtMessages::Ask(const InputBox& box) {
  QInputDialog dialog(BoxOwner());
  dialog.setObjectName("inputBox");
  dialog.setWindowTitle(ToQt(box.title.empty() ? kProductName : TextView(box.title)));
  dialog.setLabelText(ToQt(box.prompt));
  dialog.setTextValue(ToQt(box.initial));
  if (strings_ != nullptr && !(*strings_)[Message::Ok].empty()) dialog.setOkButtonText(ToQt((*strings_)[Message::Ok]));
  if (strings_ != nullptr && !(*strings_)[Message::Cancel].empty()) {
    dialog.setCancelButtonText(ToQt((*strings_)[Message::Cancel]));
  }
  DropIcons(dialog);
  dialog.resize(420, dialog.sizeHint().height());
  return dialog.exec() == QDialog::Accepted ? FromQt(dialog.textValue()) : Text();
}

Text QtFileDialogs::ShowOpenDialog(TextView title, TextView filter, TextView folder) {
  return PickedPath(QFileDialog::getOpenFileName(BoxOwner(), ToQt(title), FolderPath(folder), PickerFilter(filter)));
}

Text QtFileDialogs::ShowSaveDialog(TextView title, TextView filter, TextView folder, TextView proposal) {
  // A proposal may be a whole path. Its bytes are decoded as the picker's own names are.
  const Text start = proposal.starts_with(u'/') ? Text(proposal) : WithSlash(folder) + Text(proposal);
  QFileDialog dialog(BoxOwner(), ToQt(title), QString(), PickerFilter(filter));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  // The question before a file is replaced is then about the file that will be written.
  dialog.setDefaultSuffix(FirstSuffix(filter));
  const QFileInfo place(FolderPath(start));
  dialog.setDirectory(place.path());
  if (!start.ends_with(u'/')) dialog.selectFile(place.fileName());
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  return PickedPath(dialog.selectedFiles().constFirst());
}

QtEventQueue::QtEventQueue() { clock_.start(); }

void QtEventQueue::Yield() {
  // Long work yields thousands of times a second; the window needs no more than the eye and the hand do.
  if (clock_.elapsed() - yieldedAt_ < kYieldEveryMs) return;
  QCoreApplication::processEvents();
  yieldedAt_ = clock_.elapsed();
}

void QtEventQueue::YieldToPainting() { QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents); }

void QtEventQueue::WaitMs(int ms) {
  QEventLoop loop;
  QTimer::singleShot(ms, Qt::PreciseTimer, &loop, &QEventLoop::quit);
  loop.exec();
}

std::int64_t QtEventQueue::NowMs() const { return clock_.elapsed(); }

bool QtDesktop::ShellOpen(TextView target) {
  const QString text = ToQt(target);
  const bool isFile = text.startsWith('/');
  return QDesktopServices::openUrl(isFile ? QUrl::fromLocalFile(text) : QUrl(text));
}

bool QtDesktop::OpenRegionalSettings() {
  // Each desktop has a panel of its own; the first that is installed is the one in use.
  const std::pair<const char*, QStringList> panels[] = {{"gnome-control-center", {"region"}},
                                                        {"systemsettings", {"kcm_regionandlang"}},
                                                        {"systemsettings5", {"kcm_regionandlang"}},
                                                        {"cinnamon-settings", {"region"}},
                                                        {"mate-control-center", {}},
                                                        {"xfce4-settings-manager", {}},
                                                        {"lxqt-config-locale", {}}};
  for (const auto& [program, arguments] : panels) {
    if (!QStandardPaths::findExecutable(program).isEmpty()) return QProcess::startDetached(program, arguments);
  }
  return false;
}

bool QtDesktop::ClipboardHasText() const {
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  return data != nullptr && data->hasText();
}

Text QtDesktop::ClipboardText() const { return FromQt(QGuiApplication::clipboard()->text()); }

std::string QtDesktop::ClipboardCaptions() const {
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  return data == nullptr ? std::string() : data->data(kCaptionsType).toStdString();
}

void QtDesktop::PutOnClipboard(TextView text, const std::string& captions) {
  auto* data = new QMimeData;
  data->setText(ToQt(text));
  data->setData(kCaptionsType, QByteArray::fromStdString(captions));
  QGuiApplication::clipboard()->setMimeData(data);
}

void QtDesktop::SetBusy(bool busy) {
  if (busy == busy_) return;
  busy_ = busy;
  if (busy) {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QGuiApplication::restoreOverrideCursor();
  }
}

}  // namespace cuewright
