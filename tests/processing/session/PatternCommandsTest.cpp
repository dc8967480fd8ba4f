// What the commands of a pattern show, in their order, on a front that remembers.
#include "processing/session/PatternCommands.h"

#include <gmock/gmock.h>

#include <cmath>

#include "data/base/RunTimeError.h"
#include "support/TestRecord.h"

namespace lobegraph {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kNames[] = {"txtRotate", "txtTrimFront", "txtTrimEnd"};

class Front : public PatternFront {
 public:
  explicit Front(ReadingsRecord record) : Record(std::move(record)) {}

  PlotTexts Boxes() const override { return Texts; }
  void SetBox(PlotBox box, const std::string& text) override {
    std::string* const boxes[] = {&Texts.txtRotate, &Texts.txtTrimFront, &Texts.txtTrimEnd};
    *boxes[static_cast<int>(box)] = text;
    Log.push_back(std::string(kNames[static_cast<int>(box)]) + "=" + text);
  }
  PlotOptions Options() const override { return Plotting; }
  void ShowMessage(const std::string& text) override { Log.push_back(text); }
  void ShowPlotFields() override {
    Texts = {std::to_string(static_cast<int>(Record.Rotate)), std::to_string(Record.TrimFront),
             std::to_string(Record.TrimEnd)};
    Log.push_back("fields");
  }
  void ShowPlot(const PlotResult& plot) override { Log.push_back(plot.PlotDone ? "plot" : "half a plot"); }
  PlotResult ReDraw() override {
    PlotResult plot;
    PlotPattern(Record, *this, plot);
    ++Redraws;
    return plot;
  }

  ReadingsRecord Record;
  PlotTexts Texts;
  PlotOptions Plotting;
  std::vector<std::string> Log;
  int Redraws = 0;
};

TEST(PlotPattern, ShowsFieldsBeforeThePlot) {
  Front front(BeamRecord(360, 100));
  front.ReDraw();
  EXPECT_THAT(front.Log, ElementsAre("fields", "plot"));
}

TEST(PlotPattern, ARefusalShowsItsMessageAndPutsTheBoxTo0) {
  Front front(BeamRecord(360));
  front.Texts.txtTrimEnd = "-1";
  EXPECT_FALSE(front.ReDraw().PlotDone);
  ASSERT_EQ(front.Log.size(), 2U);
  EXPECT_EQ(front.Log[1], "txtTrimEnd=0");
}

TEST(PlotPattern, AFaultLeavesWhatWasSettledBeforeIt) {
  Front front(BeamRecord(360));
  front.Record.Readings(7) = 0;
  PlotResult plot;
  EXPECT_THROW(PlotPattern(front.Record, front, plot), RunTimeError);
  EXPECT_TRUE(plot.FieldsShown);
  EXPECT_THAT(front.Log, ElementsAre("fields"));
}

TEST(ReversePattern, ShowsTheSwappedTrims) {
  Front front(BeamRecord(360));
  front.Record.TrimFront = 3;
  front.Record.TrimEnd = 5;
  ReversePattern(front.Record, front);
  EXPECT_THAT(front.Log, ElementsAre("txtTrimFront=5", "txtTrimEnd=3"));
}

TEST(ReversePattern, ShowsARotationThatIsNot0) {
  Front front(BeamRecord(360));
  front.Record.Rotate = 90.F;
  ReversePattern(front.Record, front);
  EXPECT_THAT(front.Log, ElementsAre("txtTrimFront=0", "txtTrimEnd=0", "txtRotate=270"));
}

TEST(DeSpikePattern, IsToBeOrientedWhenItWasDone) {
  Front front(BeamRecord(360));
  EXPECT_TRUE(DeSpikePattern(front.Record, 50, front));
  EXPECT_THAT(front.Log, IsEmpty());
}

TEST(DeSpikePattern, TakesFullScaleFromTheOptions) {
  Front front(BeamRecord(360));
  for (int i = 0; i < 360; ++i) front.Record.Readings(i) = 100.F;
  front.Record.Readings(10) = 200.F;
  front.Record.Readings(11) = 900.F;
  front.Plotting.PeakInputLevel = 250.F;
  ASSERT_TRUE(DeSpikePattern(front.Record, 50, front));
  EXPECT_LE(front.Record.Readings(11), 250.F);
}

TEST(DeSpikePattern, ARefusalIsShown) {
  Front front(BeamRecord(2));
  EXPECT_FALSE(DeSpikePattern(front.Record, 0, front));
  EXPECT_EQ(front.Log.size(), 1U);
}

TEST(OrientPattern, RedrawsTurnsAndRedraws) {
  Front front(BeamRecord(360, 100));
  EXPECT_TRUE(OrientPattern(front.Record, front));
  EXPECT_THAT(front.Log, ElementsAre("fields", "plot", "txtRotate=260", "fields", "plot"));
  EXPECT_EQ(front.Record.Rotate, 260.F);
}

TEST(OrientPattern, EveryBeamDirectionEndsAtTheTopWithoutARefusal) {
  for (int at = 0; at < 360; ++at) {
    Front front(BeamRecord(360, at));
    EXPECT_TRUE(OrientPattern(front.Record, front)) << at;
    ASSERT_EQ(front.Redraws, 2);
    EXPECT_NEAR(std::fmod(front.Record.Rotate + static_cast<float>(at) + 180.F, 360.F), 180.F, .6F) << at;
  }
}

TEST(OrientPattern, NeedsThreeReadings) {
  Front front(BeamRecord(2));
  EXPECT_FALSE(OrientPattern(front.Record, front));
  EXPECT_EQ(front.Redraws, 0);
}

TEST(OrientPattern, AnIncompleteRedrawEndsIt) {
  Front front(BeamRecord(40));
  EXPECT_FALSE(OrientPattern(front.Record, front));
  EXPECT_EQ(front.Redraws, 1);
  EXPECT_EQ(front.Record.Rotate, 0.F);
}

TEST(OrientPattern, OnlyRedrawsTheRectangle) {
  Front front(BeamRecord(360, 100));
  front.Plotting.LinearMode = true;
  EXPECT_TRUE(OrientPattern(front.Record, front));
  EXPECT_EQ(front.Redraws, 1);
  EXPECT_EQ(front.Record.Rotate, 0.F);
}

TEST(OrientPattern, A180DegreeSetKeepsItsRotation) {
  Front front(BeamRecord(360, 100));
  front.Record.Plot180 = true;
  EXPECT_TRUE(OrientPattern(front.Record, front));
  EXPECT_EQ(front.Redraws, 2);
  EXPECT_EQ(front.Record.Rotate, 270.F);
  EXPECT_EQ(front.Texts.txtRotate, "270");
}

}  // namespace
}  // namespace lobegraph
