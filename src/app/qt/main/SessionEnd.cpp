#include "app/qt/main/SessionEnd.h"

#include <sys/socket.h>
#include <unistd.h>

#include <QGuiApplication>
#include <QSessionManager>
#include <QSocketNotifier>
#include <array>
#include <csignal>

namespace lobegraph {
namespace {

// A signal handler reaches nothing but what is at namespace scope; one byte through a socket brings it to the
// event loop.
std::array<int, 2> wakeUp = {-1, -1};

void OnSignal(int) {
  const char byte = 1;
  [[maybe_unused]] const auto written = write(wakeUp[0], &byte, 1);
}

}  // namespace

SessionEnd::SessionEnd(std::function<void()> leave) {
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, wakeUp.data()) == 0) {
    auto* notifier = new QSocketNotifier(wakeUp[1], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [leave, notifier] {
      char byte = 0;
      [[maybe_unused]] const auto got = read(wakeUp[1], &byte, 1);
      notifier->setEnabled(false);
      leave();
    });
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) std::signal(number, OnSignal);
  }
  connect(qGuiApp, &QGuiApplication::commitDataRequest, this, [leave](QSessionManager&) { leave(); });
}

SessionEnd::~SessionEnd() {
  for (const int number : {SIGTERM, SIGINT, SIGHUP}) std::signal(number, SIG_DFL);
  for (int& end : wakeUp) close(std::exchange(end, -1));
}

}  // namespace lobegraph
