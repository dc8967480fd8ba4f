#include "cli/ReportCommand.h"

#include <algorithm>
#include <thread>

#include "cli/FileBatch.h"
#include "cli/Progress.h"
#include "cli/RepeatReport.h"
#include "cli/ReportTable.h"

namespace lobegraph {
namespace {

FileResult ReportOn(const ReportRequest& request, FileAccess& files, const std::string& file) {
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
  if (!request.Json) parts.Output << TableHeading();
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
