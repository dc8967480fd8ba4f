#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "settings/SettingsStore.h"
#include "settings/SettingsTable.h"

namespace lobegraph {

/// A store in memory that remembers who asked for what, in order.
class RecordingStore : public SettingsStore {
 public:
  std::string Get(std::string_view application, std::string_view section, std::string_view key,
                  std::string_view fallback) override {
    const std::string name = NameOf(application, section, key);
    Log.push_back("get " + name);
    const auto found = Values.find(name);
    return found == Values.end() ? std::string(fallback) : found->second;
  }

  bool SaveAll(std::string_view application, std::string_view section, std::span<const SettingToSave> values,
               Keeping keeping) override {
    LastKeeping = keeping;
    const bool fails = FailsToSave || FailsFor > 0;
    if (FailsFor > 0) --FailsFor;
    for (const auto& [key, text] : values) {
      const std::string name = NameOf(application, section, key);
      Log.push_back("save " + name + "=" + text);
      if (!fails) Values[name] = text;
    }
    return !fails;
  }

  std::optional<StoreChange> LastChange(std::string_view) override { return Change; }

  std::string Place(std::string_view application) const override {
    return "memory of " + std::string(application);
  }

  /// Holds a value as if it had been saved before: Put("Scale", "35").
  void Put(std::string_view key, std::string_view text,
           std::string_view application = kLobegraphApplication) {
    Values[NameOf(application, kSettingsSection, key)] = text;
  }

  /// What is held for a key of this program; empty when nothing is.
  std::string Held(std::string_view key) const {
    const auto found = Values.find(NameOf(kLobegraphApplication, kSettingsSection, key));
    return found == Values.end() ? std::string() : found->second;
  }

  /// The log without the place of this program's own settings: "get Scale", "save Scale=35".
  std::vector<std::string> Log;
  /// By key; "<application>/<section>/<key>" outside this program's own settings.
  std::map<std::string, std::string> Values;
  bool FailsToSave = false;
  int FailsFor = 0;  ///< so many saves
  Keeping LastKeeping = Keeping::Durable;
  std::optional<StoreChange> Change;  ///< of every application

 private:
  static std::string NameOf(std::string_view application, std::string_view section, std::string_view key) {
    const bool own = application == kLobegraphApplication && section == kSettingsSection;
    if (own) return std::string(key);
    return std::string(application) + "/" + std::string(section) + "/" + std::string(key);
  }
};

}  // namespace lobegraph
