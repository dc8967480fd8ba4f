#pragma once

#include <cstdint>
#include <string>

#include "data/record/ReadingsRecord.h"
#include "processing/PreparePlot.h"

namespace lobegraph {

/// Where a pattern's commands read what the user typed and show what came of it: the window with its boxes,
/// or a companion that only remembers them.
class PatternFront {
 public:
  virtual ~PatternFront() = default;

  virtual PlotTexts Boxes() const = 0;
  virtual void SetBox(PlotBox box, const std::string& text) = 0;
  virtual PlotOptions Options() const = 0;
  virtual void ShowMessage(const std::string& text) = 0;
  /// The record's plot fields into their boxes.
  virtual void ShowPlotFields() = 0;
  /// A complete plot: the drawing and its figures.
  virtual void ShowPlot(const PlotResult& plot) = 0;
  /// The whole redraw, faults shown.
  virtual PlotResult ReDraw() = 0;

 protected:
  PatternFront() = default;
  PatternFront(const PatternFront&) = default;
  PatternFront& operator=(const PatternFront&) = default;
};

/// The plot of a record as boxes and options now say, shown step by step: a refusal with its message and the
/// refused box at 0, or plot fields, trace and figures.
/// @param plot holds what was settled when a fault ends it half-way
/// @throws RunTimeError as BeginPlot and CompletePlot
void PlotPattern(ReadingsRecord& record, PatternFront& front, PlotResult& plot);

/// Puts a refused value's box to 0 and shows the messages.
void ShowRefusal(const PlotResult& plot, PatternFront& front);

/// The rotation into its box, as a whole number.
void ShowRotation(const ReadingsRecord& record, PatternFront& front);

/// Reverses the readings; trims, and a rotation that is not 0, into their boxes. To be oriented afterwards.
void ReversePattern(ReadingsRecord& record, PatternFront& front);

/// @return true when it is to be oriented afterwards; false when it was refused, which was shown
/// @throws RunTimeError 6 for trims beyond 16 bits
bool DeSpikePattern(ReadingsRecord& record, std::int16_t spikeDetectLevel, PatternFront& front);

/// The automatic orientation: redraw, turn the record (unless it is a 180-degree set) and redraw. In the
/// rectangular drawing it only redraws; below three readings it does nothing.
/// @return the pattern was plotted whole
bool OrientPattern(ReadingsRecord& record, PatternFront& front);

}  // namespace lobegraph
