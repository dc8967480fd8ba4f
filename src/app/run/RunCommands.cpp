#include "app/run/RunCommands.h"

#include "app/run/AfterRun.h"

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
  if (parts_.Shared.Run.CloseRequested) return;
  for (const UserMessage& box : BoxesAfterRun(report)) parts_.Dialogs.Show(box);
  if (!report.Ran) return;
  copy_.Finish(parts_.Pattern.Record());
  parts_.View.SetText(Control::lblHint, HintAfterRun(report, copy_.Failure()).Shown());
}

}  // namespace lobegraph
