#pragma once

#include "acquisition/run/CalibrateSweep.h"
#include "acquisition/run/CollectionEngine.h"
#include "app/parts/AppParts.h"
#include "data/turns/TurnKeeper.h"

namespace lobegraph {

/// Collecting and calibrating, as the buttons start and stop them.
class RunCommands {
 public:
  RunCommands(const AppParts& parts, const CollectionParts& run, TurnKeeper& keeper)
      : parts_(parts), engine_(run), sweep_(run, engine_), keeper_(keeper) {}

  void cmdCollectData_Click();
  void cmdHaltInput_Click() { engine_.cmdHaltInput_Click(); }
  void cmdTrigger_Click() { engine_.cmdTrigger_Click(); }
  void chkCalibrate_Click();
  void Timer1_Timer();

 private:
  void AfterRun(const RunReport& report);
  void FinishTurn(const RunReport& report);

  AppParts parts_;
  CollectionEngine engine_;
  CalibrateSweep sweep_;
  TurnKeeper& keeper_;
};

/// The line of a window that holds nothing yet.
inline constexpr const char* kFirstHint = "Calibrate Input, start the rotator, press Collect Data.";

}  // namespace lobegraph
