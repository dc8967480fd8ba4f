#include "processing/Directivity.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "data/base/RunTimeError.h"
#include "support/TestRecord.h"

namespace lobegraph {
namespace {

/// Simpson over the same points, written out once more in its textbook form.
double ReferenceDirectivity(const ReadingsRecord& record, int strongest) {
  const int n = record.ReadingsPlotted % 2 == 0 ? record.ReadingsPlotted - 1 : record.ReadingsPlotted;
  const int first = record.TrimFront;
  const double peak = record.Readings(strongest);
  double sum = 0;
  for (int j = 1; j <= n; ++j) {
    const int index = first + (strongest - first + j - 1) % record.ReadingsPlotted;
    const double f = std::pow(record.Readings(index) / peak, 2) * std::abs(std::sin(2 * 3.141593 * j / n));
    sum += f * (j == 1 || j == n ? 1 : (j % 2 == 0 ? 4 : 2));
  }
  return 10 * std::log10(4 / (sum * (6.283186 / n) / 3));
}

ReadingsRecord Plotted(int count, int at) {
  ReadingsRecord record = BeamRecord(count, at);
  record.ReadingsPlotted = static_cast<std::int16_t>(count);
  return record;
}

TEST(DirectivityTest, ACardioidOfRevolutionHasTheTextbookDirectivityOf3) {
  // D = 4 / integral of ((1 + cos)/2)^2 |sin| over the turn = 3, that is 4.77 dB.
  ReadingsRecord record;
  record.NumReadings = 358;
  record.ReadingsPlotted = 359;
  for (int i = 0; i < 359; ++i)
    record.Readings(i) = static_cast<float>(500 + 500 * std::cos(2 * std::numbers::pi * i / 359));
  EXPECT_NEAR(DirectivityByIntegration(record), 4.77, .02);
}

TEST(DirectivityTest, FollowsTheRuleFromTheStrongestReadingOn) {
  for (const auto& [count, at] : {std::pair{361, 0}, {181, 50}, {99, 98}, {61, 30}}) {
    const ReadingsRecord record = Plotted(count, at);
    EXPECT_NEAR(DirectivityByIntegration(record), ReferenceDirectivity(record, at), 1e-9) << count;
  }
}

TEST(DirectivityTest, AnEvenNumberOfReadingsIntegratesOnePointFewer) {
  const ReadingsRecord record = Plotted(100, 20);
  EXPECT_NEAR(DirectivityByIntegration(record), ReferenceDirectivity(record, 20), 1e-9);
}

TEST(DirectivityTest, LooksAtThePlottedRangeOnlyAndTakesTheFirstOfEqualMaxima) {
  ReadingsRecord record = Plotted(101, 40);
  record.TrimFront = 10;
  record.TrimEnd = 10;
  record.ReadingsPlotted = 81;
  record.Readings(5) = 5000.F;
  record.Readings(60) = record.Readings(40);
  EXPECT_NEAR(DirectivityByIntegration(record), ReferenceDirectivity(record, 40), 1e-9);
}

TEST(DirectivityTest, AZeroReadingContributesNothingAMaximumOf0IsAFault) {
  ReadingsRecord record = Plotted(101, 0);
  record.Readings(50) = 0.F;
  EXPECT_NO_THROW(DirectivityByIntegration(record));
  for (int i = 0; i < 101; ++i) record.Readings(i) = 0.F;
  try {
    DirectivityByIntegration(record);
    FAIL();
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), 6);
  }
}

struct CorrectionCase {
  const char* Elements;
  double Correction;
};

class ElementCorrectionTest : public ::testing::TestWithParam<CorrectionCase> {};

TEST_P(ElementCorrectionTest, FollowsTheNumberAndIsNegatedForVertical) {
  EXPECT_EQ(ElementCorrection(GetParam().Elements, true), GetParam().Correction);
  EXPECT_EQ(ElementCorrection(GetParam().Elements, false), -GetParam().Correction);
}

INSTANTIATE_TEST_SUITE_P(Rows, ElementCorrectionTest,
                         ::testing::Values(CorrectionCase{"  2", 3.0}, CorrectionCase{"3", 1.76},
                                           CorrectionCase{"4", 1.46}, CorrectionCase{"5", 1.14},
                                           CorrectionCase{"6", 1.76}, CorrectionCase{"7", 1.76},
                                           CorrectionCase{"8", .6}, CorrectionCase{"9", 1.76},
                                           CorrectionCase{"20", 1.76}, CorrectionCase{"> 8!", 0},
                                           CorrectionCase{"2.5", 3.0}, CorrectionCase{"1.6", 3.0}));

TEST(ElementCorrectionTest, BelowTwoElementsNothingIsShown) {
  for (const char* elements : {"1", "0", "", "-3", "1.5e0x", "1.4"})
    EXPECT_EQ(ElementCorrection(elements, true).has_value(), std::string_view(elements) == "1.5e0x")
        << elements;
  ReadingsRecord record = Plotted(101, 0);
  record.Elements = "1";
  EXPECT_FALSE(IntegratedGain(record));
}

TEST(IntegratedGainTest, IsTheDirectivityLessTheCorrection) {
  ReadingsRecord record = Plotted(101, 0);
  record.Elements = "2";
  EXPECT_NEAR(IntegratedGain(record).value_or(0), DirectivityByIntegration(record) - 3.0, 1e-9);
  record.PolarizationHorizontal = false;
  EXPECT_NEAR(IntegratedGain(record).value_or(0), DirectivityByIntegration(record) + 3.0, 1e-9);
}

}  // namespace
}  // namespace lobegraph
