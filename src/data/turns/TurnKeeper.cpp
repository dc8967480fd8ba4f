#include "data/turns/TurnKeeper.h"

#include <algorithm>
#include <filesystem>

#include "data/base/Numbers.h"
#include "data/base/ReplaceFile.h"
#include "data/base/RunTimeError.h"
#include "data/formats/PatternFile.h"
#include "data/turns/TurnDigest.h"
#include "data/turns/TurnFolder.h"
#include "data/turns/TurnLogText.h"

namespace lobegraph {
namespace {

namespace fs = std::filesystem;

constexpr const char* kFormatVersion = "1";
constexpr std::size_t kDigits = 6;
constexpr int kMostTries = 1000;

std::string PathOf(const std::string& folder, std::int64_t number, const std::string& when) {
  std::string digits = std::to_string(number);
  if (digits.size() < kDigits) digits.insert(0, kDigits - digits.size(), '0');
  return (fs::path(folder) / ("turn " + digits + " " + when + ".lbg")).string();
}

std::int64_t NextNumber(const std::string& folder) {
  const std::vector<KeptTurn> turns = KeptTurns(folder);
  return turns.empty() ? 1 : turns.front().Name.Number + 1;
}

/// Runs what writes. @return why it failed, empty when it did not
template <typename Write>
std::string Tried(Write&& write) {
  try {
    write();
    return "";
  } catch (const RunTimeError& error) {
    return error.Description();
  }
}

constexpr std::string_view kLate = "late";
constexpr std::string_view kSilent = "silent";
constexpr std::string_view kSuspended = "suspended";

void AddFlag(std::string& flags, std::string_view flag) {
  if (flags.find(flag) != std::string::npos) return;
  if (!flags.empty()) flags += ' ';
  flags += flag;
}

std::string FlagsOf(const ReadingTaken& reading) {
  std::string flags;
  if (reading.Late) AddFlag(flags, kLate);
  if (reading.Silent) AddFlag(flags, kSilent);
  if (reading.Suspended) AddFlag(flags, kSuspended);
  return flags;
}

/// The readings as they were when this one had been stored.
ReadingsRecord UpTo(const ReadingsRecord& record, int lastIndex) {
  ReadingsRecord soFar = record;
  soFar.NumReadings = static_cast<std::int16_t>(lastIndex);
  soFar.ReadingsPlotted = static_cast<std::int16_t>(lastIndex + 1);
  soFar.PeakIndex = 0;  // the record still has that of the pattern before
  return soFar;
}

TurnLog LogOf(const TurnStart& start, const std::string& versionText, std::int64_t now) {
  TurnLog log;
  log.SetKey(turnkey::kFormat, kFormatVersion);
  log.SetKey(turnkey::kProgram, "Lobegraph " + versionText);
  log.SetKey(turnkey::kOperator, start.Operator);
  log.SetKey(turnkey::kStarted, IsoTime(now));
  log.SetKey(turnkey::kSource, start.Source);
  log.SetKey(turnkey::kPlanned, std::to_string(start.PlannedReadings));
  if (start.RotationSeconds > 0.0)
    log.SetKey(turnkey::kRotationTime, StoreText(static_cast<float>(start.RotationSeconds)));
  log.SetKey(turnkey::kEnded, turnend::kKilled);
  for (const auto& [key, value] : start.MoreKeys) log.SetKey(key, value);
  for (const std::string& column : start.MoreColumns) log.ColumnAt(column);
  return log;
}

}  // namespace

TurnKeeper::TurnKeeper(std::string folder, std::string versionText, WallClock wallClock)
    : folder_(std::move(folder)), versionText_(std::move(versionText)), wallClock_(std::move(wallClock)) {}

void TurnKeeper::Begin(const TurnStart& start) {
  const std::int64_t now = wallClock_();
  log_ = LogOf(start, versionText_, now);
  when_ = TimeForFileName(now);
  running_ = true;
  path_.clear();
  pattern_.reset();
  logFile_.reset();
  unwritten_.clear();
  failure_.clear();
  logFailure_.clear();
}

void TurnKeeper::Store(const ReadingsRecord& record, const ReadingTaken& reading) {
  StorePattern(record, reading.Index);
  TurnLog::Row row = {std::to_string(reading.Index + 1), IsoTime(wallClock_()),
                      SingleText(record.Readings(reading.Index)), std::to_string(reading.Samples),
                      FlagsOf(reading)};
  row.insert(row.end(), reading.More.begin(), reading.More.end());
  log_.AddRow(std::move(row));
  StoreRow(log_.Rows().back());
}

void TurnKeeper::StorePattern(const ReadingsRecord& record, int lastIndex) {
  failure_ = Tried([&] {
    if (!pattern_) Create();
    pattern_->Rewrite(WritePatternText(UpTo(record, lastIndex), versionText_));
  });
}

/// A name of its own even when another program starts a turn in the same moment.
void TurnKeeper::Create() {
  std::error_code ignored;
  fs::create_directories(folder_, ignored);
  std::int64_t number = NextNumber(folder_);
  for (int tries = 0; !pattern_; ++tries, ++number) {
    const std::string path = PathOf(folder_, number, when_);
    try {
      pattern_ = std::make_unique<HeldFile>(path, HeldFile::Open::New);
      path_ = path;
    } catch (const RunTimeError& error) {
      if (error.Number() != fault::kFileExists || tries == kMostTries) throw;
    }
  }
}

void TurnKeeper::StoreRow(const TurnLog::Row& row) {
  if (path_.empty()) return;  // without the pattern there is nothing to lie beside
  logFailure_ = Tried([&] {
    if (!logFile_) CreateLog();
    unwritten_ += TurnRowText(row);
    logFile_->Append(unwritten_);
    unwritten_.clear();
  });
}

/// With every row before this one. What lies there under this name belongs to no pattern: that one is new.
void TurnKeeper::CreateLog() {
  std::error_code ignored;
  fs::remove(LogPathOf(path_), ignored);
  logFile_ = std::make_unique<HeldFile>(LogPathOf(path_), HeldFile::Open::New);
  unwritten_ = TurnLogHead(log_);
  for (std::size_t row = 0; row + 1 < log_.Rows().size(); ++row) unwritten_ += TurnRowText(log_.Rows()[row]);
}

void TurnKeeper::Finish(const ReadingsRecord& record, std::string_view ended) {
  running_ = false;
  if (log_.Rows().empty()) return;
  if (record.NumReadings < 0)
    return BreakOff(record, ended);  // what was taken and then dropped stays on disk
  log_.KeepRows(static_cast<std::size_t>(record.NumReadings) + 1);
  log_.SetKey(turnkey::kTaken, std::to_string(record.NumReadings + 1));
  log_.SetKey(turnkey::kEnded, ended);
  NoteCollected(log_, record);
  FinishPattern(record);
  FinishLog();
  DropOldTurns(folder_);
}

void TurnKeeper::BreakOff(const ReadingsRecord& record, std::string_view ended) {
  running_ = false;
  if (!log_.Rows().empty()) Finish(UpTo(record, static_cast<int>(log_.Rows().size()) - 1), ended);
}

void TurnKeeper::FlagSilent(int first, int last) {
  for (int row = std::max(0, first); row <= last && row < static_cast<int>(log_.Rows().size()); ++row) {
    const auto at = static_cast<std::size_t>(row);
    std::string flags(log_.Cell(at, turncolumn::kFlags));
    AddFlag(flags, kSilent);
    log_.SetCell(at, turncolumn::kFlags, flags);
  }
}

void TurnKeeper::FinishPattern(const ReadingsRecord& record) {
  failure_ = Tried([&] {
    if (path_.empty()) Create();
    std::error_code ignored;
    fs::create_directories(folder_, ignored);  // it may have vanished in the turn
    ReplaceFile(path_, WritePatternText(record, versionText_));
    pattern_ = std::make_unique<HeldFile>(path_, HeldFile::Open::Existing);
  });
}

void TurnKeeper::FinishLog() {
  if (path_.empty()) return;
  logFailure_ = Tried([&] { ReplaceFile(LogPathOf(path_), TurnLogText(log_)); });
  logFile_.reset();
}

}  // namespace lobegraph
