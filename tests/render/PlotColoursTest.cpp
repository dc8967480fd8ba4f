#include "render/PlotColours.h"

#include <gtest/gtest.h>

#include <set>

namespace lobegraph {
namespace {

constexpr PlotColours kColours{.PlotLineColour = {1, 0, 0},
                               .PlotLineOverlayColour = {2, 0, 0},
                               .PlotUserColour = {3, 0, 0},
                               .PlotUserOverlayColour = {4, 0, 0}};

TEST(PlotColours, the_first_two_patterns_have_the_colours_of_the_settings) {
  EXPECT_EQ(InkOf(kColours, 0).Line, (Colour{1, 0, 0}));
  EXPECT_EQ(InkOf(kColours, 0).Marks, (Colour{3, 0, 0}));
  EXPECT_EQ(InkOf(kColours, 1).Line, (Colour{2, 0, 0}));
  EXPECT_EQ(InkOf(kColours, 1).Marks, (Colour{4, 0, 0}));
}

TEST(PlotColours, five_further_patterns_can_be_told_apart_then_their_colours_come_again) {
  std::set<std::int32_t> seen;
  for (std::size_t pattern = 2; pattern < 7; ++pattern) {
    seen.insert(InkOf(kColours, pattern).Line.Stored());
    EXPECT_EQ(InkOf(kColours, pattern).Marks, InkOf(kColours, pattern).Line);
  }
  EXPECT_EQ(seen.size(), 5U);
  EXPECT_EQ(InkOf(kColours, 7).Line, InkOf(kColours, 2).Line);
}

}  // namespace
}  // namespace lobegraph
