#include "acquisition/run/SourceCheck.h"

#include "settings/SettingsTable.h"

namespace lobegraph {

bool ExternalMeterReady(const CollectionParts& parts) {
  const bool ready = parts.Store.Get(kGaugeBridgeApplication, kSettingsSection, kPublishedActive.Key,
                                     kPublishedActive.Default) != "N";
  parts.frmdBMeter.SetStatusText(ready ? "The external power meter is ready."
                                       : "The external power meter is not ready.");
  parts.frmdBMeter.PaintStatusShape(ready ? StatusColour::Green : StatusColour::Red);
  if (!ready) parts.Messages.Show({kExternalMeterMessage});
  return ready;
}

bool SourceReady(const CollectionParts& parts) {
  const LevelSource& source = parts.Source();
  if (source.Comes == Intake::Polled) return ExternalMeterReady(parts);
  if (!source.NeedsPort || parts.MSComm1.PortOpen()) return true;
  parts.Messages.Show({kMeterPortMessage});
  return false;
}

}  // namespace lobegraph
