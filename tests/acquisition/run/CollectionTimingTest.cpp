// When readings are taken: the interval, the absolute schedule, triggers, and what came too late.
#include <limits>

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

TEST(CollectionTiming, nothing_happens_where_the_clock_goes_on_at_its_smallest_number) {
  for (const bool triggered : {false, true}) {
    CollectionRig rig;
    const std::int32_t halfATurnMs = triggered ? 900 : 18'000;  // a pulse is five samples
    rig.Time.NowMs = std::numeric_limits<std::int32_t>::max() - halfATurnMs;
    rig.Panel.Triggered = triggered;
    const auto startMs =
        static_cast<std::uint32_t>(rig.Time.NowMs) + 1;  // the start-up delay takes one sample
    const RunReport report = rig.Collect();
    EXPECT_EQ(report.ReadingsTaken, 360);
    EXPECT_EQ(report.Late.Count, 0);
    EXPECT_LT(rig.Time.NowMs, 0);
    if (triggered) continue;
    EXPECT_EQ(static_cast<std::uint32_t>(rig.Time.NowMs) - startMs, 36'000U);
  }
}

TEST(CollectionTiming, of_long_readings_the_window_is_served_every_100_ms_without_moving_a_deadline) {
  CollectionRig rig;
  rig.Panel.RotationSeconds = 1200;  // 3333 ms a reading
  std::int32_t servedMs = 0;
  int longestMs = 0;
  const auto serve = [&](int) {
    if (servedMs != 0) longestMs = std::max(longestMs, rig.Time.NowMs - servedMs);
    servedMs = rig.Time.NowMs;
  };
  rig.Window.OnYield = serve;
  rig.Window.OnServe = [&](int times) {
    serve(times);
    rig.Time.Advance(7);  // a picture is painted
  };
  const std::vector<int> ends = EndsOfReadings(rig);
  EXPECT_LE(longestMs, 100);
  EXPECT_EQ(ends[0], 3333);
  EXPECT_EQ(ends[359], 360 * 3333);
}

TEST(CollectionTiming, serving_the_window_adds_no_sample_and_serves_no_device) {
  CollectionRig rig;
  rig.Panel.RotationSeconds = 120;  // 333 ms a reading
  rig.HaltAfter(0);
  rig.Collect();
  EXPECT_EQ(rig.Level.Samples, 1 + 333);
  EXPECT_EQ(rig.Window.Served, 6);
  EXPECT_EQ(rig.Window.Yields, 3);  // start-up delay, readings 0 and 1
}

TEST(CollectionTiming, a_window_closed_in_the_middle_of_a_long_reading_ends_it_there) {
  CollectionRig rig;
  rig.Panel.RotationSeconds = 1200;
  rig.Window.OnServe = [&](int times) {
    if (times == 3) rig.Flags.RequestClose();
  };
  rig.Collect();
  EXPECT_THAT(rig.Panel.Stored, ::testing::IsEmpty());
  EXPECT_LT(rig.Level.Samples, 200);
}

TEST(SuspendedReadings, are_told_with_their_place_and_their_length) {
  CollectionRig rig;
  rig.Panel.OnStored = [&](int index) {
    if (index == 99) rig.Time.Suspended += 12'000;
    if (index == 199) rig.Time.Suspended += 100;
  };
  const RunReport report = rig.Collect();
  EXPECT_EQ(report.ReadingsTaken, 360);
  EXPECT_EQ(report.Suspended.Count, 2);
  EXPECT_EQ(report.Suspended.First, 100);
  EXPECT_EQ(report.Suspended.Ms, 12'100);
}

TEST(SuspendedReadings, what_two_clocks_differ_by_when_they_are_read_is_none) {
  CollectionRig rig;
  rig.Time.Suspended = 3'600'000;  // before the turn
  rig.Panel.OnStored = [&](int index) { rig.Time.Suspended = 3'600'000 + (index % 2 == 0 ? 99 : 0); };
  EXPECT_EQ(rig.Collect().Suspended.Count, 0);
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

TEST(Triggered, unticked_while_a_pulse_is_waited_for_the_reading_is_taken_at_once) {
  CollectionRig rig;
  rig.Panel.OnStored = [&](int index) { rig.Panel.Triggered = index == 9; };
  rig.Trigger.OnWait = [&](int) {
    rig.Time.Advance(20'000);
    rig.Panel.Triggered = false;
    return false;
  };
  const RunReport report = rig.Collect();
  EXPECT_EQ(report.ReadingsTaken, 360);
  EXPECT_EQ(rig.Trigger.Waits, 1);
  EXPECT_EQ(report.Late.Count, 0) << "the schedule counts on from the end of the wait";
  EXPECT_EQ(rig.CountOf("manual trigger offered"), 1);
  EXPECT_GT(rig.PlaceOf("manual trigger offered"), rig.PlaceOf("ReadingPlotted 9"));
}

TEST(Triggered, the_manual_trigger_is_there_as_long_as_a_pulse_is_asked_for) {
  CollectionRig rig;
  rig.Panel.OnStored = [&](int index) { rig.Panel.Triggered = index >= 9 && index < 19; };
  rig.Collect();
  const auto offered = rig.PlaceOf("manual trigger offered");
  EXPECT_GT(offered, rig.PlaceOf("ReadingPlotted 9"));
  EXPECT_LT(offered, rig.PlaceOf("ReadingStored 10"));
  const auto gone = std::find(rig.Log.begin() + offered, rig.Log.end(), "manual trigger gone");
  EXPECT_GT(gone - rig.Log.begin(), rig.PlaceOf("ReadingPlotted 19"));
  EXPECT_LT(gone - rig.Log.begin(), rig.PlaceOf("ReadingStored 20"));
}

TEST(Triggered, a_port_that_vanished_is_told_when_it_ended_the_turn) {
  for (const bool triggered : {false, true}) {
    CollectionRig rig;
    rig.Flags.TriggerPortGone = true;  // before the turn
    rig.Panel.Triggered = triggered;
    rig.Panel.OnStored = [&](int index) { rig.Flags.TriggerPortGone = index >= 5; };
    rig.Trigger.OnWait = [&](int) {
      if (rig.Flags.TriggerPortGone) rig.Engine.cmdHaltInput_Click();
      return !rig.Flags.TriggerPortGone;
    };
    const RunReport report = rig.Collect();
    EXPECT_EQ(report.ReadingsTaken, triggered ? 6 : 360);
    EXPECT_EQ(report.TriggerPortGone, triggered);
  }
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
