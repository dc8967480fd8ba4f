#pragma once

#include <string>
#include <vector>

namespace lobegraph {

/// Readings that follow each other, by index.
struct Arc {
  int First = 0;
  int Last = 0;

  int Count() const { return Last - First + 1; }
  bool operator==(const Arc&) const = default;
};

/// The stretches that indices make. @param indices rising
std::vector<Arc> ArcsOf(const std::vector<int>& indices);

/// All their readings.
int CountOf(const std::vector<Arc>& arcs);

/// "reading 12", "readings 12 to 19", "readings 12 to 19, 40 and 3 more", counted from 1 as the window counts
/// them. The longest stretches are named. @param arcs not empty
std::string ArcText(const std::vector<Arc>& arcs);

}  // namespace lobegraph
