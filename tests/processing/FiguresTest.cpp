#include "processing/Figures.h"

#include <gmock/gmock.h>

#include <cmath>
#include <functional>
#include <numbers>

#include "support/TestRecord.h"

namespace lobegraph {
namespace {

using ::testing::DoubleNear;
using ::testing::Optional;

double Radians(double degrees) { return degrees * std::numbers::pi / 180.0; }

/// A whole turn of levels in dB over degrees from the first sample, the strongest brought to 0.
PatternCut Turn(const std::function<double(double)>& levelDb, int count = 360, double startDeg = 0.0) {
  PatternCut cut;
  cut.StepDeg = 360.0 / count;
  cut.StartDeg = startDeg;
  for (int i = 0; i < count; ++i) cut.LevelDb.push_back(levelDb(i * cut.StepDeg));
  const double strongest = *std::max_element(cut.LevelDb.begin(), cut.LevelDb.end());
  for (double& level : cut.LevelDb) level -= strongest;
  return cut;
}

double Away(double degrees, double from) {
  const double apart = std::fmod(std::abs(degrees - from), 360.0);
  return std::min(apart, 360.0 - apart);
}

/// A beam falling by 3 dB in `half` degrees, as a parabola in dB, down to a floor.
std::function<double(double)> ParabolicBeam(double at, double half, double floorDb) {
  return [=](double degrees) {
    const double off = Away(degrees, at) / half;
    return std::max(-3.0 * off * off, -floorDb);
  };
}

CutFigures Of(const PatternCut& cut) { return FiguresOfCut(cut, 1.5); }

TEST(Figures, HalfPowerBeamwidthIsInterpolatedBetweenSamples) {
  // 10 degrees a sample: 30 dB at 100 degrees off; crossings lie between 30 and 40 on both sides.
  const CutFigures figures = Of(Turn([](double d) { return -0.09 * Away(d, 0); }, 36));
  EXPECT_THAT(figures.Hpbw, Optional(DoubleNear(2 * 3.0 / 0.09, 1e-9)));
}

TEST(Figures, BeamwidthsAreTheSameWhereverTheBeamLies) {
  for (const double at : {0.0, 10.0, 90.0, 180.0, 355.0}) {
    const CutFigures figures = Of(Turn(ParabolicBeam(at, 30, 40)));
    EXPECT_THAT(figures.Hpbw, Optional(DoubleNear(60.0, 1e-9))) << at;
    EXPECT_THAT(figures.Hpbw10, Optional(DoubleNear(60.0 * std::sqrt(10.0 / 3.0), 0.01))) << at;
    EXPECT_THAT(figures.PeakBearing, Optional(DoubleNear(at, 1e-9))) << at;
    EXPECT_THAT(figures.BeamCentre, Optional(DoubleNear(at, 1e-9))) << at;
  }
}

TEST(Figures, ALevelOfExactlyMinus3dBIsStillInsideTheBeam) {
  PatternCut cut = Turn([](double d) { return d == 0 ? 0.0 : Away(d, 0) <= 20 ? -3.0 : -23.0; }, 36);
  EXPECT_THAT(Of(cut).Hpbw, Optional(DoubleNear(40.0, 1e-9)));
}

TEST(Figures, AnOmnidirectionalPatternHasNoBeamwidth) {
  const CutFigures figures = Of(Turn([](double d) { return std::cos(Radians(d)); }));
  EXPECT_FALSE(figures.Hpbw);
  EXPECT_FALSE(figures.Hpbw10);
  EXPECT_FALSE(figures.Fnbw);
  EXPECT_FALSE(figures.BeamCentre);
  EXPECT_FALSE(figures.Squint);
  EXPECT_FALSE(figures.Directivity.Kraus);
  EXPECT_FALSE(figures.Directivity.TaiPereira);
  EXPECT_THAT(figures.Ripple, Optional(DoubleNear(2.0, 1e-9)));
}

TEST(Figures, TheParabolaFindsAPeakBetweenSamples) {
  EXPECT_THAT(Of(Turn(ParabolicBeam(3.7, 30, 40), 72)).PeakBearing, Optional(DoubleNear(3.7, 1e-9)));
  EXPECT_THAT(Of(Turn(ParabolicBeam(359.6, 30, 40))).PeakBearing, Optional(DoubleNear(359.6, 1e-9)));
}

TEST(Figures, BearingsAreThoseOfTheTurnedPlot) {
  const CutFigures figures = Of(Turn(ParabolicBeam(40, 30, 40), 360, 330));
  EXPECT_THAT(figures.PeakBearing, Optional(DoubleNear(10, 1e-9)));
  EXPECT_THAT(figures.BeamCentre, Optional(DoubleNear(10, 1e-9)));
  EXPECT_THAT(figures.Squint, Optional(DoubleNear(10, 1e-9)));
}

TEST(Figures, SquintIsSignedAndTheBeamCentreOfALopsidedBeamIsNotItsPeak) {
  const auto lopsided = [](double d) {
    const double off = d > 180 ? d - 360 : d;
    return std::max(-30.0, off < 0 ? 0.1 * off : -0.3 * off);
  };
  const CutFigures figures = Of(Turn(lopsided));
  EXPECT_THAT(figures.BeamCentre, Optional(DoubleNear(350, 1e-9)));
  EXPECT_THAT(figures.Squint, Optional(DoubleNear(-10, 1e-9)));
  EXPECT_LT(Away(*figures.PeakBearing, 0), 1.0);
}

TEST(Figures, NullsAreMinimaThreeDecibelsBelowBothLobes) {
  const auto dipole = [](double d) {
    return 20.0 * std::log10(std::max(1e-3, std::abs(std::cos(Radians(d)))));
  };
  EXPECT_THAT(Of(Turn(dipole)).Fnbw, Optional(DoubleNear(180.0, 1e-9)));
}

TEST(Figures, TheTwoNullsBesideABeamMayLieAtDifferentDistances) {
  const auto lopsided = [](double d) {
    if (d <= 40) return -0.5 * d;
    return d >= 330 ? -(360 - d) * 20 / 30 : -10.0;
  };
  EXPECT_THAT(Of(Turn(lopsided)).Fnbw, Optional(DoubleNear(70, 1e-9)));
}

TEST(Figures, ADentOfLessThanThreeDecibelsIsNoNull) {
  // Falls 0.2 dB a degree; the dent at 40 degrees is 2.9 dB deep, the one at 80 degrees 3.1 dB.
  const auto withDents = [](double dentDb) {
    return [dentDb](double d) {
      const double away = Away(d, 0);
      const double slope = away <= 90 ? -0.2 * away : -18.0 + 0.1 * (away - 90);
      return slope - (away == 40 ? dentDb : 0.0);
    };
  };
  EXPECT_THAT(Of(Turn(withDents(3.0))).Fnbw, Optional(DoubleNear(180.0, 1e-9)));
  EXPECT_THAT(Of(Turn(withDents(3.3))).Fnbw, Optional(DoubleNear(80.0, 1e-9)));
}

TEST(Figures, ANullThatIsSeveralSamplesWideCountsAtItsMiddle) {
  const auto pattern = [](double d) {
    const double away = Away(d, 0);
    return away < 60 ? -0.3 * away : away <= 80 ? -30.0 : -10.0;
  };
  EXPECT_THAT(Of(Turn(pattern)).Fnbw, Optional(DoubleNear(140.0, 1e-9)));
}

TEST(Figures, ANullOfTwoSamplesLiesBetweenThem) {
  const auto pattern = [](double d) {
    const double away = Away(d, 0);
    return away < 60 ? -0.3 * away : away <= 61 ? -30.0 : -10.0;
  };
  EXPECT_THAT(Of(Turn(pattern)).Fnbw, Optional(DoubleNear(121.0, 1e-9)));
}

TEST(Figures, WhatLiesJustBeforeThePeakIsFoundAllTheWayRoundAsWell) {
  const CutFigures figures = Of(Turn([](double d) { return d == 350 ? -30.0 : 0.0; }, 36));
  EXPECT_THAT(figures.Hpbw, Optional(DoubleNear(342.0, 1e-9)));
  EXPECT_THAT(figures.Fnbw, Optional(DoubleNear(360.0, 1e-9)));
}

TEST(Figures, AFlatTopHasItsPeakOnASample) {
  const CutFigures figures = Of(Turn([](double d) { return Away(d, 0) <= 1 ? 0.0 : -20.0; }));
  EXPECT_THAT(figures.PeakBearing, Optional(0.0));
}

TEST(Figures, FrontToBackIsInterpolatedWhereNoSampleLiesBehind) {
  PatternCut cut = Turn(ParabolicBeam(0, 30, 20), 61);
  cut.LevelDb[30] = -10;
  cut.LevelDb[31] = -16;
  EXPECT_THAT(Of(cut).FrontToBack, Optional(DoubleNear(13.0, 1e-9)));
}

TEST(Figures, TheRearIsJudgedByItsStrongestLevelEdgesIncluded) {
  struct Row {
    int At;
    double Back, Rear, Sector, Side;
  };
  const Row rows[] = {{180, 5, 5, 5, 25}, {150, 25, 5, 5, 25}, {149, 25, 5, 25, 25}, {210, 25, 5, 5, 25},
                      {90, 25, 5, 25, 5}, {270, 25, 5, 25, 5}, {89, 25, 25, 25, 25}, {271, 25, 25, 25, 25}};
  for (const Row& row : rows) {
    PatternCut cut = Turn(ParabolicBeam(0, 10, 25));
    cut.LevelDb[static_cast<std::size_t>(row.At)] = -5;
    const CutFigures figures = Of(cut);
    EXPECT_THAT(figures.FrontToBack, Optional(DoubleNear(row.Back, 1e-9))) << row.At;
    EXPECT_THAT(figures.FrontToRear, Optional(DoubleNear(row.Rear, 1e-9))) << row.At;
    EXPECT_THAT(figures.FrontToRearSector, Optional(DoubleNear(row.Sector, 1e-9))) << row.At;
    EXPECT_THAT(figures.FrontToSide, Optional(DoubleNear(row.Side, 1e-9))) << row.At;
  }
}

TEST(Figures, TheStrongestSideLobeIsNamedWithItsBearing) {
  const auto lobes = [](double d) {
    return std::max({ParabolicBeam(0, 20, 40)(d), -14 + ParabolicBeam(120, 15, 40)(d),
                     -11.5 + ParabolicBeam(200, 15, 40)(d), -40.0});
  };
  const CutFigures figures = Of(Turn(lobes));
  EXPECT_THAT(figures.SideLobeLevel, Optional(DoubleNear(-11.5, 1e-9)));
  EXPECT_THAT(figures.SideLobeAngle, Optional(DoubleNear(200, 1e-9)));
}

TEST(Figures, ABumpOfLessThanADecibelIsNoLobe) {
  for (const double bump : {0.9, 1.1}) {
    PatternCut cut = Turn(ParabolicBeam(0, 30, 25));
    cut.LevelDb[150] += bump;
    EXPECT_EQ(Of(cut).SideLobeLevel.has_value(), bump > 1.0) << bump;
  }
}

TEST(Figures, TheRearLobeOfADipoleIsASideLobeOfTheSameLevel) {
  const auto dipole = [](double d) {
    return 20.0 * std::log10(std::max(1e-3, std::abs(std::cos(Radians(d)))));
  };
  const CutFigures figures = Of(Turn(dipole));
  EXPECT_THAT(figures.SideLobeLevel, Optional(DoubleNear(0.0, 1e-9)));
  EXPECT_THAT(figures.SideLobeAngle, Optional(DoubleNear(180, 1e-9)));
  EXPECT_THAT(figures.FrontToBack, Optional(DoubleNear(0.0, 1e-9)));
  EXPECT_FALSE(std::signbit(*figures.FrontToBack));
}

TEST(Figures, ATurnThatEndsWhereItBeganIsClosed) {
  EXPECT_THAT(Of(Turn([](double d) { return std::cos(Radians(d)); })).Closure,
              Optional(DoubleNear(0.0, 1e-3)));
}

TEST(Figures, ASourceThatDriftsAndARotationTimeThatIsWrongLeaveTheTurnOpen) {
  const auto drifting = [](double d) { return std::cos(Radians(d)) - d / 360.0 * 2.0; };
  EXPECT_THAT(Of(Turn(drifting)).Closure, Optional(DoubleNear(-2.0, 0.01)));
  const auto tooShort = [](double d) { return 10.0 * std::cos(Radians(d * 350.0 / 360.0 + 90.0)); };
  EXPECT_THAT(Of(Turn(tooShort)).Closure, Optional(DoubleNear(10.0 * std::sin(Radians(10.0)), 0.05)));
}

TEST(Figures, DirectivityFromBeamwidthsTakesTheSecondPlaneFromTheElementRatio) {
  const PatternCut cut = Turn(ParabolicBeam(0, 30, 40));
  struct Row {
    double Ratio, Kraus, TaiPereira;
  };
  const Row rows[] = {{2.0, 7.58, 6.07}, {1.5, 8.83, 7.94}, {1.4, 9.13, 8.35}, {1.0, 10.59, 10.05}};
  for (const Row& row : rows) {
    const CutFigures figures = FiguresOfCut(cut, row.Ratio);
    EXPECT_THAT(figures.Directivity.Kraus, Optional(DoubleNear(row.Kraus, 0.005))) << row.Ratio;
    EXPECT_THAT(figures.Directivity.TaiPereira, Optional(DoubleNear(row.TaiPereira, 0.005))) << row.Ratio;
  }
  EXPECT_FALSE(FiguresOfCut(cut, std::nullopt).Directivity.Kraus);
}

TEST(Figures, IntegrationKnowsTheDirectivityOfPatternsThatHaveAClosedForm) {
  // Turned about its beam, a cardioid has 3 and cos^2 in power on both sides has 3 as well; a sphere has 1.
  const auto cardioid = [](double d) {
    return 20.0 * std::log10(std::max(1e-6, 0.5 + 0.5 * std::cos(Radians(d))));
  };
  EXPECT_THAT(Of(Turn(cardioid)).Directivity.Integrated, Optional(DoubleNear(10 * std::log10(3.0), 0.001)));
  const auto cosine = [](double d) {
    return 20.0 * std::log10(std::max(1e-6, std::abs(std::cos(Radians(d)))));
  };
  EXPECT_THAT(Of(Turn(cosine)).Directivity.Integrated, Optional(DoubleNear(10 * std::log10(3.0), 0.001)));
  EXPECT_THAT(Of(Turn([](double) { return 0.0; })).Directivity.Integrated, Optional(DoubleNear(0.0, 0.001)));
}

TEST(Figures, HalfATurnHasNoRearNoClosureAndNoNeighbourRoundItsEnds) {
  PatternCut cut = Turn(ParabolicBeam(90, 20, 40), 180, 270);
  for (std::size_t i = 0; i < 180; ++i) cut.LevelDb[i] = ParabolicBeam(90, 20, 40)(static_cast<double>(i));
  cut.StepDeg = 1;
  cut.FullTurn = false;
  const CutFigures figures = Of(cut);
  EXPECT_THAT(figures.Hpbw, Optional(DoubleNear(40, 1e-9)));
  EXPECT_THAT(figures.BeamCentre, Optional(DoubleNear(0, 1e-9)));
  EXPECT_FALSE(figures.FrontToBack);
  EXPECT_FALSE(figures.FrontToRear);
  EXPECT_FALSE(figures.FrontToRearSector);
  EXPECT_FALSE(figures.FrontToSide);
  EXPECT_FALSE(figures.Closure);
  EXPECT_FALSE(figures.Directivity.Integrated);
  std::rotate(cut.LevelDb.begin(), cut.LevelDb.begin() + 90, cut.LevelDb.end());
  EXPECT_FALSE(Of(cut).Hpbw) << "the beam lies at the end of the cut";
}

TEST(Figures, SideLobesOfHalfATurnAreFoundOnBothSidesOfTheBeam) {
  for (const std::size_t at : {30U, 150U}) {
    PatternCut cut = Turn(ParabolicBeam(90, 10, 30), 180);
    cut.StepDeg = 1;
    cut.FullTurn = false;
    for (std::size_t i = 0; i < 180; ++i) cut.LevelDb[i] = ParabolicBeam(90, 10, 30)(static_cast<double>(i));
    cut.LevelDb[at] = -12;
    EXPECT_THAT(Of(cut).SideLobeLevel, Optional(DoubleNear(-12, 1e-9))) << at;
  }
}

/// Half a turn of 1 degree a sample, from bearing 270.
PatternCut HalfTurn(std::vector<double> levelDb) {
  PatternCut cut;
  cut.StepDeg = 1;
  cut.StartDeg = 270;
  cut.FullTurn = false;
  cut.LevelDb = std::move(levelDb);
  return cut;
}

TEST(Figures, APeakAtAnEndOfHalfATurnLiesOnItsSample) {
  PatternCut cut = HalfTurn({0, -0.1, -0.3, -0.6, -1, -2, -4});
  EXPECT_THAT(Of(cut).PeakBearing, Optional(270.0));
  std::reverse(cut.LevelDb.begin(), cut.LevelDb.end());
  EXPECT_THAT(Of(cut).PeakBearing, Optional(276.0));
}

TEST(Figures, ABeamMayEndAtTheLastSampleOfHalfATurn) {
  EXPECT_THAT(Of(HalfTurn({-4, -2, -1, 0, -1, -2, -4})).Hpbw, Optional(DoubleNear(5, 1e-9)));
  EXPECT_FALSE(Of(HalfTurn({-4, -2, -1, 0, -1, -2})).Hpbw);
}

TEST(Figures, ANarrowBeamOfHalfATurnIsNoSideLobeOfItself) {
  const CutFigures figures = Of(HalfTurn({-20, -9, -20, -20, -2, 0, -2, -20, -20}));
  EXPECT_THAT(figures.SideLobeLevel, Optional(-9.0));
}

TEST(Figures, TheLastSampleOfHalfATurnEndsASideLobe) {
  EXPECT_THAT(Of(HalfTurn({-20, -20, -2, 0, -2, -20, -9, -20})).SideLobeLevel, Optional(-9.0));
  EXPECT_THAT(Of(HalfTurn({-20, -9, -20, -2, 0, -2, -20, -20})).SideLobeLevel, Optional(-9.0));
}

TEST(Figures, ASideLobeMayStandRightBesideThePeakAndFallByNoMoreThanADecibel) {
  EXPECT_THAT(Of(HalfTurn({0, -20, -9, -10, -9.5})).SideLobeLevel, Optional(-9.0));
}

TEST(Figures, ASideLobeBesideTheFirstSampleOfHalfATurnHasItsTopBetweenSamples) {
  const CutFigures figures = Of(HalfTurn({-16, -12, -13, -30, -10, 0, -10, -30, -30, -30}));
  EXPECT_THAT(figures.SideLobeAngle, Optional(DoubleNear(271.3, 1e-9)));
}

TEST(Figures, WhereverASideLobeOfHalfATurnLiesItsTopIsFoundBetweenSamples) {
  for (int at = 70; at <= 170; at += 5) {
    PatternCut cut = Turn(ParabolicBeam(40, 10, 30), 180);
    cut.StepDeg = 1;
    cut.FullTurn = false;
    for (std::size_t i = 0; i < 180; ++i) {
      const auto angle = static_cast<double>(i);
      cut.LevelDb[i] =
          std::max(ParabolicBeam(40, 10, 30)(angle), -12 + ParabolicBeam(at + 0.3, 8, 30)(angle));
    }
    EXPECT_THAT(Of(cut).SideLobeAngle, Optional(DoubleNear(at + 0.3, 1e-9))) << at;
  }
}

TEST(Figures, TheCutIsThePlottedPartOfTheRecord) {
  ReadingsRecord record = BeamRecord(370 - 10, 40, 500.F);
  record.TrimFront = 20;
  record.TrimEnd = 40;
  record.Rotate = 15.F;
  const auto cut = CutOf(record);
  ASSERT_TRUE(cut);
  EXPECT_EQ(cut->LevelDb.size(), 300U);
  EXPECT_DOUBLE_EQ(cut->StepDeg, 1.2);
  EXPECT_DOUBLE_EQ(cut->BearingOf(20), 39.0);
  EXPECT_DOUBLE_EQ(cut->LevelDb[20], 0.0);
  record.Plot180 = true;
  EXPECT_DOUBLE_EQ(CutOf(record)->StepDeg, 0.6);
  EXPECT_DOUBLE_EQ(CutOf(record)->StartDeg, 270.0);
}

TEST(Figures, AReadingBelowOneHasADecibelValue) {
  ReadingsRecord record = BeamRecord();
  record.Readings(7) = 0.5F;
  EXPECT_TRUE(FiguresOfRecord(record).Hpbw);
}

TEST(Figures, LevelsAreBelowTheStrongestHoweverWeakItIs) {
  ReadingsRecord record = BeamRecord();
  for (int i = 0; i <= record.NumReadings; ++i) record.Readings(i) *= 1e-4F;
  const auto cut = CutOf(record);
  ASSERT_TRUE(cut);
  EXPECT_THAT(cut->LevelDb, ::testing::Contains(0.0));
  EXPECT_THAT(cut->LevelDb, ::testing::Each(::testing::Le(0.0)));
}

TEST(Figures, AReadingWithoutADecibelValueOrTooFewReadingsHaveNoFigures) {
  ReadingsRecord record = BeamRecord();
  record.Elements = "3";
  EXPECT_TRUE(FiguresOfRecord(record).Directivity.Kraus);
  record.Elements = "1";
  EXPECT_FALSE(FiguresOfRecord(record).Directivity.Kraus);
  record.Readings(7) = 0.F;
  EXPECT_FALSE(FiguresOfRecord(record).Hpbw);
  EXPECT_FALSE(FiguresOfRecord(record).Ripple);
  EXPECT_FALSE(Of(Turn([](double d) { return d; }, 2)).Ripple);
  EXPECT_TRUE(Of(Turn([](double d) { return d; }, 3)).Ripple);
}

}  // namespace
}  // namespace lobegraph
