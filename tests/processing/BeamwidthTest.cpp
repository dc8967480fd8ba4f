#include "processing/Beamwidth.h"

#include <gtest/gtest.h>

namespace lobegraph {
namespace {

TEST(BeamwidthTest, IsTheSmallerWayRoundBetweenTheTwoPoints) {
  EXPECT_EQ(BeamwidthBetween(30, 330, 1.F), 60.F);
  EXPECT_EQ(BeamwidthBetween(330, 30, 1.F), 60.F);
  EXPECT_EQ(BeamwidthBetween(165, 195, 1.F), 30.F);
  EXPECT_EQ(BeamwidthBetween(10, 180, 1.F), 170.F);
  EXPECT_EQ(BeamwidthBetween(10, 200, 1.F), 170.F);
  EXPECT_EQ(BeamwidthBetween(100, 220, .5F), 60.F);
  EXPECT_EQ(BeamwidthBetween(7, 7, 1.F), 0.F);
}

struct RatioCase {
  const char* Elements;
  double Ratio;
};

class ElementRatioTest : public ::testing::TestWithParam<RatioCase> {};

TEST_P(ElementRatioTest, FollowsTheNumberOfElementsAndInvertsForVertical) {
  const auto horizontal = ElementRatioOf(GetParam().Elements, true);
  const auto vertical = ElementRatioOf(GetParam().Elements, false);
  EXPECT_EQ(horizontal.value_or(0), GetParam().Ratio);
  if (GetParam().Ratio != 0) {
    EXPECT_EQ(vertical.value_or(0), 1 / GetParam().Ratio);
  }
}

INSTANTIATE_TEST_SUITE_P(Rows, ElementRatioTest,
                         ::testing::Values(RatioCase{"  2", 2.0}, RatioCase{"3", 1.5}, RatioCase{"4", 1.4},
                                           RatioCase{"5", 1.3}, RatioCase{"8", 1.15},
                                           RatioCase{"  > 8!", 1.0}, RatioCase{"", 1.5}, RatioCase{"12", 1.5},
                                           RatioCase{"2.5", 1.5}, RatioCase{"  1", 0}));

TEST(ElementRatioTest, SixAndSevenElementsTakeTheRatioOfThreeOnPurpose) {
  EXPECT_EQ(ElementRatioOf("6", true), 1.5);
  EXPECT_EQ(ElementRatioOf("7", true), 1.5);
}

TEST(GainTest, ASingleElementGetsNeitherRatioNorAdditionOnPurpose) {
  EXPECT_NEAR(GainFromBeamwidth("1", 60, true), 0.97, 0.005);
  EXPECT_EQ(GainFromBeamwidth("1", 60, true), GainFromBeamwidth("1", 60, false));
}

TEST(GainTest, TwoElementsAt60Degrees) {
  EXPECT_NEAR(GainFromBeamwidth("2", 60, true), 7.89, 0.005);
  EXPECT_NEAR(GainFromBeamwidth("2", 60, false), 13.91, 0.005);
}

TEST(GainTest, EachRowAt60DegreesHorizontal) {
  const std::pair<const char*, double> cases[] = {
      {"3", 9.14}, {"4", 9.44}, {"5", 9.76}, {"8", 10.29}, {"> 8!", 10.90}};
  for (const auto& [elements, gain] : cases)
    EXPECT_NEAR(GainFromBeamwidth(elements, 60, true), gain, 0.005) << elements;
}

TEST(BeamFiguresTest, AreShownWithTwoDecimals) {
  const BeamFigures figures = BeamFiguresOf(60.F, "2", true);
  EXPECT_EQ(BeamwidthText(figures.BeamwidthDeg), "60.00");
  EXPECT_EQ(GainText(figures.GainDbi), "7.89 dBi");
  EXPECT_NEAR(figures.GainDbi.value_or(0), 7.891, 0.001);
}

TEST(BeamFiguresTest, ABeamwidthOutside0To180HasNone) {
  for (const float beamwidth : {0.F, -1.F, 180.F, 200.F}) {
    const BeamFigures figures = BeamFiguresOf(beamwidth, "2", true);
    EXPECT_FALSE(figures.BeamwidthDeg) << beamwidth;
    EXPECT_FALSE(figures.GainDbi) << beamwidth;
  }
  EXPECT_EQ(BeamFiguresOf(179.99F, "2", true).BeamwidthDeg, 179.99F);
  EXPECT_EQ(BeamFiguresOf(.01F, "2", true).BeamwidthDeg, .01F);
}

TEST(BeamFiguresTest, WithoutAFigureThePlaceholderStands) {
  EXPECT_EQ(BeamwidthText(std::nullopt), "Angle");
  EXPECT_EQ(GainText(std::nullopt), "Gain");
}

}  // namespace
}  // namespace lobegraph
