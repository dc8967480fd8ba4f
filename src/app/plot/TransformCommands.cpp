#include "app/plot/TransformCommands.h"

namespace lobegraph {

void TransformCommands::cmdSmooth_Click() { display_.Run(&PatternSession::Smooth); }

void TransformCommands::cmdReverse_Click() { RunToTop(&PatternSession::Reverse); }

void TransformCommands::cmdDeSpike_Click() { RunToTop(&PatternSession::DeSpike); }

void TransformCommands::cmdRescaleData_Click() { RunToTop(&PatternSession::Orient); }

void TransformCommands::cmdOriginalData_Click() { display_.Run(&PatternSession::Original); }

void TransformCommands::Undo() { Step(&PatternSession::Undo, "Taken back. Ctrl+Shift+Z does it again."); }

void TransformCommands::Redo() { Step(&PatternSession::Redo, "Done again. Ctrl+Z takes it back."); }

void TransformCommands::Step(const PatternDisplay::Command& command, const char* hint) {
  if (!display_.Run(command).Steps.empty()) parts_.View.SetText(Control::lblHint, hint);
}

void TransformCommands::RunToTop(const PatternDisplay::Command& command) {
  if (display_.Run(command).Plotted) parts_.View.SetText(Control::lblHint, "Save File keeps the pattern.");
}

}  // namespace lobegraph
