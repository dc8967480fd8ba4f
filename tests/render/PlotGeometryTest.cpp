#include "render/PlotGeometry.h"

#include <gtest/gtest.h>

#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

TEST(PlotGeometry, centres_the_plot_in_what_the_panel_leaves_free_three_units_below_the_middle) {
  const PlotGeometry geometry = MakePlotGeometry(758, 560, 257);
  EXPECT_EQ(geometry.X, 250.5F);
  EXPECT_EQ(geometry.Y, 283.0F);
  EXPECT_EQ(geometry.R, 234.0F);
  EXPECT_EQ(geometry.Centre(), (SurfacePoint{250.5F, 283.0F}));
}

TEST(PlotGeometry, a_window_without_a_panel_has_its_plot_in_the_middle) {
  const PlotGeometry geometry = MakePlotGeometry(501, 561, 0);
  EXPECT_EQ(geometry.X, 250.5F);
  EXPECT_EQ(geometry.Y, 283.5F);
}

TEST(PlotArea, edges_are_whole_units_halves_to_even) {
  EXPECT_EQ(MakePlotArea(MakePlotGeometry(758, 560, 257)), (PlotArea{26, 494, 160, 394}));
  EXPECT_EQ(MakePlotArea(MakePlotGeometry(756, 561, 257)), (PlotArea{26, 494, 160, 394})) << "25.5 and 160.5";
  EXPECT_EQ(MakePlotArea(MakePlotGeometry(760, 563, 257)), (PlotArea{28, 496, 162, 396})) << "27.5 and 161.5";
}

TEST(PlotArea, is_twice_as_wide_as_high) {
  const PlotArea area = MakePlotArea({});
  EXPECT_EQ(area.Right - area.Left, 468);
  EXPECT_EQ(area.Bottom - area.Top, 234);
}

TEST(PlotArea, an_edge_beyond_16_bits_is_an_overflow) {
  EXPECT_THROW(MakePlotArea(MakePlotGeometry(80000, 560, 0)), RunTimeError);
}

}  // namespace
}  // namespace lobegraph
