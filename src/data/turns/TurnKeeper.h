#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data/base/WallTime.h"
#include "data/record/ReadingsRecord.h"
#include "data/turns/HeldFile.h"
#include "data/turns/TurnLog.h"

namespace lobegraph {

/// How a turn ended, in the words of its log.
namespace turnend {
inline constexpr std::string_view kWhole = "whole";
inline constexpr std::string_view kHalted = "halted";
inline constexpr std::string_view kAutoStop = "auto stop";
inline constexpr std::string_view kSourceLost = "source lost";
inline constexpr std::string_view kClosed = "closed";  ///< the program, in the middle of the turn
inline constexpr std::string_view kFault = "fault";    ///< of the program itself
inline constexpr std::string_view kKilled = "killed";  ///< what a log says until the turn has ended
}  // namespace turnend

/// What is known of a turn when it begins.
struct TurnStart {
  std::string Operator = {};
  std::string Source = {};  ///< the input in words ("Monitor of Null Output")
  int PlannedReadings = 360;
  double RotationSeconds = 0.0;               ///< 0: not paced by time
  std::vector<std::string> MoreColumns = {};  ///< what each reading tells besides
  std::vector<std::pair<std::string, std::string>> MoreKeys = {};
};

/// What is known of a reading when it stands in the record.
struct ReadingTaken {
  int Index = 0;    ///< of the record
  int Samples = 0;  ///< that it is the mean of
  bool Late = false;
  bool Silent = false;
  bool Suspended = false;              ///< the computer slept in it
  std::vector<std::string> More = {};  ///< cells of TurnStart's further columns
};

/// A pattern file and the log of each turn in the state folder, written while it runs: what a crash, an exit
/// without saving or a load on top would cost is still there. A kill loses at most the reading in hand. No
/// trouble with the disk ever ends a turn: it is told.
class TurnKeeper {
 public:
  using WallClock = std::function<std::int64_t()>;

  /// @param folder created when the first turn is written
  TurnKeeper(std::string folder, std::string versionText, WallClock wallClock = WallTimeMs);

  /// A turn begins. Nothing is written before its first reading.
  void Begin(const TurnStart& start);
  /// The reading stands in the record: all up to it are written, safe against a kill.
  void Store(const ReadingsRecord& record, const ReadingTaken& reading);
  /// The turn has ended as the record now says: both files are written once more, safe against a power cut;
  /// old turns go. The files stay held until the next turn begins. Nothing for a turn without a reading.
  void Finish(const ReadingsRecord& record, std::string_view ended);
  /// The same of a turn that was broken off: the record does not say what was taken, the last Store does.
  void BreakOff(const ReadingsRecord& record, std::string_view ended);
  /// Readings that turned out to be silent after they were stored, from the first index to the last.
  void FlagSilent(int first, int last);

  /// The log so far. What is noted in it before Finish goes into its file.
  TurnLog& Log() { return log_; }
  /// Why the pattern could not be written; empty while it could.
  const std::string& Failure() const { return failure_; }
  /// The same of the log.
  const std::string& LogFailure() const { return logFailure_; }
  /// A turn has begun and was not finished.
  bool Running() const { return running_; }
  /// Path of the present turn's pattern; empty before its first reading.
  const std::string& Path() const { return path_; }

 private:
  void StorePattern(const ReadingsRecord& record, int lastIndex);
  void StoreRow(const TurnLog::Row& row);
  void Create();
  void CreateLog();
  void FinishPattern(const ReadingsRecord& record);
  void FinishLog();

  std::string folder_;
  std::string versionText_;
  WallClock wallClock_;
  TurnLog log_;
  std::string when_;
  bool running_ = false;
  std::string path_;
  std::unique_ptr<HeldFile> pattern_;
  std::unique_ptr<HeldFile> logFile_;
  std::string unwritten_;  ///< rows of the log that have not reached its file
  std::string failure_;
  std::string logFailure_;
};

}  // namespace lobegraph
