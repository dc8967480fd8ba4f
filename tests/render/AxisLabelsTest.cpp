#include "render/AxisLabels.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "render/TextWidth.h"
#include "support/RecordingSurface.h"

namespace lobegraph {
namespace {

using ::testing::ElementsAre;

constexpr PlotGeometry kPlot;
constexpr Colour kInk{10, 20, 30};

std::vector<std::string> Words(const std::vector<LayerText>& labels) {
  std::vector<std::string> words;
  for (const LayerText& label : labels) words.push_back(label.Text);
  return words;
}

struct Box {
  float Left, Top, Right, Bottom;
};

Box BoxOf(const LayerText& label) {
  const float size = label.Points * 96.F / 72.F;
  const float halfWidth = ArialWidth(label.Text) * size / 2.F;
  const float halfHeight = 0.36F * size;
  return {label.Centre.X - halfWidth, label.Centre.Y - halfHeight, label.Centre.X + halfWidth,
          label.Centre.Y + halfHeight};
}

float DistanceFromCentre(const Box& box) {
  const float dx = std::max({box.Left - kPlot.X, 0.F, kPlot.X - box.Right});
  const float dy = std::max({box.Top - kPlot.Y, 0.F, kPlot.Y - box.Bottom});
  return std::hypot(dx, dy);
}

void ExpectOnTheSurface(const LayerText& label) {
  const Box box = BoxOf(label);
  EXPECT_GE(box.Left, 0.F) << label.Text;
  EXPECT_LE(box.Right, 501.F) << label.Text;
  EXPECT_GE(box.Top, 0.F) << label.Text;
  EXPECT_LE(box.Bottom, 560.F) << label.Text;
}

TEST(AxisLabels, AngleStandsAroundTheCircleEveryThirtyDegreesClockwise) {
  const auto labels = AxisLabels({}, kPlot, kInk);
  EXPECT_THAT(Words(labels), ElementsAre("0", "30", "60", "90", "120", "150", "180", "210", "240", "270",
                                         "300", "330", "Level in dB, angle in degrees"));
  for (std::size_t index = 0; index < 12; ++index) {
    const float bearing = std::atan2(labels[index].Centre.X - kPlot.X, kPlot.Y - labels[index].Centre.Y);
    EXPECT_NEAR(std::remainder(bearing * 180.F / 3.14159265F - 30.F * static_cast<float>(index), 360.F), 0.F,
                0.01F);
  }
}

TEST(AxisLabels, NothingLiesOnTheRingOrBeyondTheSurface) {
  for (const LayerText& label : AxisLabels({}, kPlot, kInk)) {
    EXPECT_GT(DistanceFromCentre(BoxOf(label)), kPlot.R + 1.F)
        << label.Text << ": half of the ring's pen is 1 unit";
    ExpectOnTheSurface(label);
  }
}

TEST(AxisLabels, ZeroDegreesStandAboveTheLabelOfZeroDecibels) {
  const auto labels = AxisLabels({}, kPlot, kInk);
  EXPECT_LT(BoxOf(labels[0]).Bottom, kPlot.Y - kPlot.R - 12.F);
}

TEST(AxisLabels, BelowTheRectangleTheyGoFromMinusToPlus180) {
  const PlotArea area = MakePlotArea(kPlot);
  const auto labels = AxisLabels({.Rectangular = true}, kPlot, kInk);
  EXPECT_THAT(Words(labels), ElementsAre("-180", "-150", "-120", "-90", "-60", "-30", "0", "30", "60", "90",
                                         "120", "150", "180", "Angle in degrees", "Level in dB"));
  for (std::size_t index = 0; index < 14; ++index) EXPECT_GT(BoxOf(labels[index]).Top, area.Bottom + 1.F);
  EXPECT_EQ(labels[0].Centre.X, area.Left);
  EXPECT_EQ(labels[6].Centre.X, area.Left + 234.F) << "the middle of the drawing";
  EXPECT_LT(BoxOf(labels[14]).Bottom, area.Top - 8.F) << "above the first label of the levels";
  for (const LayerText& label : labels) ExpectOnTheSurface(label);
}

TEST(AxisLabels, UnitsFollowTheScale) {
  const auto last = [](PlotScale scale, bool rectangular) {
    return AxisLabels({.Rectangular = rectangular, .Scale = scale}, kPlot, kInk).back().Text;
  };
  EXPECT_EQ(last(PlotScale::Db50, false), "Level in dB, angle in degrees");
  EXPECT_EQ(last(PlotScale::Linear, false), "Share of the peak, angle in degrees");
  EXPECT_EQ(last(PlotScale::Db50, true), "Level in dB");
  EXPECT_EQ(last(PlotScale::Linear, true), "Share of the peak");
}

TEST(AxisLabels, AllHaveTheColourAskedFor) {
  for (const bool rectangular : {false, true})
    for (const LayerText& label : AxisLabels({.Rectangular = rectangular}, kPlot, kInk))
      EXPECT_EQ(label.TextColour, kInk);
}

TEST(AxisLabels, ATextIsWrittenAroundItsCentre) {
  RecordingSurface surface;
  DrawText(surface, {{100.F, 50.F}, "90", 7.5F, kInk});
  EXPECT_THAT(surface.Operations,
              ElementsAre("font Arial", "size 7.5", "at 94.44,44.53", ::testing::StartsWith("text ")));
}

}  // namespace
}  // namespace lobegraph
