#pragma once

#include <array>
#include <cstdint>

#include "acquisition/meters/MeterPace.h"
#include "acquisition/meters/SerialProtocol.h"

namespace lobegraph {

/// What the meters last said; written while the window is served.
struct MeterState {
  float MeterLevel = 0.0F;              ///< linear, 1000 at 60 dB
  float MeterDb = 0.0F;                 ///< 0 to 60
  std::array<float, 3> MeterHistory{};  ///< raw values (tenths of a dB), newest first
  std::size_t HistoryLength = 0;        ///< how many of them were received, the others are zeros
  float MeterAverage = 0.0F;            ///< mean of MeterHistory
  std::uint64_t ValuesReceived = 0;     ///< values of any meter
  Reception Received;                   ///< what its port sent of the next number
  MeterPace Pace;                       ///< how often a serial meter speaks
  MeterLife Life;

  /// Another meter, or the same one anew: nothing of what was said before belongs to it.
  void Forget() {
    MeterHistory = {};
    HistoryLength = 0;
    Received.Buffer.clear();
    Received.Capturing = Received.AfterBlank = false;
    Pace = {};
  }
  bool HistoryFull() const { return HistoryLength == MeterHistory.size(); }
};

}  // namespace lobegraph
