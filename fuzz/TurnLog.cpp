#include "data/base/RunTimeError.h"
#include "data/turns/TurnDigest.h"
#include "data/turns/TurnLogText.h"
#include "fuzz/Targets.h"

namespace lobegraph::fuzz {
namespace {

void PromiseTable(const TurnLog& log) {
  for (const TurnLog::Row& row : log.Rows())
    Promise(row.size() == log.Columns().size(), "every row has the width of the table");
  for (const auto& [key, value] : log.Keys())
    Promise(value.find_first_of("\r\n") == std::string::npos, "a value stands on one line");
}

}  // namespace

void TryTurnLog(std::string_view input) {
  TurnLog log;
  try {
    log = ReadTurnLog(input);
  } catch (const RunTimeError& error) {
    return Promise(error.Number() == fault::kTypeMismatch, "what is no log is refused as one");
  }
  PromiseTable(log);
  Promise(ReadTurnLog(TurnLogText(log)) == log, "what was read is written and read again as the same");
  ReadingsRecord record;
  record.NumReadings = static_cast<std::int16_t>(log.Rows().size() % 361);
  OwnerOf(log, record);
  CommandsOf(log, record);
}

}  // namespace lobegraph::fuzz
