#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace lobegraph {

/// How a level becomes a radius.
enum class PlotScale {
  Logarithmic,  ///< R * 10^(-dB / scale setting)
  Db50,         ///< linear in dB, 50 dB from rim to centre
  Linear,       ///< proportional to the level
};

/// A point of a trace before rotation: degrees from the first plotted reading (clockwise), radius in surface
/// units.
struct TracePoint {
  float AngleDeg = 0.0F;
  float Radius = 0.0F;
};

/// Which box a refused value is taken from; it then shows "0".
enum class PlotBox { Rotate, TrimFront, TrimEnd };

/// A plot as data: all that a window, a picture or a report shows of one pattern.
struct PlotResult {
  bool PlotDone = false;              ///< the plot is complete
  std::vector<std::string> Messages;  ///< texts the user is shown, in order
  std::optional<PlotBox> ResetBox;    ///< the refused value, already 0 in the record
  bool FieldsShown = false;           ///< the checks passed: the record's plot fields are to be shown

  PlotScale Scale = PlotScale::Logarithmic;
  float DegreesPerReading = 0.0F;
  /// The plotted points in order. A 360-degree figure ends with its first point once more, which closes it.
  std::vector<TracePoint> Trace;
  std::int16_t Minus3dBIndexA = 0;
  std::int16_t Minus3dBIndexB = 0;
  /// Lines from the centre at the -3 dB points, side A and side B. Deliberate: B's is 2 units shorter, so
  /// that the two can be told apart.
  std::array<TracePoint, 2> Minus3dBMarks{};

  float BeamwidthDeg = 0.0F;
  std::optional<double> GainEstimate;  ///< dBi; none when there is no beamwidth between 0 and 180 degrees
  std::string txtAngle = "Angle";      ///< beamwidth with 2 decimals, or its placeholder
  std::string txtGain = "Gain";        ///< gain with 2 decimals and " dBi", or its placeholder
};

}  // namespace lobegraph
