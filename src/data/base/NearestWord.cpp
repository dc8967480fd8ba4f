#include "data/base/NearestWord.h"

#include <algorithm>
#include <vector>

namespace lobegraph {
namespace {

constexpr std::size_t kLongestTyped = 40;

/// Letters to change, add, leave out or swap with their neighbours (optimal string alignment).
std::size_t Distance(std::string_view a, std::string_view b) {
  std::vector<std::vector<std::size_t>> steps(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
  for (std::size_t i = 0; i <= a.size(); ++i) steps[i][0] = i;
  for (std::size_t j = 0; j <= b.size(); ++j) steps[0][j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i)
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t changed = steps[i - 1][j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
      steps[i][j] = std::min({changed, steps[i - 1][j] + 1, steps[i][j - 1] + 1});
      const bool swapped = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
      if (swapped) steps[i][j] = std::min(steps[i][j], steps[i - 2][j - 2] + 1);
    }
  return steps[a.size()][b.size()];
}

}  // namespace

std::optional<std::string_view> NearestWord(std::string_view typed, std::span<const std::string_view> words) {
  if (typed.size() > kLongestTyped) return std::nullopt;
  std::optional<std::string_view> nearest;
  std::size_t fewest = 0;
  for (const std::string_view word : words) {
    const std::size_t distance = Distance(typed, word);
    if (distance > word.size() / 3 + 1 || (nearest && distance >= fewest)) continue;
    nearest = word;
    fewest = distance;
  }
  return nearest;
}

}  // namespace lobegraph
