#include "app/qt/panel/WindowLayout.h"

#include <array>
#include <map>

namespace lobegraph {
namespace {

constexpr int kLeft = 8;
constexpr int kWidth = kPanelWidth - 2 * kLeft;
constexpr int kGap = 4;
constexpr int kHeight = 22;
constexpr int kPitch = 25;
constexpr int kTop = 8;
constexpr int kGroupGap = 11;

/// Rows of each group, in the order in which a person works.
constexpr std::array<int, 6> kRowsOfGroup = {2, 4, 5, 2, 3, 3};

constexpr int TopOf(int group, int row) {
  int rows = row;
  for (int g = 0; g < group; ++g) rows += kRowsOfGroup.at(static_cast<std::size_t>(g));
  return kTop + rows * kPitch + group * kGroupGap;
}

/// A cell of a row that is divided into equal columns.
QRect Cell(int top, int column, int columns, int span = 1) {
  const int width = (kWidth - (columns - 1) * kGap) / columns;
  return {kLeft + column * (width + kGap), top, span * width + (span - 1) * kGap, kHeight};
}

QRect Box(int top, int x, int width) { return {x, top, width, kHeight}; }

std::map<Control, QRect> PanelPlaces() {
  using enum Control;
  const auto row = [](int group, int index) { return TopOf(group, index); };
  return {
      {lblSource, Box(row(0, 0), 8, 158)},
      {txtChan1, Cell(row(0, 0), 2, 3)},
      {cmdChooseInput, Cell(row(0, 1), 0, 2)},
      {chkCalibrate, Cell(row(0, 1), 1, 2)},

      {cmdCollectData, Cell(row(1, 0), 0, 2)},
      {cmdHaltInput, Cell(row(1, 0), 1, 2)},
      {chkAutoStart, Cell(row(1, 1), 0, 3)},
      {chkAutoStop, Cell(row(1, 1), 1, 3)},
      {chkTrigger, Cell(row(1, 1), 2, 3)},
      {Label9, Box(row(1, 2), 8, 86)},
      {Slider2, Box(row(1, 2), 96, 117)},
      {lblRotationTime, Box(row(1, 2), 217, 32)},
      {Label8, Box(row(1, 3), 8, 52)},
      {txtReadingNumber, Box(row(1, 3), 62, 48)},
      {cmdTrigger, Cell(row(1, 3), 1, 2)},

      {cmdLinear, Cell(row(2, 0), 0, 3)},
      {cmdLogLin, Cell(row(2, 0), 1, 3)},
      {cmdOverlay, Cell(row(2, 0), 2, 3)},
      {chkPlotInDB, Cell(row(2, 1), 0, 3)},
      {chk180, Cell(row(2, 1), 1, 3)},
      {chkShow3dB, Cell(row(2, 1), 2, 3)},
      {lblScalePlot, Box(row(2, 2), 8, 86)},
      {Slider1, Box(row(2, 2), 96, 153)},
      {txtTrimFront, Box(row(2, 3), 8, 36)},
      {lblTrim, Box(row(2, 3), 44, 169)},
      {txtTrimEnd, Box(row(2, 3), 213, 36)},
      {lblDegreesRotated, Box(row(2, 4), 8, 86)},
      {txtRotate, Box(row(2, 4), 94, 34)},
      {lblNumberOfReadings, Box(row(2, 4), 132, 81)},
      {txtReadingsPlotted, Box(row(2, 4), 215, 34)},

      {cmdRescaleData, Cell(row(3, 0), 0, 3)},
      {cmdOriginalData, Cell(row(3, 0), 1, 3)},
      {cmdSmooth, Cell(row(3, 0), 2, 3)},
      {cmdReverse, Cell(row(3, 1), 0, 3)},
      {cmdDeSpike, Cell(row(3, 1), 1, 3)},
      {chkEditor, Cell(row(3, 1), 2, 3)},

      {lblElements, Box(row(4, 0), 8, 52)},
      {cboElements, Box(row(4, 0), 62, 56)},
      {Label1, Box(row(4, 0), 124, 62)},
      {cmdPolarization, Box(row(4, 0), 186, 63)},
      {lblAngle, Box(row(4, 1), 8, 52)},
      {txtAngle, Box(row(4, 1), 62, 56)},
      {lblGain, Box(row(4, 1), 124, 62)},
      {txtGain, Box(row(4, 1), 186, 63)},
      {cmdIntegrate, Cell(row(4, 2), 1, 2)},

      {cmdGetData, Cell(row(5, 0), 0, 4)},
      {cmdSaveData, Cell(row(5, 0), 1, 4)},
      {cmdPrint, Cell(row(5, 0), 2, 4)},
      {cmdExit, Cell(row(5, 0), 3, 4)},
      {lblFile, Box(row(5, 1), 8, 66)},
      {txtFileName, Box(row(5, 1), 76, 173)},
      {lblDescription, Box(row(5, 2), 8, 66)},
      {txtDescription, Box(row(5, 2), 76, 173)},
  };
}

std::map<Control, QRect> PlotPlaces() {
  using enum Control;
  return {
      {lblDateTime, {8, 4, 180, 17}},
      // Its caption begins with a blank; the name stands below the date.
      {lblOperator, {5, 21, 183, 17}},
      {lblNotice, {8, 38, 176, 17}},
      {lblCollectTitle, {313, 4, 180, 17}},
      {lblCollectedBy, {313, 21, 180, 17}},
      {lblCollectedDate, {313, 38, 180, 17}},
      {lblFileDescription, {8, 520, 322, 17}},
      {lblHint, {8, 538, 340, 17}},
      {cmdShrink, {353, 533, 68, 22}},
      {cmdGrow, {425, 533, 68, 22}},

      {cmdPatternAnalysis, {26, 68, 118, 22}},
      {txtX, {26, 100, 58, 22}},
      {txtY, {88, 100, 58, 22}},
      {lblLeftButtonValue, {192, 100, 150, 22}},
      {txtLeftY, {346, 100, 66, 22}},
      {cmdClearLeftY, {416, 100, 62, 22}},
      {lblRightButtonValue, {192, 126, 150, 22}},
      {txtRightY, {346, 126, 66, 22}},
      {cmdClearRightY, {416, 126, 62, 22}},
  };
}

const std::map<Control, QRect>& Panel() {
  static const auto places = PanelPlaces();
  return places;
}

const std::map<Control, QRect>& Plot() {
  static const auto places = PlotPlaces();
  return places;
}

}  // namespace

bool OnPlot(Control control) { return Plot().contains(control); }

QRect PlaceOf(Control control) { return OnPlot(control) ? Plot().at(control) : Panel().at(control); }

std::span<const int> SeparatorTops() {
  static constexpr auto kBetween = [](int group) { return TopOf(group, 0) - kGroupGap / 2 - 2; };
  static constexpr std::array<int, 5> kTops = {kBetween(1), kBetween(2), kBetween(3), kBetween(4),
                                               kBetween(5)};
  return kTops;
}

}  // namespace lobegraph
