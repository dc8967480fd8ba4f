#include "processing/CursorReading.h"

#include <gtest/gtest.h>

#include <cmath>

namespace lobegraph {
namespace {

/// A whole turn whose level falls by a tenth of a dB with each reading.
ReadingsRecord Falling(int readings = 360) {
  ReadingsRecord record;
  for (int index = 0; index < readings; ++index)
    record.Readings(index) = static_cast<float>(1000.0 * std::pow(10.0, -index / 200.0));
  record.NumReadings = static_cast<std::int16_t>(readings - 1);
  record.ReadingCount = readings;
  return record;
}

TEST(CursorReading, IsTheReadingNextToTheBearing) {
  const auto reading = ReadingAt(Falling(), 47.4);
  ASSERT_TRUE(reading);
  EXPECT_EQ(reading->Number, 48);
  EXPECT_EQ(reading->Of, 360);
  EXPECT_NEAR(reading->BearingDeg, 47.0, 1e-9);
  EXPECT_NEAR(reading->LevelDb, -4.7, 1e-3);
  EXPECT_EQ(CursorText(*reading), "Bearing 47: -4.7 dB, reading 48 of 360.");
}

TEST(CursorReading, BearingsGoAroundInBothDirections) {
  EXPECT_EQ(ReadingAt(Falling(), -1.0)->Number, 360);
  EXPECT_EQ(ReadingAt(Falling(), 359.6)->Number, 1);
  EXPECT_EQ(ReadingAt(Falling(), 361.0)->Number, 2);
}

TEST(CursorReading, FollowsTheRotationAndTheTrims) {
  ReadingsRecord record = Falling();
  record.Rotate = 90.F;
  EXPECT_EQ(ReadingAt(record, 90.0)->Number, 1);
  EXPECT_NEAR(ReadingAt(record, 90.0)->BearingDeg, 90.0, 1e-6);
  record = Falling();
  record.TrimFront = 60;
  record.TrimEnd = 60;
  const auto first = ReadingAt(record, 0.0);
  EXPECT_EQ(first->Number, 61) << "trimmed readings are counted";
  EXPECT_NEAR(first->LevelDb, 0.0, 1e-6) << "the strongest of those that are plotted";
  EXPECT_EQ(ReadingAt(record, 180.0)->Number, 181) << "240 readings stand 1.5 degrees apart";
}

TEST(CursorReading, AHalfTurnHasEnds) {
  ReadingsRecord record = Falling();
  record.Plot180 = true;
  EXPECT_EQ(ReadingAt(record, 270.0)->Number, 1);
  EXPECT_EQ(ReadingAt(record, 269.9)->Number, 1) << "less than half a step before it";
  EXPECT_EQ(ReadingAt(record, 0.0)->Number, 181);
  EXPECT_FALSE(ReadingAt(record, 180.0));
  EXPECT_FALSE(ReadingAt(record, 95.0));
}

TEST(CursorReading, NoneWithoutLevels) {
  EXPECT_FALSE(ReadingAt(ReadingsRecord{}, 0.0));
  ReadingsRecord silent = Falling();
  silent.Readings(7) = 0.F;
  EXPECT_FALSE(ReadingAt(silent, 100.0));
}

TEST(CursorReading, StepsBeginAtTheStrongestAndGoAround) {
  ReadingsRecord record = Falling();
  record.Readings(100) = 2000.F;
  EXPECT_EQ(ReadingBeside(record, 0, 5)->Number, 101) << "the first key shows where it is";
  EXPECT_EQ(ReadingBeside(record, 101, 1)->Number, 102);
  EXPECT_EQ(ReadingBeside(record, 1, -1)->Number, 360);
  EXPECT_EQ(ReadingBeside(record, 360, 10)->Number, 10);
  EXPECT_EQ(ReadingBeside(record, 999, 1)->Number, 101) << "a reading of a longer pattern";
  record.Plot180 = true;
  EXPECT_EQ(ReadingBeside(record, 1, -1)->Number, 1);
  EXPECT_EQ(ReadingBeside(record, 360, 1)->Number, 360);
}

TEST(CursorReading, TextHasADecimalOnlyWhereItIsNeededAndNever360) {
  EXPECT_EQ(CursorText({.BearingDeg = 12.53, .LevelDb = -0.04, .Number = 9, .Of = 240}),
            "Bearing 12.5: 0.0 dB, reading 9 of 240.");
  EXPECT_EQ(CursorText({.BearingDeg = 359.97, .LevelDb = 0.0, .Number = 1, .Of = 1}),
            "Bearing 0: 0.0 dB, reading 1 of 1.");
}

}  // namespace
}  // namespace lobegraph
