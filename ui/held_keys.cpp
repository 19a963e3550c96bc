#include "ui/held_keys.h"

#include <xcb/xproto.h>

#include <QGuiApplication>
#include <cstdlib>
#include <memory>

namespace cuewright {

bool IsKeyStillDown(quint32 scanCode) {
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  // Key numbers begin at 8 there. Platforms without a server answer to the interface, but have no connection.
  xcb_connection_t* connection = x11 == nullptr ? nullptr : x11->connection();
  if (connection == nullptr || scanCode < 8 || scanCode > 255) return false;
  const std::unique_ptr<xcb_query_keymap_reply_t, decltype(&std::free)> keymap(
      xcb_query_keymap_reply(connection, xcb_query_keymap(connection), nullptr), &std::free);
  return keymap != nullptr && (keymap->keys[scanCode / 8] >> (scanCode % 8) & 1) != 0;
}

}  // namespace cuewright
