#pragma once

#include "processing/PlotResult.h"
#include "render/Colour.h"
#include "render/Plotter.h"

namespace lobegraph {

/// How a pattern is drawn over the grid.
struct TraceOptions {
  float RotationOffset = 0.0F;  ///< degrees, see RotationOffsetOf
  bool Overlay = false;         ///< the second pattern: the overlay colours
  bool chkShow3dB = true;       ///< draw the lines at the -3 dB points
  Colour PlotLineColour;
  Colour PlotLineOverlayColour;
  Colour PlotUserColour;  ///< -3 dB lines
  Colour PlotUserOverlayColour;
};

/// Draws the trace of a plot and, when asked for, its two -3 dB lines: in the circle from the centre, in the
/// rectangular drawing upright from the bottom edge. Draws what a result holds, which is nothing for a
/// refused plot; the -3 dB lines need a complete one. Leaves the rotation offset, the trace colour and the
/// pen as the trace had them.
void DrawTrace(Plotter& plotter, const PlotResult& result, const TraceOptions& options);

/// Makes ready for a new trace: its first point will be a dot.
void StartTrace(Plotter& plotter, Colour traceColour, float rotationOffset);

/// Draws the next point of a trace that StartTrace began, at once: the live reading of a run.
/// @param angleDeg clockwise, before rotation. @param radius surface units.
/// @return where the trace now ends.
SurfacePoint DrawTracePoint(Plotter& plotter, float angleDeg, float radius);

}  // namespace lobegraph
