// lobegraph-rotator itself, with hamlib's dummy rotator in it or behind hamlib's daemon.
#include "acquisition/process/RotatorProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/wait.h>

#include <cmath>
#include <csignal>
#include <functional>

#include "acquisition/rotator/RotatorControl.h"
#include "acquisition/rotator/RotatorFault.h"
#include "support/Rotctld.h"

namespace lobegraph {
namespace {

using Steady = std::chrono::steady_clock;
using testing::HasSubstr;

constexpr int kDummy = 1, kNetwork = 2;

double NowS() { return std::chrono::duration<double>(Steady::now().time_since_epoch()).count(); }

/// A user of the process, polled in real time.
struct User {
  RotatorProcess Process{LOBEGRAPH_ROTATOR};
  RotatorControl Control{Process};

  void Connect(int model, const std::string& port = {}) {
    Control.Connect({model, port, 0}, NowS(), 50);
    Control.Consent().Tick(true);
    Control.Consent().Answer(true);
  }
  /// Polls until it holds. @return whether it did within that time
  bool Until(const std::function<bool()>& holds, double seconds = 10) {
    const double end = NowS() + seconds;
    while (NowS() < end) {
      Control.Poll(NowS());
      if (holds()) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
  }
  bool UntilOpen() {
    return Until([&] { return Control.Open() && Control.Position(); });
  }
  double Deg() const { return Control.Position()->Deg; }
};

/// Whether it stands from that long after now on.
bool StandsWithin(const test::DaemonLine& daemon, double seconds) {
  std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
  const double there = daemon.Deg();
  std::this_thread::sleep_for(std::chrono::milliseconds(400));
  return std::abs(daemon.Deg() - there) < 0.01;
}

TEST(RotatorProcess, HamlibsDummyIsOpenedTurnedAndStopped) {
  User user;
  user.Connect(kDummy);
  ASSERT_TRUE(user.UntilOpen());
  EXPECT_EQ(user.Control.Can(), (RotatorAbilities{true, true, true, true, true, -180, 450}));
  EXPECT_EQ(user.Control.Turn(TurnSense::Right), "");
  EXPECT_TRUE(user.Until([&] { return user.Deg() > 2; }));
  user.Control.Stop();
  EXPECT_TRUE(user.Until([&] { return !user.Control.Moving(); }));
  EXPECT_EQ(user.Control.State().Words, "Stands.");
}

TEST(RotatorProcess, PositionsCarryTheTimeOfTheMonotonicClock) {
  User user;
  user.Connect(kDummy);
  ASSERT_TRUE(user.UntilOpen());
  EXPECT_NEAR(user.Control.Position()->TimeS, NowS(), 0.5);
}

TEST(RotatorProcess, ADaemonIsReachedThroughItsAddress) {
  test::Rotctld daemon;
  User user;
  user.Connect(kNetwork, daemon.Address());
  ASSERT_TRUE(user.UntilOpen());
  EXPECT_EQ(user.Control.Can().LowestDeg, -180);
  EXPECT_EQ(user.Control.Can().HighestDeg, 450);
  EXPECT_EQ(user.Control.GoToExactly(-3), "");
  EXPECT_TRUE(user.Until([&] { return user.Deg() < -2.5; }));
}

TEST(RotatorProcess, LeavingStopsTheAntennaWithoutWaiting) {
  test::Rotctld daemon;
  const test::DaemonLine line(daemon.Port);
  {
    User user;
    user.Connect(kNetwork, daemon.Address());
    ASSERT_TRUE(user.UntilOpen());
    user.Control.Turn(TurnSense::Right);
    ASSERT_TRUE(user.Until([&] { return user.Deg() > 1; }));
    const double left = NowS();
    user.Control.Disconnect();
    EXPECT_LT(NowS() - left, 0.5);
  }
  EXPECT_TRUE(StandsWithin(line, 0.5));
}

TEST(RotatorProcess, AUserThatIsKilledLeavesNoAntennaTurning) {
  test::Rotctld daemon;
  const test::DaemonLine line(daemon.Port);
  const pid_t user = fork();
  if (user == 0) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    User self;
    self.Connect(kNetwork, daemon.Address());
    self.UntilOpen();
    self.Control.Turn(TurnSense::Right);
    self.Until([] { return false; }, 60);
    _exit(0);
  }
  const double begun = NowS();
  while (line.Deg() < 2 && NowS() - begun < 10) std::this_thread::sleep_for(std::chrono::milliseconds(20));
  EXPECT_GE(line.Deg(), 2);
  kill(user, SIGKILL);
  waitpid(user, nullptr, 0);
  EXPECT_TRUE(StandsWithin(line, 1.5));
}

TEST(RotatorProcess, ItsEndBySignalStopsTheAntennaAndTheUserHearsOfIt) {
  test::Rotctld daemon;
  User user;
  user.Connect(kNetwork, daemon.Address());
  ASSERT_TRUE(user.UntilOpen());
  user.Control.Turn(TurnSense::Right);
  ASSERT_TRUE(user.Until([&] { return user.Deg() > 1; }));
  kill(user.Process.Id(), SIGTERM);
  EXPECT_TRUE(user.Until([&] { return user.Control.State().Trouble; }));
  EXPECT_TRUE(user.Until([&] { return !user.Control.Moving() && user.Control.Open(); }));
}

TEST(RotatorProcess, ItsDeathBySigkillIsMendedAndTheAntennaStopped) {
  test::Rotctld daemon;
  const test::DaemonLine line(daemon.Port);
  User user;
  user.Connect(kNetwork, daemon.Address());
  ASSERT_TRUE(user.UntilOpen());
  user.Control.Turn(TurnSense::Right);
  ASSERT_TRUE(user.Until([&] { return user.Deg() > 1; }));
  kill(user.Process.Id(), SIGKILL);
  EXPECT_TRUE(user.Until([&] { return user.Control.Open() && !user.Control.Moving(); }));
  EXPECT_TRUE(StandsWithin(line, 0));
}

TEST(RotatorProcess, ACallThatHangsIsLeftBehindAndTheAntennaStoppedByAnother) {
  test::Rotctld daemon;
  const test::DaemonLine line(daemon.Port);
  User user;
  user.Connect(kNetwork, daemon.Address());
  ASSERT_TRUE(user.UntilOpen());
  user.Control.Turn(TurnSense::Right);
  ASSERT_TRUE(user.Until([&] { return user.Deg() > 1; }));
  daemon.Signal(SIGSTOP);  // it answers nothing from now on
  EXPECT_FALSE(user.Until([&] { return user.Control.State().Trouble; }, 1.5)) << "it is patient at first";
  EXPECT_TRUE(user.Until([&] { return user.Control.State().Trouble; }, 4));
  const double left = NowS();
  user.Control.Disconnect();
  EXPECT_LT(NowS() - left, 0.5) << "nobody waits for it";
  daemon.Signal(SIGCONT);
  EXPECT_TRUE(StandsWithin(line, 2));
}

TEST(RotatorProcess, NobodyAtTheAddressIsSaidSo) {
  User user;
  user.Connect(kNetwork, "127.0.0.1:" + std::to_string(test::FreePort()));
  EXPECT_TRUE(user.Until([&] { return user.Control.State().Trouble; }));
  EXPECT_EQ(user.Control.State().Words, SentenceOf(RotatorFault::NobodyThere));
}

TEST(RotatorProcess, AModelThatThereIsNotIsSaidSo) {
  User user;
  user.Connect(99'999);
  EXPECT_TRUE(user.Until([&] { return user.Control.State().Trouble; }));
  EXPECT_EQ(user.Control.State().Words, SentenceOf(RotatorFault::UnknownModel));
}

TEST(RotatorProcess, APortThatThereIsNotIsSaidSo) {
  User user;
  user.Connect(603, "/dev/no-such-port");
  EXPECT_TRUE(user.Until([&] { return user.Control.State().Trouble; }));
  EXPECT_EQ(user.Control.State().Words, SentenceOf(RotatorFault::NobodyThere));
}

TEST(RotatorProcess, AProgramThatThereIsNotIsSaidSo) {
  RotatorProcess process("/no/such/program");
  EXPECT_FALSE(process.Start());
  RotatorControl control(process);
  control.Connect({kDummy, "", 0}, 1);
  EXPECT_EQ(control.State().Words, SentenceOf(RotatorFault::Inside));
}

TEST(RotatorProcess, AProgramIsFoundBesideThisOne) {
  EXPECT_TRUE(ProgramBesideThisOne("test_acquisition").ends_with("/test_acquisition"));
  EXPECT_EQ(ProgramBesideThisOne("no-such-program"), "");
}

}  // namespace
}  // namespace lobegraph
