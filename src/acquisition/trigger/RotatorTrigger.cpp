#include "acquisition/trigger/RotatorTrigger.h"

#include <utility>

namespace lobegraph {

bool RotatorTrigger::WaitForTrigger() {
  line_.BeginWait();
  for (const char state : {'H', 'L'}) {
    const Awaited awaited = Await(state);
    if (awaited != Awaited::Came) return awaited == Awaited::Manual;
  }
  return true;
}

RotatorTrigger::Awaited RotatorTrigger::Await(char state) {
  while (true) {
    if (std::exchange(flags_.ManualTriggerPressed, false)) return Awaited::Manual;
    const char now = line_.ReadTriggerState();
    pump_.ProcessPendingEvents();
    if (flags_.TriggerPortGone) {  // and its line reads low, which is no end of a pulse
      flags_.HaltRequested = 1;
      return Awaited::Ended;
    }
    if (now == state) return Awaited::Came;
    if (flags_.HaltRequested == 1 || !wanted_()) return Awaited::Ended;
    line_.Sleep();
  }
}

}  // namespace lobegraph
