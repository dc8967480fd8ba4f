#pragma once

#include <QObject>
#include <functional>

namespace lobegraph {

/// Tells when the process is asked to end: SIGTERM, SIGINT, SIGHUP, or the end of the desktop session. One at
/// a time.
class SessionEnd : public QObject {
  Q_OBJECT

 public:
  /// @param leave called on the window's thread, inside its event loop
  explicit SessionEnd(std::function<void()> leave);
  ~SessionEnd() override;
};

}  // namespace lobegraph
