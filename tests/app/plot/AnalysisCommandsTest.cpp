#include "app/plot/AnalysisCommands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/AppFixture.h"

namespace lobegraph {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

/// The rectangular drawing of a beam with the analysis switched on; its area is 26,160 to 494,394.
class AnalysisCommandsTest : public testing::Test, protected AppFixture {
 protected:
  AnalysisCommandsTest() {
    Start();
    HoldBeam();
    Press(Control::cmdLinear);
    Press(Control::cmdPatternAnalysis);
    Slide(Control::Slider1, 40);
  }
  AnalysisCommands& Analysis() { return Form.Analysis(); }
  bool Visible(Control control) { return View.Of(control).Visible; }
  std::size_t LinesShown() { return Analysis().Layer().Lines().size(); }
  /// A line set with a button, moved on and let go.
  void Drag(unsigned button, SurfacePoint from, SurfacePoint to) {
    Analysis().MouseDown(button, from);
    Analysis().MouseMove(to);
    Analysis().MouseUp(button, to);
  }
};

TEST_F(AnalysisCommandsTest, the_button_shows_and_hides_the_controls) {
  for (const Control control : AnalysisControls()) EXPECT_TRUE(Visible(control)) << RowOf(control).Name;
  EXPECT_TRUE(Shared.AnalysisShown);
  Press(Control::cmdPatternAnalysis);
  for (const Control control : AnalysisControls()) EXPECT_FALSE(Visible(control)) << RowOf(control).Name;
  EXPECT_FALSE(Shared.AnalysisShown);
}

TEST_F(AnalysisCommandsTest, the_pointer_reads_angle_and_level_of_the_logarithmic_scale) {
  EXPECT_TRUE(Analysis().MouseMove({260, 277}));
  EXPECT_EQ(Text(Control::txtX), "0");
  EXPECT_EQ(Text(Control::txtY), "-12");
  EXPECT_EQ(Text(Control::lblLeftButtonValue), "Upper line: -dB level");
  EXPECT_TRUE(Analysis().MouseMove({26, 160}));
  EXPECT_EQ(Text(Control::txtX), "-180");
  EXPECT_EQ(Text(Control::txtY), "0");
}

TEST_F(AnalysisCommandsTest, deliberate_the_bottom_edge_keeps_the_former_level_on_the_logarithmic_scale) {
  Analysis().MouseMove({260, 277});
  Analysis().MouseMove({494, 394});
  EXPECT_EQ(Text(Control::txtY), "-12");
  EXPECT_EQ(Text(Control::txtX), "180");
}

TEST_F(AnalysisCommandsTest, the_50_dB_scale) {
  Press(Control::cmdLogLin);
  Analysis().MouseMove({260, 277});
  EXPECT_EQ(Text(Control::txtY), "-25");
  Analysis().MouseMove({260, 394});
  EXPECT_EQ(Text(Control::txtY), "-50");
  EXPECT_EQ(Text(Control::lblRightButtonValue), "Lower line: -dB level");
}

TEST_F(AnalysisCommandsTest, the_amplitude_scale) {
  Tick(Control::chkPlotInDB, false);
  Analysis().MouseMove({260, 277});
  EXPECT_EQ(Text(Control::txtY), "50");
  Analysis().MouseMove({260, 394});
  EXPECT_EQ(Text(Control::txtY), "0");
  EXPECT_EQ(Text(Control::lblLeftButtonValue), "Upper line: % peak value");
  EXPECT_EQ(Text(Control::lblRightButtonValue), "Lower line: % peak value");
}

TEST_F(AnalysisCommandsTest, outside_the_area_the_readings_are_hidden) {
  EXPECT_FALSE(Analysis().MouseMove({260, 100}));
  EXPECT_FALSE(Visible(Control::txtX) || Visible(Control::txtY));
  Analysis().MouseMove({260, 277});
  EXPECT_TRUE(Visible(Control::txtX) && Visible(Control::txtY));
}

TEST_F(AnalysisCommandsTest, each_button_sets_its_line_and_keeps_its_level) {
  Drag(kLeftButton, {100, 200}, {120, 277});
  Drag(kRightButton, {100, 200}, {120, 382.3F});
  EXPECT_EQ(Text(Control::txtLeftY), "-12");
  EXPECT_EQ(Text(Control::txtRightY), "-52");
  EXPECT_EQ(LinesShown(), 2U);
}

TEST_F(AnalysisCommandsTest, a_release_outside_keeps_no_level) {
  Drag(kLeftButton, {100, 200}, {120, 100});
  EXPECT_EQ(Text(Control::txtLeftY), "");
  EXPECT_EQ(LinesShown(), 1U);
}

TEST_F(AnalysisCommandsTest, lines_draw_nothing_on_the_picture) {
  Forget();
  Drag(kLeftButton, {100, 200}, {120, 277});
  Press(Control::cmdClearLeftY);
  EXPECT_THAT(Surface.Operations, IsEmpty());
}

TEST_F(AnalysisCommandsTest, the_clear_buttons_take_their_line_and_its_level_away) {
  Drag(kLeftButton, {100, 200}, {120, 277});
  Drag(kRightButton, {100, 200}, {120, 300});
  Press(Control::cmdClearLeftY);
  EXPECT_EQ(Text(Control::txtLeftY), "");
  EXPECT_NE(Text(Control::txtRightY), "");
  EXPECT_EQ(LinesShown(), 1U);
  Press(Control::cmdClearRightY);
  EXPECT_EQ(Text(Control::txtRightY), "");
  EXPECT_EQ(LinesShown(), 0U);
}

TEST_F(AnalysisCommandsTest, arrow_keys_move_a_line_and_show_its_level) {
  Analysis().Step(AnalysisSide::Upper, 1);
  EXPECT_EQ(Text(Control::txtLeftY), "0");
  Analysis().Step(AnalysisSide::Upper, 117);
  EXPECT_EQ(Text(Control::txtLeftY), "-12");
  Analysis().Step(AnalysisSide::Lower, 1);
  EXPECT_EQ(Text(Control::txtRightY), "0");
  EXPECT_EQ(LinesShown(), 2U);
}

TEST_F(AnalysisCommandsTest, a_redraw_that_clears_the_surface_forgets_both_lines) {
  Drag(kLeftButton, {100, 200}, {120, 277});
  Activate();
  EXPECT_EQ(LinesShown(), 0U);
}

TEST_F(AnalysisCommandsTest, a_pattern_drawn_over_the_first_keeps_the_lines) {
  Drag(kLeftButton, {100, 200}, {120, 277});
  PutFile("/patterns/second.lbg", FileRecord(90));
  Overlay("/patterns/second.lbg");
  EXPECT_EQ(LinesShown(), 1U);
}

TEST_F(AnalysisCommandsTest, nothing_happens_on_the_polar_plot) {
  Press(Control::cmdLinear);
  Drag(kLeftButton, {100, 200}, {120, 277});
  Analysis().Step(AnalysisSide::Upper, 1);
  EXPECT_EQ(LinesShown(), 0U);
  EXPECT_EQ(Text(Control::txtX), "");
}

TEST_F(AnalysisCommandsTest, nothing_happens_while_the_analysis_is_switched_off) {
  Press(Control::cmdPatternAnalysis);
  Drag(kLeftButton, {100, 200}, {120, 277});
  Analysis().Step(AnalysisSide::Upper, 1);
  EXPECT_EQ(LinesShown(), 0U);
  EXPECT_FALSE(Visible(Control::txtX));
}

TEST_F(AnalysisCommandsTest, a_run_switches_the_handlers_off) {
  bool seen = false;
  OnYield = [&] {
    if (seen || ReadingsDone() < 5) return;
    seen = true;
    Drag(kLeftButton, {100, 200}, {120, 277});
    Analysis().Step(AnalysisSide::Upper, 1);
    EXPECT_EQ(LinesShown(), 0U);
    Press(Control::cmdHaltInput);
  };
  Press(Control::cmdCollectData);
  EXPECT_TRUE(seen);
}

}  // namespace
}  // namespace lobegraph
