#pragma once

#include <functional>
#include <optional>
#include <string>

#include "data/formats/LoadOutcome.h"
#include "processing/PreparePlot.h"
#include "processing/session/Outcome.h"
#include "processing/session/PatternHistory.h"

namespace lobegraph {

/// What is on that uses the plot for itself.
enum class RunKind { None, Sweep, Collection };

/// Reads a file into the record that the load has prepared. @return Error for a damaged one: the record holds
/// the fields before the damage @throws RunTimeError for one that cannot be read at all
using PatternReader = std::function<LoadOutcome(const LoadRules&, ReadingsRecord&)>;

/// Owns one pattern, with what lies beneath it and how it is shown. Each command is one call, and the outcome
/// says what is to be shown of it, in order. Faults are steps of the outcome; no command throws RunTimeError.
class PatternSession {
 public:
  PatternSession() { SetStyle({}); }

  const ReadingsRecord& Record() const { return state_.Record; }
  const std::optional<ReadingsRecord>& Beneath() const { return state_.Beneath; }
  const PlotStyle& Style() const { return style_; }
  /// What is typed, or was last shown, of rotation and trims.
  const Placement& Typed() const { return typed_; }
  /// The last redraw.
  const PlotResult& Plot() const { return plot_; }
  /// Between the -3 dB points of the plot shown; 0: none.
  float BeamwidthDeg() const { return beamwidthDeg_; }
  /// What is shown of the beam; a refused plot leaves the former figures.
  const BeamFigures& Figures() const { return figures_; }
  /// The fault that a command met, until the pattern is drawn again.
  const std::optional<RunTimeError>& LastFault() const { return lastFault_; }
  /// Readings are there, and none is missing.
  bool Drawable() const { return state_.Record.HasReadings() && !state_.HalfLoaded; }
  bool DescriptionLoaded() const { return state_.DescriptionLoaded; }
  /// The empty plot that goes with the pattern.
  show::Grid Grid() const;
  /// The gain by integration of what is plotted, dBi; none where it is refused, fails or is not defined.
  std::optional<double> IntegratedGain() const;

  // What surrounds the pattern. Nothing is drawn by these.
  void SetStyle(const PlotStyle& style);
  void SetRules(const PatternRules& rules) { rules_ = rules; }
  /// Rotation and trims as typed. They count from the next command on that draws.
  void Type(const Placement& placement) { typed_ = placement; }
  /// From then on the description is the user's own, and no run clears it.
  /// @param text without double quotes and line ends
  void Describe(const std::string& text);

  // Files.
  /// In place of the pattern, or over it in the scale that is set.
  Outcome Load(const std::string& path, const PatternReader& read);
  Outcome Overlay(const std::string& path, const PatternReader& read);
  /// The record as a file holds it: at most 360 readings, which the pattern then has as well.
  const ReadingsRecord& CapForFile();
  /// It is saved there, and its turn's log as it was to be.
  void SavedAs(const std::string& path);

  // The turn's log: it goes with the pattern through every command, and is taken back with it.
  /// What is known of the turn that the readings are from; null: nothing.
  const std::shared_ptr<const TurnLog>& Turn() const { return state_.Turn; }
  /// A log that says of these readings that they are its own; what it says was done to them counts on.
  void KnowTurn(TurnLog log);
  /// The log as it goes into a file beside these readings, with what was done to them since the turn; none
  /// where nothing is known.
  std::optional<TurnLog> TurnToSave() const;

  // Drawing.
  /// The whole picture again as it is: an empty grid, or the pattern beneath and the one over it.
  Outcome Redraw();
  /// Draws the pattern as it is now typed to lie.
  Outcome Place();
  Outcome ToggleForm();
  Outcome ToggleLogarithmic();
  Outcome PlotInDb(bool inDb);
  Outcome CoverHalfTurn(bool plot180);
  Outcome ShowMarks(bool marks);
  Outcome SetScale(int scaleSetting);

  // Figures.
  Outcome TogglePolarization();
  Outcome ChooseElements(const std::string& elements);
  Outcome Integrate();

  // Readings.
  Outcome Smooth();
  Outcome Reverse();
  Outcome DeSpike();
  /// Turns the beam between the -3 dB points to the top.
  Outcome Orient();
  /// The readings as they came, without marks and figures.
  Outcome Original();
  /// Readings 0 to 359 from outside; the last one that is not 0 ends the set.
  Outcome Update(const ReadingArray& readings);

  // Every change of the pattern can be taken back, and taken again until something else changes it. During a
  // run nothing is.
  Outcome Undo();
  Outcome Redo();

  // Runs. While one is on, commands change what they say, but draw nothing into its live trace.
  /// The overlay ends, trims, rotation, count, name and figures of the former pattern go, and a description
  /// that a file brought. The pattern to come is collected by this operator at this time.
  Outcome BeginCollection(const std::string& collectedBy, const std::string& collectedDate);
  /// What it left can be taken back in one step.
  void EndRun();
  /// A collection took nothing: the pattern is again what it was when it began.
  Outcome AbandonRun();
  /// The record is turned as a live trace has it. @return degrees added to every angle of the trace
  float TurnForRun();
  /// What a collection fills.
  ReadingsRecord& RunRecord() { return state_.Record; }
  /// The first reading of a collection is there: what a damaged file left is gone.
  void ReadingStored() { state_.HalfLoaded = false; }
  /// The overlay ends; the pattern stays, and what is shown of it goes until the sweep has ended.
  Outcome BeginSweep();
  /// The empty plot, and what there is to say of the pattern.
  Outcome EndSweep();

 private:
  using Command = std::function<void(Outcome&)>;
  /// Runs a command. A fault ends it and is told with the procedure's name; what was changed can be taken
  /// back.
  Outcome Do(const char* procedure, const Command& command, Repeated repeated = Repeated::No);
  /// Do, for what may change the readings: it is noted in this word when it has.
  Outcome Change(const char* procedure, const char* change, const Command& command);
  Outcome GoTo(PatternState state);
  void Guarded(Outcome& outcome, const char* procedure, const Command& command);
  void LoadInto(Outcome& outcome, const std::string& path, const PatternReader& read, bool over);
  void TakeUp(Outcome& outcome, const LoadOutcome& loaded, bool over);
  void ForgetTurn();
  void EndOverlay() { state_.Beneath.reset(); }
  void BeginRun(RunKind kind);
  bool MayDraw() const { return run_ == RunKind::None; }
  void Draw(Outcome& outcome, bool over = false);
  void DrawAll(Outcome& outcome);
  void DrawBeneath(Outcome& outcome);
  void PlotRecord(Outcome& outcome, bool over);
  void TurnToTop(Outcome& outcome);
  void PlotOriginals(Outcome& outcome);

  void ShowPlotFields(Outcome& outcome);
  void ShowRecord(Outcome& outcome);
  void ShowCleared(Outcome& outcome);
  void ShowNumber(Outcome& outcome, PlacementPart part, double value);
  void ShowFiguresAnew(Outcome& outcome);
  void ShowIntegratedGain(Outcome& outcome);
  void ShowRefusal(Outcome& outcome, const std::optional<std::string>& message,
                   const std::optional<PlacementPart>& part);
  void ShowFigures(Outcome& outcome, const BeamFigures& figures);

  PatternState state_;
  PlotStyle style_;
  PatternRules rules_;
  Placement typed_;
  PlotResult plot_;
  float beamwidthDeg_ = 0.F;
  BeamFigures figures_;
  std::optional<RunTimeError> lastFault_;
  RunKind run_ = RunKind::None;
  float beamwidthBeforeSweep_ = 0.F;
  PatternState beforeRun_;  ///< the pattern that an abandoned run brings back
  PatternHistory history_;
};

}  // namespace lobegraph
