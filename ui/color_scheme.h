#pragma once

#include <QDBusMessage>
#include <QObject>
#include <QPalette>

namespace cuewright {

/// Light or dark windows after the desktop's own choice, also when it changes while the program runs. A desktop whose
/// theme brings dark colours of its own keeps them. The environment variable CUEWRIGHT_COLOR_SCHEME ("dark", "light")
/// goes before the desktop.
class ColorScheme final : public QObject {
  Q_OBJECT

 public:
  ColorScheme();

  /// Puts the application's colours to dark or back to the desktop's own.
  void Apply(bool dark);

 private slots:
  void OnSettingChanged(const QDBusMessage& message);

 private:
  void AskDesktop();
  /// No theme of the desktop has colours: the program's own light ones stand in.
  bool HasLightColors() const;

  QPalette own_;  // the desktop's
  QString ownStyle_;
  bool dark_ = false;
};

}  // namespace cuewright
