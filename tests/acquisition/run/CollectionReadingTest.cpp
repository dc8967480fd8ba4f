// What becomes of one reading: clamp, box, record, dB down, radius, point.
#include <cmath>

#include "acquisition/CollectionRig.h"
#include "acquisition/run/LiveReading.h"

namespace lobegraph {
namespace {

using ::testing::ElementsAre;

TEST(StoredLevel, lies_between_0_and_the_peak_input_level) {
  struct Row {
    float Mean;
    float Stored;
  };
  for (const Row row : {Row{1023.9F, 1000.0F},
                        {1000.0F, 1000.0F},
                        {999.9F, 999.9F},
                        {1.0F, 1.0F},
                        {0.99F, 0.0F},
                        {0.0F, 0.0F}}) {
    EXPECT_EQ(StoredLevel(row.Mean, 1000.0F), row.Stored) << row.Mean;
  }
}

TEST(StoredLevel, below_1_is_judged_after_the_peak_input_level) { EXPECT_EQ(StoredLevel(5.0F, 0.5F), 0.0F); }

TEST(CollectionReading, an_average_above_the_peak_is_stored_as_the_peak) {
  CollectionRig rig;
  rig.Settings.PeakInputLevel = 500.0F;
  rig.Level.Level = 501.0F;
  rig.HaltAfter(0);
  rig.Collect();
  EXPECT_EQ(rig.Record.Readings(0), 500.0F);
  EXPECT_THAT(rig.Panel.Levels, ElementsAre(500.0F));
}

TEST(CollectionReading, an_average_below_1_is_stored_as_0_and_drawn_at_the_centre_on_every_scale) {
  for (const bool plotInDb : {false, true}) {
    for (const bool logarithmic : {false, true}) {
      CollectionRig rig;
      rig.Panel.PlotInDB = plotInDb;
      rig.Settings.ShowLogScale = logarithmic;
      rig.Level.Level = 0.99F;
      rig.HaltAfter(1);
      EXPECT_EQ(rig.Collect().ReadingsTaken, 2) << "a silent reading ends no turn";
      EXPECT_EQ(rig.Record.Readings(1), 0.0F);
      EXPECT_NEAR(rig.Panel.Points.at(1).Radius, 0.0F, 1e-6F);
    }
  }
}

TEST(CollectionReading, its_steps_follow_each_other) {
  CollectionRig rig;
  rig.Panel.RotationSeconds = 1;
  rig.Level.MsPerSample = 3;
  rig.HaltAfter(1);
  rig.Collect();
  const auto from = static_cast<std::size_t>(rig.PlaceOf("SourceRuns")) + 2;  // past the start-up delay
  const CallLog readings(rig.Log.begin() + static_cast<std::ptrdiff_t>(from),
                         rig.Log.begin() + static_cast<std::ptrdiff_t>(from) + 6);
  EXPECT_THAT(readings, ElementsAre("ReadInputLevel", "ReadingStored 0", "ReadingPlotted 0", "ReadInputLevel",
                                    "ReadingStored 1", "ReadingPlotted 1"));
}

TEST(CollectionReading, stands_in_the_record_when_its_copy_is_taken) {
  CollectionRig rig;
  rig.Panel.OnStored = [&](int index) { EXPECT_EQ(rig.Record.Readings(index), 300.0F); };
  rig.Collect();
  EXPECT_EQ(rig.Panel.Stored.size(), 360U);
  EXPECT_EQ(rig.Panel.Stored.front(), 0);
  EXPECT_EQ(rig.Panel.Stored.back(), 359);
}

/// Radius of one reading of that level.
float RadiusOf(CollectionRig& rig, float level) {
  rig.Level.Level = level;
  rig.HaltAfter(0);
  rig.Collect();
  return rig.Panel.Points.at(0).Radius;
}

TEST(LiveRadius, linear_is_proportional_to_the_level) {
  CollectionRig rig;
  rig.Panel.PlotInDB = false;
  EXPECT_FLOAT_EQ(RadiusOf(rig, 250.0F), 58.5F);
}

TEST(LiveRadius, linear_wins_over_the_logarithmic_flag) {
  for (const bool logarithmic : {false, true}) {
    CollectionRig rig;
    rig.Panel.PlotInDB = false;
    rig.Settings.ShowLogScale = logarithmic;
    EXPECT_FLOAT_EQ(RadiusOf(rig, 1000.0F), 234.0F);
  }
}

TEST(LiveRadius, logarithmic_uses_the_scale_slider) {
  CollectionRig rig;
  rig.Panel.Scale = 20;
  EXPECT_FLOAT_EQ(RadiusOf(rig, 100.0F), 23.4F);  // 20 dB down at scale 20: a tenth
}

TEST(LiveRadius, the_scale_is_that_of_the_start) {
  CollectionRig rig;
  rig.Panel.Scale = 20;
  rig.Window.OnYield = [&](int) { rig.Panel.Scale = 40; };
  EXPECT_FLOAT_EQ(RadiusOf(rig, 100.0F), 23.4F);
}

TEST(LiveRadius, the_plot_in_db_spans_50_dB_and_ends_at_the_centre) {
  struct Row {
    float Level;
    float Radius;
  };
  for (const Row row : {Row{1000.0F, 234.0F}, {100.0F, 140.4F}, {10.0F, 46.8F}, {1.0F, 0.0F}}) {
    CollectionRig rig;
    rig.Settings.ShowLogScale = false;
    EXPECT_NEAR(RadiusOf(rig, row.Level), row.Radius, 1e-3F) << row.Level;
  }
}

TEST(LiveDownDb, of_the_sound_card_is_taken_from_the_peak_input_level) {
  CollectionRig rig;
  EXPECT_EQ(LiveDownDb(rig.Parts, 1.0F), 60.0F);
  EXPECT_EQ(LiveDownDb(rig.Parts, 1000.0F), 0.0F);
  EXPECT_GT(LiveDownDb(rig.Parts, 0.0F), 60.0F);
  EXPECT_TRUE(std::isfinite(LiveDownDb(rig.Parts, 0.0F)));
}

TEST(LiveDownDb, of_a_meter_is_60_less_its_calibrated_value) {
  CollectionRig rig;
  rig.UseSerialMeter();
  rig.Meter.MeterDb = 47.5F;
  EXPECT_EQ(LiveDownDb(rig.Parts, 300.0F), 12.5F);
  EXPECT_EQ(LiveDownDb(rig.Parts, 0.0F), 12.5F);
}

TEST(CollectionReading, of_a_meter_is_drawn_at_the_meters_dB) {
  CollectionRig rig;
  rig.UseSerialMeter();
  rig.Settings.ShowLogScale = false;
  rig.Meter.MeterDb = 35.0F;
  EXPECT_FLOAT_EQ(RadiusOf(rig, 300.0F), 117.0F);
}

TEST(CollectionReading, positions_are_degrees_half_as_far_apart_in_a_180_degree_plot) {
  for (const float step : {1.0F, 0.5F}) {
    CollectionRig rig;
    rig.Record.Plot180 = step < 1.0F;
    rig.Collect();
    ASSERT_EQ(rig.Panel.Points.size(), 360U);
    EXPECT_EQ(rig.Panel.Points[0].PositionDeg, 0.0F);
    EXPECT_EQ(rig.Panel.Points[359].PositionDeg, 359.0F * step);
  }
}

TEST(CollectionReading, positions_are_the_same_degrees_in_the_rectangular_drawing) {
  CollectionRig rig;
  rig.Settings.LinearMode = true;
  rig.Collect();
  EXPECT_EQ(rig.Panel.Points.at(90).PositionDeg, 90.0F);
}

TEST(CollectionReading, display_options_count_from_the_next_reading_on) {
  CollectionRig rig;
  rig.Level.Level = 250.0F;
  rig.Panel.OnStored = [&](int index) { rig.Panel.PlotInDB = index < 5; };
  rig.Collect();
  EXPECT_NE(rig.Panel.Points.at(4).Radius, 58.5F);
  EXPECT_EQ(rig.Panel.Points.at(5).Radius, 58.5F);
}

TEST(CollectionReading, the_strongest_is_the_peak_of_the_pattern_the_first_of_equals) {
  CollectionRig rig;
  rig.Panel.RotationSeconds = 1;
  rig.Level.MsPerSample = 3;  // one sample a reading
  rig.Level.OnSample = [](int sample) { return sample == 12 || sample == 20 ? 500.0F : 100.0F; };
  rig.Record.PeakIndex = 200;
  rig.Collect();
  EXPECT_EQ(rig.Record.PeakIndex, 10);
  EXPECT_NEAR(rig.Record.PeakLevelDb, 6.0206F, 1e-3F);
}

TEST(CollectionReading, a_peak_below_60_dB_down_is_kept_as_60) {
  for (const auto& [level, downDb] : {std::pair{1.5F, 56.4782F}, {0.5F, 60.0F}}) {
    CollectionRig rig;
    rig.Level.Level = level;
    rig.Collect();
    EXPECT_NEAR(rig.Record.PeakLevelDb, downDb, 1e-3F);
  }
}

TEST(CollectionReading, a_meter_that_never_spoke_is_60_dB_down) {
  CollectionRig rig;
  rig.UseSerialMeter();
  rig.Collect();
  EXPECT_EQ(rig.Record.PeakLevelDb, 60.0F);
}

TEST(CollectionReading, a_peak_input_level_of_0_is_a_fault_that_unlocks_the_window) {
  CollectionRig rig;
  rig.Settings.PeakInputLevel = 0.0F;
  rig.Panel.PlotInDB = false;
  try {
    rig.Collect();
    FAIL() << "0 divided by 0";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), 6);
  }
  EXPECT_FALSE(rig.Panel.Locked);
  EXPECT_EQ(rig.Record.ReadingCount, 1.0);
}

TEST(LiveRadius, a_level_over_a_peak_input_level_of_0_is_a_division_by_zero) {
  CollectionRig rig;
  rig.Settings.PeakInputLevel = 0.0F;
  rig.Panel.PlotInDB = false;
  try {
    LiveRadius(rig.Parts, 1.0F, 0.0F, 35);
    FAIL() << "1 divided by 0";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), 11);
  }
}

}  // namespace
}  // namespace lobegraph
