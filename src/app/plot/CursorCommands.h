#pragma once

#include <optional>
#include <string>

#include "app/parts/AppParts.h"
#include "app/plot/PlotBoard.h"
#include "processing/CursorReading.h"

namespace lobegraph {

/// Reading the pattern at a bearing, in both drawings: what it is stands in the line at the foot of the plot,
/// which gets its words back afterwards. Nothing while a run uses that line, and without a pattern that can
/// be drawn.
class CursorCommands {
 public:
  CursorCommands(const AppParts& parts, PlotBoard& board) : parts_(parts), board_(board) {}

  /// The pointer is there, in units of the surface; beyond the plot it reads nothing.
  void PointAt(SurfacePoint at);
  /// By keys, so many readings clockwise: the first time the strongest one. A line on the plot shows where.
  void Step(int readings);
  void Leave();
  /// What stands in the line now; empty: nothing of the cursor.
  const std::string& Said() const { return said_; }

 private:
  bool Acts() const;
  std::optional<double> BearingAt(SurfacePoint at) const;
  void Mark(double bearingDeg);
  void Say(const std::string& text);

  AppParts parts_;
  PlotBoard& board_;
  int number_ = 0;    ///< of the reading that the keys have reached
  std::string said_;  ///< in the line now; empty: nothing
  std::string hintBefore_;
};

}  // namespace lobegraph
