#include "processing/quality/SoundChecks.h"

#include <gtest/gtest.h>

#include "processing/quality/TurnFixture.h"

namespace lobegraph {
namespace {

using test::CleanTurn;

TEST(LostTest, LostSoundIsNamed) {
  TurnReadings turn = CleanTurn();
  EXPECT_EQ(CheckLost(turn).Found, Verdict::Good);
  turn.Details[7].Missing = 441;
  EXPECT_EQ(CheckLost(turn).Found, Verdict::Doubtful);
  EXPECT_EQ(CheckLost(turn).Finding, "Sound was lost in reading 8.");
  turn.Details[7].Missing = 2000;
  EXPECT_EQ(CheckLost(turn).Found, Verdict::Bad) << "more than a fifth of a reading";
  turn.Details.clear();
  EXPECT_EQ(CheckLost(turn).Found, Verdict::NotKnown);
}

TEST(ToneCheckTest, TellsWhereTheToneWas) {
  TurnReadings turn = CleanTurn();
  turn.Details[10].ToneHz = 790.4F;
  turn.Details[300].ToneHz = 812.0F;
  const QualityItem item = CheckTone(turn);
  EXPECT_EQ(item.Value, "790 to 812 Hz");
  EXPECT_EQ(item.Number, 800.0);
  EXPECT_EQ(item.Found, Verdict::Good);
}

TEST(ToneCheckTest, OutOfReachIsBad) {
  TurnReadings turn = CleanTurn();
  for (std::size_t i = 0; i < 4; ++i) turn.Details[i].NoTone = true;
  for (std::size_t i = 350; i < 360; ++i) turn.Details[i].ToneLeft = true;
  const QualityItem item = CheckTone(turn);
  EXPECT_EQ(item.Found, Verdict::Bad);
  EXPECT_EQ(item.Finding, "The tone was out of reach in readings 1 to 4 and 351 to 360.");
}

TEST(ToneCheckTest, WithoutAToneNothingIsKnown) {
  TurnReadings turn = CleanTurn();
  turn.Details.clear();
  EXPECT_EQ(CheckTone(turn).Found, Verdict::NotKnown);
  EXPECT_EQ(CheckTone(turn).Value, "none");
}

TEST(KeyTest, PausesAreFilledAndCounted) {
  TurnReadings turn = CleanTurn();
  EXPECT_EQ(CheckKey(turn).Value, "no pauses");
  for (const std::size_t i : {3U, 4U, 50U}) turn.Details[i].KeyUp = true;
  turn.WordsPerMinute = 14.2;
  const QualityItem item = CheckKey(turn);
  EXPECT_EQ(item.Value, "filled: readings 4 to 5 and 51 (14 words a minute)");
  EXPECT_EQ(item.Found, Verdict::Good);
  EXPECT_EQ(item.Number, 3.0);
}

TEST(KeyTest, LongPausesSayHowSlowTheRotatorMustBe) {
  TurnReadings turn = CleanTurn();
  for (std::size_t i = 40; i < 45; ++i) turn.Details[i].KeyUp = true;
  EXPECT_EQ(CheckKey(turn).Found, Verdict::Good) << "five in a row";
  for (std::size_t i = 45; i < 48; ++i) turn.Details[i].KeyUp = true;
  const QualityItem item = CheckKey(turn);
  EXPECT_EQ(item.Found, Verdict::Doubtful);
  EXPECT_EQ(item.Finding, "The key was up for 8 readings in a row.");
  EXPECT_EQ(item.WhatToDo, "Turn the rotator in 96 s or slower.");
  turn.TurnSeconds = 0.0;
  EXPECT_EQ(CheckKey(turn).WhatToDo, "Turn the rotator more slowly.");
}

TEST(SilenceCheckTest, SilentReadingsAreBad) {
  TurnReadings turn = CleanTurn();
  EXPECT_EQ(CheckSilence(turn).Found, Verdict::Good);
  turn.Silent = {12, 13, 14};
  EXPECT_EQ(CheckSilence(turn).Found, Verdict::Bad);
  EXPECT_EQ(CheckSilence(turn).Finding, "The source had nothing new to say in readings 13 to 15.");
}

TEST(LateTest, AFewLateReadingsAreDoubtfulManyAreBad) {
  TurnReadings turn = CleanTurn();
  EXPECT_EQ(CheckLate(turn).Found, Verdict::Good);
  for (int i = 0; i < 18; ++i) turn.Late.push_back(i);
  EXPECT_EQ(CheckLate(turn).Found, Verdict::Doubtful);
  turn.Late.push_back(18);
  EXPECT_EQ(CheckLate(turn).Found, Verdict::Bad);
  EXPECT_EQ(CheckLate(turn).Finding, "The turn was late in readings 1 to 19.");
}

TEST(ArcsTest, NeighboursAreOneArc) {
  EXPECT_TRUE(ArcsOf({}).empty());
  EXPECT_EQ(ArcsOf({1, 2, 3, 7, 9, 10}), (std::vector<Arc>{{1, 3}, {7, 7}, {9, 10}}));
  EXPECT_EQ(CountOf(ArcsOf({1, 2, 3, 7, 9, 10})), 6);
}

TEST(ArcsTest, AreNamedAsTheWindowCounts) {
  EXPECT_EQ(ArcText(ArcsOf({11})), "reading 12");
  EXPECT_EQ(ArcText(ArcsOf({11, 12})), "readings 12 to 13");
  EXPECT_EQ(ArcText(ArcsOf({11, 30})), "readings 12 and 31");
  EXPECT_EQ(ArcText(ArcsOf({11, 30, 31, 50})), "readings 12, 31 to 32 and 51");
  EXPECT_EQ(ArcText(ArcsOf({1, 10, 11, 20, 30, 31, 32})), "readings 2, 11 to 12, 31 to 33 and 1 more")
      << "the longest are named";
}

}  // namespace
}  // namespace lobegraph
