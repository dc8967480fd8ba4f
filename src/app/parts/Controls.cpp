#include "app/parts/Controls.h"

#include <array>

namespace lobegraph {
namespace {

using enum Control;
using enum ControlKind;

constexpr auto kTable = std::to_array<ControlRow>({
    {cmdChooseInput, "cmdChooseInput", Button, "&Choose Input", "Choose mic or line-in as input source", ""},
    {lblSource, "lblSource", Label, "", "Where the level comes from", "Input source"},
    {txtChan1, "txtChan1", ReadOnlyBox, "0.0", "Input level", "Input level"},
    {chkCalibrate, "chkCalibrate", CheckBox, "Calibrate &Input", "Calibrate input and trigger level", ""},
    {chkAutoStart, "chkAutoStart", CheckBox, "Auto Start", "Auto start on detection of signal", ""},
    {chkAutoStop, "chkAutoStop", CheckBox, "Auto Stop", "Auto stop on loss of signal", ""},
    {chkTrigger, "chkTrigger", CheckBox, "Triggered", "Readings taken by external trigger", ""},
    {cmdCollectData, "cmdCollectData", Button, "Collect &Data", "Start collecting readings", ""},
    {cmdHaltInput, "cmdHaltInput", Button, "&Halt Collection", "Stop collecting readings", ""},
    {cmdTrigger, "cmdTrigger", Button, "Manual Trigger", "Start collecting readings", ""},
    {Label9, "Label9", Label, "Rotation Time", "", ""},
    {Slider2, "Slider2", Slider, "", "Seconds for a 360 degree plot", "Rotation time in seconds"},
    {lblRotationTime, "lblRotationTime", Label, "", "Seconds for a 360 degree plot", "Rotation time chosen"},
    {Label8, "Label8", Label, "Reading", "", ""},
    {txtReadingNumber, "txtReadingNumber", ReadOnlyBox, "", "Current reading number",
     "Current reading number"},
    {cmdLinear, "cmdLinear", Button, "Circ / R&ect", "Show a circular or rectangular plot", ""},
    {cmdLogLin, "cmdLogLin", Button, "&Lin / Log", "Show a linear or log scale", ""},
    {cmdOverlay, "cmdOverlay", Button, "Overla&y", "Overlay another plot on the one currently shown", ""},
    {chkPlotInDB, "chkPlotInDB", CheckBox, " Plot in dB", "Tick to plot readings in dB values", "Plot in dB"},
    {chk180, "chk180", CheckBox, "180 Plot", "Plot over 180 degrees", ""},
    {chkShow3dB, "chkShow3dB", CheckBox, "Show -3dB", "", ""},
    {lblScalePlot, "lblScalePlot", Label, "Rescale Plot", "", ""},
    {Slider1, "Slider1", Slider, "", "Rescale the log display", "Scale of the log display"},
    {txtTrimFront, "txtTrimFront", TextBox, "", "Readings to trim from front of plot",
     "Readings trimmed from the front"},
    {lblTrim, "lblTrim", Label, "Front <- Readings trimmed -> Back", "", ""},
    {txtTrimEnd, "txtTrimEnd", TextBox, "", "Readings to trim from end of plot",
     "Readings trimmed from the end"},
    {lblDegreesRotated, "lblDegreesRotated", Label, "Degrees Rotated", "", ""},
    {txtRotate, "txtRotate", TextBox, "", "Number of degrees to rotate the plot", "Degrees rotated"},
    {lblNumberOfReadings, "lblNumberOfReadings", Label, "No. of Readings", "", ""},
    {txtReadingsPlotted, "txtReadingsPlotted", ReadOnlyBox, "", "Number of readings taken",
     "Number of readings"},
    {cmdRescaleData, "cmdRescaleData", Button, "&Rescale", "Rescale and redraw the plot", ""},
    {cmdOriginalData, "cmdOriginalData", Button, "&Original", "Revert to original readings", ""},
    {cmdSmooth, "cmdSmooth", Button, "S&mooth", "Smooth the reading values taken", ""},
    {cmdReverse, "cmdReverse", Button, "Re&verse", "Reverse the sequence of readings taken", ""},
    {cmdDeSpike, "cmdDeSpike", Button, "De-Spi&ke", "Remove spike readings", ""},
    {chkEditor, "chkEditor", CheckBox, "Show editor", "", ""},
    {lblElements, "lblElements", Label, "Elements", "", ""},
    {cboElements, "cboElements", DropDown, "", "Number of antenna elements", "Number of antenna elements"},
    {Label1, "Label1", Label, "Polarization", "", ""},
    {cmdPolarization, "cmdPolarization", Button, "Hori&zontal", "Polarization of antenna when readings taken",
     ""},
    {lblAngle, "lblAngle", Label, "Angle", "", ""},
    {txtAngle, "txtAngle", ReadOnlyBox, "0.00", "Angle of -3dB down points", "Beamwidth in degrees"},
    {lblGain, "lblGain", Label, "Est Gain", "", ""},
    {txtGain, "txtGain", ReadOnlyBox, "", "Estimate of gain", "Estimated gain"},
    {cmdIntegrate, "cmdIntegrate", Button, "Direc&tivity",
     "Recalculate the gain estimate by integration of plot pattern", ""},
    {cmdGetData, "cmdGetData", Button, "&Get File", "Get a saved file", ""},
    {cmdSaveData, "cmdSaveData", Button, "&Save File", "Save a file", ""},
    {cmdPrint, "cmdPrint", Button, "&Print", "Print the window", ""},
    {cmdExit, "cmdExit", Button, "E&xit", "Exit the program", ""},
    {lblFile, "lblFile", Label, "File Name", "", ""},
    {txtFileName, "txtFileName", ReadOnlyBox, "", "", "File name"},
    {lblDescription, "lblDescription", Label, "Description", "", ""},
    {txtDescription, "txtDescription", TextBox, "", "", "Description of the pattern"},
    {lblOperator, "lblOperator", Label, "", "Double-click to enter the operator's name", "Operator"},
    {lblDateTime, "lblDateTime", Label, "DateTime", "", "Date and time"},
    {lblCollectTitle, "lblCollectTitle", Label, "Collected by:", "", ""},
    {lblCollectedBy, "lblCollectedBy", Label, "", "", "Collected by whom"},
    {lblCollectedDate, "lblCollectedDate", Label, "", "", "Collected when"},
    {lblFileDescription, "lblFileDescription", Label, "", "", "Description shown with the plot"},
    {lblNotice, "lblNotice", Label, "", "", "Notice"},
    {lblHint, "lblHint", Label, "", "", "What to do next"},
    {cmdShrink, "cmdShrink", Button, "<-Shri&nk", "Hide the form's controls", ""},
    {cmdGrow, "cmdGrow", Button, "Gro&w->", "Show the form's controls", ""},
    {cmdPatternAnalysis, "cmdPatternAnalysis", Button, "Pattern Analysis",
     "Show the pattern analysis controls", ""},
    {txtX, "txtX", ReadOnlyBox, "", "", "Angle at the pointer"},
    {txtY, "txtY", ReadOnlyBox, "", "", "Level at the pointer"},
    {lblLeftButtonValue, "lblLeftButtonValue", Label, "Upper line: -dB level", "", ""},
    {txtLeftY, "txtLeftY", ReadOnlyBox, "", "", "Level of the upper line"},
    {cmdClearLeftY, "cmdClearLeftY", Button, "Clear", "Clear the upper line", "Clear the upper line"},
    {lblRightButtonValue, "lblRightButtonValue", Label, "Lower line: -dB level", "", ""},
    {txtRightY, "txtRightY", ReadOnlyBox, "", "", "Level of the lower line"},
    {cmdClearRightY, "cmdClearRightY", Button, "Clear", "Clear the lower line", "Clear the lower line"},
});
static_assert(kTable.size() == static_cast<std::size_t>(kCount));

constexpr std::array<std::string_view, 7> kElementItems = {"  1", "  2", "  3",   "  4",
                                                           "  5", "  8", "  > 8!"};

constexpr std::array kLockedInCollection = {
    cmdCollectData, chkCalibrate,    cmdExit,   cmdChooseInput, cmdPolarization, cmdRescaleData, cmdReverse,
    cmdDeSpike,     cmdOriginalData, cmdShrink, cmdGrow,        cmdGetData,      cmdOverlay,     cmdSaveData,
    cmdPrint,       cmdLinear,       cmdLogLin, cmdSmooth,      cmdIntegrate,    chkPlotInDB};

constexpr std::array kLockedInSweep = {cmdExit,    cmdChooseInput, cmdPolarization, cmdRescaleData,
                                       cmdReverse, cmdDeSpike,     cmdOriginalData, cmdShrink,
                                       cmdGrow,    cmdGetData,     cmdOverlay,      cmdSaveData,
                                       cmdPrint,   cmdSmooth,      cmdIntegrate};

constexpr std::array kAnalysisControls = {txtX,     txtY,      lblLeftButtonValue, lblRightButtonValue,
                                          txtLeftY, txtRightY, cmdClearLeftY,      cmdClearRightY};

constexpr std::array kLabelsOnPlot = {lblOperator,      lblDateTime,        lblCollectTitle, lblCollectedBy,
                                      lblCollectedDate, lblFileDescription, lblNotice,       lblHint};

constexpr std::array kTextOnPlot = {lblOperator,      lblDateTime,        lblCollectTitle, lblCollectedBy,
                                    lblCollectedDate, lblFileDescription, lblNotice,       cmdShrink};

}  // namespace

std::span<const ControlRow> ControlTable() { return kTable; }
const ControlRow& RowOf(Control control) { return kTable.at(static_cast<std::size_t>(control)); }
std::span<const std::string_view> ElementItems() { return kElementItems; }
std::span<const Control> LockedInCollection() { return kLockedInCollection; }
std::span<const Control> LockedInSweep() { return kLockedInSweep; }
std::span<const Control> AnalysisControls() { return kAnalysisControls; }
std::span<const Control> LabelsOnPlot() { return kLabelsOnPlot; }
std::span<const Control> TextOnPlot() { return kTextOnPlot; }

}  // namespace lobegraph
