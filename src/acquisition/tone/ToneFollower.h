#pragma once

#include <optional>

#include "acquisition/spectrum/PowerSpectrum.h"

namespace lobegraph {

/// How far a tone may wander from where it was found.
inline constexpr double kFollowHz = 50.0;

/// Keeps to the tone while receiver and transmitter drift. A reading in which the tone does not stand out
/// moves nothing.
class ToneFollower {
 public:
  /// Stays at a frequency that the user has given.
  void Fix(double hz);
  /// A tone was found: followed from there on. Begins anew.
  void Begin(double hz);

  /// Where the tone is; none before the first Fix or Begin.
  std::optional<double> Hz() const { return hz_; }
  bool Fixed() const { return fixed_; }
  /// The tone was last seen more than kFollowHz from where it was found: what is measured since is not all of
  /// it.
  bool HasLeft() const { return left_; }

  /// Takes a step towards the tone of a spectrum.
  /// @param seconds that the spectrum covers
  void Follow(const PowerSpectrum& spectrum, double seconds);

 private:
  Band SearchBand(double lobeHz) const;

  std::optional<double> hz_;
  double foundHz_ = 0.0;
  double unseenSeconds_ = 0.0;
  bool fixed_ = false;
  bool left_ = false;
};

}  // namespace lobegraph
