#pragma once

#include <optional>
#include <string>

#include "settings/SettingsStore.h"

namespace lobegraph {

/// What a meter program publishes in the store. Says that the program has ended when it ends.
class PublishedReading {
 public:
  /// @param calibrated what is published has been through a calibration: nobody is to apply another one
  explicit PublishedReading(SettingsStore& store, bool calibrated = false)
      : store_(store), calibrated_(calibrated) {}
  ~PublishedReading() { Retract(); }
  PublishedReading(const PublishedReading&) = delete;
  PublishedReading& operator=(const PublishedReading&) = delete;

  /// @param reading dBm, a number as text
  void Publish(const std::string& reading);
  /// There is no reading now; an old one must not be taken for one.
  void Retract();

 private:
  void SetActive(bool active);

  SettingsStore& store_;
  bool calibrated_;
  std::optional<bool> active_;  ///< what a former run left behind is unknown
};

}  // namespace lobegraph
