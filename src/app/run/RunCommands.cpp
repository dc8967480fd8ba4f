#include "app/run/RunCommands.h"

#include "app/run/AfterRun.h"
#include "app/run/TurnFacts.h"

namespace lobegraph {

void RunCommands::cmdCollectData_Click() {
  RunReport report;
  Guarded(parts_.Dialogs, "cmdCollectData_Click", [&] {
    const StayAwake awake(parts_.Desktop);
    report = engine_.cmdCollectData_Click();
  });
  AfterRun(report);
}

void RunCommands::chkCalibrate_Click() {
  Guarded(parts_.Dialogs, "chkCalibrate_Click", [&] {
    if (sweep_.chkCalibrate_Click()) parts_.View.EnableTimer1(true);
  });
}

void RunCommands::Timer1_Timer() {
  parts_.View.EnableTimer1(false);  // it starts one sweep only
  RunReport report;
  Guarded(parts_.Dialogs, "Timer1_Timer", [&] {
    const StayAwake awake(parts_.Desktop);
    report = sweep_.Timer1_Timer();
  });
  AfterRun(report);
}

void RunCommands::AfterRun(const RunReport& report) {
  FinishTurn(report);
  if (parts_.Shared.Run.CloseRequested) return;
  for (const UserMessage& box : BoxesAfterRun(report)) parts_.Dialogs.Show(box);
  if (!report.Ran) return;
  const TurnHint hint = HintAfterRun(report, {keeper_.Failure(), keeper_.LogFailure()});
  parts_.View.SetText(Control::lblHint, hint.Shown());
  parts_.View.SetSpoken(Control::lblHint, hint.Spoken());
}

/// Before any box: nothing is to be lost while one waits for an answer.
void RunCommands::FinishTurn(const RunReport& report) {
  if (!keeper_.Running()) return;
  const ReadingsRecord& record = parts_.Pattern.Record();
  if (parts_.Shared.Run.CloseRequested) return keeper_.BreakOff(record, turnend::kClosed);
  if (!report.Ran) return keeper_.Finish(record, turnend::kFault);
  NoteReport(report, keeper_);
  keeper_.Finish(record, EndOf(report));
  if (report.ReadingsTaken > 0) parts_.Pattern.KnowTurn(keeper_.Log());
}

}  // namespace lobegraph
