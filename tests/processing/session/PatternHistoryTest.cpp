// Each command that changes the pattern can be taken back and taken again.
#include "processing/session/PatternHistory.h"

#include "support/SessionFixture.h"

namespace lobegraph {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class PatternHistoryTest : public SessionFixture {
 protected:
  std::string Text() const { return WritePatternText(Session.Record(), "") + Session.Record().FileName; }
};

struct Change {
  const char* Name;
  void (*Do)(PatternSession&);
};
class UndoableTest : public PatternHistoryTest, public testing::WithParamInterface<Change> {};

TEST_P(UndoableTest, IsTakenBackAndTakenAgain) {
  ReadingsRecord record = Beam(100);
  record.Readings(200) += 300.F;
  Load(record);
  const std::string before = Text();
  GetParam().Do(Session);
  const std::string after = Text();
  ASSERT_NE(after, before);
  EXPECT_TRUE(Session.Undo().Plotted);
  EXPECT_EQ(Text(), before);
  EXPECT_TRUE(Session.Redo().Plotted);
  EXPECT_EQ(Text(), after);
  Session.Undo();
  EXPECT_EQ(Text(), before);
}

INSTANTIATE_TEST_SUITE_P(
    Commands, UndoableTest,
    testing::Values(Change{"Smooth", [](PatternSession& s) { s.Smooth(); }},
                    Change{"Reverse", [](PatternSession& s) { s.Reverse(); }},
                    Change{"DeSpike", [](PatternSession& s) { s.DeSpike(); }},
                    Change{"Orient", [](PatternSession& s) { s.Orient(); }},
                    Change{"Place",
                           [](PatternSession& s) {
                             s.Type({.Rotate = 30, .TrimEnd = 5});
                             s.Place();
                           }},
                    Change{"Scale", [](PatternSession& s) { s.SetScale(77); }},
                    Change{"HalfTurn", [](PatternSession& s) { s.CoverHalfTurn(true); }},
                    Change{"Polarization", [](PatternSession& s) { s.TogglePolarization(); }},
                    Change{"Elements", [](PatternSession& s) { s.ChooseElements("  5"); }},
                    Change{"Description", [](PatternSession& s) { s.Describe("North field"); }},
                    Change{"Update",
                           [](PatternSession& s) {
                             ReadingArray readings = s.Record().Readings;
                             readings(0) = 1.F;
                             s.Update(readings);
                           }}),
    [](const auto& one) { return one.param.Name; });

TEST_F(PatternHistoryTest, ALoadIsTakenBackToTheFormerPatternAndAtLastToNone) {
  Load(Beam());
  const std::string first = Text();
  Session.Load("/p/second.lbg", File(Beam(90)));
  Session.Undo();
  EXPECT_EQ(Text(), first);
  EXPECT_EQ(Session.Record().FileName, "beam.lbg");
  const Outcome empty = Session.Undo();
  EXPECT_THAT(Told(empty), ElementsAre("fields 0 0 0", "details", "figures Angle Gain", "grid"));
  EXPECT_FALSE(Session.Record().HasReadings());
  EXPECT_THAT(Told(Session.Undo()), IsEmpty()) << "there is nothing before it";
  Session.Redo();
  EXPECT_EQ(Text(), first);
}

TEST_F(PatternHistoryTest, TheSavedCopyGoesWithItsState) {
  Load(Beam());
  Session.Smooth();
  Session.Load("/p/second.lbg", File(Beam(90)));
  Session.Undo();
  Session.Original();
  EXPECT_EQ(Session.Record().Readings(40), Beam().Readings(40)) << "the original of the first pattern";
}

TEST_F(PatternHistoryTest, AnOverlayIsTakenBackAndOneThatWasEndedComesAgain) {
  Load(Beam());
  Overlay(Beam(90));
  Session.ToggleLogarithmic();
  ASSERT_FALSE(Session.Beneath());
  EXPECT_THAT(Told(Session.Undo()), testing::Contains("trace over"));
  ASSERT_TRUE(Session.Beneath());
  Session.Undo();
  EXPECT_FALSE(Session.Beneath());
  EXPECT_EQ(Session.Record().FileName, "beam.lbg");
}

TEST_F(PatternHistoryTest, WhatChangedNothingIsNoStep) {
  Load(Beam());
  Session.Orient();
  const std::string oriented = Text();
  Session.Orient();
  Session.Redraw();
  Session.ToggleForm();
  Session.ToggleForm();
  Session.ShowMarks(false);
  Session.Integrate();
  Session.Type({.Rotate = 400});
  Session.SavedAs("/q/new.lbg");
  Session.Load("/p/gone.lbg", Unreadable());
  Session.Undo();
  EXPECT_NE(Text(), oriented);
  EXPECT_EQ(Session.Record().Rotate, 0.F);
}

TEST_F(PatternHistoryTest, WithNothingHeldNoCommandIsAStep) {
  Session.Smooth();
  Session.Reverse();
  Session.DeSpike();
  Session.Original();
  EXPECT_THAT(Told(Session.Undo()), IsEmpty());
}

TEST_F(PatternHistoryTest, ANewChangeEndsWhatCouldBeTakenAgain) {
  Load(Beam());
  Session.Smooth();
  Session.Undo();
  Session.Reverse();
  EXPECT_THAT(Told(Session.Redo()), IsEmpty());
}

TEST_F(PatternHistoryTest, ASliderThatIsDraggedAndADescriptionThatIsTypedAreOneStepEach) {
  Load(Beam());
  for (const int scale : {41, 50, 60, 77}) Session.SetScale(scale);
  for (const char* text : {"N", "No", "Nor", "North"}) Session.Describe(text);
  Session.Undo();
  EXPECT_EQ(Session.Record().Description, "Three elements");
  EXPECT_EQ(Session.Record().ScaleSetting, 77.F);
  Session.Undo();
  EXPECT_EQ(Session.Record().ScaleSetting, 40.F);
  EXPECT_EQ(Session.Style().ScaleSetting, 40) << "the slider follows";
}

TEST_F(PatternHistoryTest, AnotherCommandBetweenTwoDragsMakesThemTwoSteps) {
  Load(Beam());
  Session.SetScale(50);
  Session.Smooth();
  Session.SetScale(60);
  Session.Undo();
  EXPECT_EQ(Session.Record().ScaleSetting, 50.F);
}

TEST_F(PatternHistoryTest, ARunIsOneStepAndDuringItNothingIsTakenBack) {
  Load(Beam());
  const std::string before = Text();
  Session.BeginCollection("DL0XY", "now");
  for (int i = 0; i < 360; ++i) Session.RunRecord().Readings(i) = 500.F;
  Session.ChooseElements("  5");
  EXPECT_THAT(Told(Session.Undo()), IsEmpty());
  EXPECT_THAT(Told(Session.Redo()), IsEmpty());
  Session.EndRun();
  Session.Undo();
  EXPECT_EQ(Text(), before);
  Session.Redo();
  EXPECT_EQ(Session.Record().Readings(0), 500.F);
}

TEST_F(PatternHistoryTest, ARunThatWasAbandonedIsNoStep) {
  Load(Beam());
  Session.Smooth();
  Session.BeginCollection("DL0XY", "now");
  Session.AbandonRun();
  Session.Undo();
  EXPECT_EQ(Session.Record().Readings, Session.Record().SavedReadings) << "smoothing is the last change";
}

TEST_F(PatternHistoryTest, OnlyTheLastHundredAreKept) {
  Load(Beam());
  for (std::size_t time = 0; time < PatternHistory::kKept + 5; ++time) Session.TogglePolarization();
  std::size_t taken = 0;
  while (!Session.Undo().Steps.empty()) ++taken;
  EXPECT_EQ(taken, PatternHistory::kKept);
}

TEST_F(PatternHistoryTest, AStateThatCannotBeDrawnShowsItsNumbersWithoutFigures) {
  Session.Load("/p/cut.lbg", Bytes("359\r\n1\r\n2\r\n"));
  Load(Beam());
  EXPECT_THAT(Told(Session.Undo()), ElementsAre("fields 0 0 0", "details", "figures Angle Gain", "grid"));
  EXPECT_FALSE(Session.Drawable());
  EXPECT_THAT(Told(Session.Redo()).back(), HasSubstr("130.00"));
}

}  // namespace
}  // namespace lobegraph
