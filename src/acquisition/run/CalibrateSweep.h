#pragma once

#include <string_view>

#include "acquisition/run/CollectionEngine.h"
#include "acquisition/run/CollectionParts.h"
#include "acquisition/run/RunReport.h"

namespace lobegraph {

/// Calibrate mode: the present level goes round the plot again and again, so that input level and trigger
/// level can be set before a turn. Nothing is stored.
class CalibrateSweep {
 public:
  CalibrateSweep(const CollectionParts& parts, CollectionEngine& engine) : parts_(parts), engine_(engine) {}

  /// A click of the box by the user: checks the source, and unticks the box of one that is refused. Capture
  /// that had failed is tried once, for at most about 2 seconds. A box that the user unticked ends the sweep
  /// by itself.
  /// @return whether the sweep is to start, at the next turn of the event loop
  bool chkCalibrate_Click();

  /// Runs the sweep until the box is unticked, a collection is requested (which then runs), the sound card
  /// fails or the window is closed.
  /// @return what became of the collection that was requested
  RunReport Timer1_Timer();

 private:
  bool SourceReady();
  bool InputReady();
  bool CaptureStarts();
  bool MeterReady();
  bool SendCommand(std::string_view command);
  void Begin();
  void Sweep();
  bool StartSound();
  void NameSource();
  bool GoesOn() const;
  void SweepOnce();
  void TellPoint(float counter);
  float AverageLevel();
  void End();

  CollectionParts parts_;
  CollectionEngine& engine_;
  int plotScale_ = 0;
  std::string failure_;
  std::string sourceName_;  ///< as last told
};

}  // namespace lobegraph
