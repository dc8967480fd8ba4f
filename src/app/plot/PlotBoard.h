#pragma once

#include "app/parts/AppParts.h"
#include "processing/PreparePlot.h"
#include "render/AnalysisLines.h"
#include "render/GridOptions.h"
#include "render/Plotter.h"

namespace lobegraph {

/// The drawing side of the main window: grids and traces with the colours, scales and controls of the moment.
class PlotBoard {
 public:
  PlotBoard(const AppParts& parts, DrawingSurface& surface, const PlotGeometry& geometry)
      : parts_(parts), plotter_(surface, geometry), lines_(geometry) {}

  /// The empty plot of the chosen form with the labels on it. While a second pattern is coming nothing is
  /// cleared. A fault of the circular grid ends the program, one of the rectangular drawing does not.
  void DrawCircularGrid();

  /// A pattern over what is drawn. @param overlay in the overlay's colours
  void DrawPattern(const ReadingsRecord& record, const PlotResult& plot, bool overlay, bool show3dB);

  /// A live trace starts anew in PlotUserColour, turned as the record says, or by the given degrees.
  void StartLiveTrace();
  void StartLiveTrace(float rotationOffset);
  void UsePlotUserColour();
  void PlotPoint(float positionDeg, float radius);

  /// Scales and sizes of the moment for a plot of the record.
  PlotOptions Options() const;
  /// What lies above the picture; forgotten whenever the surface is cleared.
  AnalysisLines& Lines() { return lines_; }
  const PlotGeometry& Geometry() const { return plotter_.Geometry(); }

 private:
  void ShowLabels();
  void ShowAnalysisControls();
  GridOptions Grid() const;

  AppParts parts_;
  Plotter plotter_;
  AnalysisLines lines_;
};

}  // namespace lobegraph
