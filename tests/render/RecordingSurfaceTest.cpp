#include "support/RecordingSurface.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace lobegraph {
namespace {

TEST(DrawingSurface, a_line_may_begin_at_the_current_position_and_moves_it) {
  RecordingSurface surface;
  surface.SetCurrentPosition({1, 2});
  surface.LineTo({3, 4}, kBlack);
  surface.LineTo({5, 6.25F}, kWhite);
  EXPECT_THAT(surface.Operations,
              testing::ElementsAre("at 1,2", "line 1,2 3,4 #000000", "line 3,4 5,6.25 #ffffff"));
  EXPECT_EQ(surface.CurrentPosition(), (SurfacePoint{5, 6.25F}));
}

TEST(DrawingSurface, clearing_moves_to_the_corner) {
  RecordingSurface surface;
  surface.SetCurrentPosition({1, 2});
  surface.Clear();
  EXPECT_EQ(surface.CurrentPosition(), SurfacePoint{});
}

}  // namespace
}  // namespace lobegraph
