#include "cli/Picture.h"

#include "cli/SvgSurface.h"
#include "cli/TextWidth.h"
#include "data/base/Rounding.h"
#include "render/CircularGrid.h"
#include "render/Trace.h"

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
  const PatternSession& session = picture.Patterns[index].Session;
  const ReadingsRecord& record = session.Record();
  const bool linearMode = session.Options().LinearMode;
  TraceOptions options;
  options.RotationOffset = RotationOffsetOf(linearMode, record.Plot180, record.Rotate);
  options.chkShow3dB = false;
  options.PlotLineColour = TraceColourOf(picture.Colours, index);
  options.PlotUserColour = MarkColourOf(picture.Colours, index);
  group("trace");
  DrawTrace(plotter, session.Plot(), options);
  group("minus3db");
  PlotResult marks = session.Plot();
  marks.Trace.clear();
  options.chkShow3dB = true;
  DrawTrace(plotter, marks, options);
}

void DrawLegend(DrawingSurface& surface, const Picture& picture) {
  for (std::size_t index = 0; index < picture.Patterns.size(); ++index) {
    const auto column = static_cast<float>(index % kColumns);
    const std::size_t rowsAbove = index / kColumns;
    const auto row = static_cast<float>(rowsAbove);
    const SurfacePoint at{kLegendLeft + column * kLegendColumn, kLegendTop + row * kLegendRow};
    const float middle = at.Y + kLegendPoints * kUnitsPerPoint / 2.F;
    surface.SetPenWidth(2);
    surface.Line({at.X, middle}, {at.X + kSampleWidth, middle}, TraceColourOf(picture.Colours, index));
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

GridOptions GridOf(const Picture& picture) {
  const PlotOptions options = picture.Patterns.front().Session.Options();
  return {.LinearMode = options.LinearMode,
          .ShowLogScale = options.ShowLogScale,
          .chkPlotInDB = options.chkPlotInDB,
          .Slider1 = ToInt16(options.ScaleSetting),
          .Overlay = false,
          .PlotGridColour = picture.Colours.PlotGridColour,
          .PlotUserColour = picture.Colours.PlotUserColour};
}

void DrawGrid(DrawingSurface& surface, const GridOptions& options) {
  Plotter plotter(surface, PlotGeometry{});
  DrawCircularGrid(plotter, options);
}

void DrawPatterns(DrawingSurface& surface, const Picture& picture, const GroupMark& group) {
  Plotter plotter(surface, PlotGeometry{});
  plotter.Pen().LinearMode = GridOf(picture).LinearMode;
  for (std::size_t index = 0; index < picture.Patterns.size(); ++index)
    DrawPattern(plotter, picture, index, group);
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
  DrawGrid(surface, GridOf(picture));
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
  const std::string& words = record.Description;
  const bool none = words.empty() || words == "no description" || words == "No description";
  return none ? record.FileName : words;
}

}  // namespace lobegraph
