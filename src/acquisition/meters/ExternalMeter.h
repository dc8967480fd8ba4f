#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "acquisition/core/Clock.h"
#include "acquisition/meters/dBMeter.h"
#include "settings/SettingsStore.h"

namespace lobegraph {

/// The separate meter program, which publishes a power in dBm in the settings store: -60 dBm is the bottom of
/// the range, 0 dBm its top. A program that publishes a beat is dead when nothing of what it publishes has
/// changed for 2 seconds.
class ExternalMeter {
 public:
  ExternalMeter(SettingsStore& store, dBMeter& meter, MeterState& state, MeterDisplay& display, Clock& clock)
      : store_(store), meter_(meter), state_(state), display_(display), clock_(clock) {}

  /// Whether the program says that it publishes; the meter window then shows the answer. Deliberate: only "N"
  /// and a beat that has stopped refuse, while the poll of a reading accepts only "Y".
  bool Ready();

  /// Takes the value published now and shows it. While the program does not say "Y", publishes no number or
  /// is dead, the level keeps its last value, and the meter window tells why.
  void Poll();

 private:
  struct Published {
    std::string Reading;
    std::string Beat;
    std::int64_t Stamp = 0;  ///< of the last change of the store
    bool operator==(const Published&) const = default;
  };
  Published Read();
  bool Lives(const Published& published);
  void NoValue(const std::string& reason);
  void Take(float dbm);

  SettingsStore& store_;
  dBMeter& meter_;
  MeterState& state_;
  MeterDisplay& display_;
  Clock& clock_;
  std::optional<Published> last_;
  std::int32_t changedMs_ = 0;  ///< when last_ was first seen
};

}  // namespace lobegraph
