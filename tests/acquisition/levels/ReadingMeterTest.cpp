#include "acquisition/levels/ReadingMeter.h"

#include <gtest/gtest.h>

#include "acquisition/levels/LevelUnit.h"
#include "support/Stretches.h"

namespace lobegraph {
namespace {

using test::BandNoise;
using test::Mixed;
using test::Sine;
using test::Stretch;

constexpr std::size_t kReading = 7350;
constexpr double kRate = test::kSampleRate;

LevelChoice By(LevelMethod method, SoundChannel channel = SoundChannel::Sum) {
  return {.Method = method, .Channel = channel};
}

float LevelOf(const LevelChoice& choice, const SoundStretch& sound) {
  return ReadingMeter(choice, kRate).Measure(sound).Level;
}

double Db(double ratio) { return 20.0 * std::log10(ratio); }

TEST(ReadingMeterTest, AFullScaleSineIs1024ByEveryMethod) {
  const SoundStretch sound = Stretch(Sine(kReading, 800.0, 32767.0));
  EXPECT_NEAR(LevelOf(By(LevelMethod::AllOfTheSound), sound), 1024.0, 0.5);
  EXPECT_NEAR(LevelOf(By(LevelMethod::Tone), sound), 1024.0, 0.5);
}

TEST(ReadingMeterTest, ALevelIsAFloatNotAWholeNumber) {
  for (const double amplitude : {40.0, 3333.0, 10007.0}) {
    const SoundStretch sound = Stretch(Sine(kReading, 1102.5, amplitude));
    EXPECT_NEAR(LevelOf(By(LevelMethod::AllOfTheSound), sound), amplitude / 32.0, 0.002 * amplitude / 32.0);
    EXPECT_NEAR(LevelOf(By(LevelMethod::Tone), sound), amplitude / 32.0, 0.002 * amplitude / 32.0);
  }
}

TEST(ReadingMeterTest, TheLowestLevelIs1) {
  const SoundStretch silence = Stretch(std::vector<float>(kReading, 0.0F));
  for (const LevelMethod method : {LevelMethod::AllOfTheSound, LevelMethod::Tone, LevelMethod::ToneOverNoise})
    EXPECT_EQ(LevelOf(By(method), silence), 1.0F) << static_cast<int>(method);
  EXPECT_EQ(LevelOf(By(LevelMethod::Tone), SoundStretch{}), 1.0F) << "no frames";
}

TEST(ReadingMeterTest, AnOffsetOfTheSoundCardIsNoSound) {
  std::vector<float> sound = Sine(kReading, 800.0, 3200.0);
  for (float& sample : sound) sample += 6000.0F;
  for (const LevelMethod method : {LevelMethod::AllOfTheSound, LevelMethod::Tone})
    EXPECT_NEAR(LevelOf(By(method), Stretch(sound)), 100.0, 0.1);
}

TEST(ReadingMeterTest, NoiseLiftsTheSoundButHardlyTheTone) {
  const SoundStretch sound = Stretch(Mixed(Sine(kReading, 800.0, 3200.0), BandNoise(kReading, 720.0)));
  EXPECT_GT(LevelOf(By(LevelMethod::AllOfTheSound), sound), 120.0F);
  EXPECT_NEAR(Db(LevelOf(By(LevelMethod::Tone), sound) / 100.0), 0.0, 0.7);
}

TEST(ReadingMeterTest, ChannelsAreHeardAsChosen) {
  const SoundStretch sound = Stretch(Sine(kReading, 800.0, 3200.0), Sine(kReading, 800.0, 1600.0));
  const auto level = [&](SoundChannel channel) { return LevelOf(By(LevelMethod::Tone, channel), sound); };
  EXPECT_NEAR(level(SoundChannel::Left), 100.0, 0.1);
  EXPECT_NEAR(level(SoundChannel::Right), 50.0, 0.1);
  EXPECT_NEAR(level(SoundChannel::Sum), 75.0, 0.1);
}

TEST(ReadingMeterTest, AMonoSourceIsTheSameOnBothChannels) {
  const SoundStretch sound = Stretch(Sine(kReading, 800.0, 3200.0));
  for (const SoundChannel channel : {SoundChannel::Left, SoundChannel::Right, SoundChannel::Sum})
    EXPECT_NEAR(LevelOf(By(LevelMethod::Tone, channel), sound), 100.0, 0.1);
}

TEST(ReadingMeterTest, TheQuotientTakesOutWhatTheSourceDoes) {
  ReadingMeter meter(By(LevelMethod::Tone, SoundChannel::Quotient), kRate);
  const auto heard = [&](double antenna, double source) {
    return meter.Measure(
        Stretch(Sine(kReading, 800.0, antenna * source), Sine(kReading, 800.0, 8000.0 * source)));
  };
  const MeasuredReading first = heard(3200.0, 1.0);
  EXPECT_NEAR(first.Level, 100.0, 0.1);
  EXPECT_NEAR(*first.Detail.ReferenceLevel, 250.0, 0.1);
  EXPECT_NEAR(heard(3200.0, 0.5).Level, 100.0, 0.1);
  EXPECT_NEAR(heard(1600.0, 2.0).Level, 50.0, 0.1);
  EXPECT_NEAR(*heard(3200.0, 0.5).Detail.ReferenceLevel, 125.0, 0.1);
}

TEST(ReadingMeterTest, AReferenceThatIsNotHeardDividesNothing) {
  ReadingMeter meter(By(LevelMethod::Tone, SoundChannel::Quotient), kRate);
  const std::vector<float> silence(kReading, 0.0F);
  EXPECT_NEAR(meter.Measure(Stretch(Sine(kReading, 800.0, 3200.0), silence)).Level, 100.0, 0.1);
}

TEST(ReadingMeterTest, WhatNoAgcCanChangeStays) {
  ReadingMeter meter({.Method = LevelMethod::ToneOverNoise, .FullScaleDbHz = 70.0}, kRate);
  std::vector<double> levels;
  for (const double gain : {1.0, 0.1, 3.0}) {
    std::vector<float> sound = Mixed(Sine(kReading, 800.0, 3200.0), BandNoise(kReading, 70.0));
    for (float& sample : sound) sample = static_cast<float>(sample * gain);
    levels.push_back(meter.Measure(Stretch(sound)).Level);
  }
  EXPECT_NEAR(Db(levels[1] / levels[0]), 0.0, 0.1);
  EXPECT_NEAR(Db(levels[2] / levels[0]), 0.0, 0.1);
}

TEST(ReadingMeterTest, TheToneOverTheNoiseHasItsFullScaleAt1000) {
  // Tone 30 dB over the noise in 2400 Hz: 63.8 dB in 1 Hz.
  const SoundStretch sound =
      Stretch(Mixed(Sine(44100, 800.0, 3200.0 * std::sqrt(2.0)), BandNoise(44100, 101.2)));
  const LevelChoice choice{.Method = LevelMethod::ToneOverNoise, .FullScaleDbHz = 63.8};
  EXPECT_NEAR(Db(LevelOf(choice, sound) / 1000.0), 0.0, 0.5);
  EXPECT_NEAR(LevelOf(choice, Stretch(Sine(kReading, 800.0, 3200.0))), 1e4, 1e6)
      << "without noise: far above";
}

TEST(ReadingMeterTest, SamplesAtTheEndOfTheScaleAreCounted) {
  const SoundStretch loud = Stretch(Sine(kReading, 800.0, 40000.0), std::vector<float>(kReading, 0.0F));
  const auto clipped = [&](SoundChannel channel) {
    return ReadingMeter(By(LevelMethod::Tone, channel), kRate).Measure(loud).Detail.Clipped;
  };
  EXPECT_GT(clipped(SoundChannel::Left), 2000);
  EXPECT_EQ(clipped(SoundChannel::Right), 0);
  EXPECT_EQ(clipped(SoundChannel::Sum), clipped(SoundChannel::Left));
  SoundStretch edge = Stretch(std::vector<float>(kReading, 0.0F));
  edge.Samples[4] = 32767;
  edge.Samples[9] = -32767;
  edge.Samples[11] = -32768;
  edge.Samples[13] = 32766;
  EXPECT_EQ(ReadingMeter(By(LevelMethod::Tone), kRate).Measure(edge).Detail.Clipped, 3);
}

TEST(ReadingMeterTest, ClippedAllTheTimeIsAFullLevelAndSaysSo) {
  const MeasuredReading reading =
      ReadingMeter(By(LevelMethod::Tone), kRate).Measure(Stretch(Sine(kReading, 800.0, 1e6)));
  EXPECT_GT(reading.Level, 1024.0F) << "a square wave holds more than a sine";
  EXPECT_GT(reading.Detail.Clipped, 7000);
}

TEST(ReadingMeterTest, TellsWhatIsKnownOfAReading) {
  SoundStretch sound = Stretch(Mixed(Sine(kReading, 800.0, 3200.0), BandNoise(kReading, 32.0)));
  sound.First = 12345;
  sound.Missing = 7;
  const MeasuredReading reading = ReadingMeter(By(LevelMethod::Peaks), kRate).Measure(sound);
  EXPECT_EQ(reading.First, 12345);
  EXPECT_EQ(reading.Detail.Samples, 7350);
  EXPECT_EQ(reading.Detail.Missing, 7);
  EXPECT_NEAR(*reading.Detail.ToneHz, 800.0, 0.2);
  EXPECT_NEAR(*reading.Detail.ToneLevel, 100.0, 0.3) << "for Peaks too";
  // 32 sample steps rms in 2400 Hz; the lobe is 32 Hz wide.
  EXPECT_NEAR(Db(*reading.Detail.NoiseLevel / (std::sqrt(2.0 * 32.0 / 2400.0))), 0.0, 1.0);
  EXPECT_NEAR(*reading.Detail.SpreadDb, 0.05, 0.05);
}

TEST(ReadingMeterTest, SpreadIsTheDeviationOfTheParts) {
  std::vector<float> sound = Sine(kReading, 800.0, 3200.0);
  for (std::size_t i = kReading / 2; i < kReading; ++i) sound[i] *= 0.5F;
  const MeasuredReading reading = ReadingMeter(By(LevelMethod::Tone), kRate).Measure(Stretch(sound));
  // Four parts of eight 6.02 dB below the others.
  EXPECT_NEAR(*reading.Detail.SpreadDb, 6.02 / 2.0 * std::sqrt(8.0 / 7.0), 0.05);
}

TEST(ReadingMeterTest, BeforeAToneIsKnownTheLevelIsThatOfTheNoiseAndSaysSo) {
  ReadingMeter meter(By(LevelMethod::Tone), kRate);
  const MeasuredReading noise = meter.Measure(Stretch(BandNoise(kReading, 3200.0)));
  EXPECT_TRUE(noise.Detail.NoTone);
  EXPECT_FALSE(noise.Detail.ToneHz);
  EXPECT_LT(noise.Level, 30.0F);
  const MeasuredReading tone =
      meter.Measure(Stretch(Mixed(Sine(kReading, 800.0, 3200.0), BandNoise(kReading, 320.0))));
  EXPECT_FALSE(tone.Detail.NoTone) << "the first reading that holds a tone begins to follow it";
  EXPECT_NEAR(Db(tone.Level / 100.0), 0.0, 0.5);
}

TEST(ReadingMeterTest, AFixedToneIsMeasuredWhereTheUserSaid) {
  const LevelChoice choice{.Method = LevelMethod::Tone, .FixedHz = 1500.0};
  const SoundStretch sound = Stretch(Mixed(Sine(kReading, 800.0, 6400.0), Sine(kReading, 1500.0, 3200.0)));
  EXPECT_NEAR(LevelOf(choice, sound), 100.0, 0.2);
}

TEST(ReadingMeterTest, OfAKeyedToneTheStrokesCount) {
  std::vector<float> sound = Sine(kReading, 800.0, 3200.0);
  std::fill(sound.begin() + 4000, sound.end(), 0.0F);
  sound = Mixed(sound, BandNoise(kReading, 5.0));
  const LevelChoice keyed{.Method = LevelMethod::Tone, .Keyed = true, .LastHz = 800.0};
  EXPECT_NEAR(Db(LevelOf(keyed, Stretch(sound)) / 100.0), 0.0, 0.1);
  EXPECT_LT(LevelOf({.Method = LevelMethod::Tone, .LastHz = 800.0}, Stretch(sound)), 80.0F);
}

TEST(ReadingMeterTest, AReadingWithoutAKeyDownSaysSo) {
  ReadingMeter meter({.Method = LevelMethod::Tone, .Keyed = true, .LastHz = 800.0}, kRate);
  EXPECT_TRUE(meter.Measure(Stretch(BandNoise(kReading, 50.0))).Detail.KeyUp);
  ReadingMeter byPeaks({.Method = LevelMethod::Peaks, .Keyed = true, .LastHz = 800.0}, kRate);
  EXPECT_FALSE(byPeaks.Measure(Stretch(BandNoise(kReading, 50.0))).Detail.KeyUp) << "it fills nothing";
}

TEST(ReadingMeterTest, AReadingOf28MillisecondsAndOneOf3SecondsWork) {
  for (const std::size_t samples : {1235U, 147000U}) {
    const MeasuredReading reading =
        ReadingMeter(By(LevelMethod::Tone), kRate)
            .Measure(Stretch(Mixed(Sine(samples, 800.0, 3200.0), BandNoise(samples, 32.0))));
    EXPECT_NEAR(Db(reading.Level / 100.0), 0.0, 0.1) << samples;
    EXPECT_TRUE(reading.Detail.NoiseLevel);
    EXPECT_TRUE(reading.Detail.SpreadDb);
  }
}

TEST(ReadingMeterTest, AReadingOfAFewSamplesIsNoFault) {
  for (const std::size_t samples : {1U, 2U, 5U, 40U})
    EXPECT_GE(LevelOf({.Method = LevelMethod::Tone, .Keyed = true, .LastHz = 800.0},
                      Stretch(Sine(samples, 800.0, 3200.0))),
              1.0F);
}

TEST(ReadingMeterTest, TheFloorIsWhatTheNoiseAloneGivesByTheMethod) {
  const SoundStretch tone = Stretch(Mixed(Sine(44100, 800.0, 3200.0), BandNoise(44100, 320.0)));
  const auto floor = [&](LevelMethod method) {
    return *ReadingMeter({.Method = method, .LastHz = 800.0, .FullScaleDbHz = 60.0}, kRate)
                .Measure(tone)
                .Detail.FloorLevel;
  };
  const double rms = 320.0 * std::sqrt(2.0) / 32.0;
  EXPECT_NEAR(Db(floor(LevelMethod::AllOfTheSound) / rms), 0.0, 0.7);
  EXPECT_NEAR(Db(floor(LevelMethod::Peaks) / rms), 4.0, 0.7);
  EXPECT_NEAR(Db(floor(LevelMethod::Tone) / (rms * std::sqrt(20.0 / 2400.0))), 0.0, 0.7);
  EXPECT_NEAR(Db(floor(LevelMethod::ToneOverNoise) / 1000.0), 13.0 - 60.0, 0.1)
      << "20 Hz of noise over 1 Hz of it";
}

TEST(ReadingMeterTest, AToneThatLeftItsBandIsTold) {
  ReadingMeter meter({.Method = LevelMethod::Tone, .LastHz = 800.0}, kRate);
  bool left = false;
  for (int i = 0; i < 300 && !left; ++i)
    left = meter.Measure(Stretch(Sine(kReading, 800.0 + 0.3 * i, 3200.0))).Detail.ToneLeft;
  EXPECT_TRUE(left);
}

TEST(LevelUnitTest, TheFullScaleOfTheRatioLeavesRoomAbove) {
  EXPECT_NEAR(LevelOfRatio(70.0, FullScaleFor(70.0, 1000.0)), 910.0, 0.1);
  EXPECT_NEAR(LevelOfRatio(70.0, FullScaleFor(70.0, 50.0)), 1.0, 0.1) << "a peak level below the green range";
}

TEST(LevelUnitTest, PowerAndLevelAreEachOthersInverse) {
  EXPECT_NEAR(PowerOfLevel(LevelOfPower(12345.0)), 12345.0, 0.01);
  EXPECT_EQ(LevelOfPower(-1.0), 0.0F);
}

}  // namespace
}  // namespace lobegraph
