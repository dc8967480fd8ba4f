#include "cli/ConvertCommand.h"

#include "processing/exchange/WritePattern.h"

namespace lobegraph {
namespace {

/// Levels are converted whatever the receiver's full scale was.
constexpr float kAnyPeak = 1e9F;

ReadingsRecord Loaded(const ConvertRequest& request, FileAccess& files) {
  ReadingsRecord record;
  record.FileName = FileNameOf(request.In);
  const LoadRules rules{.PeakInputLevel = kAnyPeak, .Columns = request.Table};
  const LoadOutcome outcome = ReadPattern(files, request.In, rules, record);
  if (outcome.Error) throw RunTimeError(*outcome.Error);
  return record;
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
  int exitCode = kSomeFailed;
  try {
    const ReadingsRecord record = Loaded(request, parts.Files);
    exitCode = kWrongUse;  // what cannot be drawn is no pattern to be converted
    const WrittenPattern written = WritePattern(record, *format, versionText);
    exitCode = kSomeFailed;
    named = request.Out;
    parts.Files.Replace(request.Out, written.Bytes);
    for (const std::string& loss : written.Losses) parts.Complaints << ComplaintAbout(request.Out, loss);
  } catch (const RunTimeError& error) {
    parts.Complaints << ComplaintAbout(named, error);
    return exitCode;
  }
  return kAllDone;
}

}  // namespace lobegraph
