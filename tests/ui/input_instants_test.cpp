#include "ui/input_instants.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>
#include <chrono>

namespace cuewright {
namespace {

constexpr double kHalf = 0.0005;  // what stamps lose by being whole ms, on average

double SteadyNow() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

TEST(InstantOfStamp, IsTheStampsOwnTimeHoweverLateItComes) {
  EXPECT_NEAR(*InstantOfStamp(5'000'000, 5000.0104), 5000 + kHalf, 1e-9);
  EXPECT_NEAR(*InstantOfStamp(5'000'000, 5000.2), 5000 + kHalf, 1e-9);
  EXPECT_NEAR(*InstantOfStamp(5'000'000, 5009.9), 5000 + kHalf, 1e-9);
}

TEST(InstantOfStamp, IsNeverLaterThanNow) {
  EXPECT_EQ(*InstantOfStamp(5'000'000, 5000.0001), 5000.0001);
  EXPECT_EQ(*InstantOfStamp(5'000'050, 5000), 5000);
}

TEST(InstantOfStamp, OfAnotherClockIsNow) {
  EXPECT_EQ(*InstantOfStamp(5'000'000, 5010.1), 5010.1);
  EXPECT_EQ(*InstantOfStamp(5'000'200, 5000), 5000);
  EXPECT_EQ(*InstantOfStamp(1, 5000), 5000);
}

TEST(InstantOfStamp, GoesOnWhereThirtyTwoBitsBeginAnew) {
  const double turn = 4294967.296;  // seconds
  EXPECT_NEAR(*InstantOfStamp(4'294'967'290, turn + 0.054), turn - 0.006 + kHalf, 1e-6);
  EXPECT_NEAR(*InstantOfStamp(44, turn + 0.054), turn + 0.044 + kHalf, 1e-6);
}

TEST(InstantOfStamp, IsUnknownWithoutAStamp) { EXPECT_EQ(InstantOfStamp(0, 5000), std::nullopt); }

/// Notes what the form knows while the widget handles a key.
class Listener : public QWidget {
 public:
  explicit Listener(const MainWindow& form) : form_(form) {}
  std::optional<double> seen;

 protected:
  void keyPressEvent(QKeyEvent* /*event*/) override { seen = form_.inputInstant; }

 private:
  const MainWindow& form_;
};

TEST(InputInstantsOfAWindow, AreKnownWhileTheEventIsHandledAndGoneBehindIt) {
  MainWindow form;
  Listener listener(form);
  const InputInstants instants(form);
  const double now = SteadyNow();
  QKeyEvent press(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
  press.setTimestamp(static_cast<quint64>((now - 0.15) * 1000));
  QCoreApplication::sendEvent(&listener, &press);
  ASSERT_TRUE(listener.seen);
  EXPECT_NEAR(*listener.seen, now - 0.15, 0.002);
  QCoreApplication::processEvents();
  EXPECT_EQ(form.inputInstant, std::nullopt);
}

}  // namespace
}  // namespace cuewright
