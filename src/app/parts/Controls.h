#pragma once

#include <span>
#include <string_view>

namespace lobegraph {

/// Every control of the main window, by its name in the program.
enum class Control {
  cmdChooseInput,
  lblSource,
  txtChan1,
  chkCalibrate,
  chkAutoStart,
  chkAutoStop,
  chkTrigger,
  cmdCollectData,
  cmdHaltInput,
  cmdTrigger,
  Label9,
  Slider2,
  lblRotationTime,
  Label8,
  txtReadingNumber,
  cmdLinear,
  cmdLogLin,
  cmdOverlay,
  chkPlotInDB,
  chk180,
  chkShow3dB,
  lblScalePlot,
  Slider1,
  txtTrimFront,
  lblTrim,
  txtTrimEnd,
  lblDegreesRotated,
  txtRotate,
  lblNumberOfReadings,
  txtReadingsPlotted,
  cmdRescaleData,
  cmdOriginalData,
  cmdSmooth,
  cmdReverse,
  cmdDeSpike,
  chkEditor,
  lblElements,
  cboElements,
  Label1,
  cmdPolarization,
  lblAngle,
  txtAngle,
  lblGain,
  txtGain,
  cmdIntegrate,
  cmdGetData,
  cmdSaveData,
  cmdPrint,
  cmdExit,
  lblFile,
  txtFileName,
  lblDescription,
  txtDescription,
  lblOperator,
  lblDateTime,
  lblCollectTitle,
  lblCollectedBy,
  lblCollectedDate,
  lblFileDescription,
  lblNotice,
  lblHint,
  cmdShrink,
  cmdGrow,
  cmdPatternAnalysis,
  txtX,
  txtY,
  lblLeftButtonValue,
  txtLeftY,
  cmdClearLeftY,
  lblRightButtonValue,
  txtRightY,
  cmdClearRightY,
  kCount,
};

enum class ControlKind { Button, CheckBox, TextBox, ReadOnlyBox, Label, Slider, DropDown };

/// What a control is and says. Captions mark their accelerator letter with "&".
struct ControlRow {
  Control Id;
  std::string_view Name;
  ControlKind Kind;
  std::string_view Caption;
  std::string_view ToolTip;
  std::string_view AccessibleName;  ///< what a screen reader says, where the caption does not say it
};

/// The control table, one row for each Control in the order of the enumeration, which is the tab order.
std::span<const ControlRow> ControlTable();
const ControlRow& RowOf(Control control);

/// The entries of cboElements.
std::span<const std::string_view> ElementItems();

/// Disabled while a collection runs.
std::span<const Control> LockedInCollection();
/// Disabled while the calibrate sweep runs.
std::span<const Control> LockedInSweep();
/// Shown only while the pattern analysis is switched on in the rectangular drawing.
std::span<const Control> AnalysisControls();
/// Labels that lie on the plot and take its background.
std::span<const Control> LabelsOnPlot();
/// Seven labels and a button on the plot that can be switched off for a clean picture. The line that tells
/// what to do next stays.
std::span<const Control> TextOnPlot();

}  // namespace lobegraph
