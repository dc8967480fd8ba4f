#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "data/record/ReadingsRecord.h"
#include "processing/PlotResult.h"
#include "render/DrawingSurface.h"
#include "render/PlotColours.h"

namespace lobegraph {

/// A pattern of a picture and what the legend calls it.
struct PicturePattern {
  PlotResult Plot;
  std::string Name;
};

/// What a picture shows: the first pattern on its grid, the others over it.
struct Picture {
  PlotStyle Style;
  std::vector<PicturePattern> Patterns;  ///< at least one
  PlotColours Colours;
  std::string Title;
};

/// Width and height in units. The plot is where the window has it; a long legend makes the picture higher.
inline constexpr int kPictureWidth = 501;
inline constexpr int kPictureHeight = 560;
int PictureHeightOf(std::size_t patterns);

/// The empty plot.
void DrawGrid(DrawingSurface& surface, const Picture& picture);

/// What follows belongs together and has this name ("trace", "minus3db", "legend", "title").
using GroupMark = std::function<void(std::string_view name)>;

/// Everything but the grid. The legend is there when there are several patterns.
void DrawPatterns(DrawingSurface& surface, const Picture& picture, const GroupMark& group);

/// The picture as a document of vectors.
std::string SvgOf(const Picture& picture);

/// What a legend calls a pattern: its description, or without one the name of its file.
std::string LegendName(const ReadingsRecord& record);

}  // namespace lobegraph
