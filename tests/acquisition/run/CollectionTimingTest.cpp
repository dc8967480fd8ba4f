// When readings are taken: the interval, the absolute schedule, triggers, and what came too late.
#include "acquisition/CollectionRig.h"

namespace lobegraph {
namespace {

using ::testing::Each;

/// Milliseconds from the start of the reading loop to the end of each reading.
std::vector<int> EndsOfReadings(CollectionRig& rig) {
  std::vector<int> ends;
  const std::int32_t start = rig.Time.NowMs + rig.Level.MsPerSample;  // the start-up delay takes one sample
  rig.Panel.OnStored = [&rig, &ends, start](int) { ends.push_back(rig.Time.NowMs - start); };
  rig.Collect();
  return ends;
}

TEST(CollectionTiming, the_interval_is_the_rotation_time_over_360_to_the_nearest_millisecond) {
  struct Row {
    int Seconds;
    int IntervalMs;
  };
  for (const Row row : {Row{1, 3}, {9, 25}, {20, 56}, {36, 100}, {60, 167}, {120, 333}, {1200, 3333}}) {
    CollectionRig rig;
    rig.Panel.RotationSeconds = row.Seconds;
    const std::vector<int> ends = EndsOfReadings(rig);
    ASSERT_EQ(ends.size(), 360U);
    EXPECT_EQ(ends[0], row.IntervalMs) << row.Seconds;
    EXPECT_EQ(ends[359], 360 * row.IntervalMs) << row.Seconds;
  }
}

TEST(CollectionTiming, a_late_reading_shortens_the_next_one_and_time_does_not_drift) {
  CollectionRig rig;
  int stall = 60;
  rig.Window.OnYield = [&](int) {
    if (rig.Panel.Stored.size() == 10) rig.Time.Advance(std::exchange(stall, 0));
  };
  rig.Level.MsPerSample = 30;
  const std::vector<int> ends = EndsOfReadings(rig);
  for (std::size_t index = 0; index < ends.size(); ++index) {
    const int deadline = 100 * static_cast<int>(index + 1);
    EXPECT_GE(ends[index], deadline);
    EXPECT_LT(ends[index], deadline + 30);
  }
}

TEST(CollectionTiming, at_least_one_sample_is_taken_when_the_deadline_has_passed) {
  CollectionRig rig;
  rig.Level.MsPerSample = 250;
  const int before = rig.Level.Samples;
  rig.Collect();
  EXPECT_EQ(rig.Level.Samples - before, 361);  // one of the start-up delay, then one a reading
}

TEST(CollectionTiming, a_sample_that_ends_on_the_deadline_is_the_last) {
  CollectionRig rig;
  rig.Level.MsPerSample = 50;
  rig.HaltAfter(0);
  rig.Collect();
  EXPECT_EQ(rig.Level.Samples, 3);
}

TEST(CollectionTiming, there_is_one_yield_a_reading_and_none_between_samples) {
  CollectionRig rig;
  rig.Collect();
  EXPECT_EQ(rig.Window.Yields, 361);  // start-up delay, then one a reading
}

TEST(CollectionTiming, a_constant_level_is_stored_exactly_at_any_rotation_time) {
  for (const int seconds : {1, 20, 60, 599, 1200}) {
    CollectionRig rig;
    rig.Panel.RotationSeconds = seconds;
    rig.Collect();
    for (int index = 0; index < 360; ++index) ASSERT_EQ(rig.Record.Readings(index), 300.0F) << seconds;
  }
}

TEST(CollectionTiming, a_reading_of_the_longest_turn_has_3333_samples) {
  CollectionRig rig;
  rig.Panel.RotationSeconds = 1200;
  rig.HaltAfter(0);
  rig.Collect();
  EXPECT_EQ(rig.Level.Samples, 1 + 3333);
}

TEST(CollectionTiming, a_reading_is_the_mean_of_its_samples) {
  CollectionRig rig;
  rig.Level.OnSample = [](int sample) { return sample % 2 == 0 ? 100.0F : 200.0F; };
  rig.HaltAfter(0);
  rig.Collect();
  EXPECT_EQ(rig.Record.Readings(0), 150.0F);
}

TEST(CollectionTiming, a_deadline_beyond_32_bits_is_an_overflow_that_keeps_the_readings) {
  CollectionRig rig;
  rig.Time.NowMs = 2'147'483'000;
  try {
    rig.Collect();
    FAIL() << "no overflow";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), 6);
  }
  EXPECT_FALSE(rig.Panel.Locked);
  EXPECT_EQ(rig.Record.ReadingCount, 6.0);
  EXPECT_EQ(rig.Record.NumReadings, 5);
  EXPECT_EQ(rig.Record.SavedReadings(5), 300.0F);
  EXPECT_EQ(rig.Panel.ReadingsTaken, 6);
}

TEST(LateReadings, a_turn_in_time_names_none) {
  CollectionRig rig;
  const RunReport report = rig.Collect();
  EXPECT_EQ(report.Late.Count, 0);
  EXPECT_EQ(report.Late.First, -1);
}

TEST(LateReadings, a_suspended_program_goes_on_as_written_and_names_them) {
  CollectionRig rig;
  int suspended = 1000;
  rig.Level.OnSample = [&](int) {
    if (rig.Panel.Stored.size() == 40) rig.Time.Advance(std::exchange(suspended, 0));
    return 300.0F;
  };
  const RunReport report = rig.Collect();
  EXPECT_EQ(report.ReadingsTaken, 360);
  // Reading 40 ends 901 ms after its deadline, each later one 99 ms less: 40 to 48 are more than 100 ms late.
  EXPECT_EQ(report.Late.First, 40);
  EXPECT_EQ(report.Late.Count, 9);
  EXPECT_EQ(report.Late.Last, 48);
}

TEST(LateReadings, a_whole_interval_is_not_yet_late) {
  for (const int overdue : {100, 101}) {
    CollectionRig rig;
    rig.Level.OnSample = [&](int sample) {
      if (sample == 101) rig.Time.Advance(overdue);  // ends reading 0
      return 300.0F;
    };
    EXPECT_EQ(rig.Collect().Late.Count, overdue > 100 ? 1 : 0);
  }
}

TEST(Triggered, each_reading_is_the_mean_of_five_samples_whatever_the_rotation_time) {
  for (const int seconds : {1, 1200}) {
    CollectionRig rig;
    rig.Panel.Triggered = true;
    rig.Panel.RotationSeconds = seconds;
    rig.Level.OnSample = [](int sample) { return sample == 6 ? 200.0F : 100.0F; };
    const RunReport report = rig.Collect();
    EXPECT_EQ(rig.Level.Samples, 1 + 5 * 360);
    EXPECT_EQ(rig.Trigger.Waits, 360);
    EXPECT_EQ(rig.Record.Readings(0), 120.0F);
    EXPECT_EQ(report.Late.Count, 0);
  }
}

TEST(Triggered, a_wait_that_gives_up_is_repeated) {
  CollectionRig rig;
  rig.Panel.Triggered = true;
  rig.Trigger.OnWait = [](int wait) { return wait % 3 == 0; };
  rig.Collect();
  EXPECT_EQ(rig.Trigger.Waits, 3 * 360);
  EXPECT_EQ(rig.Window.Yields, 1 + 360 + 3 * 360);  // one after each wait
}

TEST(Triggered, halt_during_the_wait_ends_the_turn_before_the_reading) {
  CollectionRig rig;
  rig.Panel.Triggered = true;
  rig.Trigger.OnWait = [&](int wait) {
    if (wait == 8) rig.Engine.cmdHaltInput_Click();
    return wait < 8;
  };
  EXPECT_EQ(rig.Collect().ReadingsTaken, 7);
  EXPECT_EQ(rig.Record.NumReadings, 6);
}

TEST(Triggered, halt_wins_over_a_trigger_that_fires_at_the_same_time) {
  CollectionRig rig;
  rig.Panel.Triggered = true;
  rig.Trigger.OnWait = [&](int) {
    rig.Engine.cmdHaltInput_Click();
    return true;
  };
  rig.Collect();
  EXPECT_EQ(rig.Record.NumReadings, -1);
}

TEST(Triggered, unticked_in_the_middle_the_deadline_counts_on_from_that_moment) {
  CollectionRig rig;
  rig.Panel.Triggered = true;
  rig.Trigger.OnWait = [&](int) {
    rig.Time.Advance(5000);
    return true;
  };
  std::int32_t last = 0;
  std::vector<int> lengths;
  rig.Panel.OnStored = [&](int index) {
    lengths.push_back(rig.Time.NowMs - std::exchange(last, rig.Time.NowMs));
    if (index == 9) rig.Panel.Triggered = false;
  };
  EXPECT_EQ(rig.Collect().Late.Count, 0);
  EXPECT_THAT(std::vector<int>(lengths.begin() + 1, lengths.begin() + 10), Each(5005));
  EXPECT_THAT(std::vector<int>(lengths.begin() + 10, lengths.end()), Each(100));
}

TEST(Triggered, ticked_in_the_middle_the_next_reading_waits) {
  CollectionRig rig;
  rig.Panel.OnStored = [&](int index) { rig.Panel.Triggered = index >= 9; };
  rig.Collect();
  EXPECT_EQ(rig.Trigger.Waits, 350);
}

TEST(Triggered, the_button_stands_in_for_a_pulse) {
  CollectionRig rig;
  rig.Engine.cmdTrigger_Click();
  EXPECT_TRUE(rig.Flags.ManualTriggerPressed);
}

}  // namespace
}  // namespace lobegraph
