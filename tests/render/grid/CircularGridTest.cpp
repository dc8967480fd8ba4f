#include "render/grid/CircularGrid.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/base/RunTimeError.h"
#include "render/grid/GridGolden.h"

namespace lobegraph {
namespace {

using golden::Joined;
using golden::kColours;
using golden::kGrid;
using golden::Label;
using golden::Labels;
using golden::List;
using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::Not;

RecordingSurface DrawnCircle(const PlotStyle& style = kGrid, GridOver over = GridOver::Cleared) {
  return golden::Drawn(DrawCircularGrid, style, over);
}

constexpr std::string_view kRims[] = {
    "250.5,49",   "291.134,52.555",  "330.533,63.112",  "367.5,80.35",  "400.912,103.746", "429.754,132.588",
    "453.15,166", "470.388,202.967", "480.945,242.366", "484.5,283",    "480.945,323.634", "470.388,363.033",
    "453.15,400", "429.754,433.412", "400.912,462.254", "367.5,485.65", "330.533,502.888", "291.134,513.445",
    "250.5,517",  "209.866,513.445", "170.467,502.888", "133.5,485.65", "100.088,462.254", "71.246,433.412",
    "47.85,400",  "30.612,363.033",  "20.055,323.634",  "16.5,283",     "20.055,242.366",  "30.612,202.967",
    "47.85,166",  "71.246,132.588",  "100.088,103.746", "133.5,80.35",  "170.467,63.112",  "209.866,52.555"};

/// The lines every 10 degrees, each begun by the dot of its point on the rim.
List Radials() {
  List list = {"pen 1"};
  for (const std::string_view rim : kRims) {
    list.push_back("dot " + std::string(rim) + " #010203");
    list.push_back("line " + std::string(rim) + " 250.5,283 #010203");
  }
  return list;
}

List Start() { return {"clear", "font Arial", "size 7"}; }
List End() { return {"size 8", "font Sans", "pen 2"}; }

/// The middle is painted in the background colour, and the fill is as before afterwards.
List Blanked(const std::string& radius) {
  return {"fill colour #e0e0e0", "fill solid", "circle 250.5,283 r" + radius + " #010203",
          "fill colour #000000", "fill transparent"};
}

struct Ring {
  int PenWidth;
  std::string_view Radius;
};

List Rings(const std::vector<Ring>& rings) {
  List list;
  for (const Ring& ring : rings) {
    list.push_back("pen " + std::to_string(ring.PenWidth));
    list.push_back("circle 250.5,283 r" + std::string(ring.Radius) + " #010203");
  }
  return list;
}

const std::vector<Ring> kLogRings = {
    {2, "234"},    {1, "185.873"}, {1, "147.644"}, {1, "117.278"}, {1, "93.157"}, {2, "73.997"},
    {1, "58.778"}, {1, "46.689"},  {1, "37.087"},  {1, "29.459"},  {2, "23.4"},   {1, "18.587"},
    {1, "14.764"}, {1, "11.728"},  {1, "9.316"},   {2, "7.4"},     {2, "2.34"},   {2, "0.74"}};
const std::vector<Label> kLogLabels = {
    {"0 dB", "240.5,37"},      {" -2 ", "242.5,91.127"},   {" -4 ", "242.5,129.356"},
    {" -6 ", "242.5,159.722"}, {" -8 ", "242.5,183.843"},  {" -10 ", "239.5,203.003"},
    {" -20 ", "240.5,254.6"},  {" -30 ", "240.5,270.6"},   {" -40 ", "240.5,276.66"},
    {" -2 ", "242.5,462.873"}, {" -4 ", "242.5,424.644"},  {" -6 ", "242.5,394.278"},
    {" -8 ", "242.5,370.157"}, {" -10 ", "239.5,350.997"}, {" -20 ", "240.5,299.4"},
    {" -30 ", "240.5,283.4"}};

TEST(CircularGrid, logarithmic) {
  EXPECT_THAT(DrawnCircle().Operations,
              ElementsAreArray(
                  Joined({Start(), Radials(), Blanked("7.4"), Rings(kLogRings), Labels(kLogLabels), End()})));
}

const std::vector<Ring> kLinearRings = {{1, "234"}, {1, "93.6"}, {1, "140.4"}, {1, "187.2"}};

TEST(CircularGrid, evenly_spaced_with_dB_labels) {
  PlotStyle style = kGrid;
  style.Scale = PlotScale::Db50;
  const List labels = Labels({{"0 dB", "240.5,37"},
                              {" -10 ", "239.5,89.8"},
                              {" -20 ", "240.5,136.6"},
                              {" -30 ", "240.5,183.4"},
                              {" -40 ", "240.5,230.2"},
                              {" -50 ", "240.5,277"},
                              {" -10 ", "239.5,464.2"},
                              {" -20 ", "240.5,417.4"},
                              {" -30 ", "240.5,370.6"},
                              {" -40 ", "240.5,323.8"}});
  EXPECT_THAT(
      DrawnCircle(style).Operations,
      ElementsAreArray(Joined({Start(), Radials(), Blanked("46.8"), Rings(kLinearRings), labels, End()})));
}

TEST(CircularGrid, evenly_spaced_with_amplitude_labels_and_none_at_the_centre) {
  PlotStyle style = kGrid;
  style.Scale = PlotScale::Linear;
  const List labels = Labels({{" 1.0 ", "240.5,37"},
                              {" 0.8 ", "239.5,89.8"},
                              {" 0.6 ", "240.5,136.6"},
                              {" 0.4 ", "240.5,183.4"},
                              {" 0.2 ", "240.5,230.2"},
                              {" 0.8 ", "239.5,464.2"},
                              {" 0.6 ", "240.5,417.4"},
                              {" 0.4 ", "240.5,370.6"},
                              {" 0.2 ", "240.5,323.8"}});
  EXPECT_THAT(
      DrawnCircle(style).Operations,
      ElementsAreArray(Joined({Start(), Radials(), Blanked("46.8"), Rings(kLinearRings), labels, End()})));
}

TEST(CircularGrid, the_50_dB_label_needs_a_slider_above_37_its_ring_does_not) {
  PlotStyle style = kGrid;
  style.ScaleSetting = 37;
  EXPECT_THAT(DrawnCircle(style).Only("text [ -50 ]"), IsEmpty());
  EXPECT_EQ(DrawnCircle(style).Only("circle").size(), 19U);
  style.ScaleSetting = 38;
  const List operations = DrawnCircle(style).Operations;
  const auto label = std::find(operations.begin(), operations.end(), "text [ -50 ] #010203");
  ASSERT_NE(label, operations.end());
  EXPECT_EQ(*(label - 1), "at 240.5,267.691") << "234 * 10^(-50/38) is 11.31";
  EXPECT_EQ(*(label - 2), "text [ -40 ] #010203");
  EXPECT_EQ(*(label + 2), "text [ -2 ] #010203") << "there is none below the centre";
  EXPECT_EQ(DrawnCircle(style).Only("circle").size(), 19U);
}

TEST(CircularGrid, an_overlay_does_not_clear_and_draws_the_grid_again) {
  const List expected = DrawnCircle().Operations;
  EXPECT_THAT(DrawnCircle(kGrid, GridOver::Kept).Operations,
              ElementsAreArray(expected.begin() + 1, expected.end()));
}

TEST(CircularGrid, is_never_rotated_and_keeps_the_rotation_offset) {
  RecordingSurface surface;
  Plotter plotter(surface, PlotGeometry{});
  plotter.Mapping().RotationOffset = 33.5F;
  DrawCircularGrid(plotter, kGrid, kColours);
  EXPECT_EQ(plotter.Mapping().RotationOffset, 33.5F);
  EXPECT_EQ(surface.Operations, DrawnCircle().Operations);
}

TEST(CircularGrid, leaves_the_pen_ready_for_a_trace) {
  RecordingSurface surface;
  Plotter plotter(surface, PlotGeometry{});
  plotter.Mapping().Rectangular = true;
  plotter.Pen().PenDown = true;
  DrawCircularGrid(plotter, kGrid, kColours);
  EXPECT_EQ(plotter.Pen().TraceColour, (Colour{0, 0, 128}));
  EXPECT_EQ(surface.PenWidth(), 2);
  EXPECT_FALSE(plotter.Mapping().Rectangular);
  EXPECT_FALSE(plotter.Pen().PenDown);
}

TEST(CircularGrid, the_blanked_middle_gives_the_fill_back) {
  RecordingSurface surface;
  surface.SetFillColour({9, 8, 7});
  surface.SetFillStyle(FillStyle::Solid);
  surface.Background = {10, 20, 30};
  Plotter plotter(surface, PlotGeometry{});
  DrawCircularGrid(plotter, kGrid, kColours);
  EXPECT_EQ(surface.FillColour(), (Colour{9, 8, 7}));
  EXPECT_EQ(surface.CurrentFillStyle(), FillStyle::Solid);
  EXPECT_THAT(surface.Operations, Contains("fill colour #0a141e"));
}

TEST(CircularGrid, deliberate_a_font_size_of_8_25_comes_back_as_8) {
  const RecordingSurface surface = DrawnCircle();
  EXPECT_EQ(surface.FontSize(), 8.0F);
  EXPECT_EQ(surface.FontName(), "Sans");
}

TEST(CircularGrid, without_Arial_the_font_stays_and_the_drawing_goes_on) {
  RecordingSurface surface;
  surface.MissingFonts = {"Arial"};
  Plotter plotter(surface, PlotGeometry{});
  DrawCircularGrid(plotter, kGrid, kColours);
  List expected = DrawnCircle().Operations;
  std::replace(expected.begin(), expected.end(), std::string("font Arial"), std::string("font Sans"));
  EXPECT_EQ(surface.Operations, expected);
}

TEST(CircularGrid, linear_mode_draws_the_rectangular_grid_and_nothing_else) {
  PlotStyle style = kGrid;
  style.Rectangular = true;
  const RecordingSurface surface = DrawnCircle(style);
  EXPECT_THAT(surface.Only("circle"), IsEmpty());
  EXPECT_THAT(surface.Only("box"), ElementsAre("box 26,160 494,394 #010203"));
}

TEST(CircularGrid, a_scale_factor_of_0_is_a_division_by_zero_on_the_logarithmic_scale_only) {
  PlotStyle style = kGrid;
  style.ScaleSetting = 0;
  EXPECT_THROW(DrawnCircle(style), RunTimeError);
  style.Scale = PlotScale::Db50;
  EXPECT_NO_THROW(DrawnCircle(style));
}

TEST(CircularGrid, lies_where_the_geometry_puts_it) {
  const CircularGrid grid = MakeCircularGrid(MakePlotGeometry(1001, 800, 0), kGrid);
  EXPECT_EQ(grid.Labels.front().TopLeft, (SurfacePoint{490.5F, 403.0F - 234 - 12}));
}

}  // namespace
}  // namespace lobegraph
