#pragma once

#include "processing/PlotResult.h"
#include "render/PlotColours.h"
#include "render/Plotter.h"

namespace lobegraph {

/// Draws the trace of a plot and, when asked for, its two -3 dB lines: in the circle from the centre, in the
/// rectangular drawing upright from the bottom edge. Draws what a result holds, which is nothing for a
/// refused plot; the -3 dB lines need a complete one. Leaves the rotation offset, the trace colour and the
/// pen as the trace had them.
void DrawTrace(Plotter& plotter, const PlotResult& result, const TraceInk& ink, bool minus3dBMarks);

/// Makes ready for a new trace: its first point will be a dot.
void StartTrace(Plotter& plotter, Colour traceColour, float rotationOffset);

/// Draws the next point of a trace that StartTrace began, at once: the live reading of a run.
/// @param angleDeg clockwise, before rotation. @param radius surface units.
/// @return where the trace now ends.
SurfacePoint DrawTracePoint(Plotter& plotter, float angleDeg, float radius);

}  // namespace lobegraph
