#pragma once

#include <functional>
#include <string>

#include "app/parts/AppParts.h"
#include "app/plot/PlotBoard.h"
#include "processing/session/PatternSession.h"

namespace lobegraph {

/// The pattern in the main window: runs its commands with what boxes and settings say at that moment, and
/// shows what came of them, step by step.
class PatternDisplay {
 public:
  using Command = std::function<Outcome(PatternSession&)>;

  PatternDisplay(const AppParts& parts, PlotBoard& board) : parts_(parts), board_(board) {}

  /// @param advice a sentence before the text of a fault: what the user can mend
  /// @return what was shown
  Outcome Run(const Command& command, const std::string& advice = "");
  /// The whole picture again as it is, though nobody asked for it: what is refused as it was before is said
  /// in the line below the plot, and not in a box again.
  void Redraw();
  /// The same beneath an open dialog, of which nothing may be said and only the background seen: every other
  /// colour is drawn as it was when the dialog opened.
  void RedrawBeneathDialog();
  void DialogOpens() { board_.KeepColours(); }
  void DialogCloses();
  /// Shows the steps in their order; a message stays until the user closes it.
  void Show(const Outcome& outcome);
  /// A message of an outcome may be open: its further steps are still to come.
  bool Showing() const { return showing_ > 0; }

 private:
  /// What becomes of messages and faults.
  enum class Telling { Boxes, Line, Nothing };
  Outcome Ask(const Command& command);
  void Show(const Outcome& outcome, Telling telling);
  void Tell(const std::string& text, const std::function<void()>& box);
  void Do(const show::Grid& grid) { board_.DrawGrid(grid); }
  void Do(const show::Trace& trace) { board_.DrawPattern(trace); }
  void Do(const show::PlotFields& fields);
  void Do(const show::Details& details);
  void Do(const show::Cleared& cleared);
  void Do(const show::PlacementNumber& number);
  void Do(const show::HalfTurn& half) { parts_.View.SetChecked(Control::chk180, half.Plot180); }
  void Do(const show::Polarization& polarization);
  void Do(const show::Figures& figures);
  void Do(const show::IntegratedGain& gain);
  void Do(const show::Message& message);
  void Do(const show::Fault& fault);

  AppParts parts_;
  PlotBoard& board_;
  int showing_ = 0;
  Telling telling_ = Telling::Boxes;
  std::string advice_;
  std::string refused_;  ///< what the last drawing was refused with
};

}  // namespace lobegraph
