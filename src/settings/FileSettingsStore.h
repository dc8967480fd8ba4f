#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <string_view>

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
  static constexpr std::chrono::milliseconds kPatience{5000};

  /// @param patience how long a write waits for another process that is writing
  explicit FileSettingsStore(std::string configFolder = ConfigFolder(),
                             std::chrono::milliseconds patience = kPatience);

  std::string Get(std::string_view application, std::string_view section, std::string_view key,
                  std::string_view fallback) override;
  /// Reads the file, replaces one value and renames a new file over it, under a lock: a kill leaves the old
  /// file or the new one, and processes that write at the same time keep each other's values.
  /// @return false for names that cannot be written, for a file that is there but cannot be read (its other
  /// values would be lost), and when disk, rights or another writer stand in the way.
  bool Save(std::string_view application, std::string_view section, std::string_view key,
            std::string_view text) override;
  std::string Place(std::string_view application) const override;

 private:
  /// The file's text, none when there is no file. @throws RunTimeError 75 when it cannot be read whole
  std::optional<std::string> ReadText(std::string_view application);
  /// The text whose whole lines count now.
  std::string CurrentText(std::string_view application);
  void Rewrite(std::string_view application, std::string_view section, std::string_view key,
               std::string_view text);

  std::string folder_;
  std::chrono::milliseconds patience_;
  DiskFiles files_;
  std::map<std::string, std::string, std::less<>> wholeTexts_;  ///< the last by application; empty: none
};

}  // namespace lobegraph
