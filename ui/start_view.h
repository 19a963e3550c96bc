#pragma once

#include <QWidget>

#include "forms/start_window.h"
#include "ui/binder.h"

namespace cuewright {

/// The missing-player screen `frmStart`.
class StartView final : public QWidget {
 public:
  explicit StartView(StartWindow& form);

 private:
  StartWindow& form_;
  Binder binder_;
  Connection title_;
  Connection direction_;
};

}  // namespace cuewright
