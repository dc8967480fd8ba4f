// The values that an external meter program publishes.
#include "acquisition/meters/ExternalMeter.h"

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
  dBMeter Meter{State, Settings, Display};
  ExternalMeter External{Store, Meter, State, Display};

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

TEST(ExternalMeter, ThatNeverPublishedIsNotReady) {
  Rig rig;
  rig.External.Poll();
  EXPECT_EQ(rig.Display.Shape, StatusColour::Red);
  EXPECT_THAT(rig.Store.Log, ElementsAre("get GaugeBridge/Settings/Active"));
}

TEST(ExternalMeter, APublishedNumberOfAnySizeIsFullScaleAndNoFault) {
  Rig rig;
  rig.Publish("Y", "1e999");
  rig.PollThrice();
  EXPECT_FLOAT_EQ(rig.State.MeterDb, 60.0F);
  rig.Publish("Y", "-1e99");
  rig.PollThrice();
  EXPECT_EQ(rig.State.MeterDb, 0.0F);
}

}  // namespace
}  // namespace lobegraph
