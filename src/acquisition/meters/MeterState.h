#pragma once

#include <array>
#include <cstdint>

#include "acquisition/meters/SerialProtocol.h"

namespace lobegraph {

/// What the meters last said; written while the window is served.
struct MeterState {
  float MeterLevel = 0.0F;              ///< linear, 1000 at 60 dB
  float MeterDb = 0.0F;                 ///< 0 to 60
  std::array<float, 3> MeterHistory{};  ///< raw values (tenths of a dB), newest first
  float MeterAverage = 0.0F;            ///< mean of MeterHistory
  std::uint64_t ValuesReceived = 0;     ///< values of any meter: one that stands still has fallen silent
  Reception Received;                   ///< what its port sent of the next number
};

}  // namespace lobegraph
