#pragma once

#include <optional>

#include "app/parts/AppParts.h"
#include "processing/session/Outcome.h"
#include "render/AnalysisLines.h"
#include "render/PlotColours.h"
#include "render/Plotter.h"

namespace lobegraph {

/// The drawing side of the main window: grids and traces with the colours, scales and controls of the moment.
class PlotBoard {
 public:
  PlotBoard(const AppParts& parts, DrawingSurface& surface, const PlotGeometry& geometry)
      : parts_(parts), plotter_(surface, geometry), lines_(geometry) {}

  /// The empty plot with the labels on it. A fault of the circular grid ends the program, one of the
  /// rectangular drawing does not.
  void DrawGrid(const show::Grid& grid);
  /// A pattern over what is drawn.
  void DrawPattern(const show::Trace& trace);

  /// A live trace starts anew in PlotUserColour. @param rotationOffset degrees
  void StartLiveTrace(float rotationOffset);
  void UsePlotUserColour();
  void PlotPoint(float positionDeg, float radius);

  /// From now on only a new background is seen, until the colours are released.
  void KeepColours() { kept_ = Colours(); }
  void ReleaseColours() { kept_.reset(); }

  /// What lies above the picture; forgotten whenever the surface is cleared.
  AnalysisLines& Lines() { return lines_; }
  /// The angles and units that the grid has no labels for. They stand above the picture.
  const PictureLayer& Axis() const { return axis_; }
  const PlotGeometry& Geometry() const { return plotter_.Geometry(); }

 private:
  void ShowLabels(const show::Grid& grid);
  void ShowAnalysisControls(bool rectangular);
  PlotColours Colours() const;

  AppParts parts_;
  Plotter plotter_;
  AnalysisLines lines_;
  PictureLayer axis_;
  std::optional<PlotColours> kept_;
};

}  // namespace lobegraph
