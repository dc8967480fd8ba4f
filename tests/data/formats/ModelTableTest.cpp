#include "data/formats/ModelTable.h"

#include <gmock/gmock.h>

#include "data/base/RunTimeError.h"
#include "support/TextOf.h"

namespace lobegraph {
namespace {

using ::testing::Optional;

std::string NecRow(double theta, double phi, double total,
                   const char* rest = " 0.0000 -90.00 LINEAR 0.0E+00 0.0") {
  return " " + std::to_string(theta) + " " + std::to_string(phi) + " -999.99 2.1 " + std::to_string(total) +
         rest + "\n";
}

std::string NecHead() {
  return "  FREQUENCY : 1.4100E+01 MHz\n 1 2 3 4 5 6\n ---------- RADIATION PATTERNS -----------\n\n"
         " THETA PHI VERTC HORIZ TOTAL\n DEGREES DEGREES DB DB DB\n";
}

TEST(ModelTable, AnAzimuthCutTurnsClockwiseWithForwardAtTheTop) {
  std::string text = NecHead();
  for (int phi = 0; phi < 360; phi += 10) text += NecRow(90, phi, phi == 30 ? 7.5 : -phi / 100.0);
  const PatternTable table = ReadModelTable(TextOf(text));
  EXPECT_THAT(table.FrequencyMHz, Optional(14.1));
  EXPECT_THAT(table.GainDbi, Optional(7.5));
  EXPECT_EQ(table.Points.size(), 36U);
  EXPECT_EQ(WholeDegrees(table)[330], 0) << "phi counts counter-clockwise";
}

TEST(ModelTable, TheStrongestOfTheLongestAzimuthCutsIsTaken) {
  std::string text = NecHead();
  for (int theta = 60; theta <= 80; theta += 10)
    for (int phi = 0; phi < 360; phi += 10) text += NecRow(theta, phi, theta == 70 && phi == 50 ? 9 : 1);
  EXPECT_THAT(ReadModelTable(TextOf(text)).GainDbi, Optional(9.0));
}

TEST(ModelTable, AWholeSphereIsReadToItsEndHoweverLargeItIs) {
  std::string text = NecHead();
  for (int phi = 0; phi < 360; ++phi)
    for (int theta = 0; theta <= 90; ++theta) text += NecRow(theta, phi, phi == 350 && theta == 80 ? 9 : 1);
  EXPECT_GT(text.size(), 1U << 20U);
  const PatternTable table = ReadModelTable(TextOf(text));
  EXPECT_EQ(table.Points.size(), 360U);
  EXPECT_THAT(table.GainDbi, Optional(9.0));
  EXPECT_EQ(WholeDegrees(table)[10], 0) << "the last directions of the table";
}

TEST(ModelTable, HeadingsWithoutATableArePassedOver) {
  std::string text;
  for (int i = 0; i < 30'000; ++i) text += "RADIATION PATTERNS\n";
  for (int phi = 0; phi < 360; phi += 10) text += NecRow(90, phi, phi == 30 ? 2 : 1);
  EXPECT_EQ(WholeDegrees(ReadModelTable(TextOf(text)))[330], 0);
}

TEST(ModelTable, AHundredThousandHeadingsArePassedOverInOneWalk) {
  std::string text;
  for (int i = 0; i < 100'000; ++i) text += "RADIATION PATTERNS\n 1 2 3 4 5\n";
  EXPECT_THROW(ReadModelTable(TextOf(text)), RunTimeError);
}

TEST(ModelTable, AnElevationCutHasTheZenithAtTheTop) {
  std::string text = NecHead();
  for (int theta = -90; theta <= 90; theta += 5) text += NecRow(theta, 0, theta == 60 ? 6 : 0);
  const PatternTable table = ReadModelTable(TextOf(text));
  EXPECT_EQ(WholeDegrees(table)[60], 0);
  ReadingsRecord record;
  TakeUpTable(table, record);
  EXPECT_TRUE(record.Plot180);
}

TEST(ModelTable, ADirectionWithoutGainIsTheFaintestLevelAndTheSenseMayBeBlank) {
  std::string text = NecHead();
  for (int phi = 0; phi < 360; phi += 10)
    text += NecRow(90, phi, phi == 90 ? -999.99 : 2, phi == 90 ? " 0.0 0.0" : "");
  EXPECT_EQ(WholeDegrees(ReadModelTable(TextOf(text)))[270], kFaintestDb);
}

TEST(ModelTable, OnlyTheFirstPatternOfAFrequencySweepCounts) {
  std::string text = NecHead();
  for (int phi = 0; phi < 360; phi += 10) text += NecRow(90, phi, 1);
  text += "\n" + NecHead();
  for (int phi = 0; phi < 360; phi += 10) text += NecRow(90, phi, 20);
  EXPECT_THAT(ReadModelTable(TextOf(text)).GainDbi, Optional(1.0));
}

TEST(ModelTable, AFarFieldTableIsReadWithDecimalCommas) {
  std::string text =
      "Frequency = 14,15 MHz\n\nAzimuth Pattern   Elevation angle = 10 deg.\n\n"
      "Deg      V dB     H dB     Tot dB   V Pha  H Pha\n";
  for (int d = 0; d < 360; d += 5)
    text += std::to_string(d) + " -99,99 1,5 " + (d == 90 ? "8,25" : "-2,5") + " 0,0 12,1\n";
  text += "\n400 0 0 99\n";
  const PatternTable table = ReadModelTable(TextOf(text));
  EXPECT_THAT(table.FrequencyMHz, Optional(14.15));
  EXPECT_EQ(table.Points.size(), 72U) << "a blank line ends the cut";
  EXPECT_THAT(table.GainDbi, Optional(8.25));
  EXPECT_EQ(WholeDegrees(table)[270], 0);
}

TEST(ModelTable, AFarFieldElevationTableCountsFromTheHorizon) {
  std::string text = "Elevation Pattern  Azimuth angle = 0\nDeg V dB H dB Tot dB\n";
  for (int d = 0; d <= 180; d += 5) text += std::to_string(d) + " 0 0 " + (d == 30 ? "5" : "0") + "\n";
  EXPECT_EQ(WholeDegrees(ReadModelTable(TextOf(text)))[60], 0);
}

TEST(ModelTable, ATextWithoutATableIsRefused) {
  for (const std::string& text :
       {std::string(), std::string("hello"), NecHead(), NecHead() + NecRow(90, 0, 1)})
    EXPECT_THROW(ReadModelTable(TextOf(text)), RunTimeError);
}

}  // namespace
}  // namespace lobegraph
