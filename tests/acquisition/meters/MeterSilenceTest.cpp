// A meter that falls silent in the middle of a turn.
#include "acquisition/meters/MeterSilence.h"

#include "acquisition/CollectionRig.h"

namespace lobegraph {
namespace {

using ::testing::IsEmpty;

/// A meter in front of a stopwatch; every look is 5 ms after the one before.
struct Watch {
  MeterSilence Silence;
  std::uint64_t Signs = 7;
  std::uint32_t SilentAfterMs = 100;
  std::int32_t NowMs = 2'147'483'000;  // the clock's end lies on the way
  int Readings = 0;

  Watch() { Silence.Begin(Signs, NowMs); }
  void Look(std::int32_t afterMs = 5) {
    NowMs =
        static_cast<std::int32_t>(static_cast<std::uint32_t>(NowMs) + static_cast<std::uint32_t>(afterMs));
    Silence.Look(Signs, SilentAfterMs, NowMs);
  }
  /// A reading of that many looks; the meter speaks at its first one.
  void Reading(bool spoken, int looks = 10) {
    if (spoken) ++Signs;
    for (int i = 0; i < looks; ++i) Look();
    Told = Silence.Reading(Readings++);
  }
  bool Told = false;  ///< that the last one is silent
};

TEST(MeterSilence, ATalkingMeterHasNone) {
  Watch watch;
  for (int i = 0; i < 20; ++i) watch.Reading(true);
  EXPECT_EQ(watch.Silence.End(false).Count, 0);
}

TEST(MeterSilence, AMeterSlowerThanTheReadingsHasNone) {
  Watch watch;
  watch.SilentAfterMs = 800;
  for (int i = 0; i < 40; ++i) watch.Reading(i % 8 == 0);  // 400 ms
  EXPECT_EQ(watch.Silence.End(false).Count, 0);
}

TEST(MeterSilence, BeginsAtTwiceTheMetersIntervalAndCountsFromItsFirstReading) {
  for (const int looksWithout : {19, 20}) {
    Watch watch;
    watch.Reading(true, 1);
    for (int i = 0; i < looksWithout; ++i) watch.Reading(false, 1);
    ++watch.Signs;
    watch.Reading(true, 1);
    const SilentReadings silent = watch.Silence.End(false);
    EXPECT_EQ(silent.Count, looksWithout < 20 ? 0 : 20);
    EXPECT_EQ(silent.First, looksWithout < 20 ? -1 : 1);
    EXPECT_EQ(silent.Last, looksWithout < 20 ? -1 : 20);
  }
}

TEST(MeterSilence, EachStretchIsKnownAndToldFromTheMomentOnWhenItIsLongEnough) {
  Watch watch;
  watch.Reading(true);
  watch.Reading(false);
  EXPECT_FALSE(watch.Told) << "50 ms";
  watch.Reading(false);
  EXPECT_TRUE(watch.Told) << "100 ms";
  watch.Reading(true);
  EXPECT_FALSE(watch.Told);
  for (int i = 0; i < 3; ++i) watch.Reading(false);
  const SilentReadings silent = watch.Silence.End(false);
  ASSERT_EQ(silent.Stretches.size(), 2U);
  EXPECT_EQ(silent.Stretches[0].First, 1);
  EXPECT_EQ(silent.Stretches[0].Last, 2);
  EXPECT_EQ(silent.Stretches[1].First, 4);
  EXPECT_EQ(silent.Stretches[1].Last, 6);
  EXPECT_EQ(silent.Count, 5);
}

TEST(MeterSilence, SixteenReadingsOfAFastTurnAreCountedThoughTheyLastLessThanASecond) {
  Watch watch;
  for (int i = 0; i < 100; ++i) watch.Reading(true);
  for (int i = 0; i < 16; ++i) watch.Reading(false);  // 800 ms
  watch.Reading(true);
  const SilentReadings silent = watch.Silence.End(false);
  EXPECT_EQ(silent.Count, 16);
  EXPECT_EQ(silent.First, 100);
}

TEST(MeterSilence, SeveralStretchesAreCountedTogether) {
  Watch watch;
  for (int i = 0; i < 100; ++i) watch.Reading(i % 20 >= 5);
  const SilentReadings silent = watch.Silence.End(false);
  EXPECT_EQ(silent.Count, 25);
  EXPECT_EQ(silent.First, 0);
  EXPECT_EQ(silent.Last, 84);
}

TEST(MeterSilence, TimeInWhichTheProgramItselfStoodStillIsNone) {
  Watch watch;
  watch.Reading(true);
  watch.Look(3000);
  watch.Silence.Reading(watch.Readings++);
  watch.Reading(true);
  EXPECT_EQ(watch.Silence.End(false).Count, 0);
}

TEST(MeterSilence, AMeterThatSaysThatItHasNoValueIsSilentAtOnce) {
  Watch watch;
  watch.Reading(true);
  watch.SilentAfterMs = 0;
  watch.Reading(false);
  EXPECT_EQ(watch.Silence.End(false).Count, 1);
}

TEST(MeterSilence, AMeterThatIsGoneIsSilentHoweverShortly) {
  for (const bool gone : {false, true}) {
    Watch watch;
    watch.Reading(true);
    watch.Reading(false, 1);
    EXPECT_EQ(watch.Silence.End(gone).Count, gone ? 1 : 0);
  }
}

/// A turn of the rig with 100 ms a reading in which a value comes with each of the wanted readings.
struct SilentRig : CollectionRig {
  explicit SilentRig(std::function<bool(int)> fresh) {
    UseSerialMeter();
    Settings.StartupDelay = Currency();
    Level.MsPerSample = 10;
    Level.OnSample = [this, fresh, spoken = -1](int sample) mutable {
      const int reading = (sample - 2) / 10;  // the first sample belongs to the start-up delay
      if (fresh(reading) && std::exchange(spoken, reading) != reading) Speak();
      Pump.ProcessPendingEvents();
      return 300.0F;
    };
  }
};

TEST(SilentMeter, ItsTurnGoesOnWithTheLastValueAndIsReported) {
  SilentRig rig([](int index) { return index < 100; });
  const RunReport report = rig.Collect();
  EXPECT_EQ(report.ReadingsTaken, 360);
  EXPECT_EQ(rig.Record.Readings(359), 300.0F);
  EXPECT_EQ(report.Silent.Count, 260);
  EXPECT_EQ(report.Silent.First, 100);
  EXPECT_THAT(rig.Messages.Shown, IsEmpty()) << "whoever shows the report says so";
}

TEST(SilentMeter, APortThatGoesAtTheLastReadingIsReported) {
  SilentRig rig([](int index) { return index < 359; });
  rig.Panel.OnStored = [&](int index) { rig.Port.IsOpen = index < 359; };
  const RunReport report = rig.Collect();
  EXPECT_EQ(report.Silent.Count, 1);
  EXPECT_EQ(report.Silent.First, 359);
}

TEST(SilentMeter, ATalkingOneAndTheSoundCardAreNotReported) {
  SilentRig talking([](int) { return true; });
  EXPECT_EQ(talking.Collect().Silent.Count, 0);
  CollectionRig sound;
  EXPECT_EQ(sound.Collect().Silent.Count, 0);
}

TEST(OneValue, OfAProgramWithoutABeatIsReportedFrom5SecondsOn) {
  for (const auto& [steadyUntil, count] : {std::pair{149, 0}, {160, 60}}) {
    SilentRig rig([steadyUntil](int index) { return index < 100 || index >= steadyUntil; });
    rig.Choice.GaugeBridge = true;
    rig.Store.Put("Active", "Y", "GaugeBridge");
    const auto sample = rig.Level.OnSample;
    rig.Level.OnSample = [&, sample](int number) {
      ++rig.Meter.Life.Signs;  // each poll finds a value
      rig.Meter.Life.ToldByChangesOnly = true;
      rig.Meter.HistoryLength = 3;
      return sample(number - 1);  // the first one fills the mean that is waited for
    };
    const RunReport report = rig.Collect();
    EXPECT_EQ(report.OneValue.Count, count);
    EXPECT_EQ(report.OneValue.First, count > 0 ? 100 : -1);
    EXPECT_EQ(report.OneValue.Last, count > 0 ? 159 : -1);
    EXPECT_EQ(report.Silent.Count, 0);
  }
}

TEST(OneValue, IsNotReportedOfAMeterThatShowsSignsOfLife) {
  SilentRig rig([](int) { return false; });
  EXPECT_EQ(rig.Collect().OneValue.Count, 0);
}

}  // namespace
}  // namespace lobegraph
