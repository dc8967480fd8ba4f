#include "app/run/AfterRun.h"

namespace lobegraph {
namespace {

constexpr std::int64_t kMsPerSecond = 1000;

std::string Number(int index) { return "No. " + std::to_string(index + 1); }

std::string Readings(int count) { return std::to_string(count) + (count == 1 ? " reading" : " readings"); }

std::string SilenceText(const SilentReadings& silent) {
  return "The meter had no fresh value for " + Readings(silent.Count) + ", the first is " +
         Number(silent.First) + ". Check the meter and its cable; then choose the input again.";
}

std::string SuspendText(const SuspendedReadings& suspended) {
  const std::int64_t seconds = (suspended.Ms + kMsPerSecond / 2) / kMsPerSecond;
  return "The computer slept for " + std::to_string(seconds) + " s in reading " + Number(suspended.First) +
         ": from there on the bearings are wrong if the antenna turned on.";
}

std::string OneValueText(const SilentReadings& same) {
  const std::string span = std::to_string(same.First + 1) + " to " + std::to_string(same.Last + 1);
  const bool all = same.Count == same.Last - same.First + 1;
  return (all ? "Readings " + span + " are"
              : std::to_string(same.Count) + " of the readings " + span + " repeat") +
         " one value: look whether the meter program runs.";
}

std::string LossText(int readingsTaken) {
  return "The source broke off: the pattern ends with reading No. " + std::to_string(readingsTaken) + ".";
}

std::string LateText(const LateReadings& late) {
  if (late.Count == 1) return "One reading came late, " + Number(late.First) + ".";
  return std::to_string(late.Count) + " readings came late, the first is " + Number(late.First) + ".";
}

/// What loses readings, or what is known of them.
void AddTrouble(TurnHint& hint, const KeepingTrouble& trouble) {
  if (!trouble.Copy.empty())
    hint.Add(RemarkRank::DataInDanger, "Save File now: the safety copy failed (" + trouble.Copy + ").");
  if (!trouble.Log.empty())
    hint.Add(RemarkRank::DataInDanger,
             "Save File now: the turn's log could not be kept (" + trouble.Log + ").");
}

/// A part is told with what to do next: it is a pattern like any other.
void AddNextStep(TurnHint& hint, const RunReport& report) {
  const std::string count = std::to_string(report.ReadingsTaken);
  const bool halted = report.Ended == TurnEnding::Halted;
  hint.Add(
      halted ? RemarkRank::Part : RemarkRank::NextStep,
      (halted ? "Halted after " + count : count) + " readings. Rescale turns the beam up; then Save File.");
}

}  // namespace

std::vector<UserMessage> BoxesAfterRun(const RunReport& report) {
  std::vector<UserMessage> boxes;
  if (report.Silent.Count > 0) boxes.push_back({SilenceText(report.Silent)});
  if (report.TriggerPortGone)
    boxes.push_back({"The trigger's port has gone. Plug it in and choose the input again."});
  return boxes;
}

TurnHint HintAfterRun(const RunReport& report, const KeepingTrouble& trouble) {
  TurnHint hint;
  if (report.ReadingsTaken <= 0) {
    hint.Add(RemarkRank::Part, "No reading was taken.");
    return hint;
  }
  AddTrouble(hint, trouble);
  if (report.Ended == TurnEnding::SourceLost)
    hint.Add(RemarkRank::SourceLost, LossText(report.ReadingsTaken));
  if (report.Silent.Count > 0) hint.Add(RemarkRank::Silent, SilenceText(report.Silent));
  if (report.NothingHeard) hint.Add(RemarkRank::Silent, "Nothing was heard: check cable, volume and input.");
  if (report.OneValue.Count > 0) hint.Add(RemarkRank::Silent, OneValueText(report.OneValue));
  if (report.Suspended.Count > 0) hint.Add(RemarkRank::Late, SuspendText(report.Suspended));
  if (report.Late.Count > 0) hint.Add(RemarkRank::Late, LateText(report.Late));
  AddNextStep(hint, report);
  return hint;
}

}  // namespace lobegraph
