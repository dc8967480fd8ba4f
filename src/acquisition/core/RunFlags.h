#pragma once

#include <cstdint>

namespace lobegraph {

/// How handlers that run inside a yield talk to the loop that yielded. All on the window's thread; no locks.
struct RunFlags {
  std::int16_t HaltRequested = 0;  ///< 0 or 1: the last index is computed with it
  bool ManualTriggerPressed = false;
  bool IsCollecting = false;
  bool IsSweeping = false;  ///< the calibrate sweep is on
  bool CollectRequested = false;
  bool InputReady = false;
  bool TriggerPortGone = false;  ///< since the run began: no pulse can come any more
  bool CloseRequested = false;   ///< the window goes: every run ends and leaves the record as it is

  /// A run is a collection or a calibrate sweep.
  bool Running() const { return IsCollecting || IsSweeping; }
  /// Ends a run at its next yield, a wait for a trigger included.
  void RequestClose() {
    CloseRequested = true;
    HaltRequested = 1;
  }
};

}  // namespace lobegraph
