#include "fuzz/Targets.h"

namespace lobegraph::fuzz {
namespace {

std::vector<Target> AllTargets() {
  std::vector<Target> targets = {{"PatternFile", TryPatternFile},
                                 {"CsvReadings", TryCsvReadings},
                                 {"EditorCells", TryEditorCells},
                                 {"Numbers", TryNumbers},
                                 {"SettingsFile", TrySettingsFile},
                                 {"PlotColours", TryPlotColours},
                                 {"SerialMeters", TrySerialMeters},
                                 {"ExternalMeter", TryExternalMeter},
                                 {"RadioAnswers", TryRadioAnswers},
                                 {"Bearings", TryBearings},
                                 {"Locators", TryLocators},
                                 {"RotatorNews", TryRotatorNews},
                                 {"RotatorOrders", TryRotatorOrders},
                                 {"SoundBlocks", TrySoundBlocks},
                                 {"TurnLog", TryTurnLog},
                                 {"Calibration", TryCalibration},
                                 {"SoundReadings", TrySoundReadings}};
  for (const PatternFormat& format : PatternFormats().subspan(1))
    targets.push_back(
        {std::string(format.Id), [&format](std::string_view input) { TryFormat(format, input); }});
  return targets;
}

}  // namespace

const std::vector<Target>& Targets() {
  static const std::vector<Target> targets = AllTargets();
  return targets;
}

void Promise(bool holds, const char* promise) {
  if (!holds) throw BrokenPromise(promise);
}

}  // namespace lobegraph::fuzz
