#include "acquisition/spectrum/RealTransform.h"

#include <gtest/gtest.h>

#include <complex>
#include <thread>
#include <vector>

#include "support/SoundSamples.h"

namespace lobegraph {
namespace {

/// The definition itself.
double PowerOfLine(std::span<const float> samples, std::size_t size, std::size_t line) {
  std::complex<double> sum = 0.0;
  for (std::size_t i = 0; i < samples.size(); ++i)
    sum += double{samples[i]} * std::polar(1.0, -2.0 * std::numbers::pi * static_cast<double>(line) *
                                                    static_cast<double>(i) / static_cast<double>(size));
  return std::norm(sum);
}

TEST(RealTransformTest, IsTheDefinition) {
  RealTransform transform(64);
  const std::vector<float> samples = test::WhiteNoise(50, 1000.0);
  std::vector<double> power(transform.Lines(), 0.0);
  transform.AddPower(samples, power);
  for (std::size_t line = 0; line < transform.Lines(); ++line) {
    const double expected = PowerOfLine(samples, 64, line);
    EXPECT_NEAR(power[line], expected, 1e-5 * expected + 1.0) << line;
  }
}

TEST(RealTransformTest, AddsToWhatIsThere) {
  RealTransform transform(16);
  const std::vector<float> one(1, 3.0F);
  std::vector<double> power(transform.Lines(), 1.0);
  transform.AddPower(one, power);
  for (const double line : power) EXPECT_DOUBLE_EQ(line, 10.0);
}

TEST(RealTransformTest, AnEarlierStretchLeavesNothingBehind) {
  RealTransform transform(16);
  std::vector<double> power(transform.Lines(), 0.0);
  transform.AddPower(std::vector<float>(16, 100.0F), power);
  std::ranges::fill(power, 0.0);
  transform.AddPower(std::vector<float>(1, 2.0F), power);
  for (const double line : power) EXPECT_DOUBLE_EQ(line, 4.0);
}

TEST(RealTransformTest, IsMadeOnSeveralThreadsAtOnce) {
  std::vector<std::thread> threads;
  std::vector<double> first(4, 0.0);
  for (std::size_t i = 0; i < first.size(); ++i)
    threads.emplace_back([&first, i] {
      for (std::size_t size = 64; size <= 4096; size *= 2) {
        RealTransform transform(size);
        std::vector<double> power(transform.Lines(), 0.0);
        transform.AddPower(std::vector<float>(1, 1.0F), power);
        first[i] += power.front();
      }
    });
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(first, std::vector<double>(4, 7.0));
}

}  // namespace
}  // namespace lobegraph
