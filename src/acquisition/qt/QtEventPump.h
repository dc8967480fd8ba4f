#pragma once

#include <QCoreApplication>

#include "acquisition/core/Clock.h"
#include "acquisition/qt/NoticeGate.h"

namespace lobegraph {

/// Serves the window's queue: key presses, buttons, painting, timers and the devices' queued notices.
class QtEventPump final : public EventPump {
 public:
  void ProcessPendingEvents() override {
    gate_.GiveOut();
    QCoreApplication::processEvents();
  }
  /// Serial ports are told of by notifiers, the sound input by notices that pass the gate: both wait.
  void ServeWindow() override {
    const NoticeGate::Closed closed(gate_);
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
  }

  /// Which devices' notices pass.
  NoticeGate& Gate() { return gate_; }

 private:
  NoticeGate gate_;
};

}  // namespace lobegraph
