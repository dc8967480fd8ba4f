#pragma once

#include <optional>
#include <vector>

#include "data/record/ReadingDetail.h"

namespace lobegraph {

/// What a turn has left behind, in the order of collection.
struct TurnReadings {
  std::vector<float> Levels;             ///< as stored
  std::vector<ReadingDetail> Details;    ///< one a level, or none where nothing more is known
  bool WholeTurn = true;                 ///< the last reading is a neighbour of the first
  std::vector<int> Late;                 ///< indices of readings that ended too late, rising
  std::vector<int> Silent;               ///< of those for which the source had nothing new to say, rising
  std::optional<double> OverlapDb;       ///< how far directions measured twice differ, where some were
  bool Quotient = false;                 ///< levels are by the reference: what the source does cancels
  bool OverNoise = false;                ///< levels are by the noise: what the AGC does cancels
  std::optional<double> WordsPerMinute;  ///< of a keyed source
  double TurnSeconds = 0.0;              ///< planned rotation time; 0: not known

  /// The detail of a reading; an empty one where nothing is known.
  ReadingDetail DetailOf(std::size_t index) const;
  /// Every sample of the sound was looked at.
  bool SoundKnown() const;
  /// dB of a level below that of the strongest reading, 0 or less; none for a level of 0.
  std::optional<double> RelativeDb(std::size_t index) const;
  /// The strongest level; 0 without readings.
  float Peak() const;
};

}  // namespace lobegraph
