#pragma once

#include <string>
#include <vector>

#include "processing/Figures.h"

namespace lobegraph {

/// A figure as a person reads it.
struct FigureRow {
  std::string Name;
  std::string Value;       ///< with its unit; a dash where the pattern does not have it
  std::string Definition;  ///< what it is, in one sentence
};

/// What stands for a figure that there is none of.
inline constexpr const char* kNoFigure = "-";

/// Every figure of docs/figures.md, the beamwidth first. The window's own gain, an estimate from the
/// beamwidth between readings, is not among them.
std::vector<FigureRow> FigureRows(const CutFigures& figures);

/// The rows as text: a line each, name and value with a tab between them.
std::string FigureText(const std::vector<FigureRow>& rows);

}  // namespace lobegraph
