// Loading and overlaying: what is shown in which order, and what becomes of the former pattern.
#include "support/SessionFixture.h"

namespace lobegraph {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class SessionFiles : public SessionFixture {};

std::string CutAt(const std::string& bytes, std::size_t share) {
  return bytes.substr(0, bytes.size() / share);
}

TEST_F(SessionFiles, ALoadClearsShowsTheRecordDrawsAndTakesTheSavedCopy) {
  const Outcome outcome = Load(Beam());
  EXPECT_THAT(Told(outcome), ElementsAre("not 180", "grid", "cleared but the description",
                                         "figures Angle Gain", "fields 0 0 0", "details", "grid",
                                         "fields 0 0 0", "trace", StartsWith("figures 130.00 ")));
  EXPECT_TRUE(outcome.Plotted);
  EXPECT_EQ(Session.Record().FilePath, "/p/beam.lbg");
  EXPECT_EQ(Session.Record().FileName, "beam.lbg");
  EXPECT_EQ(Session.Record().SavedReadings, Session.Record().Readings);
  EXPECT_EQ(Session.Record().SavedNumReadings, 359);
  EXPECT_EQ(Session.Style().ScaleSetting, 40);
  EXPECT_EQ(Session.BeamwidthDeg(), 130.F);
  EXPECT_FALSE(Session.LastFault());
}

TEST_F(SessionFiles, TheGridBeforeALoadSpeaksOfTheFormerPatternTheOneAfterOfTheNew) {
  Load(Beam());
  ReadingsRecord second = Beam();
  second.CollectedBy = "DL0XY";
  std::vector<std::string> names;
  for (const Step& step : Load(second).Steps)
    if (const auto* grid = std::get_if<show::Grid>(&step)) names.push_back(grid->CollectedBy);
  EXPECT_THAT(names, ElementsAre("K1AB", "DL0XY"));
}

TEST_F(SessionFiles, ADescriptionThatAFileBroughtGoesWithItsPattern) {
  Load(Beam());
  EXPECT_THAT(Told(Load(Beam())), testing::Contains("cleared"));
}

TEST_F(SessionFiles, AFileThatCannotBeReadLeavesEverything) {
  Load(Beam());
  Placed({.Rotate = 30});
  const std::string before = WritePatternText(Session.Record(), "");
  for (const bool over : {false, true}) {
    const Outcome outcome =
        over ? Session.Overlay("/p/gone.lbg", Unreadable()) : Session.Load("/p/gone.lbg", Unreadable());
    EXPECT_THAT(Told(outcome), ElementsAre("fault 53 of cmdGetData_Click"));
    EXPECT_EQ(WritePatternText(Session.Record(), ""), before);
    EXPECT_EQ(Session.Record().FileName, "beam.lbg");
    EXPECT_FALSE(Session.Beneath());
    EXPECT_TRUE(Session.DescriptionLoaded());
    EXPECT_EQ(Session.BeamwidthDeg(), 130.F);
    EXPECT_TRUE(Session.LastFault());
  }
}

TEST_F(SessionFiles, ADamagedFileShowsItsFieldsAndTheFaultAndIsNeverDrawnByItself) {
  const Outcome outcome = Session.Load("/p/cut.lbg", Bytes(CutAt(WritePatternText(Beam(), ""), 2)));
  EXPECT_THAT(Told(outcome),
              ElementsAre("not 180", "grid", "cleared but the description", "figures Angle Gain",
                          "fields 0 0 0", "details", "fault 62 of cmdGetData_Click"));
  EXPECT_FALSE(outcome.Plotted);
  EXPECT_TRUE(Session.Record().HasReadings());
  EXPECT_FALSE(Session.Drawable());
  EXPECT_EQ(Session.Record().SavedReadings, Session.Record().Readings);
  EXPECT_THAT(Told(Session.Redraw()), ElementsAre("grid"));
  Load(Beam());
  EXPECT_TRUE(Session.Drawable());
}

TEST_F(SessionFiles, ADamagedPatternThatACommandHasDrawnIsDrawnByEveryOther) {
  const std::string whole = WritePatternText(Beam(), "");
  Session.Load("/p/cut.lbg", Bytes(whole.substr(0, whole.size() - 30)));
  EXPECT_FALSE(Session.Redraw().Plotted);
  EXPECT_TRUE(Session.Orient().Plotted);
  EXPECT_TRUE(Session.ToggleLogarithmic().Plotted);
  EXPECT_TRUE(Session.Redraw().Plotted);
}

TEST_F(SessionFiles, AWarningStandsBeforeTheNewPatternIsShown) {
  Session.SetRules({.PeakInputLevel = 500.F});
  ReadingsRecord strong = Beam(0);
  const auto told = Told(Load(strong));
  ASSERT_EQ(told.size(), 11U);
  EXPECT_THAT(told[4], StartsWith("LBG030 Warning"));
  EXPECT_EQ(told[5], "fields 0 0 0");
}

TEST_F(SessionFiles, TheScaleOfAFileIsTheNearestThatThereIs) {
  for (const auto& [scale, setting] :
       {std::pair{41.5F, 42}, {7.F, 10}, {300.F, 100}, {-5.F, 10}, {1E+20F, 100}}) {
    ReadingsRecord record = Beam();
    record.ScaleSetting = scale;
    Load(record);
    EXPECT_EQ(Session.Style().ScaleSetting, setting) << scale;
    EXPECT_EQ(Session.Record().ScaleSetting, static_cast<float>(setting)) << scale;
  }
}

TEST_F(SessionFiles, AnOverlayKeepsTheScaleAndDrawsNoGrid) {
  Load(Beam());
  Session.SetScale(60);
  ReadingsRecord second = Beam(90);
  second.ScaleSetting = 20.F;
  EXPECT_THAT(Told(Overlay(second)),
              ElementsAre("not 180", "cleared", "figures Angle Gain", "fields 0 0 0", "details",
                          "fields 0 0 0", "trace over", HasSubstr("130.00")));
  EXPECT_EQ(Session.Style().ScaleSetting, 60);
  ASSERT_TRUE(Session.Beneath());
  EXPECT_EQ(Session.Beneath()->FileName, "beam.lbg");
}

TEST_F(SessionFiles, APairIsDrawnAgainTheOneBeneathFirst) {
  Load(Beam());
  Overlay(Beam(90));
  for (int time = 0; time < 2; ++time)
    EXPECT_THAT(Told(Session.Redraw()),
                ElementsAre("grid", "trace", "fields 0 0 0", "trace over", HasSubstr("figures")));
}

TEST_F(SessionFiles, ThePatternBeneathKeepsItsOwnTrimsAndRotation) {
  Load(Beam());
  Placed({.Rotate = 90, .TrimEnd = 100});
  Overlay(Beam(90));
  const Outcome outcome = Session.Redraw();
  const auto& beneath = std::get<show::Trace>(outcome.Steps.at(1));
  EXPECT_EQ(beneath.Plot.Trace.size(), 261U);
  EXPECT_EQ(beneath.Plot.RotationOffset, 90.F);
  EXPECT_FALSE(beneath.Overlay);
}

TEST_F(SessionFiles, APatternBeneathThatCannotBeDrawnIsLeftOutWithoutAWord) {
  Load(Beam());
  Overlay(Beam(90));
  Session.SetRules({.PeakInputLevel = 0.F});
  EXPECT_THAT(Told(Session.Redraw()), ElementsAre("grid", "fields 0 0 0", "fault 5 of ReDraw"));
}

TEST_F(SessionFiles, AnOverlayOverNothingOrOverADamagedPatternStandsAlone) {
  Overlay(Beam());
  EXPECT_FALSE(Session.Beneath());
  Session.Load("/p/cut.lbg", Bytes("359\r\n1\r\n2\r\n"));
  Overlay(Beam());
  EXPECT_FALSE(Session.Beneath());
  EXPECT_THAT(Told(Session.Redraw()), ElementsAre("grid", "fields 0 0 0", "trace", HasSubstr("figures")));
}

TEST_F(SessionFiles, ADamagedOverlayLeavesThePatternBeneathToBeDrawn) {
  Load(Beam());
  Session.Overlay("/p/cut.lbg", Bytes("359\r\n1\r\n2\r\n"));
  EXPECT_THAT(Told(Session.Redraw()), ElementsAre("grid", "trace"));
}

TEST_F(SessionFiles, ALoadEndsAnOverlay) {
  Load(Beam());
  Overlay(Beam(90));
  Load(Beam());
  EXPECT_FALSE(Session.Beneath());
}

TEST_F(SessionFiles, Reading360IsKeptOnPurpose) {
  ReadingArray readings;
  for (int i = 0; i <= 360; ++i) readings(i) = 100.F;
  Session.Update(readings);
  Load(Beam(0, 100));
  EXPECT_EQ(Session.Record().Readings(100), 0.F);
  EXPECT_EQ(Session.Record().Readings(360), 100.F);
}

TEST_F(SessionFiles, ASetOf361ReadingsIsCappedForItsFile) {
  Session.Load("/p/beam.lbg", File(Beam(40, 361)));
  EXPECT_EQ(Session.Record().NumReadings, 360);
  EXPECT_EQ(Session.CapForFile().NumReadings, 359);
  EXPECT_EQ(Session.Record().NumReadings, 359);
  Session.SavedAs("/q/new.lbg");
  EXPECT_EQ(Session.Record().FilePath, "/q/new.lbg");
  EXPECT_EQ(Session.Record().FileName, "new.lbg");
}

}  // namespace
}  // namespace lobegraph
