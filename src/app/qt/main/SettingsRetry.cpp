#include "app/qt/main/SettingsRetry.h"

#include <QObject>
#include <iostream>
#include <utility>

#include "settings/SettingsTable.h"

namespace lobegraph {
namespace {

constexpr int kEveryMs = 1000;

}  // namespace

SettingsRetry::SettingsRetry(FileSettingsStore& store, std::function<bool(const std::string& line)> say)
    : store_(store), say_(std::move(say)) {
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Try(); });
  timer_.start(kEveryMs);
}

void SettingsRetry::Try() {
  if (!store_.SomethingWaits()) return;
  if (store_.SaveWaiting()) {
    if (std::exchange(said_, false)) say_("The settings are saved now.");
  } else if (!said_) {
    said_ = say_("The settings are not saved yet: " + store_.Place(kLobegraphApplication) +
                 " cannot be written now.");
  }
}

void SettingsRetry::Finish() {
  if (store_.SaveWaiting()) return;
  std::cerr << "lobegraph: not saved: " << store_.Place(kLobegraphApplication) << " cannot be written\n";
}

}  // namespace lobegraph
