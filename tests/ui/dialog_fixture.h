#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QSet>
#include <QTest>
#include <filesystem>
#include <memory>

#include "tests/support/program_fixture.h"
#include "ui/svg_picture.h"

namespace cuewright::testing {

/// The program with one dialog of it on show, and its languages beside it.
struct DialogFixture : ProgramFixture {
  DialogFixture() {
    LoadIcons();
    program->folders.AppFolder = folder / "";
    std::filesystem::create_directory(folder.Path() / "languages");
    for (const auto& entry : std::filesystem::directory_iterator(CUEWRIGHT_SOURCE_DIR "/resources/messages")) {
      std::filesystem::copy_file(entry.path(), folder.Path() / "languages" / entry.path().filename());
    }
  }
  ~DialogFixture() override {
    view.reset();
    program.reset();
  }

  void Show(std::unique_ptr<QDialog> made) {
    view = std::move(made);
    view->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(view.get()));
    view->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
  }

  template <class Widget = QWidget>
  Widget* Find(const char* name) {
    auto* found = view->findChild<Widget*>(name);
    EXPECT_NE(found, nullptr) << name;
    return found;
  }
  int LeftOf(const char* name) { return Find(name)->mapTo(view.get(), QPoint(0, 0)).x(); }
  void PointAt(QWidget* widget) {
    QTest::mouseMove(widget, QPoint(6, widget->height() / 2));
    QCoreApplication::processEvents();
  }

  void ExpectBound(const Form& form) {
    for (const Control* control : form.Controls()) {
      // A timer is no widget.
      EXPECT_NE(view->findChild<QObject*>(QString::fromStdString(control->Name())), nullptr) << control->Name();
    }
    for (const QWidget* widget : view->findChildren<QWidget*>()) {
      const std::string name = widget->objectName().toStdString();
      if (name.empty() || name.starts_with("qt_")) continue;
      EXPECT_NE(form.Find(name), nullptr) << name;
    }
  }
  /// Every widget of a control that the keyboard reaches has something for a screen reader to say.
  void ExpectNamed() {
    for (QWidget* widget : view->findChildren<QWidget*>()) {
      const QString name = widget->objectName();
      if (widget->focusPolicy() == Qt::NoFocus || name.isEmpty() || name.startsWith("qt_")) continue;
      EXPECT_FALSE(QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name).isEmpty())
          << name.toStdString();
    }
  }
  /// Every box of choices is named by a label of its own, or has a word about what it chooses.
  void ExpectChoicesNamed() {
    QSet<const QWidget*> named;
    for (const QLabel* label : view->findChildren<QLabel*>()) named << label->buddy();
    for (const QComboBox* box : view->findChildren<QComboBox*>()) {
      EXPECT_TRUE(named.contains(box) || !box->toolTip().isEmpty()) << box->objectName().toStdString();
    }
  }
  /// No visible text has less room than it needs.
  void ExpectNothingCutOff(const std::string& where) {
    QCoreApplication::sendPostedEvents();
    for (QWidget* widget : view->findChildren<QWidget*>()) {
      if (!widget->isVisible() || widget->objectName().isEmpty() || widget->objectName().startsWith("qt_")) continue;
      const auto* label = qobject_cast<QLabel*>(widget);
      const bool wraps = label != nullptr && label->wordWrap();
      const QSize needed = wraps ? QSize(0, label->heightForWidth(label->width())) : widget->minimumSizeHint();
      const bool text = label != nullptr || qobject_cast<QAbstractButton*>(widget) != nullptr ||
                        qobject_cast<QGroupBox*>(widget) != nullptr;
      // A sample is as large as its font.
      if (!text || widget->objectName().contains("Sample")) continue;
      EXPECT_GE(widget->width(), needed.width()) << where << widget->objectName().toStdString();
      EXPECT_GE(widget->height(), needed.height()) << where << widget->objectName().toStdString();
    }
  }
  /// Names of the widgets that Tab reaches from where the focus is, once around.
  QStringList TabRound() {
    QStringList names;
    for (int i = 0; i < 200; ++i) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
      const QString name = QApplication::focusWidget()->objectName();
      if (names.contains(name)) break;
      names << name;
    }
    return names;
  }

  std::unique_ptr<QDialog> view;
};

}  // namespace cuewright::testing
