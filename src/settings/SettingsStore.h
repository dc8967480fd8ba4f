#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace lobegraph {

/// A value on its way into the store.
struct SettingToSave {
  std::string Key;
  std::string Text;
};

/// What becomes of values that are saved.
enum class Keeping {
  Durable,   ///< they outlive a power cut; what cannot be saved now is kept and tried again
  Fleeting,  ///< worth nothing without their writer: never waited for the disk, never tried again
};

/// The last time at which an application's values were written, whatever they say.
struct StoreChange {
  std::int64_t Stamp = 0;            ///< another number after each change
  std::chrono::milliseconds Age{0};  ///< by the date: below 0 where it was set back
  bool operator==(const StoreChange&) const = default;
};

/// The user's key/value store, in which every value is text. A value is addressed by application name,
/// section and key; another program (a meter program) publishes under its own application name. Nothing is
/// ever deleted, and nothing lists the store. It never troubles the user with an error.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  /// The value as it is now, or `fallback` when there is none or it cannot be read.
  virtual std::string Get(std::string_view application, std::string_view section, std::string_view key,
                          std::string_view fallback) = 0;
  /// Creates or replaces values of one section, in their order and in one step; every other value stays.
  /// @return false when they could not be saved
  virtual bool SaveAll(std::string_view application, std::string_view section,
                       std::span<const SettingToSave> values, Keeping keeping) = 0;
  /// The same for one value that is to last.
  bool Save(std::string_view application, std::string_view section, std::string_view key,
            std::string_view text) {
    const SettingToSave value{std::string(key), std::string(text)};
    return SaveAll(application, section, {&value, 1}, Keeping::Durable);
  }
  /// When the values that Get gives were written; none when there are none.
  virtual std::optional<StoreChange> LastChange(std::string_view application) = 0;
  /// Where a person finds an application's values: the path of a file.
  virtual std::string Place(std::string_view application) const = 0;
};

}  // namespace lobegraph
