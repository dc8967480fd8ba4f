// The verb that shows and gives COM numbers, on a computer that the test makes.
#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "cli/MemoryFiles.h"
#include "cli/PortsCommand.h"
#include "support/RecordingStore.h"
#include "support/TemporaryFolder.h"

namespace lobegraph {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class CliPorts : public ::testing::Test {
 protected:
  int Run(const PortsRequest& request = {}) {
    return RunPorts(request, ports_, {files_, output_, complaints_, false});
  }
  int Assign(int number, const std::string& path) { return Run({PortAssignment{number, path}}); }
  void Adapter(const std::string& name, const std::string& byId = "") {
    File("dev/" + name);
    if (byId.empty()) return;
    const fs::path link = folder_.Path() / "dev/serial/by-id" / byId;
    fs::create_directories(link.parent_path());
    fs::create_symlink("../../" + name, link);
  }
  void Uart(const std::string& name) {
    File("dev/" + name);
    File("sys/class/tty/" + name + "/type", "4\n");
  }
  void File(const std::string& path, const std::string& text = "") {
    fs::create_directories((folder_.Path() / path).parent_path());
    std::ofstream(folder_.Path() / path) << text;
  }

  TemporaryFolder folder_;
  RecordingStore store_;
  ComPorts ports_{store_, folder_.Path()};
  MemoryFiles files_;
  std::ostringstream output_, complaints_;
};

TEST_F(CliPorts, EachNumberThatMeansSomethingIsALine) {
  Uart("ttyS0");
  Adapter("ttyUSB2");
  EXPECT_EQ(Run(), kAllDone);
  EXPECT_EQ(output_.str(),
            "COM1   /dev/ttyS0    Serial port of this computer, ttyS0\n"
            "COM3   /dev/ttyUSB2  ttyUSB2\n");
}

TEST_F(CliPorts, AnAdapterThatNoNumberMeansIsListedToo) {
  Uart("ttyS0");
  Adapter("ttyUSB0", "usb-FTDI_1");
  Run();
  EXPECT_THAT(output_.str(), HasSubstr("-      /dev/serial/by-id/usb-FTDI_1  ttyUSB0\n"));
}

TEST_F(CliPorts, AnAdapterWithANumberIsListedOnce) {
  Adapter("ttyUSB0", "usb-FTDI_1");
  Run();
  EXPECT_THAT(output_.str(), Not(HasSubstr("by-id")));
  EXPECT_THAT(output_.str(), HasSubstr("COM1   /dev/ttyUSB0  ttyUSB0\n"));
}

TEST_F(CliPorts, ThirtyTwoIsTheHighestNumber) {
  Adapter("ttyUSB31");
  Adapter("ttyUSB32");
  Run();
  EXPECT_THAT(output_.str(), HasSubstr("COM32  /dev/ttyUSB31"));
  EXPECT_THAT(output_.str(), Not(HasSubstr("COM33")));
}

TEST_F(CliPorts, AnAssignedDeviceThatIsUnpluggedSaysSo) {
  store_.Values["Lobegraph/Ports/COM4"] = "/dev/serial/by-id/gone";
  Run();
  EXPECT_EQ(output_.str(), "COM4   /dev/serial/by-id/gone  nothing is there now\n");
}

TEST_F(CliPorts, AComputerWithoutPortsSaysSo) {
  EXPECT_EQ(Run(), kAllDone);
  EXPECT_THAT(output_.str(), IsEmpty());
  EXPECT_EQ(complaints_.str(), "lobegraph-cli: no serial port or adapter is there\n");
}

TEST_F(CliPorts, AssigningKeepsThePathThatStays) {
  Adapter("ttyUSB0", "usb-FTDI_1");
  EXPECT_EQ(Assign(3, "/dev/ttyUSB0"), kAllDone);
  EXPECT_EQ(store_.Values["Lobegraph/Ports/COM3"], "/dev/serial/by-id/usb-FTDI_1");
  EXPECT_EQ(output_.str(), "COM3 is now /dev/serial/by-id/usb-FTDI_1 (ttyUSB0)\n");
}

TEST_F(CliPorts, AssigningADeviceThatIsNotThereYetIsAllowed) {
  EXPECT_EQ(Assign(32, "/dev/ttyUSB9"), kAllDone);
  EXPECT_EQ(store_.Values["Lobegraph/Ports/COM32"], "/dev/ttyUSB9");
  EXPECT_THAT(output_.str(), HasSubstr("nothing is there now"));
}

TEST_F(CliPorts, ARelativePathIsKeptWhole) {
  Assign(1, "./x/../port");
  EXPECT_EQ(store_.Values["Lobegraph/Ports/COM1"], (fs::current_path() / "port").string());
}

TEST_F(CliPorts, ASettingsFileThatCannotBeWrittenIsAFailure) {
  store_.FailsToSave = true;
  EXPECT_EQ(Assign(3, "/dev/ttyUSB0"), kSomeFailed);
  EXPECT_THAT(complaints_.str(), HasSubstr("COM3: the settings cannot be written"));
  EXPECT_THAT(output_.str(), IsEmpty());
}

}  // namespace
}  // namespace lobegraph
