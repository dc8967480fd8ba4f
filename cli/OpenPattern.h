#pragma once

#include <optional>
#include <string>
#include <vector>

#include "data/base/FileAccess.h"
#include "processing/session/PatternSession.h"

namespace lobegraph {

/// A command of the window that changes the readings or their orientation.
enum class Transform { Smooth, Reverse, DeSpike, Orient, Original };

/// What is asked of every pattern: how it is read, held and shown, and what is done to it.
struct PatternOptions {
  PlotStyle Style = {};
  PatternRules Rules = {};
  bool Table = false;                                ///< a CSV file has several columns
  std::optional<std::string> Rotate = std::nullopt;  ///< typed into its box after the load; none: not touched
  std::optional<std::string> TrimFront = std::nullopt;
  std::optional<std::string> TrimEnd = std::nullopt;
  std::vector<Transform> Apply = {};  ///< then these, in their order
};

/// A pattern of a file, with all that its window would have told.
struct OpenedPattern {
  PatternSession Session;
  std::vector<std::string> Messages;  ///< texts of the boxes that came up, in order
  std::string RotateText = "0";       ///< what stands in the box of the rotation

  /// The file could not be read whole, or what the last command made of it cannot be plotted.
  const std::optional<RunTimeError>& Error() const { return Session.LastFault(); }
};

/// Loads, types, applies. Never throws for a bad file: see Error.
/// @param overScale the scale setting of the plot that this pattern is drawn over; none: its own counts
OpenedPattern OpenPattern(FileAccess& files, const std::string& path, const PatternOptions& options,
                          std::optional<int> overScale = std::nullopt);

}  // namespace lobegraph
