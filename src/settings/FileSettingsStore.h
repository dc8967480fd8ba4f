#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/base/FileAccess.h"
#include "settings/SettingsStore.h"

namespace lobegraph {

/// The folder of the user's configuration: $XDG_CONFIG_HOME when it is an absolute path, else $HOME/.config.
std::string ConfigFolder();

/// The store on disk, one file for each application: <folder>/lobegraph/<Application>.conf (see
/// SettingsText.h for its text, docs/settings-store.md for writers of other programs). A read reads the file
/// as it is now. Of a half-written file the last whole state that this object has seen stands; before the
/// first one the file's whole lines count. The same holds for a file that cannot be read.
class FileSettingsStore : public SettingsStore {
 public:
  static constexpr std::chrono::milliseconds kPatience{500};

  /// @param patience how long a write waits for another process that is writing. After one that waited in
  /// vain the next do not wait at all, so that a window stands still for this time and no longer
  explicit FileSettingsStore(std::string configFolder = ConfigFolder(),
                             std::chrono::milliseconds patience = kPatience);

  std::string Get(std::string_view application, std::string_view section, std::string_view key,
                  std::string_view fallback) override;
  /// Reads the file, replaces the values and renames a new file over it, under a lock: a kill leaves the old
  /// file or the new one, and processes that write at the same time keep each other's values. What is to last
  /// and could not be saved is read here as if it had been, and goes into the file with the next save or with
  /// SaveWaiting.
  /// @return false for names that cannot be written, for a file that is there but cannot be read (its other
  /// values would be lost), and when disk, rights or another writer stand in the way.
  bool SaveAll(std::string_view application, std::string_view section, std::span<const SettingToSave> values,
               Keeping keeping) override;
  std::optional<StoreChange> LastChange(std::string_view application) override;
  std::string Place(std::string_view application) const override;

  /// Whether something could not be saved yet.
  bool SomethingWaits() const { return !waiting_.empty(); }
  /// Tries again, without waiting, what could not be saved. @return whether nothing waits any more
  bool SaveWaiting();

 private:
  struct Waiting {
    std::string Section;
    SettingToSave Value;
  };
  /// A text whose lines are all whole, and the time at which its file was written.
  struct WholeText {
    std::string Text;                       ///< empty: none was seen
    std::optional<std::int64_t> WrittenNs;  ///< since the epoch, by the file system
  };

  /// The file's text, none when there is no file. @throws RunTimeError 75 when it cannot be read whole
  std::optional<std::string> ReadText(std::string_view application);
  /// The text whose whole lines count now, without what waits.
  std::string CurrentText(std::string_view application);
  bool TryRewrite(std::string_view application, const std::vector<Waiting>& values, Keeping keeping);
  void Rewrite(std::string_view application, const std::vector<Waiting>& values, Keeping keeping);

  std::string folder_;
  std::chrono::milliseconds patience_;
  bool waitedInVain_ = false;
  DiskFiles files_;
  std::map<std::string, WholeText, std::less<>> wholeTexts_;  ///< the last by application
  std::map<std::string, std::vector<Waiting>, std::less<>> waiting_;
};

}  // namespace lobegraph
