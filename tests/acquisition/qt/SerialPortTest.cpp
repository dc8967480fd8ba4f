// A COM port of this computer, and everything that can be wrong with it.
#include <gmock/gmock.h>
#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

#include <iostream>

#include "acquisition/qt/MeterTurn.h"
#include "support/RecordingStore.h"

namespace lobegraph {
namespace {

using test::ChildProcess;
using test::MeterTurn;
using test::Terminal;
using ::testing::ElementsAre;

TEST(SerialPort, WhoseFarEndIsGoneClosesAtTheFirstErrorAndIsTold) {
  MeterTurn turn;
  ChildProcess bench = turn.Bench({"--as", "roska", "--com", "5"});
  ASSERT_TRUE(turn.OpenMeter("9600"));
  bench.Kill();
  EXPECT_TRUE(turn.Until([&] { return !turn.MSComm1.PortOpen(); }, 2000));
  EXPECT_EQ(turn.Display.Shape, StatusColour::Red);
  EXPECT_FALSE(turn.MSComm1.CtsHolding()) << "a closed port reads low";
  EXPECT_EQ(turn.MSComm1.CtsChanges(), std::nullopt);
  EXPECT_EQ(turn.Turn(4).Ran, false);
  EXPECT_THAT(turn.Texts(), ElementsAre("The Com port for the serially attached dB meter is not available"));
}

TEST(SerialPort, InUseByAnotherProgramIsRefusedWithItsMessage) {
  MeterTurn turn;
  const ChildProcess bench = turn.Bench({"--as", "roska", "--com", "5"});
  ASSERT_TRUE(turn.OpenMeter("9600"));
  turn.Rig.Choice.Commport = 1;
  turn.Rig.Choice.Commtrigger = MeterTurn::kCom;
  turn.Devices.OpenTriggerPort();
  EXPECT_FALSE(turn.MSCommTrigger.PortOpen());
  EXPECT_THAT(turn.Texts(), ElementsAre(kTriggerPortFailed));
}

TEST(SerialPort, ThatDoesNotExistIsRefusedWithItsMessage) {
  MeterTurn turn;
  turn.Store.Save("Lobegraph", "Ports", "COM5", turn.Folder.File("nothing"));
  turn.Devices.OpenMeterPort(5, "9600");
  EXPECT_FALSE(turn.MSComm1.PortOpen());
  EXPECT_THAT(turn.Texts(), ElementsAre(kMeterPortFailed));
}

/// Opens a port for which this user has no right, and says which group has it.
[[noreturn]] void OpenWithoutRights(const std::string& path) {
  constexpr id_t kNobody = 65534;
  if (geteuid() == 0 && (setgroups(0, nullptr) != 0 || setresgid(kNobody, kNobody, kNobody) != 0 ||
                         setresuid(kNobody, kNobody, kNobody) != 0))
    std::exit(2);
  RecordingStore store;
  store.Values["Lobegraph/Ports/COM5"] = path;
  const ComPorts ports(store);
  SerialControl port(ports);
  const SCom::Outcome outcome = port.Open(5, "9600");
  std::cerr << "group: " << outcome.GroupToJoin << '\n';
  std::exit(outcome.Opened ? 1 : 0);
}

TEST(SerialPort, WithoutTheRightToOpenItNamesItsGroup) {
  const Terminal terminal;
  ASSERT_EQ(fchmod(terminal.Slave, 0), 0);
  const group* dialout = getgrnam("dialout");
  if (geteuid() == 0 && dialout != nullptr) {
    ASSERT_EQ(fchown(terminal.Slave, 0, dialout->gr_gid), 0);
  }
  struct stat status {};
  ASSERT_EQ(fstat(terminal.Slave, &status), 0);
  const std::string group = getgrgid(status.st_gid)->gr_name;
  EXPECT_EXIT(OpenWithoutRights(terminal.Path), ::testing::ExitedWithCode(0), "group: " + group);
}

TEST(SerialPort, ACalibrateCommandReachesTheMeter) {
  MeterTurn turn;
  const ChildProcess bench = turn.Bench({"--as", "roska", "--com", "5"});
  ASSERT_TRUE(turn.OpenMeter("9600"));
  turn.MSComm1.Send("*c");
  EXPECT_TRUE(turn.Until(
      [&] { return turn.Printed().find("calibrate command received") != std::string::npos; }, 3000));
}

}  // namespace
}  // namespace lobegraph
