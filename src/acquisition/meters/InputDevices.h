#pragma once

#include <cstdint>
#include <string_view>

namespace lobegraph {

/// The meter's and the trigger's connections as start-up and shutdown use them.
class InputDevices {
 public:
  virtual ~InputDevices() = default;
  virtual void ShowMeterWindow() = 0;
  /// Reports itself when the port is not to be had. @param port COM number, 0 for none
  virtual void OpenMeterPort(std::int16_t port, std::string_view baud) = 0;
  /// The same for the trigger's port, as the input choice says.
  virtual void OpenTriggerPort() = 0;
  virtual void CloseMeterPort() = 0;
  virtual void CloseTriggerPort() = 0;
  /// Releases the USB module if it is open. @return false when that failed
  virtual bool CloseUsbModule() = 0;
};

}  // namespace lobegraph
