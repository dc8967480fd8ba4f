#include "app/plot/PlotCommands.h"

namespace lobegraph {

void PlotCommands::txtRotate_Enter() { display_.Run(&PatternSession::Place); }

void PlotCommands::cmdLinear_Click() { display_.Run(&PatternSession::ToggleForm); }

void PlotCommands::cmdLogLin_Click() { display_.Run(&PatternSession::ToggleLogarithmic); }

void PlotCommands::chkPlotInDB_Click() {
  const bool inDb = parts_.View.Checked(Control::chkPlotInDB);
  parts_.View.SetEnabled(Control::cmdLogLin, inDb);
  display_.Run([&](PatternSession& pattern) { return pattern.PlotInDb(inDb); });
}

void PlotCommands::chk180_Click() {
  const bool plot180 = parts_.View.Checked(Control::chk180);
  display_.Run([&](PatternSession& pattern) { return pattern.CoverHalfTurn(plot180); });
}

void PlotCommands::chkShow3dB_Click() {
  const bool marks = parts_.View.Checked(Control::chkShow3dB);
  display_.Run([&](PatternSession& pattern) { return pattern.ShowMarks(marks); });
}

void PlotCommands::Slider1_Change() {
  const int scale = parts_.View.Value(Control::Slider1);
  display_.Run([&](PatternSession& pattern) { return pattern.SetScale(scale); });
}

void PlotCommands::cmdPolarization_Click() { display_.Run(&PatternSession::TogglePolarization); }

void PlotCommands::cboElements_Change() {
  const std::string elements = parts_.View.Text(Control::cboElements);
  display_.Run([&](PatternSession& pattern) { return pattern.ChooseElements(elements); });
}

void PlotCommands::cmdIntegrate_Click() { display_.Run(&PatternSession::Integrate); }

}  // namespace lobegraph
