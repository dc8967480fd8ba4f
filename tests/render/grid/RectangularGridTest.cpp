#include "render/grid/RectangularGrid.h"

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
using testing::ElementsAreArray;

RecordingSurface DrawnRectangle(PlotStyle style = kGrid, GridOver over = GridOver::Cleared) {
  style.Rectangular = true;
  return golden::Drawn(DrawRectangularGrid, style, over);
}

List Start() { return {"clear", "filled box 26,160 494,394 #fafafa"}; }
List Outline() { return {"pen 2", "box 26,160 494,394 #010203", "pen 1"}; }
List LabelsBegin() { return {"font Arial", "size 7"}; }
List End() { return {"size 8", "font Sans", "pen 2"}; }

/// 35 lines, 13 units apart; those of 90, 180 and 270 degrees stand out.
List AngleLines() {
  List list;
  for (int count = 1; count <= 35; ++count) {
    const std::string x = std::to_string(26 + 13 * count);
    list.push_back(count == 9 || count == 18 || count == 27 ? "pen 2" : "pen 1");
    list.push_back("line " + x + ",160 " + x + ",394 #010203");
  }
  return list;
}

List Level(int penWidth, const std::string& y) {
  return {"pen " + std::to_string(penWidth), "line 26," + y + " 494," + y + " #010203"};
}

List Dashed(const std::string& y) {
  List list = {"pen 1"};
  for (int x = 26; x <= 492; x += 4) {
    list.push_back("line " + std::to_string(x) + "," + y + " " + std::to_string(x + 2) + "," + y +
                   " #010203");
  }
  return list;
}

TEST(RectangularGrid, logarithmic) {
  const List levels = Joined(
      {Level(1, "208.127"), Dashed("228.341"), Level(1, "246.356"), Level(1, "276.722"), Level(1, "300.843"),
       Level(2, "320.003"), Level(1, "335.222"), Level(1, "347.311"), Level(1, "356.914"),
       Level(1, "364.541"), Level(2, "370.6"), Level(1, "375.413"), Level(1, "379.236"), Level(1, "382.272"),
       Level(1, "384.684"), Level(2, "386.6"), Level(2, "391.66"), Level(2, "393.26")});
  const List labels = Labels({{"  0", "6,153"},
                              {" -2", "6,201.127"},
                              {" -4", "6,239.356"},
                              {" -6", "6,269.722"},
                              {" -8", "6,293.843"},
                              {"-10", "6,313.003"},
                              {"-20", "6,363.6"},
                              {"-30", "6,379.6"},
                              {"-40", "6,384.66"}});
  EXPECT_THAT(
      DrawnRectangle().Operations,
      ElementsAreArray(Joined({Start(), AngleLines(), Outline(), levels, LabelsBegin(), labels, End()})));
}

List LinearGrid(const std::string& minus3dBHeight, const std::vector<Label>& labels) {
  const List levels = Joined(
      {Dashed(minus3dBHeight), Level(1, "347.2"), Level(1, "300.4"), Level(1, "253.6"), Level(1, "206.8")});
  return Joined({Start(), AngleLines(), Outline(), levels, LabelsBegin(), Labels(labels), End()});
}

TEST(RectangularGrid, evenly_spaced_with_dB_labels) {
  PlotStyle style = kGrid;
  style.Scale = PlotScale::Db50;
  EXPECT_THAT(DrawnRectangle(style).Operations, ElementsAreArray(LinearGrid("174.04", {{"0dB", "6,153"},
                                                                                       {"-10", "6,199.8"},
                                                                                       {"-20", "6,246.6"},
                                                                                       {"-30", "6,293.4"},
                                                                                       {"-40", "6,340.2"},
                                                                                       {"-50", "6,387"}})));
}

TEST(RectangularGrid, evenly_spaced_with_amplitude_labels) {
  PlotStyle style = kGrid;
  style.Scale = PlotScale::Linear;
  EXPECT_THAT(DrawnRectangle(style).Operations, ElementsAreArray(LinearGrid("228.562", {{"1.0", "6,153"},
                                                                                        {"0.8", "6,199.8"},
                                                                                        {"0.6", "6,246.6"},
                                                                                        {"0.4", "6,293.4"},
                                                                                        {"0.2", "6,340.2"},
                                                                                        {"0.0", "6,387"}})));
}

float DashedHeight(const PlotStyle& style) {
  const RectangularGrid grid = MakeRectangularGrid(PlotGeometry{}, style);
  for (const LevelLine& line : grid.LevelLines) {
    if (line.Dashed) return static_cast<float>(grid.Area.Bottom) - line.Y;
  }
  return 0;
}

TEST(RectangularGrid, the_3_dB_level_is_dashed_at_the_height_of_its_scale) {
  PlotStyle style = kGrid;
  EXPECT_NEAR(DashedHeight(style), 165.66, 0.005);
  style.Scale = PlotScale::Db50;
  EXPECT_NEAR(DashedHeight(style), 219.96, 0.0001);
  style.Scale = PlotScale::Linear;
  EXPECT_NEAR(DashedHeight(style), 165.438, 0.0001);
}

TEST(RectangularGrid, the_180_degree_line_lies_in_the_middle) {
  const RectangularGrid grid = MakeRectangularGrid(PlotGeometry{}, kGrid);
  ASSERT_EQ(grid.AngleLines.size(), 35U);
  EXPECT_EQ(grid.AngleLines[17].X, grid.Area.Left + 234);
  EXPECT_EQ(grid.AngleLines[17].PenWidth, 2);
}

TEST(RectangularGrid, an_overlay_neither_clears_nor_refills) {
  const List expected = DrawnRectangle().Operations;
  EXPECT_THAT(DrawnRectangle(kGrid, GridOver::Kept).Operations,
              ElementsAreArray(expected.begin() + 2, expected.end()));
}

TEST(RectangularGrid, leaves_the_plotter_in_linear_mode_with_the_pen_up) {
  RecordingSurface surface;
  Plotter plotter(surface, PlotGeometry{});
  plotter.Pen().PenDown = true;
  plotter.Mapping().RotationOffset = 12;
  DrawRectangularGrid(plotter, kGrid, kColours);
  EXPECT_TRUE(plotter.Mapping().Rectangular);
  EXPECT_FALSE(plotter.Pen().PenDown);
  EXPECT_EQ(plotter.Pen().TraceColour, (Colour{1, 2, 3}));
  EXPECT_EQ(plotter.Mapping().RotationOffset, 12.0F);
  EXPECT_EQ(surface.PenWidth(), 2);
}

TEST(RectangularGrid, deliberate_a_font_size_of_8_25_comes_back_as_8) {
  EXPECT_EQ(DrawnRectangle().FontSize(), 8.0F);
}

TEST(RectangularGrid, without_Arial_the_font_stays_and_the_drawing_goes_on) {
  RecordingSurface surface;
  surface.MissingFonts = {"Arial"};
  Plotter plotter(surface, PlotGeometry{});
  DrawRectangularGrid(plotter, kGrid, kColours);
  EXPECT_EQ(surface.Only("text").size(), 9U);
  EXPECT_EQ(surface.FontName(), "Sans");
}

TEST(RectangularGrid, a_scale_factor_of_0_is_a_division_by_zero_on_the_logarithmic_scale_only) {
  PlotStyle style = kGrid;
  style.ScaleSetting = 0;
  EXPECT_THROW(DrawnRectangle(style), RunTimeError);
  style.Scale = PlotScale::Db50;
  EXPECT_NO_THROW(DrawnRectangle(style));
}

}  // namespace
}  // namespace lobegraph
