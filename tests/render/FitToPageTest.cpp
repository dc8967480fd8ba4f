#include "render/FitToPage.h"

#include <gtest/gtest.h>

#include "data/base/RunTimeError.h"
#include "support/FaultOf.h"

namespace lobegraph {
namespace {

constexpr Extent kWindow{20055.8, 14816.7};  // 758 by 560 units at 96 to the inch
constexpr double kNear = 0.01;

TEST(FitToPage, an_inch_is_1440_twips_and_2540_HiMetric) {
  EXPECT_EQ(TwipsToHiMetric(1440), 2540);
  EXPECT_EQ(HiMetricToTwips(2540), 1440);
}

TEST(FitToPage, deliberate_the_margin_is_taken_once_in_twips_and_once_more_in_HiMetric) {
  const Extent printed = FitToPage(kWindow, {11520, 16000});
  EXPECT_NEAR(TwipsToHiMetric(printed.Width), 17335, kNear);
}

TEST(FitToPage, a_picture_wider_than_the_page_takes_the_whole_width) {
  const Extent printed = FitToPage({4000, 1000}, {11520, 16000});
  EXPECT_NEAR(TwipsToHiMetric(printed.Width), 17335, kNear);
  EXPECT_NEAR(TwipsToHiMetric(printed.Height), 17335.0 / 4, kNear);
}

TEST(FitToPage, a_picture_taller_than_the_page_takes_the_whole_height) {
  const Extent printed = FitToPage({1000, 4000}, {11520, 16000});
  EXPECT_NEAR(TwipsToHiMetric(printed.Height), (16000.0 - 1080) * 2540 / 1440 - 1080, kNear);
  EXPECT_NEAR(printed.Width, printed.Height / 4, kNear);
}

TEST(FitToPage, a_picture_of_the_pages_shape_fills_both) {
  const Extent printed = FitToPage({500, 500}, {11520, 11520});
  EXPECT_NEAR(TwipsToHiMetric(printed.Width), 17335, kNear);
  EXPECT_NEAR(TwipsToHiMetric(printed.Height), 17335, kNear);
}

TEST(FitToPage, a_page_that_the_margins_eat_up_is_an_error) {
  const double eaten = 1080 + HiMetricToTwips(1080);
  for (const Extent& page : {Extent{eaten, 16000}, Extent{16000, eaten}, Extent{0, 0}, Extent{1000, 1000}})
    EXPECT_EQ(FaultOf([&] { FitToPage(kWindow, page); }), fault::kInvalidProcedureCall);
  EXPECT_GT(FitToPage(kWindow, {eaten + 1, eaten + 1}).Width, 0);
}

}  // namespace
}  // namespace lobegraph
