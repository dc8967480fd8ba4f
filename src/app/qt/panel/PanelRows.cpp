#include "app/qt/panel/PanelRows.h"

#include <array>
#include <numeric>

namespace lobegraph {
namespace {

using enum Control;

/// Columns that the rows of a group share.
constexpr int kLabel = 84;
constexpr int kRest = 153;
constexpr int kNumber = 34;
constexpr int kShortLabel = 52;
constexpr int kLongLabel = 61;
constexpr int kShortBox = 56;
constexpr int kFileLabel = 66;
constexpr int kFileBox = 171;
constexpr int kTrimBox = 34;

PanelRow Equal(std::initializer_list<std::optional<Control>> controls) {
  PanelRow row;
  for (const auto& control : controls) row.push_back({control, 1});
  return row;
}

PanelGroup Input() { return {{{lblSource, 2}, {txtChan1, 1}}, Equal({cmdChooseInput, chkCalibrate})}; }

PanelGroup Collect() {
  return {Equal({cmdCollectData, cmdHaltInput}),
          Equal({chkAutoStart, chkAutoStop, chkTrigger}),
          {{Label9, kLabel}, {Slider2, kRest - kNumber - kCellGap}, {lblRotationTime, kNumber}},
          {{Label8, kShortLabel}, {txtReadingNumber, kShortBox}, {cmdTrigger, 125}}};
}

PanelGroup Plot() {
  return {Equal({cmdLinear, cmdLogLin, cmdOverlay}),
          Equal({chkPlotInDB, chk180, chkShow3dB}),
          {{lblScalePlot, kLabel}, {Slider1, kRest}},
          {{txtTrimFront, kTrimBox}, {lblTrim, 165}, {txtTrimEnd, kTrimBox}},
          {{lblDegreesRotated, kLabel},
           {txtRotate, kNumber},
           {lblNumberOfReadings, kRest - 2 * kNumber - 2 * kCellGap},
           {txtReadingsPlotted, kNumber}}};
}

PanelGroup Readings() {
  return {Equal({cmdRescaleData, cmdOriginalData, cmdSmooth}), Equal({cmdReverse, cmdDeSpike, chkEditor})};
}

PanelGroup Figures() {
  return {{{lblElements, kShortLabel},
           {cboElements, kShortBox},
           {Label1, kLongLabel},
           {cmdPolarization, kLongLabel}},
          {{lblAngle, kShortLabel}, {txtAngle, kShortBox}, {lblGain, kLongLabel}, {txtGain, kLongLabel}},
          Equal({std::nullopt, cmdIntegrate})};
}

PanelGroup File() {
  return {Equal({cmdGetData, cmdSaveData, cmdPrint, cmdExit}),
          {{lblFile, kFileLabel}, {txtFileName, kFileBox}},
          {{lblDescription, kFileLabel}, {txtDescription, kFileBox}}};
}

const PanelRow* RowWith(Control control) {
  for (const PanelGroup& group : PanelGroups())
    for (const PanelRow& row : group)
      for (const PanelCell& cell : row)
        if (cell.Id == control) return &row;
  return nullptr;
}

}  // namespace

std::span<const PanelGroup> PanelGroups() {
  static const std::array<PanelGroup, 6> groups = {Input(), Collect(), Plot(), Readings(), Figures(), File()};
  return groups;
}

int CellWidth(Control control, int panelWidth) {
  const PanelRow* row = RowWith(control);
  if (row == nullptr) return 0;
  const int gaps = 2 * kPanelMargin + (static_cast<int>(row->size()) - 1) * kCellGap;
  int share = 0;
  int shares = 0;
  for (const PanelCell& cell : *row) {
    shares += cell.Share;
    if (cell.Id == control) share = cell.Share;
  }
  return (panelWidth - gaps) * share / shares;
}

}  // namespace lobegraph
