#include "processing/quality/LevelChecks.h"

#include <gtest/gtest.h>

#include "processing/quality/TurnFixture.h"

namespace lobegraph {
namespace {

using test::CleanTurn;
using test::LevelAt;

TEST(ClippingTest, NothingClippedIsGood) {
  const QualityItem item = CheckClipping(CleanTurn());
  EXPECT_EQ(item.Found, Verdict::Good);
  EXPECT_EQ(item.Value, "nothing clipped");
  EXPECT_EQ(item.Number, 0.0);
  EXPECT_EQ(item.Finding, "");
}

TEST(ClippingTest, NamesTheArcAndSaysWhatToDo) {
  TurnReadings turn = CleanTurn();
  for (std::size_t i = 170; i <= 190; ++i) turn.Details[i].Clipped = 100;
  const QualityItem item = CheckClipping(turn);
  EXPECT_EQ(item.Found, Verdict::Bad);
  EXPECT_EQ(item.Arcs, (std::vector<Arc>{{170, 190}}));
  EXPECT_EQ(item.Finding, "The sound was clipped in readings 171 to 191.");
  EXPECT_NE(item.WhatToDo.find("Turn the receiver's audio down"), std::string::npos);
}

TEST(ClippingTest, AFewSamplesAreDoubtful) {
  TurnReadings turn = CleanTurn();
  turn.Details[5].Clipped = 7;
  EXPECT_EQ(CheckClipping(turn).Found, Verdict::Doubtful);
  turn.Details[5].Clipped = 8;
  EXPECT_EQ(CheckClipping(turn).Found, Verdict::Bad) << "more than a thousandth";
}

TEST(ClippingTest, OfAMeterNothingIsKnown) {
  TurnReadings turn = CleanTurn();
  turn.Details.clear();
  EXPECT_EQ(CheckClipping(turn).Found, Verdict::NotKnown);
  EXPECT_EQ(CheckClipping({}).Found, Verdict::NotKnown);
}

TEST(FloorTest, IsTheNoiseBelowTheBeam) {
  const QualityItem item = CheckFloor(CleanTurn());
  EXPECT_EQ(item.Found, Verdict::Good);
  EXPECT_NEAR(*item.Number, -41.0, 0.01);
  EXPECT_EQ(item.Value, "-41 dB");
  EXPECT_TRUE(item.Arcs.empty());
}

TEST(FloorTest, ReadingsNearItAreNamed) {
  TurnReadings turn = CleanTurn();
  for (std::size_t i = 20; i < 30; ++i) turn.Levels[i] = static_cast<float>(LevelAt(-31.5));
  const QualityItem item = CheckFloor(turn);
  EXPECT_EQ(item.Value, "-41 dB; less than 10 dB above it: readings 21 to 30");
  turn.Levels[25] = static_cast<float>(LevelAt(-30.9));
  EXPECT_EQ(CheckFloor(turn).Arcs.size(), 2U);
  turn.Levels[25] = 0.0F;
  EXPECT_EQ(CheckFloor(turn).Arcs.size(), 1U) << "silence is nearest of all";
}

TEST(FloorTest, AShallowOneIsDoubtfulThenBad) {
  const auto found = [](double db) {
    TurnReadings turn = CleanTurn();
    for (ReadingDetail& detail : turn.Details) detail.FloorLevel = static_cast<float>(LevelAt(db));
    return CheckFloor(turn);
  };
  EXPECT_EQ(found(-30.1).Found, Verdict::Good);
  EXPECT_EQ(found(-29.9).Found, Verdict::Doubtful);
  EXPECT_EQ(found(-19.9).Found, Verdict::Bad);
  EXPECT_EQ(found(-15.0).Finding, "The floor is only 15 dB below the beam: what is weaker is noise.");
  EXPECT_EQ(*found(5.0).Number, 0.0) << "noise above the beam";
}

TEST(FloorTest, IsTheMedianOverTheTurn) {
  TurnReadings turn = CleanTurn();
  for (std::size_t i = 0; i < 100; ++i) turn.Details[i].FloorLevel = 800.0F;
  EXPECT_NEAR(*FloorDb(turn), -41.0, 0.01);
}

TEST(FloorTest, WithoutNoiseThereIsNone) {
  TurnReadings turn = CleanTurn();
  for (ReadingDetail& detail : turn.Details) detail.FloorLevel.reset();
  EXPECT_FALSE(FloorDb(turn));
  EXPECT_EQ(CheckFloor(turn).Found, Verdict::NotKnown);
  EXPECT_FALSE(FloorDb({}));
}

TEST(SpikesTest, ASmoothTurnHasNone) {
  EXPECT_EQ(CheckSpikes(CleanTurn()).Found, Verdict::Good);
  EXPECT_EQ(CheckSpikes({}).Found, Verdict::Good);
}

TEST(SpikesTest, OneReadingOrTwoThatStandOutAreFound) {
  TurnReadings turn = CleanTurn();
  turn.Levels[60] *= 2.0F;
  turn.Levels[100] *= 1.6F;
  turn.Levels[101] *= 1.7F;
  turn.Levels[150] *= 0.5F;
  const QualityItem item = CheckSpikes(turn);
  EXPECT_EQ(item.Arcs, (std::vector<Arc>{{60, 60}, {100, 101}, {150, 150}}));
  EXPECT_EQ(item.Found, Verdict::Doubtful);
  EXPECT_EQ(item.Finding, "Spikes in readings 61, 101 to 102 and 151.");
}

TEST(SpikesTest, AtTheSeamOfAWholeTurnThereAreSpikesToo) {
  TurnReadings turn = CleanTurn();
  turn.Levels[0] *= 2.0F;
  EXPECT_EQ(CheckSpikes(turn).Arcs, (std::vector<Arc>{{0, 0}}));
  turn.WholeTurn = false;
  EXPECT_TRUE(CheckSpikes(turn).Arcs.empty()) << "an end has no neighbours on both sides";
}

TEST(SpikesTest, LessThan3DecibelsIsNone) {
  TurnReadings turn = CleanTurn();
  turn.Levels[60] *= 1.4F;
  EXPECT_TRUE(CheckSpikes(turn).Arcs.empty());
}

TEST(SpikesTest, ASharpNullIsNone) {
  TurnReadings turn = CleanTurn();
  for (int i = 0; i < 360; ++i)
    turn.Levels[static_cast<std::size_t>(i)] =
        static_cast<float>(900.0 * std::abs(std::cos((i - 180.5) * std::numbers::pi / 180.0)));
  EXPECT_TRUE(CheckSpikes(turn).Arcs.empty()) << "a dipole";
}

TEST(SpikesTest, ASetTooShortToTellHasNone) {
  TurnReadings turn = CleanTurn();
  turn.Levels = {1.0F, 1.0F, 9.0F, 1.0F, 1.0F, 1.0F};
  EXPECT_TRUE(CheckSpikes(turn).Arcs.empty());
}

}  // namespace
}  // namespace lobegraph
