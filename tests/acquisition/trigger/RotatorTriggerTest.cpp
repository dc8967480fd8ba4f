// Waiting for the rotator's pulse on a COM port's line and on the USB module.
#include "acquisition/trigger/RotatorTrigger.h"

#include "acquisition/trigger/RotatorLine.h"
#include "data/base/RunTimeError.h"
#include "support/FakeClock.h"
#include "support/MeterFakes.h"

namespace lobegraph {
namespace {

using ::testing::ElementsAre;

struct TriggerRig {
  test::Calls Made;
  test::FakeSCom MSComm1{Made, "meter"};
  test::FakeSCom MSCommTrigger{Made, "trigger"};
  test::FakeD2xx Library;
  test::FakeDisplay Display;
  test::ShownMessages Messages;
  InputChoice Choice;
  RunFlags Flags;
  FakePump Pump;
  int Sleeps = 0;
  UsbModule Usb{Library, Display, Flags, Messages};
  RotatorLine CtsOrUsb{{.Choice = Choice,
                        .MSComm1 = MSComm1,
                        .MSCommTrigger = MSCommTrigger,
                        .Usb = Usb,
                        .Flags = Flags,
                        .Sleep = [this] { ++Sleeps; }}};
  std::int32_t& UsbStateCount = CtsOrUsb.UsbStateCount;
  bool Wanted = true;
  RotatorTrigger Trigger{CtsOrUsb, Flags, Pump, [this] { return Wanted; }};
  TriggerRig() {
    Choice.Commport = 1;
    Choice.Commtrigger = 2;
    MSCommTrigger.IsOpen = true;
  }
  /// Which value of a list holds at this poll; the first one before the first poll, the last one for ever.
  std::size_t Place(std::size_t count) const {
    return std::clamp<std::size_t>(static_cast<std::size_t>(UsbStateCount), 1, count) - 1;
  }
  /// The line's levels by poll.
  void Line(const std::string& levels) {
    MSCommTrigger.Line = [this, levels] { return levels[Place(levels.size())] == 'H'; };
  }
  /// What the driver has counted by poll.
  void Counts(const std::vector<std::uint32_t>& counts) {
    MSCommTrigger.Changes = [this, counts] { return counts[Place(counts.size())]; };
  }
  /// Whether the rest of the line's polls fires again.
  bool FiresAgain() {
    Pump.OnYield = [this](int) { Flags.HaltRequested = UsbStateCount >= 12; };
    return Trigger.WaitForTrigger();
  }
};

TEST(WaitForTrigger, AWholePulseFires) {
  TriggerRig rig;
  rig.Line("LLHHL");
  EXPECT_TRUE(rig.Trigger.WaitForTrigger());
  EXPECT_EQ(rig.UsbStateCount, 5);
  EXPECT_EQ(rig.Pump.Yields, 5) << "one yield a poll";
  EXPECT_EQ(rig.Sleeps, 3) << "it sleeps where it goes on waiting";
}

TEST(WaitForTrigger, ALineThatIsAlreadyHighCounts) {
  TriggerRig rig;
  rig.Line("HL");
  EXPECT_TRUE(rig.Trigger.WaitForTrigger());
  EXPECT_EQ(rig.UsbStateCount, 2);
}

TEST(WaitForTrigger, ThePulseLeavesAPressOfTheManualTrigger) {
  TriggerRig rig;
  rig.Line("HL");
  rig.Pump.OnYield = [&](int yield) { rig.Flags.ManualTriggerPressed = yield == 2; };
  EXPECT_TRUE(rig.Trigger.WaitForTrigger());
  EXPECT_TRUE(rig.Flags.ManualTriggerPressed);
}

TEST(WaitForTrigger, ThePulseFiresThoughHaltWasPressedWithItsLastYield) {
  TriggerRig rig;
  rig.Line("HL");
  rig.Pump.OnYield = [&](int yield) { rig.Flags.HaltRequested = yield == 2; };
  EXPECT_TRUE(rig.Trigger.WaitForTrigger());
}

class WaitingFor : public ::testing::TestWithParam<const char*> {};

TEST_P(WaitingFor, TheManualTriggerFiresAtOnceAndIsConsumed) {
  TriggerRig rig;
  rig.Line(GetParam());
  rig.Pump.OnYield = [&](int yield) { rig.Flags.ManualTriggerPressed = yield == 3; };
  EXPECT_TRUE(rig.Trigger.WaitForTrigger());
  EXPECT_FALSE(rig.Flags.ManualTriggerPressed);
  EXPECT_EQ(rig.UsbStateCount, 3) << "no further poll";
}

TEST_P(WaitingFor, HaltEndsTheWait) {
  TriggerRig rig;
  rig.Line(GetParam());
  rig.Pump.OnYield = [&](int yield) { rig.Flags.HaltRequested = yield == 4; };
  EXPECT_FALSE(rig.Trigger.WaitForTrigger());
  EXPECT_EQ(rig.UsbStateCount, 4);
}
INSTANTIATE_TEST_SUITE_P(HighAndLow, WaitingFor, ::testing::Values("L", "H"));

TEST_P(WaitingFor, ABoxThatIsUntickedEndsTheWait) {
  TriggerRig rig;
  rig.Line(GetParam());
  rig.Pump.OnYield = [&](int yield) { rig.Wanted = yield < 4; };
  EXPECT_FALSE(rig.Trigger.WaitForTrigger());
  EXPECT_EQ(rig.UsbStateCount, 4);
  EXPECT_EQ(rig.Flags.HaltRequested, 0) << "the turn goes on";
}

TEST_P(WaitingFor, APortThatVanishesEndsTheRunAndIsNoPulse) {
  TriggerRig rig;
  rig.Line(GetParam());
  rig.Pump.OnYield = [&](int yield) {
    if (yield < 4) return;
    rig.Flags.TriggerPortGone = true;
    rig.MSCommTrigger.IsOpen = false;
  };
  EXPECT_FALSE(rig.Trigger.WaitForTrigger());
  EXPECT_LE(rig.UsbStateCount, 5);
  EXPECT_EQ(rig.Flags.HaltRequested, 1);
}

TEST(RotatorLine, IsReadyWhenItsPortIsOpen) {
  for (const bool open : {false, true}) {
    TriggerRig rig;
    rig.MSCommTrigger.IsOpen = open;
    EXPECT_EQ(rig.CtsOrUsb.Ready(), open);
    rig.Choice.GaugeBridgeTrigger = true;
    EXPECT_TRUE(rig.CtsOrUsb.Ready()) << "a module tells by itself that it is missing";
  }
}

TEST(WaitForTrigger, APulseBetweenTwoPollsCountsWhereTheDriverCounts) {
  TriggerRig rig;
  rig.MSCommTrigger.Changes = [&] { return rig.UsbStateCount < 3 ? 10U : 12U; };
  EXPECT_TRUE(rig.Trigger.WaitForTrigger());
  EXPECT_EQ(rig.UsbStateCount, 4) << "one high, then one low";
}

TEST(WaitForTrigger, ManyPulsesBetweenTwoPollsAreOne) {
  TriggerRig rig;
  rig.MSCommTrigger.Changes = [&] { return rig.UsbStateCount < 2 ? 0U : 40U; };
  EXPECT_TRUE(rig.Trigger.WaitForTrigger());
  rig.Flags.ManualTriggerPressed = false;
  rig.Pump.OnYield = [&](int) { rig.Flags.HaltRequested = 1; };
  EXPECT_FALSE(rig.Trigger.WaitForTrigger());
}

TEST(WaitForTrigger, PulsesFromBeforeTheWaitDoNotCount) {
  TriggerRig rig;
  rig.MSCommTrigger.Changes = [] { return 500U; };
  rig.Pump.OnYield = [&](int yield) { rig.Flags.HaltRequested = yield == 5; };
  EXPECT_FALSE(rig.Trigger.WaitForTrigger());
}

TEST(WaitForTrigger, AGapBetweenTwoPollsOfAHighLineFires) {
  TriggerRig rig;
  rig.Line("H");
  rig.MSCommTrigger.Changes = [&] { return rig.UsbStateCount < 4 ? 1U : 3U; };
  EXPECT_TRUE(rig.Trigger.WaitForTrigger());
  EXPECT_EQ(rig.UsbStateCount, 4);
}

TEST(WaitForTrigger, AnEdgeBetweenCountAndLevelIsNotCountedTwice) {
  TriggerRig rig;
  rig.Line("LHHHL");
  rig.Counts({0, 0, 1, 1, 2});  // the second poll read the count just before the line rose
  EXPECT_TRUE(rig.Trigger.WaitForTrigger());
  EXPECT_EQ(rig.UsbStateCount, 5) << "not before the line falls";
  EXPECT_FALSE(rig.FiresAgain());
}

TEST(WaitForTrigger, ADriverThatCountsLateGivesOnePulseForEach) {
  TriggerRig rig;
  rig.Line("LHLLLLL");
  rig.Counts({0, 0, 0, 0, 1, 2, 2});
  EXPECT_TRUE(rig.Trigger.WaitForTrigger());
  EXPECT_EQ(rig.UsbStateCount, 3);
  rig.UsbStateCount = 6;
  EXPECT_FALSE(rig.FiresAgain());
}

TEST(WaitForTrigger, ALineThatIsHighAtFirstAndFallsBeforeTheFirstPollFires) {
  TriggerRig rig;
  rig.MSCommTrigger.Line = [&] { return rig.UsbStateCount == 0; };
  EXPECT_TRUE(rig.Trigger.WaitForTrigger());
  EXPECT_EQ(rig.UsbStateCount, 2);
}

TEST(WaitForTrigger, APulseAfterAMissedOneIsAPulseOfItsOwn) {
  TriggerRig rig;
  rig.Counts({0, 2, 2, 2, 4});
  EXPECT_TRUE(rig.Trigger.WaitForTrigger());
  EXPECT_EQ(rig.UsbStateCount, 3);
  EXPECT_TRUE(rig.FiresAgain());
  EXPECT_EQ(rig.UsbStateCount, 6);
}

TEST(ReadTriggerState, OfDifferentNumbersReadsTheTriggersPort) {
  TriggerRig rig;
  rig.MSComm1.IsOpen = true;
  rig.MSComm1.Number = 1;
  rig.MSComm1.Line = [] { return true; };
  EXPECT_EQ(rig.CtsOrUsb.ReadTriggerState(), 'L');
  rig.MSCommTrigger.Line = [] { return true; };
  EXPECT_EQ(rig.CtsOrUsb.ReadTriggerState(), 'H');
}

TEST(ReadTriggerState, OfEqualNumbersReadsTheMetersPortWhenItIsOpen) {
  TriggerRig rig;
  rig.Choice.Commport = 2;
  rig.MSComm1.IsOpen = true;
  rig.MSComm1.Number = 2;
  rig.MSComm1.Line = [] { return true; };
  EXPECT_EQ(rig.CtsOrUsb.ReadTriggerState(), 'H');
}

TEST(ReadTriggerState, AnOldMeterNumberDoesNotLeaveTheTriggerDead) {
  TriggerRig rig;
  rig.Choice.Commport = 2;
  rig.MSCommTrigger.Line = [] { return true; };
  EXPECT_EQ(rig.CtsOrUsb.ReadTriggerState(), 'H');
}

TEST(ReadTriggerState, TheMetersPortIsReadOnlyWhereItIsOpenOnTheTriggersNumber) {
  struct Row {
    std::int16_t Commport;
    bool Open;
    std::int16_t Number;
  };
  for (const Row row : {Row{2, false, 2}, {2, true, 1}, {1, true, 2}, {1, false, 2}}) {
    TriggerRig rig;
    rig.Choice.Commport = row.Commport;
    rig.MSComm1.IsOpen = row.Open;
    rig.MSComm1.Number = row.Number;
    rig.MSComm1.Line = [] { return true; };
    EXPECT_EQ(rig.CtsOrUsb.ReadTriggerState(), 'L') << row.Commport << row.Open << row.Number;
  }
}

TEST(ReadTriggerState, AClosedPortReadsLow) {
  TriggerRig rig;
  rig.MSCommTrigger.IsOpen = false;
  rig.MSCommTrigger.Line = [] { return true; };
  EXPECT_EQ(rig.CtsOrUsb.ReadTriggerState(), 'L');
}

TEST(ReadTriggerState, CountsThePollsAndChecksForOverflow) {
  TriggerRig rig;
  rig.CtsOrUsb.ReadTriggerState();
  EXPECT_EQ(rig.UsbStateCount, 1);
  rig.UsbStateCount = 2147483647;
  EXPECT_THROW(rig.CtsOrUsb.ReadTriggerState(), RunTimeError);
}

TEST(ReadTriggerState, OpensTheUsbModuleOnceAndReadsPinD0) {
  TriggerRig rig;
  rig.Choice.GaugeBridgeTrigger = true;
  rig.Library.Pins = [&] { return static_cast<std::uint8_t>(rig.UsbStateCount == 1 ? 1 : 0); };
  EXPECT_EQ(rig.CtsOrUsb.ReadTriggerState(), 'H');
  EXPECT_EQ(rig.CtsOrUsb.ReadTriggerState(), 'L');
  EXPECT_EQ(std::count(rig.Library.Made.begin(), rig.Library.Made.end(), "open DLP2232M B 0x00000002"), 1);
}

TEST(WaitForTrigger, OfTheUsbModuleFiresAfterAPulse) {
  TriggerRig rig;
  rig.Choice.GaugeBridgeTrigger = true;
  rig.Library.Pins = [&] { return static_cast<std::uint8_t>(rig.UsbStateCount == 3 ? 1 : 0); };
  EXPECT_TRUE(rig.Trigger.WaitForTrigger());
  EXPECT_EQ(rig.UsbStateCount, 4);
}

TEST(WaitForTrigger, WithoutAUsbModuleEndsTheCollectionAtTheFirstPoll) {
  TriggerRig rig;
  rig.Choice.GaugeBridgeTrigger = true;
  rig.Library.Devices.clear();
  EXPECT_FALSE(rig.Trigger.WaitForTrigger());
  EXPECT_EQ(rig.UsbStateCount, 1);
  EXPECT_EQ(rig.Display.lblStatus, "No FTDI devices found. Please connect the meter and re-try");
  EXPECT_EQ(rig.Flags.HaltRequested, 1);
}

TEST(WaitForTrigger, AModuleThatIsPulledOutEndsTheCollectionWithOneBox) {
  TriggerRig rig;
  rig.Choice.GaugeBridgeTrigger = true;
  EXPECT_EQ(rig.CtsOrUsb.ReadTriggerState(), 'L');
  rig.Library.Failures["pins"] = 4;
  EXPECT_FALSE(rig.Trigger.WaitForTrigger());
  EXPECT_THAT(rig.Messages.Texts, ElementsAre("FT_GetBitMode - General IO Error"));
}

TEST(WaitForTrigger, AModuleThatIsPluggedInAgainIsOpenedAnew) {
  TriggerRig rig;
  rig.Choice.GaugeBridgeTrigger = true;
  rig.CtsOrUsb.ReadTriggerState();
  rig.Library.Failures["pins"] = 4;
  rig.CtsOrUsb.ReadTriggerState();
  rig.Library.Failures.clear();
  rig.Flags.HaltRequested = 0;
  rig.Library.Pins = [&] { return static_cast<std::uint8_t>(rig.UsbStateCount == 3 ? 1 : 0); };
  EXPECT_TRUE(rig.Trigger.WaitForTrigger());
  EXPECT_EQ(std::count(rig.Library.Made.begin(), rig.Library.Made.end(), "open DLP2232M B 0x00000002"), 2);
  EXPECT_EQ(rig.Messages.Texts.size(), 1U);
}

}  // namespace
}  // namespace lobegraph
