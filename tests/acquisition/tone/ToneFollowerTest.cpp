#include "acquisition/tone/ToneFollower.h"

#include <gtest/gtest.h>

#include "support/SoundSamples.h"

namespace lobegraph {
namespace {

constexpr double kRate = test::kSampleRate;
constexpr std::size_t kReading = 7350;
constexpr double kReadingSeconds = kReading / kRate;

class FollowedTone {
 public:
  explicit FollowedTone(double foundHz) { Follower.Begin(foundHz); }

  void Hear(double hz, double amplitude = 1000.0) {
    auto sound = test::BandNoise(kReading, 20.0, ++seed_);
    sound = test::Mixed(sound, test::Sine(kReading, hz, amplitude));
    Follower.Follow(maker_.Of(sound), kReadingSeconds);
  }
  ToneFollower Follower;

 private:
  SpectrumMaker maker_{kRate};
  std::uint64_t seed_ = 0;
};

TEST(ToneFollowerTest, BeforeAToneIsFoundThereIsNone) {
  ToneFollower follower;
  follower.Follow(SpectrumMaker(kRate).Of(test::Sine(kReading, 800.0, 1000.0)), kReadingSeconds);
  EXPECT_FALSE(follower.Hz());
}

TEST(ToneFollowerTest, GoesToTheToneSlowly) {
  FollowedTone tone(800.0);
  tone.Hear(806.0);
  EXPECT_NEAR(*tone.Follower.Hz(), 800.9, 0.2) << "a sixth of a second of the way";
  for (int i = 0; i < 30; ++i) tone.Hear(806.0);
  EXPECT_NEAR(*tone.Follower.Hz(), 806.0, 0.3);
}

TEST(ToneFollowerTest, KeepsUpWithADrift) {
  FollowedTone tone(800.0);
  for (int i = 0; i < 360; ++i) tone.Hear(800.0 + 0.7 * i * kReadingSeconds);
  EXPECT_NEAR(*tone.Follower.Hz(), 800.0 + 0.7 * 359 * kReadingSeconds, 1.5);
  EXPECT_FALSE(tone.Follower.HasLeft());
}

TEST(ToneFollowerTest, StaysWhileNothingStandsOutAndFindsTheToneAgainNearBy) {
  FollowedTone tone(800.0);
  for (int i = 0; i < 60; ++i) tone.Hear(800.0, 0.0);
  EXPECT_NEAR(*tone.Follower.Hz(), 800.0, 2.0) << "noise";
  for (int i = 0; i < 30; ++i) tone.Hear(815.0);
  EXPECT_NEAR(*tone.Follower.Hz(), 815.0, 0.5) << "drifted on, unheard for ten seconds";
}

TEST(ToneFollowerTest, AToneThreeHertzFromItsEdgeIsFollowed) {
  FollowedTone tone(800.0);
  for (int i = 0; i < 600; ++i) tone.Hear(std::min(800.0 + 0.1 * i, 847.0));
  EXPECT_NEAR(*tone.Follower.Hz(), 847.0, 0.3);
  EXPECT_FALSE(tone.Follower.HasLeft());
}

TEST(ToneFollowerTest, AToneThatLeavesIsTold) {
  FollowedTone tone(800.0);
  for (int i = 0; i < 600; ++i) tone.Hear(std::min(800.0 + 0.1 * i, 854.0));
  EXPECT_TRUE(tone.Follower.HasLeft());
  EXPECT_LE(*tone.Follower.Hz(), 850.0);
  for (int i = 0; i < 30; ++i) tone.Hear(845.0);
  EXPECT_FALSE(tone.Follower.HasLeft()) << "it came back";
}

TEST(ToneFollowerTest, AStrongToneFurtherAwayDoesNotDrawItOff) {
  FollowedTone tone(800.0);
  SpectrumMaker maker(kRate);
  const auto two = test::Mixed(test::Sine(kReading, 800.0, 300.0), test::Sine(kReading, 845.0, 3000.0));
  for (int i = 0; i < 30; ++i) tone.Follower.Follow(maker.Of(two), kReadingSeconds);
  EXPECT_NEAR(*tone.Follower.Hz(), 800.0, 5.0);
}

TEST(ToneFollowerTest, AFixedToneStays) {
  FollowedTone tone(800.0);
  tone.Follower.Fix(820.0);
  EXPECT_TRUE(tone.Follower.Fixed());
  for (int i = 0; i < 30; ++i) tone.Hear(826.0);
  EXPECT_EQ(tone.Follower.Hz(), 820.0);
}

TEST(ToneFollowerTest, ABeginForgetsWhatWasBefore) {
  FollowedTone tone(800.0);
  tone.Follower.Fix(820.0);
  tone.Follower.Begin(700.0);
  EXPECT_FALSE(tone.Follower.Fixed());
  EXPECT_EQ(tone.Follower.Hz(), 700.0);
}

}  // namespace
}  // namespace lobegraph
