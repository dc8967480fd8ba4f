#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "data/base/RunTimeError.h"
#include "processing/PlotResult.h"

namespace lobegraph {

/// What a command asks whoever shows a pattern to do, step by step. Each step holds all that it shows.
namespace show {

/// The empty plot with its labels. Whatever was drawn is gone.
struct Grid {
  PlotStyle Style;
  std::string CollectedBy;
  std::string CollectedDate;
};

/// A pattern over what is drawn.
struct Trace {
  PlotResult Plot;
  bool Overlay = false;  ///< in the colours of a second pattern
  bool Marks = true;     ///< with the lines at its -3 dB points
};

/// What says which readings are plotted, and what they are.
struct PlotFields {
  float Rotate = 0.F;  ///< degrees
  std::int16_t TrimFront = 0;
  std::int16_t TrimEnd = 0;
  std::int16_t ReadingsPlotted = 0;
  std::string FileName;
  std::string Description;
};

/// Everything else that a record says of itself.
struct Details {
  std::string Elements;
  bool Plot180 = false;
  int ScaleSetting = 0;
  std::string CollectedBy;
  std::string CollectedDate;
  bool PolarizationHorizontal = true;
};

/// The former pattern's trims, rotation and name have gone.
struct Cleared {
  bool Description = false;  ///< its description as well
};

/// One number of the placement: degrees or readings, whole.
struct PlacementNumber {
  PlacementPart Part = PlacementPart::Rotate;
  double Value = 0.0;
};

/// Whether the set covers 180 degrees.
struct HalfTurn {
  bool Plot180 = false;
};

struct Polarization {
  bool Horizontal = true;
};

/// The figures of the beam, and what the gain was estimated with.
struct Figures {
  BeamFigures Beam;
  std::string Elements;
  bool Horizontal = true;
};

/// The gain by integration, in the place of the estimate.
struct IntegratedGain {
  double GainDbi = 0.0;
  std::string Elements;
  bool Horizontal = true;
};

/// A message that the user closes before the next step.
struct Message {
  std::string Text;
};

/// A fault, and the procedure that it ended.
struct Fault {
  RunTimeError Error;
  std::string Procedure;
};

}  // namespace show

using Step = std::variant<show::Grid, show::Trace, show::PlotFields, show::Details, show::Cleared,
                          show::PlacementNumber, show::HalfTurn, show::Polarization, show::Figures,
                          show::IntegratedGain, show::Message, show::Fault>;

/// What came of a command: the steps in their order, since messages stand between drawings.
struct Outcome {
  std::vector<Step> Steps;
  bool Plotted = false;  ///< it ended with the pattern drawn whole

  void Add(Step step) { Steps.push_back(std::move(step)); }
};

}  // namespace lobegraph
