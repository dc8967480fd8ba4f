#pragma once

#include "acquisition/run/CollectionParts.h"
#include "acquisition/run/RunReport.h"

namespace lobegraph {

/// Takes patterns: one call is one turn of the antenna.
class CollectionEngine {
 public:
  explicit CollectionEngine(const CollectionParts& parts) : parts_(parts) {}

  /// Checks the source and takes one pattern into the record; returns when it has ended. While a sweep is on
  /// it only asks the sweep to end and to call it again; while a collection is on it does nothing.
  /// @throws RunTimeError 6 for an overflow on the way (window unlocked, readings so far kept)
  RunReport cmdCollectData_Click();
  void cmdHaltInput_Click() { parts_.Flags.HaltRequested = 1; }
  void cmdTrigger_Click() { parts_.Flags.ManualTriggerPressed = true; }

 private:
  CollectionParts parts_;
};

}  // namespace lobegraph
