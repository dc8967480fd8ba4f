#include "render/grid/RectangularGrid.h"

#include "data/base/Rounding.h"
#include "render/grid/RingTable.h"

namespace lobegraph {
namespace {

constexpr Colour kPaper{250, 250, 250};
constexpr int kAngleSteps = 36;
constexpr int kQuarterSteps = 9;
constexpr float kDashUnits = 2.0F;
constexpr float kDashPeriod = 4.0F;
constexpr float kLabelLeft = 20.0F;
constexpr float kLabelUp = 7.0F;
constexpr double kMinus3dBOn50dBScale = 47.0 / 50.0;
constexpr double kMinus3dBAmplitude = 0.707;

struct LogLevel {
  float LevelDb;
  int PenWidth;
  bool Dashed = false;
};
constexpr LogLevel kLogLevels[] = {{2, 1},  {3, 1, true}, {4, 1},  {6, 1},  {8, 1},  {10, 2},
                                   {12, 1}, {14, 1},      {16, 1}, {18, 1}, {20, 2}, {22, 1},
                                   {24, 1}, {26, 1},      {28, 1}, {30, 2}, {40, 2}, {50, 2}};

struct LogLabel {
  float LevelDb;
  std::string_view Text;
};
constexpr LogLabel kLogLabels[] = {{2, " -2"},  {4, " -4"},  {6, " -6"},  {8, " -8"},
                                   {10, "-10"}, {20, "-20"}, {30, "-30"}, {40, "-40"}};

constexpr double kLinearLevels[] = {0.2, 0.4, 0.6, 0.8};

struct LinearLabel {
  double Fraction;
  std::string_view DbText;
  std::string_view AmplitudeText;
};
constexpr LinearLabel kLinearLabels[] = {
    {0.8, "-10", "0.8"}, {0.6, "-20", "0.6"}, {0.4, "-30", "0.4"}, {0.2, "-40", "0.2"}, {0.0, "-50", "0.0"}};

std::vector<AngleLine> MakeAngleLines(const PlotArea& area, float fullScaleRadius) {
  const int step = ToInt16(2.0F * fullScaleRadius / kAngleSteps);
  const int last = ToInt16(2.0F * fullScaleRadius - static_cast<float>(step));
  std::vector<AngleLine> lines;
  int count = 0;
  for (int x = step; x <= last; x += step) {
    ++count;
    lines.push_back({ToInt16(area.Left + x), count % kQuarterSteps == 0 ? 2 : 1});
  }
  return lines;
}

void AddLabel(RectangularGrid& grid, std::string_view text, float height) {
  grid.Labels.push_back({text, {grid.Area.Left - kLabelLeft, height - kLabelUp}});
}

void AddLogLevels(RectangularGrid& grid, const RingTable& table) {
  const auto heightOf = [&](float levelDb) { return grid.Area.Bottom - table.Radius(levelDb); };
  for (const LogLevel& level : kLogLevels) {
    grid.LevelLines.push_back({heightOf(level.LevelDb), level.PenWidth, level.Dashed});
  }
  AddLabel(grid, "  0", grid.Area.Top);
  for (const LogLabel& label : kLogLabels) AddLabel(grid, label.Text, heightOf(label.LevelDb));
}

void AddLinearLevels(RectangularGrid& grid, float fullScaleRadius, bool inDb) {
  const auto heightOf = [&](double fraction) {
    return static_cast<float>(grid.Area.Bottom - fullScaleRadius * fraction);
  };
  grid.LevelLines.push_back({heightOf(inDb ? kMinus3dBOn50dBScale : kMinus3dBAmplitude), 1, true});
  for (const double fraction : kLinearLevels) grid.LevelLines.push_back({heightOf(fraction), 1, false});
  AddLabel(grid, inDb ? "0dB" : "1.0", grid.Area.Top);
  for (const LinearLabel& label : kLinearLabels) {
    AddLabel(grid, inDb ? label.DbText : label.AmplitudeText, heightOf(label.Fraction));
  }
}

SurfacePoint TopLeft(const PlotArea& area) {
  return {static_cast<float>(area.Left), static_cast<float>(area.Top)};
}
SurfacePoint BottomRight(const PlotArea& area) {
  return {static_cast<float>(area.Right), static_cast<float>(area.Bottom)};
}

void DrawAngleLines(DrawingSurface& surface, const RectangularGrid& grid, Colour colour) {
  for (const AngleLine& line : grid.AngleLines) {
    const auto x = static_cast<float>(line.X);
    surface.SetPenWidth(line.PenWidth);
    surface.Line({x, TopLeft(grid.Area).Y}, {x, BottomRight(grid.Area).Y}, colour);
  }
}

void DrawDashed(DrawingSurface& surface, const PlotArea& area, float y, Colour colour) {
  const float last = BottomRight(area).X - kDashUnits;
  for (float x = area.Left; x <= last; x += kDashPeriod) surface.Line({x, y}, {x + kDashUnits, y}, colour);
}

void DrawLevelLines(DrawingSurface& surface, const RectangularGrid& grid, Colour colour) {
  for (const LevelLine& line : grid.LevelLines) {
    surface.SetPenWidth(line.PenWidth);
    if (line.Dashed) {
      DrawDashed(surface, grid.Area, line.Y, colour);
    } else {
      surface.Line({TopLeft(grid.Area).X, line.Y}, {BottomRight(grid.Area).X, line.Y}, colour);
    }
  }
}

}  // namespace

RectangularGrid MakeRectangularGrid(const PlotGeometry& geometry, const PlotStyle& style) {
  RectangularGrid grid;
  grid.Area = MakePlotArea(geometry);
  grid.AngleLines = MakeAngleLines(grid.Area, geometry.R);
  if (style.Logarithmic()) {
    AddLogLevels(grid, RingTable(geometry.R, style.ScaleSetting));
  } else {
    AddLinearLevels(grid, geometry.R, style.InDb());
  }
  return grid;
}

void DrawRectangularGrid(Plotter& plotter, const PlotStyle& style, const PlotColours& colours,
                         GridOver over) {
  DrawingSurface& surface = plotter.Surface();
  const Colour colour = colours.PlotGridColour;
  if (over == GridOver::Cleared) surface.Clear();
  plotter.Mapping().Rectangular = true;
  plotter.Pen().PenDown = false;
  plotter.Pen().TraceColour = colour;
  const RectangularGrid grid = MakeRectangularGrid(plotter.Geometry(), style);
  if (over == GridOver::Cleared) surface.FilledBox(TopLeft(grid.Area), BottomRight(grid.Area), kPaper);
  DrawAngleLines(surface, grid, colour);
  surface.SetPenWidth(2);
  surface.BoxOutline(TopLeft(grid.Area), BottomRight(grid.Area), colour);
  surface.SetPenWidth(1);
  DrawLevelLines(surface, grid, colour);
  LabelFont font(surface);
  DrawGridLabels(surface, grid.Labels, colour);
  font.Restore();
  surface.SetPenWidth(2);
}

}  // namespace lobegraph
