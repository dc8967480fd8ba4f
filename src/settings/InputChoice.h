#pragma once

#include <cstdint>

namespace lobegraph {

/// Which source delivers the level and what paces the readings; set by the input chooser.
struct InputChoice {
  bool InputDeviceIsLineIn = true;
  bool InputDeviceIsdBMeter = false;
  bool ROSKAmeter = false;
  bool GaugeBridge = false;
  bool GaugeBridgeTrigger = false;  ///< Deliberate name: true takes the trigger from the USB module.
  std::int16_t Commport = 0;        ///< COM number of the meter, 0 for none
  std::int16_t Commtrigger = 0;     ///< COM number of the trigger line, 0 for none

  bool operator==(const InputChoice&) const = default;
};

}  // namespace lobegraph
