// Publishing from a daemon that the test plays, on a socket of this computer.
#include "meter/RadioMeter.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <sstream>
#include <thread>

#include "data/calibration/CalibrationText.h"
#include "support/RecordingStore.h"

namespace lobegraph {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;

/// Answers each question with what the test says; says nothing for an empty answer.
class Daemon {
 public:
  explicit Daemon(std::function<std::string()> answer, int port = 0) : answer_(std::move(answer)) {
    listener_ = socket(AF_INET, SOCK_STREAM, 0);
    const int yes = 1;
    setsockopt(listener_, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    socklen_t size = sizeof address;
    if (bind(listener_, reinterpret_cast<sockaddr*>(&address), size) != 0) throw std::runtime_error("bind");
    listen(listener_, 1);
    getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size);
    Port = ntohs(address.sin_port);
    thread_ = std::thread([this] { Serve(); });
  }
  ~Daemon() {
    shutdown(listener_, SHUT_RDWR);
    if (client_ >= 0) shutdown(client_, SHUT_RDWR);
    thread_.join();
    close(listener_);
  }
  int Port = 0;
  std::atomic<int> Asked = 0;

 private:
  void Serve() {
    while ((client_ = accept(listener_, nullptr, nullptr)) >= 0) {
      char question[256];
      while (true) {
        const ssize_t count = recv(client_, question, sizeof question, 0);
        if (count <= 0) break;
        EXPECT_EQ(std::string(question, static_cast<std::size_t>(count)), "l STRENGTH\n");
        ++Asked;
        const std::string answer = answer_();
        if (!answer.empty()) send(client_, answer.data(), answer.size(), MSG_NOSIGNAL);
      }
      close(client_);
    }
  }
  std::function<std::string()> answer_;
  int listener_ = -1;
  std::atomic<int> client_ = -1;
  std::thread thread_;
};

struct Rig {
  MeterOptions Options;
  RecordingStore Store;
  std::ostringstream Shown;
  explicit Rig(int port) {
    Options.Port = port;
    Options.IntervalMs = 1;
    Options.LimitMs = 100;
    Options.ReferenceDb = 40;
  }
  /// Runs until done() holds, five seconds at most.
  void Run(const std::function<bool()>& done, const std::string& calibration = "") {
    const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    RadioMeter(Options, *ReadCalibration(calibration).Outcome.Table, Store, Shown, [&] {
      return done() || std::chrono::steady_clock::now() > until;
    }).Run();
  }
  std::string Reading() const { return Value("Reading"); }
  std::string Active() const { return Value("Active"); }
  std::string Value(const std::string& key) const {
    const auto found = Store.Values.find("GaugeBridge/Settings/" + key);
    return found == Store.Values.end() ? "" : found->second;
  }
};

TEST(RadioMeter, PublishesWhatTheRadioReportsAndClearsActiveWhenItEnds) {
  Daemon daemon([] { return "25\n"; });
  Rig rig(daemon.Port);
  std::string active;
  rig.Run([&] {
    active = rig.Active();
    return daemon.Asked >= 5;
  });
  EXPECT_EQ(rig.Reading(), "-20.00");
  EXPECT_EQ(active, "Y");
  EXPECT_EQ(rig.Active(), "N");
  EXPECT_THAT(rig.Shown.str(), HasSubstr("S9 25 dB (-48 dBm), published -20.00"));
}

TEST(RadioMeter, AppliesTheCalibrationToReadingAndReference) {
  Daemon daemon([] { return "20\n"; });
  Rig rig(daemon.Port);
  rig.Run([&] { return daemon.Asked >= 3; }, "20 10\n40 50\n");
  EXPECT_EQ(rig.Reading(), "-45.00");
}

TEST(RadioMeter, WithoutAReferenceTheFirstTurnFindsTheStrongest) {
  std::atomic<int> count = 0;
  Daemon daemon([&] { return ++count == 10 ? "33\n" : "13\n"; });
  Rig rig(daemon.Port);
  rig.Options.ReferenceDb.reset();
  rig.Options.FindSeconds = 0.3;
  rig.Run([&] { return !rig.Reading().empty(); });
  EXPECT_EQ(rig.Reading(), "-25.00");
  EXPECT_THAT(rig.Shown.str(), HasSubstr("the strongest is S9 33.0 dB"));
}

TEST(RadioMeter, NothingCountsAsPublishedWhileTheStrongestIsLookedFor) {
  Daemon daemon([] { return "13\n"; });
  Rig rig(daemon.Port);
  rig.Options.ReferenceDb.reset();
  rig.Run([&] { return daemon.Asked >= 5; });
  EXPECT_EQ(rig.Active(), "N");
}

TEST(RadioMeter, ADaemonThatComesBackIsAskedAgain) {
  auto daemon = std::make_unique<Daemon>([] { return "25\n"; });
  const int port = daemon->Port;
  Rig rig(port);
  bool wentAway = false;
  rig.Run([&] {
    if (!wentAway && daemon->Asked >= 3) {
      wentAway = true;
      daemon.reset();
    } else if (wentAway && !daemon && rig.Active() == "N") {
      daemon = std::make_unique<Daemon>([] { return "30\n"; }, port);
    }
    return rig.Reading() == "-15.00";
  });
  EXPECT_EQ(rig.Reading(), "-15.00");
  const auto& log = rig.Store.Log;
  const auto retracted = std::find(log.begin(), log.end(), "save GaugeBridge/Settings/Active=N");
  EXPECT_THAT(std::vector<std::string>(log.begin(), retracted),
              Contains("save GaugeBridge/Settings/Active=Y"));
  EXPECT_THAT(std::vector<std::string>(retracted, log.end()), Contains("save GaugeBridge/Settings/Active=Y"));
}

TEST(RadioMeter, AnAnswerThatNeverComesIsGivenUpWithinTheLimit) {
  Daemon daemon([] { return ""; });
  Rig rig(daemon.Port);
  rig.Run([&] { return rig.Shown.str().find("no answer") != std::string::npos; });
  EXPECT_THAT(rig.Shown.str(), HasSubstr("no answer within 100 ms"));
  EXPECT_EQ(rig.Active(), "N");
}

TEST(RadioMeter, ARadioWithoutAStrengthIsSaidOnceAndRetracted) {
  Daemon daemon([] { return "RPRT -11\n"; });
  Rig rig(daemon.Port);
  rig.Run([&] { return daemon.Asked >= 10; });
  const std::string shown = rig.Shown.str();
  EXPECT_THAT(shown, HasSubstr("does not tell its signal strength (RPRT -11)"));
  EXPECT_EQ(shown.find("does not tell"), shown.rfind("does not tell"));
  EXPECT_THAT(rig.Store.Log, Not(Contains("save GaugeBridge/Settings/Active=Y")));
}

TEST(RadioMeter, WhatCouldNotBePublishedIsNotSaidToBe) {
  Daemon daemon([] { return "25\n"; });
  Rig rig(daemon.Port);
  rig.Store.FailsToSave = true;
  rig.Run([&] {
    if (daemon.Asked >= 5) rig.Store.FailsToSave = false;  // there is room again at the end
    return daemon.Asked >= 5;
  });
  EXPECT_EQ(rig.Shown.str().find("published -20"), std::string::npos) << rig.Shown.str();
  EXPECT_THAT(rig.Shown.str(), HasSubstr("not published: the store cannot be written now"));
}

TEST(RadioMeter, ARetractionIsTriedAgainBeforeTheEndIsSaid) {
  Daemon daemon([] { return "25\n"; });
  Rig rig(daemon.Port);
  rig.Store.FailsFor = 0;
  rig.Run([&] {
    if (daemon.Asked < 5) return false;
    rig.Store.FailsFor = 3;
    return true;
  });
  EXPECT_EQ(rig.Active(), "N");
  EXPECT_THAT(rig.Shown.str(), HasSubstr("ended; nothing is published any more"));
}

TEST(RadioMeter, AnAnswerReachesTheTerminalAsPrintableText) {
  Daemon daemon([] {
    return "\x1B]0;mine\x07\x9B"
           "2J\n";
  });
  Rig rig(daemon.Port);
  rig.Run([&] { return daemon.Asked >= 2; });
  EXPECT_THAT(rig.Shown.str(), HasSubstr("does not tell its signal strength ( ]0;mine "));
  EXPECT_EQ(rig.Shown.str().find_first_of("\x1B\x07\x9B"), std::string::npos);
}

TEST(RadioMeter, AnAnswerWithoutAnEndIsRefusedAtOnceHoweverLongTheLimit) {
  Daemon daemon([] { return std::string(100'000, '1'); });
  Rig rig(daemon.Port);
  rig.Options.LimitMs = 3000;
  rig.Run([&] { return rig.Shown.str().find("no end") != std::string::npos || daemon.Asked > 1; });
  EXPECT_THAT(rig.Shown.str(), HasSubstr("the daemon's answer has no end"));
  EXPECT_EQ(daemon.Asked, 1);
  EXPECT_THAT(rig.Shown.str(), Not(HasSubstr("no answer within")));
}

TEST(RadioMeter, NobodyThereIsSaidAndTriedAgain) {
  Rig rig(1);
  rig.Run([&] { return !rig.Shown.str().empty(); });
  EXPECT_THAT(rig.Shown.str(), HasSubstr("nobody answers at 127.0.0.1:1"));
}

}  // namespace
}  // namespace lobegraph
