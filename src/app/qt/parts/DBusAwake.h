#pragma once

#include <QDBusPendingCall>
#include <QDBusUnixFileDescriptor>
#include <QObject>
#include <optional>

#include "app/parts/DesktopAwake.h"

namespace lobegraph {

/// Over the session bus (org.freedesktop.ScreenSaver: no lock, no blank screen) and the system bus (login1:
/// no sleep). Both answers come later and neither is needed; whatever is missing is left out silently. The
/// buses take everything back by themselves when the process ends.
class DBusAwake final : public QObject, public DesktopAwake {
  Q_OBJECT

 public:
  void Begin() override;
  void End() override;

 private:
  void AskScreenSaver();
  void AskLogin();
  void ReleaseScreenSaver();

  bool wanted_ = false;
  std::optional<quint32> cookie_;
  QDBusUnixFileDescriptor sleepLock_;
};

}  // namespace lobegraph
