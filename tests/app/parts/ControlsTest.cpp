#include "app/parts/Controls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace lobegraph {
namespace {

using enum Control;
using enum ControlKind;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

const ControlRow* RowNamed(std::string_view name) {
  const auto table = ControlTable();
  const auto found =
      std::find_if(table.begin(), table.end(), [&](const ControlRow& row) { return row.Name == name; });
  return found == table.end() ? nullptr : &*found;
}

struct Expected {
  std::string_view Name;
  ControlKind Kind;
  std::string_view Caption;
  std::string_view ToolTip;
};

constexpr Expected kExpected[] = {
    {"cmdCollectData", Button, "Collect &Data", "Start collecting readings"},
    {"cmdHaltInput", Button, "&Halt Collection", "Stop collecting readings"},
    {"cmdTrigger", Button, "Manual Trigger", "Start collecting readings"},
    {"chkAutoStart", CheckBox, "Auto Start", "Auto start on detection of signal"},
    {"chkAutoStop", CheckBox, "Auto Stop", "Auto stop on loss of signal"},
    {"chkTrigger", CheckBox, "Triggered", "Readings taken by external trigger"},
    {"chkCalibrate", CheckBox, "Calibrate &Input", "Calibrate input and trigger level"},
    {"cmdChooseInput", Button, "&Choose Input", "Choose mic or line-in as input source"},
    {"cmdGetData", Button, "&Get File", "Get a saved file"},
    {"cmdSaveData", Button, "&Save File", "Save a file"},
    {"cmdPrint", Button, "&Print", "Print the window"},
    {"cmdExit", Button, "E&xit", "Exit the program"},
    {"cmdOverlay", Button, "Overla&y", "Overlay another plot on the one currently shown"},
    {"cmdLinear", Button, "Circ / R&ect", "Show a circular or rectangular plot"},
    {"cmdLogLin", Button, "&Lin / Log", "Show a linear or log scale"},
    {"chkPlotInDB", CheckBox, " Plot in dB", "Tick to plot readings in dB values"},
    {"chk180", CheckBox, "180 Plot", "Plot over 180 degrees"},
    {"chkShow3dB", CheckBox, "Show -3dB", ""},
    {"cmdPolarization", Button, "Hori&zontal", "Polarization of antenna when readings taken"},
    {"cboElements", DropDown, "", "Number of antenna elements"},
    {"cmdIntegrate", Button, "Direc&tivity", "Recalculate the gain estimate by integration of plot pattern"},
    {"cmdReverse", Button, "Re&verse", "Reverse the sequence of readings taken"},
    {"cmdDeSpike", Button, "De-Spi&ke", "Remove spike readings"},
    {"cmdSmooth", Button, "S&mooth", "Smooth the reading values taken"},
    {"cmdRescaleData", Button, "&Rescale", "Rescale and redraw the plot"},
    {"cmdOriginalData", Button, "&Original", "Revert to original readings"},
    {"chkEditor", CheckBox, "Show editor", ""},
    {"cmdPatternAnalysis", Button, "Pattern Analysis", "Show the pattern analysis controls"},
    {"cmdClearLeftY", Button, "Clear", "Clear the upper line"},
    {"cmdClearRightY", Button, "Clear", "Clear the lower line"},
    {"txtX", ReadOnlyBox, "", ""},
    {"txtY", ReadOnlyBox, "", ""},
    {"txtLeftY", ReadOnlyBox, "", ""},
    {"txtRightY", ReadOnlyBox, "", ""},
    {"lblLeftButtonValue", Label, "Upper line: -dB level", ""},
    {"lblRightButtonValue", Label, "Lower line: -dB level", ""},
    {"Slider1", Slider, "", "Rescale the log display"},
    {"Slider2", Slider, "", "Seconds for a 360 degree plot"},
    {"cmdShrink", Button, "<-Shri&nk", "Hide the form's controls"},
    {"cmdGrow", Button, "Gro&w->", "Show the form's controls"},
    {"txtDescription", TextBox, "", ""},
    {"txtFileName", ReadOnlyBox, "", ""},
    {"txtChan1", ReadOnlyBox, "0.0", "Input level"},
    {"txtGain", ReadOnlyBox, "", "Estimate of gain"},
    {"txtAngle", ReadOnlyBox, "0.00", "Angle of -3dB down points"},
    {"txtTrimFront", TextBox, "", "Readings to trim from front of plot"},
    {"txtTrimEnd", TextBox, "", "Readings to trim from end of plot"},
    {"txtRotate", TextBox, "", "Number of degrees to rotate the plot"},
    {"txtReadingsPlotted", ReadOnlyBox, "", "Number of readings taken"},
    {"txtReadingNumber", ReadOnlyBox, "", "Current reading number"},
    {"lblOperator", Label, "", "Double-click to enter the operator's name"},
    {"lblCollectTitle", Label, "Collected by:", ""},
    {"lblCollectedBy", Label, "", ""},
    {"lblCollectedDate", Label, "", ""},
    {"lblDateTime", Label, "DateTime", ""},
    {"lblDescription", Label, "Description", ""},
    {"lblFile", Label, "File Name", ""},
    {"lblGain", Label, "Est Gain", ""},
    {"lblAngle", Label, "Angle", ""},
    {"lblTrim", Label, "Front <- Readings trimmed -> Back", ""},
    {"lblNumberOfReadings", Label, "No. of Readings", ""},
    {"lblDegreesRotated", Label, "Degrees Rotated", ""},
    {"Label9", Label, "Rotation Time", ""},
    {"Label8", Label, "Reading", ""},
    {"lblScalePlot", Label, "Rescale Plot", ""},
    {"lblElements", Label, "Elements", ""},
    {"Label1", Label, "Polarization", ""},
    {"lblFileDescription", Label, "", ""},
};

class EachControlTest : public testing::TestWithParam<Expected> {};

TEST_P(EachControlTest, StandsInTheTableWithCaptionAndTooltip) {
  const Expected& expected = GetParam();
  const ControlRow* row = RowNamed(expected.Name);
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row->Kind, expected.Kind);
  EXPECT_EQ(row->Caption, expected.Caption);
  EXPECT_EQ(row->ToolTip, expected.ToolTip);
}

INSTANTIATE_TEST_SUITE_P(Table, EachControlTest, testing::ValuesIn(kExpected),
                         [](const auto& one) { return std::string(one.param.Name); });

TEST(ControlsTest, RotationTimeChosenHasARow) { EXPECT_EQ(RowOf(lblRotationTime).Name, "lblRotationTime"); }

TEST(ControlsTest, EachRowStandsAtItsOwnPlaceUnderItsOwnName) {
  std::set<std::string_view> names;
  for (const ControlRow& row : ControlTable()) {
    EXPECT_EQ(&RowOf(row.Id), &row) << row.Name;
    EXPECT_TRUE(names.insert(row.Name).second) << row.Name << " stands twice";
  }
  EXPECT_EQ(names.size(), static_cast<std::size_t>(Control::kCount));
}

TEST(ControlsTest, EveryControlHasSomethingForAScreenReaderToSay) {
  for (const ControlRow& row : ControlTable())
    EXPECT_FALSE(row.AccessibleName.empty() && row.Caption.empty()) << row.Name;
}

TEST(ControlsTest, AcceleratorsAreDistinct) {
  std::set<char> letters;
  for (const ControlRow& row : ControlTable()) {
    const auto mark = row.Caption.find('&');
    if (mark == std::string_view::npos) continue;
    EXPECT_TRUE(letters.insert(static_cast<char>(row.Caption[mark + 1] | 0x20)).second) << row.Name;
  }
}

TEST(ControlsTest, TabOrderFollowsWhatAPersonDoes) {
  EXPECT_LT(cmdChooseInput, cmdCollectData);
  EXPECT_LT(cmdCollectData, cmdLinear);
  EXPECT_LT(cmdLinear, cmdRescaleData);
  EXPECT_LT(cmdRescaleData, cboElements);
  EXPECT_LT(cboElements, cmdGetData);
}

TEST(ControlsTest, ElementItemsArePaddedWithLeadingBlanks) {
  std::vector<std::string> trimmed;
  for (const std::string_view item : ElementItems()) {
    EXPECT_EQ(item.front(), ' ');
    trimmed.emplace_back(item.substr(item.find_first_not_of(' ')));
  }
  EXPECT_THAT(trimmed, ElementsAre("1", "2", "3", "4", "5", "8", "> 8!"));
}

TEST(ControlsTest, ACollectionLocksWhatCouldStartAnotherOrChangeTheData) {
  EXPECT_THAT(LockedInCollection(),
              UnorderedElementsAre(cmdCollectData, chkCalibrate, cmdExit, cmdChooseInput, cmdPolarization,
                                   cmdRescaleData, cmdReverse, cmdDeSpike, cmdOriginalData, cmdShrink,
                                   cmdGrow, cmdGetData, cmdOverlay, cmdSaveData, cmdPrint, cmdLinear,
                                   cmdLogLin, cmdSmooth, cmdIntegrate, chkPlotInDB));
}

TEST(ControlsTest, ASweepLeavesCollectCalibrateAndTheDisplayOptions) {
  EXPECT_THAT(LockedInSweep(),
              UnorderedElementsAre(cmdExit, cmdChooseInput, cmdPolarization, cmdRescaleData, cmdReverse,
                                   cmdDeSpike, cmdOriginalData, cmdShrink, cmdGrow, cmdGetData, cmdOverlay,
                                   cmdSaveData, cmdPrint, cmdSmooth, cmdIntegrate));
}

TEST(ControlsTest, AnalysisControlsAreTheEightOfTheRectangularDrawing) {
  EXPECT_THAT(AnalysisControls(), UnorderedElementsAre(txtX, txtY, lblLeftButtonValue, lblRightButtonValue,
                                                       txtLeftY, txtRightY, cmdClearLeftY, cmdClearRightY));
}

TEST(ControlsTest, EightLabelsLieOnThePlot) {
  std::set<Control> labels(LabelsOnPlot().begin(), LabelsOnPlot().end());
  EXPECT_EQ(labels.size(), 8U);
  for (const Control label : labels) EXPECT_EQ(RowOf(label).Kind, Label) << RowOf(label).Name;
}

}  // namespace
}  // namespace lobegraph
