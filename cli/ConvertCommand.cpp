#include "cli/ConvertCommand.h"

#include "data/turns/TurnDigest.h"
#include "data/turns/TurnFiles.h"
#include "data/turns/TurnFolder.h"
#include "processing/exchange/WritePattern.h"

namespace lobegraph {
namespace {

/// Levels are converted whatever the receiver's full scale was.
constexpr float kAnyPeak = 1e9F;
constexpr std::string_view kPatternEnding = ".lbg";

ReadingsRecord Loaded(const ConvertRequest& request, FileAccess& files) {
  ReadingsRecord record;
  record.FileName = FileNameOf(request.In);
  const LoadRules rules{.PeakInputLevel = kAnyPeak, .Columns = request.Table};
  const LoadOutcome outcome = ReadPattern(files, request.In, rules, record);
  if (outcome.Error) throw RunTimeError(*outcome.Error);
  return record;
}

bool IsPatternFile(const std::string& path) { return WithEnding(path, kPatternEnding) == path; }

/// The log beside the file that is read, as it goes beside the one that is written. What is lost of it is
/// told.
std::optional<TurnLog> LogFor(const ConvertRequest& request, FileAccess& files, const ReadingsRecord& record,
                              std::vector<std::string>& losses) {
  if (!IsPatternFile(request.In)) return std::nullopt;
  LogBeside beside = ReadLogBeside(files, request.In, record);
  if (!beside.Note.empty()) losses.push_back(beside.Note);
  if (!beside.Log) return std::nullopt;
  if (!IsPatternFile(request.Out)) {
    losses.push_back(FileNameOf(LogPathOf(request.In)) +
                     " does not go along: only pattern files have a log.");
    return std::nullopt;
  }
  NoteSaved(*beside.Log, record, CommandsOf(*beside.Log, record));
  return std::move(beside.Log);
}

void Write(const ConvertRequest& request, FileAccess& files, const std::string& bytes,
           const std::optional<TurnLog>& log, std::vector<std::string>& losses) {
  if (!IsPatternFile(request.Out)) return files.Replace(request.Out, bytes);
  const std::string trouble = SaveTurn(files, request.Out, bytes, log);
  if (!trouble.empty()) losses.push_back(trouble);
}

/// "the new name ends in .lbg, .csv or .msi"
std::string EndingWanted() {
  const auto endings = EndingsWritten();
  std::string list;
  for (const std::string_view ending : endings) {
    if (!list.empty()) list += ending == endings.back() ? " or " : ", ";
    list += ending;
  }
  return "the new name ends in " + list;
}

}  // namespace

int RunConvert(const ConvertRequest& request, const CommandParts& parts, const std::string& versionText) {
  const PatternFormat* format = FormatToWrite(request.Out, request.Table);
  if (format == nullptr) {
    parts.Complaints << ComplaintAbout(request.Out, EndingWanted());
    return kWrongUse;
  }
  std::string named = request.In;
  try {
    const ReadingsRecord record = Loaded(request, parts.Files);
    WrittenPattern written = WritePattern(record, *format, versionText);
    const auto log = LogFor(request, parts.Files, record, written.Losses);
    named = request.Out;
    Write(request, parts.Files, written.Bytes, log, written.Losses);
    for (const std::string& loss : written.Losses) parts.Complaints << ComplaintAbout(request.Out, loss);
  } catch (const RunTimeError& error) {
    parts.Complaints << ComplaintAbout(named, error);
    return kSomeFailed;
  }
  return kAllDone;
}

}  // namespace lobegraph
