#include "cli/ColoursFile.h"

#include "data/base/RunTimeError.h"
#include "fuzz/Targets.h"

namespace lobegraph::fuzz {

void TryPlotColours(std::string_view input) {
  try {
    const PlotColours colours = ReadColours(input);
    for (std::size_t pattern = 0; pattern < 9; ++pattern) InkOf(colours, pattern);
  } catch (const RunTimeError& refused) {
    Promise(!refused.Detail().empty(), "a refused colour is named");
  }
}

}  // namespace lobegraph::fuzz
