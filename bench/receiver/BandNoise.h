#pragma once

#include <cstdint>
#include <random>
#include <vector>

namespace lobegraph {

/// What a receiver hisses: white noise through its filter, steep on both sides (Butterworth, eighth order
/// each).
class BandNoise {
 public:
  /// @param rms of what comes out, sample steps
  BandNoise(double fromHz, double toHz, double rms, double samplesPerSecond, std::uint64_t seed);

  double Next();

 private:
  struct Section {
    double B0, B1, B2, A1, A2;
    double Z1 = 0.0;
    double Z2 = 0.0;
    double Pass(double in);
  };
  enum class Kind { HighPass, LowPass };
  void AddSections(Kind kind, double hz, double samplesPerSecond);
  double Filtered(double in);
  double GainOfNoise();

  std::vector<Section> sections_;
  double scale_ = 1.0;
  std::mt19937_64 random_;
  std::normal_distribution<double> normal_;
};

}  // namespace lobegraph
