#include "processing/quality/Indices.h"

#include <algorithm>

namespace lobegraph {

double MedianOf(std::vector<double> values) {
  std::ranges::sort(values);
  const std::size_t half = values.size() / 2;
  return values.size() % 2 == 1 ? values[half] : (values[half - 1] + values[half]) / 2.0;
}

}  // namespace lobegraph
