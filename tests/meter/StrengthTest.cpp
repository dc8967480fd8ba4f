// What a radio's daemon answers, and what is published of it.
#include "meter/Strength.h"

namespace lobegraph {
namespace {

TEST(Strength, IsTheNumberThatTheDaemonAnswers) {
  EXPECT_EQ(ParseStrength("-54"), -54.0);
  EXPECT_EQ(ParseStrength("12.5"), 12.5);
  for (const char* answer : {"RPRT -11", "", "S9", "5 dB", "1e308", "-1001", "1e999"})
    EXPECT_EQ(ParseStrength(answer), std::nullopt) << answer;
}

TEST(Strength, TheReferenceIsPublishedAsMinus5) {
  EXPECT_EQ(PublishedText(40, 40), "-5.00");
  EXPECT_EQ(PublishedText(-14, 40), "-59.00");
  EXPECT_EQ(PublishedText(43.5, 40), "-1.50");
}

TEST(CalibrationTable, WithoutLinesChangesNothing) {
  EXPECT_EQ(Calibration::FromText("").TrueDb(-12), -12);
  EXPECT_EQ(Calibration::FromText("# nothing\n\n").TrueDb(7), 7);
}

TEST(CalibrationTable, IsLinearBetweenItsLinesInAnyOrder) {
  const Calibration table = Calibration::FromText("20 14 # above S9\n0 0\n\n40\t40\n");
  EXPECT_DOUBLE_EQ(table.TrueDb(0), 0);
  EXPECT_DOUBLE_EQ(table.TrueDb(10), 7);
  EXPECT_DOUBLE_EQ(table.TrueDb(20), 14);
  EXPECT_DOUBLE_EQ(table.TrueDb(30), 27);
  EXPECT_DOUBLE_EQ(table.TrueDb(40), 40);
}

TEST(CalibrationTable, BeyondItsEndsTheLastErrorHolds) {
  const Calibration table = Calibration::FromText("0 3\n20 14\n");
  EXPECT_DOUBLE_EQ(table.TrueDb(-10), -7);
  EXPECT_DOUBLE_EQ(table.TrueDb(30), 24);
}

TEST(CalibrationTable, ALineThatIsNoneIsNamed) {
  for (const char* text : {"0 0\n1\n", "0 0\na b\n", "0 0\n1 2 3\n", "0 0\n1 1e308\n"}) {
    try {
      Calibration::FromText(text);
      ADD_FAILURE() << text;
    } catch (const std::runtime_error& error) {
      EXPECT_STREQ(error.what(), "line 2 of the calibration is not two numbers");
    }
  }
}

TEST(CalibrationTable, TwoTruthsForOneValueAreRefused) {
  EXPECT_THROW(Calibration::FromText("1 2\n1 3\n"), std::runtime_error);
}

}  // namespace
}  // namespace lobegraph
