// The input chooser: each row of its table, what OK and Cancel do and in which order, and the main window's
// way in and out of it.
#include "app/input/frmChooseInput.h"

#include "app/input/InputCommands.h"
#include "support/ChooserFakes.h"
#include "support/RecordingStore.h"
#include "support/TemporaryFolder.h"

namespace lobegraph {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

struct ChooserRig : test::ChooserWorld {
  TemporaryFolder NoComputer;
  RecordingStore Store;
  ComPorts Ports{Store, NoComputer.Path()};
  test::FakeChooserView View;
  InputChoice& Choice = Shared.Settings.Input;
  frmChooseInput Form{Parts, Store, Ports, View};

  void Load(const InputChoice& choice = {}) {
    Choice = choice;
    Form.Form_Load();
    Store.Log.clear();
  }
};

struct Row {
  int Option;
  InputChoice Choice;
  bool MeterComShown;
};
const Row kRows[] = {
    {0, {.InputDeviceIsLineIn = false}, false},
    {1, {.InputDeviceIsLineIn = true}, false},
    {2, {.InputDeviceIsLineIn = false, .InputDeviceIsdBMeter = true}, true},
    {3, {.InputDeviceIsLineIn = false, .InputDeviceIsdBMeter = true, .ROSKAmeter = true}, true},
    {4, {.InputDeviceIsLineIn = false, .InputDeviceIsdBMeter = true, .GaugeBridge = true}, false},
};
class EachInput : public ::testing::TestWithParam<Row> {};

TEST_P(EachInput, IsTickedAgainWhenTheChooserOpens) {
  ChooserRig rig;
  rig.Load(GetParam().Choice);
  EXPECT_EQ(rig.View.Input, GetParam().Option);
  EXPECT_EQ(rig.View.MeterComShown, GetParam().MeterComShown);
  EXPECT_EQ(rig.Choice, GetParam().Choice) << "opening changes nothing";
}

TEST_P(EachInput, SetsItsValuesAtOnceWhateverWasChosenBefore) {
  for (const Row& before : kRows) {
    ChooserRig rig;
    rig.Load(before.Choice);
    rig.Form.optInput_Click(GetParam().Option);
    EXPECT_EQ(rig.Choice, GetParam().Choice);
    EXPECT_EQ(rig.View.MeterComShown, GetParam().MeterComShown);
    EXPECT_THAT(rig.Store.Log, IsEmpty()) << "nothing is saved before OK";
  }
}
INSTANTIATE_TEST_SUITE_P(Table, EachInput, ::testing::ValuesIn(kRows));

TEST(Chooser, WithSeveralFlagsTheSoundCardThenRoskaComesFirst) {
  ChooserRig rig;
  rig.Load(
      {.InputDeviceIsLineIn = true, .InputDeviceIsdBMeter = false, .ROSKAmeter = true, .GaugeBridge = true});
  EXPECT_EQ(rig.View.Input, 1);
  rig.Load(
      {.InputDeviceIsLineIn = true, .InputDeviceIsdBMeter = true, .ROSKAmeter = true, .GaugeBridge = true});
  EXPECT_EQ(rig.View.Input, 3);
}

TEST(Chooser, TheListsHoldTheBareNumbers) {
  ChooserRig rig;
  rig.Load();
  ASSERT_EQ(rig.View.ComTriggers.size(), 33U);
  EXPECT_EQ(rig.View.ComTriggers.front(), "0");
  EXPECT_EQ(rig.View.ComTriggers.back(), "32");
  ASSERT_EQ(rig.View.CommPorts.size(), 32U);
  EXPECT_EQ(rig.View.CommPorts.front(), "1");
  EXPECT_EQ(rig.View.CommPorts.back(), "32");
}

TEST(Chooser, ThePresentPortsAreSelected) {
  ChooserRig rig;
  rig.Load({.Commport = 7, .Commtrigger = 9});
  EXPECT_EQ(rig.View.CommPort, "7");
  EXPECT_EQ(rig.View.ComTrigger, "9");
  EXPECT_EQ(rig.View.Trigger, chooser::kCts);
  EXPECT_TRUE(rig.View.ComTriggerEnabled);
}

TEST(Chooser, PortNumber0SelectsNothing) {
  ChooserRig rig;
  rig.Load({.Commport = 0});
  EXPECT_EQ(rig.View.CommPort, "");
}

TEST(Chooser, TheUsbTriggerShowsPort0ThatCannotBeChanged) {
  ChooserRig rig;
  rig.Load({.GaugeBridgeTrigger = true, .Commtrigger = 9});
  EXPECT_EQ(rig.View.Trigger, chooser::kUsb);
  EXPECT_EQ(rig.View.ComTrigger, "0");
  EXPECT_FALSE(rig.View.ComTriggerEnabled);
}

TEST(Chooser, ClickingUsbSetsPort0AndCtsFreesTheListAgain) {
  ChooserRig rig;
  rig.Load({.Commtrigger = 9});
  rig.Form.optTrigger_Click(chooser::kUsb);
  EXPECT_EQ(rig.View.ComTrigger, "0");
  EXPECT_FALSE(rig.View.ComTriggerEnabled);
  rig.Form.optTrigger_Click(chooser::kCts);
  EXPECT_TRUE(rig.View.ComTriggerEnabled);
  EXPECT_FALSE(rig.Choice.GaugeBridgeTrigger);
}

TEST(Chooser, UnknownOptionsDoNothing) {
  ChooserRig rig;
  rig.Load();
  for (const int index : {-1, 5}) rig.Form.optInput_Click(index);
  EXPECT_EQ(rig.Choice, InputChoice{});
}

TEST(Chooser, WhileItLoadsTheOptionsDoNothing) {
  ChooserRig rig;
  rig.View.OnShow = [&] {
    rig.Form.optInput_Click(3);
    rig.Form.optTrigger_Click(chooser::kUsb);
  };
  rig.Load();
  EXPECT_EQ(rig.Choice, InputChoice{});
  EXPECT_TRUE(rig.View.ComTriggerEnabled);
}

TEST(ChooserOK, SavesInItsOrderAndCloses) {
  ChooserRig rig;
  rig.Load();
  rig.Form.optInput_Click(3);
  rig.Form.CommPort_Change("5");
  rig.Form.ComTrigger_Change("6");
  rig.Store.Log.clear();
  rig.Form.cmdOK_Click();
  EXPECT_THAT(rig.Store.Log,
              ElementsAre("save InputDeviceIsLineIn=False", "save InputDeviceIsdBMeter=True",
                          "save ROSKAmeter=True", "save GaugeBridge=False", "save GaugeBridgeTrigger=False",
                          "save Commport=5", "save Commtrigger=6"));
  EXPECT_EQ(rig.Choice.Commport, 5);
  EXPECT_EQ(rig.Choice.Commtrigger, 6);
  EXPECT_EQ(rig.View.Closed, 1);
}

TEST(ChooserOK, OfASerialMeterWithoutAPortRefusesAndStaysOpen) {
  for (const int option : {2, 3}) {
    for (const char* port : {"", "0"}) {
      ChooserRig rig;
      rig.Load();
      rig.Form.optInput_Click(option);
      rig.Form.CommPort_Change(port);
      rig.Form.cmdOK_Click();
      EXPECT_THAT(rig.Dialogs.Texts,
                  ElementsAre("Input devices TARVEN and ROSKA require a Comm port to operate.\r\n\r\n"
                              "Please choose a Comm port between 1 and 32."));
      EXPECT_EQ(rig.View.Closed, 0);
      EXPECT_THAT(rig.Store.Log, IsEmpty()) << "nothing is saved";
    }
  }
}

TEST(ChooserOK, AllOtherInputsNeedNoPort) {
  for (const int option : {0, 1, 4}) {
    ChooserRig rig;
    rig.Load();
    rig.Form.optInput_Click(option);
    rig.Form.CommPort_Change(option == 0 ? "" : "0");
    rig.Form.cmdOK_Click();
    EXPECT_EQ(rig.View.Closed, 1);
    EXPECT_THAT(rig.Store.Log, Contains("save Commport=0"));
  }
}

struct TriggerRow {
  int Trigger;
  const char* Port;
  bool Enabled;
};
class TriggerBox : public ::testing::TestWithParam<TriggerRow> {};
TEST_P(TriggerBox, IsOnlyToBeHadWithATrigger) {
  ChooserRig rig;
  rig.Load();
  rig.Form.optTrigger_Click(GetParam().Trigger);
  rig.Form.ComTrigger_Change(GetParam().Port);
  rig.Window.Ticked[Control::chkTrigger] = true;
  rig.Form.cmdOK_Click();
  EXPECT_EQ(rig.Window.Enabled[Control::chkTrigger], GetParam().Enabled);
  EXPECT_EQ(rig.Window.Ticked[Control::chkTrigger], GetParam().Enabled);
  EXPECT_EQ(rig.Choice.GaugeBridgeTrigger, GetParam().Trigger == chooser::kUsb);
}
INSTANTIATE_TEST_SUITE_P(Choices, TriggerBox,
                         ::testing::Values(TriggerRow{chooser::kCts, "4", true},
                                           TriggerRow{chooser::kUsb, "0", true},
                                           TriggerRow{chooser::kCts, "0", false}));

TEST(ChooserCancel, TakesTheClicksBackAndLeavesThePorts) {
  ChooserRig rig;
  rig.Store.Put("ROSKAmeter", "True");
  rig.Store.Put("InputDeviceIsdBMeter", "True");
  rig.Store.Put("Commport", "3");
  rig.Load({.InputDeviceIsdBMeter = true, .ROSKAmeter = true, .Commport = 8, .Commtrigger = 9});
  rig.Form.optInput_Click(2);
  rig.Form.CommPort_Change("11");
  rig.Store.Log.clear();
  rig.Form.cmdCancel_Click();
  EXPECT_EQ(rig.Choice, (InputChoice{.InputDeviceIsLineIn = true,
                                     .InputDeviceIsdBMeter = true,
                                     .ROSKAmeter = true,
                                     .Commport = 8,
                                     .Commtrigger = 9}));
  EXPECT_THAT(rig.Store.Log, ElementsAre("get InputDeviceIsLineIn", "get InputDeviceIsdBMeter",
                                         "get ROSKAmeter", "get GaugeBridge", "get GaugeBridgeTrigger"));
  EXPECT_EQ(rig.View.Closed, 1);
}

TEST(ChooserCancel, WithADamagedStoreStillCloses) {
  ChooserRig rig;
  rig.Load();
  rig.Store.Put("ROSKAmeter", "perhaps");
  rig.Form.cmdCancel_Click();
  EXPECT_EQ(rig.View.Closed, 1);
  ASSERT_EQ(rig.Dialogs.Texts.size(), 1U);
  EXPECT_THAT(rig.Dialogs.Texts.front(), ::testing::HasSubstr("Error 13 (Type mismatch)"));
}

TEST(ChooserPorts, ALabelSaysWhatTheNumbersAreNow) {
  ChooserRig rig;
  rig.Store.Values["Lobegraph/Ports/COM2"] = rig.NoComputer.File("none");
  rig.Load({.Commport = 2, .Commtrigger = 0});
  EXPECT_EQ(rig.View.CommPortTitle, "nothing is there now");
  EXPECT_EQ(rig.View.ComTriggerTitle, "");
}

TEST(ChooserPorts, AnAdapterIsGivenToTheChosenNumberFromOkOnAfterTheOtherKeys) {
  ChooserRig rig;
  rig.Load({.Commport = 2, .Commtrigger = 3});
  rig.Form.AssignMeterPort("/dev/serial/by-id/a");
  rig.Form.AssignTriggerPort("/dev/serial/by-id/b");
  EXPECT_THAT(rig.Store.Log, Not(Contains("save Lobegraph/Ports/COM2=/dev/serial/by-id/a")));
  rig.Store.Log.clear();
  rig.Form.cmdOK_Click();
  ASSERT_EQ(rig.Store.Log.size(), 9U);
  EXPECT_EQ(rig.Store.Log[6], "save Commtrigger=3");
  EXPECT_EQ(rig.Store.Log[7], "save Lobegraph/Ports/COM2=/dev/serial/by-id/a");
  EXPECT_EQ(rig.Store.Log[8], "save Lobegraph/Ports/COM3=/dev/serial/by-id/b");
}

TEST(ChooserPorts, CancelGivesNoAdapterAway) {
  ChooserRig rig;
  rig.Load({.Commport = 2});
  rig.Form.AssignMeterPort("/dev/serial/by-id/a");
  rig.Form.cmdCancel_Click();
  EXPECT_EQ(rig.Store.Values.count("Lobegraph/Ports/COM2"), 0U);
}

TEST(ChooserPorts, WithoutANumberThereIsNothingToGive) {
  ChooserRig rig;
  rig.Load({.Commport = 0, .Commtrigger = 0});
  rig.Form.AssignMeterPort("/dev/serial/by-id/a");
  rig.Form.AssignTriggerPort("/dev/serial/by-id/a");
  rig.Form.cmdOK_Click();
  EXPECT_EQ(rig.Store.Log.size(), 7U);
}

TEST(ChooserTexts, AreThoseOfTheDialog) {
  EXPECT_STREQ(chooser::kCaption, "Lobegraph - Choose Input");
  EXPECT_STREQ(chooser::kInputGroup, " Signal input device ");
  EXPECT_STREQ(chooser::kPortGroup, " Comm port number ");
  EXPECT_STREQ(chooser::kTriggerGroup, " External triggering ");
  EXPECT_STREQ(chooser::kMeterPortLabel, "COM port number for TARVEN or ROSKA serially attached power meter");
  EXPECT_THAT(
      chooser::kTriggers,
      ElementsAre("Use the DLP USB device", "Use the CTS pin of a COM port (choose 0 if no ext triggering)"));
}

/// The main window around the chooser; everything that happens is one log.
struct WindowRig : test::ChooserWorld {
  test::LoggedSound Sound{Log};
  RecordingStore Published;
  FakeClock Time;
  test::InputRig Inputs{Shared, Log, Published, Time};
  std::function<void()> WhileChoosing = [] {};
  InputChoice& Choice = Shared.Settings.Input;
  InputCommands Commands{Parts, Inputs.Devices, Sound, [this] {
                           Log.emplace_back("chooser");
                           EXPECT_FALSE(Shared.Run.InputReady);
                           WhileChoosing();
                         }};
  WindowRig() {
    Shared.Run.InputReady = true;
    Inputs.MSComm1.IsOpen = Inputs.MSCommTrigger.IsOpen = true;
    Choice.Commtrigger = 9;
  }
};

TEST(ChooseInput, ClosesTheInputsShowsTheChooserAndOpensThemAgain) {
  WindowRig rig;
  rig.WhileChoosing = [&] {
    for (const char* name :
         {"cmdCollectData", "cmdHaltInput", "chkCalibrate", "cmdExit", "cmdChooseInput", "Slider1"})
      EXPECT_THAT(rig.Window.Disabled(), Contains(name));
    EXPECT_EQ(rig.Window.Disabled().size(), 6U);
    rig.Choice = {.InputDeviceIsdBMeter = true, .ROSKAmeter = true, .Commport = 5, .Commtrigger = 9};
  };
  rig.Commands.cmdChooseInput_Click();
  EXPECT_THAT(rig.Log,
              ElementsAre("meter close", "trigger close", "chooser", "show meter window", "meter open 5 9600",
                          "shape green", "lblStatus The meter's port COM5 is open.", "trigger open 9 57600"));
  EXPECT_TRUE(rig.Shared.Run.InputReady);
  EXPECT_THAT(rig.Window.Disabled(), IsEmpty());
  EXPECT_EQ(rig.Window.Texts[Control::lblSource], "ROSKA, COM5");
}

TEST(ChooseInput, StopsARunningCaptureFirst) {
  WindowRig rig;
  rig.Shared.Sound.SoundCaptureActive = true;
  rig.Commands.cmdChooseInput_Click();
  EXPECT_EQ(rig.Log.front(), "stop capture");
}

TEST(ChooseInput, OfTheSoundCardOpensTheTriggersPortOnly) {
  WindowRig rig;
  rig.Commands.cmdChooseInput_Click();
  EXPECT_THAT(rig.Log, ElementsAre("meter close", "trigger close", "chooser", "hide meter window",
                                   "trigger open 9 57600"));
}

TEST(ChooseInput, OfTarvenOpensAt38400) {
  WindowRig rig;
  rig.Choice = {.InputDeviceIsdBMeter = true, .Commport = 2};
  rig.Commands.cmdChooseInput_Click();
  EXPECT_THAT(rig.Log, Contains("meter open 2 38400"));
}

TEST(ChooseInput, DeliberatelyOpensAPortForTheExternalProgramUnlikeStartUp) {
  WindowRig rig;
  rig.Choice = {.InputDeviceIsdBMeter = true, .GaugeBridge = true, .Commport = 2};
  rig.Commands.cmdChooseInput_Click();
  EXPECT_THAT(rig.Log, Contains("show meter window"));
  EXPECT_THAT(rig.Log, Contains("meter open 2 38400"));
}

TEST(ChooseInput, ClosesTheModuleSoThatOneThatWasPluggedInAgainIsFound) {
  WindowRig rig;
  rig.Inputs.Usb.OpenDevice("DLP2232M B");
  rig.Commands.cmdChooseInput_Click();
  EXPECT_FALSE(rig.Inputs.Usb.UsbDeviceOpen());
  EXPECT_THAT(rig.Log, Contains("module close 77"));
}

TEST(ChooseInput, AnOldPortBesideTheExternalProgramIsALineInTheWindow) {
  WindowRig rig;
  rig.Choice = {.InputDeviceIsdBMeter = true, .GaugeBridge = true, .Commport = 2};
  rig.Inputs.MSComm1.OnOpen.Opened = false;
  rig.Commands.cmdChooseInput_Click();
  EXPECT_EQ(rig.Window.Texts[Control::lblHint], "COM2 is not to be had; the meter program does not need it.");
  EXPECT_THAT(rig.Inputs.Messages.Texts, IsEmpty());
}

TEST(ChooseInput, OfAProgramThatWasEndedWithTheChooserOpenOpensNothing) {
  WindowRig rig;
  rig.WhileChoosing = [&] { rig.Shared.Run.RequestClose(); };
  rig.Commands.cmdChooseInput_Click();
  EXPECT_EQ(rig.Log.back(), "chooser");
}

TEST(ChooseInput, DoesNothingWhileARunIsOn) {
  WindowRig rig;
  rig.Shared.Run.IsSweeping = true;
  rig.Commands.cmdChooseInput_Click();
  EXPECT_THAT(rig.Log, IsEmpty());
}

}  // namespace
}  // namespace lobegraph
