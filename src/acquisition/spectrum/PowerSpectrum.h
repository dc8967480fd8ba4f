#pragma once

#include <cstddef>
#include <map>
#include <span>
#include <utility>
#include <vector>

#include "acquisition/spectrum/RealTransform.h"
#include "acquisition/spectrum/Segments.h"

namespace lobegraph {

/// Frequencies from and to, hertz.
struct Band {
  double FromHz = 0.0;
  double ToHz = 0.0;

  double WidthHz() const { return ToHz - FromHz; }
  bool Holds(double hz) const { return hz >= FromHz && hz <= ToHz; }
  bool operator==(const Band&) const = default;
};

/// Mean power of a stretch of sound over frequency. The sum of the lines of a tone's main lobe is the mean
/// square of its samples (amplitude squared, halved); that of noise is its mean square within the lines.
struct PowerSpectrum {
  double StepHz = 0.0;
  double MainLobeHz = 0.0;    ///< a tone spreads that far to both sides
  double Looks = 1.0;         ///< independent looks that were averaged
  std::vector<double> Power;  ///< from 0 Hz on, StepHz apart

  double HertzOf(std::size_t line) const { return static_cast<double>(line) * StepHz; }
  /// The lines within a band, first and behind the last.
  std::pair<std::size_t, std::size_t> LinesOf(const Band& band) const;
  /// Mean square within a band.
  double PowerIn(const Band& band) const;
};

/// Makes spectra; keeps its windows and planned transforms. One thread at a time.
class SpectrumMaker {
 public:
  explicit SpectrumMaker(double samplesPerSecond) : rate_(samplesPerSecond) {}

  double SamplesPerSecond() const { return rate_; }
  /// @param samples at least 1
  PowerSpectrum Of(std::span<const float> samples);

 private:
  /// How a stretch of one length is looked at.
  struct Look {
    Segments Parts;
    double Looks = 1.0;
    std::vector<float> Window;
    double WindowEnergy = 0.0;
  };
  const Look& LookAt(std::size_t samples);
  RealTransform& TransformFor(std::size_t length);

  double rate_;
  std::map<std::size_t, Look> looks_;  ///< by the stretch's length
  std::map<std::size_t, RealTransform> transforms_;
  std::vector<float> windowed_;
};

}  // namespace lobegraph
