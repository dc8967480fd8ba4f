#pragma once

#include <cstdint>
#include <string>

#include "acquisition/core/StatusColour.h"

namespace lobegraph {

/// The dB meter window (frmdBMeter) as the program writes to it; shown or hidden, the writes go on.
class MeterWindow {
 public:
  virtual ~MeterWindow() = default;
  virtual void SetStatusText(const std::string& lblStatus) = 0;
  virtual void PaintStatusShape(StatusColour colour) = 0;
  virtual void SetStateCount(const std::string& lblStateCount) = 0;
};

/// Once a second: shows how often the trigger was polled in the last second, and counts anew.
/// @param usbStateCount trigger-state reads since the last tick
void tmrOneSec_Timer(std::int32_t& usbStateCount, MeterWindow& frmdBMeter);

}  // namespace lobegraph
