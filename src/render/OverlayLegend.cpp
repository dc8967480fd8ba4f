#include "render/OverlayLegend.h"

#include <vector>

#include "render/TextWidth.h"

namespace lobegraph {
namespace {

constexpr float kLeft = 8.F;
constexpr float kSample = 16.F;
constexpr float kGap = 5.F;
constexpr float kTop = 504.F;
constexpr float kRow = 12.F;
constexpr float kPoints = 7.F;
constexpr float kSize = kPoints * 96.F / 72.F;
constexpr float kWidest = 125.F;
constexpr float kEdgeWidth = 4.F;
constexpr float kLineWidth = 2.F;
/// Numbers of the layer's lines: marks first, so that the samples lie above them.
constexpr int kFirstSample = 100;

SurfacePoint FootOf(const PlotMapping& mapping, SurfacePoint point) {
  if (!mapping.Rectangular) return mapping.Geometry().Centre();
  return {point.X, static_cast<float>(MakePlotArea(mapping.Geometry()).Bottom)};
}

}  // namespace

void WriteLegend(PictureLayer& layer, std::span<const LegendEntry> entries, Colour text) {
  std::vector<LayerText> names;
  int number = kFirstSample;
  float y = kTop;
  for (const LegendEntry& entry : entries) {
    layer.Show(number++, {.From = {kLeft, y},
                          .To = {kLeft + kSample, y},
                          .LineColour = entry.Line,
                          .Dashed = false,
                          .Width = kLineWidth});
    names.push_back(
        {{kLeft + kSample + kGap, y}, FittingText(entry.Name, kWidest, kSize), kPoints, text, true});
    y += kRow;
  }
  layer.Write(std::move(names));
}

void OutlineMarks(PictureLayer& layer, const PlotMapping& mapping, const PlotResult& plot, Colour marks,
                  Colour edge) {
  if (!plot.PlotDone) return;
  int number = 0;
  std::vector<LayerLine> lines;
  for (TracePoint mark : plot.Minus3dBMarks)
    if (const auto point = mapping.PointAt(mark.AngleDeg, mark.Radius))
      lines.push_back({.From = FootOf(mapping, *point), .To = *point, .LineColour = edge, .Dashed = false});
  for (LayerLine line : lines) {
    line.Width = kEdgeWidth;
    layer.Show(number++, line);
  }
  for (LayerLine line : lines) {
    line.LineColour = marks;
    line.Width = kLineWidth;
    layer.Show(number++, line);
  }
}

}  // namespace lobegraph
