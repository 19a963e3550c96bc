#pragma once

#include <QByteArray>
#include <QList>
#include <QTcpServer>
#include <QTcpSocket>
#include <functional>
#include <utility>

#include "text/text.h"
#include "ui/qt_text.h"

namespace cuewright::testing {

/// A web server of this process, on the machine's own address. It answers each request with the bytes that the test
/// gives for its path, and leaves the connection open when they are no whole reply.
class WebServer {
 public:
  WebServer() {
    server_.listen(QHostAddress::LocalHost);
    QObject::connect(&server_, &QTcpServer::newConnection, [this] {
      while (QTcpSocket* socket = server_.nextPendingConnection()) Serve(*socket);
    });
  }

  /// "http://127.0.0.1:PORT".
  Text Address() const { return FromQt(QString("http://127.0.0.1:%1").arg(server_.serverPort())); }
  /// Nobody is at the address from now on.
  void Close() { server_.close(); }

  /// A whole reply of a status line and a body.
  static QByteArray Reply(const QByteArray& status, const QByteArray& body, const QByteArray& headers = {}) {
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n" + headers +
           "Connection: close\r\n\r\n" + body;
  }
  static QByteArray Redirect(const QByteArray& target) {
    return Reply("302 Found", {}, "Location: " + target + "\r\n");
  }

  std::function<QByteArray(const QByteArray& path)> reply = [](const QByteArray&) { return QByteArray(); };
  QList<QByteArray> requests;  ///< whole heads

 private:
  void Serve(QTcpSocket& socket) {
    QObject::connect(&socket, &QTcpSocket::disconnected, &socket, &QObject::deleteLater);
    QObject::connect(&socket, &QTcpSocket::readyRead, &socket, [this, &socket, head = QByteArray()]() mutable {
      head += socket.readAll();
      if (!head.endsWith("\r\n\r\n")) return;
      requests << head;
      const QByteArray path = head.split(' ').value(1);
      head.clear();
      const QByteArray bytes = reply(path);
      socket.write(bytes);
      if (bytes.contains("Connection: close\r\n")) socket.disconnectFromHost();
    });
  }

  QTcpServer server_;
};

}  // namespace cuewright::testing
