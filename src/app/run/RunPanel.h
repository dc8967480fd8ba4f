#pragma once

#include <optional>
#include <span>
#include <string>

#include "acquisition/run/RunEvents.h"
#include "acquisition/trigger/RotatorLine.h"
#include "app/parts/AppParts.h"
#include "app/plot/PatternDisplay.h"
#include "app/plot/PlotBoard.h"
#include "data/turns/TurnKeeper.h"

namespace lobegraph {

/// The main window during a run: what its controls hold, and what it makes of what the run tells.
class RunPanel {
 public:
  RunPanel(const AppParts& parts, PlotBoard& board, PatternDisplay& display, TurnKeeper& keeper,
           const RotatorLine& trigger)
      : parts_(parts), board_(board), display_(display), keeper_(keeper), trigger_(trigger) {}

  RunControls Controls() const;
  void Show(const RunEvent& event);

 private:
  void On(const run_event::TurnBegins&);
  void On(const run_event::SourceRuns&);
  void On(const run_event::SourceNamed& source);
  void On(const run_event::AwaitsMeter& meter);
  void On(const run_event::ManualTrigger& trigger);
  void On(const run_event::LevelColour& level) { PaintLevel(level.Colour); }
  void On(const run_event::ReadingStored& reading);
  void On(const run_event::ReadingPlotted& reading);
  void On(const run_event::SourceRests&) { ShowLevelAtRest(); }
  void On(const run_event::TurnEnds& turn);
  void On(const run_event::TurnUnlocked&);
  void On(const run_event::TurnAbandoned&);
  void On(const run_event::SweepBegins&);
  void On(const run_event::SweepRound&) { DrawEmptyGrid(); }
  void On(const run_event::SweepPoint& point);
  void On(const run_event::SweepEnds&);
  void On(const run_event::CalibrateOff&) { parts_.View.SetChecked(Control::chkCalibrate, false); }

  std::string DateTimeText();
  void Lock();
  void DrawEmptyGrid();
  void PaintCalibrate(StatusColour background, bool bold);
  void ShowLevel(float level);
  void PaintLevel(StatusColour background);
  void ShowLevelAtRest();
  void Enable(std::span<const Control> controls, bool enabled);
  /// The line tells of the run; what it told before comes back when nothing came of the run.
  void BeginHint(const std::string& hint);

  AppParts parts_;
  PlotBoard& board_;
  PatternDisplay& display_;
  TurnKeeper& keeper_;
  const RotatorLine& trigger_;
  std::string hintBefore_;
  std::string runHint_;
  int rotationSeconds_ = 0;
  std::optional<StatusColour> levelShade_;
};

/// The shade of a status colour.
Colour ShadeOf(StatusColour colour);

}  // namespace lobegraph
