#include "acquisition/meters/LevelSource.h"

#include <algorithm>

#include "acquisition/meters/Roska.h"
#include "acquisition/meters/Tarven.h"

namespace lobegraph {
namespace {

constexpr std::string_view kTarvenBaud = "38400";

// A flag alone may belong to one row and be part of another's: the more particular row stands further down.
constexpr LevelSource kSources[] = {
    {.Caption = "Microphone", .Name = "Sound: microphone"},
    {.Caption = "Line-in", .Name = "Sound: line-in", .Keys = {&InputChoice::InputDeviceIsLineIn}},
    {.Caption = "TARVEN meter without using TarvenMeter program",
     .Name = "TARVEN, COM",
     .Comes = Intake::Received,
     .Keys = {&InputChoice::InputDeviceIsdBMeter},
     .NeedsPort = true,
     .Baud = kTarvenBaud,
     .Protocol = &ReceiveTarven},
    {.Caption = "ROSKA Wattscan meter",
     .Name = "ROSKA, COM",
     .Comes = Intake::Received,
     .Keys = {&InputChoice::InputDeviceIsdBMeter, &InputChoice::ROSKAmeter},
     .NeedsPort = true,
     .Baud = "9600",
     .Protocol = &ReceiveRoska,
     .CalibrateCommand = "*c"},
    // A port that is opened beside the program shows a meter which the program shares: a TARVEN.
    {.Caption = "LP-100-VCP or TarvenMeter or GaugeBridge",
     .Name = "External meter program",
     .Comes = Intake::Polled,
     .Keys = {&InputChoice::InputDeviceIsdBMeter, &InputChoice::GaugeBridge},
     .Baud = kTarvenBaud,
     .Protocol = &ReceiveTarven},
};

bool Fits(const LevelSource& source, const InputChoice& choice) {
  return std::all_of(source.Keys.begin(), source.Keys.end(),
                     [&](bool InputChoice::*key) { return key == nullptr || choice.*key; });
}

}  // namespace

std::span<const LevelSource> LevelSources() { return kSources; }

const LevelSource& SourceOf(const InputChoice& choice) {
  const auto fitting = std::find_if(std::rbegin(kSources), std::rend(kSources),
                                    [&](const LevelSource& source) { return Fits(source, choice); });
  return fitting == std::rend(kSources) ? kSources[0] : *fitting;
}

const LevelSource& SourceToTick(InputChoice choice) {
  const LevelSource& delivers = SourceOf(choice);
  choice.GaugeBridge = false;
  const LevelSource& beside = SourceOf(choice);
  return beside.Keys.back() != nullptr ? beside : delivers;
}

void Choose(const LevelSource& source, InputChoice& choice) {
  for (const LevelSource& each : kSources)
    for (bool InputChoice::*key : each.Keys)
      if (key != nullptr) choice.*key = false;
  for (bool InputChoice::*key : source.Keys)
    if (key != nullptr) choice.*key = true;
}

std::string SourceLabel(const InputChoice& choice, const std::string& soundSource) {
  const LevelSource& source = SourceOf(choice);
  if (!source.IsMeter() && !soundSource.empty()) return soundSource;
  return std::string(source.Name) + (source.NeedsPort ? std::to_string(choice.Commport) : "");
}

}  // namespace lobegraph
