#include "acquisition/sound/SoundLevel.h"

#include <gtest/gtest.h>

#include "support/SoundFakes.h"

namespace lobegraph {
namespace {

using test::BlockOf;
using test::BytesOf;
using test::SleepingClock;

float LevelOf(const std::vector<std::int16_t>& samples) {
  SoundLevelState state;
  AnalyseSoundBlock(BytesOf(samples), state);
  EXPECT_EQ(state.SoundPeak, 0) << "the peak is put back after each block";
  return state.SoundLevel;
}

std::vector<std::int16_t> SilenceBut(std::size_t at, std::int16_t sample) {
  std::vector<std::int16_t> samples(882, 0);
  samples[at] = sample;
  return samples;
}

TEST(SoundBlock, LevelIsTheLargestSampleDividedBy32) {
  EXPECT_EQ(LevelOf(SilenceBut(0, 3200)), 100.0F);
  EXPECT_EQ(LevelOf(SilenceBut(7, -3216)), 100.5F);
  EXPECT_EQ(LevelOf({100, -640, 320, 0, 0, 0, 0, 0}), 20.0F);
}

TEST(SoundBlock, SilenceIsLevel0) { EXPECT_EQ(LevelOf(std::vector<std::int16_t>(882, 0)), 0.0F); }

TEST(SoundBlock, TheSampleWithoutAnOppositeCountsAs32767) {
  EXPECT_EQ(LevelOf(SilenceBut(10, -32768)), 32767.0F / 32);
  EXPECT_NEAR(LevelOf(SilenceBut(10, 32767)), 1023.97F, 0.002F);
}

TEST(SoundBlock, DeliberateOnlyTheFirstHalfOfABlockIsHeard) {
  EXPECT_EQ(LevelOf(SilenceBut(440, 32000)), 1000.0F) << "bytes 880 and 881 are the last that count";
  EXPECT_EQ(LevelOf(SilenceBut(441, 32000)), 0.0F) << "byte 882 begins the half that does not";
  EXPECT_EQ(LevelOf(SilenceBut(881, 32000)), 0.0F);
}

TEST(SoundBlock, BothChannelsCount) {
  EXPECT_EQ(LevelOf(SilenceBut(100, 320)), 10.0F);
  EXPECT_EQ(LevelOf(SilenceBut(101, 320)), 10.0F);
}

TEST(SoundBlock, ANewBlockReplacesTheLevelOfTheLast) {
  SoundLevelState state;
  AnalyseSoundBlock(BlockOf(3200), state);
  AnalyseSoundBlock(BlockOf(320), state);
  EXPECT_EQ(state.SoundLevel, 10.0F);
}

TEST(SoundBlock, AnEmptyBlockIsSilence) { EXPECT_EQ(LevelOf({}), 0.0F); }

TEST(SoundBlock, OfASingleSampleItsFirstByteIsHeard) { EXPECT_EQ(LevelOf({0x7F40}), 2.0F); }

struct ColourCase {
  float Peak, Level;
  SoundColour Colour;
};

TEST(SoundThresholds, ColoursChangeAt120And60BelowThePeak) {
  const ColourCase cases[] = {
      {1000, 0, SoundColour::TooWeak},     {1000, 879, SoundColour::TooWeak},
      {1000, 880, SoundColour::Good},      {1000, 900, SoundColour::Good},
      {1000, 939.9F, SoundColour::Good},   {1000, 940, SoundColour::Overload},
      {1000, 1000, SoundColour::Overload}, {500, 379.9F, SoundColour::TooWeak},
      {500, 380, SoundColour::Good},       {500, 440, SoundColour::Overload},
      {90, 0, SoundColour::Good},
  };
  for (const ColourCase& c : cases)
    EXPECT_EQ(SoundThresholds::FromPeak(c.Peak).ColourOf(c.Level), c.Colour) << c.Peak << " " << c.Level;
}

TEST(SoundThresholds, DefaultsBelongToTheDefaultPeak) {
  const SoundThresholds fromPeak = SoundThresholds::FromPeak(1000);
  EXPECT_EQ(SoundThresholds{}.Low, fromPeak.Low);
  EXPECT_EQ(SoundThresholds{}.Overload, fromPeak.Overload);
}

class SoundRead : public ::testing::Test {
 protected:
  SoundReading Read(float level, bool inputReady = true, float peak = 1000) {
    state_.SoundLevel = level;
    return ReadSoundLevel(state_, inputReady, peak, SoundThresholds::FromPeak(peak), clock_);
  }
  SoundLevelState state_;
  SleepingClock clock_;
};

TEST_F(SoundRead, AnInputThatIsNotReadyReads1AndKeepsTheColour) {
  const SoundReading reading = Read(500, false);
  EXPECT_EQ(reading.Level, 1.0F);
  EXPECT_FALSE(reading.Colour);
  EXPECT_EQ(state_.SoundLevel, 500.0F);
}

TEST_F(SoundRead, ALevelWithinTheRangeIsReadAsItIs) {
  EXPECT_EQ(Read(900).Level, 900.0F);
  EXPECT_EQ(Read(900).Colour, SoundColour::Good);
  EXPECT_EQ(Read(879).Colour, SoundColour::TooWeak);
}

TEST_F(SoundRead, AboveThePeakTheSharedLevelItselfIsBroughtDown) {
  const SoundReading reading = Read(1023);
  EXPECT_EQ(reading.Level, 1000.0F);
  EXPECT_EQ(reading.Colour, SoundColour::Overload);
  EXPECT_EQ(state_.SoundLevel, 1000.0F);
}

TEST_F(SoundRead, SilenceReads1ButTheSharedLevelStays0) {
  const SoundReading reading = Read(0);
  EXPECT_EQ(reading.Level, 1.0F);
  EXPECT_EQ(reading.Colour, SoundColour::TooWeak);
  EXPECT_EQ(state_.SoundLevel, 0.0F);
}

TEST_F(SoundRead, LevelsBelow1Read1) {
  EXPECT_EQ(Read(0.96875F).Level, 1.0F);
  EXPECT_EQ(Read(1.0F).Level, 1.0F);
  EXPECT_EQ(Read(1.03125F).Level, 1.03125F);
}

TEST_F(SoundRead, EachReadEndsOnTheNextMillisecondTickSoThatACollectionSleeps) {
  Read(300);
  EXPECT_EQ(clock_.ticks, 1);
  Read(300, false);
  EXPECT_EQ(clock_.ticks, 2)
      << "waiting for a source that is not ready must not keep a processor busy either";
}

TEST_F(SoundRead, ASumOverTheLongestReadingKeepsAConstantLevelExact) {
  float sum = 0;
  int count = 0;
  const std::int32_t longestReadingMs = 20 * 60 * 1000 / 360;
  while (clock_.now < longestReadingMs) sum += Read(300).Level, ++count;
  EXPECT_EQ(sum / static_cast<float>(count), 300.0F);
}

}  // namespace
}  // namespace lobegraph
