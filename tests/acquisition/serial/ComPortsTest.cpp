// What COM numbers mean on a computer, read from tables that the test makes.
#include "acquisition/serial/ComPorts.h"

#include <fstream>

#include "support/RecordingStore.h"
#include "support/TemporaryFolder.h"

namespace lobegraph {
namespace {

namespace fs = std::filesystem;
using ::testing::IsEmpty;
using ::testing::Optional;

struct Computer {
  TemporaryFolder Folder;
  RecordingStore Store;
  ComPorts Ports{Store, Folder.Path()};

  void File(const std::string& path, const std::string& text = "") const {
    fs::create_directories((Folder.Path() / path).parent_path());
    std::ofstream(Folder.Path() / path) << text;
  }
  void Link(const std::string& path, const std::string& target) const {
    fs::create_directories((Folder.Path() / path).parent_path());
    fs::create_symlink(target, Folder.Path() / path);
  }
  void Uart(const std::string& name, const std::string& type) const {
    File("dev/" + name);
    File("sys/class/tty/" + name + "/type", type + "\n");
  }
  /// An adapter on the USB bus, as the kernel lists it.
  void Adapter(const std::string& name, const std::string& maker, const std::string& product,
               const std::string& byId = "") const {
    const std::string device = "sys/devices/usb1/" + name + "-device";
    File(device + "/product", product + "\n");
    if (!maker.empty()) File(device + "/manufacturer", maker + "\n");
    fs::create_directories(Folder.Path() / device / "interface" / name);
    Link("sys/class/tty/" + name + "/device", "../../../../" + device + "/interface/" + name);
    File("dev/" + name);
    if (!byId.empty()) Link("dev/serial/by-id/" + byId, "../../" + name);
  }
};

TEST(ComPorts, ThePathInTheStoreComesFirst) {
  Computer computer;
  computer.Uart("ttyS1", "4");
  computer.Store.Values["Lobegraph/Ports/COM2"] = "/dev/pts/7";
  EXPECT_THAT(computer.Ports.PathOf(2), Optional(std::string("/dev/pts/7")));
}

TEST(ComPorts, ThenTheUartThatTheKernelKnows) {
  Computer computer;
  computer.Uart("ttyS1", "4");
  computer.Adapter("ttyUSB1", "FTDI", "FT232R");
  EXPECT_THAT(computer.Ports.PathOf(2), Optional(std::string("/dev/ttyS1")));
}

TEST(ComPorts, APlaceForAUartWithoutOneIsPassedOver) {
  Computer computer;
  computer.Uart("ttyS1", "0");
  computer.Adapter("ttyUSB1", "FTDI", "FT232R");
  EXPECT_THAT(computer.Ports.PathOf(2), Optional(std::string("/dev/ttyUSB1")));
}

TEST(ComPorts, TheConsoleIsNobodysMeter) {
  Computer computer;
  computer.Uart("ttyS0", "4");
  computer.File("sys/class/tty/console/active", "tty0 ttyS0\n");
  computer.Adapter("ttyUSB0", "FTDI", "FT232R");
  EXPECT_THAT(computer.Ports.PathOf(1), Optional(std::string("/dev/ttyUSB0")));
}

TEST(ComPorts, ThenTheUsbAdapterThenTheModem) {
  Computer computer;
  computer.Adapter("ttyACM0", "Arduino", "Uno");
  EXPECT_THAT(computer.Ports.PathOf(1), Optional(std::string("/dev/ttyACM0")));
  computer.Adapter("ttyUSB0", "FTDI", "FT232R");
  EXPECT_THAT(computer.Ports.PathOf(1), Optional(std::string("/dev/ttyUSB0")));
}

TEST(ComPorts, NothingIsNone) {
  Computer computer;
  EXPECT_EQ(computer.Ports.PathOf(1), std::nullopt);
  EXPECT_EQ(computer.Ports.PathOf(0), std::nullopt);
  EXPECT_EQ(computer.Ports.TitleOf(1), "nothing is there now");
}

TEST(ComPorts, TheTitleNamesMakerProductAndDevice) {
  Computer computer;
  computer.Adapter("ttyUSB0", "FTDI", "FT232R");
  computer.Adapter("ttyUSB1", "", "CP2102");
  computer.Uart("ttyS4", "4");
  EXPECT_EQ(computer.Ports.TitleOf(1), "FTDI FT232R, ttyUSB0");
  EXPECT_EQ(computer.Ports.TitleOf(2), "CP2102, ttyUSB1");
  EXPECT_EQ(computer.Ports.TitleOf(5), "Serial port of this computer, ttyS4");
}

TEST(ComPorts, TheTitleOfAPathInTheStoreSaysWhatItIsNow) {
  Computer computer;
  computer.Adapter("ttyUSB3", "FTDI", "FT232R", "usb-FTDI_A1-if00");
  computer.Store.Values["Lobegraph/Ports/COM1"] = "/dev/serial/by-id/usb-FTDI_A1-if00";
  computer.Store.Values["Lobegraph/Ports/COM2"] = "/dev/serial/by-id/unplugged";
  EXPECT_EQ(computer.Ports.TitleOf(1), "FTDI FT232R, ttyUSB3");
  EXPECT_EQ(computer.Ports.TitleOf(2), "nothing is there now");
}

TEST(ComPorts, APseudoTerminalIsNamedByItsFile) {
  Computer computer;
  computer.File("dev/pts/7");
  computer.Store.Values["Lobegraph/Ports/COM1"] = "/dev/pts/7";
  EXPECT_EQ(computer.Ports.TitleOf(1), "7");
}

TEST(ComPorts, TheAttachedAdaptersAreListedByTheirStablePaths) {
  Computer computer;
  computer.Adapter("ttyUSB0", "FTDI", "FT232R", "usb-FTDI_A1-if00");
  computer.Adapter("ttyACM0", "Arduino", "Uno");
  computer.Uart("ttyS4", "4");
  computer.Uart("ttyS5", "0");
  computer.File("dev/tty1");
  std::vector<std::string> lines;
  for (const PortAdapter& adapter : computer.Ports.Adapters())
    lines.push_back(adapter.Path + " | " + adapter.Title);
  EXPECT_THAT(lines, ::testing::ElementsAre("/dev/ttyACM0 | Arduino Uno, ttyACM0",
                                            "/dev/serial/by-id/usb-FTDI_A1-if00 | FTDI FT232R, ttyUSB0",
                                            "/dev/ttyS4 | Serial port of this computer, ttyS4"));
}

TEST(ComPorts, AComputerWithoutTablesHasNone) {
  Computer computer;
  EXPECT_THAT(computer.Ports.Adapters(), IsEmpty());
}

TEST(ComPorts, AssigningStoresThePath) {
  Computer computer;
  computer.Ports.Assign(3, "/dev/serial/by-id/x");
  EXPECT_THAT(computer.Store.Log, ::testing::ElementsAre("save Lobegraph/Ports/COM3=/dev/serial/by-id/x"));
}

}  // namespace
}  // namespace lobegraph
