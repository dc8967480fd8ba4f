#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "processing/PlotStyle.h"

namespace lobegraph {

/// A point of a trace before rotation: degrees from the first plotted reading (clockwise), radius in surface
/// units.
struct TracePoint {
  float AngleDeg = 0.0F;
  float Radius = 0.0F;
};

/// The numbers that place a pattern on its plot.
enum class PlacementPart { Rotate, TrimFront, TrimEnd };

/// What is read off the beam. None where the pattern has no beamwidth between 0 and 180 degrees.
struct BeamFigures {
  std::optional<float> BeamwidthDeg;  ///< between the -3 dB points
  std::optional<double> GainDbi;      ///< estimate from the beamwidth
};

/// A plot as data: all that a window, a picture or a report shows of one pattern.
struct PlotResult {
  bool PlotDone = false;                 ///< the plot is complete
  std::optional<std::string> Message;    ///< why it was refused, for the user
  std::optional<PlacementPart> Refused;  ///< the value refused, already 0 in the record
  bool FieldsSettled = false;            ///< the checks passed: the record's plot fields are to be shown

  PlotScale Scale = PlotScale::Logarithmic;
  float DegreesPerReading = 0.0F;
  float RotationOffset = 0.0F;  ///< degrees added to every angle, see RotationOffsetOf
  /// The plotted points in order. A 360-degree figure ends with its first point once more, which closes it.
  std::vector<TracePoint> Trace;
  std::int16_t Minus3dBIndexA = 0;
  std::int16_t Minus3dBIndexB = 0;
  /// Lines from the centre at the -3 dB points, side A and side B. Deliberate: B's is 2 units shorter, so
  /// that the two can be told apart.
  std::array<TracePoint, 2> Minus3dBMarks{};

  float BeamwidthDeg = 0.0F;  ///< as the -3 dB points have it, 0 or 180 included
  BeamFigures Figures;
};

/// Rotation that a pattern is drawn with. A 180-degree set lies across the upper half of the circle, and in
/// the rectangular drawing it is centred on the axis.
constexpr float RotationOffsetOf(bool rectangular, bool plot180, float rotate) {
  if (!plot180) return rotate;
  return rectangular ? -90.0F : 270.0F;
}

}  // namespace lobegraph
