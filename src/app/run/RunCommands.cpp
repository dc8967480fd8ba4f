#include "app/run/RunCommands.h"

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
  if (!report.Ran || parts_.Shared.Run.CloseRequested) return;
  copy_.Finish(parts_.Pattern.Record());
  parts_.View.SetText(Control::lblHint, AfterRunHint(report, copy_.Failure()));
}

std::string AfterRunHint(const RunReport& report, const std::string& copyFailure) {
  if (report.ReadingsTaken <= 0) return "No reading was taken.";
  if (report.NothingHeard) return "Nothing was heard: check cable, volume and input.";
  if (report.Late.Count == 1)
    return "One reading came late, No. " + std::to_string(report.Late.First + 1) + ".";
  if (report.Late.Count > 0)
    return std::to_string(report.Late.Count) + " readings came late, the first is No. " +
           std::to_string(report.Late.First + 1) + ".";
  if (!copyFailure.empty()) return "Save File now: the safety copy failed (" + copyFailure + ").";
  return std::to_string(report.ReadingsTaken) + " readings. Rescale turns the beam up; then Save File.";
}

}  // namespace lobegraph
