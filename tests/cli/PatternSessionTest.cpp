#include "cli/PatternSession.h"

#include <gmock/gmock.h>

#include "cli/MemoryFiles.h"

namespace lobegraph {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* kPath = "folder/beam.lbg";

PatternSession SessionOf(const ReadingsRecord& record, const SessionOptions& options = {}) {
  MemoryFiles files;
  files.Content[kPath] = StoredText(record);
  PatternSession session(options);
  session.Run(files, kPath);
  return session;
}

TEST(PatternSession, AFileIsLoadedAndPlotted) {
  const PatternSession session = SessionOf(StoredBeam());
  EXPECT_THAT(session.Messages(), IsEmpty());
  EXPECT_FALSE(session.Error());
  EXPECT_TRUE(session.Plot().PlotDone);
  EXPECT_EQ(session.Record().FileName, "beam.lbg");
  EXPECT_EQ(session.Record().Description, "test beam");
  EXPECT_EQ(session.txtAngle(), "130.00");
  EXPECT_EQ(session.BeamwidthDeg(), 130.F);
  EXPECT_EQ(session.Record().SavedReadings, session.Record().Readings);
}

TEST(PatternSession, AMissingFileIsAnErrorWithItsMessage) {
  MemoryFiles files;
  PatternSession session({});
  session.Run(files, "nowhere.lbg");
  ASSERT_TRUE(session.Error());
  EXPECT_EQ(session.Error()->Number(), fault::kFileNotFound);
  EXPECT_THAT(session.Messages(), ElementsAre(HasSubstr("of procedure cmdGetData_Click of Form Form1")));
}

TEST(PatternSession, ACutFileKeepsTheFieldsReadAndDrawsNothing) {
  MemoryFiles files;
  files.Content[kPath] = StoredText(StoredBeam()).substr(0, 600);
  PatternSession session({.txtRotate = "10", .Apply = {Transform::Smooth}});
  session.Run(files, kPath);
  ASSERT_TRUE(session.Error());
  EXPECT_EQ(session.Error()->Number(), fault::kInputPastEnd);
  EXPECT_EQ(session.Record().NumReadings, 359);
  EXPECT_GT(session.Record().Readings(0), 0.F);
  EXPECT_FALSE(session.Plot().PlotDone);
  EXPECT_EQ(session.Record().Rotate, 0.F);
}

TEST(PatternSession, BoxesAreTypedAfterTheLoad) {
  const PatternSession session =
      SessionOf(StoredBeam(), {.txtRotate = "33 degrees", .txtTrimFront = "2", .txtTrimEnd = "3.5"});
  EXPECT_EQ(session.Record().Rotate, 33.F);
  EXPECT_EQ(session.Record().TrimFront, 2);
  EXPECT_EQ(session.Record().TrimEnd, 4);
  EXPECT_EQ(session.Record().ReadingsPlotted, 354);
  EXPECT_EQ(session.Boxes().txtTrimEnd, "4");
}

TEST(PatternSession, ABoxThatWasNotTypedKeepsWhatTheFileBrought) {
  ReadingsRecord record = StoredBeam();
  record.TrimFront = 5;
  record.Rotate = 20.F;
  const PatternSession session = SessionOf(record, {.txtTrimEnd = "1"});
  EXPECT_EQ(session.Record().TrimFront, 5);
  EXPECT_EQ(session.Record().Rotate, 20.F);
  EXPECT_EQ(session.Record().TrimEnd, 1);
}

TEST(PatternSession, ARefusedValueIsSaidResetAndNotPlotted) {
  const PatternSession session = SessionOf(StoredBeam(), {.txtRotate = "359.5"});
  EXPECT_THAT(session.Messages(), ElementsAre("LBG007 Value for Rotate must be in the range 1 - 359"));
  EXPECT_EQ(session.Boxes().txtRotate, "0");
  EXPECT_FALSE(session.Plot().PlotDone);
  EXPECT_FALSE(session.Error()) << "a refusal is no fault";
  EXPECT_EQ(session.txtAngle(), "130.00") << "the window keeps the former figures";
}

TEST(PatternSession, TrimBoxesAreResetByTheirOwnMessage) {
  const PatternSession front = SessionOf(StoredBeam(), {.txtTrimFront = "400"});
  EXPECT_THAT(front.Messages(), ElementsAre(HasSubstr("LBG008")));
  EXPECT_EQ(front.Boxes().txtTrimFront, "0");
  const PatternSession end = SessionOf(StoredBeam(), {.txtTrimEnd = "-1"});
  EXPECT_THAT(end.Messages(), ElementsAre(HasSubstr("LBG009")));
  EXPECT_EQ(end.Boxes().txtTrimEnd, "0");
}

TEST(PatternSession, AShortSetIsPlottedOnlyWhenCalibrating) {
  EXPECT_THAT(SessionOf(StoredBeam(36)).Messages(), ElementsAre(HasSubstr("LBG011")));
  const PatternSession session = SessionOf(StoredBeam(36), {.Calibrate = true});
  EXPECT_THAT(session.Messages(), IsEmpty());
  EXPECT_TRUE(session.Plot().PlotDone);
}

TEST(PatternSession, TheScaleOptionIsTheWindowsTwoScaleControls) {
  for (const auto scale : {PlotScale::Logarithmic, PlotScale::Db50, PlotScale::Linear})
    EXPECT_EQ(SessionOf(StoredBeam(), {.Scale = scale}).Plot().Scale, scale);
}

TEST(PatternSession, TheScaleSettingStaysOnTheSlider) {
  ReadingsRecord record = StoredBeam();
  record.ScaleSetting = 7.F;
  EXPECT_EQ(SessionOf(record).Record().ScaleSetting, 10.F);
  record.ScaleSetting = 300.F;
  EXPECT_EQ(SessionOf(record).Record().ScaleSetting, 100.F);
  EXPECT_EQ(SessionOf(record).Options().ScaleSetting, 100.F);
}

TEST(PatternSession, APatternOverAnotherKeepsTheOthersScale) {
  MemoryFiles files;
  files.Content[kPath] = StoredText(StoredBeam());
  PatternSession session({}, 20.F);
  session.Run(files, kPath);
  EXPECT_EQ(session.Options().ScaleSetting, 20.F);
}

TEST(PatternSession, ALevelAboveThePeakInputLevelWarnsAndGoesOn) {
  const PatternSession session = SessionOf(StoredBeam(), {.PeakInputLevel = 500.F});
  // The stored peak index is 0, whose reading is 794.7.
  EXPECT_THAT(session.Messages(), ElementsAre(HasSubstr("LBG030")));
  EXPECT_TRUE(session.Plot().PlotDone);
}

TEST(PatternSession, OrientTurnsTheBeamToTheTop) {
  const PatternSession session = SessionOf(StoredBeam(), {.Apply = {Transform::Orient}});
  EXPECT_EQ(session.Record().Rotate, 320.F);
  EXPECT_EQ(session.Boxes().txtRotate, "320");
}

TEST(PatternSession, ReverseSwapsTheTrimsAndOrients) {
  const PatternSession session =
      SessionOf(StoredBeam(), {.txtTrimFront = "2", .txtTrimEnd = "0", .Apply = {Transform::Reverse}});
  EXPECT_EQ(session.Record().TrimFront, 0);
  EXPECT_EQ(session.Record().TrimEnd, 2);
  EXPECT_EQ(session.Record().PeakIndex, 319);
  EXPECT_NE(session.Record().Rotate, 0.F);
}

TEST(PatternSession, DeSpikeTakesTheSpikeDetectLevel) {
  ReadingsRecord record = StoredBeam();
  record.Readings(200) += 60.F;
  EXPECT_LT(SessionOf(record, {.SpikeDetectLevel = 40, .Apply = {Transform::DeSpike}}).Record().Readings(200),
            record.Readings(200) - 50.F);
  EXPECT_EQ(SessionOf(record, {.SpikeDetectLevel = 70, .Apply = {Transform::DeSpike}}).Record().Readings(200),
            record.Readings(200));
}

TEST(PatternSession, ADeSpikeThatIsRefusedSaysSoAndDoesNotOrient) {
  const PatternSession session =
      SessionOf(StoredBeam(36), {.Calibrate = true, .Apply = {Transform::DeSpike}});
  EXPECT_THAT(session.Messages(), ElementsAre(HasSubstr("LBG011")));
  EXPECT_EQ(session.Record().Rotate, 0.F);
}

TEST(PatternSession, OriginalBringsTheReadingsBackWithoutFigures) {
  const ReadingsRecord record = StoredBeam();
  const PatternSession session =
      SessionOf(record, {.txtTrimFront = "9", .Apply = {Transform::Smooth, Transform::Original}});
  EXPECT_EQ(session.Record().Readings(100), session.Record().SavedReadings(100));
  EXPECT_EQ(session.Record().TrimFront, 0);
  EXPECT_EQ(session.txtAngle(), "Angle");
  EXPECT_EQ(session.BeamwidthDeg(), 0.F);
  EXPECT_EQ(session.Plot().Trace.size(), 361U);
}

TEST(PatternSession, CommandsRunInTheOrderGiven) {
  const auto order = [](std::vector<Transform> commands) {
    return SessionOf(StoredBeam(), {.Apply = std::move(commands)}).Record().Readings(100);
  };
  EXPECT_NE(order({Transform::Smooth, Transform::Reverse}), order({Transform::Reverse, Transform::Smooth}));
}

TEST(PatternSession, AReadingOfZeroIsAFaultThatSmoothingMends) {
  ReadingsRecord record = StoredBeam();
  record.Readings(100) = 0.F;
  const PatternSession faulty = SessionOf(record);
  ASSERT_TRUE(faulty.Error());
  EXPECT_EQ(faulty.Error()->Number(), fault::kDivisionByZero);
  EXPECT_THAT(faulty.Messages(), ElementsAre(HasSubstr("of procedure ReDraw of Form Form1")));
  const PatternSession mended = SessionOf(record, {.Apply = {Transform::Smooth}});
  EXPECT_FALSE(mended.Error());
  EXPECT_TRUE(mended.Plot().PlotDone);
  EXPECT_EQ(mended.Messages().size(), 1U);
}

TEST(PatternSession, TheIntegratedGainIsTheTextOfItsBox) {
  EXPECT_THAT(SessionOf(StoredBeam()).IntegratedGainText(), ::testing::Optional(HasSubstr(" dBi")));
  ReadingsRecord single = StoredBeam();
  single.Elements = "1";
  EXPECT_FALSE(SessionOf(single).IntegratedGainText()) << "a single element leaves the box alone";
  EXPECT_FALSE(SessionOf(StoredBeam(36)).IntegratedGainText()) << "refused";
}

}  // namespace
}  // namespace lobegraph
