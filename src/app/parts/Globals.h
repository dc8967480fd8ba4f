#pragma once

#include <string>

#include "acquisition/core/RunFlags.h"
#include "acquisition/meters/MeterState.h"
#include "acquisition/sound/SoundLevel.h"
#include "settings/SettingsValues.h"

namespace lobegraph {

/// What the whole program shares; one owner (Form1), lower layers get their part by reference.
struct Globals {
  SettingsValues Settings;
  RunFlags Run;
  SoundLevelState Sound;
  SoundThresholds Thresholds;
  MeterState Meter;

  bool Loading = false;        ///< start-up is still filling the window
  bool AnalysisShown = false;  ///< the pattern analysis is switched on
  bool PlotTextShown = true;   ///< what is written on the plot is to be seen
  std::string UserName;        ///< the operator for this run of the program
  std::string VersionText;     ///< "V1.2.3"
  std::string WorkingFolder;   ///< where file dialogs start
  std::string TurnsFolder;     ///< what the program keeps unasked: no dialog starts there
  std::string NoticeText;
};

}  // namespace lobegraph
