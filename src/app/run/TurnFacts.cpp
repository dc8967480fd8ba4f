#include "app/run/TurnFacts.h"

#include "acquisition/meters/LevelSource.h"
#include "app/run/AfterRun.h"
#include "data/base/Numbers.h"

namespace lobegraph {
namespace {

constexpr const char* kSpreadColumn = "spread";
constexpr double kTenThousandthsPerUnit = 10'000.0;

std::string NumberText(double value) { return StoreText(static_cast<float>(value)); }

}  // namespace

TurnStart TurnStartOf(const Globals& shared, const RunControls& controls, const std::string& source) {
  const SettingsValues& settings = shared.Settings;
  TurnStart start{.Operator = shared.UserName,
                  .Source = source,
                  .RotationSeconds = controls.Triggered ? 0.0 : controls.RotationSeconds,
                  .MoreColumns = {kSpreadColumn}};
  const auto say = [&](const char* key, std::string value) {
    start.MoreKeys.emplace_back(key, std::move(value));
  };
  say("input", std::string(SourceOf(settings.Input).Caption));
  say("paced by", controls.Triggered ? "trigger" : "clock");
  say("peak input level", NumberText(settings.PeakInputLevel));
  say("start-up delay",
      NumberText(static_cast<double>(settings.StartupDelay.TenThousandths()) / kTenThousandthsPerUnit));
  if (controls.AutoStart) say("auto start above", NumberText(settings.DetectStartLevel));
  if (controls.AutoStop) {
    say("auto stop at", NumberText(settings.DetectStopLevel));
    say("auto stop after", std::to_string(settings.DetectStopNumberOfReadings));
  }
  return start;
}

ReadingTaken ReadingTakenOf(const run_event::ReadingStored& reading) {
  return {.Index = reading.Index,
          .Samples = reading.Samples,
          .Late = reading.Late,
          .Silent = reading.Silent,
          .Suspended = reading.Suspended,
          .More = {reading.Spread ? NumberText(*reading.Spread) : ""}};
}

std::string_view EndOf(const RunReport& report) {
  switch (report.Ended) {
    case TurnEnding::Halted:
      return turnend::kHalted;
    case TurnEnding::AutoStop:
      return turnend::kAutoStop;
    case TurnEnding::SourceLost:
      return turnend::kSourceLost;
    default:
      return turnend::kWhole;
  }
}

void NoteReport(const RunReport& report, TurnKeeper& keeper) {
  for (const SilentReadings::Stretch& stretch : report.Silent.Stretches)
    keeper.FlagSilent(stretch.First, stretch.Last);
  const TurnHint hint = HintAfterRun(report, {keeper.Failure(), keeper.LogFailure()});
  for (const TurnRemark& remark : hint.All()) keeper.Log().AddKey(turnkey::kRemark, remark.Text);
}

}  // namespace lobegraph
