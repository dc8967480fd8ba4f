#include "processing/compare/FigureSpread.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace lobegraph {
namespace {

FigureSpread SpreadOf(const std::vector<CutFigures>& turns, std::string_view key) {
  const auto spreads = SpreadsOf(turns);
  return *std::ranges::find(spreads, key, &FigureSpread::Key);
}

std::vector<CutFigures> Turns(std::optional<double> CutFigures::*member, const std::vector<double>& values) {
  std::vector<CutFigures> turns;
  for (const double value : values) turns.emplace_back().*member = value;
  return turns;
}

TEST(FigureSpreadTest, IsMeanAndStandardDeviation) {
  const FigureSpread spread = SpreadOf(Turns(&CutFigures::Hpbw, {61.4, 61.8, 62.2}), "hpbw");
  EXPECT_EQ(spread.Turns, 3);
  EXPECT_NEAR(*spread.Mean, 61.8, 1e-9);
  EXPECT_NEAR(*spread.Deviation, 0.4, 1e-9);
}

TEST(FigureSpreadTest, BearingsAreAveragedRoundTheCircle) {
  const FigureSpread spread = SpreadOf(Turns(&CutFigures::BeamCentre, {359.0, 1.0, 358.5}), "beamCentre");
  EXPECT_NEAR(*spread.Mean, 359.5, 1e-9);
  EXPECT_NEAR(*spread.Deviation, 1.3229, 1e-3);
}

TEST(FigureSpreadTest, OneTurnHasNoDeviationAndNoneNoMean) {
  EXPECT_FALSE(SpreadOf(Turns(&CutFigures::Hpbw, {61.4}), "hpbw").Deviation);
  const FigureSpread none = SpreadOf({CutFigures{}, CutFigures{}}, "hpbw");
  EXPECT_EQ(none.Turns, 0);
  EXPECT_FALSE(none.Mean);
}

TEST(FigureSpreadTest, TurnsWithoutTheFigureDoNotCount) {
  auto turns = Turns(&CutFigures::FrontToBack, {20.0, 22.0});
  turns.emplace_back();
  const FigureSpread spread = SpreadOf(turns, "frontToBack");
  EXPECT_EQ(spread.Turns, 2);
  EXPECT_EQ(*spread.Mean, 21.0);
}

TEST(FigureSpreadTest, EveryFigureHasItsOwnRow) {
  std::set<std::string_view> keys;
  CutFigures figures;
  double value = 1.0;
  for (std::optional<double>* each :
       {&figures.Hpbw, &figures.Hpbw10, &figures.Fnbw, &figures.PeakBearing, &figures.BeamCentre,
        &figures.Squint, &figures.FrontToBack, &figures.FrontToRear, &figures.FrontToRearSector,
        &figures.FrontToSide, &figures.SideLobeLevel, &figures.SideLobeAngle, &figures.Ripple,
        &figures.Closure, &figures.Directivity.Kraus, &figures.Directivity.TaiPereira,
        &figures.Directivity.Integrated})
    *each = value++;
  double expected = 1.0;
  for (const FigureSpread& spread : SpreadsOf(std::vector<CutFigures>{figures})) {
    EXPECT_EQ(spread.Mean, expected++) << spread.Key;
    EXPECT_TRUE(keys.insert(spread.Key).second);
  }
  EXPECT_EQ(expected, value);
}

}  // namespace
}  // namespace lobegraph
