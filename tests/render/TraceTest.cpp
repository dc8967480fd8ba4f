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

TraceOptions Colours() {
  TraceOptions options;
  options.PlotLineColour = {128, 0, 0};
  options.PlotLineOverlayColour = {0, 128, 0};
  options.PlotUserColour = {0, 0, 128};
  options.PlotUserOverlayColour = {255, 255, 0};
  return options;
}

std::vector<std::string> Drawn(const PlotResult& result, const TraceOptions& options,
                               bool linearMode = false) {
  RecordingSurface surface;
  Plotter plotter(surface, PlotGeometry{});
  plotter.Pen().LinearMode = linearMode;
  plotter.Pen().PenDown = true;
  DrawTrace(plotter, result, options);
  return surface.Operations;
}

TEST(Trace, begins_with_a_dot_and_closes_with_a_line_to_it_then_the_3_dB_lines) {
  EXPECT_THAT(Drawn(Quarters(), Colours()),
              ElementsAre("pen 2", "dot 250.5,83 #800000", "line 250.5,83 350.5,283 #800000",
                          "line 350.5,283 250.5,333 #800000", "line 250.5,333 150.5,283 #800000",
                          "line 150.5,283 250.5,83 #800000", "line 250.5,283 415.5,283 #000080",
                          "line 250.5,283 87.5,283 #000080"));
}

TEST(Trace, an_overlay_has_its_own_two_colours) {
  TraceOptions options = Colours();
  options.Overlay = true;
  const auto operations = Drawn(Quarters(), options);
  EXPECT_EQ(operations[1], "dot 250.5,83 #008000");
  EXPECT_EQ(operations[5], "line 150.5,283 250.5,83 #008000");
  EXPECT_EQ(operations[6], "line 250.5,283 415.5,283 #ffff00");
  EXPECT_EQ(operations[7], "line 250.5,283 87.5,283 #ffff00");
}

TEST(Trace, the_3_dB_lines_can_be_switched_off) {
  TraceOptions options = Colours();
  options.chkShow3dB = false;
  EXPECT_EQ(Drawn(Quarters(), options).back(), "line 150.5,283 250.5,83 #800000");
}

TEST(Trace, the_rotation_turns_trace_and_3_dB_lines_alike) {
  TraceOptions options = Colours();
  options.RotationOffset = 90;
  const auto operations = Drawn(Quarters(), options);
  EXPECT_EQ(operations[1], "dot 450.5,283 #800000");
  EXPECT_EQ(operations[6], "line 250.5,283 250.5,448 #000080");
  EXPECT_EQ(operations[7], "line 250.5,283 250.5,120 #000080");
}

TEST(Trace, the_rectangular_drawing_has_upright_3_dB_lines_from_the_bottom_edge) {
  EXPECT_THAT(Drawn(Quarters(), Colours(), true),
              ElementsAre("pen 2", "dot 260,194 #800000", "line 260,194 377,294 #800000",
                          "dot 26,344 #800000", "line 26,344 143,294 #800000", "line 143,294 260,194 #800000",
                          "line 377,394 377,229 #000080", "line 143,394 143,231 #000080"));
}

TEST(Trace, a_180_degree_set_lies_in_the_middle_half_of_the_rectangular_drawing) {
  PlotResult result;
  result.Trace = {{0, 10}, {90, 20}, {179.5F, 30}};
  TraceOptions options = Colours();
  options.RotationOffset = RotationOffsetOf(true, true, 0);
  EXPECT_THAT(Drawn(result, options, true),
              ElementsAre("pen 2", "dot 143,384 #800000", "line 143,384 260,374 #800000",
                          "line 260,374 376.35,364 #800000"));
}

TEST(Trace, a_refused_plot_draws_nothing) {
  EXPECT_THAT(Drawn(PlotResult{}, Colours()), ElementsAre("pen 2"));
}

TEST(Trace, an_incomplete_plot_has_no_3_dB_lines) {
  PlotResult result = Quarters();
  result.PlotDone = false;
  EXPECT_EQ(Drawn(result, Colours()).back(), "line 150.5,283 250.5,83 #800000");
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
