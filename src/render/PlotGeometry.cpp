#include "render/PlotGeometry.h"

#include "data/base/Rounding.h"

namespace lobegraph {

PlotGeometry MakePlotGeometry(float surfaceWidth, float surfaceHeight, float panelWidth) {
  PlotGeometry geometry;
  geometry.X = (surfaceWidth - panelWidth) / 2.0F;
  geometry.Y = surfaceHeight / 2.0F + 3.0F;
  return geometry;
}

PlotArea MakePlotArea(const PlotGeometry& geometry) {
  PlotArea area;
  area.Left = ToInt16(geometry.X - geometry.R + 10.0F);
  area.Right = ToInt16(area.Left + 2.0F * geometry.R);
  area.Top = ToInt16(geometry.Y - geometry.R / 2.0F - 6.0F);
  area.Bottom = ToInt16(area.Top + geometry.R);
  return area;
}

}  // namespace lobegraph
