#pragma once

#include "app/plot/PatternDisplay.h"

namespace lobegraph {

/// The commands that change how the pattern is shown, and what is read off it. None of them draws while a
/// collection runs.
class PlotCommands {
 public:
  PlotCommands(const AppParts& parts, PatternDisplay& display) : parts_(parts), display_(display) {}

  /// Enter in the box of rotation or trims.
  void txtRotate_Enter();
  void cmdLinear_Click();
  void cmdLogLin_Click();
  void chkPlotInDB_Click();
  void chk180_Click();
  void chkShow3dB_Click();
  void Slider1_Change();
  void cmdPolarization_Click();
  void cboElements_Change();
  void cmdIntegrate_Click();

 private:
  AppParts parts_;
  PatternDisplay& display_;
};

}  // namespace lobegraph
