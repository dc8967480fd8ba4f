// How punctually a free-running turn from the sound card ends its readings, beside a bare loop that only
// sleeps to the same deadlines, turn and loop in alternation, first idle, then with the other core busy.
// Prints one line per case: name, p50, p99 and maximum lateness in milliseconds.

#include <sched.h>
#include <time.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <thread>
#include <vector>

#include "acquisition/CollectionRig.h"
#include "acquisition/qt/SystemClock.h"
#include "acquisition/run/ChosenInput.h"

namespace lobegraph {
namespace {

constexpr int kTurns = 5;
constexpr int kSecondsPerTurn = 9;  // 25 ms a reading, exactly
constexpr std::int64_t kIntervalNs = 25'000'000;
constexpr int kReadings = 360;

std::int64_t NowNs() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return now.tv_sec * 1'000'000'000LL + now.tv_nsec;
}

/// End of each reading against start + k x interval; the start is taken from the earliest end, so a constant
/// offset of the clock's tick does not count as lateness.
std::vector<double> Lateness(const std::vector<std::int64_t>& ends) {
  std::int64_t start = ends.front() - kIntervalNs;
  for (std::size_t k = 0; k < ends.size(); ++k)
    start = std::min(start, ends[k] - static_cast<std::int64_t>(k + 1) * kIntervalNs);
  std::vector<double> late;
  for (std::size_t k = 0; k < ends.size(); ++k)
    late.push_back(static_cast<double>(ends[k] - start - static_cast<std::int64_t>(k + 1) * kIntervalNs) /
                   1e6);
  return late;
}

std::vector<double> BareLoop() {
  std::vector<std::int64_t> ends;
  const std::int64_t start = NowNs();
  for (int k = 1; k <= kReadings; ++k) {
    const std::int64_t due = start + k * kIntervalNs;
    const timespec until{static_cast<time_t>(due / 1'000'000'000), static_cast<long>(due % 1'000'000'000)};
    clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &until, nullptr);
    ends.push_back(NowNs());
  }
  return Lateness(ends);
}

std::vector<double> Turn() {
  CollectionRig rig;
  SystemClock clock;
  SoundLevelState sound{.SoundLevel = 300.F};
  SoundThresholds thresholds;
  dBMeter meter(rig.Meter, rig.Settings, rig.MeterForm, clock);
  ExternalMeter program(rig.Store, meter, rig.Meter, rig.MeterForm, clock);
  rig.Settings.PeakInputLevel = 1000.F;
  rig.Panel.RotationSeconds = kSecondsPerTurn;
  ChosenInput input(
      {rig.Settings, rig.Flags, sound, thresholds, rig.Meter, program, rig.Pump, clock, rig.Front().Tell});
  const CollectionParts parts{clock,
                              rig.Pump,
                              rig.Flags,
                              rig.Record,
                              [&input] { return input.ReadInputLevel(); },
                              rig.Parts.WaitForTrigger,
                              rig.Sound,
                              rig.Port,
                              rig.Meter,
                              program,
                              rig.Settings,
                              rig.Front(),
                              234.0F,
                              rig.Messages,
                              rig.Waiting};
  std::vector<std::int64_t> ends;
  rig.Panel.OnStored = [&](int) { ends.push_back(NowNs()); };
  CollectionEngine(parts).cmdCollectData_Click();
  return Lateness(ends);
}

void Print(const char* name, std::vector<double> late) {
  std::sort(late.begin(), late.end());
  const auto at = [&](double share) {
    return late[static_cast<std::size_t>(share * static_cast<double>(late.size() - 1))];
  };
  std::printf("%-28s %8.3f %8.3f %8.3f\n", name, at(0.5), at(0.99), late.back());
}

void Measure(const char* loopName, const char* turnName) {
  std::vector<double> loop;
  std::vector<double> turn;
  for (int i = 0; i < kTurns; ++i) {
    for (const double late : BareLoop()) loop.push_back(late);
    for (const double late : Turn()) turn.push_back(late);
  }
  Print(loopName, loop);
  Print(turnName, turn);
}

/// Keeps one core at work that is not this thread's.
class BusyCore {
 public:
  BusyCore()
      : thread_([this] {
          while (!stop_) volatile_ = volatile_ + 1;
        }) {}
  BusyCore(const BusyCore&) = delete;
  BusyCore& operator=(const BusyCore&) = delete;
  ~BusyCore() {
    stop_ = true;
    thread_.join();
  }

 private:
  std::atomic<bool> stop_ = false;
  volatile unsigned volatile_ = 0;
  std::thread thread_;
};

}  // namespace
}  // namespace lobegraph

int main() {
  std::printf("%-28s %8s %8s %8s\n", "lateness in ms", "p50", "p99", "max");
  lobegraph::Measure("bare loop, idle", "turn, idle");
  const lobegraph::BusyCore busy;
  lobegraph::Measure("bare loop, one core busy", "turn, one core busy");
}
