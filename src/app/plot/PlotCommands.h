#pragma once

#include "app/parts/AppParts.h"
#include "app/plot/PlotBoard.h"
#include "processing/session/PatternCommands.h"

namespace lobegraph {

/// ReDraw and the commands that change how the readings are shown. None of them draws while a collection
/// runs.
class PlotCommands : public PatternFront {
 public:
  PlotCommands(const AppParts& parts, PlotBoard& board) : parts_(parts), board_(board) {}

  /// The plot of the record as boxes, check boxes and sliders now say: grid (unless a second pattern is drawn
  /// over the first), checks with their messages, trace, -3 dB points and figures. A fault is shown; the
  /// program lives on.
  PlotResult ReDraw() override;
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
  /// A command that draws anew ends an overlay.
  void EndOverlay();
  void ShowFigures(const std::string& txtAngle, const std::string& txtGain);

 private:
  PlotTexts Boxes() const override;
  void SetBox(PlotBox box, const std::string& text) override;
  PlotOptions Options() const override { return board_.Options(); }
  void ShowMessage(const std::string& text) override { parts_.Dialogs.ShowText(text); }
  void ShowPlotFields() override;
  void ShowPlot(const PlotResult& plot) override;
  void DrawBeneath(ReadingsRecord beneath);
  bool MayDraw() const { return !parts_.Shared.Run.IsCollecting; }

  AppParts parts_;
  PlotBoard& board_;
};

}  // namespace lobegraph
