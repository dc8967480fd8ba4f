#include "fuzz/Targets.h"

namespace lobegraph::fuzz {
namespace {

constexpr Target kTargets[] = {{"PatternFile", TryPatternFile},
                               {"CsvReadings", TryCsvReadings},
                               {"EditorCells", TryEditorCells},
                               {"ModelTable", TryModelTable},
                               {"LevelTable", TryLevelTable},
                               {"PlanningFiles", TryPlanningFiles},
                               {"Numbers", TryNumbers},
                               {"SettingsFile", TrySettingsFile},
                               {"PlotColours", TryPlotColours},
                               {"SerialMeters", TrySerialMeters},
                               {"ExternalMeter", TryExternalMeter},
                               {"RadioAnswers", TryRadioAnswers},
                               {"RotatorNews", TryRotatorNews},
                               {"RotatorOrders", TryRotatorOrders},
                               {"SoundBlocks", TrySoundBlocks}};

}  // namespace

std::span<const Target> Targets() { return kTargets; }

void Promise(bool holds, const char* promise) {
  if (!holds) throw BrokenPromise(promise);
}

}  // namespace lobegraph::fuzz
