#include "app/qt/parts/DBusAwake.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace lobegraph {
namespace {

constexpr const char* kWho = "Lobegraph";
constexpr const char* kWhy = "An antenna pattern is being taken";
constexpr const char* kScreenSaver = "org.freedesktop.ScreenSaver";

QDBusMessage ScreenSaverCall(const char* method) {
  return QDBusMessage::createMethodCall(kScreenSaver, "/org/freedesktop/ScreenSaver", kScreenSaver, method);
}

}  // namespace

void DBusAwake::Begin() {
  if (wanted_) return;
  wanted_ = true;
  AskScreenSaver();
  AskLogin();
}

void DBusAwake::End() {
  wanted_ = false;
  ReleaseScreenSaver();
  sleepLock_ = QDBusUnixFileDescriptor();
}

void DBusAwake::AskScreenSaver() {
  const QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return;  // its answer would never come, and be waited for until the program ends
  QDBusMessage call = ScreenSaverCall("Inhibit");
  call << kWho << kWhy;
  auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
  connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
    const QDBusPendingReply<quint32> cookie = *answer;
    if (cookie.isValid()) cookie_ = cookie.value();
    if (!wanted_) ReleaseScreenSaver();  // the turn was shorter than the way to the desktop and back
    answer->deleteLater();
  });
}

void DBusAwake::AskLogin() {
  const QDBusConnection bus = QDBusConnection::systemBus();
  if (!bus.isConnected()) return;
  QDBusMessage call = QDBusMessage::createMethodCall("org.freedesktop.login1", "/org/freedesktop/login1",
                                                     "org.freedesktop.login1.Manager", "Inhibit");
  call << "sleep:idle" << kWho << kWhy << "block";
  auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
  connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
    const QDBusPendingReply<QDBusUnixFileDescriptor> lock = *answer;
    if (lock.isValid() && wanted_) sleepLock_ = lock.value();
    answer->deleteLater();
  });
}

void DBusAwake::ReleaseScreenSaver() {
  if (!cookie_) return;
  QDBusMessage call = ScreenSaverCall("UnInhibit");
  call << *cookie_;
  QDBusConnection::sessionBus().asyncCall(call);
  cookie_.reset();
}

}  // namespace lobegraph
