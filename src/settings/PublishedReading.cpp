#include "settings/PublishedReading.h"

#include "settings/SettingsTable.h"

namespace lobegraph {

void PublishedReading::Publish(const std::string& reading) {
  store_.Save(kGaugeBridgeApplication, kSettingsSection, kPublishedReading.Key, reading);
  SetActive(true);
}

void PublishedReading::Retract() { SetActive(false); }

void PublishedReading::SetActive(bool active) {
  if (active == active_) return;
  active_ = active;
  if (active)
    store_.Save(kGaugeBridgeApplication, kSettingsSection, kPublishedCalibrated.Key, calibrated_ ? "Y" : "N");
  store_.Save(kGaugeBridgeApplication, kSettingsSection, kPublishedActive.Key, active ? "Y" : "N");
}

}  // namespace lobegraph
