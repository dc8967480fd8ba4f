#pragma once

#include <optional>
#include <span>
#include <vector>

#include "data/record/ReadingsRecord.h"

namespace lobegraph {

/// The plotted readings as levels over angle.
struct PatternCut {
  std::vector<double> LevelDb;  ///< dB, 0 at the strongest, in the order of collection
  double StepDeg = 0.0;         ///< degrees between neighbours
  double StartDeg = 0.0;        ///< bearing of the first one on the plot, clockwise
  bool FullTurn = true;         ///< the last one is a neighbour of the first; else the cut has two ends

  /// Bearing of a place between samples, 0 up to 360.
  double BearingOf(double position) const;
};

/// The plotted part of a record whose plot fields have been settled; none when a level has no dB value (0 or
/// less).
std::optional<PatternCut> CutOf(const ReadingsRecord& record);

/// dBi from beamwidths and from the cut itself. Their formulas stand in docs/figures.md.
struct DirectivityEstimates {
  std::optional<double> Kraus;
  std::optional<double> TaiPereira;
  std::optional<double> Integrated;
};

/// What peers show of a pattern. Degrees and dB; none where the pattern does not have it. See
/// docs/figures.md.
struct CutFigures {
  std::optional<double> Hpbw;         ///< between the -3 dB crossings, interpolated
  std::optional<double> Hpbw10;       ///< between the -10 dB crossings
  std::optional<double> Fnbw;         ///< between the first nulls: at least 3 dB below both their lobes
  std::optional<double> PeakBearing;  ///< parabola through the strongest reading and its neighbours
  std::optional<double> BeamCentre;   ///< middle of the -3 dB crossings, 0 up to 360
  std::optional<double> Squint;       ///< the same, signed from the top of the plot: above -180 up to 180
  std::optional<double> FrontToBack;  ///< against the level at 180 degrees from the peak
  std::optional<double> FrontToRear;  ///< against the strongest level from 90 to 270 degrees
  std::optional<double> FrontToRearSector;  ///< against the strongest level from 150 to 210 degrees
  std::optional<double> FrontToSide;        ///< against the stronger of the levels at 90 and 270 degrees
  std::optional<double> SideLobeLevel;      ///< strongest lobe besides the main one, at most 0
  std::optional<double> SideLobeAngle;      ///< its bearing
  std::optional<double> Ripple;             ///< strongest level against weakest
  std::optional<double> Closure;            ///< where the end of the turn arrives against its start
  DirectivityEstimates Directivity;
};

/// @param elementRatio second plane's beamwidth as a multiple of the first's; none: no estimate from
/// beamwidths
CutFigures FiguresOfCut(const PatternCut& cut, std::optional<double> elementRatio);

/// The figures of the plotted part; all of them none when there is nothing to measure.
CutFigures FiguresOfRecord(const ReadingsRecord& record);

}  // namespace lobegraph
