#include "render/Trace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/RecordingSurface.h"

namespace lobegraph {
namespace {

using testing::ElementsAre;

/// A figure of four readings a quarter turn apart, closed, with its -3 dB lines at 90 and 270 degrees.
PlotResult Quarters() {
  PlotResult result;
  result.PlotDone = true;
  result.Trace = {{0, 200}, {90, 100}, {180, 50}, {270, 100}, {0, 200}};
  result.Minus3dBMarks = {TracePoint{90, 165}, TracePoint{270, 163}};
  return result;
}

constexpr TraceInk kInk{.Line = {128, 0, 0}, .Marks = {0, 0, 128}};

std::vector<std::string> Drawn(const PlotResult& result, bool rectangular = false, bool marks = true) {
  RecordingSurface surface;
  Plotter plotter(surface, PlotGeometry{});
  plotter.Mapping().Rectangular = rectangular;
  plotter.Pen().PenDown = true;
  DrawTrace(plotter, result, kInk, marks);
  return surface.Operations;
}

TEST(Trace, begins_with_a_dot_and_closes_with_a_line_to_it_then_the_3_dB_lines) {
  EXPECT_THAT(Drawn(Quarters()),
              ElementsAre("pen 2", "dot 250.5,83 #800000", "line 250.5,83 350.5,283 #800000",
                          "line 350.5,283 250.5,333 #800000", "line 250.5,333 150.5,283 #800000",
                          "line 150.5,283 250.5,83 #800000", "line 250.5,283 415.5,283 #000080",
                          "line 250.5,283 87.5,283 #000080"));
}

TEST(Trace, the_3_dB_lines_can_be_switched_off) {
  EXPECT_EQ(Drawn(Quarters(), false, false).back(), "line 150.5,283 250.5,83 #800000");
}

TEST(Trace, the_rotation_turns_trace_and_3_dB_lines_alike) {
  PlotResult turned = Quarters();
  turned.RotationOffset = 90;
  const auto operations = Drawn(turned);
  EXPECT_EQ(operations[1], "dot 450.5,283 #800000");
  EXPECT_EQ(operations[6], "line 250.5,283 250.5,448 #000080");
  EXPECT_EQ(operations[7], "line 250.5,283 250.5,120 #000080");
}

TEST(Trace, the_rectangular_drawing_has_upright_3_dB_lines_from_the_bottom_edge) {
  EXPECT_THAT(Drawn(Quarters(), true),
              ElementsAre("pen 2", "dot 260,194 #800000", "line 260,194 377,294 #800000",
                          "dot 26,344 #800000", "line 26,344 143,294 #800000", "line 143,294 260,194 #800000",
                          "line 377,394 377,229 #000080", "line 143,394 143,231 #000080"));
}

TEST(Trace, a_180_degree_set_lies_in_the_middle_half_of_the_rectangular_drawing) {
  PlotResult result;
  result.Trace = {{0, 10}, {90, 20}, {179.5F, 30}};
  result.RotationOffset = RotationOffsetOf(true, true, 0);
  EXPECT_THAT(Drawn(result, true), ElementsAre("pen 2", "dot 143,384 #800000", "line 143,384 260,374 #800000",
                                               "line 260,374 376.35,364 #800000"));
}

TEST(Trace, a_refused_plot_draws_nothing) { EXPECT_THAT(Drawn(PlotResult{}), ElementsAre("pen 2")); }

TEST(Trace, an_incomplete_plot_has_no_3_dB_lines) {
  PlotResult result = Quarters();
  result.PlotDone = false;
  EXPECT_EQ(Drawn(result).back(), "line 150.5,283 250.5,83 #800000");
}

TEST(LiveTrace, each_reading_is_drawn_at_once_the_first_as_a_dot) {
  RecordingSurface surface;
  Plotter plotter(surface, PlotGeometry{});
  StartTrace(plotter, {0, 0, 128}, 0);
  EXPECT_EQ(DrawTracePoint(plotter, 0, 100), (SurfacePoint{250.5F, 183}));
  EXPECT_EQ(surface.Operations.back(), "dot 250.5,183 #000080");
  DrawTracePoint(plotter, 90, 100);
  EXPECT_EQ(surface.Operations.back(), "line 250.5,183 350.5,283 #000080");
  StartTrace(plotter, {0, 0, 128}, 0);
  DrawTracePoint(plotter, 180, 100);
  EXPECT_EQ(surface.Operations.back(), "dot 250.5,383 #000080") << "the next sweep begins anew";
}

}  // namespace
}  // namespace lobegraph
