#include "render/qt/CrispLine.h"

#include <gtest/gtest.h>

namespace lobegraph {
namespace {

struct Width {
  int PenWidth;
  qreal Ratio;
  int Pixels;
};
class DevicePenWidths : public testing::TestWithParam<Width> {};

TEST_P(DevicePenWidths, are_whole_pixels) {
  EXPECT_EQ(DevicePenWidth(GetParam().PenWidth, GetParam().Ratio), GetParam().Pixels);
}

INSTANTIATE_TEST_SUITE_P(Ratios, DevicePenWidths,
                         testing::Values(Width{1, 1.0, 1}, Width{2, 1.0, 2}, Width{1, 1.5, 1},
                                         Width{2, 1.5, 3}, Width{1, 2.0, 2}, Width{2, 2.0, 4},
                                         Width{1, 0.25, 1}));

TEST(CrispLine, a_line_between_two_pixels_covers_one_of_them_whole) {
  EXPECT_EQ(CrispLine({10, 283}, {20, 283}, 1, 1.0), QRectF(10, 283, 10, 1));
  EXPECT_EQ(CrispLine({250.5F, 49}, {250.5F, 283}, 1, 1.0), QRectF(250, 49, 1, 234));
  EXPECT_EQ(CrispLine({10.2F, 20.6F}, {4, 20.6F}, 2, 1.0), QRectF(4, 20, 6, 2)) << "drawn from right to left";
}

TEST(CrispLine, a_finer_screen_has_finer_steps) {
  EXPECT_EQ(CrispLine({250.5F, 49}, {250.5F, 283}, 1, 2.0), QRectF(250, 49, 1, 234));
  EXPECT_EQ(CrispLine({0, 10.25F}, {20, 10.25F}, 1, 2.0), QRectF(0, 10, 20, 1));
  EXPECT_EQ(CrispLine({0, 10}, {20, 10}, 2, 1.5), QRectF(0, 14 / 1.5, 20, 3 / 1.5));
}

TEST(CrispLine, other_directions_and_pieces_of_a_curve_stay_smooth) {
  EXPECT_FALSE(CrispLine({0, 0}, {20, 1}, 1, 1.0));
  EXPECT_FALSE(CrispLine({0, 5}, {1.3F, 5}, 2, 1.0));
  EXPECT_TRUE(CrispLine({26, 5}, {28, 5}, 1, 1.0)) << "a dash";
}

}  // namespace
}  // namespace lobegraph
