#pragma once

#include <functional>
#include <optional>
#include <string>
#include <variant>

#include "acquisition/core/StatusColour.h"

namespace lobegraph {

/// What the user's controls hold at a moment.
struct RunControls {
  bool AutoStart = false;
  bool AutoStop = false;
  bool Triggered = false;
  bool PlotInDb = true;
  bool Calibrate = false;
  int PlotScale = 35;        ///< of the logarithmic drawing
  int RotationSeconds = 60;  ///< of a whole turn
};

/// What a run tells of itself, in the order in which it happens.
namespace run_event {

/// A turn begins: the former pattern's fields go, operator and date are of now, the grid is empty, and
/// everything is locked that could start a second run or change the data.
struct TurnBegins {};
/// The source delivers: the trace starts anew.
struct SourceRuns {};
/// The sound source is open and called so for people; another one may have come in its place.
struct SourceNamed {
  std::string Name;
};
/// Nothing is taken before the meter has said enough for a mean.
struct AwaitsMeter {
  bool Waits = false;
};
/// A press of the user stands in for the trigger's pulse, or no longer.
struct ManualTrigger {
  bool Offered = false;
};
/// A sample of this quality was taken. Told at every sample, so a colour that is there already must cost
/// nothing.
struct LevelColour {
  StatusColour Colour = StatusColour::Yellow;
};
/// The reading stands in the record.
struct ReadingStored {
  int Index = 0;
  float Level = 0.0F;
  int Samples = 0;                    ///< different ones that it is the mean of
  std::optional<double> Spread = {};  ///< their standard deviation, level units; none of a single one
  bool Late = false;                  ///< it ended more than one interval after its deadline
  bool Silent = false;                ///< the meter has said nothing for too long already
  bool Suspended = false;             ///< the computer slept in it
};
/// Where the reading lies on the plot; a line joins it to the one before.
struct ReadingPlotted {
  int Index = 0;
  float PositionDeg = 0.0F;  ///< in both drawings: the rectangular one scales degrees itself
  float Radius = 0.0F;       ///< surface units
};
/// The source delivers no more.
struct SourceRests {};
/// What was taken stands in the record.
struct TurnEnds {
  int ReadingsTaken = 0;
  int LowReadings = 0;  ///< at its end, at or below the stop level
};
/// Everything that TurnBegins locked is free again.
struct TurnUnlocked {};
/// The start was abandoned and the record is again what it was: every box, figure and the plot show it.
struct TurnAbandoned {};

/// Calibrate mode begins: as TurnBegins, but collect, calibrate and the display options stay in reach, and
/// the pattern is only out of sight.
struct SweepBegins {};
/// The level goes round once more, on an empty grid.
struct SweepRound {};
struct SweepPoint {
  float Level = 0.0F;
  float PositionDeg = 0.0F;
  float Radius = 0.0F;
};
/// Calibrate mode has ended: everything is free again, and the fields tell of the pattern held.
struct SweepEnds {};
/// The calibrate box is unticked, and not by the user.
struct CalibrateOff {};

}  // namespace run_event

using RunEvent =
    std::variant<run_event::TurnBegins, run_event::SourceRuns, run_event::SourceNamed, run_event::AwaitsMeter,
                 run_event::ManualTrigger, run_event::LevelColour, run_event::ReadingStored,
                 run_event::ReadingPlotted, run_event::SourceRests, run_event::TurnEnds,
                 run_event::TurnUnlocked, run_event::TurnAbandoned, run_event::SweepBegins,
                 run_event::SweepRound, run_event::SweepPoint, run_event::SweepEnds, run_event::CalibrateOff>;

/// What a run asks, and to whom it tells; both are answered at once.
struct RunFront {
  std::function<RunControls()> Controls;
  std::function<void(const RunEvent&)> Tell;
};

}  // namespace lobegraph
