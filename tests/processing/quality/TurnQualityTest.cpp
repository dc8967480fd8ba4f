#include "processing/quality/TurnQuality.h"

#include <gtest/gtest.h>

#include "processing/quality/TurnFixture.h"

namespace lobegraph {
namespace {

using test::CleanTurn;

TEST(TurnQualityTest, AGoodTurnSaysHowGoodItIs) {
  EXPECT_EQ(QualityOf(CleanTurn()).Sentence(),
            "The turn closes within 0.0 dB; floor -41 dB; nothing clipped.");
  EXPECT_EQ(QualityOf(CleanTurn()).Worst(), nullptr);
}

TEST(TurnQualityTest, WhatIsNotKnownIsNotPraised) {
  TurnReadings turn = CleanTurn();
  turn.WholeTurn = false;
  EXPECT_EQ(QualityOf(turn).Sentence(), "Floor -41 dB; nothing clipped.");
  turn.Details.clear();
  EXPECT_EQ(QualityOf(turn).Sentence(), "");
}

TEST(TurnQualityTest, TheWorstComesFirst) {
  TurnReadings turn = CleanTurn();
  turn.Late = {3};
  turn.Levels[60] *= 2.0F;
  EXPECT_EQ(QualityOf(turn).Worst()->Kind, QualityKind::Spikes) << "both doubtful: the weightier";
  turn.Silent = {5, 6};
  EXPECT_EQ(QualityOf(turn).Sentence(),
            "The source had nothing new to say in readings 6 to 7. Check the source and its cable, and take "
            "the turn again.");
  turn.Details[0].Clipped = 1000;
  EXPECT_EQ(QualityOf(turn).Worst()->Kind, QualityKind::Clipping);
}

TEST(TurnQualityTest, EveryKindIsLookedAtOnceInTheOrderOfItsWeight) {
  const TurnQuality quality = QualityOf({});
  ASSERT_EQ(quality.Items.size(), static_cast<std::size_t>(QualityKind::Late) + 1);
  for (std::size_t i = 0; i < quality.Items.size(); ++i)
    EXPECT_EQ(static_cast<std::size_t>(quality.Items[i].Kind), i);
}

TEST(TurnQualityTest, ATurnOfNoReadingsAndOneOfOneAreNoFault) {
  EXPECT_EQ(QualityOf({}).Worst(), nullptr);
  TurnReadings one;
  one.Levels = {5.0F};
  EXPECT_EQ(QualityOf(one).Worst(), nullptr);
}

TEST(TurnQualityTest, CanBeReadAsText) {
  TurnReadings turn = CleanTurn();
  turn.Late = {3};
  const std::string text = QualityOf(turn).Text();
  EXPECT_NE(text.find("Clipping: nothing clipped (good)\n"), std::string::npos) << text;
  EXPECT_NE(
      text.find("Late readings: reading 4 (doubtful). Close what else is busy on this computer, and take the "
                "turn again.\n"),
      std::string::npos);
  EXPECT_NE(text.find("Drift: not measured (not known)\n"), std::string::npos);
}

TEST(TurnQualityTest, EveryKindHasANameAndEveryVerdictAWord) {
  for (int kind = 0; kind <= static_cast<int>(QualityKind::Late); ++kind)
    EXPECT_FALSE(NameOf(static_cast<QualityKind>(kind)).empty());
  EXPECT_EQ(WordOf(Verdict::Good), "good");
  EXPECT_EQ(WordOf(Verdict::NotKnown), "not known");
  EXPECT_EQ(WordOf(Verdict::Doubtful), "doubtful");
  EXPECT_EQ(WordOf(Verdict::Bad), "bad");
}

}  // namespace
}  // namespace lobegraph
