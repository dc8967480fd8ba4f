#pragma once

#include <QCoreApplication>

#include "acquisition/core/Clock.h"

namespace lobegraph {

/// Serves the window's queue: key presses, buttons, painting, timers and the devices' queued notices.
class QtEventPump final : public EventPump {
 public:
  void ProcessPendingEvents() override { QCoreApplication::processEvents(); }
};

}  // namespace lobegraph
