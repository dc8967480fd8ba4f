// The session itself, on a thread of the test's, at a real pair of sockets, before a device that may hang.
#include "rotator/Session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <chrono>
#include <future>
#include <thread>

#include "rotator/FakeDevice.h"

namespace lobegraph {
namespace {

using Steady = std::chrono::steady_clock;

double Since(Steady::time_point start) {
  return std::chrono::duration<double>(Steady::now() - start).count();
}

class SessionTest : public testing::Test {
 protected:
  SessionTest() {
    socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends_.data());
    ended_ = std::async(std::launch::async, [this] {
      return Session(Device, ends_[1], ends_[1], Signals_,
                     [this](const RotatorChoice& choice) {
                       Rescued = choice.Model;
                       Device.LetGo();  // the real one replaces the process
                     })
          .Run();
    });
    EXPECT_TRUE(Hear("hello 1"));
  }
  ~SessionTest() override {
    Device.LetGo();
    Device.FailIn("", std::nullopt);
    Go();
    if (ended_.valid()) ended_.wait();
    close(ends_[1]);
    close(Signals_);
  }

  void Say(const std::string& line) const {
    const std::string text = line + "\n";
    ASSERT_EQ(send(ends_[0], text.data(), text.size(), MSG_NOSIGNAL), static_cast<ssize_t>(text.size()));
  }
  /// Whether such a line comes within 5 seconds; those before it are thrown away.
  bool Hear(const std::string& beginning) {
    const auto start = Steady::now();
    while (Since(start) < 5) {
      while (const auto line = heard_.Next()) {
        last_ = *line;
        if (line->starts_with(beginning)) return true;
      }
      pollfd wanted{ends_[0], POLLIN, 0};
      if (poll(&wanted, 1, 100) <= 0) continue;
      std::array<char, 4096> bytes{};
      const ssize_t count = recv(ends_[0], bytes.data(), bytes.size(), 0);
      if (count <= 0) return false;
      heard_.Take({bytes.data(), static_cast<std::size_t>(count)});
    }
    return false;
  }
  void Open() {
    Say("open 1 1 0");
    ASSERT_TRUE(Hear("done 1"));
  }
  void Turn() {
    Say("right 2");
    ASSERT_TRUE(Hear("done 2"));
  }
  /// The user goes.
  void Go() {
    if (ends_[0] >= 0) close(ends_[0]);
    ends_[0] = -1;
  }
  bool Ended() { return ended_.wait_for(std::chrono::seconds(5)) == std::future_status::ready; }
  bool Result() { return ended_.get(); }

  test::FakeDevice Device;
  std::atomic<int> Rescued = 0;
  int Signals_ = eventfd(0, EFD_CLOEXEC);
  std::string last_;

 private:
  std::array<int, 2> ends_{};
  LineCutter heard_{kLongestRotatorLine};
  std::future<bool> ended_;
};

TEST_F(SessionTest, AnswersAndPositionsComeAsTheyAreAskedFor) {
  Open();
  Say("every 50");
  EXPECT_TRUE(Hear("position "));
  EXPECT_TRUE(Hear("position "));
  EXPECT_TRUE(last_.ends_with(" 12.500"));
  Say("every 0");
  Say("park 9");
  EXPECT_TRUE(Hear("done 9"));
}

TEST_F(SessionTest, WhatIsNoOrderIsNotObeyed) {
  Open();
  Say("right");
  Say("goto 5 nan");
  Say(std::string(100'000, 'x'));
  Say("left 6");
  EXPECT_TRUE(Hear("done 6"));
  EXPECT_EQ(Device.Count("right"), 0);
}

TEST_F(SessionTest, AUserThatGoesHasTheAntennaStopped) {
  Open();
  Turn();
  Go();
  ASSERT_TRUE(Ended());
  EXPECT_TRUE(Result());
  EXPECT_EQ(Device.Count("stop"), 1);
}

TEST_F(SessionTest, AUserThatOnlyLookedLeavesTheAntennaAlone) {
  Open();
  Go();
  ASSERT_TRUE(Ended());
  EXPECT_EQ(Device.Count("stop"), 0);
}

TEST_F(SessionTest, ASignalToEndHasTheAntennaStoppedFirst) {
  Open();
  Turn();
  eventfd_write(Signals_, 1);
  ASSERT_TRUE(Ended());
  EXPECT_EQ(Device.Count("stop"), 1);
}

TEST_F(SessionTest, AMissedHeartbeatStopsTheAntennaAfterASecond) {
  Open();
  Turn();
  const auto start = Steady::now();
  EXPECT_TRUE(Hear("stopped-itself"));
  EXPECT_GT(Since(start), 0.8);
  EXPECT_LT(Since(start), 3);
  EXPECT_EQ(Device.Count("stop"), 1);
}

TEST_F(SessionTest, AHeartbeatKeepsTheAntennaTurning) {
  Open();
  Turn();
  for (int beat = 0; beat < 8; ++beat) {
    std::this_thread::sleep_for(std::chrono::milliseconds(250));
    Say("alive");
  }
  EXPECT_EQ(Device.Count("stop"), 0);
}

TEST_F(SessionTest, WithoutAnOrderToMoveSilenceStopsNothing) {
  Open();
  std::this_thread::sleep_for(std::chrono::milliseconds(1300));
  Say("park 3");
  EXPECT_TRUE(Hear("done 3"));
  EXPECT_EQ(Device.Count("stop"), 0);
}

TEST_F(SessionTest, ACallThatLastsIsToldOf) {
  Open();
  Device.HangIn("position");
  Say("every 50");
  EXPECT_TRUE(Hear("waiting 0."));
  EXPECT_TRUE(Hear("waiting 1."));
  Device.LetGo();
  EXPECT_TRUE(Hear("position "));
}

TEST_F(SessionTest, AStopGoesBeforeMovesThatWait) {
  Open();
  Device.HangIn("position");
  Say("every 50");
  ASSERT_TRUE(Device.Await("position"));
  Say("right 2");
  Say("stop 3");
  EXPECT_TRUE(Hear("waiting"));  // both have long been heard
  Device.LetGo();
  EXPECT_TRUE(Hear("done 3"));
  EXPECT_EQ(Device.Count("right"), 0);
}

TEST_F(SessionTest, AUserThatGoesWhileACallHangsHasTheAntennaStoppedByAnother) {
  Open();
  Turn();
  Device.HangIn("position");
  Say("every 50");
  ASSERT_TRUE(Device.Await("position"));
  const auto start = Steady::now();
  Go();
  ASSERT_TRUE(Ended());
  EXPECT_EQ(Rescued, 1);
  EXPECT_LT(Since(start), 3);
}

TEST_F(SessionTest, AUserThatFallsSilentWhileACallHangsHasTheAntennaStoppedByAnother) {
  Open();
  Turn();
  Device.HangIn("position");
  Say("every 50");
  EXPECT_TRUE(Hear("stopped-itself"));
  EXPECT_EQ(Rescued, 1);
}

TEST_F(SessionTest, AStopThatFailsAtTheEndIsTriedAgain) {
  Open();
  Turn();
  Device.FailIn("stop", RotatorFault::NobodyThere);
  Go();
  ASSERT_TRUE(Device.Await("stop", 3));
  Device.FailIn("", std::nullopt);
  ASSERT_TRUE(Ended());
  EXPECT_TRUE(Result());
}

TEST_F(SessionTest, AUserThatDoesNotReadHoldsNothingUp) {
  Open();
  Say("every 1");
  ASSERT_TRUE(Device.Await("position", 1000));
  Turn();
  Go();
  ASSERT_TRUE(Ended());
  EXPECT_EQ(Device.Count("stop"), 1);
}

}  // namespace
}  // namespace lobegraph
