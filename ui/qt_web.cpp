#include "ui/qt_web.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkInterface>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <QUrl>

#include "core/product.h"
#include "ui/qt_text.h"

namespace cuewright {
namespace {

constexpr int kConnectedByNetwork = 2;

[[noreturn]] void Fail(const QString& why) { throw RuntimeError{kErrorDeviceIo, FromQt(why)}; }

QNetworkRequest PlainRequest(const QUrl& url, int redirects) {
  QNetworkRequest request(url);
  request.setHeader(QNetworkRequest::UserAgentHeader, "tessaly-cuewright/" + ToQt(VersionText()));
  // A compressed reply could become any size.
  request.setRawHeader("Accept-Encoding", "identity");
  request.setRawHeader("Cache-Control", "no-cache");
  request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
  request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
  request.setMaximumRedirectsAllowed(redirects);
  return request;
}

}  // namespace

int QtWeb::ConnectionState() const {
  for (const QNetworkInterface& network : QNetworkInterface::allInterfaces()) {
    const auto flags = network.flags();
    const bool up = flags.testFlag(QNetworkInterface::IsUp) && flags.testFlag(QNetworkInterface::IsRunning);
    if (up && !flags.testFlag(QNetworkInterface::IsLoopBack) && !network.addressEntries().isEmpty()) {
      return kConnectedByNetwork;
    }
  }
  return kConnectionOffline;
}

std::string QtWeb::Get(TextView url) {
  const QUrl address(ToQt(url), QUrl::StrictMode);
  if (!address.isValid() || (address.scheme() != "http" && address.scheme() != "https")) {
    Fail(QString("Not an address of the web: %1").arg(ToQt(url)));
  }
  QNetworkAccessManager manager;
  manager.setAutoDeleteReplies(false);
  const std::unique_ptr<QNetworkReply> reply(manager.get(PlainRequest(address, limits_.redirects)));
  reply_ = reply.get();
  // The buffer is limited: a large reply waits at the sender instead of filling the memory.
  reply->setReadBufferSize(static_cast<qint64>(limits_.bytes) + 1);
  QEventLoop loop;
  QString why;
  std::string body;
  const auto giveUp = [&](const QString& reason) {
    if (why.isEmpty()) why = reason;
    reply->abort();
  };
  const QString tooLarge = QString("The reply is larger than %1 bytes.").arg(limits_.bytes);
  QObject::connect(reply.get(), &QNetworkReply::metaDataChanged, &loop, [&] {
    const qulonglong announced = reply->header(QNetworkRequest::ContentLengthHeader).toULongLong();
    if (announced > limits_.bytes) giveUp(tooLarge);
  });
  QObject::connect(reply.get(), &QNetworkReply::readyRead, &loop, [&] {
    body += reply->readAll().toStdString();
    if (body.size() > limits_.bytes) giveUp(tooLarge);
  });
  QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
  QTimer::singleShot(limits_.ms, &loop,
                     [&] { giveUp(QString("There was no whole reply within %1 ms.").arg(limits_.ms)); });
  if (!reply->isFinished()) loop.exec();
  if (reply->isOpen()) body += reply->readAll().toStdString();
  if (why.isEmpty() && body.size() > limits_.bytes) why = tooLarge;
  if (why.isEmpty() && reply->error() != QNetworkReply::NoError) why = reply->errorString();
  if (!why.isEmpty()) Fail(why);
  return body;
}

void QtWeb::Abort() {
  if (reply_ != nullptr) reply_->abort();
}

}  // namespace cuewright
