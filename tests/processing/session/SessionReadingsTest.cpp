// The commands that change the readings.
#include <cmath>

#include "processing/Transforms.h"
#include "support/SessionFixture.h"

namespace lobegraph {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class SessionReadings : public SessionFixture {
 protected:
  std::vector<std::string> Turned(const std::string& rotate) {
    return {
        "grid",  "fields 0 0 0", "trace", "figures", "Rotate=" + rotate, "grid", "fields " + rotate + " 0 0",
        "trace", "figures"};
  }
  /// The steps without what their figures are.
  static std::vector<std::string> Steps(const Outcome& outcome) {
    auto told = Told(outcome);
    for (std::string& step : told)
      if (step.starts_with("figures")) step = "figures";
    return told;
  }
};

TEST_F(SessionReadings, SmoothSmoothsAndDraws) {
  Load(Beam());
  ReadingsRecord expected = Session.Record();
  Smooth(expected);
  EXPECT_THAT(Steps(Session.Smooth()), ElementsAre("grid", "fields 0 0 0", "trace", "figures"));
  EXPECT_EQ(Session.Record().Readings, expected.Readings);
  EXPECT_NE(Session.Record().Readings, Session.Record().SavedReadings);
}

TEST_F(SessionReadings, AFaultOfSmoothIsNotDrawn) {
  Session.Load("/p/odd.lbg", Bytes("400\r\n1\r\n"));
  EXPECT_THAT(Told(Session.Smooth()), ElementsAre("fault 9 of cmdSmooth_Click"));
}

TEST_F(SessionReadings, AFaultOfReverseIsToldLikeAnyOther) {
  Session.Load("/p/odd.lbg", Bytes("400\r\n1\r\n"));
  EXPECT_THAT(Told(Session.Reverse()), ElementsAre("fault 9 of cmdReverse_Click"));
}

TEST_F(SessionReadings, ReverseShowsTheSwappedTrimsAndOrients) {
  Load(Beam(90));
  Placed({.TrimFront = 3, .TrimEnd = 8});
  const auto told = Told(Session.Reverse());
  ASSERT_GE(told.size(), 4U);
  EXPECT_EQ(told[0], "TrimFront=8");
  EXPECT_EQ(told[1], "TrimEnd=3");
  EXPECT_EQ(told[2], "grid");
  EXPECT_EQ(Session.Record().PeakIndex, 269);
  EXPECT_NE(Session.Record().Rotate, 0.F);
}

TEST_F(SessionReadings, ReverseMirrorsARotationAsAWholeNumber) {
  Session.ToggleForm();  // the orientation leaves the rotation of the rectangular drawing alone
  Load(Beam());
  Placed({.Rotate = 90.4});
  EXPECT_THAT(Told(Session.Reverse()), testing::Contains("Rotate=270"));
  EXPECT_EQ(Session.Record().Rotate, 270.F);
  Session.Reverse();
  EXPECT_EQ(Session.Record().Rotate, 90.F);
}

TEST_F(SessionReadings, ReverseOfAnUnturnedPlotTakesWhatIsTyped) {
  Session.ToggleForm();
  Load(Beam());
  Session.Type({.Rotate = 45});
  Session.Reverse();
  EXPECT_EQ(Session.Record().Rotate, 45.F);
}

TEST_F(SessionReadings, DeSpikeReplacesASpikeThenOrients) {
  ReadingsRecord record = Beam(90);
  record.Readings(200) += 60.F;
  Session.SetRules({.SpikeDetectLevel = 70});
  Load(record);
  Session.DeSpike();
  EXPECT_FLOAT_EQ(Session.Record().Readings(200), record.Readings(200));
  Session.SetRules({.SpikeDetectLevel = 40});
  const Outcome outcome = Session.DeSpike();
  EXPECT_LT(Session.Record().Readings(200), record.Readings(200) - 50.F);
  EXPECT_TRUE(outcome.Plotted);
}

TEST_F(SessionReadings, DeSpikeTakesFullScaleFromTheRules) {
  ReadingsRecord record = Beam();
  for (int i = 0; i < 360; ++i) record.Readings(i) = 100.F;
  record.Readings(10) = 200.F;
  record.Readings(11) = 900.F;
  Load(record);
  Session.SetRules({.PeakInputLevel = 250.F});
  Session.DeSpike();
  EXPECT_LE(Session.Record().Readings(11), 250.F);
}

TEST_F(SessionReadings, ARefusedDeSpikeSaysSoAndKeepsAnOverlay) {
  Load(Beam());
  Session.SetRules({.AnyLength = true});
  Overlay(Beam(4, 36));
  EXPECT_THAT(Told(Session.DeSpike()), ElementsAre("LBG011 Less than 60 readings - plot aborted"));
  EXPECT_TRUE(Session.Beneath());
}

TEST_F(SessionReadings, AFailedDeSpikePutsTheOriginalsBackAndStillOrients) {
  ReadingsRecord record = Beam(90);
  record.Readings(150) = record.Readings(151) = -1.F;  // a step is no spike
  Load(record);
  const auto told = Told(Session.DeSpike());
  ASSERT_FALSE(told.empty());
  EXPECT_EQ(told[0], "LBG032 Despike operation failed - original readings restored");
  EXPECT_EQ(told[1], "grid");
  EXPECT_EQ(Session.Record().Readings, Session.Record().SavedReadings);
}

TEST_F(SessionReadings, OrientDrawsTurnsAndDraws) {
  Load(Beam(100));
  const Outcome outcome = Session.Orient();
  EXPECT_EQ(Steps(outcome), Turned("260"));
  EXPECT_TRUE(outcome.Plotted);
  EXPECT_EQ(Session.Record().Rotate, 260.F);
}

TEST_F(SessionReadings, EveryBeamDirectionEndsAtTheTopWithoutARefusal) {
  for (int at = 0; at < 360; ++at) {
    Load(Beam(at));
    EXPECT_TRUE(Session.Orient().Plotted) << at;
    EXPECT_NEAR(std::fmod(Session.Record().Rotate + static_cast<float>(at) + 180.F, 360.F), 180.F, .6F) << at;
  }
}

TEST_F(SessionReadings, OrientNeedsThreeReadings) {
  Load(Beam(0, 2));
  EXPECT_THAT(Told(Session.Orient()), IsEmpty());
}

TEST_F(SessionReadings, AnIncompleteDrawingEndsTheOrientation) {
  Load(Beam(4, 40));
  const Outcome outcome = Session.Orient();
  EXPECT_THAT(Told(outcome), ElementsAre("grid", StartsWith("LBG011")));
  EXPECT_FALSE(outcome.Plotted);
  EXPECT_EQ(Session.Record().Rotate, 0.F);
}

TEST_F(SessionReadings, OrientOnlyDrawsTheRectangle) {
  Load(Beam(100));
  Session.ToggleForm();
  const Outcome outcome = Session.Orient();
  EXPECT_THAT(Steps(outcome), ElementsAre("grid", "fields 0 0 0", "trace", "figures"));
  EXPECT_TRUE(outcome.Plotted);
}

TEST_F(SessionReadings, A180DegreeSetKeepsItsRotation) {
  Load(Beam(100));
  Session.CoverHalfTurn(true);
  EXPECT_THAT(Told(Session.Orient()), testing::Contains("Rotate=270"));
  EXPECT_EQ(Session.Record().Rotate, 270.F);
}

TEST_F(SessionReadings, OriginalBringsReadingsCountAndWholeRangeBackWithoutMarksAndFigures) {
  Load(Beam());
  Placed({.TrimFront = 9});
  Session.Smooth();
  Session.SetScale(55);
  EXPECT_THAT(Told(Session.Original()),
              ElementsAre("grid", "fields 0 0 0", "details", "figures Angle Gain", "trace, unmarked"));
  EXPECT_EQ(Session.Record().Readings, Session.Record().SavedReadings);
  EXPECT_EQ(Session.Record().TrimFront, 0);
  EXPECT_EQ(Session.Record().ScaleSetting, 55.F);
  EXPECT_EQ(Session.BeamwidthDeg(), 0.F);
  EXPECT_EQ(Session.Plot().Trace.size(), 361U);
}

TEST_F(SessionReadings, OriginalDrawsADamagedPatternWhichIsThenDrawnLikeAnyOther) {
  const std::string whole = WritePatternText(Beam(), "");
  Session.Load("/p/cut.lbg", Bytes(whole.substr(0, whole.size() - 30)));
  ASSERT_FALSE(Session.Drawable());
  Session.Original();
  EXPECT_TRUE(Session.Drawable());
}

TEST_F(SessionReadings, OriginalDoesNothingWithoutASavedCopy) {
  EXPECT_THAT(Told(Session.Original()), IsEmpty());
}

TEST_F(SessionReadings, AFailedDeSpikeAfterAFirstUpdateBringsBackWhatWasUpdated) {
  ReadingArray readings = Beam().Readings;
  readings(150) = readings(151) = -1.F;
  Session.Update(readings);
  Session.DeSpike();
  EXPECT_EQ(Session.Record().Readings, readings);
}

TEST_F(SessionReadings, TheFirstUpdateTakesTheSavedCopyAndLaterOnesLeaveIt) {
  ReadingArray readings = Beam().Readings;
  Session.Update(readings);
  readings(0) = 7.F;
  Session.Update(readings);
  Session.Original();
  EXPECT_EQ(Session.Record().Readings, Beam().Readings);
}

TEST_F(SessionReadings, CommandsDependOnTheirOrder) {
  Load(Beam());
  Session.Smooth();
  Session.Reverse();
  const float smoothedFirst = Session.Record().Readings(100);
  Load(Beam());
  Session.Reverse();
  Session.Smooth();
  EXPECT_NE(Session.Record().Readings(100), smoothedFirst);
}

TEST_F(SessionReadings, AnUpdateTakesTheReadingsEndsAnOverlayAndDraws) {
  Load(Beam());
  Overlay(Beam(90));
  ReadingArray readings = Session.Record().Readings;
  for (int i = 100; i < 360; ++i) readings(i) = 0.F;
  EXPECT_THAT(Steps(Session.Update(readings)), ElementsAre("grid", "fields 0 0 0", "trace", "figures"));
  EXPECT_EQ(Session.Record().NumReadings, 99);
  EXPECT_EQ(Session.Record().ReadingCount, 100.0);
  EXPECT_FALSE(Session.Beneath());
}

TEST_F(SessionReadings, EachOfThemEndsAnOverlay) {
  for (const auto command : {&PatternSession::Smooth, &PatternSession::Reverse, &PatternSession::DeSpike,
                             &PatternSession::Orient, &PatternSession::Original}) {
    Load(Beam());
    Overlay(Beam(90));
    EXPECT_THAT(Told((Session.*command)()), testing::Not(testing::Contains(HasSubstr("over"))));
    EXPECT_FALSE(Session.Beneath());
  }
}

}  // namespace
}  // namespace lobegraph
