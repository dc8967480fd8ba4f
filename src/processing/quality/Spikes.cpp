#include <algorithm>
#include <cmath>

#include "processing/quality/Indices.h"
#include "processing/quality/LevelChecks.h"

namespace lobegraph {
namespace {

/// So far a spike stands out from the line between its neighbours, and so much further than these differ
/// among themselves.
constexpr double kSpikeDb = 3.0;
constexpr double kOverRoughness = 3.0;
/// Deeper down sharp nulls and noise look like spikes.
constexpr double kDeepestDb = -25.0;
constexpr int kWidest = 2;  ///< readings

class SpikeSearch {
 public:
  explicit SpikeSearch(const TurnReadings& turn) : whole_(turn.WholeTurn) {
    for (std::size_t i = 0; i < turn.Levels.size(); ++i)
      levels_.push_back(turn.RelativeDb(i).value_or(-300.0));
  }

  std::vector<int> Found() const {
    std::vector<int> found;
    const int count = static_cast<int>(levels_.size());
    for (int i = 0; i < count;) {
      const int width = WidthAt(i);
      for (int k = 0; k < width; ++k) found.push_back((i + k) % count);
      i += std::max(width, 1);
    }
    std::ranges::sort(found);
    return found;
  }

 private:
  /// How many readings from here on are a spike; 0 for none.
  int WidthAt(int index) const {
    for (int width = 1; width <= kWidest; ++width)
      if (IsSpike(index, width)) return width;
    return 0;
  }

  bool IsSpike(int index, int width) const {
    const int count = static_cast<int>(levels_.size());
    if (count < width + 6) return false;
    if (!whole_ && (index < 2 || index + width + 1 >= count)) return false;
    const double before = At(index - 1);
    const double after = At(index + width);
    if (std::min(before, after) < kDeepestDb) return false;
    const double roughness = std::max({std::abs(before - At(index - 2)),
                                       std::abs(after - At(index + width + 1)), std::abs(after - before)});
    for (int k = 0; k < width; ++k) {
      const double line = before + (after - before) * (k + 1.0) / (width + 1.0);
      const double off = std::abs(At(index + k) - line);
      if (off < kSpikeDb || off < kOverRoughness * roughness) return false;
    }
    return true;
  }

  double At(int index) const {
    const int count = static_cast<int>(levels_.size());
    return levels_[static_cast<std::size_t>((index + count) % count)];
  }

  bool whole_;
  std::vector<double> levels_;
};

}  // namespace

QualityItem CheckSpikes(const TurnReadings& turn) {
  QualityItem item{.Kind = QualityKind::Spikes};
  item.Arcs = ArcsOf(SpikeSearch(turn).Found());
  item.Number = CountOf(item.Arcs);
  if (item.Arcs.empty()) return std::move(item).Judged("none", Verdict::Good);
  const std::string where = ArcText(item.Arcs);
  return std::move(item).Blamed(where, Verdict::Doubtful, "Spikes in " + where + ".",
                                "De-Spike takes them out; if they come again, look for what disturbs.");
}

}  // namespace lobegraph
