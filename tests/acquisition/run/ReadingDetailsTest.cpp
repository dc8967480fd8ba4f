// What is told of a reading besides its level, and how a turn is said to have ended.
#include <cmath>

#include "acquisition/CollectionRig.h"
#include "acquisition/run/LiveReading.h"

namespace lobegraph {
namespace {

TEST(SampleMean, tells_the_spread_of_its_samples) {
  SampleMean mean;
  mean.Add(300.0F);
  EXPECT_EQ(mean.Spread(), std::nullopt) << "one sample has none";
  for (const float sample : {302.0F, 304.0F, 306.0F}) mean.Add(sample);
  EXPECT_EQ(mean.Count(), 4);
  EXPECT_EQ(mean.Mean(), 303.0F);
  EXPECT_NEAR(mean.Spread().value(), std::sqrt(20.0 / 3.0), 1e-9);
}

TEST(ReadingDetails, a_reading_of_the_sound_is_one_level) {
  CollectionRig rig;
  rig.Collect();
  ASSERT_EQ(rig.Panel.Details.size(), 360U);
  EXPECT_EQ(rig.Panel.Details[7].Samples, 1);
  EXPECT_EQ(rig.Panel.Details[7].Spread, std::nullopt);
}

TEST(ReadingDetails, a_reading_of_a_meter_tells_its_samples_and_their_spread) {
  CollectionRig rig;
  rig.UseSerialMeter();
  rig.Level.OnSample = [](int sample) { return sample % 2 == 0 ? 299.0F : 301.0F; };
  rig.Collect();
  EXPECT_EQ(rig.Panel.Details[7].Samples, 100);
  EXPECT_NEAR(rig.Panel.Details[7].Spread.value(), 1.0, 0.01);
}

TEST(ReadingDetails, a_late_reading_and_one_with_a_sleep_in_it_say_so_and_no_other) {
  CollectionRig rig;
  rig.Panel.OnStored = [&](int index) {
    if (index == 99) rig.Time.Suspended += 12'000;
  };
  rig.Level.OnSample = [&](int) {
    if (rig.Panel.Stored.size() == 20) rig.Time.Advance(250);
    return 300.0F;
  };
  rig.Collect();
  EXPECT_TRUE(rig.Panel.Details[20].Late);
  EXPECT_FALSE(rig.Panel.Details[19].Late);
  EXPECT_FALSE(rig.Panel.Details[40].Late);
  EXPECT_TRUE(rig.Panel.Details[100].Suspended);
  EXPECT_FALSE(rig.Panel.Details[101].Suspended);
}

TEST(TurnEnding, is_whole_halted_by_auto_stop_or_without_its_source) {
  CollectionRig whole;
  EXPECT_EQ(whole.Collect().Ended, TurnEnding::Whole);
  CollectionRig halted;
  halted.Panel.OnStored = [&](int index) {
    if (index == 50) halted.Engine.cmdHaltInput_Click();
  };
  EXPECT_EQ(halted.Collect().Ended, TurnEnding::Halted);
  CollectionRig stopped;
  stopped.Panel.AutoStop = true;
  stopped.Level.Level = 5.0F;
  EXPECT_EQ(stopped.Collect().Ended, TurnEnding::AutoStop);
  CollectionRig lost;
  lost.Panel.OnStored = [&](int index) {
    if (index == 50) lost.Sound.Failure = "The source is gone.";
  };
  EXPECT_EQ(lost.Collect().Ended, TurnEnding::SourceLost);
}

}  // namespace
}  // namespace lobegraph
