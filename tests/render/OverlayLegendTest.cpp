#include "render/OverlayLegend.h"

#include <gtest/gtest.h>

#include <cmath>

#include "render/TextWidth.h"

namespace lobegraph {
namespace {

constexpr Colour kGreen{0, 128, 0};
constexpr Colour kYellow{255, 255, 0};
constexpr Colour kEdge{0, 0, 0};

TEST(OverlayLegend, EachTraceHasALineOfItsColourAndItsName) {
  PictureLayer layer;
  const LegendEntry entries[] = {{"first.lbg", {128, 0, 0}}, {"Second antenna", kGreen}};
  WriteLegend(layer, entries, kBlack);
  ASSERT_EQ(layer.Texts().size(), 2U);
  EXPECT_EQ(layer.Texts()[1].Text, "Second antenna");
  EXPECT_TRUE(layer.Texts()[1].FromLeft);
  ASSERT_EQ(layer.Lines().size(), 2U);
  const LayerLine& sample = layer.Lines().rbegin()->second;
  EXPECT_EQ(sample.LineColour, kGreen);
  EXPECT_FALSE(sample.Dashed);
  EXPECT_EQ(sample.From.Y, layer.Texts()[1].Centre.Y);
  EXPECT_LT(sample.To.X, layer.Texts()[1].Centre.X);
}

TEST(OverlayLegend, LiesInTheFreeCornerOutsideTheCircle) {
  PictureLayer layer;
  const LegendEntry entries[] = {{std::string(200, 'W'), kGreen}, {std::string(200, 'W'), kGreen}};
  WriteLegend(layer, entries, kBlack);
  const PlotGeometry plot;
  for (const LayerText& text : layer.Texts()) {
    EXPECT_TRUE(text.Text.ends_with("..."));
    const float right = text.Centre.X + ArialWidth(text.Text) * text.Points * 96.F / 72.F;
    EXPECT_GT(std::hypot(plot.X - right, text.Centre.Y - 5.F - plot.Y), plot.R + 1.F);
    EXPECT_LT(text.Centre.Y + 5.F, 526.F) << "above the description";
  }
}

PlotResult WithMarks() {
  PlotResult plot;
  plot.PlotDone = true;
  plot.Minus3dBMarks = {{{30.F, 200.F}, {330.F, 198.F}}};
  return plot;
}

TEST(OverlayLegend, MarksGetAnEdgeBeneathThem) {
  PictureLayer layer;
  OutlineMarks(layer, PlotMapping(PlotGeometry{}), WithMarks(), kYellow, kEdge);
  ASSERT_EQ(layer.Lines().size(), 4U);
  const auto& lines = layer.Lines();
  EXPECT_EQ(lines.at(0).LineColour, kEdge);
  EXPECT_EQ(lines.at(2).LineColour, kYellow);
  EXPECT_GT(lines.at(0).Width, lines.at(2).Width);
  EXPECT_EQ(lines.at(0).To, lines.at(2).To);
  EXPECT_EQ(lines.at(0).From, PlotGeometry{}.Centre());
}

TEST(OverlayLegend, InTheRectangleMarksStandOnTheBottomEdge) {
  PlotMapping mapping{PlotGeometry{}};
  mapping.Rectangular = true;
  PictureLayer layer;
  OutlineMarks(layer, mapping, WithMarks(), kYellow, kEdge);
  for (const auto& [number, line] : layer.Lines()) {
    EXPECT_EQ(line.From.X, line.To.X);
    EXPECT_EQ(line.From.Y, 394.F);
  }
}

TEST(OverlayLegend, ARefusedPlotHasNoMarks) {
  PlotResult refused = WithMarks();
  refused.PlotDone = false;
  PictureLayer layer;
  OutlineMarks(layer, PlotMapping(PlotGeometry{}), refused, kYellow, kEdge);
  EXPECT_TRUE(layer.Lines().empty());
}

}  // namespace
}  // namespace lobegraph
