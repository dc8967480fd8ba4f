// Calibrate mode: the click of its box, the sweep, its end, and the collection that may follow.
#include "acquisition/CollectionRig.h"

namespace lobegraph {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

/// Unticks the box when that many points have been plotted.
void UntickAfter(CollectionRig& rig, std::size_t points) {
  rig.Panel.Calibrate = true;
  rig.Window.OnYield = [&rig, points](int) {
    if (rig.Panel.Points.size() >= points) rig.Panel.Calibrate = false;
  };
}

TEST(CalibrateClick, without_a_working_input_is_refused_and_unticked) {
  CollectionRig rig;
  rig.UseSerialMeter();
  rig.Flags.InputReady = false;
  rig.Panel.Calibrate = true;
  EXPECT_FALSE(rig.Sweep.chkCalibrate_Click());
  EXPECT_THAT(rig.Log,
              ElementsAre("Message LBG006 Cannot take readings - calibrate input function inoperative",
                          "CalibrateOff"));
}

TEST(CalibrateClick, after_a_failed_capture_tries_once_to_start_it) {
  CollectionRig rig;
  rig.Flags.InputReady = false;
  rig.Panel.Calibrate = true;
  rig.Sound.OnStart = [&] { EXPECT_TRUE(rig.Flags.Running()); };
  EXPECT_TRUE(rig.Sweep.chkCalibrate_Click());
  EXPECT_TRUE(rig.Flags.InputReady);
  EXPECT_FALSE(rig.Flags.Running());
  EXPECT_THAT(rig.Log, ElementsAre("StartSoundCapture"));
}

TEST(CalibrateClick, whose_capture_fails_again_is_refused_and_unticked) {
  CollectionRig rig;
  rig.Flags.InputReady = false;
  rig.Panel.Calibrate = true;
  rig.Sound.Starts = false;
  rig.Sound.OnStart = [&] { rig.Flags.CollectRequested = true; };
  EXPECT_FALSE(rig.Sweep.chkCalibrate_Click());
  EXPECT_FALSE(rig.Flags.Running() || rig.Flags.CollectRequested);
  EXPECT_THAT(rig.Log,
              ElementsAre("StartSoundCapture",
                          "Message LBG006 Cannot take readings - calibrate input function inoperative",
                          "CalibrateOff"));
}

TEST(CalibrateClick, says_nothing_in_a_window_that_was_closed_while_capture_started) {
  CollectionRig rig;
  rig.Flags.InputReady = false;
  rig.Panel.Calibrate = true;
  rig.Sound.Starts = false;
  rig.Sound.OnStart = [&] { rig.Flags.RequestClose(); };
  EXPECT_FALSE(rig.Sweep.chkCalibrate_Click());
  EXPECT_THAT(rig.Messages.Shown, IsEmpty());
}

TEST(CalibrateClick, that_unticks_does_nothing) {
  for (const bool ready : {false, true}) {
    CollectionRig rig;
    rig.Flags.InputReady = ready;
    EXPECT_FALSE(rig.Sweep.chkCalibrate_Click());
    EXPECT_THAT(rig.Log, IsEmpty());
  }
}

TEST(CalibrateClick, starts_the_sweep_for_the_sound_card) {
  CollectionRig rig;
  rig.Panel.Calibrate = true;
  EXPECT_TRUE(rig.Sweep.chkCalibrate_Click());
  EXPECT_THAT(rig.Log, IsEmpty());
}

TEST(CalibrateClick, sends_the_command_to_an_open_ROSKA_meter) {
  CollectionRig rig;
  rig.UseSerialMeter();
  rig.Choice.ROSKAmeter = true;
  rig.Panel.Calibrate = true;
  EXPECT_TRUE(rig.Sweep.chkCalibrate_Click());
  EXPECT_THAT(rig.Log, ElementsAre("meter send *c"));
}

TEST(CalibrateClick, sends_nothing_to_another_meter) {
  CollectionRig rig;
  rig.UseSerialMeter();
  rig.Panel.Calibrate = true;
  EXPECT_TRUE(rig.Sweep.chkCalibrate_Click());
  EXPECT_THAT(rig.Log, IsEmpty());
}

TEST(CalibrateClick, without_the_ROSKA_port_is_refused_and_unticked) {
  CollectionRig rig;
  rig.UseSerialMeter();
  rig.Choice.ROSKAmeter = true;
  rig.Port.IsOpen = false;
  rig.Panel.Calibrate = true;
  EXPECT_FALSE(rig.Sweep.chkCalibrate_Click());
  EXPECT_THAT(rig.Log, ElementsAre("Message The Com port for the serially attached dB meter is not available",
                                   "CalibrateOff"));
}

TEST(CalibrateClick, an_inactive_external_meter_is_refused_unticked_and_stops_there) {
  CollectionRig rig;
  rig.UseExternalMeter("N");
  rig.Panel.Calibrate = true;
  EXPECT_FALSE(rig.Sweep.chkCalibrate_Click());
  EXPECT_THAT(rig.Log,
              ElementsAre("lblStatus The external power meter is not ready.", "shape red",
                          "Message The external power meter is not ready and receiving readings.\r\n\r\n"
                          "Please retry after resolving the above problem.",
                          "CalibrateOff"));
}

TEST(CalibrateClick, an_active_external_meter_is_shown_green_and_swept) {
  CollectionRig rig;
  rig.UseExternalMeter("Y");
  rig.Panel.Calibrate = true;
  EXPECT_TRUE(rig.Sweep.chkCalibrate_Click());
  EXPECT_THAT(rig.Log, ElementsAre("lblStatus The external power meter is ready.", "shape green"));
}

TEST(CalibrateSweep, begins_in_its_order) {
  CollectionRig rig;
  UntickAfter(rig, 1);
  rig.Sweep.Timer1_Timer();
  const CallLog begin(rig.Log.begin(), rig.Log.begin() + 4);
  EXPECT_THAT(begin, ElementsAre("SweepBegins", "StartSoundCapture", "source Test input", "SweepRound"));
}

TEST(CalibrateSweep, forgets_a_press_of_the_manual_trigger) {
  CollectionRig rig;
  rig.Flags.ManualTriggerPressed = true;
  rig.Sweep.Timer1_Timer();
  EXPECT_FALSE(rig.Flags.ManualTriggerPressed);
}

TEST(CalibrateSweep, each_point_is_three_samples_each_with_a_pause_of_5_ms) {
  CollectionRig rig;
  UntickAfter(rig, 1);
  rig.Level.OnSample = [](int sample) { return sample == 3 ? 600.0F : 300.0F; };
  std::vector<int> pauses;
  rig.Time.OnSleep = [&](int milliseconds) { pauses.push_back(milliseconds); };
  rig.Sweep.Timer1_Timer();
  const CallLog point(rig.Log.begin() + 4, rig.Log.begin() + 8);
  EXPECT_THAT(point, ElementsAre("ReadInputLevel", "ReadInputLevel", "ReadInputLevel", "SweepPoint"));
  EXPECT_THAT(pauses, ElementsAre(5, 5, 5));
  EXPECT_THAT(rig.Panel.Levels, ElementsAre(400.0F));
  EXPECT_EQ(rig.Window.Yields, 4);  // one a pause, one after the point
}

TEST(CalibrateSweep, ends_in_its_order) {
  CollectionRig rig;
  UntickAfter(rig, 1);
  rig.Sweep.Timer1_Timer();
  const CallLog end(rig.Log.begin() + 8, rig.Log.end());
  EXPECT_THAT(end, ElementsAre("StopSoundCapture", "SweepEnds"));
  EXPECT_FALSE(rig.Flags.IsSweeping);
}

TEST(CalibrateSweep, goes_round_again_and_again_on_a_fresh_grid) {
  CollectionRig rig;
  UntickAfter(rig, 800);
  rig.Sweep.Timer1_Timer();
  ASSERT_EQ(rig.Panel.Points.size(), 800U);
  EXPECT_EQ(rig.Panel.Points[359].PositionDeg, 359.0F);
  EXPECT_EQ(rig.Panel.Points[360].PositionDeg, 0.0F);
  EXPECT_EQ(rig.CountOf("SweepRound"), 3);
}

TEST(CalibrateSweep, a_box_unticked_before_the_timer_fires_ends_it_at_its_first_point) {
  CollectionRig rig;
  rig.Sweep.Timer1_Timer();
  EXPECT_THAT(rig.Panel.Points, IsEmpty());
  EXPECT_EQ(rig.CountOf("SweepRound"), 1);
  EXPECT_FALSE(rig.Panel.Locked);
}

TEST(CalibrateSweep, stores_nothing_and_the_readings_held_stay_held) {
  CollectionRig rig;
  rig.HoldPattern(100);
  const ReadingsRecord before = rig.Record;
  UntickAfter(rig, 400);
  rig.Sweep.Timer1_Timer();
  EXPECT_EQ(rig.Record.Readings, before.Readings);
  EXPECT_EQ(rig.Record.SavedReadings, before.SavedReadings);
  EXPECT_EQ(rig.Record.NumReadings, 99);
  EXPECT_EQ(rig.Record.ReadingCount, 100.0);
  EXPECT_EQ(rig.Record.CollectedBy, "Before");
  EXPECT_EQ(rig.Record.TrimFront, 3);
  EXPECT_THAT(rig.Panel.Stored, IsEmpty());
}

TEST(CalibrateSweep, positions_are_degrees_in_both_drawings_and_never_halved) {
  for (const bool linear : {false, true}) {
    CollectionRig rig;
    rig.Settings.LinearMode = linear;
    rig.Record.Plot180 = true;
    UntickAfter(rig, 91);
    rig.Sweep.Timer1_Timer();
    EXPECT_EQ(rig.Panel.Points.at(90).PositionDeg, 90.0F);
  }
}

TEST(CalibrateSweep, radius_follows_the_rule_of_a_collection_but_the_average_is_not_clamped) {
  CollectionRig rig;
  rig.Panel.PlotInDB = false;
  rig.Settings.PeakInputLevel = 500.0F;
  rig.Level.Level = 1000.0F;
  UntickAfter(rig, 1);
  rig.Sweep.Timer1_Timer();
  EXPECT_THAT(rig.Panel.Levels, ElementsAre(1000.0F));
  EXPECT_FLOAT_EQ(rig.Panel.Points.at(0).Radius, 468.0F);
}

TEST(CalibrateSweep, the_scale_is_that_of_the_start_and_the_display_options_are_those_of_the_moment) {
  CollectionRig rig;
  rig.Panel.Scale = 20;
  rig.Level.Level = 100.0F;
  rig.Panel.Calibrate = true;
  rig.Window.OnYield = [&](int) {
    rig.Panel.Scale = 40;
    rig.Panel.PlotInDB = rig.Panel.Points.empty();
    rig.Panel.Calibrate = rig.Panel.Points.size() < 2;
  };
  rig.Sweep.Timer1_Timer();
  EXPECT_FLOAT_EQ(rig.Panel.Points.at(0).Radius, 23.4F);
  EXPECT_FLOAT_EQ(rig.Panel.Points.at(1).Radius, 23.4F);  // linear now: 100 of 1000
}

TEST(CalibrateSweep, of_a_meter_shows_its_dB_and_starts_no_capture) {
  CollectionRig rig;
  rig.UseSerialMeter();
  rig.Settings.ShowLogScale = false;
  rig.Meter.MeterDb = 35.0F;
  UntickAfter(rig, 1);
  rig.Sweep.Timer1_Timer();
  EXPECT_FLOAT_EQ(rig.Panel.Points.at(0).Radius, 117.0F);
  EXPECT_THAT(rig.Log, Not(Contains("StartSoundCapture")));
  EXPECT_THAT(rig.Log, Not(Contains("StopSoundCapture")));
  EXPECT_TRUE(rig.Called("SweepEnds"));
}

TEST(CalibrateSweep, follows_the_source_that_the_user_sets_and_names_it) {
  CollectionRig rig;
  UntickAfter(rig, 5);
  const auto untick = rig.Window.OnYield;
  rig.Window.OnYield = [&](int yield) {
    if (rig.Panel.Points.size() == 2) rig.Sound.Name = "USB microphone";
    untick(yield);
  };
  rig.Sweep.Timer1_Timer();
  EXPECT_EQ(rig.Sound.Moves, SourceMoves::AreFollowed);
  EXPECT_EQ(rig.CountOf("source Test input"), 1);
  EXPECT_EQ(rig.CountOf("source USB microphone"), 1);
}

TEST(CalibrateSweep, shows_no_point_before_the_meter_has_sent_three_values) {
  CollectionRig rig;
  rig.UseSerialMeter();
  rig.Meter.HistoryLength = 0;
  UntickAfter(rig, 1);
  rig.Level.OnSample = [&](int sample) {
    if (sample >= 10) rig.Speak();
    return 300.0F;
  };
  rig.Sweep.Timer1_Timer();
  EXPECT_EQ(rig.Level.Samples, 12 + 3);
  EXPECT_LT(rig.PlaceOf("the meter speaks"), rig.PlaceOf("SweepRound"));
}

TEST(CalibrateSweep, unticked_while_it_waits_for_the_meter_ends) {
  CollectionRig rig;
  rig.UseSerialMeter();
  rig.Meter.HistoryLength = 0;
  rig.Level.OnSample = [](int) { return 0.0F; };
  rig.Panel.Calibrate = true;
  rig.Window.OnYield = [&](int yield) { rig.Panel.Calibrate = yield < 30; };
  rig.Sweep.Timer1_Timer();
  EXPECT_THAT(rig.Panel.Points, IsEmpty());
  EXPECT_FALSE(rig.Panel.Locked);
}

TEST(CalibrateSweep, is_a_run_while_it_lasts) {
  CollectionRig rig;
  UntickAfter(rig, 2);
  rig.Sound.OnStart = [&] { EXPECT_TRUE(rig.Flags.IsSweeping && rig.Flags.Running() && rig.Panel.Locked); };
  rig.Sweep.Timer1_Timer();
  EXPECT_FALSE(rig.Flags.Running());
}

TEST(CalibrateSweep, a_second_timer_in_its_middle_changes_nothing) {
  CollectionRig rig;
  UntickAfter(rig, 5);
  const auto untick = rig.Window.OnYield;
  rig.Window.OnYield = [&](int yield) {
    if (yield == 3) rig.Sweep.Timer1_Timer();
    untick(yield);
  };
  rig.Sweep.Timer1_Timer();
  EXPECT_EQ(rig.CountOf("SweepBegins"), 1);
  EXPECT_EQ(rig.Panel.Points.size(), 5U);
}

TEST(CalibrateSweep, collect_ends_it_and_runs) {
  CollectionRig rig;
  rig.Panel.Calibrate = true;
  rig.Window.OnYield = [&](int) {
    if (rig.Panel.Points.size() == 10 && rig.Flags.IsSweeping) rig.Collect();
  };
  const RunReport report = rig.Sweep.Timer1_Timer();
  EXPECT_EQ(report.ReadingsTaken, 360);
  EXPECT_EQ(rig.Panel.Points.size(), 10U + 360U);
  EXPECT_FALSE(rig.Panel.Calibrate);
  EXPECT_LT(rig.PlaceOf("SweepEnds"), rig.PlaceOf("CalibrateOff"));
  EXPECT_LT(rig.PlaceOf("CalibrateOff"), rig.PlaceOf("TurnBegins"));
  EXPECT_FALSE(rig.Flags.CollectRequested);
}

TEST(CalibrateSweep, collect_before_the_timer_fires_runs_without_a_point) {
  CollectionRig rig;
  rig.Panel.Calibrate = true;
  rig.Collect();
  EXPECT_EQ(rig.Sweep.Timer1_Timer().ReadingsTaken, 360);
  EXPECT_EQ(rig.Panel.Points.size(), 360U);
}

TEST(CalibrateSweep, a_collection_that_is_refused_afterwards_is_not_asked_for_for_ever) {
  CollectionRig rig;
  rig.UseSerialMeter();
  rig.Panel.Calibrate = true;
  rig.Window.OnYield = [&](int) {
    rig.Collect();
    rig.Port.IsOpen = false;  // unplugged at the same moment
  };
  EXPECT_FALSE(rig.Sweep.Timer1_Timer().Ran);
  EXPECT_FALSE(rig.Flags.CollectRequested);
  EXPECT_FALSE(rig.Panel.Calibrate);
}

TEST(CalibrateSweep, without_sound_it_ends_at_once_unticked_and_says_so_after_the_unlock) {
  CollectionRig rig;
  rig.HoldPattern(100);
  rig.Panel.Calibrate = true;
  rig.Sound.Starts = false;
  rig.Sound.Failure = "Connection refused";
  rig.Messages.OnShow = [&] { EXPECT_FALSE(rig.Panel.Locked || rig.Flags.Running()); };
  rig.Sweep.Timer1_Timer();
  EXPECT_THAT(rig.Panel.Points, IsEmpty());
  EXPECT_FALSE(rig.Panel.Calibrate);
  EXPECT_THAT(rig.Messages.Shown, ElementsAre(UserMessage{"Connection refused", "DirectSound Error", true}));
  EXPECT_EQ(rig.Record.ReadingCount, 100.0);
}

TEST(CalibrateSweep, a_lost_source_ends_it_unticked_with_its_message) {
  CollectionRig rig;
  rig.Panel.Calibrate = true;
  rig.Window.OnYield = [&](int) {
    if (rig.Panel.Points.size() == 7) rig.Sound.Failure = "Connection terminated";
  };
  rig.Sweep.Timer1_Timer();
  EXPECT_FALSE(rig.Panel.Calibrate);
  EXPECT_EQ(rig.Panel.Points.size(), 7U);
  EXPECT_THAT(rig.Messages.Shown,
              ElementsAre(UserMessage{"Connection terminated", "DirectSound Error", true}));
}

TEST(CalibrateSweep, device_messages_wait_for_its_end) {
  CollectionRig rig;
  UntickAfter(rig, 2);
  rig.Sound.OnStart = [&] { rig.Waiting.Post({"from a device"}); };
  rig.Messages.OnShow = [&] { EXPECT_FALSE(rig.Panel.Locked); };
  rig.Sweep.Timer1_Timer();
  EXPECT_THAT(rig.Messages.Shown, ElementsAre(UserMessage{"from a device"}));
}

TEST(CalibrateSweep, a_closed_window_ends_it_and_nothing_is_written_after) {
  CollectionRig rig;
  rig.HoldPattern(100);
  rig.Panel.Calibrate = true;
  rig.Flags.CollectRequested = false;
  rig.Window.OnYield = [&](int) {
    if (rig.Panel.Points.size() == 3) {
      rig.Collect();
      rig.Flags.RequestClose();
    }
  };
  EXPECT_FALSE(rig.Sweep.Timer1_Timer().Ran);
  EXPECT_FALSE(rig.Called("SweepEnds"));
  EXPECT_FALSE(rig.Called("TurnBegins"));
  EXPECT_TRUE(rig.Called("StopSoundCapture"));
  EXPECT_EQ(rig.Record.Readings(0), 50.0F);
}

TEST(CalibrateSweep, does_not_start_in_a_window_that_closes) {
  CollectionRig rig;
  rig.Panel.Calibrate = true;
  rig.Flags.RequestClose();
  rig.Sweep.Timer1_Timer();
  EXPECT_THAT(rig.Log, IsEmpty());
}

TEST(CalibrateSweep, a_fault_unlocks_unticks_and_is_thrown_on) {
  CollectionRig rig;
  rig.HoldPattern(100);
  rig.Panel.Calibrate = true;
  rig.Settings.PeakInputLevel = 0.0F;  // no logarithm of 0
  try {
    rig.Sweep.Timer1_Timer();
    FAIL() << "a zero peak input level";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), 5);
  }
  EXPECT_FALSE(rig.Panel.Locked);
  EXPECT_FALSE(rig.Panel.Calibrate);
  EXPECT_FALSE(rig.Flags.Running());
  EXPECT_EQ(rig.Record.ReadingCount, 100.0);
  EXPECT_FALSE(rig.Flags.CollectRequested) << "the next sweep would end in a turn at once";
}

}  // namespace
}  // namespace lobegraph
