#include "acquisition/run/SourceCheck.h"

namespace lobegraph {

bool ExternalMeterReady(const CollectionParts& parts) {
  const bool ready = parts.Store.Get("GaugeBridge", "Settings", "Active", "N") != "N";
  parts.frmdBMeter.SetStatusText(ready ? "The external power meter is ready."
                                       : "The external power meter is not ready.");
  parts.frmdBMeter.PaintStatusShape(ready ? StatusColour::Green : StatusColour::Red);
  if (!ready) parts.Messages.Show({kExternalMeterMessage});
  return ready;
}

bool SourceReady(const CollectionParts& parts) {
  if (parts.FromSoundCard()) return true;
  if (parts.Settings.Input.GaugeBridge) return ExternalMeterReady(parts);
  if (parts.MSComm1.PortOpen()) return true;
  parts.Messages.Show({kMeterPortMessage});
  return false;
}

}  // namespace lobegraph
