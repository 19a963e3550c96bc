#include "ui/color_scheme.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QStyle>

#include "ui/joined_letters.h"

namespace cuewright {
namespace {

// The settings portal of the freedesktop.org desktops; 1 stands for dark.
constexpr char kService[] = "org.freedesktop.portal.Desktop";
constexpr char kPath[] = "/org/freedesktop/portal/desktop";
constexpr char kInterface[] = "org.freedesktop.portal.Settings";
constexpr char kGroup[] = "org.freedesktop.appearance";
constexpr char kKey[] = "color-scheme";
constexpr uint kPrefersDark = 1;

/// The value of a reply; the older call wraps it twice.
uint SchemeOf(QVariant value) {
  while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
  return value.toUInt();
}

/// The one colour that stands out, in light and dark.
constexpr QColor kAccent(0x2f, 0x6f, 0xb5);

QPalette LightPalette() {
  QPalette colors;
  const QColor window(0xf2, 0xf3, 0xf5);
  const QColor text(0x1f, 0x23, 0x28);
  const QColor faint(0x85, 0x8b, 0x94);
  colors.setColor(QPalette::Window, window);
  colors.setColor(QPalette::WindowText, text);
  colors.setColor(QPalette::Base, Qt::white);
  colors.setColor(QPalette::AlternateBase, QColor(0xf7, 0xf8, 0xfa));
  colors.setColor(QPalette::Text, text);
  colors.setColor(QPalette::PlaceholderText, faint);
  colors.setColor(QPalette::Button, QColor(0xfb, 0xfb, 0xfc));
  colors.setColor(QPalette::ButtonText, text);
  colors.setColor(QPalette::BrightText, Qt::white);
  colors.setColor(QPalette::ToolTipBase, Qt::white);
  colors.setColor(QPalette::ToolTipText, text);
  colors.setColor(QPalette::Highlight, kAccent);
  colors.setColor(QPalette::HighlightedText, Qt::white);
  colors.setColor(QPalette::Link, QColor(0x1f, 0x5f, 0xa8));
  colors.setColor(QPalette::LinkVisited, QColor(0x6a, 0x48, 0xa8));
  colors.setColor(QPalette::Light, Qt::white);
  colors.setColor(QPalette::Midlight, QColor(0xe6, 0xe8, 0xeb));
  colors.setColor(QPalette::Mid, QColor(0xc8, 0xcc, 0xd2));
  colors.setColor(QPalette::Dark, QColor(0xa3, 0xa8, 0xb0));
  colors.setColor(QPalette::Shadow, QColor(0x70, 0x75, 0x7d));
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    colors.setColor(QPalette::Disabled, role, faint);
  }
  colors.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0xc8, 0xcc, 0xd2));
  return colors;
}

QPalette DarkPalette() {
  QPalette colors;
  const QColor window(0x2b, 0x2d, 0x30);
  const QColor base(0x1e, 0x1f, 0x22);
  const QColor text(0xe4, 0xe6, 0xe9);
  const QColor faint(0x80, 0x84, 0x8b);
  colors.setColor(QPalette::Window, window);
  colors.setColor(QPalette::WindowText, text);
  colors.setColor(QPalette::Base, base);
  colors.setColor(QPalette::AlternateBase, window);
  colors.setColor(QPalette::Text, text);
  colors.setColor(QPalette::PlaceholderText, faint);
  colors.setColor(QPalette::Button, QColor(0x3a, 0x3d, 0x42));
  colors.setColor(QPalette::ButtonText, text);
  colors.setColor(QPalette::BrightText, Qt::white);
  colors.setColor(QPalette::ToolTipBase, QColor(0x45, 0x48, 0x4e));
  colors.setColor(QPalette::ToolTipText, text);
  colors.setColor(QPalette::Highlight, kAccent);
  colors.setColor(QPalette::HighlightedText, Qt::white);
  colors.setColor(QPalette::Link, QColor(0x6c, 0xb0, 0xf5));
  colors.setColor(QPalette::LinkVisited, QColor(0xb4, 0x9c, 0xe8));
  colors.setColor(QPalette::Light, QColor(0x4a, 0x4d, 0x53));
  colors.setColor(QPalette::Midlight, QColor(0x42, 0x45, 0x4a));
  colors.setColor(QPalette::Mid, QColor(0x24, 0x26, 0x29));
  colors.setColor(QPalette::Dark, QColor(0x1a, 0x1b, 0x1d));
  colors.setColor(QPalette::Shadow, Qt::black);
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    colors.setColor(QPalette::Disabled, role, faint);
  }
  colors.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0x4a, 0x4d, 0x53));
  return colors;
}

bool IsDark(const QPalette& colors) {
  return colors.color(QPalette::WindowText).lightness() > colors.color(QPalette::Window).lightness();
}

}  // namespace

ColorScheme::ColorScheme() : own_(QApplication::palette()), ownStyle_(QApplication::style()->objectName()) {
  if (HasLightColors()) QApplication::setPalette(LightPalette());
  const QByteArray wanted = qgetenv("CUEWRIGHT_COLOR_SCHEME");
  if (wanted.isEmpty()) {
    AskDesktop();
  } else {
    Apply(wanted == "dark");
  }
}

bool ColorScheme::HasLightColors() const { return ownStyle_ == "fusion" && !IsDark(own_); }

void ColorScheme::AskDesktop() {
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return;
  bus.connect(kService, kPath, kInterface, "SettingChanged", this, SLOT(OnSettingChanged(QDBusMessage)));
  QDBusMessage question = QDBusMessage::createMethodCall(kService, kPath, kInterface, "Read");
  question << QString(kGroup) << QString(kKey);
  // The window doesn't wait for the desktop's answer.
  auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* finished) {
    const QDBusPendingReply<QDBusVariant> reply = *finished;
    if (!reply.isError()) Apply(SchemeOf(reply.value().variant()) == kPrefersDark);
    finished->deleteLater();
  });
}

void ColorScheme::OnSettingChanged(const QDBusMessage& message) {
  const QVariantList values = message.arguments();
  if (values.size() == 3 && values[0] == kGroup && values[1] == kKey) Apply(SchemeOf(values[2]) == kPrefersDark);
}

void ColorScheme::Apply(bool dark) {
  if (dark == dark_ || (dark && IsDark(own_))) return;
  dark_ = dark;
  // The other styles draw their own light surfaces whatever the colours say.
  if (dark && ownStyle_ != "fusion") QApplication::setStyle(new JoinedLetters("fusion"));
  QApplication::setPalette(dark ? DarkPalette() : HasLightColors() ? LightPalette() : QPalette());
  if (!dark && ownStyle_ != "fusion") QApplication::setStyle(new JoinedLetters(ownStyle_));
}

}  // namespace cuewright
