#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "render/PlotColours.h"
#include "render/Plotter.h"
#include "render/grid/GridPainting.h"
#include "support/RecordingSurface.h"

namespace lobegraph::golden {

using List = std::vector<std::string>;

inline constexpr PlotStyle kGrid{.ScaleSetting = 20};
inline constexpr PlotColours kColours{.PlotGridColour = {1, 2, 3}, .PlotUserColour = {0, 0, 128}};

/// One empty plot on a recording surface, the plot centre at (250.5, 283).
template <typename Draw>
RecordingSurface Drawn(Draw draw, const PlotStyle& style, GridOver over = GridOver::Cleared) {
  RecordingSurface surface;
  Plotter plotter(surface, PlotGeometry{});
  draw(plotter, style, kColours, over);
  return surface;
}

struct Label {
  std::string_view Text;
  std::string_view TopLeft;
};

/// "at" and "text" for each label.
inline List Labels(const std::vector<Label>& labels) {
  List list;
  for (const Label& label : labels) {
    list.push_back("at " + std::string(label.TopLeft));
    list.push_back("text [" + std::string(label.Text) + "] #010203");
  }
  return list;
}

inline List Joined(const std::vector<List>& parts) {
  List list;
  for (const List& part : parts) list.insert(list.end(), part.begin(), part.end());
  return list;
}

}  // namespace lobegraph::golden
