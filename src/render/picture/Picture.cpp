#include "render/picture/Picture.h"

#include "render/AxisLabels.h"
#include "render/TextWidth.h"
#include "render/Trace.h"
#include "render/grid/CircularGrid.h"
#include "render/picture/SvgSurface.h"

namespace lobegraph {
namespace {

constexpr float kUnitsPerPoint = 96.F / 72.F;
constexpr float kTitlePoints = 11.F;
constexpr SurfacePoint kTitleAt{8.F, 6.F};
constexpr float kLegendPoints = 7.F;
constexpr float kLegendTop = 523.F;
constexpr float kLegendRow = 12.F;
constexpr float kLegendColumn = 250.F;
constexpr float kLegendLeft = 8.F;
constexpr float kSampleWidth = 18.F;
constexpr std::size_t kColumns = 2;
constexpr std::size_t kRowsInPlace = 3;
constexpr float kMargin = 6.F;

void Write(DrawingSurface& surface, SurfacePoint at, std::string_view text, float points, float widest,
           Colour colour) {
  surface.SetFontName("Arial");
  surface.SetFontSize(points);
  surface.SetCurrentPosition(at);
  surface.Text(FittingText(text, widest, points * kUnitsPerPoint), colour);
}

void DrawPattern(Plotter& plotter, const Picture& picture, std::size_t index, const GroupMark& group) {
  const PlotResult& plot = picture.Patterns[index].Plot;
  const TraceInk ink = InkOf(picture.Colours, index);
  group("trace");
  DrawTrace(plotter, plot, ink, false);
  group("minus3db");
  PlotResult marks = plot;
  marks.Trace.clear();
  DrawTrace(plotter, marks, ink, picture.Style.Minus3dBMarks);
}

void DrawLegend(DrawingSurface& surface, const Picture& picture) {
  for (std::size_t index = 0; index < picture.Patterns.size(); ++index) {
    const auto column = static_cast<float>(index % kColumns);
    const std::size_t rowsAbove = index / kColumns;
    const auto row = static_cast<float>(rowsAbove);
    const SurfacePoint at{kLegendLeft + column * kLegendColumn, kLegendTop + row * kLegendRow};
    const float middle = at.Y + kLegendPoints * kUnitsPerPoint / 2.F;
    surface.SetPenWidth(2);
    surface.Line({at.X, middle}, {at.X + kSampleWidth, middle}, InkOf(picture.Colours, index).Line);
    const SurfacePoint textAt{at.X + kSampleWidth + kMargin, at.Y};
    Write(surface, textAt, picture.Patterns[index].Name, kLegendPoints,
          kLegendColumn - kSampleWidth - 3.F * kMargin, ReadableOn(picture.Colours.PlotBackground));
  }
}

}  // namespace

int PictureHeightOf(std::size_t patterns) {
  const std::size_t rows = (patterns + kColumns - 1) / kColumns;
  const std::size_t further = rows > kRowsInPlace ? rows - kRowsInPlace : 0;
  return kPictureHeight + static_cast<int>(static_cast<float>(further) * kLegendRow);
}

void DrawGrid(DrawingSurface& surface, const Picture& picture) {
  Plotter plotter(surface, PlotGeometry{});
  DrawCircularGrid(plotter, picture.Style, picture.Colours);
}

void DrawPatterns(DrawingSurface& surface, const Picture& picture, const GroupMark& group) {
  Plotter plotter(surface, PlotGeometry{});
  plotter.Mapping().Rectangular = picture.Style.Rectangular;
  for (std::size_t index = 0; index < picture.Patterns.size(); ++index)
    DrawPattern(plotter, picture, index, group);
  group("axis");
  for (const LayerText& text :
       AxisLabels(picture.Style, PlotGeometry{}, ReadableOn(picture.Colours.PlotBackground)))
    DrawText(surface, text);
  if (picture.Patterns.size() > 1) {
    group("legend");
    DrawLegend(surface, picture);
  }
  if (picture.Title.empty()) return;
  group("title");
  Write(surface, kTitleAt, picture.Title, kTitlePoints, kPictureWidth - 2.F * kTitleAt.X,
        ReadableOn(picture.Colours.PlotBackground));
}

std::string SvgOf(const Picture& picture) {
  SvgSurface surface(kPictureWidth, PictureHeightOf(picture.Patterns.size()), picture.Colours.PlotBackground);
  surface.SetTitle(picture.Title.empty() ? picture.Patterns.front().Name : picture.Title);
  DrawGrid(surface, picture);
  surface.GroupAll("grid");
  bool open = false;
  DrawPatterns(surface, picture, [&](std::string_view name) {
    if (open) surface.EndGroup();
    surface.BeginGroup(std::string(name));
    open = true;
  });
  surface.EndGroup();
  return surface.Document();
}

std::string LegendName(const ReadingsRecord& record) {
  return record.HasDescription() ? record.Description : record.FileName;
}

}  // namespace lobegraph
