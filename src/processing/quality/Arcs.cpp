#include "processing/quality/Arcs.h"

#include <algorithm>

namespace lobegraph {
namespace {

constexpr std::size_t kMostNamed = 3;

std::string NumbersOf(const Arc& arc) {
  const std::string first = std::to_string(arc.First + 1);
  return arc.Count() == 1 ? first : first + " to " + std::to_string(arc.Last + 1);
}

/// The longest ones, in their own order.
std::vector<Arc> Named(std::vector<Arc> arcs) {
  if (arcs.size() > kMostNamed) {
    std::ranges::stable_sort(arcs, std::greater<>(), &Arc::Count);
    arcs.resize(kMostNamed);
    std::ranges::sort(arcs, {}, &Arc::First);
  }
  return arcs;
}

}  // namespace

std::vector<Arc> ArcsOf(const std::vector<int>& indices) {
  std::vector<Arc> arcs;
  for (const int index : indices) {
    if (arcs.empty() || arcs.back().Last + 1 != index)
      arcs.push_back({index, index});
    else
      arcs.back().Last = index;
  }
  return arcs;
}

int CountOf(const std::vector<Arc>& arcs) {
  int count = 0;
  for (const Arc& arc : arcs) count += arc.Count();
  return count;
}

std::string ArcText(const std::vector<Arc>& arcs) {
  const std::vector<Arc> named = Named(arcs);
  const int unnamed = CountOf(arcs) - CountOf(named);
  std::string text = CountOf(arcs) == 1 ? "reading " : "readings ";
  for (std::size_t i = 0; i < named.size(); ++i) {
    const bool isLast = i + 1 == named.size() && unnamed == 0;
    if (i > 0) text += isLast ? " and " : ", ";
    text += NumbersOf(named[i]);
  }
  return unnamed > 0 ? text + " and " + std::to_string(unnamed) + " more" : text;
}

}  // namespace lobegraph
