#include "app/plot/TransformCommands.h"

namespace lobegraph {

void TransformCommands::cmdSmooth_Click() { display_.Run(&PatternSession::Smooth); }

void TransformCommands::cmdReverse_Click() { RunToTop(&PatternSession::Reverse); }

void TransformCommands::cmdDeSpike_Click() { RunToTop(&PatternSession::DeSpike); }

void TransformCommands::cmdRescaleData_Click() { RunToTop(&PatternSession::Orient); }

void TransformCommands::cmdOriginalData_Click() { display_.Run(&PatternSession::Original); }

void TransformCommands::RunToTop(const PatternDisplay::Command& command) {
  if (display_.Run(command)) parts_.View.SetText(Control::lblHint, "Save File keeps the pattern.");
}

}  // namespace lobegraph
