#include "acquisition/qt/SystemClock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <ctime>

#include <QObject>

#include "acquisition/qt/QtEventPump.h"

namespace lobegraph {
namespace {

using std::chrono::steady_clock;

double MsSince(steady_clock::time_point start) {
  return std::chrono::duration<double, std::milli>(steady_clock::now() - start).count();
}

TEST(SystemClockTest, StartsAt0AndGoesForwardInMilliseconds) {
  SystemClock clock;
  const auto start = steady_clock::now();
  EXPECT_LT(clock.timeGetTime(), 20);
  clock.Sleep(50);
  EXPECT_NEAR(clock.timeGetTime(), MsSince(start), 20);
}

TEST(SystemClockTest, OfAComputerThatStaysAwakeTheTimeSuspendedStandsStill) {
  SystemClock clock;
  const std::int64_t before = clock.SuspendedMs();
  clock.Sleep(50);
  EXPECT_NEAR(static_cast<double>(clock.SuspendedMs()), static_cast<double>(before), 20);
}

TEST(SystemClockTest, SleepLastsAtLeastWhatWasAsked) {
  SystemClock clock;
  const auto start = steady_clock::now();
  clock.Sleep(30);
  EXPECT_GE(MsSince(start), 30.0);
  EXPECT_LT(MsSince(start), 50.0);
}

TEST(SystemClockTest, TheNextTickIsAnotherMillisecondAndReachedAsleep) {
  SystemClock clock;
  const std::clock_t processorTime = std::clock();
  const std::int32_t start = clock.timeGetTime();
  for (int tick = 0; tick < 300; ++tick) {
    const std::int32_t before = clock.timeGetTime();
    clock.SleepToNextTick();
    ASSERT_GT(clock.timeGetTime(), before);
  }
  EXPECT_GE(clock.timeGetTime() - start, 300);
  const double busyMs = 1000.0 * static_cast<double>(std::clock() - processorTime) / CLOCKS_PER_SEC;
  EXPECT_LT(busyMs, 100.0) << "300 ticks of 1 ms must not keep the processor busy";
}

TEST(QtEventPumpTest, AYieldServesWhatWaitsInTheQueue) {
  QObject window;
  bool served = false;
  QMetaObject::invokeMethod(
      &window, [&] { served = true; }, Qt::QueuedConnection);
  EXPECT_FALSE(served);
  QtEventPump().ProcessPendingEvents();
  EXPECT_TRUE(served);
}

}  // namespace
}  // namespace lobegraph
