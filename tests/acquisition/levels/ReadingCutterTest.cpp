#include "acquisition/levels/ReadingCutter.h"

#include <gtest/gtest.h>

#include <random>

namespace lobegraph {
namespace {

/// Frames whose left sample counts them, whose right one is its opposite.
std::vector<std::int16_t> Counted(std::int64_t first, std::int64_t frames) {
  std::vector<std::int16_t> sound;
  for (std::int64_t frame = first; frame < first + frames; ++frame) {
    sound.push_back(static_cast<std::int16_t>(frame % 30'000));
    sound.push_back(static_cast<std::int16_t>(-(frame % 30'000)));
  }
  return sound;
}

void Hear(ReadingCutter& cutter, std::int64_t frames) { cutter.Hear(Counted(cutter.Heard(), frames)); }

TEST(ReadingCutterTest, AReadingComesWhenAllItsFramesHave) {
  ReadingCutter cutter(1000);
  Hear(cutter, 100);
  EXPECT_EQ(cutter.Open(100), 100);
  cutter.Close(300);
  EXPECT_FALSE(cutter.Next());
  Hear(cutter, 199);
  EXPECT_FALSE(cutter.Next());
  Hear(cutter, 1);
  const auto reading = cutter.Next();
  ASSERT_TRUE(reading);
  EXPECT_EQ(reading->First, 100);
  EXPECT_EQ(reading->Samples, Counted(100, 200));
  EXPECT_FALSE(cutter.Next());
}

TEST(ReadingCutterTest, EachFrameBelongsToExactlyOneReading) {
  std::mt19937 random(11);
  ReadingCutter cutter(500);
  Hear(cutter, 700);
  std::int64_t end = cutter.Open(800);
  std::int64_t expected = end;
  std::int64_t frames = 0;
  int readings = 0;
  for (int round = 0; round < 5000; ++round) {
    if (random() % 3 == 0) cutter.Close(end += static_cast<std::int64_t>(random() % 900));
    Hear(cutter, static_cast<std::int64_t>(random() % 300));
    while (const auto reading = cutter.Next()) {
      EXPECT_EQ(reading->First, expected);
      ASSERT_EQ(reading->Samples, Counted(expected, reading->Frames()));
      expected = reading->End();
      frames += reading->Frames();
      ++readings;
    }
  }
  EXPECT_GT(readings, 1500);
  EXPECT_EQ(frames, expected - 800) << "none twice, none dropped";
}

TEST(ReadingCutterTest, ABoundaryBehindTheLastOneMakesAnEmptyReading) {
  ReadingCutter cutter(1000);
  Hear(cutter, 1000);
  cutter.Open(500);
  cutter.Close(700);
  cutter.Close(650);
  cutter.Close(800);
  EXPECT_EQ(cutter.Next()->Frames(), 200);
  EXPECT_EQ(cutter.Next()->Frames(), 0);
  EXPECT_EQ(cutter.Next()->Frames(), 100);
}

TEST(ReadingCutterTest, AReadingIsOpenedAsFarBackAsIsKept) {
  ReadingCutter cutter(100);
  Hear(cutter, 1000);
  EXPECT_EQ(cutter.Open(0), 900);
}

TEST(ReadingCutterTest, NoFrameOfAnEarlierReadingIsUsedAgain) {
  ReadingCutter cutter(1000);
  Hear(cutter, 1000);
  cutter.Open(100);
  cutter.CloseLast(600);
  EXPECT_FALSE(cutter.IsOpen());
  EXPECT_EQ(cutter.Open(300), 600);
}

TEST(ReadingCutterTest, WithoutAnOpenReadingAnEndMeansNothing) {
  ReadingCutter cutter(1000);
  Hear(cutter, 1000);
  cutter.Close(500);
  EXPECT_FALSE(cutter.Next());
}

TEST(ReadingCutterTest, LostFramesAreSilenceAndCounted) {
  ReadingCutter cutter(1000);
  Hear(cutter, 100);
  cutter.Open(100);
  Hear(cutter, 50);
  cutter.HearGap(30);
  Hear(cutter, 120);
  cutter.Close(160);
  cutter.Close(200);
  cutter.Close(300);
  const auto first = cutter.Next();
  EXPECT_EQ(first->Missing, 10);
  EXPECT_EQ(first->Samples[2 * 55], 0);
  const auto second = cutter.Next();
  EXPECT_EQ(second->Missing, 20);
  EXPECT_EQ(second->Samples[2 * 20], 180) << "the count goes on";
  EXPECT_EQ(cutter.Next()->Missing, 0);
}

TEST(ReadingCutterTest, TheNewestFramesAreAtMostThoseKept) {
  ReadingCutter cutter(100);
  EXPECT_EQ(cutter.Newest(50).Frames(), 0);
  Hear(cutter, 1000);
  const SoundStretch newest = cutter.Newest(50);
  EXPECT_EQ(newest.First, 950);
  EXPECT_EQ(newest.Samples, Counted(950, 50));
  EXPECT_EQ(cutter.Newest(5000).Frames(), 100);
}

}  // namespace
}  // namespace lobegraph
