#pragma once

#include <QPushButton>
#include <cstdint>

#include "core/manner.h"

namespace cuewright {

/// A button that names the key which presses it, where the manner in force has that.
class KeyedButton final : public QPushButton {
 public:
  /// `key` is the code of a letter, A to Z, which may change.
  KeyedButton(const std::uint8_t& key, const Manner& manner, QWidget* parent);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void TellKey();
  QString KeyName() const { return QString(QChar(key_)); }

  const std::uint8_t& key_;
  const Manner& manner_;
};

}  // namespace cuewright
