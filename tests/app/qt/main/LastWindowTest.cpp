#include "app/qt/main/LastWindow.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTimer>
#include <QWidget>

namespace lobegraph {
namespace {

/// Runs the event loop; whether it was ended by the program and not by the test's patience.
bool EndsBy(const std::function<void()>& action) {
  constexpr int kGivenUp = 99;
  constexpr int kPatienceMs = 5000;
  QTimer::singleShot(0, action);
  QTimer patience;
  QObject::connect(&patience, &QTimer::timeout, [] { QCoreApplication::exit(kGivenUp); });
  patience.start(kPatienceMs);
  const int code = QApplication::exec();
  QApplication::setQuitOnLastWindowClosed(false);
  return code == 0;
}

TEST(LastWindowTest, WithoutAWindowTheProgramEndsAtOnce) {
  QApplication::setQuitOnLastWindowClosed(false);
  EXPECT_TRUE(EndsBy([] { EndWithLastWindow(); }));
}

TEST(LastWindowTest, AWindowThatIsLeftKeepsTheProgramUntilItIsClosed) {
  QApplication::setQuitOnLastWindowClosed(false);
  QWidget meter;
  meter.show();
  bool stayed = false;
  EXPECT_TRUE(EndsBy([&] {
    EndWithLastWindow();
    QTimer::singleShot(50, [&] {
      stayed = true;
      meter.close();
    });
  }));
  EXPECT_TRUE(stayed);
}

}  // namespace
}  // namespace lobegraph
