#include "cli/ReportCommand.h"

#include <algorithm>
#include <thread>

#include "cli/FileBatch.h"
#include "cli/Progress.h"
#include "cli/RepeatReport.h"
#include "cli/ReportTable.h"
#include "cli/turns/TurnReport.h"
#include "data/formats/PatternFormats.h"

namespace lobegraph {
namespace {

/// Levels count whatever the receiver's full scale was.
constexpr float kAnyPeak = 1e9F;

/// A pattern without a log is named, and no failure; a log that is not to be believed is one.
FileResult TurnOf(const ReportRequest& request, FileAccess& files, const std::string& file) {
  ReadingsRecord record;
  const LoadOutcome loaded = ReadPattern(files, file, {.PeakInputLevel = kAnyPeak}, record);
  if (loaded.Error) throw RunTimeError(*loaded.Error);
  const LogBeside beside = ReadLogBeside(files, file, record);
  FileResult result{.Failed = !beside.Note.empty()};
  if (request.Json)
    result.Output = TurnLine(file, beside, record);
  else if (beside.Log)
    result.Output = TurnTable(file, *beside.Log, record);
  if (!beside.Log)
    result.Complaint =
        ComplaintAbout(file, beside.Note.empty() ? "no log of its turn lies beside it" : beside.Note);
  return result;
}

FileResult TriedTurnOf(const ReportRequest& request, FileAccess& files, const std::string& file) {
  try {
    return TurnOf(request, files, file);
  } catch (const RunTimeError& error) {
    return {.Complaint = ComplaintAbout(file, error), .Failed = true};
  }
}

FileResult ReportOn(const ReportRequest& request, FileAccess& files, const std::string& file) {
  if (request.Turn) return TriedTurnOf(request, files, file);
  const OpenedPattern pattern = OpenPattern(files, file, request.Pattern);
  FileResult result;
  if (const auto& error = pattern.Error()) {
    result.Failed = true;
    result.Complaint = ComplaintAbout(file, *error);
  }
  if (request.Json) {
    result.Output = ReportLine(pattern, file, request.Extras);
    return result;
  }
  if (result.Failed) return result;
  result.Output = TableRow(pattern, file);
  for (const std::string& message : pattern.Messages) result.Complaint += ComplaintAbout(file, message);
  return result;
}

unsigned JobsFor(const ReportRequest& request) {
  return request.Jobs > 0 ? request.Jobs : std::max(1U, std::thread::hardware_concurrency());
}

}  // namespace

int RunReport(const ReportRequest& request, const CommandParts& parts) {
  if (request.Repeat) return RunRepeat(request, parts);
  if (!request.Json && !request.Turn) parts.Output << TableHeading();
  bool someFailed = false;
  Progress progress(parts.Complaints, parts.OnTerminal, request.Files.size());
  RunInOrder(
      request.Files.size(), JobsFor(request),
      [&](std::size_t index) { return ReportOn(request, parts.Files, request.Files[index]); },
      [&](std::size_t index, const FileResult& result) {
        parts.Output << result.Output;
        if (!result.Complaint.empty()) {
          progress.Hide();
          parts.Complaints << result.Complaint;
        }
        someFailed = someFailed || result.Failed;
        progress.Show(index + 1);
      });
  return someFailed ? kSomeFailed : kAllDone;
}

}  // namespace lobegraph
