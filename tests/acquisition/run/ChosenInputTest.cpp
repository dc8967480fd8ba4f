// One sample from the chosen source.
#include "acquisition/CollectionRig.h"
#include "acquisition/run/ChosenInput.h"

namespace lobegraph {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct InputRig : CollectionRig {
  SoundLevelState State;
  SoundThresholds Thresholds = SoundThresholds::FromPeak(1000.0F);
  ChosenInput Input{{Settings, Flags, State, Thresholds, Meter, Program, Window, Time, Front().Tell}};

  bool Polled() const { return !Store.Log.empty(); }
};

TEST(ReadInputLevel, of_the_sound_card_lasts_until_the_next_tick_and_does_not_yield) {
  InputRig rig;
  rig.State.SoundLevel = 900.0F;
  EXPECT_EQ(rig.Input.ReadInputLevel(), 900.0F);
  EXPECT_EQ(rig.Time.TicksSlept, 1);
  EXPECT_EQ(rig.Window.Yields, 0);
  EXPECT_FALSE(rig.Polled());
}

TEST(ReadInputLevel, of_the_sound_card_colours_the_box_of_the_level) {
  InputRig rig;
  for (const float level : {879.0F, 900.0F, 1023.0F}) {
    rig.State.SoundLevel = level;
    rig.Input.ReadInputLevel();
  }
  EXPECT_THAT(rig.Log, ElementsAre("level yellow", "level green", "level light red"));
}

TEST(ReadInputLevel, of_the_sound_card_is_held_at_the_peak_input_level) {
  InputRig rig;
  rig.Settings.PeakInputLevel = 500.0F;
  rig.State.SoundLevel = 1023.0F;
  EXPECT_EQ(rig.Input.ReadInputLevel(), 500.0F);
}

TEST(ReadInputLevel, of_an_input_that_is_not_ready_is_1_and_colours_nothing) {
  InputRig rig;
  rig.Flags.InputReady = false;
  rig.State.SoundLevel = 900.0F;
  EXPECT_EQ(rig.Input.ReadInputLevel(), 1.0F);
  EXPECT_THAT(rig.Log, IsEmpty());
}

TEST(ReadInputLevel, of_a_serial_meter_that_never_spoke_is_0) {
  InputRig rig;
  rig.UseSerialMeter();
  EXPECT_EQ(rig.Input.ReadInputLevel(), 0.0F);
}

TEST(ReadInputLevel, of_a_serial_meter_is_its_last_value_then_5_ms_with_one_yield) {
  InputRig rig;
  rig.Choice.InputDeviceIsdBMeter = true;
  rig.Meter.MeterLevel = 100.0F;
  rig.Window.OnYield = [&](int) {
    EXPECT_EQ(rig.Time.SleptMs, 0);
    rig.Meter.MeterLevel = 200.0F;  // came in meanwhile: the next sample's
  };
  EXPECT_EQ(rig.Input.ReadInputLevel(), 100.0F);
  EXPECT_EQ(rig.Window.Yields, 1);
  EXPECT_EQ(rig.Time.SleptMs, 5);
  rig.Window.OnYield = nullptr;
  EXPECT_EQ(rig.Input.ReadInputLevel(), 200.0F);
  EXPECT_FALSE(rig.Polled());
}

TEST(ReadInputLevel, of_the_external_meter_is_polled_first) {
  InputRig rig;
  rig.UseExternalMeter("Y");
  rig.Store.Put("Reading", "0", "GaugeBridge");
  EXPECT_FLOAT_EQ(rig.Input.ReadInputLevel(), 10.0F) << "a third of 60 dB, averaged with zeros";
  EXPECT_EQ(std::count(rig.Store.Log.begin(), rig.Store.Log.end(), "get GaugeBridge/Settings/Reading"), 1);
  EXPECT_EQ(rig.Time.SleptMs, 5);
}

TEST(ReadInputLevel, the_external_meter_flag_alone_does_not_leave_the_sound_card) {
  InputRig rig;
  rig.Choice.GaugeBridge = true;
  rig.State.SoundLevel = 12.0F;
  EXPECT_EQ(rig.Input.ReadInputLevel(), 12.0F);
  EXPECT_FALSE(rig.Polled());
}

}  // namespace
}  // namespace lobegraph
