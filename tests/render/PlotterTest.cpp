#include "render/Plotter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "data/base/RunTimeError.h"
#include "processing/PlotResult.h"
#include "support/RecordingSurface.h"

namespace lobegraph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Plot {
  RecordingSurface Surface;
  Plotter plotter{Surface, PlotGeometry{}};

  SurfacePoint At(float angleDeg, float radius) { return plotter.PlotPoint(angleDeg, radius); }
  float Drawn(float angleDeg) {
    plotter.PlotPoint(angleDeg, 100);
    return angleDeg;
  }
};

struct Mapping {
  float AngleDeg;
  float Drawn;
  float X;
  float Y;
};
class CompassPoints : public testing::TestWithParam<Mapping> {};

TEST_P(CompassPoints, lie_clockwise_from_the_top) {
  Plot plot;
  float angleDeg = GetParam().AngleDeg;
  const SurfacePoint point = plot.plotter.PlotPoint(angleDeg, 100);
  EXPECT_NEAR(point.X, GetParam().X, 1e-4);
  EXPECT_NEAR(point.Y, GetParam().Y, 1e-4);
  EXPECT_EQ(angleDeg, GetParam().Drawn);
}

INSTANTIATE_TEST_SUITE_P(
    Polar, CompassPoints,
    testing::Values(Mapping{0, 0, 250.5F, 183}, Mapping{90, 90, 350.5F, 283}, Mapping{180, 180, 250.5F, 383},
                    Mapping{270, 270, 150.5F, 283}, Mapping{360, 0, 250.5F, 183},
                    Mapping{720, 0, 250.5F, 183}, Mapping{30, 30, 300.5F, 196.39746F},
                    Mapping{150, 150, 300.5F, 369.60254F}, Mapping{210, 210, 200.5F, 369.60254F},
                    Mapping{330, 330, 200.5F, 196.39746F}, Mapping{1109, 29, 298.98096F, 195.53803F}));

TEST(PlotPoint, half_degrees_go_to_the_even_degree) {
  Plot plot;
  EXPECT_EQ(plot.Drawn(89.5F), 90);
  EXPECT_EQ(plot.At(89.5F, 100), plot.At(90, 100));
  EXPECT_EQ(plot.Drawn(88.5F), 88);
  EXPECT_EQ(plot.Drawn(359.5F), 0);
}

TEST(PlotPoint, deliberate_readings_are_snapped_to_whole_degrees) {
  Plot plot;
  EXPECT_EQ(plot.At(12.4F, 100), plot.At(12, 100));
  EXPECT_EQ(plot.Drawn(12.6F), 13);
}

TEST(PlotPoint, is_computed_in_singles) {
  Plot plot;
  const auto radians = static_cast<float>(37 * 0.0174532925199433);
  const auto dx = static_cast<float>(123.4F * std::sin(static_cast<double>(radians)));
  const auto dy = static_cast<float>(123.4F * std::cos(static_cast<double>(radians)));
  EXPECT_EQ(plot.At(37, 123.4F), (SurfacePoint{250.5F + dx, 283.0F - dy}));
}

TEST(PlotPoint, the_rotation_offset_is_added_before_the_rounding) {
  Plot plot;
  plot.plotter.Mapping().RotationOffset = 270.25F;
  EXPECT_EQ(plot.Drawn(0.25F), 270);
  EXPECT_EQ(plot.Drawn(90.0F), 0);
}

TEST(PlotPoint, a_negative_angle_leaves_the_point_where_it_was) {
  Plot plot;
  const SurfacePoint before = plot.At(10, 100);
  plot.Surface.Operations.clear();
  plot.plotter.Mapping().RotationOffset = -45;
  float angleDeg = 5;
  EXPECT_EQ(plot.plotter.PlotPoint(angleDeg, 50), before);
  EXPECT_EQ(angleDeg, -40);
  EXPECT_EQ(plot.plotter.Pen().Previous, before);
  EXPECT_THAT(plot.Surface.Operations, IsEmpty());
}

TEST(PlotPoint, a_whole_turn_backwards_is_0_degrees) {
  Plot plot;
  plot.plotter.Mapping().RotationOffset = -360;
  EXPECT_EQ(plot.At(0, 100), (SurfacePoint{250.5F, 183}));
}

TEST(PlotPoint, sets_a_dot_with_the_pen_up_and_a_line_from_the_previous_point_with_it_down) {
  Plot plot;
  plot.plotter.Pen().TraceColour = {128, 0, 0};
  plot.At(0, 100);
  plot.plotter.Pen().PenDown = true;
  plot.At(90, 50);
  plot.At(180, 20);
  EXPECT_THAT(plot.Surface.Operations,
              ElementsAre("dot 250.5,183 #800000", "line 250.5,183 300.5,283 #800000",
                          "line 300.5,283 250.5,303 #800000"));
  EXPECT_EQ(plot.plotter.Pen().Previous, (SurfacePoint{250.5F, 303}));
}

TEST(PlotPoint, an_angle_beyond_whole_numbers_is_an_overflow) {
  Plot plot;
  EXPECT_THROW(plot.At(1e12F, 100), RunTimeError);
  EXPECT_THROW(plot.At(std::nanf(""), 100), RunTimeError);
}

struct RectangularPlot : Plot {
  RectangularPlot() { plotter.Mapping().Rectangular = true; }
  /// What is drawn from one place to the next.
  std::string Between(float angleDeg, float radius, float nextAngleDeg, float nextRadius) {
    At(angleDeg, radius);
    plotter.Pen().PenDown = true;
    At(nextAngleDeg, nextRadius);
    return Surface.Operations.back();
  }
};

class AxisPositions : public testing::TestWithParam<Mapping> {};

TEST_P(AxisPositions, have_0_degrees_in_the_middle) {
  RectangularPlot plot;
  float angleDeg = GetParam().AngleDeg;
  const SurfacePoint point = plot.plotter.PlotPoint(angleDeg, 100);
  EXPECT_NEAR(point.X, GetParam().X, 1e-4);
  EXPECT_EQ(point.Y, GetParam().Y);
  EXPECT_EQ(angleDeg, GetParam().Drawn);
}

INSTANTIATE_TEST_SUITE_P(Rectangular, AxisPositions,
                         testing::Values(Mapping{0, 0, 260, 294}, Mapping{90, 90, 377, 294},
                                         Mapping{179, 179, 492.7F, 294}, Mapping{180, 180, 26, 294},
                                         Mapping{270, 270, 143, 294}, Mapping{359, 359, 258.7F, 294},
                                         Mapping{360, 0, 260, 294}, Mapping{-90, 270, 143, 294},
                                         Mapping{12.5F, 12.5F, 276.25F, 294}));

TEST(PlotPointRectangular, is_not_snapped_to_whole_degrees) {
  RectangularPlot plot;
  EXPECT_NE(plot.At(12.4F, 100), plot.At(12, 100));
}

TEST(PlotPointRectangular, the_pen_is_up_where_the_axis_ends_and_begins_again) {
  RectangularPlot plot;
  plot.At(179, 10);
  plot.plotter.Pen().PenDown = true;
  plot.At(180, 20);
  plot.At(181, 30);
  EXPECT_THAT(plot.Surface.Operations,
              ElementsAre("dot 492.7,384 #000000", "dot 26,374 #000000", "line 26,374 27.3,364 #000000"));
}

TEST(PlotPointRectangular, two_levels_of_one_angle_are_joined) {
  EXPECT_EQ(RectangularPlot().Between(90, 10, 90, 20), "line 377,384 377,374 #000000");
}

TEST(PlotPointRectangular, passes_0_degrees_without_lifting_the_pen) {
  EXPECT_EQ(RectangularPlot().Between(359, 10, 360, 10), "line 258.7,384 260,384 #000000");
}

TEST(RotationOffset, a_180_degree_set_lies_across_the_upper_half_and_in_the_middle_of_the_axis) {
  EXPECT_EQ(RotationOffsetOf(false, true, 12), 270);
  EXPECT_EQ(RotationOffsetOf(true, true, 0), -90);
  EXPECT_EQ(RotationOffsetOf(false, false, 12), 12);
  EXPECT_EQ(RotationOffsetOf(true, false, 345.5F), 345.5F);
}

TEST(PointAt, tells_the_point_and_draws_nothing) {
  Plot plot;
  float angleDeg = 450;
  EXPECT_EQ(plot.plotter.Mapping().PointAt(angleDeg, 100), plot.At(90, 100));
  EXPECT_EQ(angleDeg, 90);
  EXPECT_EQ(plot.Surface.Operations.size(), 1U);
  angleDeg = -10;
  EXPECT_FALSE(plot.plotter.Mapping().PointAt(angleDeg, 100));
}

}  // namespace
}  // namespace lobegraph
