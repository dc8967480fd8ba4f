#pragma once

#include "app/AppParts.h"
#include "app/PlotBoard.h"
#include "processing/PlotResult.h"

namespace lobegraph {

/// ReDraw and the commands that change how the readings are shown. None of them draws while a collection
/// runs.
class PlotCommands {
 public:
  PlotCommands(const AppParts& parts, PlotBoard& board) : parts_(parts), board_(board) {}

  /// The plot of the record as boxes, check boxes and sliders now say: grid (unless a second pattern is drawn
  /// over the first), checks with their messages, trace, -3 dB points and figures. A fault is shown; the
  /// program lives on.
  PlotResult ReDraw();
  /// The whole picture again as it is: an empty grid, or the pattern beneath and the one over it.
  void RedrawAll();

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

  /// Trims, rotation, count, file name and figures of the former pattern go, from the record and from the
  /// window.
  void ClearPlotFields();
  /// The record's words and plot fields into their controls.
  void ShowRecord();
  void ShowPolarization();
  /// The rotation as the whole number that the record holds.
  void ShowRotation();
  /// A command that draws anew ends an overlay.
  void EndOverlay();
  void ShowFigures(const std::string& txtAngle, const std::string& txtGain);

 private:
  PlotTexts Texts() const;
  void ShowPlotFields();
  void ShowRefusal(const PlotResult& plot);
  void Complete(PlotResult& plot);
  void DrawBeneath(ReadingsRecord beneath);
  bool MayDraw() const { return !parts_.Shared.Run.IsCollecting; }

  AppParts parts_;
  PlotBoard& board_;
};

}  // namespace lobegraph
