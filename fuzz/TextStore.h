#pragma once

#include <string>

#include "settings/SettingsStore.h"
#include "settings/SettingsText.h"

namespace lobegraph::fuzz {

/// A store whose every application has the same file.
class TextStore final : public SettingsStore {
 public:
  /// @param text outlives the store
  explicit TextStore(std::string_view text) : text_(text) {}

  std::string Get(std::string_view, std::string_view section, std::string_view key,
                  std::string_view fallback) override {
    return FindValue(text_, section, key).value_or(std::string(fallback));
  }
  bool SaveAll(std::string_view, std::string_view, std::span<const SettingToSave>, Keeping) override {
    return false;
  }
  std::optional<StoreChange> LastChange(std::string_view) override { return std::nullopt; }
  std::string Place(std::string_view) const override { return "a text"; }

 private:
  std::string_view text_;
};

}  // namespace lobegraph::fuzz
