// From the click to the first reading: source checks, the lock, capture, auto start and the start-up delay.
#include <limits>

#include "acquisition/CollectionRig.h"
#include "acquisition/run/SourceCheck.h"

namespace lobegraph {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(CollectionStart, a_closed_meter_port_is_reported_and_nothing_else_changes) {
  CollectionRig rig;
  rig.HoldPattern(100);
  rig.UseSerialMeter();
  rig.Port.IsOpen = false;
  const RunReport report = rig.Collect();
  EXPECT_THAT(rig.Log,
              ElementsAre("Message The Com port for the serially attached dB meter is not available"));
  EXPECT_FALSE(report.Ran);
  EXPECT_EQ(rig.Record.ReadingCount, 100.0);
  EXPECT_FALSE(rig.Flags.IsCollecting);
}

TEST(CollectionStart, an_open_meter_port_collects) {
  CollectionRig rig;
  rig.UseSerialMeter();
  EXPECT_EQ(rig.Collect().ReadingsTaken, 360);
  EXPECT_THAT(rig.Messages.Shown, IsEmpty());
}

TEST(CollectionStart, an_inactive_external_meter_is_shown_red_and_reported) {
  CollectionRig rig;
  rig.UseExternalMeter("N");
  rig.Collect();
  EXPECT_THAT(rig.Log,
              ElementsAre("lblStatus The external power meter is not ready.", "shape red",
                          "Message The external power meter is not ready and receiving readings.\r\n\r\n"
                          "Please retry after resolving the above problem."));
}

TEST(CollectionStart, an_external_meter_that_never_published_counts_as_inactive) {
  CollectionRig rig;
  rig.UseExternalMeter("N");
  rig.Store.Values.clear();
  EXPECT_FALSE(rig.Collect().Ran);
  EXPECT_TRUE(rig.Called("shape red"));
}

TEST(CollectionStart, an_active_external_meter_is_shown_green_and_collects_without_its_port) {
  CollectionRig rig;
  rig.UseExternalMeter("Y");
  EXPECT_TRUE(rig.Collect().Ran);
  EXPECT_EQ(rig.PlaceOf("lblStatus The external power meter is ready."), 0);
  EXPECT_EQ(rig.PlaceOf("shape green"), 1);
}

TEST(CollectionStart, deliberate_only_N_refuses_an_external_meter) {
  for (const char* active : {"", "n", "yes", "0"}) {
    CollectionRig rig;
    rig.UseExternalMeter(active);
    EXPECT_TRUE(rig.Collect().Ran) << active;
  }
}

TEST(CollectionStart, the_external_meter_is_of_no_concern_to_the_sound_card) {
  CollectionRig rig;
  rig.UseExternalMeter("N");
  rig.Choice.InputDeviceIsdBMeter = false;
  EXPECT_TRUE(rig.Collect().Ran);
  EXPECT_FALSE(rig.Called("shape red"));
}

TEST(CollectionStart, collect_while_the_calibrate_box_is_ticked_asks_the_sweep) {
  CollectionRig rig;
  rig.Panel.Calibrate = true;
  rig.Collect();
  EXPECT_TRUE(rig.Flags.CollectRequested);
  EXPECT_THAT(rig.Log, IsEmpty());
}

TEST(CollectionStart, collect_while_a_sweep_is_ending_asks_the_sweep_too) {
  CollectionRig rig;
  rig.Flags.IsSweeping = true;
  rig.Collect();
  EXPECT_TRUE(rig.Flags.CollectRequested);
  EXPECT_FALSE(rig.Called("TurnBegins"));
}

TEST(CollectionStart, a_source_that_is_not_there_refuses_before_the_sweep_is_asked) {
  CollectionRig rig;
  rig.Panel.Calibrate = true;
  rig.UseExternalMeter("N");
  rig.Collect();
  EXPECT_FALSE(rig.Flags.CollectRequested);
}

TEST(CollectionStart, collect_during_a_collection_does_nothing) {
  CollectionRig rig;
  int nested = 0;
  rig.Window.OnYield = [&](int) {
    const auto calls = rig.Log.size();
    EXPECT_FALSE(rig.Collect().Ran);
    EXPECT_EQ(rig.Log.size(), calls);
    ++nested;
  };
  EXPECT_EQ(rig.Collect().ReadingsTaken, 360);
  EXPECT_GT(nested, 0);
}

TEST(CollectionStart, everything_happens_in_its_order) {
  CollectionRig rig;
  rig.Panel.Triggered = true;
  rig.Trigger.OnWait = [&](int) {
    rig.Engine.cmdHaltInput_Click();
    return false;
  };
  rig.Collect();
  EXPECT_THAT(rig.Log, ElementsAre("TurnBegins", "StartSoundCapture", "source Test input",
                                   "manual trigger offered", "SourceRuns",
                                   "ReadInputLevel",  // start-up delay
                                   "StopSoundCapture", "SourceRests", "TurnEnds 0 0", "TurnUnlocked",
                                   "manual trigger gone"));
}

TEST(CollectionStart, flags_of_the_run_before_are_cleared) {
  CollectionRig rig;
  rig.Flags.HaltRequested = 1;
  rig.Flags.ManualTriggerPressed = true;
  rig.Flags.CollectRequested = true;
  rig.Window.OnYield = [&](int) {
    EXPECT_TRUE(rig.Flags.IsCollecting);
    EXPECT_EQ(rig.Flags.HaltRequested, 0);
    EXPECT_FALSE(rig.Flags.ManualTriggerPressed);
    EXPECT_FALSE(rig.Flags.CollectRequested);
  };
  EXPECT_EQ(rig.Collect().ReadingsTaken, 360);
  EXPECT_FALSE(rig.Flags.IsCollecting);
}

TEST(CollectionStart, collecting_is_flagged_from_the_lock_to_the_unlock) {
  CollectionRig rig;
  rig.Sound.OnStart = [&] { EXPECT_TRUE(rig.Flags.IsCollecting && rig.Panel.Locked); };
  rig.Messages.OnShow = [&] { EXPECT_FALSE(rig.Flags.IsCollecting || rig.Panel.Locked); };
  rig.Sound.Starts = false;
  rig.Sound.Failure = "Connection refused";
  rig.Collect();
  EXPECT_EQ(rig.Messages.Shown.size(), 1U);
}

TEST(CollectionStart, halt_pressed_while_capture_starts_is_not_lost) {
  CollectionRig rig;
  rig.Panel.AutoStart = true;
  rig.Level.Level = 1.0F;
  rig.Sound.OnStart = [&] { rig.Engine.cmdHaltInput_Click(); };
  EXPECT_EQ(rig.Collect().ReadingsTaken, 0);
  EXPECT_EQ(rig.Record.NumReadings, -1);
}

TEST(CollectionStart, capture_is_not_started_for_a_meter) {
  CollectionRig rig;
  rig.UseSerialMeter();
  rig.Flags.InputReady = false;
  rig.Collect();
  EXPECT_FALSE(rig.Called("StartSoundCapture"));
  EXPECT_FALSE(rig.Called("StopSoundCapture"));
  EXPECT_FALSE(rig.Flags.InputReady);
}

TEST(CollectionStart, a_started_capture_makes_the_input_ready) {
  CollectionRig rig;
  rig.Flags.InputReady = false;
  rig.Collect();
  EXPECT_TRUE(rig.Flags.InputReady);
}

TEST(CollectionStart, a_start_without_sound_goes_straight_to_the_unlock) {
  CollectionRig rig;
  rig.Sound.Starts = false;
  rig.Sound.Failure = "Connection refused";
  const RunReport report = rig.Collect();
  EXPECT_THAT(rig.Log, ElementsAre("TurnBegins", "StartSoundCapture", "TurnUnlocked", "manual trigger gone",
                                   "TurnAbandoned", "Message Connection refused"));
  EXPECT_FALSE(report.Ran);
  EXPECT_EQ(report.SourceFailure, "Connection refused");
  EXPECT_FALSE(rig.Flags.InputReady);
}

TEST(CollectionStart, the_sound_error_has_its_title_and_icon) {
  CollectionRig rig;
  rig.Sound.Starts = false;
  rig.Sound.Failure = "Connection refused";
  rig.Collect();
  EXPECT_THAT(rig.Messages.Shown, ElementsAre(UserMessage{"Connection refused", "DirectSound Error", true}));
}

TEST(CollectionStart, a_start_without_sound_leaves_the_old_pattern_whole) {
  CollectionRig rig;
  rig.HoldPattern(100);
  rig.Sound.Starts = false;
  rig.Collect();
  EXPECT_EQ(rig.Record.ReadingCount, 100.0);
  EXPECT_EQ(rig.Record.NumReadings, 99);
  EXPECT_EQ(rig.Record.Readings(99), 50.0F);
  EXPECT_EQ(rig.Record.SavedReadings(99), 50.0F);
  EXPECT_EQ(rig.Record.TrimFront, 3);
  EXPECT_EQ(rig.Record.TrimEnd, 4);
  EXPECT_EQ(rig.Record.Rotate, 90.0F);
  EXPECT_EQ(rig.Record.FileName, "beam.lbg");
  EXPECT_EQ(rig.Record.CollectedBy, "Before");
}

TEST(CollectionStart, the_manual_trigger_button_is_shown_for_triggered_runs_only) {
  for (const bool triggered : {false, true}) {
    CollectionRig rig;
    rig.Panel.Triggered = triggered;
    rig.Collect();
    EXPECT_EQ(rig.CountOf("manual trigger offered"), triggered ? 1 : 0);
    EXPECT_EQ(rig.CountOf("manual trigger gone"), triggered ? 1 : 2);
  }
}

TEST(AutoStart, waits_until_the_level_is_above_the_start_level) {
  CollectionRig rig;
  rig.Panel.AutoStart = true;
  rig.Settings.DetectStartLevel = 7.0F;
  // Deliberately the start level itself first: equal is not above.
  rig.Level.OnSample = [](int sample) { return sample < 10 ? 7.0F : 7.5F; };
  int yieldsBeforeCapture = 0;
  rig.Window.OnYield = [&](int yield) {
    if (rig.Level.Samples < 10) yieldsBeforeCapture = yield;
  };
  EXPECT_EQ(rig.Collect().ReadingsTaken, 360);
  EXPECT_EQ(yieldsBeforeCapture, 9);
  EXPECT_EQ(rig.Record.Readings(0), 7.5F);
}

TEST(AutoStart, the_level_that_a_silent_meter_left_behind_starts_nothing) {
  CollectionRig rig;
  rig.UseSerialMeter();
  rig.Panel.AutoStart = true;
  rig.Level.Level = 300.0F;
  rig.Level.OnSample = [&](int sample) {
    if (sample >= 20) rig.Speak();
    return 300.0F;
  };
  rig.Panel.RotationSeconds = 1;
  rig.HaltAfter(0);
  rig.Collect();
  EXPECT_EQ(rig.Level.Samples, 20 + 1 + 3) << "of a value from before, of the delay, of the reading";
}

TEST(AwaitMeter, a_serial_meter_must_have_sent_three_values_since_it_was_chosen) {
  CollectionRig rig;
  rig.UseSerialMeter();
  rig.Meter.HistoryLength = 0;
  rig.Level.OnSample = [&](int sample) {
    if (sample % 10 == 0) rig.Speak();
    return 300.0F;
  };
  rig.Panel.RotationSeconds = 1;
  rig.HaltAfter(0);
  EXPECT_EQ(rig.Collect().ReadingsTaken, 1);
  EXPECT_EQ(rig.Level.Samples, 30 + 1 + 3);
  EXPECT_LT(rig.PlaceOf("SourceRuns"), rig.PlaceOf("awaits the meter"));
  EXPECT_LT(rig.PlaceOf("awaits the meter"), rig.PlaceOf("the meter speaks"));
}

TEST(AwaitMeter, is_over_at_once_when_they_are_there) {
  CollectionRig rig;
  rig.UseSerialMeter();
  rig.Collect();
  EXPECT_FALSE(rig.Called("awaits the meter"));
}

TEST(AwaitMeter, what_a_program_published_in_the_run_before_is_no_value_of_this_one) {
  CollectionRig rig;
  rig.UseExternalMeter("Y");
  rig.Panel.RotationSeconds = 1;
  rig.HaltAfter(0);
  rig.Collect();
  EXPECT_EQ(rig.Level.Samples, 3 + 1 + 3);
}

TEST(AwaitMeter, is_ended_by_halt) {
  CollectionRig rig;
  rig.UseSerialMeter();
  rig.Meter.HistoryLength = 0;
  rig.Level.OnSample = [](int) { return 300.0F; };
  rig.Window.OnYield = [&](int yield) {
    if (yield == 40) rig.Engine.cmdHaltInput_Click();
  };
  EXPECT_EQ(rig.Collect().ReadingsTaken, 0);
}

TEST(CollectionStart, a_source_that_takes_the_place_of_the_one_captured_is_a_failure) {
  CollectionRig rig;
  rig.Sound.Moves = SourceMoves::AreFollowed;
  rig.Collect();
  EXPECT_EQ(rig.Sound.Moves, SourceMoves::AreFailures);
}

TEST(AutoStart, is_ended_by_halt) {
  CollectionRig rig;
  rig.Panel.AutoStart = true;
  rig.Level.Level = 1.0F;
  rig.Window.OnYield = [&](int yield) {
    if (yield == 5) rig.Engine.cmdHaltInput_Click();
  };
  EXPECT_EQ(rig.Collect().ReadingsTaken, 0);
  EXPECT_EQ(rig.Level.Samples, 6);  // five while waiting, one of the start-up delay, which runs once
}

TEST(AutoStart, does_not_wait_when_its_box_is_not_ticked) {
  CollectionRig rig;
  rig.Level.Level = 1.0F;
  EXPECT_EQ(rig.Collect().ReadingsTaken, 360);
}

/// Samples taken before the first reading, and so the milliseconds of the delay.
int DelaySamples(std::int64_t tenThousandths) {
  CollectionRig rig;
  rig.Settings.StartupDelay = Currency::FromTenThousandths(tenThousandths);
  rig.Panel.RotationSeconds = 1;
  rig.HaltAfter(0);
  rig.Collect();
  const int samples = rig.Level.Samples - 3;  // reading 0 takes 3 ms
  EXPECT_EQ(rig.Window.Yields, samples + 2);  // one a pass, one at the top of readings 0 and 1
  return samples;
}

TEST(StartupDelay, lasts_its_seconds_and_runs_once_for_none) {
  EXPECT_EQ(DelaySamples(0), 1);
  EXPECT_EQ(DelaySamples(10), 1);      // 1 ms
  EXPECT_EQ(DelaySamples(11), 2);      // 1.1 ms: the first whole millisecond that is not below it
  EXPECT_EQ(DelaySamples(2500), 250);  // a quarter of a second
  EXPECT_EQ(DelaySamples(10000), 1000);
  EXPECT_EQ(DelaySamples(-100), 1);
}

TEST(StartupDelay, goes_on_where_the_clock_goes_on_at_its_smallest_number) {
  CollectionRig rig;
  rig.Settings.StartupDelay = Currency::FromTenThousandths(10'000);
  rig.Time.NowMs = std::numeric_limits<std::int32_t>::max() - 500;
  rig.Panel.RotationSeconds = 1;
  rig.HaltAfter(0);
  EXPECT_EQ(rig.Collect().ReadingsTaken, 1);
  EXPECT_EQ(rig.Level.Samples, 1000 + 3);
}

TEST(StartupDelay, is_ended_by_halt) {
  CollectionRig rig;
  rig.Settings.StartupDelay = Currency::FromTenThousandths(120'000);
  rig.Window.OnYield = [&](int yield) {
    if (yield == 5) rig.Engine.cmdHaltInput_Click();
  };
  EXPECT_EQ(rig.Collect().ReadingsTaken, 0);
  EXPECT_EQ(rig.Level.Samples, 5);
}

TEST(CollectionStart, entries_are_cleared_only_when_every_wait_is_over) {
  CollectionRig rig;
  rig.HoldPattern(360);
  rig.Panel.AutoStart = true;
  rig.Level.OnSample = [&](int sample) {
    if (sample <= 5) {
      EXPECT_EQ(rig.Record.Readings(359), 50.0F);
    } else {
      EXPECT_EQ(rig.Record.Readings(359), 0.0F);
    }
    return sample < 4 ? 1.0F : 300.0F;  // four while waiting, one of the start-up delay
  };
  rig.HaltAfter(2);
  rig.Collect();
}

}  // namespace
}  // namespace lobegraph
