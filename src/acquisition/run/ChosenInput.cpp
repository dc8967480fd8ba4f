#include "acquisition/run/ChosenInput.h"

#include "acquisition/meters/LevelSource.h"

namespace lobegraph {
namespace {

constexpr int kMeterPauseMs = 5;

StatusColour StatusOf(SoundColour colour) {
  switch (colour) {
    case SoundColour::TooWeak:
      return StatusColour::Yellow;
    case SoundColour::Good:
      return StatusColour::Green;
    case SoundColour::Overload:
      break;
  }
  return StatusColour::LightRed;
}

}  // namespace

float ChosenInput::ReadInputLevel() {
  const Intake comes = SourceOf(parts_.Settings.Input).Comes;
  return comes == Intake::SoundCard ? ReadSoundCard() : ReadMeter(comes == Intake::Polled);
}

float ChosenInput::ReadSoundCard() {
  const SoundReading reading = ReadSoundLevel(parts_.Sound, parts_.Flags.InputReady,
                                              parts_.Settings.PeakInputLevel, parts_.Thresholds, parts_.Time);
  if (reading.Colour) parts_.Tell(run_event::LevelColour{StatusOf(*reading.Colour)});
  return reading.Level;
}

float ChosenInput::ReadMeter(bool polled) {
  if (polled) parts_.Program.Poll();
  const float level = parts_.Meter.MeterLevel;
  Pause(parts_.Pump, parts_.Time, kMeterPauseMs);
  return level;
}

}  // namespace lobegraph
