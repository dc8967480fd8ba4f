#pragma once

#include "app/parts/AppParts.h"
#include "render/AnalysisLines.h"

namespace lobegraph {

/// Reading angles and levels off the rectangular drawing. The mouse and the arrow keys act only while the
/// pattern analysis is switched on, the plot is rectangular and no run is on.
class AnalysisCommands {
 public:
  AnalysisCommands(const AppParts& parts, AnalysisLines& lines) : parts_(parts), lines_(lines) {}

  void cmdPatternAnalysis_Click();
  void cmdClearLeftY_Click();
  void cmdClearRightY_Click();

  /// @param buttons a set of MouseButtons: all that are now pressed
  void MouseDown(unsigned buttons, SurfacePoint at);
  /// @return whether the pointer is to be a cross-hair
  bool MouseMove(SurfacePoint at);
  /// @param button the one that was released
  void MouseUp(unsigned button, SurfacePoint at);
  /// The keyboard's way: moves a line by whole units and shows its level at once.
  void Step(AnalysisSide side, int units);

  const PictureLayer& Layer() const { return lines_.Layer(); }

 private:
  bool Acts() const;
  void ShowLevel(Control box, float height);
  void Clear(AnalysisSide side, Control box);

  AppParts parts_;
  AnalysisLines& lines_;
};

}  // namespace lobegraph
