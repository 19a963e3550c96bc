#include <gtest/gtest.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QPlainTextEdit>
#include <QTimer>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <future>
#include <thread>

#include "core/runtime_error.h"
#include "platform/locale.h"
#include "tests/support/printers.h"
#include "tests/ui/dialog_fixture.h"
#include "tests/ui/web_server.h"
#include "ui/qt_web.h"
#include "ui/update_view.h"

namespace cuewright {
namespace {

using testing::WebServer;

struct WebTest : ::testing::Test {
  /// Why a page can't be had; empty when it can.
  std::string FailureOf(const Text& url) {
    try {
      body = web.Get(url);
      return {};
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.number, kErrorDeviceIo);
      EXPECT_FALSE(error.description.empty());
      return ToUtf8(error.description);
    }
  }
  std::string Failure() { return FailureOf(server.Address() + u"/a"); }

  WebServer server;
  QtWeb web{QtWeb::Limits{1000, 20000, 3}};
  std::string body;
};

TEST_F(WebTest, APageIsItsBodyAndIsAskedForOnce) {
  server.reply = [](const QByteArray&) { return WebServer::Reply("200 OK", QByteArray("a\nb\0c", 5)); };
  EXPECT_EQ(web.Get(server.Address() + u"/files/x.php?a=b&c=12"), std::string("a\nb\0c", 5));
  ASSERT_EQ(server.requests.size(), 1);
  EXPECT_TRUE(server.requests[0].startsWith("GET /files/x.php?a=b&c=12 HTTP/1.1\r\n")) << server.requests[0].data();
  EXPECT_FALSE(server.requests[0].toLower().contains("cookie"));
}

TEST_F(WebTest, ABodyUpToTheLimitIsTakenAndOneBeyondItIsNot) {
  server.reply = [](const QByteArray&) { return WebServer::Reply("200 OK", QByteArray(1000, 'x')); };
  EXPECT_EQ(Failure(), "");
  EXPECT_EQ(body.size(), 1000u);
  server.reply = [](const QByteArray&) { return WebServer::Reply("200 OK", QByteArray(1001, 'x')); };
  EXPECT_EQ(Failure(), "The reply is larger than 1000 bytes.");
}

TEST_F(WebTest, AReplyThatGoesOnWithoutAnEndIsCutOff) {
  server.reply = [](const QByteArray&) {
    return "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n" + QByteArray("800\r\n") + QByteArray(2048, 'x') +
           "\r\n";
  };
  EXPECT_EQ(Failure(), "The reply is larger than 1000 bytes.");
}

/// A server on a thread of its own that sends one reply as fast as it is taken, and counts what it got rid of.
class FastServer {
 public:
  FastServer() : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    EXPECT_EQ(::bind(socket_, reinterpret_cast<sockaddr*>(&address), size), 0);
    EXPECT_EQ(::listen(socket_, 1), 0);
    EXPECT_EQ(::getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &size), 0);
    port_ = ntohs(address.sin_port);
    thread_ = std::thread([this] { Serve(); });
  }
  ~FastServer() {
    thread_.join();
    ::close(socket_);
  }
  Text Address() const { return FromQt(QString("http://127.0.0.1:%1").arg(port_)); }
  std::size_t Sent() const { return sent_; }
  bool Asked() const { return asked_; }
  /// Lets the reply go and waits until nobody takes any more of it; false when that doesn't come in time.
  bool SendUntilNothingIsTaken() {
    begin_.set_value();
    return stuck_.get_future().wait_for(std::chrono::seconds(20)) == std::future_status::ready;
  }

 private:
  static constexpr int kNobodyTakesMs = 300;

  void Serve() {
    const int client = ::accept(socket_, nullptr, nullptr);
    asked_ = true;
    begin_.get_future().wait();
    const std::string head = "HTTP/1.1 200 OK\r\n\r\n";
    ::send(client, head.data(), head.size(), MSG_NOSIGNAL);
    const std::string block(1 << 20, 'x');
    pollfd room{client, POLLOUT, 0};
    bool stuck = false;
    while (sent_ < std::size_t{512} << 20) {
      if (!stuck && ::poll(&room, 1, kNobodyTakesMs) == 0) {
        stuck = true;
        stuck_.set_value();
      }
      const ssize_t count = ::send(client, block.data(), block.size(), MSG_NOSIGNAL | (stuck ? 0 : MSG_DONTWAIT));
      if (count <= 0 && errno != EAGAIN) break;
      if (count > 0) sent_ += static_cast<std::size_t>(count);
    }
    if (!stuck) stuck_.set_value();
    ::close(client);
  }

  int socket_;
  int port_ = 0;
  std::atomic<std::size_t> sent_ = 0;
  std::atomic<bool> asked_ = false;
  std::promise<void> begin_;
  std::promise<void> stuck_;
  std::thread thread_;
};

TEST_F(WebTest, AReplyThatComesFastTakesNoMoreThanItMayWhileTheWindowIsBusy) {
  FastServer fast;
  bool busy = false;
  // The window is busy from before the reply comes until no more of it is taken.
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, [&] {
    if (!fast.Asked()) return;
    look.stop();
    busy = fast.SendUntilNothingIsTaken();
  });
  look.start(1);
  EXPECT_EQ(FailureOf(fast.Address() + u"/a"), "The reply is larger than 1000 bytes.");
  EXPECT_TRUE(busy);
  // Besides that much there are the buffers of the system.
  EXPECT_LT(fast.Sent(), std::size_t{64} << 20);
}

TEST_F(WebTest, ALengthThatIsAnnouncedTooLargeIsNotWaitedFor) {
  server.reply = [](const QByteArray&) { return QByteArray("HTTP/1.1 200 OK\r\nContent-Length: 9999999999\r\n\r\nx"); };
  EXPECT_EQ(Failure(), "The reply is larger than 1000 bytes.");
}

TEST_F(WebTest, AServerThatSaysNothingIsLeftAfterTheTime) {
  web = QtWeb({1000, 100, 3});
  EXPECT_EQ(Failure(), "There was no whole reply within 100 ms.");
}

TEST_F(WebTest, AReplyThatDribblesIsLeftAfterTheTime) {
  web = QtWeb({1000, 100, 3});
  server.reply = [](const QByteArray&) { return QByteArray("HTTP/1.1 200 OK\r\nContent-Length: 50\r\n\r\nhalf"); };
  EXPECT_EQ(Failure(), "There was no whole reply within 100 ms.");
}

TEST_F(WebTest, ARedirectIsFollowed) {
  server.reply = [](const QByteArray& path) {
    return path == "/a" ? WebServer::Redirect("/b") : WebServer::Reply("200 OK", "there");
  };
  EXPECT_EQ(Failure(), "");
  EXPECT_EQ(body, "there");
}

TEST_F(WebTest, RedirectsInACircleEnd) {
  server.reply = [](const QByteArray&) { return WebServer::Redirect("/a"); };
  EXPECT_NE(Failure(), "");
  EXPECT_LE(server.requests.size(), 5);
}

TEST_F(WebTest, ARedirectLeadsToNoFile) {
  testing::TempFolder folder;
  folder.Write("secret", "mine");
  for (const QByteArray& target : {QByteArray("file://") + folder.Bytes("secret").c_str(), QByteArray("data:,mine"),
                                   QByteArray("ftp://127.0.0.1/x")}) {
    server.reply = [&](const QByteArray&) { return WebServer::Redirect(target); };
    EXPECT_NE(Failure(), "") << target.data();
    EXPECT_EQ(body, "");
  }
}

TEST_F(WebTest, AnAbsentPageIsNoReply) {
  for (const char* status : {"404 Not Found", "500 Internal Server Error", "403 Forbidden"}) {
    server.reply = [&](const QByteArray&) { return WebServer::Reply(status, "<html>oops</html>"); };
    EXPECT_NE(Failure(), "") << status;
  }
}

TEST_F(WebTest, AnAbsentServerIsNoReply) {
  server.Close();
  EXPECT_NE(FailureOf(server.Address() + u"/a"), "");
}

TEST_F(WebTest, ABrokenReplyIsNoReply) {
  server.reply = [](const QByteArray&) {
    return QByteArray("HTTP/1.1 200 OK\r\nContent-Length: 50\r\nConnection: close\r\n\r\nhalf");
  };
  EXPECT_NE(Failure(), "");
}

TEST_F(WebTest, OnlyAddressesOfTheWebAreAsked) {
  for (const Text& url : {Text(u"file:///etc/passwd"), Text(u"ftp://a/b"), Text(u"javascript:1"), Text(u""), Text(u"a"),
                          Text(u"http://a b/"), Text(u"data:,x")}) {
    EXPECT_NE(FailureOf(url), "") << ToUtf8(url);
  }
}

TEST_F(WebTest, AFetchCanBeGivenUp) {
  server.reply = [this](const QByteArray&) {
    QTimer::singleShot(0, qApp, [this] { web.Abort(); });
    return QByteArray();
  };
  EXPECT_NE(Failure(), "");
  web.Abort();
}

/// The toolkit's network on a system that says that it has one.
class OnlineWeb final : public Web {
 public:
  int ConnectionState() const override { return 2; }
  std::string Get(TextView url) override { return web.Get(url); }
  void Abort() override { web.Abort(); }

  QtWeb web{QtWeb::Limits{100000, 5000, 3}};
};

/// The whole way: the window, the toolkit's network, a server, the file.
struct UpdateWindowView : testing::DialogFixture {
  UpdateWindowView() {
    std::filesystem::create_directory(folder.Path() / "run");
    program->store.SaveSetting(u"Cuewright", u"UpdateSite", server.Address());
    program->strings.Set(Message::NoUpdateSite, u"none: %1");
  }
  UpdateDialog& Update() { return *form; }
  /// Shows the window, and returns when the check has ended.
  void ShowUpdate(const Version& version = {1, 2, 5}) {
    form = std::make_unique<UpdateDialog>(UpdateParts{
        program->options, program->strings, program->languages, program->folders, program->encodings, locale, online,
        Ports{files, boxes, dialogs, events, desktop, player, pickers}, program->store, u"settings", version});
    form->Open();
    Show(std::make_unique<UpdateView>(*form, nullptr));
    ASSERT_TRUE(QTest::qWaitFor([this] { return form->cmdOK.Enabled(); }));
  }
  void Serve(const QByteArray& list) {
    server.reply = [list](const QByteArray&) { return WebServer::Reply("200 OK", list); };
  }
  ~UpdateWindowView() override { view.reset(); }
  QString Log() { return Find<QPlainTextEdit>("txtStatus")->toPlainText(); }

  WebServer server;
  OnlineWeb online;
  IcuLocale locale;
  std::unique_ptr<UpdateDialog> form;
};

TEST_F(UpdateWindowView, EveryControlHasAWidgetAndEveryNamedWidgetAControl) {
  Serve("[CUEWRITE]\nversion=1.2.6\n");
  ShowUpdate();
  ExpectBound(Update());
  ExpectNamed();
}

TEST_F(UpdateWindowView, AGoodListIsOfferedAndItsLogShown) {
  Serve("[CUEWRITE]\nversion=1.2.6\nyear=2026\nmonth=11\nday=21\n<log>\n - all new\n</log>\n");
  ShowUpdate();
  EXPECT_TRUE(server.requests[0].startsWith("GET /files/updates.php?idprod=qxm&version=125 "));
  EXPECT_TRUE(Log().contains("*** New version 1.2.6 now available!\n*** Released on ")) << Log().toStdString();
  EXPECT_TRUE(Log().contains("21")) << Log().toStdString();
  EXPECT_EQ(Find<QLabel>("lblStatus")->text(), "New version 1.2.6 now available!");
  EXPECT_EQ(QApplication::focusWidget(), Find("cmdOK"));
  EXPECT_TRUE(Find<QPlainTextEdit>("txtStatus")->isReadOnly());
  auto* link = Find<QAbstractButton>("lblWhatsNew");
  ASSERT_TRUE(link->isVisible());
  QTest::keyClick(link, Qt::Key_Return);
  EXPECT_TRUE(Log().contains("Changes in version 1.2.6:\n - all new\n\nClick OK")) << Log().toStdString();
  EXPECT_FALSE(link->isEnabled());
  QTest::keyClick(Find("cmdOK"), Qt::Key_Return);
  EXPECT_FALSE(view->isVisible());
  EXPECT_EQ(desktop.opened.size(), 1u);
  EXPECT_FALSE(std::filesystem::exists(folder.Path() / "run/qxmupd.tmp"));
}

TEST_F(UpdateWindowView, AnOldListNeedsNoUpdate) {
  Serve("[CUEWRITE]\nversion=1.2.4\n");
  ShowUpdate();
  EXPECT_TRUE(Log().endsWith("You are using the latest product version. No update needed.\n")) << Log().toStdString();
  EXPECT_FALSE(Find("lblWhatsNew")->isVisible());
}

TEST_F(UpdateWindowView, GarbageHugeAndAbsentRepliesFail) {
  QByteArray garbage;
  for (int i = 0; i < 5000; ++i) garbage += static_cast<char>(i * 7919 >> 3);
  const std::pair<QByteArray, QByteArray> replies[] = {
      {"200 OK", garbage}, {"200 OK", QByteArray(200000, '[')}, {"404 Not Found", "[CUEWRITE]\nversion=9\n"}};
  for (const auto& [status, reply] : replies) {
    server.reply = [s = status, r = reply](const QByteArray&) { return WebServer::Reply(s, r); };
    ShowUpdate();
    EXPECT_TRUE(Log().contains("AutoUpdate failed, please retry later.")) << Log().toStdString();
    EXPECT_EQ(Find<QAbstractButton>("cmdOK")->text(), "Close");
    view.reset();
  }
  EXPECT_TRUE(desktop.opened.empty());
}

TEST_F(UpdateWindowView, ASlowReplyFails) {
  online.web = QtWeb({1000, 100, 3});
  server.reply = [](const QByteArray&) { return QByteArray("HTTP/1.1 200 OK\r\nContent-Length: 50\r\n\r\n[CUEW"); };
  ShowUpdate();
  EXPECT_TRUE(Log().contains("no whole reply within 100 ms")) << Log().toStdString();
}

TEST_F(UpdateWindowView, ARedirectedListIsTaken) {
  server.reply = [](const QByteArray& path) {
    return path == "/new" ? WebServer::Reply("200 OK", "[CUEWRITE]\nversion=9\n") : WebServer::Redirect("/new");
  };
  ShowUpdate();
  EXPECT_TRUE(Log().contains("*** New version 9 now available!")) << Log().toStdString();
}

TEST_F(UpdateWindowView, AnAbsentServerFails) {
  server.Close();
  ShowUpdate();
  EXPECT_TRUE(Log().contains("Error while checking for updates.\n(Error #57: ")) << Log().toStdString();
}

TEST_F(UpdateWindowView, NoTextIsCutOffInAnyLanguage) {
  Serve("[CUEWRITE]\nversion=1.2.6\n");
  for (std::size_t language = 0; language < kLanguageCount; ++language) {
    program->ChangeLanguage(language);
    ShowUpdate();
    ExpectNothingCutOff("language " + std::to_string(language) + ": ");
    view.reset();
  }
}

TEST_F(UpdateWindowView, ClosingDuringTheFetchEndsIt) {
  server.reply = [this](const QByteArray&) {
    QTimer::singleShot(0, qApp, [this] { QTest::keyClick(view.get(), Qt::Key_Escape); });
    return QByteArray();
  };
  form = std::make_unique<UpdateDialog>(UpdateParts{program->options,
                                                    program->strings,
                                                    program->languages,
                                                    program->folders,
                                                    program->encodings,
                                                    locale,
                                                    online,
                                                    Ports{files, boxes, dialogs, events, desktop, player, pickers},
                                                    program->store,
                                                    u"settings",
                                                    {}});
  form->Open();
  Show(std::make_unique<UpdateView>(*form, nullptr));
  ASSERT_TRUE(QTest::qWaitFor([this] { return !form->IsOpen(); }));
  EXPECT_FALSE(view->isVisible());
  EXPECT_TRUE(desktop.opened.empty());
}

}  // namespace
}  // namespace cuewright
