// Opening, reading and closing the USB module, with each failure as the user sees it.
#include "acquisition/trigger/UsbModule.h"

#include "support/MeterFakes.h"

namespace lobegraph {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct UsbRig {
  test::FakeD2xx Library;
  test::FakeDisplay Display;
  RunFlags Flags;
  test::ShownMessages Messages;
  UsbModule Usb{Library, Display, Flags, Messages};
  void Open() { Usb.OpenDevice("DLP2232M B"); }
};

TEST(OpenDevice, OpensChannelBAndMakesItsPinsInputs) {
  UsbRig rig;
  rig.Open();
  EXPECT_THAT(rig.Library.Made,
              ElementsAre("count 0x80000000", "describe 1 0x40000002", "open DLP2232M B 0x00000002",
                          "queue 77", "latency 16", "bit mode 0 0", "bit mode 0 1"));
  EXPECT_TRUE(rig.Usb.UsbDeviceOpen());
  EXPECT_EQ(rig.Display.Shape, StatusColour::Green);
  EXPECT_EQ(rig.Display.lblStatus, "OK");
  EXPECT_EQ(rig.Flags.HaltRequested, 0);
  EXPECT_EQ(rig.Display.Shown, 0);
}

TEST(OpenDevice, ClosesWhatWasOpenFirst) {
  UsbRig rig;
  rig.Open();
  rig.Library.Made.clear();
  rig.Open();
  EXPECT_EQ(rig.Library.Made.front(), "close 77");
  EXPECT_TRUE(rig.Usb.UsbDeviceOpen());
}

struct Failure {
  const char* Name;
  const char* Call;
  FtStatus Status;
  StatusColour Shape;
  const char* lblStatus;
  const char* Box;  ///< empty for none
  bool OpenAfter;
};
class OpenDeviceFails : public ::testing::TestWithParam<Failure> {};
const Failure kFailures[] = {
    {"Count", "count 0x80000000", 4, StatusColour::Yellow,
     "No FTDI devices found. Please connect the meter and re-try", "GetFTDeviceCount - General IO Error",
     false},
    {"Describe", "describe 1 0x40000002", 2, StatusColour::Yellow,
     "No DLP2232M B device found. Please re-connect the meter and re-try",
     "GetFTDeviceDescription - Device Not Found", false},
    {"Open", "open DLP2232M B 0x00000002", 3, StatusColour::Red,
     "The open for the meter did not complete successfully.",
     "Open_USB_Device_By_Description - Device Not Opened", false},
    {"Queue", "queue 77", 19, StatusColour::Red,
     "Get USB Device QueuStatus command failed in procedure OpenDevice", "FT_GetQueueStatus", false},
    {"Latency", "latency 16", 4, StatusColour::Red, "Set USB Device Latency Timer failed", "", true},
    {"Reset", "bit mode 0 0", 4, StatusColour::Red, "Device reset failed in procedure OpenDevice.", "", true},
    {"BitBang", "bit mode 0 1", 4, StatusColour::Red, "Set to Bitbang mode failed in procedure OpenDevice.",
     "", true},
};

TEST_P(OpenDeviceFails, WithItsTextAndEndsTheCollection) {
  UsbRig rig;
  rig.Library.Failures[GetParam().Call] = GetParam().Status;
  rig.Open();
  EXPECT_EQ(rig.Library.Made.back(), GetParam().Call) << "nothing follows a failure";
  EXPECT_EQ(rig.Display.Shape, GetParam().Shape);
  EXPECT_EQ(rig.Display.lblStatus, GetParam().lblStatus);
  EXPECT_EQ(rig.Flags.HaltRequested, 1);
  EXPECT_EQ(rig.Display.Shown, 1) << "the reason is to be seen";
  EXPECT_EQ(rig.Usb.UsbDeviceOpen(), GetParam().OpenAfter);
  if (*GetParam().Box == '\0')
    EXPECT_THAT(rig.Messages.Texts, IsEmpty());
  else
    EXPECT_THAT(rig.Messages.Texts, ElementsAre(GetParam().Box));
}
INSTANTIATE_TEST_SUITE_P(Steps, OpenDeviceFails, ::testing::ValuesIn(kFailures),
                         [](const auto& row) { return row.param.Name; });

TEST(OpenDevice, ACloseThatFailsEndsItThere) {
  UsbRig rig;
  rig.Open();
  rig.Library.Failures["close 77"] = 1;
  rig.Open();
  EXPECT_EQ(rig.Library.Made.back(), "close 77");
  EXPECT_EQ(rig.Display.Shape, StatusColour::Red);
  EXPECT_EQ(rig.Display.lblStatus, "Attempt to close DLP2232M failed.");
  EXPECT_THAT(rig.Messages.Texts, ElementsAre("FT_Close - Invalid Handle"));
  EXPECT_EQ(rig.Flags.HaltRequested, 1);
  EXPECT_FALSE(rig.Usb.UsbDeviceOpen());
}

TEST(OpenDevice, WithoutAnyDeviceSaysSoInYellow) {
  UsbRig rig;
  rig.Library.Devices.clear();
  rig.Open();
  EXPECT_EQ(rig.Display.lblStatus, "No FTDI devices found. Please connect the meter and re-try");
  EXPECT_EQ(rig.Display.Shape, StatusColour::Yellow);
  EXPECT_EQ(rig.Flags.HaltRequested, 1);
  EXPECT_THAT(rig.Messages.Texts, IsEmpty());
}

TEST(OpenDevice, AnotherDeviceAtIndex1IsNotTheModule) {
  for (const auto& devices :
       {std::vector<std::string>{"DLP2232M B"}, {"DLP2232M B", "DLP2232M A"}, {"X A", "X B"}}) {
    UsbRig rig;
    rig.Library.Devices = devices;
    rig.Open();
    EXPECT_EQ(rig.Display.lblStatus, "No DLP2232M B device found. Please re-connect the meter and re-try");
    EXPECT_EQ(rig.Display.Shape, StatusColour::Yellow);
  }
}

TEST(ReportUsbError, NamesTheFunctionAndWhatTheStatusMeans) {
  const std::vector<std::string> suffixes = {"",
                                             " - Invalid Handle",
                                             " - Device Not Found",
                                             " - Device Not Opened",
                                             " - General IO Error",
                                             " - Insufficient Resources",
                                             " - Invalid Parameter",
                                             " - Invalid Baud Rate",
                                             " - Device not opened for Erase",
                                             " - Device not opened for Write",
                                             " - Failed to write Device",
                                             " - EEPROM read failed",
                                             " - EEPROM write failed",
                                             " - EEPROM erase failed",
                                             " - EEPROM not present",
                                             " - EEPROM not programmed",
                                             " - Invalid Arguments",
                                             " - not supported",
                                             " - other error",
                                             ""};
  for (FtStatus status = 0; status < suffixes.size(); ++status) {
    UsbRig rig;
    rig.Usb.ReportUsbError("FT_Close", status);
    EXPECT_THAT(rig.Messages.Texts, ElementsAre("FT_Close" + suffixes[status]));
    EXPECT_EQ(rig.Flags.HaltRequested, 1);
  }
}

TEST(UsbPin, OnlyBit0Counts) {
  UsbRig rig;
  rig.Open();
  rig.Library.Pins = [] { return std::uint8_t{0xFE}; };
  EXPECT_FALSE(rig.Usb.PinD0());
  rig.Library.Pins = [] { return std::uint8_t{0x01}; };
  EXPECT_TRUE(rig.Usb.PinD0());
}

TEST(UsbPin, AFailedReadIsReportedAndLow) {
  UsbRig rig;
  rig.Open();
  rig.Library.Pins = [] { return std::uint8_t{1}; };
  rig.Library.Failures["pins"] = 4;
  EXPECT_FALSE(rig.Usb.PinD0());
  EXPECT_THAT(rig.Messages.Texts, ElementsAre("FT_GetBitMode - General IO Error"));
  EXPECT_EQ(rig.Flags.HaltRequested, 1);
}

TEST(UsbClose, OfAModuleThatIsNotOpenDoesNothing) {
  UsbRig rig;
  EXPECT_TRUE(rig.Usb.Close());
  EXPECT_THAT(rig.Library.Made, IsEmpty());
}

TEST(UsbClose, ThatFailsIsSaidAndTheModuleCountsAsClosed) {
  UsbRig rig;
  rig.Open();
  rig.Library.Failures["close 77"] = 4;
  EXPECT_FALSE(rig.Usb.Close());
  EXPECT_EQ(rig.Display.lblStatus, "Attempt to close DLP2232M failed.");
  EXPECT_FALSE(rig.Usb.UsbDeviceOpen());
  EXPECT_TRUE(rig.Usb.Close());
}

TEST(UsbDescription, IsCutAtItsNulAndToItsPlace) {
  EXPECT_EQ(TextOf(DescriptionOf("DLP2232M B")), "DLP2232M B");
  EXPECT_EQ(TextOf(DescriptionOf(std::string(80, 'x'))), std::string(49, 'x'));
  FtDescription full{};
  full.fill('y');
  EXPECT_EQ(TextOf(full), std::string(50, 'y'));
}

TEST(UsbStatusSuffix, NamesTheErrorThatHasNoOtherName) {
  EXPECT_EQ(UsbStatusSuffix(kFtOtherError), " - other error");
}

}  // namespace
}  // namespace lobegraph
