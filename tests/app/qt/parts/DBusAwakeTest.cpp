// The desktop kept awake, on machines that have none of it.
#include "app/qt/parts/DBusAwake.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTest>

namespace lobegraph {
namespace {

TEST(DBusAwakeTest, TurnsLeaveNothingBehindWhereABusIsMissing) {
  DBusAwake awake;
  for (int turn = 0; turn < 20; ++turn) {
    awake.Begin();
    awake.End();
  }
  const auto everyAnswerIsHere = [&] {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return awake.children().isEmpty();
  };
  EXPECT_TRUE(QTest::qWaitFor(everyAnswerIsHere, 5000)) << awake.children().size() << " wait for ever";
}

}  // namespace
}  // namespace lobegraph
