#pragma once

#include "acquisition/meters/dBMeter.h"
#include "settings/SettingsStore.h"

namespace lobegraph {

/// The separate meter program, which publishes a power in dBm in the settings store: -60 dBm is the bottom of
/// the range, 0 dBm its top.
class ExternalMeter {
 public:
  ExternalMeter(SettingsStore& store, dBMeter& meter, MeterState& state, MeterDisplay& display)
      : store_(store), meter_(meter), state_(state), display_(display) {}

  /// Takes the value published now and shows it. While the program does not say "Y" the level keeps its last
  /// value. Deliberate: any answer but "Y" counts as not ready here, while the start of a collection refuses
  /// only "N".
  void Poll();

 private:
  void TakeReading();

  SettingsStore& store_;
  dBMeter& meter_;
  MeterState& state_;
  MeterDisplay& display_;
};

}  // namespace lobegraph
