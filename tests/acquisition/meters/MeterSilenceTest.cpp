// A meter that falls silent in the middle of a turn.
#include "acquisition/meters/MeterSilence.h"

#include "acquisition/CollectionRig.h"

namespace lobegraph {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A turn of the rig with 100 ms a reading in which a value comes with each of the wanted readings.
struct SilentRig : CollectionRig {
  explicit SilentRig(std::function<bool(int)> fresh) {
    UseSerialMeter();
    Meter.MeterDb = 30;
    Level.MsPerSample = 100;
    Level.OnSample = [this, fresh](int sample) {
      if (fresh(sample - 2)) ++Meter.ValuesReceived;  // the first sample belongs to the start-up delay
      return 300.0F;
    };
    Settings.StartupDelay = Currency();
  }
  std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const UserMessage& message : Messages.Shown) texts.push_back(message.Text);
    return texts;
  }
};

TEST(MeterSilence, ATalkingMeterIsNotMentioned) {
  SilentRig rig([](int) { return true; });
  rig.Collect();
  EXPECT_THAT(rig.Texts(), IsEmpty());
}

TEST(MeterSilence, AMeterSlowerThanTheReadingsIsNotSilent) {
  SilentRig rig([](int index) { return index % 8 == 0; });
  rig.Collect();
  EXPECT_THAT(rig.Texts(), IsEmpty());
}

TEST(MeterSilence, AWholeSecondWithoutAValueIsSilence) {
  for (const auto& [backMs, count] : {std::pair{999, 0}, {1000, 1}}) {
    MeterSilence silence;
    silence.Begin(5, 0);
    silence.Reading(0, 5, 500);
    silence.Reading(1, 6, backMs);
    EXPECT_EQ(silence.End(backMs, false).Count, count) << backMs;
  }
}

TEST(MeterSilence, OneMessageAfterTheUnlockNamesTheFirstAndTheNumber) {
  SilentRig rig([](int index) { return index < 100; });
  const RunReport report = rig.Collect();
  EXPECT_EQ(report.ReadingsTaken, 360) << "the turn goes on with the last value";
  EXPECT_EQ(rig.Record.Readings(359), 300.0F);
  EXPECT_THAT(rig.Texts(),
              ElementsAre("The meter had no fresh value for 260 readings, the first is No. 101. Check "
                          "the meter and its cable; then choose the input again."));
  EXPECT_FALSE(rig.Messages.Shown.front().Exclamation) << "the pattern is there";
  EXPECT_GT(rig.PlaceOf("Message " + rig.Texts().front()), rig.PlaceOf("TurnUnlocked"));
}

TEST(MeterSilence, SeveralStretchesAreOneMessage) {
  SilentRig rig([](int index) { return index % 100 >= 20; });
  rig.Collect();
  ASSERT_EQ(rig.Texts().size(), 1U);
  EXPECT_THAT(rig.Texts().front(), ::testing::HasSubstr("for 80 readings, the first is No. 1."));
}

TEST(MeterSilence, APortThatGoesAtTheLastReadingIsSaid) {
  SilentRig rig([](int index) { return index < 359; });
  rig.Panel.OnStored = [&](int index) { rig.Port.IsOpen = index < 359; };
  rig.Collect();
  EXPECT_THAT(rig.Texts(),
              ElementsAre("The meter had no fresh value for 1 reading, the first is No. 360. Check "
                          "the meter and its cable; then choose the input again."));
}

TEST(MeterSilence, TheSoundCardIsNoMeter) {
  CollectionRig rig;
  rig.Collect();
  EXPECT_THAT(rig.Messages.Shown, IsEmpty());
}

}  // namespace
}  // namespace lobegraph
