#include "settings/PublishedReading.h"

#include <array>
#include <utility>

#include "settings/SettingsTable.h"

namespace lobegraph {

/// The first beat is none that a former run may have left.
PublishedReading::PublishedReading(SettingsStore& store, bool calibrated, std::function<Time()> now)
    : store_(store),
      calibrated_(calibrated),
      now_(std::move(now)),
      beat_(std::chrono::system_clock::now().time_since_epoch().count()) {}

bool PublishedReading::Publish(const std::string& reading) {
  const bool stands = active_ == Said::Yes && reading == reading_ && now_() - written_ < kBeat;
  return stands || Write(reading);
}

bool PublishedReading::Write(const std::string& reading) {
  const std::array<SettingToSave, 4> values = {
      {{std::string(kPublishedReading.Key), reading},
       {std::string(kPublishedCalibrated.Key), calibrated_ ? "Y" : "N"},
       {std::string(kPublishedActive.Key), "Y"},
       {std::string(kPublishedBeat.Key), std::to_string(++beat_)}}};
  if (!store_.SaveAll(kGaugeBridgeApplication, kSettingsSection, values, Keeping::Fleeting)) {
    active_ = Said::Unknown;
    return false;
  }
  active_ = Said::Yes;
  reading_ = reading;
  written_ = now_();
  return true;
}

bool PublishedReading::Retract() {
  if (active_ == Said::No) return true;
  const SettingToSave value{std::string(kPublishedActive.Key), "N"};
  const bool saved =
      store_.SaveAll(kGaugeBridgeApplication, kSettingsSection, {&value, 1}, Keeping::Fleeting);
  active_ = saved ? Said::No : Said::Unknown;
  return saved;
}

}  // namespace lobegraph
