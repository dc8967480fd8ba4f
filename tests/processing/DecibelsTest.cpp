#include "processing/Decibels.h"

#include <gtest/gtest.h>

#include <limits>

#include "processing/RadiusRule.h"
#include "support/FaultOf.h"

namespace lobegraph {
namespace {

TEST(DecibelsTest, PassThroughSinglesSoThatAThousandIsExactly60) {
  EXPECT_EQ(DecibelsBelow(1000.F, 1.F), 60.F);
  EXPECT_EQ(DecibelsBelow(1000.F, 1000.F), 0.F);
  EXPECT_NEAR(DecibelsBelow(1000.F, 500.F), 6.0206F, 1e-4F);
  EXPECT_NEAR(DecibelsBelow(500.F, 1000.F), -6.0206F, 1e-4F);
}

TEST(DecibelsTest, FaultsAreFoundBeforeTheArithmetic) {
  EXPECT_EQ(FaultOf([] { DecibelsBelow(1000.F, 0.F); }), 11);
  EXPECT_EQ(FaultOf([] { DecibelsBelow(0.F, 0.F); }), 6);
  EXPECT_EQ(FaultOf([] { DecibelsBelow(0.F, 5.F); }), 5);
  EXPECT_EQ(FaultOf([] { DecibelsBelow(1000.F, -1.F); }), 5);
  EXPECT_EQ(FaultOf([] { Log10(0.0); }), 5);
  EXPECT_EQ(FaultOf([] { Log10(std::numeric_limits<double>::quiet_NaN()); }), 5);
  EXPECT_EQ(FaultOf([] { CheckedRatio(1.F, 0.F); }), 11);
  EXPECT_EQ(FaultOf([] { CheckedRatio(0.F, 0.F); }), 6);
  EXPECT_EQ(CheckedRatio(1.F, 4.F), .25F);
}

TEST(RadiusRuleTest, EachScaleHasItsLaw) {
  EXPECT_EQ(PlotRadius(PlotScale::Linear, 234.F, .5F, 99.F, 35.F), 117.F);
  EXPECT_NEAR(PlotRadius(PlotScale::Logarithmic, 234.F, 0.F, 10.F, 20.F), 74.0F, .005F);
  EXPECT_EQ(PlotRadius(PlotScale::Logarithmic, 234.F, 0.F, 0.F, 20.F), 234.F);
  EXPECT_NEAR(PlotRadius(PlotScale::Db50, 234.F, 0.F, 3.F, 35.F), 219.96F, 1e-3F);
}

TEST(RadiusRuleTest, The50dBScaleEndsAtTheCentre) {
  EXPECT_NEAR(PlotRadius(PlotScale::Db50, 234.F, 0.F, 49.9F, 35.F), 0.468F, 1e-3F);
  EXPECT_NEAR(PlotRadius(PlotScale::Db50, 234.F, 0.F, 50.F, 35.F), 0.F, 1e-4F);
  EXPECT_EQ(PlotRadius(PlotScale::Db50, 234.F, 0.F, 51.F, 35.F), 0.F);
}

TEST(RadiusRuleTest, AScaleSettingOf0DividesByZero) {
  EXPECT_EQ(FaultOf([] { PlotRadius(PlotScale::Logarithmic, 234.F, 1.F, 3.F, 0.F); }), 11);
}

TEST(RadiusRuleTest, TheFlagCountsOnlyWhenThePlotIsInDb) {
  EXPECT_EQ(ScaleOf(false, true), PlotScale::Linear);
  EXPECT_EQ(ScaleOf(false, false), PlotScale::Linear);
  EXPECT_EQ(ScaleOf(true, true), PlotScale::Logarithmic);
  EXPECT_EQ(ScaleOf(true, false), PlotScale::Db50);
}

}  // namespace
}  // namespace lobegraph
