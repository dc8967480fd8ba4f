#pragma once

#include <functional>
#include <optional>
#include <string>

#include "data/base/GrowingFile.h"
#include "data/record/ReadingsRecord.h"

namespace lobegraph {

/// The folder of what the program keeps for the user unasked: $XDG_STATE_HOME when it is an absolute path,
/// else $HOME/.local/state, and "lobegraph" in it.
std::string StateFolder();

/// A pattern file of each collection, written while it runs: what a crash, an exit without saving or a load
/// on top would cost is still there. The last ten are kept; each opens like any pattern file.
class SafetyCopy {
 public:
  static constexpr std::size_t kKept = 10;

  /// @param folder created when the first copy is written
  SafetyCopy(std::string folder, std::string versionText);

  /// A new collection begins. @param when text that sorts by time, part of the file's name
  void Begin(const std::string& when);
  /// The reading stands in the record: all up to it are written, safe against a kill.
  void Store(const ReadingsRecord& record, int lastIndex);
  /// The collection has ended as the record now says: written once more, safe against a power cut.
  void Finish(const ReadingsRecord& record);

  /// Why the copy could not be written; empty while it could. A full disk never ends a turn.
  const std::string& Failure() const { return failure_; }
  /// Path of the present copy.
  const std::string& Path() const { return path_; }

 private:
  void Try(const std::function<void()>& write);
  void DropOldest() const;

  std::string folder_;
  std::string versionText_;
  std::string path_;
  std::optional<GrowingFile> file_;
  std::string failure_;
};

/// The present local time as "2026-11-21 10.22.33".
std::string TimeForFileName();

}  // namespace lobegraph
