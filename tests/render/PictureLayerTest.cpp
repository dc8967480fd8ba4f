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

TEST(PictureLayer, texts_are_written_in_place_of_the_former_ones_and_lines_go_without_them) {
  PictureLayer layer;
  layer.Write({{{1, 2}, "0", 7.F, kBlack}, {{3, 4}, "30", 7.F, kBlack}});
  layer.Write({{{5, 6}, "60", 7.F, kBlack}});
  layer.HideAll();
  ASSERT_EQ(layer.Texts().size(), 1U);
  EXPECT_EQ(layer.Texts()[0].Text, "60");
}

}  // namespace
}  // namespace lobegraph
