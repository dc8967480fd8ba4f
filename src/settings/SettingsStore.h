#pragma once

#include <string>
#include <string_view>

namespace lobegraph {

/// The user's key/value store, in which every value is text. A value is addressed by application name,
/// section and key; another program (a meter program) publishes under its own application name. Nothing is
/// ever deleted, and nothing lists the store. It never troubles the user with an error.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  /// The value as it is now, or `fallback` when there is none or it cannot be read.
  virtual std::string Get(std::string_view application, std::string_view section, std::string_view key,
                          std::string_view fallback) = 0;
  /// Creates or replaces one value; every other value stays.
  /// @return false when it could not be saved (for standard error and for tests; no message box follows).
  virtual bool Save(std::string_view application, std::string_view section, std::string_view key,
                    std::string_view text) = 0;
  /// Where a person finds an application's values, for standard error: the path of a file.
  virtual std::string Place(std::string_view application) const = 0;
};

}  // namespace lobegraph
