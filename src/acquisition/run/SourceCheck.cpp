#include "acquisition/run/SourceCheck.h"

namespace lobegraph {

bool ExternalMeterReady(const CollectionParts& parts) {
  const bool ready = parts.Program.Ready();
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

void AwaitMeter(const CollectionParts& parts, const std::function<bool()>& goesOn) {
  if (parts.Source().Comes == Intake::Polled) parts.Meter.Forget();
  if (parts.Meter.HistoryFull()) return;
  parts.Window.Tell(run_event::AwaitsMeter{true});
  while (!parts.Meter.HistoryFull() && goesOn()) {
    parts.ReadInputLevel();
    parts.Pump.ProcessPendingEvents();
  }
  parts.Window.Tell(run_event::AwaitsMeter{false});
}

}  // namespace lobegraph
