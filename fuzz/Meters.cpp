#include "acquisition/meters/ExternalMeter.h"
#include "acquisition/meters/dBMeter.h"
#include "fuzz/NoDisplay.h"
#include "fuzz/Targets.h"
#include "fuzz/TextStore.h"

namespace lobegraph::fuzz {
namespace {

struct MeterRig {
  MeterState State;
  SettingsValues Settings;
  NoDisplay Display;
  StoppedClock Time;
  dBMeter Meter{State, Settings, Display, Time};
};

bool Same(const MeterState& a, const MeterState& b) {
  return a.MeterLevel == b.MeterLevel && a.MeterDb == b.MeterDb && a.MeterHistory == b.MeterHistory &&
         a.Received.MeterReadingCount == b.Received.MeterReadingCount && a.ValuesReceived == b.ValuesReceived;
}

}  // namespace

/// The first byte chooses the meter, the second where its text is cut; the rest is what it sends.
void TrySerialMeters(std::string_view input) {
  if (input.size() < 2) return;
  const bool roska = (static_cast<unsigned char>(input[0]) & 1U) != 0;
  const std::string_view text = input.substr(2);
  const std::size_t cut = text.empty() ? 0 : static_cast<unsigned char>(input[1]) % text.size();
  MeterRig whole, split;
  for (MeterRig* rig : {&whole, &split}) {
    rig->Settings.Input.InputDeviceIsdBMeter = true;
    rig->Settings.Input.ROSKAmeter = roska;
  }
  whole.Meter.ParseChars(text);
  split.Meter.ParseChars(text.substr(0, cut));
  split.Meter.ParseChars(text.substr(cut));
  Promise(InRange(whole.State) && InRange(split.State), "a meter stays in its range");
  // What follows the name in the same received text is ignored, so there a cut counts.
  const bool cutCounts = !roska && text.find("TARVEN ") != std::string_view::npos;
  Promise(cutCounts || Same(whole.State, split.State), "it does not matter how a text arrives");
}

void TryExternalMeter(std::string_view input) {
  MeterRig rig;
  TextStore store(input);
  ExternalMeter external(store, rig.Meter, rig.State, rig.Display, rig.Time);
  for (int poll = 0; poll < 3; ++poll) external.Poll();
  Promise(InRange(rig.State), "a meter program stays in its range");
}

}  // namespace lobegraph::fuzz
