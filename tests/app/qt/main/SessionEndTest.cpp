#include "app/qt/main/SessionEnd.h"

#include <gtest/gtest.h>

#include <QTest>
#include <csignal>

namespace lobegraph {
namespace {

using Handler = void (*)(int);

Handler HandlerOf(int number) {
  struct sigaction action {};
  sigaction(number, nullptr, &action);
  return action.sa_handler;
}

class SessionEndTest : public testing::TestWithParam<int> {};

INSTANTIATE_TEST_SUITE_P(Signals, SessionEndTest, testing::Values(SIGTERM, SIGINT, SIGHUP));

TEST_P(SessionEndTest, ASignalLeavesOnceInsideTheEventLoop) {
  int left = 0;
  const SessionEnd end([&] { ++left; });
  std::raise(GetParam());
  EXPECT_EQ(left, 0);
  QTest::qWait(20);
  EXPECT_EQ(left, 1);
  std::raise(GetParam());
  QTest::qWait(20);
  EXPECT_EQ(left, 1);
}

TEST_P(SessionEndTest, AfterwardsTheSignalEndsTheProcessAgain) {
  {
    const SessionEnd end([] {});
  }
  EXPECT_EQ(HandlerOf(GetParam()), SIG_DFL);
}

}  // namespace
}  // namespace lobegraph
