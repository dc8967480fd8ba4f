#include "acquisition/core/MeterWindow.h"

namespace lobegraph {

void tmrOneSec_Timer(std::int32_t& usbStateCount, MeterWindow& frmdBMeter) {
  frmdBMeter.SetStateCount(std::to_string(usbStateCount));
  usbStateCount = 0;
}

}  // namespace lobegraph
