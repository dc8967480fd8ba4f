#include "render/PictureLayer.h"

#include <gtest/gtest.h>

namespace lobegraph {
namespace {

TEST(PictureLayer, a_line_takes_the_place_of_the_one_with_its_number) {
  PictureLayer layer;
  layer.Show(1, {{0, 10}, {50, 10}, kBlack});
  layer.Show(2, {{0, 30}, {50, 30}, kBlack});
  const LayerLine moved = {{0, 20}, {50, 20}, kBlack};
  layer.Show(1, moved);
  ASSERT_EQ(layer.Lines().size(), 2U);
  EXPECT_EQ(layer.Lines().at(1), moved);
}

TEST(PictureLayer, lines_go_singly_or_all) {
  PictureLayer layer;
  layer.Show(1, {});
  layer.Show(2, {});
  layer.Hide(1);
  layer.Hide(7);
  EXPECT_EQ(layer.Lines().count(2), 1U);
  EXPECT_EQ(layer.Lines().size(), 1U);
  layer.HideAll();
  EXPECT_TRUE(layer.Lines().empty());
}

}  // namespace
}  // namespace lobegraph
