#pragma once

#include <string>
#include <vector>

#include "processing/quality/QualityItem.h"
#include "processing/quality/TurnReadings.h"

namespace lobegraph {

/// Whether a turn can be believed, and how far.
struct TurnQuality {
  std::vector<QualityItem> Items;  ///< every kind once, in the order of QualityKind

  const QualityItem& ItemOf(QualityKind kind) const;
  /// The worst item; of equally bad ones the first. @return nullptr when none is doubtful or bad
  const QualityItem* Worst() const;
  /// One sentence: the worst finding and what to do about it, or what is good ("The turn closes within 0.3
  /// dB; floor -41 dB; nothing clipped.").
  std::string Sentence() const;
  /// All of it as text, a line an item: name, value, verdict, what to do.
  std::string Text() const;
};

/// @param turn of any number of readings
TurnQuality QualityOf(const TurnReadings& turn);

}  // namespace lobegraph
