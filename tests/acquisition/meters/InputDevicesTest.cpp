// Opening and closing the meter's and the trigger's ports.
#include "acquisition/meters/InputDevices.h"

#include "support/FakeClock.h"
#include "support/MeterFakes.h"

namespace lobegraph {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct DevicesRig {
  test::Calls Made;
  test::FakeSCom MSComm1{Made, "meter"};
  test::FakeSCom MSCommTrigger{Made, "trigger"};
  test::FakeD2xx Library;
  test::FakeDisplay Display;
  test::ShownMessages Boxes;
  MeterState State;
  SettingsValues Settings;
  InputChoice& Choice = Settings.Input;
  RunFlags Flags;
  UsbModule Usb{Library, Display, Flags, Boxes};
  FakeClock Time;
  dBMeter Meter{State, Settings, Display, Time};
  InputDevices Devices{{MSComm1, MSCommTrigger, Usb, Display, Meter, State, Flags, Settings, Boxes}};
};

TEST(OpenMeterPort, OpensTheNumberAtTheSpeed) {
  DevicesRig rig;
  rig.Devices.OpenMeterPort(3, "9600");
  EXPECT_THAT(rig.Made, ElementsAre("meter open 3 9600"));
  EXPECT_THAT(rig.Boxes.Texts, IsEmpty());
}

TEST(OpenMeterPort, ClosesItFirst) {
  DevicesRig rig;
  rig.MSComm1.IsOpen = true;
  rig.Devices.OpenMeterPort(3, "9600");
  EXPECT_EQ(rig.Made.front(), "meter close");
}

TEST(OpenMeterPort, WithoutANumberOnlyCloses) {
  DevicesRig rig;
  rig.MSComm1.IsOpen = true;
  rig.Devices.OpenMeterPort(0, "9600");
  EXPECT_THAT(rig.Made, ElementsAre("meter close"));
}

TEST(OpenMeterPort, ThatFailsSaysWhatToDo) {
  DevicesRig rig;
  rig.MSComm1.OnOpen.Opened = false;
  rig.Devices.OpenMeterPort(3, "9600");
  EXPECT_EQ(rig.Made.back(), "meter open 3 9600");
  EXPECT_THAT(rig.Boxes.Texts, ElementsAre("COM Port not available. May be in use by another program\r\n"
                                           "If yes, then close that program and retry.\r\n"
                                           "If no, then change the CommPort to another port and try again."));
}

TEST(OpenMeterPort, WithoutTheRightNamesTheGroupToJoin) {
  DevicesRig rig;
  rig.MSComm1.OnOpen = {.Opened = false, .GroupToJoin = "dialout"};
  rig.Devices.OpenMeterPort(3, "9600");
  EXPECT_THAT(rig.Boxes.Texts,
              ElementsAre("COM Port not available. May be in use by another program\r\n"
                          "If yes, then close that program and retry.\r\n"
                          "If no, then change the CommPort to another port and try again.\r\n"
                          "You lack the right to open it: join the group \"dialout\" and log in again."));
}

TEST(OpenTriggerPort, OpensItsNumberAtTheStoredSpeed) {
  DevicesRig rig;
  rig.Choice.Commtrigger = 4;
  rig.Devices.OpenTriggerPort();
  EXPECT_THAT(rig.Made, ElementsAre("trigger open 4 57600"));
}

TEST(OpenTriggerPort, ThatFailsSaysWhatToDo) {
  DevicesRig rig;
  rig.Choice.Commtrigger = 4;
  rig.MSCommTrigger.OnOpen.Opened = false;
  rig.Devices.OpenTriggerPort();
  EXPECT_THAT(rig.Boxes.Texts,
              ElementsAre("Trigger COM Port not available. May be in use by another program\r\n"
                          "If yes, then close that program and retry.\r\n"
                          "If no, then change to another port and try again."));
}

struct TriggerRow {
  const char* Name;
  InputChoice Choice;
  bool MeterOpen;
  bool Opens;
};
class TriggerChoice : public ::testing::TestWithParam<TriggerRow> {};
const TriggerRow kTriggerRows[] = {
    {"NoNumber", {.Commport = 1, .Commtrigger = 0}, false, false},
    {"UsbModule", {.GaugeBridgeTrigger = true, .Commport = 1, .Commtrigger = 4}, false, false},
    {"SharedWithTheMeter", {.InputDeviceIsdBMeter = true, .Commport = 4, .Commtrigger = 4}, true, false},
    {"SharedWithAMeterThatDidNotOpen",
     {.InputDeviceIsdBMeter = true, .Commport = 4, .Commtrigger = 4},
     false,
     false},
    {"AnotherNumberThanTheMeter",
     {.InputDeviceIsdBMeter = true, .Commport = 1, .Commtrigger = 4},
     true,
     true},
    {"AnOldMeterNumberBesideTheSoundCard", {.Commport = 4, .Commtrigger = 4}, false, true},
    {"AnOldMeterNumberBesideTheExternalProgram",
     {.InputDeviceIsdBMeter = true, .GaugeBridge = true, .Commport = 4, .Commtrigger = 4},
     false,
     true},
    {"TheExternalProgramWithAPortOpenedByTheChooser",
     {.InputDeviceIsdBMeter = true, .GaugeBridge = true, .Commport = 4, .Commtrigger = 4},
     true,
     false},
};

TEST_P(TriggerChoice, ClosesThePortAndOpensItWhereItIsTheTriggers) {
  DevicesRig rig;
  rig.Choice = GetParam().Choice;
  rig.MSCommTrigger.IsOpen = true;
  rig.MSComm1.IsOpen = GetParam().MeterOpen;
  rig.Devices.OpenTriggerPort();
  EXPECT_EQ(rig.Made.front(), "trigger close");
  EXPECT_EQ(rig.MSCommTrigger.IsOpen, GetParam().Opens);
}
INSTANTIATE_TEST_SUITE_P(Choices, TriggerChoice, ::testing::ValuesIn(kTriggerRows),
                         [](const auto& row) { return row.param.Name; });

TEST(InputDevices, ReceivedTextIsParsedAndOtherEventsAreIgnored) {
  DevicesRig rig;
  rig.Choice.InputDeviceIsdBMeter = rig.Choice.ROSKAmeter = true;
  rig.MSComm1.Waiting = "123;";
  rig.MSComm1.OnComm(3);
  EXPECT_EQ(rig.State.ValuesReceived, 0U);
  rig.MSComm1.OnComm(SCom::kReceived);
  EXPECT_EQ(rig.Display.Reading, "123");
}

struct OpenRow {
  const char* Name;
  InputChoice Choice;
  test::Calls AtStartUp, OnceChosen;
};
class Opening : public ::testing::TestWithParam<OpenRow> {};
const OpenRow kOpenRows[] = {
    {"Microphone", {.InputDeviceIsLineIn = false, .Commport = 2}, {}, {"hide meter window"}},
    {"LineIn", {.Commport = 2}, {}, {"hide meter window"}},
    {"Tarven",
     {.InputDeviceIsdBMeter = true, .Commport = 2},
     {"show meter window", "meter open 2 38400"},
     {"show meter window", "meter open 2 38400"}},
    {"Roska",
     {.InputDeviceIsdBMeter = true, .ROSKAmeter = true, .Commport = 2},
     {"show meter window", "meter open 2 9600"},
     {"show meter window", "meter open 2 9600"}},
    {"DeliberatelyTheProgramOnceChosenOnly",
     {.InputDeviceIsdBMeter = true, .GaugeBridge = true, .Commport = 2},
     {},
     {"show meter window", "meter open 2 38400"}},
};

TEST_P(Opening, OpensWhatItsSourceNeedsThenTheTriggersPort) {
  for (const auto occasion : {InputDevices::Occasion::StartUp, InputDevices::Occasion::Chosen}) {
    DevicesRig rig;
    rig.Display.OnChange = [&](const std::string& change) {
      if (change.ends_with("window")) rig.Made.push_back(change);
    };
    rig.Choice = GetParam().Choice;
    rig.Choice.Commtrigger = 7;
    EXPECT_EQ(rig.Devices.Open(occasion), "");
    test::Calls expected =
        occasion == InputDevices::Occasion::StartUp ? GetParam().AtStartUp : GetParam().OnceChosen;
    expected.emplace_back("trigger open 7 57600");
    EXPECT_EQ(rig.Made, expected);
  }
}
INSTANTIATE_TEST_SUITE_P(Sources, Opening, ::testing::ValuesIn(kOpenRows),
                         [](const auto& row) { return row.param.Name; });

TEST(InputDevices, WhatAnotherMeterSaidIsForgottenAndNoMoreShown) {
  DevicesRig rig;
  rig.Choice.InputDeviceIsdBMeter = true;
  for (int i = 0; i < 3; ++i) rig.Meter.ParseChars("\r600 ");
  rig.Meter.ParseChars("\r12");
  rig.Display.SetStatusText("The meter's port has gone. Plug it in and choose the input again.");
  rig.Choice.ROSKAmeter = true;
  rig.Choice.Commport = 2;
  rig.Devices.Open(InputDevices::Occasion::Chosen);
  EXPECT_FALSE(rig.State.HistoryFull());
  EXPECT_EQ(rig.Display.Reading, "");
  EXPECT_EQ(rig.Display.DownDb, -1);
  EXPECT_EQ(rig.Display.Indicator, std::nullopt);
  EXPECT_EQ(rig.Display.Shape, StatusColour::Green);
  EXPECT_EQ(rig.Display.lblStatus, "The meter's port COM2 is open.");
  rig.Meter.ParseChars("3;");
  EXPECT_EQ(rig.Display.Reading, "3");
}

TEST(InputDevices, APortThatDoesNotOpenIsRedInTheMetersWindow) {
  DevicesRig rig;
  rig.Choice = {.InputDeviceIsdBMeter = true, .Commport = 2};
  rig.MSComm1.OnOpen.Opened = false;
  rig.Devices.Open(InputDevices::Occasion::StartUp);
  EXPECT_EQ(rig.Display.Shape, StatusColour::Red);
  EXPECT_EQ(rig.Display.lblStatus, "The meter's port COM2 is not open.");
}

TEST(InputDevices, AnOldPortNumberBesideTheProgramIsALineAndNoBox) {
  DevicesRig rig;
  rig.Choice = {.InputDeviceIsdBMeter = true, .GaugeBridge = true, .Commport = 7};
  rig.MSComm1.OnOpen.Opened = false;
  EXPECT_EQ(rig.Devices.Open(InputDevices::Occasion::Chosen),
            "COM7 is not to be had; the meter program does not need it.");
  EXPECT_THAT(rig.Boxes.Texts, IsEmpty());
  EXPECT_EQ(rig.Display.Shape, std::nullopt) << "the port says nothing of the program";
}

TEST(InputDevices, ATriggersPortThatGoesIsToldToTheRun) {
  DevicesRig rig;
  rig.MSCommTrigger.OnGone();
  EXPECT_TRUE(rig.Flags.TriggerPortGone);
}

TEST(InputDevices, AMetersPortThatGoesIsTheTriggersWhereTheyShareIt) {
  for (const bool usb : {false, true}) {
    for (const auto trigger : std::initializer_list<std::int16_t>{0, 4, 5}) {
      DevicesRig rig;
      rig.Choice = {
          .InputDeviceIsdBMeter = true, .GaugeBridgeTrigger = usb, .Commport = 4, .Commtrigger = trigger};
      rig.Devices.Open(InputDevices::Occasion::Chosen);
      rig.MSComm1.OnGone();
      EXPECT_EQ(rig.Flags.TriggerPortGone, trigger == 4 && !usb);
    }
  }
}

TEST(InputDevices, ClosingTouchesOpenPortsOnly) {
  DevicesRig rig;
  rig.Devices.ClosePorts();
  EXPECT_THAT(rig.Made, IsEmpty());
  rig.MSComm1.IsOpen = rig.MSCommTrigger.IsOpen = true;
  rig.Devices.ClosePorts();
  EXPECT_THAT(rig.Made, ElementsAre("meter close", "trigger close"));
}

TEST(InputDevices, AMeterThatIsUnpluggedIsToldInItsWindow) {
  DevicesRig rig;
  rig.MSComm1.OnGone();
  EXPECT_EQ(rig.Display.Shape, StatusColour::Red);
  EXPECT_EQ(rig.Display.lblStatus, "The meter's port has gone. Plug it in and choose the input again.");
}

TEST(InputDevices, TheWindowIsShownAndTheModuleClosedOnRequest) {
  DevicesRig rig;
  rig.Devices.ShowMeterWindow();
  EXPECT_EQ(rig.Display.Shown, 1);
  rig.Usb.OpenDevice("DLP2232M B");
  EXPECT_TRUE(rig.Devices.CloseUsbModule());
  EXPECT_EQ(rig.Library.Made.back(), "close 77");
}

}  // namespace
}  // namespace lobegraph
