#include "render/grid/CircularGrid.h"

#include "render/grid/RectangularGrid.h"
#include "render/grid/RingTable.h"

namespace lobegraph {
namespace {

constexpr float kBlankDb = 30.0F;
constexpr double kBlankFraction = 0.2;
constexpr int kDeepestLabelFromScale = 38;

struct LogRing {
  float LevelDb;
  int PenWidth;
};
constexpr LogRing kLogRings[] = {{0, 2},  {2, 1},  {4, 1},  {6, 1},  {8, 1},  {10, 2},
                                 {12, 1}, {14, 1}, {16, 1}, {18, 1}, {20, 2}, {22, 1},
                                 {24, 1}, {26, 1}, {28, 1}, {30, 2}, {40, 2}, {50, 2}};

/// A label at a level ring: to the left of the centre line by Left; its top above the height of the ring by
/// Up.
struct LogLabel {
  float LevelDb;
  std::string_view Text;
  float Left;
  float Up;
};
constexpr LogLabel kLogLabelsAbove[] = {{0, "0 dB", 10, 12},  {2, " -2 ", 8, 6},    {4, " -4 ", 8, 6},
                                        {6, " -6 ", 8, 6},    {8, " -8 ", 8, 6},    {10, " -10 ", 11, 6},
                                        {20, " -20 ", 10, 5}, {30, " -30 ", 10, 5}, {40, " -40 ", 10, 4}};
constexpr LogLabel kDeepestLogLabel = {50, " -50 ", 10, 4};
constexpr LogLabel kLogLabelsBelow[] = {{2, " -2 ", 8, 6},   {4, " -4 ", 8, 6},    {6, " -6 ", 8, 6},
                                        {8, " -8 ", 8, 6},   {10, " -10 ", 11, 6}, {20, " -20 ", 10, 7},
                                        {30, " -30 ", 10, 7}};

/// The evenly spaced rings from the rim inwards, with their two sets of labels. The rim and the centre have
/// no label below the centre, and the centre none at all for amplitudes.
struct LinearLabel {
  double Fraction;
  std::string_view DbText;
  std::string_view AmplitudeText;
  float Left;
  float Up;
  bool AlsoBelow;
};
constexpr LinearLabel kLinearLabels[] = {
    {1.0, "0 dB", " 1.0 ", 10, 12, false}, {0.8, " -10 ", " 0.8 ", 11, 6, true},
    {0.6, " -20 ", " 0.6 ", 10, 6, true},  {0.4, " -30 ", " 0.4 ", 10, 6, true},
    {0.2, " -40 ", " 0.2 ", 10, 6, true},  {0.0, " -50 ", "", 10, 6, false}};
constexpr double kLinearRings[] = {1.0, 0.4, 0.6, 0.8};

float Share(const PlotGeometry& geometry, double fraction) {
  return static_cast<float>(geometry.R * fraction);
}

CircularGrid MakeLogGrid(const PlotGeometry& geometry, int scaleFactor) {
  const RingTable table(geometry.R, scaleFactor);
  CircularGrid grid;
  grid.BlankRadius = table.Radius(kBlankDb);
  for (const LogRing& ring : kLogRings) grid.Rings.push_back({table.Radius(ring.LevelDb), ring.PenWidth});
  const auto above = [&](const LogLabel& label) {
    const float top = geometry.Y - table.Radius(label.LevelDb) - label.Up;
    grid.Labels.push_back({label.Text, {geometry.X - label.Left, top}});
  };
  for (const LogLabel& label : kLogLabelsAbove) above(label);
  if (scaleFactor >= kDeepestLabelFromScale) above(kDeepestLogLabel);
  for (const LogLabel& label : kLogLabelsBelow) {
    const float top = geometry.Y + table.Radius(label.LevelDb) - label.Up;
    grid.Labels.push_back({label.Text, {geometry.X - label.Left, top}});
  }
  return grid;
}

CircularGrid MakeLinearGrid(const PlotGeometry& geometry, bool inDb) {
  CircularGrid grid;
  grid.BlankRadius = Share(geometry, kBlankFraction);
  for (const double fraction : kLinearRings) grid.Rings.push_back({Share(geometry, fraction), 1});
  const auto add = [&](const LinearLabel& label, float height) {
    const std::string_view text = inDb ? label.DbText : label.AmplitudeText;
    if (!text.empty()) grid.Labels.push_back({text, {geometry.X - label.Left, height - label.Up}});
  };
  for (const LinearLabel& label : kLinearLabels) add(label, geometry.Y - Share(geometry, label.Fraction));
  for (const LinearLabel& label : kLinearLabels) {
    if (label.AlsoBelow) add(label, geometry.Y + Share(geometry, label.Fraction));
  }
  return grid;
}

void DrawRadials(Plotter& plotter, Colour colour) {
  plotter.Pen().PenDown = false;
  plotter.Surface().SetPenWidth(1);
  for (int degrees = 0; degrees <= 359; degrees += 10) {
    auto angleDeg = static_cast<float>(degrees);
    const SurfacePoint rim = plotter.PlotPoint(angleDeg, plotter.Geometry().R);
    plotter.Surface().Line(rim, plotter.Geometry().Centre(), colour);
  }
}

void BlankMiddle(Plotter& plotter, float radius, Colour colour) {
  DrawingSurface& surface = plotter.Surface();
  const Colour savedColour = surface.FillColour();
  const FillStyle savedStyle = surface.CurrentFillStyle();
  surface.SetFillColour(surface.BackgroundColour());
  surface.SetFillStyle(FillStyle::Solid);
  surface.Circle(plotter.Geometry().Centre(), radius, colour);
  surface.SetFillColour(savedColour);
  surface.SetFillStyle(savedStyle);
}

void DrawRings(Plotter& plotter, const std::vector<GridRing>& rings, Colour colour) {
  for (const GridRing& ring : rings) {
    plotter.Surface().SetPenWidth(ring.PenWidth);
    plotter.Surface().Circle(plotter.Geometry().Centre(), ring.Radius, colour);
  }
}

}  // namespace

CircularGrid MakeCircularGrid(const PlotGeometry& geometry, const PlotStyle& style) {
  return style.Logarithmic() ? MakeLogGrid(geometry, style.ScaleSetting)
                             : MakeLinearGrid(geometry, style.InDb());
}

void DrawCircularGrid(Plotter& plotter, const PlotStyle& style, const PlotColours& colours, GridOver over) {
  if (style.Rectangular) {
    DrawRectangularGrid(plotter, style, colours, over);
    return;
  }
  DrawingSurface& surface = plotter.Surface();
  const Colour colour = colours.PlotGridColour;
  if (over == GridOver::Cleared) surface.Clear();
  PlotPen& pen = plotter.Pen();
  PlotMapping& mapping = plotter.Mapping();
  mapping.Rectangular = false;
  pen.TraceColour = colour;
  const float savedRotation = mapping.RotationOffset;
  mapping.RotationOffset = 0.0F;
  LabelFont font(surface);
  const CircularGrid grid = MakeCircularGrid(plotter.Geometry(), style);
  DrawRadials(plotter, colour);
  BlankMiddle(plotter, grid.BlankRadius, colour);
  DrawRings(plotter, grid.Rings, colour);
  DrawGridLabels(surface, grid.Labels, colour);
  font.Restore();
  pen.TraceColour = colours.PlotUserColour;
  mapping.RotationOffset = savedRotation;
  surface.SetPenWidth(2);
}

}  // namespace lobegraph
