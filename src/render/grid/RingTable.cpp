#include "render/grid/RingTable.h"

#include <algorithm>
#include <cmath>

#include "data/base/Rounding.h"
#include "data/base/RunTimeError.h"

namespace lobegraph {

RingTable::RingTable(float fullScaleRadius, int scaleFactor) {
  if (scaleFactor == 0) throw RunTimeError(fault::kDivisionByZero);
  constexpr std::array<float, kCount> levelsDb = {
      0.0F,  1.0F,  2.0F,  3.0F,  4.0F,  5.0F,  6.0F,  7.0F,  8.0F,  9.0F,  10.0F, 12.0F, 14.0F, 16.0F,
      18.0F, 12.5F, 15.0F, 17.5F, 20.0F, 22.0F, 24.0F, 26.0F, 28.0F, 25.0F, 30.0F, 35.0F, 40.0F, 50.0F};
  std::transform(levelsDb.begin(), levelsDb.end(), entries_.begin(), [&](float levelDb) {
    return Entry{levelDb,
                 ToSingle(fullScaleRadius * std::pow(10.0, -static_cast<double>(levelDb) / scaleFactor))};
  });
}

float RingTable::Radius(float levelDb) const {
  const auto found = std::find_if(entries_.begin(), entries_.end(),
                                  [&](const Entry& entry) { return entry.LevelDb == levelDb; });
  if (found == entries_.end()) throw RunTimeError(fault::kSubscript);
  return found->Radius;
}

}  // namespace lobegraph
