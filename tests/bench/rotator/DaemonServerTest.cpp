// The server at a real socket, asked by hand and by hamlib's own program for its NET model.
#include "bench/rotator/DaemonServer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <sstream>

#include "bench/rotator/Follower.h"
#include "support/Rotctld.h"
#include "support/TemporaryFolder.h"

namespace lobegraph {
namespace {

using testing::HasSubstr;

constexpr MotorSettings kWide{.DegPerS = 90, .LowestDeg = -180, .HighestDeg = 450};

TEST(HostAndPort, IsAPortOrAHostWithOne) {
  EXPECT_EQ(ReadHostAndPort("4533").Host, "127.0.0.1");
  EXPECT_EQ(ReadHostAndPort("4533").Port, 4533);
  EXPECT_EQ(ReadHostAndPort("mast.local:4600").Host, "mast.local");
  EXPECT_EQ(ReadHostAndPort("[::1]:4600").Host, "::1");
  for (const char* text : {"", ":", ":4533", "0", "65536", "host", "host:", "host:x", "1 2", "-5", "999999"})
    EXPECT_THROW(ReadHostAndPort(text), std::invalid_argument) << text;
}

TEST(DaemonServer, ServesSeveralClients) {
  const int port = test::FreePort();
  DaemonServer server({"127.0.0.1", port}, kWide, {.ResolutionDeg = 0.01});
  const test::DaemonLine one(port), two(port);
  EXPECT_EQ(one.Ask("p", 2), "0.00\n0.00\n");
  EXPECT_EQ(two.Ask("P 45 0"), "RPRT 0\n");
  while (std::abs(one.Deg() - 45) > 0.01) std::this_thread::sleep_for(std::chrono::milliseconds(10));
  EXPECT_NEAR(server.DegAt(MonotonicS()), 45, 0.01);
}

TEST(DaemonServer, LinesMayBeTornAndEndAsTheyLike) {
  const int port = test::FreePort();
  DaemonServer server({"127.0.0.1", port}, kWide, {});
  const test::DaemonLine line(port);
  EXPECT_EQ(line.Ask("p\r\n_", 3), "0.00\n0.00\nlobegraph-bench\n");
  const test::DaemonLine leaves(port);
  EXPECT_EQ(leaves.Ask("q"), "");
  EXPECT_EQ(line.Ask("p", 2), "0.00\n0.00\n") << "the others stay";
  const test::DaemonLine endless(port);
  EXPECT_EQ(endless.Ask(std::string(10'000, 'x')), "") << "put out";
  EXPECT_EQ(line.Ask("p", 2), "0.00\n0.00\n");
}

TEST(DaemonServer, AnAnswerMayTakeItsTime) {
  const int port = test::FreePort();
  DaemonServer server({"127.0.0.1", port}, kWide, {.AnswersLateS = 0.3});
  const test::DaemonLine line(port);
  const double asked = MonotonicS();
  EXPECT_EQ(line.Ask("p", 2), "0.00\n0.00\n");
  EXPECT_GE(MonotonicS() - asked, 0.29);
}

TEST(DaemonServer, APlaceThatIsTakenIsRefused) {
  const int port = test::FreePort();
  DaemonServer server({"127.0.0.1", port}, kWide, {});
  EXPECT_THROW(DaemonServer({"127.0.0.1", port}, kWide, {}), std::runtime_error);
  EXPECT_THROW(DaemonServer({"no such host", port}, kWide, {}), std::runtime_error);
}

TEST(DaemonServer, HamlibsOwnNetModelDrivesIt) {
  const int port = test::FreePort();
  DaemonServer server({"127.0.0.1", port}, kWide, {.ResolutionDeg = 0.1});
  TemporaryFolder folder;
  const auto rotctl = [&](std::vector<std::string> command) {
    std::vector<std::string> arguments{"rotctl", "-m", "2", "-r", "127.0.0.1:" + std::to_string(port)};
    arguments.insert(arguments.end(), command.begin(), command.end());
    EXPECT_EQ(test::ChildProcess(arguments, folder.File("said")).Wait(), 0);
    std::ostringstream said;
    said << std::ifstream(folder.File("said")).rdbuf();
    return said.str();
  };
  EXPECT_THAT(rotctl({"p"}), HasSubstr("0.00"));
  rotctl({"P", "30", "0"});
  while (std::abs(server.DegAt(MonotonicS()) - 30) > 0.01)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  EXPECT_THAT(rotctl({"p"}), HasSubstr("30.00"));
  rotctl({"M", "8", "20"});
  while (server.DegAt(MonotonicS()) > 0) std::this_thread::sleep_for(std::chrono::milliseconds(5));
  rotctl({"S"});
  rotctl({"K"});
  while (std::abs(server.DegAt(MonotonicS())) > 0.01)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  EXPECT_THAT(rotctl({"_"}), HasSubstr("lobegraph-bench"));
}

TEST(Follower, IsWhereTheOtherDaemonsAntennaIs) {
  const int port = test::FreePort();
  DaemonServer server({"127.0.0.1", port}, kWide, {.ResolutionDeg = 0.01});
  const Follower follower({"127.0.0.1", port});
  const test::DaemonLine line(port);
  line.Ask("P 60 0");
  double most = 0;
  const double until = MonotonicS() + 0.8;
  while (MonotonicS() < until) {
    const double now = MonotonicS();
    most = std::max(most, std::abs(follower.DegAt(now) - server.DegAt(now)));
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  EXPECT_LT(most, 20) << "90 degrees a second, asked 40 times a second";
  while (std::abs(follower.DegAt(MonotonicS()) - 60) > 0.02)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
}

TEST(Follower, NobodyThereIsSaidSo) {
  EXPECT_THROW(Follower({"127.0.0.1", test::FreePort()}), std::runtime_error);
}

TEST(Follower, ADaemonThatComesBackIsFollowedAgain) {
  const int port = test::FreePort();
  std::optional<DaemonServer> server;
  server.emplace(HostAndPort{"127.0.0.1", port}, kWide, DaemonSettings{});
  const Follower follower({"127.0.0.1", port});
  server.reset();
  MotorSettings elsewhere = kWide;
  elsewhere.StartDeg = 77;
  server.emplace(HostAndPort{"127.0.0.1", port}, elsewhere, DaemonSettings{});
  const double until = MonotonicS() + 5;
  while (std::abs(follower.DegAt(MonotonicS()) - 77) > 0.1 && MonotonicS() < until)
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  EXPECT_NEAR(follower.DegAt(MonotonicS()), 77, 0.1);
}

}  // namespace
}  // namespace lobegraph
