#pragma once

#include "app/plot/PatternDisplay.h"

namespace lobegraph {

/// The commands that change the readings. Each ends with a redraw; the originals stay in the saved copy.
class TransformCommands {
 public:
  TransformCommands(const AppParts& parts, PatternDisplay& display) : parts_(parts), display_(display) {}

  void cmdSmooth_Click();
  void cmdReverse_Click();
  void cmdDeSpike_Click();
  /// The automatic orientation.
  void cmdRescaleData_Click();
  void cmdOriginalData_Click();

  /// Ctrl+Z: the last change of the pattern is taken back, whatever made it. During a run nothing happens.
  void Undo();
  /// Ctrl+Shift+Z, Ctrl+Y: it is taken again.
  void Redo();

 private:
  /// A pattern that ends with its beam at the top is worth keeping.
  void RunToTop(const PatternDisplay::Command& command);
  void Step(const PatternDisplay::Command& command, const char* hint);

  AppParts parts_;
  PatternDisplay& display_;
};

}  // namespace lobegraph
