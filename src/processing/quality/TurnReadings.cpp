#include "processing/quality/TurnReadings.h"

#include <algorithm>
#include <cmath>

namespace lobegraph {

ReadingDetail TurnReadings::DetailOf(std::size_t index) const {
  return index < Details.size() ? Details[index] : ReadingDetail{};
}

bool TurnReadings::SoundKnown() const {
  return std::ranges::any_of(Details, [](const ReadingDetail& detail) { return detail.Samples > 0; });
}

std::optional<double> TurnReadings::RelativeDb(std::size_t index) const {
  const float peak = Peak();
  if (!(Levels[index] > 0.0F) || !(peak > 0.0F)) return std::nullopt;
  return 20.0 * std::log10(double{Levels[index]} / double{peak});
}

float TurnReadings::Peak() const { return Levels.empty() ? 0.0F : std::ranges::max(Levels); }

}  // namespace lobegraph
