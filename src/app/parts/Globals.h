#pragma once

#include <optional>
#include <string>

#include "acquisition/core/RunFlags.h"
#include "acquisition/meters/MeterState.h"
#include "acquisition/sound/SoundLevel.h"
#include "data/record/ReadingsRecord.h"
#include "settings/SettingsValues.h"

namespace lobegraph {

/// What the whole program shares; one owner (Form1), lower layers get their part by reference.
struct Globals {
  ReadingsRecord Record;
  /// The pattern beneath an overlay, drawn first so that the pair survives everything that draws the window
  /// again.
  std::optional<ReadingsRecord> Beneath;
  /// The next pattern is drawn over the present one.
  bool Overlay = false;
  /// The description came from a file, so a new pattern clears it.
  bool DescriptionLoaded = false;
  float BeamwidthDeg = 0.F;  ///< between the -3 dB points of the plot shown; 0: none

  SettingsValues Settings;
  RunFlags Run;
  SoundLevelState Sound;
  SoundThresholds Thresholds;
  MeterState Meter;

  /// A damaged file left a part of its readings: shown in the boxes, never drawn by itself.
  bool HalfLoaded = false;
  bool Loading = false;        ///< start-up, or a file, is still filling the window
  bool AnalysisShown = false;  ///< the pattern analysis is switched on
  bool PlotTextShown = true;   ///< what is written on the plot is to be seen
  std::string UserName;        ///< the operator for this run of the program
  std::string VersionText;     ///< "V1.2.3"
  std::string WorkingFolder;   ///< where file dialogs start
  std::string NoticeText;
};

}  // namespace lobegraph
