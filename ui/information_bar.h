#pragma once

#include <QWidget>

#include "capture/main_window.h"

class QLabel;

namespace cuewright {

/// The band `picStatus` above the list: the names of the open files, the strip of what needs no box, the product's
/// name.
class InformationBar final : public QWidget {
 public:
  explicit InformationBar(QWidget* parent);

  /// The band is on: its parts show themselves, the product's name only where it has room.
  void ShowParts(const MainWindow& form, bool logo);

 private:
  QLabel* logo_;
};

}  // namespace cuewright
