#pragma once

#include <string>

#include "acquisition/core/StatusColour.h"

namespace lobegraph {

/// The main window as a run sees it. Reads give what the control holds at that moment.
class CollectionPanel {
 public:
  virtual ~CollectionPanel() = default;

  virtual bool chkAutoStart() const = 0;
  virtual bool chkAutoStop() const = 0;
  virtual bool chkTrigger() const = 0;
  virtual bool chkPlotInDB() const = 0;
  virtual bool chkCalibrate() const = 0;
  virtual int Slider1() const = 0;  ///< the logarithmic scale
  virtual int Slider2() const = 0;  ///< rotation time, whole seconds
  /// Text of lblDateTime, refreshed first.
  virtual std::string DateTimeText() = 0;
  /// The operator's name held for this run of the program.
  virtual std::string OperatorName() const = 0;

  /// Unticks chkCalibrate without running its click handler.
  virtual void UncheckCalibrate() = 0;
  /// Timer1 fires once and runs the calibrate sweep.
  virtual void EnableTimer1() = 0;
  virtual void DisableTimer1() = 0;

  /// Collect off, halt on with the focus, everything off that could start a second run or change the data.
  virtual void Lock() = 0;
  /// All of Lock back, the focus on rescale.
  virtual void Unlock() = 0;
  /// As Lock for a sweep: collect, calibrate and the display options stay in reach.
  virtual void LockForSweep() = 0;
  virtual void UnlockAfterSweep() = 0;
  virtual void PaintCalibrate(StatusColour background, bool bold) = 0;
  virtual void ShowManualTrigger(bool shown) = 0;

  /// Full-scale radius R of the plot, surface units.
  virtual float FullScaleRadius() const = 0;
  virtual void ClearOverlay() = 0;
  /// Trims, rotation, count, file name, figures; the description when it came from a file. In the record and
  /// its boxes.
  virtual void ClearPlotFields() = 0;
  /// The empty grid of the chosen form. The pen is up after it.
  virtual void DrawCircularGrid() = 0;
  /// The trace is drawn in PlotUserColour from now on.
  virtual void UsePlotUserColour() = 0;
  /// Prepares the plot for a trace that starts anew. @return degrees per reading: 1, or 0.5 for a 180-degree
  /// plot
  virtual float PrepareAngularStep() = 0;
  /// Joins the reading to the one before. Degrees in both drawings: the rectangular one scales them itself.
  virtual void PlotPoint(float positionDeg, float radius) = 0;

  /// txtChan1 with one decimal, grouped as the system groups.
  virtual void ShowLevel(float level) = 0;
  /// Background of txtChan1. Called at every sample, so a colour that is already there must cost nothing.
  virtual void PaintLevel(StatusColour background) = 0;
  /// txtChan1 "0.0" on yellow.
  virtual void ShowLevelAtRest() = 0;
  virtual void ShowReadingNumber(const std::string& txtReadingNumber) = 0;
  virtual void ShowReadingsPlotted(const std::string& txtReadingsPlotted) = 0;
  virtual void ShowTrimEnd(const std::string& txtTrimEnd) = 0;

  /// The reading stands in the record: what keeps a copy against a crash takes it now.
  virtual void ReadingStored(int index) = 0;
  /// A start was abandoned and the record is again what it was: every box, figure and the plot are to show
  /// it.
  virtual void ShowRecordAgain() = 0;
};

}  // namespace lobegraph
