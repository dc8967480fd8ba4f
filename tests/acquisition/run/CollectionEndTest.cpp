// How a turn ends: full, halted, by auto stop, by a lost source, by a closed window, by a fault.
#include "acquisition/CollectionRig.h"

namespace lobegraph {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(CollectionEnd, a_full_turn_has_360_readings_and_last_index_359) {
  CollectionRig rig;
  const RunReport report = rig.Collect();
  EXPECT_TRUE(report.Ran);
  EXPECT_EQ(report.ReadingsTaken, 360);
  EXPECT_EQ(rig.Record.NumReadings, 359);
  EXPECT_EQ(rig.Record.ReadingCount, 360.0);
  EXPECT_EQ(rig.Record.ReadingsPlotted, 360);
  EXPECT_EQ(rig.Record.Readings(359), 300.0F);
  EXPECT_EQ(rig.Record.Readings(360), 0.0F);
  EXPECT_EQ(rig.Panel.ReadingsTaken, 360);
  EXPECT_EQ(rig.Panel.LowReadings, 0);
}

TEST(CollectionEnd, its_steps_follow_each_other) {
  CollectionRig rig;
  rig.Collect();
  const CallLog end(rig.Log.end() - 6, rig.Log.end());
  EXPECT_THAT(end, ElementsAre("ReadingPlotted 359", "StopSoundCapture", "SourceRests", "TurnEnds 360 0",
                               "TurnUnlocked", "manual trigger gone"));
}

TEST(CollectionEnd, a_meter_comes_to_rest_without_a_capture_to_stop) {
  CollectionRig rig;
  rig.UseSerialMeter();
  rig.Collect();
  EXPECT_TRUE(rig.Called("SourceRests"));
  EXPECT_FALSE(rig.Called("StopSoundCapture"));
}

TEST(CollectionEnd, the_new_readings_are_the_original_ones) {
  CollectionRig rig;
  rig.HoldPattern(360);
  rig.Collect();
  EXPECT_EQ(rig.Record.SavedReadings, rig.Record.Readings);
  EXPECT_EQ(rig.Record.SavedNumReadings, 359);
}

TEST(Halt, before_the_first_reading_leaves_no_readings) {
  CollectionRig rig;
  rig.HoldPattern(361);
  rig.Window.OnYield = [&](int) { rig.Engine.cmdHaltInput_Click(); };
  const RunReport report = rig.Collect();
  EXPECT_EQ(rig.Record.NumReadings, -1);
  EXPECT_EQ(rig.Record.Readings(0), 0.0F);
  EXPECT_EQ(rig.Record.Readings(359), 0.0F);
  EXPECT_EQ(rig.Record.Readings(360), 50.0F) << "a turn owns entries 0 to 359";
  EXPECT_EQ(rig.Record.ReadingCount, 0.0);
  EXPECT_EQ(rig.Panel.ReadingsTaken, 0);
  EXPECT_TRUE(report.Ran);
  EXPECT_EQ(report.ReadingsTaken, 0);
  EXPECT_FALSE(report.NothingHeard) << "nothing was listened to";
}

TEST(Halt, in_the_middle_keeps_what_was_taken_and_no_tail_of_the_former_set) {
  CollectionRig rig;
  rig.HoldPattern(360);
  rig.HaltAfter(99);
  EXPECT_EQ(rig.Collect().ReadingsTaken, 100);
  EXPECT_EQ(rig.Record.NumReadings, 99);
  EXPECT_EQ(rig.Record.Readings(99), 300.0F);
  EXPECT_EQ(rig.Record.Readings(100), 0.0F);
  EXPECT_EQ(rig.Record.Readings(359), 0.0F);
}

TEST(Halt, deliberate_on_the_last_reading_drops_it) {
  CollectionRig rig;
  rig.HaltAfter(359);
  EXPECT_EQ(rig.Collect().ReadingsTaken, 359);
  EXPECT_EQ(rig.Record.NumReadings, 358);
  EXPECT_EQ(rig.Panel.ReadingsTaken, 359);
}

TEST(Halt, only_sets_its_flag) {
  CollectionRig rig;
  rig.Engine.cmdHaltInput_Click();
  EXPECT_EQ(rig.Flags.HaltRequested, 1);
  EXPECT_THAT(rig.Log, IsEmpty());
}

/// One sample a reading; reading n is sample n + 2 (the start-up delay takes the first).
void LevelOfReadings(CollectionRig& rig, std::function<float(int)> level) {
  rig.Panel.RotationSeconds = 1;
  rig.Level.MsPerSample = 3;
  rig.Level.OnSample = [level](int sample) { return level(sample - 2); };
}

TEST(AutoStop, three_low_readings_in_a_row_stop_and_are_offered_for_trimming) {
  CollectionRig rig;
  rig.Panel.AutoStop = true;
  rig.Settings.DetectStopNumberOfReadings = 3;
  LevelOfReadings(rig, [](int reading) { return reading >= 10 ? 6.0F : 300.0F; });
  EXPECT_EQ(rig.Collect().ReadingsTaken, 13);
  EXPECT_EQ(rig.Record.NumReadings, 12);
  EXPECT_EQ(rig.Record.Readings(12), 6.0F);
  EXPECT_EQ(rig.Panel.LowReadings, 3);
  EXPECT_EQ(rig.Record.TrimEnd, 3);
}

TEST(AutoStop, the_stop_level_itself_is_low) {
  for (const float level : {7.0F, 7.01F}) {
    CollectionRig rig;
    rig.Panel.AutoStop = true;
    rig.Settings.DetectStopLevel = 7.0F;
    rig.Settings.DetectStopNumberOfReadings = 5;
    LevelOfReadings(rig, [level](int) { return level; });
    EXPECT_EQ(rig.Collect().ReadingsTaken, level > 7.0F ? 360 : 5);
  }
}

TEST(AutoStop, a_strong_reading_in_between_counts_anew) {
  CollectionRig rig;
  rig.Panel.AutoStop = true;
  rig.Settings.DetectStopNumberOfReadings = 3;
  LevelOfReadings(rig, [](int reading) { return reading % 3 == 2 && reading < 30 ? 300.0F : 6.0F; });
  EXPECT_EQ(rig.Collect().ReadingsTaken, 33);
  EXPECT_EQ(rig.Panel.LowReadings, 3);
}

TEST(AutoStop, compares_the_clamped_level) {
  CollectionRig rig;
  rig.Panel.AutoStop = true;
  rig.Settings.DetectStopLevel = 0.5F;
  rig.Settings.DetectStopNumberOfReadings = 2;
  LevelOfReadings(rig, [](int) { return 0.9F; });
  EXPECT_EQ(rig.Collect().ReadingsTaken, 2) << "0.9 is above the stop level, but it counts as 0";
}

TEST(AutoStop, does_not_count_while_its_box_is_not_ticked) {
  CollectionRig rig;
  LevelOfReadings(rig, [](int) { return 1.0F; });
  EXPECT_EQ(rig.Collect().ReadingsTaken, 360);
  EXPECT_EQ(rig.Panel.LowReadings, 0);
}

TEST(AutoStop, ticked_in_the_middle_counts_from_there) {
  CollectionRig rig;
  LevelOfReadings(rig, [](int) { return 1.0F; });
  rig.Panel.OnStored = [&](int index) { rig.Panel.AutoStop = index >= 100; };
  EXPECT_EQ(rig.Collect().ReadingsTaken, 105);
}

TEST(AutoStop, deliberate_on_the_last_reading_drops_it) {
  CollectionRig rig;
  rig.Panel.AutoStop = true;
  rig.Settings.DetectStopNumberOfReadings = 3;
  LevelOfReadings(rig, [](int reading) { return reading >= 357 ? 1.0F : 300.0F; });
  EXPECT_EQ(rig.Collect().ReadingsTaken, 359);
  EXPECT_EQ(rig.Panel.LowReadings, 3);
}

TEST(AutoStop, a_count_that_has_passed_its_number_stops_no_more) {
  CollectionRig rig;
  rig.Panel.AutoStop = true;
  rig.Settings.DetectStopNumberOfReadings = 0;
  LevelOfReadings(rig, [](int) { return 1.0F; });
  EXPECT_EQ(rig.Collect().ReadingsTaken, 360);
  EXPECT_EQ(rig.Panel.LowReadings, 360);
}

TEST(NothingHeard, is_told_when_every_reading_was_silence) {
  struct Row {
    float Level;
    bool NothingHeard;
  };
  for (const Row row : {Row{1.0F, true}, {0.5F, true}, {1.1F, false}, {300.0F, false}}) {
    CollectionRig rig;
    rig.Level.Level = row.Level;
    EXPECT_EQ(rig.Collect().NothingHeard, row.NothingHeard) << row.Level;
  }
}

TEST(NothingHeard, one_reading_is_enough_to_have_heard) {
  CollectionRig rig;
  LevelOfReadings(rig, [](int reading) { return reading == 77 ? 2.0F : 1.0F; });
  EXPECT_FALSE(rig.Collect().NothingHeard);
}

TEST(NothingHeard, is_told_of_a_single_reading) {
  CollectionRig rig;
  rig.HoldPattern(360);
  rig.Record.PeakIndex = 7;
  rig.Level.Level = 1.0F;
  rig.HaltAfter(0);
  const RunReport report = rig.Collect();
  EXPECT_EQ(report.ReadingsTaken, 1);
  EXPECT_TRUE(report.NothingHeard);
  EXPECT_EQ(rig.Record.PeakIndex, 0) << "the former pattern's peak is gone";
}

TEST(NothingHeard, is_not_said_of_a_meter) {
  CollectionRig rig;
  rig.UseSerialMeter();
  rig.Level.Level = 1.0F;
  EXPECT_FALSE(rig.Collect().NothingHeard);
}

TEST(LostSource, the_readings_so_far_are_kept_and_the_message_waits_for_the_unlock) {
  CollectionRig rig;
  rig.Panel.OnStored = [&](int index) {
    if (index == 49) rig.Sound.Failure = "Connection terminated";
  };
  rig.Messages.OnShow = [&] { EXPECT_FALSE(rig.Panel.Locked || rig.Flags.Running()); };
  const RunReport report = rig.Collect();
  EXPECT_EQ(report.ReadingsTaken, 50);
  EXPECT_EQ(rig.Record.ReadingCount, 50.0);
  EXPECT_EQ(report.SourceFailure, "Connection terminated");
  EXPECT_THAT(rig.Messages.Shown,
              ElementsAre(UserMessage{"Connection terminated", "DirectSound Error", true}));
  EXPECT_TRUE(rig.Called("StopSoundCapture"));
}

TEST(LostSource, ends_a_wait_for_a_trigger_that_yields) {
  CollectionRig rig;
  rig.Panel.Triggered = true;
  rig.Trigger.OnWait = [&](int wait) {
    if (wait < 4) return true;
    rig.Sound.Failure = "Connection terminated";
    while (rig.Flags.HaltRequested == 0) rig.Pump.ProcessPendingEvents();
    return false;
  };
  EXPECT_EQ(rig.Collect().ReadingsTaken, 3);
}

TEST(LostSource, ends_the_wait_for_a_signal) {
  CollectionRig rig;
  rig.Panel.AutoStart = true;
  rig.Level.OnSample = [&](int sample) {
    if (sample == 20) rig.Sound.Failure = "Connection terminated";
    return 1.0F;
  };
  EXPECT_EQ(rig.Collect().ReadingsTaken, 0);
}

TEST(LostSource, an_old_failure_of_the_sound_card_does_not_end_a_meters_turn) {
  CollectionRig rig;
  rig.UseSerialMeter();
  rig.Sound.Failure = "Connection terminated";
  EXPECT_EQ(rig.Collect().ReadingsTaken, 360);
  EXPECT_THAT(rig.Messages.Shown, IsEmpty());
}

TEST(LostSource, after_its_own_turn_does_not_end_a_meters_turn) {
  CollectionRig rig;
  rig.Collect();
  rig.UseSerialMeter();
  rig.Sound.Failure = "The sound server has gone.";
  EXPECT_EQ(rig.Collect().ReadingsTaken, 360);
}

TEST(DeviceMessages, wait_until_the_window_is_unlocked) {
  CollectionRig rig;
  rig.Panel.OnStored = [&](int index) {
    if (index == 5) rig.Waiting.Post({"FT_GetBitMode - Device Not Found"});
    if (index == 6) rig.Waiting.Post({"second"});
  };
  rig.Messages.OnShow = [&] { EXPECT_FALSE(rig.Panel.Locked || rig.Flags.Running()); };
  rig.Collect();
  EXPECT_THAT(rig.Messages.Shown,
              ElementsAre(UserMessage{"FT_GetBitMode - Device Not Found"}, UserMessage{"second"}));
}

TEST(ClosedWindow, ends_the_turn_and_leaves_record_and_window_as_they_are) {
  CollectionRig rig;
  rig.Window.OnYield = [&](int yield) {
    if (yield == 30) rig.Flags.RequestClose();
  };
  rig.Collect();
  EXPECT_EQ(rig.Panel.Stored.size(), 28U);
  EXPECT_EQ(rig.Record.ReadingCount, 0.0);
  EXPECT_EQ(rig.Record.SavedReadings(0), 0.0F);
  EXPECT_FALSE(rig.Called("TurnUnlocked"));
  EXPECT_FALSE(rig.Called("SourceRests"));
  EXPECT_TRUE(rig.Called("StopSoundCapture"));
  EXPECT_FALSE(rig.Flags.IsCollecting);
}

TEST(ClosedWindow, in_the_middle_of_a_reading_stores_nothing_of_it) {
  for (const bool triggered : {false, true}) {
    CollectionRig rig;
    rig.UseSerialMeter();
    rig.Panel.Triggered = triggered;
    rig.Level.OnSample = [&](int sample) {
      if (sample == 3) rig.Flags.RequestClose();  // a meter's sample serves the window
      return 300.0F;
    };
    rig.Collect();
    EXPECT_THAT(rig.Panel.Stored, IsEmpty());
    EXPECT_EQ(rig.Record.Readings(0), 0.0F);
    EXPECT_LE(rig.Level.Samples, 6);
  }
}

TEST(ClosedWindow, ends_every_wait_before_the_readings) {
  CollectionRig rig;
  rig.HoldPattern(100);
  rig.Settings.StartupDelay = Currency::FromTenThousandths(10'000);
  rig.Window.OnYield = [&](int yield) {
    if (yield == 3) rig.Flags.RequestClose();
  };
  rig.Collect();
  EXPECT_EQ(rig.Level.Samples, 3);
  EXPECT_EQ(rig.Record.Readings(99), 50.0F);
  EXPECT_FALSE(rig.Called("TurnUnlocked"));
}

TEST(ClosedWindow, while_capture_starts_shows_no_message) {
  CollectionRig rig;
  rig.Sound.Starts = false;
  rig.Sound.Failure = "Connection refused";
  rig.Sound.OnStart = [&] { rig.Flags.RequestClose(); };
  rig.Collect();
  EXPECT_THAT(rig.Messages.Shown, IsEmpty());
  EXPECT_FALSE(rig.Called("TurnAbandoned"));
}

TEST(ClosedWindow, starts_no_collection) {
  CollectionRig rig;
  rig.Flags.RequestClose();
  rig.Collect();
  EXPECT_THAT(rig.Log, IsEmpty());
}

TEST(Fault, in_the_middle_unlocks_keeps_the_readings_and_is_thrown_on) {
  CollectionRig rig;
  rig.HoldPattern(360);
  rig.Panel.OnStored = [](int index) {
    if (index == 9) throw RunTimeError(fault::kDiskFull);
  };
  EXPECT_THROW(rig.Collect(), RunTimeError);
  EXPECT_FALSE(rig.Panel.Locked);
  EXPECT_FALSE(rig.Flags.IsCollecting);
  EXPECT_TRUE(rig.Called("StopSoundCapture"));
  EXPECT_EQ(rig.Record.NumReadings, 9);
  EXPECT_EQ(rig.Record.ReadingCount, 10.0);
  EXPECT_EQ(rig.Record.SavedReadings(9), 300.0F);
  EXPECT_EQ(rig.Record.Readings(10), 0.0F);
}

TEST(Fault, of_the_window_while_it_locks_unlocks_it) {
  CollectionRig rig;
  rig.HoldPattern(100);
  rig.Sound.OnStart = [] { throw RunTimeError(fault::kDeviceIo); };
  EXPECT_THROW(rig.Collect(), RunTimeError);
  EXPECT_FALSE(rig.Panel.Locked);
  EXPECT_EQ(rig.Record.ReadingCount, 100.0);
}

TEST(Fault, the_next_turn_runs_as_if_nothing_had_been) {
  CollectionRig rig;
  rig.Panel.OnStored = [](int) { throw RunTimeError(fault::kDiskFull); };
  EXPECT_THROW(rig.Collect(), RunTimeError);
  rig.Panel.OnStored = nullptr;
  EXPECT_EQ(rig.Collect().ReadingsTaken, 360);
}

TEST(Collection, a_thousand_turns_in_a_row_end_alike) {
  CollectionRig rig;
  rig.Panel.RotationSeconds = 1;
  rig.Level.MsPerSample = 3;
  for (int turn = 0; turn < 1000; ++turn) {
    rig.Log.clear();
    rig.Panel.Points.clear();
    rig.Panel.Levels.clear();
    rig.Panel.Stored.clear();
    rig.Time.NowMs = 0;
    ASSERT_EQ(rig.Collect().ReadingsTaken, 360);
  }
}

}  // namespace
}  // namespace lobegraph
