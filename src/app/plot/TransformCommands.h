#pragma once

#include "app/parts/AppParts.h"
#include "app/plot/PlotBoard.h"
#include "app/plot/PlotCommands.h"

namespace lobegraph {

/// The commands that change the readings. Each ends with a redraw; the originals stay in the saved copy.
class TransformCommands {
 public:
  TransformCommands(const AppParts& parts, PlotBoard& board, PlotCommands& plot)
      : parts_(parts), board_(board), plot_(plot) {}

  void cmdSmooth_Click();
  void cmdReverse_Click();
  void cmdDeSpike_Click();
  /// The automatic orientation.
  void cmdRescaleData_Click();
  void cmdOriginalData_Click();

 private:
  void ShowOriginal();

  AppParts parts_;
  PlotBoard& board_;
  PlotCommands& plot_;
};

}  // namespace lobegraph
