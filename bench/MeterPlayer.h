#pragma once

#include <functional>
#include <optional>
#include <ostream>

#include "bench/ComLink.h"
#include "bench/MeterOutputs.h"
#include "bench/Options.h"
#include "settings/FileSettingsStore.h"
#include "settings/PublishedReading.h"

namespace lobegraph {

/// Is a meter while the antenna turns, in real time, until the turns are over or the process is asked to end
/// (SIGINT, SIGTERM, SIGHUP); one who no longer reads what it prints ends nothing.
class MeterPlayer {
 public:
  /// @param shown called with each moment played
  MeterPlayer(const BenchOptions& options, Turn& turn, std::ostream& output,
              std::function<void(double seconds)> shown);
  void Run();

 private:
  void Begin();
  void Play(double seconds);

  const BenchOptions& options_;
  Turn& turn_;
  std::ostream& output_;
  std::function<void(double)> shown_;
  SteppedTurn steps_;
  FileSettingsStore store_;
  std::optional<MeterTerminal> terminal_;
  std::optional<ComLink> com_;
  std::optional<PublishedReading> program_;
  std::optional<PulseOutput> pulses_;
};

}  // namespace lobegraph
