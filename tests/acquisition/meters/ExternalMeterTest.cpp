// The values that an external meter program publishes.
#include "acquisition/meters/ExternalMeter.h"

#include "support/FakeClock.h"
#include "support/MeterFakes.h"
#include "support/RecordingStore.h"

namespace lobegraph {
namespace {

using ::testing::ElementsAre;

struct Rig {
  MeterState State;
  SettingsValues Settings;
  test::FakeDisplay Display;
  RecordingStore Store;
  FakeClock Time;
  dBMeter Meter{State, Settings, Display, Time};
  ExternalMeter External{Store, Meter, State, Display, Time};

  void PollThrice() {
    for (int i = 0; i < 3; ++i) External.Poll();
  }
  void Publish(const std::string& active, const std::string& reading) {
    Store.Put("Active", active, "GaugeBridge");
    Store.Put("Reading", reading, "GaugeBridge");
  }
};

TEST(ExternalMeter, MinusThirtyDbmIsTheMiddleOfTheRangeAfterThreePolls) {
  Rig rig;
  rig.Publish("Y", "-30");
  rig.PollThrice();
  EXPECT_FLOAT_EQ(rig.State.MeterHistory[0], 300.0F);
  EXPECT_FLOAT_EQ(rig.State.MeterDb, 30.0F);
  EXPECT_NEAR(rig.State.MeterLevel, 31.62F, 0.01F);
  EXPECT_FLOAT_EQ(rig.Display.Dbm, -30.0F);
  EXPECT_FLOAT_EQ(rig.Display.DownDb, 30.0F);
  EXPECT_EQ(rig.Display.lblStatus, "The external power meter is active");
  EXPECT_EQ(rig.Display.Shape, StatusColour::Green);
}

TEST(ExternalMeter, BelowTheRangeIs0) {
  Rig rig;
  rig.Publish("Y", "-70.5");
  rig.PollThrice();
  EXPECT_EQ(rig.State.MeterAverage, 0.0F);
  EXPECT_FLOAT_EQ(rig.State.MeterLevel, 1.0F);
}

TEST(ExternalMeter, WithoutAReadingItIs1Dbm) {
  Rig rig;
  rig.Store.Put("Active", "Y", "GaugeBridge");
  rig.PollThrice();
  EXPECT_FLOAT_EQ(rig.Display.Dbm, 1.0F);
  EXPECT_FLOAT_EQ(rig.State.MeterAverage, 610.0F);
  EXPECT_FLOAT_EQ(rig.State.MeterDb, 60.0F);
}

TEST(ExternalMeter, ValuesGoOnWithOneDecimalOfATenth) {
  Rig rig;
  rig.Publish("Y", "-42.387");
  rig.External.Poll();
  EXPECT_FLOAT_EQ(rig.State.MeterHistory[0], 176.1F);
}

TEST(ExternalMeter, AnythingButYKeepsTheLastLevelAndSaysSo) {
  for (const char* active : {"N", "y", "Yes", "", " Y"}) {
    Rig rig;
    rig.Publish("Y", "-30");
    rig.PollThrice();
    const float level = rig.State.MeterLevel;
    rig.Publish(active, "-10");
    rig.External.Poll();
    EXPECT_EQ(rig.State.MeterLevel, level) << active;
    EXPECT_EQ(rig.State.ValuesReceived, 3U);
    EXPECT_EQ(rig.Display.lblStatus, "The external power meter is not ready.");
    EXPECT_EQ(rig.Display.Shape, StatusColour::Red);
  }
}

TEST(ExternalMeter, WhatIsNoNumberIsNoValue) {
  for (const char* text : {"-inf", "nan", "", "abc",
                           "\xE2\x88\x92"
                           "42.5",
                           "-1e400", "1e999"}) {
    Rig rig;
    rig.Publish("Y", "-30");
    rig.PollThrice();
    const float level = rig.State.MeterLevel;
    rig.Publish("Y", text);
    rig.PollThrice();
    EXPECT_EQ(rig.State.MeterLevel, level) << text;
    EXPECT_EQ(rig.State.ValuesReceived, 3U) << text;
    EXPECT_EQ(rig.Display.lblStatus, "The external power meter publishes no number.") << text;
    EXPECT_EQ(rig.Display.Shape, StatusColour::Red) << text;
    EXPECT_EQ(rig.State.Life.SilentAfterMs, 0U) << "it is told from its first reading on";
  }
}

TEST(ExternalMeter, OneWhoseBeatHasStoppedFor2SecondsIsDead) {
  Rig rig;
  rig.Store.Put("Beat", "17", "GaugeBridge");
  rig.Publish("Y", "-30");
  rig.PollThrice();
  rig.Time.Advance(1999);
  rig.External.Poll();
  EXPECT_EQ(rig.State.ValuesReceived, 4U);
  EXPECT_EQ(rig.State.Life.Signs, 1U);
  rig.Time.Advance(1);
  rig.External.Poll();
  EXPECT_EQ(rig.State.ValuesReceived, 4U);
  EXPECT_EQ(rig.Display.lblStatus, "The external power meter has fallen silent.");
  EXPECT_EQ(rig.Display.Shape, StatusColour::Red);
  rig.Store.Put("Beat", "18", "GaugeBridge");
  rig.External.Poll();
  EXPECT_EQ(rig.State.ValuesReceived, 5U) << "it lives again";
  EXPECT_EQ(rig.State.Life.Signs, 2U);
}

TEST(ExternalMeter, ANewReadingOrAFileWrittenAnewIsASignOfLifeToo) {
  Rig rig;
  rig.Store.Put("Beat", "17", "GaugeBridge");
  rig.Publish("Y", "-30");
  rig.Store.Change = StoreChange{.Stamp = 1};
  rig.External.Poll();
  rig.Publish("Y", "-31");
  rig.External.Poll();
  rig.Store.Change->Stamp = 2;
  rig.External.Poll();
  rig.External.Poll();
  EXPECT_EQ(rig.State.Life.Signs, 3U);
  EXPECT_FALSE(rig.State.Life.ToldByChangesOnly);
}

TEST(ExternalMeter, OfOneWithoutABeatEachPollIsASignAndOnlyChangesTellWhetherItLives) {
  Rig rig;
  rig.Publish("Y", "-30");
  rig.PollThrice();
  EXPECT_EQ(rig.State.Life.Signs, 3U);
  EXPECT_EQ(rig.State.Life.Changes, 1U);
  EXPECT_TRUE(rig.State.Life.ToldByChangesOnly);
  rig.Time.Advance(60'000);
  rig.External.Poll();
  EXPECT_EQ(rig.State.ValuesReceived, 4U) << "a steady signal";
}

TEST(ExternalMeter, OneThatLeftActiveBehindWithAnOldBeatIsNotReady) {
  for (const auto& [beat, ageMs, ready] : {std::tuple{"17", 1999, true},
                                           {"17", 2000, false},
                                           {"", 86'400'000, true},
                                           {"17", -3'600'000, true}}) {
    Rig rig;
    rig.Publish("Y", "-30");
    rig.Store.Put("Beat", beat, "GaugeBridge");
    rig.Store.Change = StoreChange{.Stamp = 1, .Age = std::chrono::milliseconds(ageMs)};
    EXPECT_EQ(rig.External.Ready(), ready) << beat << " " << ageMs;
    EXPECT_EQ(rig.Display.Shape, ready ? StatusColour::Green : StatusColour::Red);
  }
}

TEST(ExternalMeter, ThatNeverPublishedIsNotReady) {
  Rig rig;
  rig.External.Poll();
  EXPECT_EQ(rig.Display.Shape, StatusColour::Red);
  EXPECT_THAT(rig.Store.Log, ElementsAre("get GaugeBridge/Settings/Active"));
}

TEST(ExternalMeter, ANumberOfAnySizeIsAValueAndNoFault) {
  Rig rig;
  rig.Publish("Y", "1e99");
  rig.PollThrice();
  EXPECT_FLOAT_EQ(rig.State.MeterDb, 60.0F);
  rig.Publish("Y", "-1e99");
  rig.PollThrice();
  EXPECT_EQ(rig.State.MeterDb, 0.0F);
}

}  // namespace
}  // namespace lobegraph
