#pragma once

#include <QBoxLayout>
#include <QWidget>

#include "capture/main_window.h"

class QBoxLayout;
class QLabel;

namespace cuewright {

class Binder;

/// The band `picStatus` above the list: the names of the open files, the strip of what needs no box, the product's
/// name.
class InformationBar final : public QWidget {
 public:
  InformationBar(MainWindow& form, Binder& binder, QWidget* parent);

  /// The band is on: its parts show themselves, the product's name only where it has room. As a line it has the names
  /// of both files beside each other.
  void ShowParts(bool logo, bool line);

 private:
  void AddNotice(QBoxLayout& row);

  MainWindow& form_;
  Binder& binder_;
  QBoxLayout* files_;
  QWidget* icon_;
  QLabel* logo_;
};

}  // namespace cuewright
